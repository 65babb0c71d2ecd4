// Packages on disk: the text package format, saving and loading every property kind, refusal of bad files,
// classes made at run time, and the package names of files.
#include "ReflectionTestTypes.h"
#include "CoreUObject.h"
#include "ObjectTestSupport.h"
#include "CoreTestPrinters.h"
#include <gtest/gtest.h>

#include <initializer_list>

namespace
{
	const FString TempRoot(TEXT(COREUOBJECT_TESTS_TEMP_DIR));

	UReflectionTestAllKinds* MakeAsset(const TCHAR* PackageName, const TCHAR* AssetName)
	{
		UPackage* Package = CreatePackage(PackageName);
		return NewObject<UReflectionTestAllKinds>(Package, FName(AssetName), RF_Public | RF_Standalone | RF_Transactional);
	}

	// Lets every object of the package go: what the next load finds then comes from the file.
	// One collection for all: a collection may free objects of the other packages too, so none of them
	// may be reached after it.
	void ForgetPackages(std::initializer_list<UPackage*> Packages)
	{
		for (UPackage* Package : Packages)
		{
			TArray<UObject*> Inners;
			GetObjectsWithOuter(Package, Inners, true);
			for (UObject* Object : Inners)
			{
				Object->ClearFlags(RF_Standalone);
			}
		}
		CollectGarbage(RF_NoFlags);
	}

	void ForgetPackage(UPackage* Package)
	{
		ForgetPackages({ Package });
	}
}

