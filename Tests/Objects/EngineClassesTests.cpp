// The engine's native classes: registered by name at start, their chains and flags, actors with the
// components their constructors make, component placement, and the Blueprint-callable system library.
#include "ObjectTestTypes.h"
#include "ObjectTestSupport.h"
#include "CoreUObject.h"
#include "Kismet/KismetSystemLibrary.h"
#include "Misc/FeedbackContext.h"
#include "FileHelpers.h"
#include "CoreTestPrinters.h"
#include <gtest/gtest.h>

namespace
{
	const FString TempRoot(TEXT(OBJECTS_TESTS_TEMP_DIR));
}

TEST(EngineClasses, NativeClassesAreKnownByPathFromTheStart)
{
	// Looked up by path before any code here names the class.
	UClass* Found = Cast<UClass>(StaticFindObject(UClass::StaticClass(), nullptr, TEXT("/Script/Engine.StaticMeshComponent")));
	ASSERT_NE(Found, nullptr);
	EXPECT_EQ(Found, UStaticMeshComponent::StaticClass());
	EXPECT_EQ(UClass::TryFindTypeSlowSafe<UClass>(TEXT("Actor")), AActor::StaticClass());
	EXPECT_EQ(UClass::TryFindTypeSlowSafe<UClass>(TEXT("KismetSystemLibrary")), UKismetSystemLibrary::StaticClass());

	TArray<FString> Chain;
	for (UClass* Class = Found; Class != nullptr; Class = Class->GetSuperClass())
	{
		Chain.Add(Class->GetName());
	}
	EXPECT_EQ(Chain, (TArray<FString>{TEXT("StaticMeshComponent"), TEXT("MeshComponent"), TEXT("PrimitiveComponent"), TEXT("SceneComponent"), TEXT("ActorComponent"), TEXT("Object")}));
	EXPECT_TRUE(UPrimitiveComponent::StaticClass()->HasAnyClassFlags(CLASS_Abstract));
	EXPECT_TRUE(UActorComponent::StaticClass()->HasAnyClassFlags(CLASS_DefaultToInstanced));
	EXPECT_FALSE(USceneComponent::StaticClass()->HasAnyClassFlags(CLASS_Abstract));
	EXPECT_EQ(AActor::StaticClass()->GetPrefixCPP(), FString(TEXT("A")));
	EXPECT_EQ(UClass::TryFindTypeSlowSafe<UEnum>(TEXT("EComponentMobility"))->GetNameStringByValue(EComponentMobility::Movable), TEXT("Movable"));
	EXPECT_TRUE(AActor::StaticClass()->FindFunctionByName(FName(TEXT("ReceiveBeginPlay")))->HasAnyFunctionFlags(FUNC_BlueprintEvent));
	FProperty* Mobility = USceneComponent::StaticClass()->FindPropertyByName(FName(TEXT("Mobility")));
	ASSERT_NE(Mobility, nullptr);
	EXPECT_TRUE(Mobility->HasAllPropertyFlags(CPF_Edit | CPF_BlueprintVisible | CPF_BlueprintReadOnly));
}

