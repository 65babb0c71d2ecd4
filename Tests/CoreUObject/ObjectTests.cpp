// Objects: class default objects, construction, names, outers and paths, lookups, casts, edit notifications.
#include "ReflectionTestTypes.h"
#include "CoreUObject.h"
#include "CoreTestPrinters.h"
#include <gtest/gtest.h>

TEST(Objects, ClassDefaultObjectIsOneObjectHoldingTheConstructorsValues)
{
	const UReflectionTestSettings* Defaults = GetDefault<UReflectionTestSettings>();
	ASSERT_NE(Defaults, nullptr);
	EXPECT_EQ(Defaults, GetDefault<UReflectionTestSettings>());
	EXPECT_EQ(Defaults, GetMutableDefault<UReflectionTestSettings>());
	EXPECT_EQ(Defaults, UReflectionTestSettings::StaticClass()->GetDefaultObject());
	EXPECT_EQ(Defaults->GetName(), TEXT("Default__ReflectionTestSettings"));
	EXPECT_EQ(Defaults->GetPathName(), TEXT("/Script/CoreUObjectTests.Default__ReflectionTestSettings"));
	EXPECT_TRUE(Defaults->HasAllFlags(RF_ClassDefaultObject | RF_ArchetypeObject | RF_Public));
	EXPECT_TRUE(Defaults->IsTemplate());
	EXPECT_EQ(Defaults->GetClass(), UReflectionTestSettings::StaticClass());
	EXPECT_EQ(Defaults->Extensions.Num(), 3);
	EXPECT_TRUE(Defaults->bShowChanges);
	EXPECT_TRUE(Defaults->bSecondFlag);
	EXPECT_FALSE(Defaults->bFirstFlag);
	EXPECT_EQ(Defaults->AnswerMode, ETestAnswerMode::VeryTalkative);

	// A subclass's defaults come from its own constructor, after its parent's defaults exist.
	const UReflectionTestChild* ChildDefaults = GetDefault<UReflectionTestChild>();
	EXPECT_NE(static_cast<const UObject*>(ChildDefaults), static_cast<const UObject*>(Defaults));
	EXPECT_EQ(ChildDefaults->ChildValue, 11);
	EXPECT_EQ(ChildDefaults->GetArchetype(), Defaults);
	EXPECT_EQ(GetDefault<UReflectionTestSettings>(UReflectionTestChild::StaticClass()), ChildDefaults);
	// Code in a constructor that asks for the defaults while they are made gets them, not a second object.
	const UReflectionTestPerObject* PerObjectDefaults = GetDefault<UReflectionTestPerObject>();
	EXPECT_EQ(PerObjectDefaults->DefaultsSeenByConstructor, PerObjectDefaults);
	EXPECT_EQ(NewObject<UReflectionTestPerObject>()->DefaultsSeenByConstructor, PerObjectDefaults);
	// An abstract class has defaults but no instances.
	EXPECT_NE(GetDefault<UReflectionTestAbstract>(), nullptr);
	EXPECT_EQ(NewObject<UReflectionTestAbstract>(), nullptr);
}