TEST(Packages, EveryPropertyKindSurvivesSaveAndLoad)
{
	FObjectTestProject Project(TempRoot, TEXT("RoundTrip"));
	UReflectionTestAllKinds* Other = MakeAsset(TEXT("/Game/Other/Target"), TEXT("Target"));
	ASSERT_TRUE(SaveTestPackage(Other->GetOutermost()));

	UReflectionTestAllKinds* Asset = MakeAsset(TEXT("/Game/Things/AllKinds"), TEXT("AllKinds"));
	UReflectionTestChild* Child = NewObject<UReflectionTestChild>(Asset, FName(TEXT("Child")), RF_Transactional);
	Child->ChildValue = 77;
	Child->ApiKey = TEXT("line one\nline two");
	Asset->bFlag = true;
	Asset->Byte = 7;
	Asset->Int = -3;
	Asset->Long = -(1LL << 50);
	Asset->Float = 0.125f;
	Asset->Double = 1234.5;
	Asset->Name = FName(TEXT("Some Name"));
	Asset->String = TEXT("  padded \"quoted\" text  ");
	Asset->Text = NSLOCTEXT("Tests", "Saved", "Saved text");
	Asset->Enum = ETestAnswerMode::Hidden;
	Asset->ByteEnum = TLC_Green;
	Asset->Vector = FVector(1.0, -2.0, 3.5);
	Asset->Rotator = FRotator(0.0, 45.0, 0.0);
	Asset->Transform = FTransform(FQuat::Identity, FVector(10.0, 0.0, 0.0), FVector(2.0, 2.0, 2.0));
	Asset->Color = FLinearColor(1.0f, 0.0f, 0.0f, 0.5f);
	Asset->Inner.Number = 9;
	Asset->Inner.Reference = Other;
	Asset->Object = Child;
	Asset->RawPointer = Child;
	Asset->Weak = Other;
	Asset->Soft = Other;
	Asset->Class = UReflectionTestChild::StaticClass();
	Asset->SoftClass = UReflectionTestAllKinds::StaticClass();
	Asset->Greeter = Child;
	Asset->Points = {FVector(1.0, 1.0, 1.0), FVector(-1.0, 0.0, 0.5)};
	Asset->Objects = {Other, Child, nullptr};
	Asset->Tags = {FName(TEXT("B")), FName(TEXT("A"))};
	Asset->Counts = {{TEXT("x"), 1}, {TEXT("y"), 2}};
	Asset->Named.Add(FName(TEXT("Other")), Other);
	Asset->TransientValue = 99;
	Asset->GetOutermost()->SetDirtyFlag(true);
	ASSERT_TRUE(SaveTestPackage(Asset->GetOutermost(), Asset));
	EXPECT_FALSE(Asset->GetOutermost()->IsDirty());

	// The file is text: a versioned head, the assets with their class, then one value a line.
	const FString File = Project.ContentFile(TEXT("Things/AllKinds.uasset"));
	const FString Text = FObjectTestProject::ReadFile(File);
	EXPECT_TRUE(Text.StartsWith(TEXT("TavrinePackage 1\nPackage Name=/Game/Things/AllKinds\nAsset Name=AllKinds Class=/Script/CoreUObjectTests.ReflectionTestAllKinds\n")));
	EXPECT_TRUE(Text.Contains(TEXT("\n\tVector=(X=1.000000,Y=-2.000000,Z=3.500000)\n")));
	EXPECT_TRUE(Text.Contains(TEXT("\n\tBegin Object Class=/Script/CoreUObjectTests.ReflectionTestChild Name=Child Flags=Transactional\n\t\tChildValue=77\n")));
	EXPECT_TRUE(Text.EndsWith(TEXT("End Object\nEnd Package\n")));
	// Values equal to the class defaults, and transient ones, aren't written.
	EXPECT_FALSE(Text.Contains(TEXT("TransientValue")));
	EXPECT_FALSE(Text.Contains(TEXT("RetentionDays")));
	EXPECT_FALSE(Text.Contains(TEXT("bShowChanges")));

	const FString ExpectedValues = [&]()
	{
		FString Values;
		for (TFieldIterator<FProperty> It(UReflectionTestAllKinds::StaticClass()); It; ++It)
		{
			It->ExportText_InContainer(0, Values, Asset, Asset, Asset, PPF_Delimited);
			Values += TEXT("\n");
		}
		return Values;
	}();
	ForgetPackages({ Asset->GetOutermost(), Other->GetOutermost() });
	EXPECT_EQ(FindPackage(nullptr, TEXT("/Game/Things/AllKinds")), nullptr);

	UReflectionTestAllKinds* Loaded = Cast<UReflectionTestAllKinds>(StaticLoadObject(UObject::StaticClass(), nullptr, TEXT("/Game/Things/AllKinds.AllKinds")));
	ASSERT_NE(Loaded, nullptr);
	EXPECT_TRUE(Loaded->HasAllFlags(RF_Public | RF_Standalone | RF_Transactional | RF_WasLoaded));
	UReflectionTestChild* LoadedChild = FindObject<UReflectionTestChild>(Loaded, TEXT("Child"));
	ASSERT_NE(LoadedChild, nullptr);
	EXPECT_EQ(LoadedChild->ChildValue, 77);
	EXPECT_EQ(LoadedChild->ApiKey, TEXT("line one\nline two"));
	EXPECT_EQ(Loaded->Object, LoadedChild);
	EXPECT_EQ(Loaded->Greeter.GetInterface(), static_cast<IReflectionTestGreeter*>(LoadedChild));
	// References into another package load it.
	UObject* LoadedOther = FindObject<UObject>(nullptr, TEXT("/Game/Other/Target.Target"));
	ASSERT_NE(LoadedOther, nullptr);
	EXPECT_EQ(Loaded->Inner.Reference, LoadedOther);
	EXPECT_EQ(Loaded->Weak.Get(), LoadedOther);
	EXPECT_EQ(Loaded->Named.FindRef(FName(TEXT("Other"))), LoadedOther);
	EXPECT_EQ(Loaded->TransientValue, 0);
	FString LoadedValues;
	for (TFieldIterator<FProperty> It(UReflectionTestAllKinds::StaticClass()); It; ++It)
	{
		It->ExportText_InContainer(0, LoadedValues, Loaded, Loaded, Loaded, PPF_Delimited);
		LoadedValues += TEXT("\n");
	}
	EXPECT_EQ(LoadedValues, ExpectedValues.Replace(TEXT("\n99\n"), TEXT("\n0\n")));
	EXPECT_FALSE(Loaded->GetOutermost()->IsDirty());
	// A loaded package isn't read again: the same objects come back.
	EXPECT_EQ(StaticLoadObject(UObject::StaticClass(), nullptr, TEXT("/Game/Things/AllKinds")), Loaded);
}