TEST(EngineClasses, ActorsOwnTheComponentsTheirConstructorMakes)
{
	FObjectTestProject Project(TempRoot, TEXT("Actors"));
	AObjectTestDoor* Defaults = GetMutableDefault<AObjectTestDoor>();
	TArray<UActorComponent*> DefaultComponents;
	Defaults->GetComponents(DefaultComponents);
	ASSERT_EQ(DefaultComponents.Num(), 2);
	EXPECT_EQ(DefaultComponents[0], Defaults->Frame);
	EXPECT_EQ(Defaults->Panel->GetAttachParent(), Defaults->Frame);
	// A value set on the default object's component carries over to new actors; references don't leak.
	Defaults->Panel->CastShadow = false;

	UPackage* Package = CreatePackage(TEXT("/Game/Doors/FrontDoor"));
	AObjectTestDoor* Door = NewObject<AObjectTestDoor>(Package, FName(TEXT("FrontDoor")), RF_Public | RF_Standalone | RF_Transactional);
	TArray<UStaticMeshComponent*> Meshes;
	Door->GetComponents(Meshes);
	ASSERT_EQ(Meshes.Num(), 1);
	EXPECT_EQ(Meshes[0], Door->Panel);
	EXPECT_NE(Door->Panel, Defaults->Panel);
	EXPECT_EQ(Door->Panel->GetOuter(), Door);
	EXPECT_EQ(Door->GetRootComponent(), Door->Frame);
	EXPECT_EQ(Door->Panel->GetAttachParent(), Door->Frame);
	EXPECT_FALSE(Door->Panel->CastShadow);
	EXPECT_EQ(Door->FindComponentByClass<USceneComponent>(), Door->Frame);
	EXPECT_EQ(Door->Panel->GetOwner(), Door);
	Defaults->Panel->CastShadow = true;

	// Placement, as the component tools set it; the parent's transform carries the child.
	Door->Frame->SetRelativeLocation(FVector(100.0, 0.0, 0.0));
	Door->Panel->SetRelativeLocationAndRotation(FVector(0.0, 0.0, 50.0), FRotator(0.0, 90.0, 0.0));
	Door->Panel->SetRelativeScale3D(FVector(1.0, 1.0, 2.0));
	Door->Panel->SetMobility(EComponentMobility::Static);
	EXPECT_TRUE(Door->Panel->GetComponentLocation().Equals(FVector(100.0, 0.0, 50.0)));
	EXPECT_TRUE(Door->GetActorLocation().Equals(FVector(100.0, 0.0, 0.0)));
	FProperty* CastShadow = Door->Panel->GetClass()->FindPropertyByName(FName(TEXT("CastShadow")));
	ASSERT_NE(CastShadow, nullptr);
	ASSERT_TRUE(CastShadow->ValidateImportFlags(PPF_None));
	EXPECT_NE(CastShadow->ImportText_Direct(TEXT("false"), CastShadow->ContainerPtrToValuePtr<void>(Door->Panel), Door->Panel, PPF_None, GWarn), nullptr);
	EXPECT_FALSE(Door->Panel->CastShadow);

	ASSERT_TRUE(SaveTestPackage(Package, Door));
	const FString Text = FObjectTestProject::ReadFile(Project.ContentFile(TEXT("Doors/FrontDoor.uasset")));
	EXPECT_TRUE(Text.Contains(TEXT("\t\tRelativeLocation=(X=0.000000,Y=0.000000,Z=50.000000)\n")));
	EXPECT_TRUE(Text.Contains(TEXT("\t\tMobility=Static\n")));

	TArray<UObject*> Inners;
	GetObjectsWithOuter(Package, Inners);
	for (UObject* Inner : Inners)
	{
		Inner->ClearFlags(RF_Standalone);
	}
	CollectGarbage(RF_NoFlags);
	AObjectTestDoor* Loaded = LoadObject<AObjectTestDoor>(nullptr, TEXT("/Game/Doors/FrontDoor.FrontDoor"));
	ASSERT_NE(Loaded, nullptr);
	TArray<UActorComponent*> LoadedComponents;
	Loaded->GetComponents(LoadedComponents);
	EXPECT_EQ(LoadedComponents.Num(), 2);
	EXPECT_EQ(Loaded->Panel->GetAttachParent(), Loaded->Frame);
	EXPECT_EQ(Loaded->Panel->Mobility, EComponentMobility::Static);
	EXPECT_FALSE(Loaded->Panel->CastShadow);
	EXPECT_TRUE(Loaded->Panel->GetRelativeRotation().Equals(FRotator(0.0, 90.0, 0.0)));
	EXPECT_TRUE(Loaded->Panel->GetComponentLocation().Equals(FVector(100.0, 0.0, 50.0)));
}

