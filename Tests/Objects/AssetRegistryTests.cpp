// The asset registry: what a scan of the content folder finds, queries by class and path, and how saves,
// new assets, new and deleted files reach it.
#include "ObjectTestTypes.h"
#include "ObjectTestSupport.h"
#include "CoreUObject.h"
#include "AssetRegistry/AssetRegistryModule.h"
#include "Modules/ModuleManager.h"
#include "CoreTestPrinters.h"
#include <gtest/gtest.h>

namespace
{
	const FString TempRoot(TEXT(OBJECTS_TESTS_TEMP_DIR));

	template<class T>
	T* MakeAsset(const TCHAR* PackageName)
	{
		UPackage* Package = CreatePackage(PackageName);
		return NewObject<T>(Package, FName(*FPackageName::GetShortName(PackageName)), RF_Public | RF_Standalone);
	}

	TArray<FString> Names(const TArray<FAssetData>& Assets)
	{
		TArray<FString> Result;
		for (const FAssetData& Asset : Assets)
		{
			Result.Add(Asset.AssetName.ToString());
		}
		Result.Sort();
		return Result;
	}

	class AssetRegistryTest : public ::testing::Test
	{
	protected:
		AssetRegistryTest()
			: Project(TempRoot, *FString(::testing::UnitTest::GetInstance()->current_test_info()->name()))
		{
		}

		void SetUp() override
		{
			UStaticMesh* Rock = MakeAsset<UStaticMesh>(TEXT("/Game/Meshes/Rock"));
			Rock->NumLODs = 3;
			UObjectTestSpecialMesh* Crystal = MakeAsset<UObjectTestSpecialMesh>(TEXT("/Game/Meshes/Special/Crystal"));
			Crystal->Purpose = TEXT("shine");
			UObjectTestBlueprintAsset* Blueprint = MakeAsset<UObjectTestBlueprintAsset>(TEXT("/Game/Blueprints/BP_Door"));
			Blueprint->GeneratedClassPath = TEXT("/Script/Engine.BlueprintGeneratedClass'/Game/Blueprints/BP_Door.BP_Door_C'");
			Blueprint->ParentClass = AObjectTestDoor::StaticClass();
			for (UObject* Asset : TArray<UObject*>{Rock, Crystal, Blueprint})
			{
				ASSERT_TRUE(SaveTestPackage(Asset->GetOutermost(), Asset));
			}
			Registry = &FModuleManager::LoadModuleChecked<FAssetRegistryModule>(TEXT("AssetRegistry")).Get();
			Registry->SearchAllAssets(true);
		}

		FObjectTestProject Project;
		IAssetRegistry* Registry = nullptr;
	};
}

TEST_F(AssetRegistryTest, QueriesByClassTakeSubclassesOnlyWhenAsked)
{
	EXPECT_EQ(Registry, IAssetRegistry::Get());
	TArray<FAssetData> Exact;
	Registry->GetAssetsByClass(UStaticMesh::StaticClass()->GetClassPathName(), Exact, false);
	EXPECT_EQ(Names(Exact), (TArray<FString>{TEXT("Rock")}));
	TArray<FAssetData> WithSubclasses;
	Registry->GetAssetsByClass(UStaticMesh::StaticClass()->GetClassPathName(), WithSubclasses, true);
	EXPECT_EQ(Names(WithSubclasses), (TArray<FString>{TEXT("Crystal"), TEXT("Rock")}));

	const FAssetData& Rock = Exact[0];
	EXPECT_EQ(Rock.PackageName, FName(TEXT("/Game/Meshes/Rock")));
	EXPECT_EQ(Rock.PackagePath, FName(TEXT("/Game/Meshes")));
	EXPECT_EQ(Rock.GetObjectPathString(), TEXT("/Game/Meshes/Rock.Rock"));
	EXPECT_EQ(Rock.AssetClassPath.ToString(), TEXT("/Script/Engine.StaticMesh"));
	EXPECT_EQ(Rock.GetClass(), UStaticMesh::StaticClass());
	EXPECT_EQ(Rock.GetTagValueRef<FString>(FName(TEXT("NumLODs"))), TEXT("3"));

	FAssetData Blueprint = Registry->GetAssetByObjectPath(FSoftObjectPath(TEXT("/Game/Blueprints/BP_Door.BP_Door")));
	ASSERT_TRUE(Blueprint.IsValid());
	FString GeneratedClass;
	EXPECT_TRUE(Blueprint.GetTagValue(FName(TEXT("GeneratedClass")), GeneratedClass));
	EXPECT_EQ(GeneratedClass, TEXT("/Script/Engine.BlueprintGeneratedClass'/Game/Blueprints/BP_Door.BP_Door_C'"));
	// A Blueprint's class is known to derive from its parent before the Blueprint is loaded.
	TSet<FTopLevelAssetPath> Derived;
	Registry->GetDerivedClassNames({AActor::StaticClass()->GetClassPathName()}, {}, Derived);
	EXPECT_TRUE(Derived.Contains(FTopLevelAssetPath(TEXT("/Game/Blueprints/BP_Door.BP_Door_C"))));
	EXPECT_TRUE(Derived.Contains(AObjectTestDoor::StaticClass()->GetClassPathName()));

	FARFilter Filter;
	Filter.PackagePaths.Add(FName(TEXT("/Game/Meshes")));
	TArray<FAssetData> InFolder;
	Registry->GetAssets(Filter, InFolder);
	EXPECT_EQ(Names(InFolder), (TArray<FString>{TEXT("Rock")}));
	Filter.bRecursivePaths = true;
	InFolder.Empty();
	Registry->GetAssets(Filter, InFolder);
	EXPECT_EQ(Names(InFolder), (TArray<FString>{TEXT("Crystal"), TEXT("Rock")}));
	TArray<FString> SubPaths;
	Registry->GetSubPaths(TEXT("/Game"), SubPaths, true);
	SubPaths.Sort();
	EXPECT_EQ(SubPaths, (TArray<FString>{TEXT("/Game/Blueprints"), TEXT("/Game/Meshes"), TEXT("/Game/Meshes/Special")}));
}