TEST(Packages, BadFilesLoadAsNullWithALogLine)
{
	FObjectTestProject Project(TempRoot, TEXT("BadFiles"));
	UReflectionTestAllKinds* Asset = MakeAsset(TEXT("/Game/Good"), TEXT("Good"));
	Asset->Int = 5;
	ASSERT_TRUE(SaveTestPackage(Asset->GetOutermost()));
	const FString Good = FObjectTestProject::ReadFile(Project.ContentFile(TEXT("Good.uasset")));
	ForgetPackage(Asset->GetOutermost());

	const struct
	{
		const TCHAR* Name;
		FString Text;
		const TCHAR* Reason;
	} Cases[] = {
		{TEXT("Binary"), FString(TEXT("\x1\x2\x3\xC1\x83*\x9E")), TEXT("not a text package file")},
		{TEXT("Empty"), FString(), TEXT("not a text package file")},
		{TEXT("Newer"), Good.Replace(TEXT("TavrinePackage 1"), TEXT("TavrinePackage 2")), TEXT("format version 2")},
		{TEXT("Truncated"), Good.Left(Good.Find(TEXT("End Object"))), TEXT("truncated")},
		{TEXT("NoEnd"), Good.Replace(TEXT("End Package\n"), TEXT("")), TEXT("truncated")},
		{TEXT("Unbalanced"), Good.Replace(TEXT("End Object\n"), TEXT("")), TEXT("is open")},
		{TEXT("Garbled"), Good.Replace(TEXT("Int=5"), TEXT("Int 5")), TEXT("expected Name=Value")},
	};
	for (const auto& Case : Cases)
	{
		const FString PackageName = FString(TEXT("/Game/Bad/")) + Case.Name;
		FObjectTestProject::WriteFile(Project.ContentFile(FString(TEXT("Bad/")) + Case.Name + TEXT(".uasset")), Case.Text);
		FLogCapture Log;
		EXPECT_EQ(StaticLoadObject(UObject::StaticClass(), nullptr, *PackageName, nullptr, LOAD_NoWarn | LOAD_Quiet), nullptr) << TCHAR_TO_UTF8(Case.Name);
		EXPECT_TRUE(Log.Contains(TEXT("Can't load package"))) << TCHAR_TO_UTF8(Case.Name);
		EXPECT_TRUE(Log.Contains(Case.Reason)) << TCHAR_TO_UTF8(Case.Name);
		EXPECT_EQ(FindPackage(nullptr, *PackageName), nullptr);
	}

	// Inside a sound file, what can't be used is left out with a line, and the rest loads.
	FString Damaged = Good.Replace(TEXT("\tInt=5\n"), TEXT("\tInt=5\n\tVanished=3\n\tFloat=not a number\n"));
	Damaged = Damaged.Replace(TEXT("End Object\nEnd Package"), TEXT("\tBegin Object Class=/Script/Nowhere.Missing Name=Lost\n\tEnd Object\nEnd Object\nEnd Package"));
	FObjectTestProject::WriteFile(Project.ContentFile(TEXT("Damaged.uasset")), Damaged.Replace(TEXT("/Game/Good"), TEXT("/Game/Damaged")).Replace(TEXT("Name=Good"), TEXT("Name=Damaged")));
	FLogCapture Log;
	UReflectionTestAllKinds* Loaded = LoadObject<UReflectionTestAllKinds>(nullptr, TEXT("/Game/Damaged.Damaged"));
	ASSERT_NE(Loaded, nullptr);
	EXPECT_EQ(Loaded->Int, 5);
	EXPECT_EQ(Loaded->Float, 0.0f);
	EXPECT_TRUE(Log.Contains(TEXT("has no property Vanished")));
	EXPECT_TRUE(Log.Contains(TEXT("unknown class /Script/Nowhere.Missing")));
	EXPECT_TRUE(Log.Contains(TEXT("Damaged.uasset(")));

	// A package without a file: no object, a line unless asked for quiet.
	FLogCapture Missing;
	EXPECT_EQ(StaticLoadObject(UObject::StaticClass(), nullptr, TEXT("/Game/Nothing/Here.Here")), nullptr);
	EXPECT_TRUE(Missing.Contains(TEXT("Failed to find object 'Object /Game/Nothing/Here.Here'")));
	EXPECT_EQ(LoadPackage(nullptr, TEXT("/Game/Nothing/Here"), LOAD_Quiet), nullptr);
}