TEST(EngineClasses, SystemLibraryFunctionsDescribeThemselvesForBlueprints)
{
	UFunction* Print = UKismetSystemLibrary::StaticClass()->FindFunctionByName(FName(TEXT("PrintString")), EIncludeSuperFlag::IncludeSuper);
	ASSERT_NE(Print, nullptr);
	EXPECT_TRUE(Print->HasAllFunctionFlags(FUNC_Static | FUNC_BlueprintCallable | FUNC_Native | FUNC_Public | FUNC_Final));
	// Events are what a Blueprint may override: never final, and without a native body.
	UFunction* BeginPlay = AActor::StaticClass()->FindFunctionByName(FName(TEXT("ReceiveBeginPlay")));
	ASSERT_NE(BeginPlay, nullptr);
	EXPECT_TRUE(BeginPlay->HasAllFunctionFlags(FUNC_Event | FUNC_BlueprintEvent));
	EXPECT_FALSE(BeginPlay->HasAnyFunctionFlags(FUNC_Final | FUNC_Native));
	EXPECT_EQ(Print->GetReturnProperty(), nullptr);
	TArray<FString> Parameters;
	for (TFieldIterator<FProperty> It(Print); It; ++It)
	{
		EXPECT_TRUE(It->HasAnyPropertyFlags(CPF_Parm));
		Parameters.Add(It->GetName());
	}
	EXPECT_EQ(Parameters, (TArray<FString>{TEXT("WorldContextObject"), TEXT("InString"), TEXT("bPrintToScreen"), TEXT("bPrintToLog"), TEXT("TextColor"), TEXT("Duration"), TEXT("Key")}));
	EXPECT_EQ(Print->GetMetaData(TEXT("CPP_Default_InString")), TEXT("Hello"));
	EXPECT_EQ(Print->GetMetaData(TEXT("CPP_Default_TextColor")), TEXT("(R=0.000000,G=0.660000,B=1.000000,A=1.000000)"));
	EXPECT_EQ(Print->GetMetaData(TEXT("CPP_Default_Key")), TEXT("None"));
	EXPECT_EQ(Print->GetMetaData(TEXT("WorldContext")), TEXT("WorldContextObject"));
	EXPECT_EQ(CastField<FStructProperty>(Print->FindPropertyByName(FName(TEXT("TextColor"))))->Struct, TBaseStructure<FLinearColor>::Get());
	UFunction* IsValidFunction = UKismetSystemLibrary::StaticClass()->FindFunctionByName(FName(TEXT("IsValid")));
	ASSERT_NE(IsValidFunction, nullptr);
	EXPECT_TRUE(IsValidFunction->HasAnyFunctionFlags(FUNC_BlueprintPure));
	EXPECT_NE(CastField<FBoolProperty>(IsValidFunction->GetReturnProperty()), nullptr);

	UKismetSystemLibrary::PrintString(nullptr, TEXT("Hello there"));
	EXPECT_TRUE(UKismetSystemLibrary::IsValid(GetDefault<AActor>()));
	EXPECT_EQ(UKismetSystemLibrary::GetObjectName(nullptr), TEXT("None"));
}