TEST_F(AssetRegistryTest, AssetDataLoadsItsAssetOnDemand)
{
	const FString ObjectPath = TEXT("/Game/Meshes/Special/Crystal.Crystal");
	UObject* InMemory = StaticFindObject(UObject::StaticClass(), nullptr, *ObjectPath);
	ASSERT_NE(InMemory, nullptr);
	InMemory->ClearFlags(RF_Standalone);
	CollectGarbage(RF_NoFlags);
	const FAssetData Crystal = Registry->GetAssetByObjectPath(FSoftObjectPath(ObjectPath));
	EXPECT_FALSE(Crystal.IsAssetLoaded());
	UObjectTestSpecialMesh* Loaded = Cast<UObjectTestSpecialMesh>(Crystal.GetAsset());
	ASSERT_NE(Loaded, nullptr);
	EXPECT_EQ(Loaded->Purpose, TEXT("shine"));
	EXPECT_TRUE(Crystal.IsAssetLoaded());
}

TEST_F(AssetRegistryTest, SavesNewAssetsAndScansReachTheRegistry)
{
	TArray<FAssetData> Meshes;
	// Saving tells the registry; an asset only in memory is there once it is announced.
	UStaticMesh* Pebble = MakeAsset<UStaticMesh>(TEXT("/Game/Meshes/Pebble"));
	ASSERT_TRUE(SaveTestPackage(Pebble->GetOutermost(), Pebble));
	UStaticMesh* Unsaved = MakeAsset<UStaticMesh>(TEXT("/Game/Meshes/Unsaved"));
	FAssetRegistryModule::AssetCreated(Unsaved);
	Registry->GetAssetsByClass(UStaticMesh::StaticClass()->GetClassPathName(), Meshes);
	EXPECT_EQ(Names(Meshes), (TArray<FString>{TEXT("Pebble"), TEXT("Rock"), TEXT("Unsaved")}));
	TArray<FAssetData> OnDisk;
	Registry->GetAllAssets(OnDisk, true);
	EXPECT_FALSE(Names(OnDisk).Contains(TEXT("Unsaved")));
	FAssetRegistryModule::AssetDeleted(Unsaved);

	// Files that appear or go are seen by the next scan of their folder.
	const FString RockFile = Project.ContentFile(TEXT("Meshes/Rock.uasset"));
	FString Copy = FObjectTestProject::ReadFile(RockFile).Replace(TEXT("/Game/Meshes/Rock"), TEXT("/Game/Copied/Boulder")).Replace(TEXT("Name=Rock"), TEXT("Name=Boulder"));
	FObjectTestProject::WriteFile(Project.ContentFile(TEXT("Copied/Boulder.uasset")), Copy);
	FObjectTestProject::WriteFile(Project.ContentFile(TEXT("Copied/Broken.uasset")), TEXT("TavrinePackage 1\nAsset Name=Broken"));
	EXPECT_FALSE(Registry->GetAssetByObjectPath(FSoftObjectPath(TEXT("/Game/Copied/Boulder.Boulder"))).IsValid());
	FLogCapture Log;
	Registry->ScanPathsSynchronous({TEXT("/Game/Copied")}, true);
	EXPECT_TRUE(Registry->GetAssetByObjectPath(FSoftObjectPath(TEXT("/Game/Copied/Boulder.Boulder"))).IsValid());
	EXPECT_FALSE(Registry->GetAssetByObjectPath(FSoftObjectPath(TEXT("/Game/Copied/Broken.Broken"))).IsValid());
	EXPECT_TRUE(Log.Contains(TEXT("Broken.uasset")));
	IFileManager::Get().Delete(*RockFile);
	Registry->ScanPathsSynchronous({TEXT("/Game/Meshes")}, true);
	Meshes.Empty();
	Registry->GetAssetsByClass(UStaticMesh::StaticClass()->GetClassPathName(), Meshes);
	EXPECT_EQ(Names(Meshes), (TArray<FString>{TEXT("Boulder"), TEXT("Pebble")}));
}