TEST(Packages, ClassesMadeAtRunTimeAreSavedWithTheirDefinition)
{
	FObjectTestProject Project(TempRoot, TEXT("RuntimeClasses"));
	UPackage* ClassPackage = CreatePackage(TEXT("/Game/Blueprints/BP_Thing"));
	UClass* Class = NewObject<UClass>(ClassPackage, UClass::StaticClass(), FName(TEXT("BP_Thing_C")), RF_Public | RF_Standalone);
	Class->SetSuperStruct(UReflectionTestAllKinds::StaticClass());
	Class->ClassFlags = CLASS_CompiledFromBlueprint | (UReflectionTestAllKinds::StaticClass()->ClassFlags & CLASS_Inherit);
	FIntProperty* Health = new FIntProperty(Class, FName(TEXT("Health")), RF_Public);
	Health->PropertyFlags = CPF_Edit | CPF_BlueprintVisible;
	FArrayProperty* Friends = new FArrayProperty(Class, FName(TEXT("Friends")), RF_Public);
	FObjectProperty* FriendInner = new FObjectProperty(Friends, FName(TEXT("Friends")), RF_Public);
	FriendInner->PropertyClass = UReflectionTestAllKinds::StaticClass();
	Friends->AddCppProperty(FriendInner);
	FStructProperty* Spot = new FStructProperty(Class, FName(TEXT("Spot")), RF_Public, 0, CPF_Edit, TBaseStructure<FVector>::Get());
	Class->AddCppProperty(Spot);
	Class->AddCppProperty(Friends);
	Class->AddCppProperty(Health);
	Class->StaticLink(true);
	UReflectionTestAllKinds* Defaults = Cast<UReflectionTestAllKinds>(Class->GetDefaultObject());
	ASSERT_NE(Defaults, nullptr);
	Health->SetPropertyValue_InContainer(Defaults, 100);
	Defaults->Int = 5;
	ASSERT_TRUE(SaveTestPackage(ClassPackage));

	UObject* Thing = NewObject<UObject>(CreatePackage(TEXT("/Game/Things/Thing")), Class, FName(TEXT("Thing")), RF_Public | RF_Standalone);
	EXPECT_EQ(Health->GetPropertyValue_InContainer(Thing), 100);
	Spot->ImportText_InContainer(TEXT("(X=1,Y=2,Z=3)"), Thing, Thing, PPF_None);
	FScriptArrayHelper(Friends, Friends->ContainerPtrToValuePtr<void>(Thing)).AddValue();
	*reinterpret_cast<UObject**>(FScriptArrayHelper(Friends, Friends->ContainerPtrToValuePtr<void>(Thing)).GetRawPtr(0)) = Defaults;
	ASSERT_TRUE(SaveTestPackage(Thing->GetOutermost()));
	EXPECT_TRUE(FObjectTestProject::ReadFile(Project.ContentFile(TEXT("Blueprints/BP_Thing.uasset"))).Contains(TEXT("CustomProperties Property Type=IntProperty Name=Health Flags=0x0000000000000005")));

	ForgetPackage(Thing->GetOutermost());
	ForgetPackage(ClassPackage);
	ASSERT_EQ(FindPackage(nullptr, TEXT("/Game/Blueprints/BP_Thing")), nullptr);

	UObject* Loaded = StaticLoadObject(UObject::StaticClass(), nullptr, TEXT("/Game/Things/Thing"));
	ASSERT_NE(Loaded, nullptr);
	UClass* LoadedClass = Loaded->GetClass();
	EXPECT_EQ(LoadedClass->GetPathName(), TEXT("/Game/Blueprints/BP_Thing.BP_Thing_C"));
	EXPECT_TRUE(LoadedClass->HasAnyClassFlags(CLASS_CompiledFromBlueprint));
	EXPECT_FALSE(LoadedClass->HasAnyClassFlags(CLASS_Native));
	EXPECT_EQ(LoadedClass->GetSuperClass(), UReflectionTestAllKinds::StaticClass());
	FProperty* LoadedHealth = LoadedClass->FindPropertyByName(FName(TEXT("Health")));
	ASSERT_NE(LoadedHealth, nullptr);
	EXPECT_EQ(LoadedHealth->PropertyFlags & (CPF_Edit | CPF_BlueprintVisible), CPF_Edit | CPF_BlueprintVisible);
	EXPECT_EQ(CastField<FIntProperty>(LoadedHealth)->GetPropertyValue_InContainer(Loaded), 100);
	EXPECT_EQ(static_cast<UReflectionTestAllKinds*>(Loaded)->Int, 5);
	FString Text;
	LoadedClass->FindPropertyByName(FName(TEXT("Spot")))->ExportText_InContainer(0, Text, Loaded, Loaded, Loaded, PPF_None);
	EXPECT_EQ(Text, TEXT("(X=1.000000,Y=2.000000,Z=3.000000)"));
	FArrayProperty* LoadedFriends = CastField<FArrayProperty>(LoadedClass->FindPropertyByName(FName(TEXT("Friends"))));
	ASSERT_NE(LoadedFriends, nullptr);
	FScriptArrayHelper LoadedHelper(LoadedFriends, LoadedFriends->ContainerPtrToValuePtr<void>(Loaded));
	ASSERT_EQ(LoadedHelper.Num(), 1);
	EXPECT_EQ(*reinterpret_cast<UObject**>(LoadedHelper.GetRawPtr(0)), LoadedClass->GetDefaultObject());
}