TEST(Objects, NewObjectNamesAndPlacesObjects)
{
	UPackage* Package = CreatePackage(TEXT("/Game/ObjectTests/Names"));
	ASSERT_NE(Package, nullptr);
	EXPECT_EQ(CreatePackage(TEXT("/Game/ObjectTests/Names")), Package);

	UReflectionTestSettings* Unnamed = NewObject<UReflectionTestSettings>(Package);
	UReflectionTestSettings* Other = NewObject<UReflectionTestSettings>(Package);
	ASSERT_NE(Unnamed, nullptr);
	EXPECT_NE(Unnamed->GetFName(), Other->GetFName());
	EXPECT_TRUE(Unnamed->GetName().StartsWith(TEXT("ReflectionTestSettings_")));
	EXPECT_FALSE(Unnamed->HasAnyFlags(RF_ClassDefaultObject));

	UReflectionTestSettings* Asset = NewObject<UReflectionTestSettings>(Package, FName(TEXT("Settings")), RF_Public | RF_Standalone);
	UReflectionTestChild* Inner = NewObject<UReflectionTestChild>(Asset, FName(TEXT("Inner")));
	UReflectionTestChild* Innermost = NewObject<UReflectionTestChild>(Inner, FName(TEXT("Innermost")));
	EXPECT_EQ(Asset->GetPathName(), TEXT("/Game/ObjectTests/Names.Settings"));
	EXPECT_EQ(Inner->GetPathName(), TEXT("/Game/ObjectTests/Names.Settings:Inner"));
	EXPECT_EQ(Innermost->GetPathName(), TEXT("/Game/ObjectTests/Names.Settings:Inner.Innermost"));
	EXPECT_EQ(Innermost->GetPathName(Asset), TEXT("Inner.Innermost"));
	EXPECT_EQ(Innermost->GetFullName(), TEXT("ReflectionTestChild /Game/ObjectTests/Names.Settings:Inner.Innermost"));
	EXPECT_EQ(Innermost->GetOutermost(), Package);
	EXPECT_EQ(Innermost->GetTypedOuter<UReflectionTestSettings>(), Inner);
	EXPECT_TRUE(Innermost->IsIn(Asset));
	EXPECT_TRUE(Asset->IsAsset());
	EXPECT_FALSE(Inner->IsAsset());
	EXPECT_FALSE(NewObject<UReflectionTestSettings>()->IsAsset());
	EXPECT_EQ(NewObject<UReflectionTestSettings>()->GetOuter(), GetTransientPackage());

	EXPECT_EQ(StaticFindObject(UReflectionTestChild::StaticClass(), nullptr, TEXT("/Game/ObjectTests/Names.Settings:Inner.Innermost")), Innermost);
	EXPECT_EQ(FindObject<UReflectionTestSettings>(Asset, TEXT("Inner")), Inner);
	EXPECT_EQ(FindObject<UReflectionTestChild>(Package, TEXT("Settings"), true), nullptr);
	EXPECT_EQ(FindObject<UReflectionTestSettings>(Package, TEXT("settings")), Asset);
	EXPECT_EQ(StaticFindObject(nullptr, nullptr, TEXT("/Game/ObjectTests/Names.Missing:Inner")), nullptr);
	EXPECT_EQ(StaticFindObject(nullptr, nullptr, TEXT("")), nullptr);

	TArray<UObject*> Inners;
	GetObjectsWithOuter(Asset, Inners);
	EXPECT_EQ(Inners.Num(), 2);
	Inners.Empty();
	GetObjectsWithOuter(Asset, Inners, false);
	EXPECT_EQ(Inners.Num(), 1);

	// Only packages stand without an outer.
	EXPECT_EQ(NewObject<UReflectionTestSettings>(nullptr, UReflectionTestSettings::StaticClass(), FName(TEXT("Loose"))), nullptr);
}