TEST_F(AssetRegistryTest, FiltersCombineAndChangesAreAnnounced)
{
	FARFilter Filter;
	Filter.ClassPaths.Add(UStaticMesh::StaticClass()->GetClassPathName());
	Filter.bRecursiveClasses = true;
	Filter.RecursiveClassPathsExclusionSet.Add(UObjectTestSpecialMesh::StaticClass()->GetClassPathName());
	TArray<FAssetData> Found;
	Registry->GetAssets(Filter, Found);
	EXPECT_EQ(Names(Found), (TArray<FString>{TEXT("Rock")}));
	FARFilter ByName;
	ByName.PackageNames = {FName(TEXT("/Game/Meshes/Rock")), FName(TEXT("/Game/Blueprints/BP_Door"))};
	ByName.ClassPaths.Add(UObjectTestBlueprintAsset::StaticClass()->GetClassPathName());
	Found.Empty();
	Registry->GetAssets(ByName, Found);
	EXPECT_EQ(Names(Found), (TArray<FString>{TEXT("BP_Door")}));
	FARFilter ByPath;
	ByPath.SoftObjectPaths.Add(FSoftObjectPath(TEXT("/Game/Meshes/Special/Crystal.Crystal")));
	Found.Empty();
	Registry->GetAssets(ByPath, Found);
	EXPECT_EQ(Names(Found), (TArray<FString>{TEXT("Crystal")}));
	EXPECT_TRUE(Registry->HasAssets(FName(TEXT("/Game/Meshes")), true));
	EXPECT_FALSE(Registry->HasAssets(FName(TEXT("/Game/Nothing")), true));

	TArray<FString> Added;
	TArray<FString> Removed;
	TArray<FString> Renamed;
	const FDelegateHandle AddedHandle = Registry->OnAssetAdded().AddLambda([&Added](const FAssetData& Data) { Added.Add(Data.GetObjectPathString()); });
	const FDelegateHandle RemovedHandle = Registry->OnAssetRemoved().AddLambda([&Removed](const FAssetData& Data) { Removed.Add(Data.GetObjectPathString()); });
	const FDelegateHandle RenamedHandle = Registry->OnAssetRenamed().AddLambda([&Renamed](const FAssetData& Data, const FString& OldPath) { Renamed.Add(OldPath + TEXT(">") + Data.GetObjectPathString()); });
	// A level is a package too, found under its own extension.
	UStaticMesh* Level = MakeAsset<UStaticMesh>(TEXT("/Game/Maps/Start"));
	FSavePackageArgs Args;
	ASSERT_TRUE(UPackage::SavePackage(Level->GetOutermost(), Level, *Project.ContentFile(TEXT("Maps/Start.umap")), Args));
	UStaticMesh* Moving = MakeAsset<UStaticMesh>(TEXT("/Game/Meshes/Moving"));
	FAssetRegistryModule::AssetCreated(Moving);
	const FString OldPath = Moving->GetPathName();
	ASSERT_TRUE(Moving->Rename(TEXT("Moved")));
	FAssetRegistryModule::AssetRenamed(Moving, OldPath);
	IFileManager::Get().Delete(*Project.ContentFile(TEXT("Meshes/Rock.uasset")));
	Registry->ScanFilesSynchronous({TEXT("/Game/Meshes/Rock")}, true);
	EXPECT_EQ(Added, (TArray<FString>{TEXT("/Game/Maps/Start.Start"), TEXT("/Game/Meshes/Moving.Moving")}));
	EXPECT_EQ(Renamed, (TArray<FString>{TEXT("/Game/Meshes/Moving.Moving>/Game/Meshes/Moving.Moved")}));
	EXPECT_EQ(Removed, (TArray<FString>{TEXT("/Game/Meshes/Rock.Rock")}));
	EXPECT_TRUE(Registry->GetAssetByObjectPath(FSoftObjectPath(TEXT("/Game/Maps/Start.Start"))).IsValid());
	Registry->OnAssetAdded().Remove(AddedHandle);
	Registry->OnAssetRemoved().Remove(RemovedHandle);
	Registry->OnAssetRenamed().Remove(RenamedHandle);
}