TEST(Packages, PackageNamesMapToTheContentFolders)
{
	FObjectTestProject Project(TempRoot, TEXT("Names"));
	const FString Content = FPaths::ProjectContentDir();
	EXPECT_EQ(FPackageName::LongPackageNameToFilename(TEXT("/Game/Maps/Main"), FPackageName::GetAssetPackageExtension()), Content + TEXT("Maps/Main.uasset"));
	EXPECT_EQ(FPackageName::LongPackageNameToFilename(TEXT("/Game/Maps/Main.Main"), TEXT(".umap")), Content + TEXT("Maps/Main.umap"));
	FString PackageName;
	EXPECT_TRUE(FPackageName::TryConvertFilenameToLongPackageName(Content + TEXT("Maps/Main.uasset"), PackageName));
	EXPECT_EQ(PackageName, TEXT("/Game/Maps/Main"));
	EXPECT_FALSE(FPackageName::TryConvertFilenameToLongPackageName(Project.Dir + TEXT("Source/Main.cpp"), PackageName));
	FString Ignored;
	EXPECT_FALSE(FPackageName::TryConvertLongPackageNameToFilename(TEXT("/Nowhere/Main"), Ignored));
	EXPECT_EQ(FPackageName::GetLongPackagePath(TEXT("/Game/Maps/Main")), TEXT("/Game/Maps"));
	EXPECT_EQ(FPackageName::GetShortName(TEXT("/Game/Maps/Main")), TEXT("Main"));
	EXPECT_EQ(FPackageName::ObjectPathToPackageName(TEXT("/Game/Maps/Main.Main:Sub")), TEXT("/Game/Maps/Main"));
	EXPECT_EQ(FPackageName::ObjectPathToObjectName(TEXT("/Game/Maps/Main.Main:Sub")), TEXT("Sub"));
	EXPECT_EQ(FPackageName::ExportTextPathToObjectPath(TEXT("/Script/Engine.Blueprint'/Game/BP.BP'")), TEXT("/Game/BP.BP"));
	EXPECT_TRUE(FPackageName::IsValidLongPackageName(TEXT("/Game/Maps/Main")));
	EXPECT_FALSE(FPackageName::IsValidLongPackageName(TEXT("Game/Maps/Main")));
	EXPECT_FALSE(FPackageName::IsValidLongPackageName(TEXT("/Game/Maps/Ma in")));
	EXPECT_FALSE(FPackageName::IsValidLongPackageName(TEXT("/Unmounted/Main")));
	EXPECT_TRUE(FPackageName::IsShortPackageName(TEXT("Actor")));
	FPackageName::RegisterMountPoint(TEXT("/Extra/"), Project.Dir + TEXT("Plugins/Extra/Content/"));
	EXPECT_EQ(FPackageName::LongPackageNameToFilename(TEXT("/Extra/Thing")), Project.Dir + TEXT("Plugins/Extra/Content/Thing"));
	EXPECT_TRUE(FPackageName::TryConvertFilenameToLongPackageName(Project.Dir + TEXT("Plugins/Extra/Content/Deep/Thing.uasset"), PackageName));
	EXPECT_EQ(PackageName, TEXT("/Extra/Deep/Thing"));
	FPackageName::UnRegisterMountPoint(TEXT("/Extra/"), Project.Dir + TEXT("Plugins/Extra/Content/"));
	EXPECT_FALSE(FPackageName::MountPointExists(TEXT("/Extra/")));
}