TEST(EngineClasses, ComponentsFollowTheirParentsAndLeaveTheirOwnerWhenDestroyed)
{
	AObjectTestDoor* Door = NewObject<AObjectTestDoor>();
	Door->AddToRoot();
	USceneComponent* Handle = NewObject<USceneComponent>(Door, FName(TEXT("Handle")));
	// Only the actor's list refers to the handle; that keeps it alive.
	CollectGarbage(RF_NoFlags);
	TArray<USceneComponent*> Scenes;
	Door->GetComponents(Scenes);
	ASSERT_EQ(Scenes.Num(), 3);
	EXPECT_EQ(Scenes[2], Handle);

	Handle->SetupAttachment(Door->Panel);
	EXPECT_EQ(Door->Panel->GetAttachChildren().Num(), 1);
	Door->Frame->SetRelativeRotation(FRotator(0.0, 90.0, 0.0));
	Door->Frame->SetRelativeScale3D(FVector(2.0, 2.0, 2.0));
	Door->Panel->SetRelativeLocation(FVector(10.0, 0.0, 0.0));
	Handle->SetRelativeLocation(FVector(0.0, 0.0, 1.0));
	// The frame turns the panel's offset a quarter turn and doubles it; the handle rides along.
	EXPECT_TRUE(Door->Panel->GetComponentLocation().Equals(FVector(0.0, 20.0, 0.0), 1e-9));
	EXPECT_TRUE(Handle->GetComponentLocation().Equals(FVector(0.0, 20.0, 2.0), 1e-9));
	Handle->SetupAttachment(Door->Frame);
	EXPECT_EQ(Door->Panel->GetAttachChildren().Num(), 0);
	Door->Frame->SetVisibility(false, true);
	EXPECT_FALSE(Door->Panel->bVisible);
	EXPECT_FALSE(Handle->bVisible);

	// A component of another actor can't be this one's root.
	AObjectTestDoor* Other = NewObject<AObjectTestDoor>();
	EXPECT_FALSE(Door->SetRootComponent(Other->Frame));
	EXPECT_TRUE(Door->SetRootComponent(Handle));
	Door->SetRootComponent(Door->Frame);
	Handle->MarkAsGarbage();
	CollectGarbage(RF_NoFlags);
	Door->GetComponents(Scenes);
	EXPECT_EQ(Scenes.Num(), 2);
	Door->RemoveFromRoot();
}

TEST(EngineClasses, TheEditorSavesThePackagesThatChanged)
{
	FObjectTestProject Project(TempRoot, TEXT("DirtyPackages"));
	UStaticMesh* Changed = NewObject<UStaticMesh>(CreatePackage(TEXT("/Game/Dirty/Changed")), FName(TEXT("Changed")), RF_Public | RF_Standalone);
	UStaticMesh* Untouched = NewObject<UStaticMesh>(CreatePackage(TEXT("/Game/Dirty/Untouched")), FName(TEXT("Untouched")), RF_Public | RF_Standalone);
	UStaticMesh* Level = NewObject<UStaticMesh>(CreatePackage(TEXT("/Game/Dirty/Level")), FName(TEXT("Level")), RF_Public | RF_Standalone);
	Level->GetOutermost()->SetPackageFlags(PKG_ContainsMap);
	Changed->Modify();
	Level->Modify();
	NewObject<UStaticMesh>()->Modify();
	EXPECT_FALSE(Untouched->GetOutermost()->IsDirty());

	// Packages other tests of this program left dirty are no concern here.
	const auto OutsideThisTest = [](UPackage* Package) { return !Package->GetName().StartsWith(TEXT("/Game/Dirty/")); };
	TArray<UPackage*> Content;
	FEditorFileUtils::GetDirtyContentPackages(Content, OutsideThisTest);
	EXPECT_EQ(Content, (TArray<UPackage*>{Changed->GetOutermost()}));
	TArray<UPackage*> Worlds;
	FEditorFileUtils::GetDirtyWorldPackages(Worlds, OutsideThisTest);
	EXPECT_EQ(Worlds, (TArray<UPackage*>{Level->GetOutermost()}));
	TArray<UPackage*> None;
	FEditorFileUtils::GetDirtyPackages(None, [](UPackage*) { return true; });
	EXPECT_EQ(None.Num(), 0);

	bool bNeededSaving = false;
	EXPECT_TRUE(FEditorFileUtils::SaveDirtyPackages(false, true, true, false, false, true, &bNeededSaving));
	EXPECT_TRUE(bNeededSaving);
	EXPECT_TRUE(FPaths::FileExists(Project.ContentFile(TEXT("Dirty/Changed.uasset"))));
	EXPECT_TRUE(FPaths::FileExists(Project.ContentFile(TEXT("Dirty/Level.umap"))));
	EXPECT_FALSE(FPaths::FileExists(Project.ContentFile(TEXT("Dirty/Untouched.uasset"))));
	EXPECT_FALSE(Changed->GetOutermost()->IsDirty());
}