TEST(Objects, SameNameReplacesInPlaceAndRenameMovesObjects)
{
	UPackage* Package = CreatePackage(TEXT("/Game/ObjectTests/Replace"));
	UReflectionTestSettings* First = NewObject<UReflectionTestSettings>(Package, FName(TEXT("Target")));
	First->RetentionDays = 99;
	UReflectionTestSettings* Second = NewObject<UReflectionTestSettings>(Package, FName(TEXT("Target")));
	EXPECT_EQ(Second, First);
	EXPECT_EQ(Second->RetentionDays, 30);
	// An object of another class doesn't take the name: it gets one of its own.
	UReflectionTestChild* Child = NewObject<UReflectionTestChild>(Package, FName(TEXT("Target")));
	ASSERT_NE(Child, nullptr);
	EXPECT_NE(Child->GetFName(), FName(TEXT("Target")));
	EXPECT_EQ(FindObject<UObject>(Package, TEXT("Target")), First);

	UPackage* OtherPackage = CreatePackage(TEXT("/Game/ObjectTests/Elsewhere"));
	EXPECT_TRUE(First->Rename(TEXT("Moved"), OtherPackage));
	EXPECT_EQ(First->GetPathName(), TEXT("/Game/ObjectTests/Elsewhere.Moved"));
	EXPECT_EQ(FindObject<UObject>(Package, TEXT("Target")), nullptr);
	EXPECT_EQ(FindObject<UObject>(OtherPackage, TEXT("Moved")), First);
	EXPECT_FALSE(Child->Rename(TEXT("Moved"), OtherPackage));
	EXPECT_FALSE(Child->Rename(TEXT("Moved"), OtherPackage, REN_Test));
	EXPECT_TRUE(Child->Rename(TEXT("Free"), nullptr, REN_Test));
	EXPECT_NE(Child->GetFName(), FName(TEXT("Free")));
	EXPECT_FALSE(OtherPackage->Rename(nullptr, First));
}

TEST(Objects, CastsFollowTheClassChainAndInterfaces)
{
	UObject* Object = NewObject<UReflectionTestChild>(GetTransientPackage(), FName(TEXT("CastMe")));
	EXPECT_TRUE(Object->IsA<UReflectionTestSettings>());
	EXPECT_FALSE(Object->IsA<UPackage>());
	EXPECT_NE(Cast<UReflectionTestSettings>(Object), nullptr);
	EXPECT_EQ(Cast<UPackage>(Object), nullptr);
	EXPECT_EQ(Cast<UReflectionTestSettings>(static_cast<UObject*>(nullptr)), nullptr);
	EXPECT_EQ(ExactCast<UReflectionTestSettings>(Object), nullptr);

	IReflectionTestGreeter* Greeter = Cast<IReflectionTestGreeter>(Object);
	ASSERT_NE(Greeter, nullptr);
	EXPECT_EQ(Greeter->Greet(), TEXT("Hello from CastMe"));
	EXPECT_EQ(Greeter->_getUObject(), Object);
	EXPECT_EQ(Cast<IReflectionTestGreeter>(GetTransientPackage()), nullptr);

	int32 Found = 0;
	for (TObjectIterator<UReflectionTestChild> It; It; ++It)
	{
		EXPECT_FALSE(It->HasAnyFlags(RF_ClassDefaultObject));
		++Found;
	}
	EXPECT_GE(Found, 1);
}

TEST(Objects, PostEditChangePropertyReceivesThePropertyOrNone)
{
	UReflectionTestSettings* Settings = NewObject<UReflectionTestSettings>();
	FProperty* Property = UReflectionTestSettings::StaticClass()->FindPropertyByName(FName(TEXT("bResetList")));
	ASSERT_NE(Property, nullptr);

	FPropertyChangedEvent WithProperty(Property, EPropertyChangeType::ValueSet);
	EXPECT_EQ(WithProperty.MemberProperty, Property);
	Settings->PostEditChangeProperty(WithProperty);
	EXPECT_EQ(Settings->PostEditChangeCount, 1);
	EXPECT_EQ(Settings->LastChangedProperty, FName(TEXT("bResetList")));

	FPropertyChangedEvent WithoutProperty(nullptr);
	EXPECT_EQ(WithoutProperty.GetPropertyName(), FName(NAME_None));
	Settings->PostEditChangeProperty(WithoutProperty);
	EXPECT_EQ(Settings->LastChangedProperty, FName(NAME_None));

	Settings->LastChangedProperty = FName(TEXT("Something"));
	Settings->PostEditChange();
	EXPECT_EQ(Settings->PostEditChangeCount, 3);
	EXPECT_TRUE(Settings->LastChangedProperty.IsNone());

	// An editor may not change an EditConst property, nor an instance-disabled one on an instance.
	EXPECT_FALSE(Settings->CanEditChange(UReflectionTestSettings::StaticClass()->FindPropertyByName(FName(TEXT("RetentionDays")))));
	EXPECT_TRUE(Settings->CanEditChange(Property));
}