TEST(Packages, SubobjectsMadeByConstructorsAndCustomLinesComeBack)
{
	FObjectTestProject Project(TempRoot, TEXT("Subobjects"));
	// A value set on the class default object's subobject is the archetype of every new object's.
	UReflectionTestOwner* Defaults = GetMutableDefault<UReflectionTestOwner>();
	Defaults->Part->ChildValue = 13;
	UPackage* Package = CreatePackage(TEXT("/Game/Owners/Owner"));
	UReflectionTestOwner* Owner = NewObject<UReflectionTestOwner>(Package, FName(TEXT("Owner")), RF_Public | RF_Standalone);
	ASSERT_NE(Owner->Part, Defaults->Part);
	EXPECT_EQ(Owner->Part->GetOuter(), Owner);
	EXPECT_EQ(Owner->Part->ChildValue, 13);
	Owner->Part->ApiKey = TEXT("own key");
	UReflectionTestCustom* Custom = NewObject<UReflectionTestCustom>(Owner, FName(TEXT("Custom")));
	Custom->Notes = {TEXT("first note"), TEXT("second = note")};
	Owner->Extras = {Custom, Owner->Part};
	UReflectionTestSettings* Slots = NewObject<UReflectionTestSettings>(Owner, FName(TEXT("Slots")));
	Slots->Slots[1] = 20;
	Owner->Extras.Add(Slots);
	ASSERT_TRUE(SaveTestPackage(Package, Owner));

	const FString Text = FObjectTestProject::ReadFile(Project.ContentFile(TEXT("Owners/Owner.uasset")));
	// The subobject's value equals its archetype's, so it isn't written; what differs is.
	EXPECT_FALSE(Text.Contains(TEXT("ChildValue=13")));
	EXPECT_TRUE(Text.Contains(TEXT("\t\tApiKey=\"own key\"\n")));
	EXPECT_TRUE(Text.Contains(TEXT("\t\tCustomProperties Note second = note\n")));
	EXPECT_TRUE(Text.Contains(TEXT("\t\tSlots(1)=20\n")));
	EXPECT_FALSE(Text.Contains(TEXT("Slots(0)")));
	EXPECT_TRUE(Text.Contains(TEXT("Name=Part Flags=Public|DefaultSubObject")));

	ForgetPackage(Package);
	UReflectionTestOwner* Loaded = LoadObject<UReflectionTestOwner>(nullptr, TEXT("/Game/Owners/Owner.Owner"));
	ASSERT_NE(Loaded, nullptr);
	EXPECT_EQ(Loaded->Part->ChildValue, 13);
	EXPECT_EQ(Loaded->Part->ApiKey, TEXT("own key"));
	ASSERT_EQ(Loaded->Extras.Num(), 3);
	EXPECT_EQ(Loaded->Extras[1], Loaded->Part);
	UReflectionTestCustom* LoadedCustom = Cast<UReflectionTestCustom>(Loaded->Extras[0]);
	ASSERT_NE(LoadedCustom, nullptr);
	EXPECT_EQ(LoadedCustom->Notes, (TArray<FString>{TEXT("first note"), TEXT("second = note")}));
	const UReflectionTestSettings* LoadedSlots = Cast<UReflectionTestSettings>(Loaded->Extras[2]);
	ASSERT_NE(LoadedSlots, nullptr);
	EXPECT_EQ(LoadedSlots->Slots[0], 1);
	EXPECT_EQ(LoadedSlots->Slots[1], 20);
	Defaults->Part->ChildValue = 11;
}

TEST(Packages, PackagesThatReferToEachOtherLoadTogether)
{
	FObjectTestProject Project(TempRoot, TEXT("Circular"));
	UReflectionTestAllKinds* First = MakeAsset(TEXT("/Game/Pair/First"), TEXT("First"));
	UReflectionTestAllKinds* Second = MakeAsset(TEXT("/Game/Pair/Second"), TEXT("Second"));
	First->Object = Second;
	Second->Object = First;
	Second->Soft = First;
	ASSERT_TRUE(SaveTestPackage(First->GetOutermost()));
	ASSERT_TRUE(SaveTestPackage(Second->GetOutermost()));
	ForgetPackages({ First->GetOutermost(), Second->GetOutermost() });

	UReflectionTestAllKinds* LoadedFirst = LoadObject<UReflectionTestAllKinds>(nullptr, TEXT("/Game/Pair/First.First"));
	ASSERT_NE(LoadedFirst, nullptr);
	UReflectionTestAllKinds* LoadedSecond = Cast<UReflectionTestAllKinds>(LoadedFirst->Object);
	ASSERT_NE(LoadedSecond, nullptr);
	EXPECT_EQ(LoadedSecond->Object, LoadedFirst);
	EXPECT_EQ(LoadedSecond->Soft.Get(), LoadedFirst);
	EXPECT_TRUE(LoadedFirst->GetOutermost()->IsFullyLoaded());
	EXPECT_FALSE(LoadedSecond->GetOutermost()->IsDirty());
}

TEST(Packages, SavesThatCannotBeDoneSayWhyAndKeepTheOldFile)
{
	FObjectTestProject Project(TempRoot, TEXT("SaveErrors"));
	UReflectionTestAllKinds* Asset = MakeAsset(TEXT("/Game/Kept/Asset"), TEXT("Asset"));
	Asset->Int = 1;
	ASSERT_TRUE(SaveTestPackage(Asset->GetOutermost()));
	const FString File = Project.ContentFile(TEXT("Kept/Asset.uasset"));
	const FString Before = FObjectTestProject::ReadFile(File);
	FSavePackageArgs Args;
	FLogCapture Log;

	UReflectionTestAllKinds* Elsewhere = MakeAsset(TEXT("/Game/Kept/Elsewhere"), TEXT("Elsewhere"));
	EXPECT_EQ(UPackage::Save(Asset->GetOutermost(), Elsewhere, *File, Args).Result, ESavePackageResult::Error);
	EXPECT_EQ(UPackage::Save(GetTransientPackage(), nullptr, *File, Args).Result, ESavePackageResult::Error);
	UPackage* NoStandalone = CreatePackage(TEXT("/Game/Kept/Loose"));
	NewObject<UReflectionTestAllKinds>(NoStandalone, FName(TEXT("Loose")));
	EXPECT_EQ(UPackage::Save(NoStandalone, nullptr, *File, Args).Result, ESavePackageResult::Error);
	// A folder in the file's place can't be written over; the old file stays whole.
	IFileManager::Get().MakeDirectory(*(Project.ContentFile(TEXT("Kept/Blocked.uasset"))), true);
	Asset->Int = 2;
	EXPECT_FALSE(UPackage::SavePackage(Asset->GetOutermost(), Asset, *Project.ContentFile(TEXT("Kept/Blocked.uasset")), Args));
	EXPECT_EQ(FObjectTestProject::ReadFile(File), Before);
	EXPECT_GE(Log.Lines.Num(), 4);
	EXPECT_TRUE(Log.Contains(TEXT("is not inside /Game/Kept/Asset")));

	// Changing an object marks its package; a save clears the mark unless asked to keep it.
	int32 DirtyEvents = 0;
	const FDelegateHandle Handle = UPackage::PackageMarkedDirtyEvent.AddLambda([&DirtyEvents](UPackage*) { ++DirtyEvents; });
	Asset->GetOutermost()->SetDirtyFlag(false);
	Asset->Modify();
	Asset->Modify();
	EXPECT_TRUE(Asset->GetOutermost()->IsDirty());
	EXPECT_EQ(DirtyEvents, 1);
	Args.SaveFlags = SAVE_KeepDirty;
	EXPECT_TRUE(UPackage::SavePackage(Asset->GetOutermost(), Asset, *File, Args));
	EXPECT_TRUE(Asset->GetOutermost()->IsDirty());
	UPackage::PackageMarkedDirtyEvent.Remove(Handle);
	// Native packages are never marked.
	EXPECT_FALSE(GetMutableDefault<UReflectionTestAllKinds>()->MarkPackageDirty());
}