TEST(Objects, QueriesFindObjectsByClassAndMisuseIsRefusedQuietly)
{
	TArray<UClass*> Derived;
	GetDerivedClasses(UReflectionTestSettings::StaticClass(), Derived);
	ASSERT_EQ(Derived.Num(), 1);
	EXPECT_EQ(Derived[0], UReflectionTestChild::StaticClass());
	Derived.Empty();
	GetDerivedClasses(UObject::StaticClass(), Derived, false);
	EXPECT_TRUE(Derived.Contains(UReflectionTestSettings::StaticClass()));
	EXPECT_FALSE(Derived.Contains(UReflectionTestChild::StaticClass()));

	UPackage* Package = CreatePackage(TEXT("/Game/ObjectTests/Queries"));
	UReflectionTestChild* Child = NewObject<UReflectionTestChild>(Package, FName(TEXT("Child")));
	TArray<UObject*> Found;
	GetObjectsOfClass(UReflectionTestSettings::StaticClass(), Found);
	EXPECT_TRUE(Found.Contains(Child));
	EXPECT_FALSE(Found.Contains(GetDefault<UReflectionTestChild>()));
	Found.Empty();
	GetObjectsOfClass(UReflectionTestSettings::StaticClass(), Found, false);
	EXPECT_FALSE(Found.Contains(Child));
	EXPECT_EQ(FindObjectWithOuter(Package, UReflectionTestChild::StaticClass()), Child);
	EXPECT_EQ(FindObjectWithOuter(Package, nullptr, FName(TEXT("Nobody"))), nullptr);

	// A package's name finds it again; an empty name gives a fresh one.
	EXPECT_EQ(CreatePackage(TEXT("/Engine/Transient")), GetTransientPackage());
	EXPECT_TRUE(GetTransientPackage()->HasAnyFlags(RF_Transient));
	UPackage* Untitled = CreatePackage(nullptr);
	ASSERT_NE(Untitled, nullptr);
	EXPECT_TRUE(Untitled->GetName().StartsWith(TEXT("/Temp/Untitled")));
	EXPECT_EQ(NewObject<UReflectionTestSettings>(GetTransientPackage(), static_cast<UClass*>(nullptr)), nullptr);
	// Outside a construction there is no initializer to hand out, only an empty one.
	EXPECT_EQ(FObjectInitializer::Get().GetObj(), nullptr);
}

TEST(Objects, StructsConstructCopyAndDestroyThroughTheirReflection)
{
	UScriptStruct* Struct = FReflectionTestStruct::StaticStruct();
	TArray<uint8> Memory;
	Memory.SetNumZeroed(Struct->GetStructureSize() * 2);
	Struct->InitializeStruct(Memory.GetData(), 2);
	FReflectionTestStruct* Values = reinterpret_cast<FReflectionTestStruct*>(Memory.GetData());
	EXPECT_EQ(Values[1].Count, 3);
	Values[1].Label = TEXT("long enough to live on the heap, not in the string object");
	FProperty* Label = Struct->FindPropertyByName(FName(TEXT("Label")));
	ASSERT_NE(Label, nullptr);
	EXPECT_EQ(Label->GetOwnerStruct(), Struct);
	EXPECT_EQ(Label->GetPathName(), TEXT("/Script/CoreUObjectTests.ReflectionTestStruct:Label"));
	Label->CopyCompleteValue_InContainer(&Values[0], &Values[1]);
	EXPECT_EQ(Values[0].Label, Values[1].Label);
	Struct->DestroyStruct(Memory.GetData(), 2);
}