TEST(Packages, RunTimeFunctionsEnumsAndContainersKeepTheirDefinitions)
{
	FObjectTestProject Project(TempRoot, TEXT("RuntimeDefinitions"));
	UPackage* Package = CreatePackage(TEXT("/Game/Blueprints/BP_Rich"));
	UClass* Class = NewObject<UClass>(Package, UClass::StaticClass(), FName(TEXT("BP_Rich_C")), RF_Public | RF_Standalone);
	Class->SetSuperStruct(UReflectionTestAllKinds::StaticClass());
	Class->ClassFlags = CLASS_CompiledFromBlueprint;
	FEnumProperty* Mode = new FEnumProperty(Class, FName(TEXT("Mode")), RF_Public, 0, CPF_Edit, StaticEnum<ETestAnswerMode>());
	Mode->AddCppProperty(new FByteProperty(Mode, FName(TEXT("UnderlyingType")), RF_Public));
	FMapProperty* Scores = new FMapProperty(Class, FName(TEXT("Scores")), RF_Public);
	Scores->AddCppProperty(new FNameProperty(Scores, FName(TEXT("Scores_Key")), RF_Public));
	Scores->AddCppProperty(new FDoubleProperty(Scores, FName(TEXT("Scores")), RF_Public));
	FSoftClassProperty* Wanted = new FSoftClassProperty(Class, FName(TEXT("Wanted")), RF_Public, 0, CPF_None, UReflectionTestSettings::StaticClass());
#if WITH_EDITORONLY_DATA
	Wanted->SetMetaData(TEXT("Category"), TEXT("Rich Things"));
#endif
	Class->AddCppProperty(Wanted);
	Class->AddCppProperty(Scores);
	Class->AddCppProperty(Mode);
	UFunction* Function = NewObject<UFunction>(Class, UFunction::StaticClass(), FName(TEXT("Greet")), RF_Public);
	Function->FunctionFlags = FUNC_BlueprintCallable | FUNC_Public;
	FStrProperty* Whom = new FStrProperty(Function, FName(TEXT("Whom")), RF_Public);
	Whom->PropertyFlags = CPF_Parm;
	FBoolProperty* Result = new FBoolProperty(Function, FName(TEXT("ReturnValue")), RF_Public);
	Result->PropertyFlags = CPF_Parm | CPF_OutParm | CPF_ReturnParm;
	Function->AddCppProperty(Result);
	Function->AddCppProperty(Whom);
	Function->StaticLink(true);
	Class->AddFunctionToFunctionMap(Function, Function->GetFName());
	Class->Children = Function;
	Class->StaticLink(true);
	UObject* Defaults = Class->GetDefaultObject();
	Mode->ImportText_InContainer(TEXT("VeryTalkative"), Defaults, Defaults, PPF_None);
	Scores->ImportText_InContainer(TEXT("((Low, 1.5),(High, 9))"), Defaults, Defaults, PPF_None);
	Wanted->ImportText_InContainer(TEXT("/Script/CoreUObjectTests.ReflectionTestChild"), Defaults, Defaults, PPF_None);
	ASSERT_TRUE(SaveTestPackage(Package));
	ForgetPackage(Package);

	UClass* Loaded = LoadClass<UObject>(nullptr, TEXT("/Game/Blueprints/BP_Rich.BP_Rich_C"));
	ASSERT_NE(Loaded, nullptr);
	UFunction* LoadedFunction = Loaded->FindFunctionByName(FName(TEXT("Greet")));
	ASSERT_NE(LoadedFunction, nullptr);
	EXPECT_TRUE(LoadedFunction->HasAllFunctionFlags(FUNC_BlueprintCallable | FUNC_Public));
	EXPECT_EQ(LoadedFunction->NumParms, 2);
	EXPECT_NE(CastField<FBoolProperty>(LoadedFunction->GetReturnProperty()), nullptr);
	EXPECT_NE(CastField<FStrProperty>(LoadedFunction->FindPropertyByName(FName(TEXT("Whom")))), nullptr);
	EXPECT_EQ(*TFieldIterator<UFunction>(Loaded, EFieldIteratorFlags::ExcludeSuper), LoadedFunction);
	TArray<FString> Own;
	for (TFieldIterator<FProperty> It(Loaded, EFieldIteratorFlags::ExcludeSuper); It; ++It)
	{
		Own.Add(It->GetName());
	}
	EXPECT_EQ(Own, (TArray<FString>{TEXT("Mode"), TEXT("Scores"), TEXT("Wanted")}));
	FEnumProperty* LoadedMode = CastField<FEnumProperty>(Loaded->FindPropertyByName(FName(TEXT("Mode"))));
	ASSERT_NE(LoadedMode, nullptr);
	EXPECT_EQ(LoadedMode->GetEnum(), StaticEnum<ETestAnswerMode>());
	FSoftClassProperty* LoadedWanted = CastField<FSoftClassProperty>(Loaded->FindPropertyByName(FName(TEXT("Wanted"))));
	ASSERT_NE(LoadedWanted, nullptr);
	EXPECT_EQ(LoadedWanted->MetaClass, UReflectionTestSettings::StaticClass());
#if WITH_EDITORONLY_DATA
	EXPECT_EQ(LoadedWanted->GetMetaData(TEXT("Category")), TEXT("Rich Things"));
#endif
	UObject* LoadedDefaults = Loaded->GetDefaultObject();
	FString Text;
	for (FProperty* Property = Loaded->PropertyLink; Property != nullptr && Property->GetOwnerClass() == Loaded; Property = Property->PropertyLinkNext)
	{
		Property->ExportText_InContainer(0, Text, LoadedDefaults, LoadedDefaults, LoadedDefaults, PPF_None);
		Text += TEXT("|");
	}
	EXPECT_EQ(Text, TEXT("VeryTalkative|((\"Low\", 1.500000),(\"High\", 9.000000))|/Script/CoreUObjectTests.ReflectionTestChild|"));
}
