// The asset class cache of the project tree: what it loads, what it remembers, and what its file keeps.
#include "Agent/FileUtils.h"
#include "ObjectTestSupport.h"
#include "CoreUObject.h"
#include "Engine/StaticMesh.h"
#include "GameFramework/Actor.h"
#include "CoreTestPrinters.h"
#include <gtest/gtest.h>

namespace
{
	const FString TempRoot(TEXT(ASSET_CLASS_CACHE_TESTS_TEMP_DIR));

	class AssetClassCacheTest : public ::testing::Test
	{
	protected:
		AssetClassCacheTest()
			: Project(TempRoot, *FString(::testing::UnitTest::GetInstance()->current_test_info()->name()))
		{
			FFileUtils::ClearAssetClassCache();
		}
		~AssetClassCacheTest() override
		{
			FFileUtils::ClearAssetClassCache();
		}

		// Saves an asset and lets it go, so that finding its class means loading it.
		static void SaveAndForget(UObject* Asset)
		{
			ASSERT_TRUE(SaveTestPackage(Asset->GetOutermost(), Asset));
			TArray<UObject*> Inners;
			GetObjectsWithOuter(Asset->GetOutermost(), Inners);
			for (UObject* Inner : Inners)
			{
				Inner->ClearFlags(RF_Standalone);
			}
			CollectGarbage(RF_NoFlags);
		}

		static UStaticMesh* MakeMesh(const TCHAR* PackageName)
		{
			return NewObject<UStaticMesh>(CreatePackage(PackageName), FName(*FPackageName::GetShortName(PackageName)), RF_Public | RF_Standalone);
		}

		bool Matches(const TCHAR* Folder, const TCHAR* FileName, const TSet<FName>& Patterns, FName& OutClass) const
		{
			return FFileUtils::FileMatchesAssetClassPatterns(FPaths::ProjectContentDir() + Folder, FileName, Patterns, OutClass);
		}

		FString CacheText() const
		{
			return FObjectTestProject::ReadFile(FFileUtils::GetAssetClassCacheSaveDirectory());
		}

		FObjectTestProject Project;
		const TSet<FName> MeshPattern = {FName(TEXT("StaticMesh"))};
	};
}

TEST_F(AssetClassCacheTest, ClassesAreLearntOnceAndFailedLoadsAreRemembered)
{
	EXPECT_EQ(FFileUtils::GetAssetClassCacheSaveDirectory(), FPaths::ProjectPluginsDir() + TEXT("tavrine-unreal/Saved/AssetClassCache.log"));
	SaveAndForget(MakeMesh(TEXT("/Game/Meshes/Rock")));

	// Without patterns every file is kept and nothing is loaded or learnt.
	FName Class = FName(TEXT("Untouched"));
	EXPECT_TRUE(Matches(TEXT("Meshes"), TEXT("Rock.uasset"), TSet<FName>(), Class));
	EXPECT_EQ(Class, FName(TEXT("Untouched")));
	EXPECT_EQ(FindPackage(nullptr, TEXT("/Game/Meshes/Rock")), nullptr);
	// Other files always pass and have no class.
	Class = NAME_None;
	EXPECT_TRUE(Matches(TEXT("Maps"), TEXT("Main.umap"), MeshPattern, Class));
	EXPECT_TRUE(Class.IsNone());
	FFileUtils::SaveAssetClassCache();
	EXPECT_FALSE(FPaths::FileExists(FFileUtils::GetAssetClassCacheSaveDirectory()));

	// Names compare whole and without regard to case; a class not asked for is left out.
	EXPECT_TRUE(Matches(TEXT("Meshes"), TEXT("Rock.UASSET"), {FName(TEXT("staticmesh"))}, Class));
	EXPECT_EQ(Class.ToString(), TEXT("StaticMesh"));
	EXPECT_FALSE(Matches(TEXT("Meshes"), TEXT("Rock.uasset"), {FName(TEXT("Static"))}, Class));
	// The class is remembered: a second answer needs no file.
	IFileManager::Get().Delete(*Project.ContentFile(TEXT("Meshes/Rock.uasset")));
	Class = NAME_None;
	EXPECT_TRUE(Matches(TEXT("Meshes"), TEXT("Rock.uasset"), MeshPattern, Class));
	EXPECT_EQ(Class.ToString(), TEXT("StaticMesh"));

	// A file that doesn't load is remembered as none and isn't tried again while the entry lasts.
	FObjectTestProject::WriteFile(Project.ContentFile(TEXT("Meshes/Broken.uasset")), TEXT("not a package"));
	EXPECT_FALSE(Matches(TEXT("Meshes"), TEXT("Broken.uasset"), MeshPattern, Class));
	SaveAndForget(MakeMesh(TEXT("/Game/Meshes/Broken")));
	EXPECT_FALSE(Matches(TEXT("Meshes"), TEXT("Broken.uasset"), MeshPattern, Class));
	FFileUtils::SaveAssetClassCache();
	EXPECT_EQ(CacheText(), TEXT("/Game/Meshes/Rock=StaticMesh\n/Game/Meshes/Broken=None\n"));
}

TEST_F(AssetClassCacheTest, TheFileDropsDeletedAssetsAndIsReadOnceIntoAnEmptyMap)
{
	SaveAndForget(MakeMesh(TEXT("/Game/Kept")));
	SaveAndForget(MakeMesh(TEXT("/Game/Deleted")));
	const FString CacheFile = FFileUtils::GetAssetClassCacheSaveDirectory();
	FObjectTestProject::WriteFile(CacheFile, TEXT("/Game/Kept=Odd=Name\n/Game/Deleted=StaticMesh\nno separator\n=Empty\n/Game/Missing=StaticMesh\n/Game/Deleted=\n"));
	IFileManager::Get().Delete(*Project.ContentFile(TEXT("Deleted.uasset")));

	FFileUtils::LoadAssetClassCache();
	FName Class;
	// A line splits at its first "=": the class text keeps the second.
	EXPECT_TRUE(Matches(TEXT(""), TEXT("Kept.uasset"), {FName(TEXT("Odd=Name"))}, Class));
	EXPECT_EQ(Class.ToString(), TEXT("Odd=Name"));
	// A map that holds entries isn't read into again.
	FObjectTestProject::WriteFile(CacheFile, TEXT("/Game/Kept=Other\n"));
	FFileUtils::LoadAssetClassCache();
	FFileUtils::SaveAssetClassCache();
	EXPECT_EQ(CacheText(), TEXT("/Game/Kept=Odd=Name\n"));
	// An empty map leaves the file alone; the next load reads it in again.
	FFileUtils::ClearAssetClassCache();
	FFileUtils::SaveAssetClassCache();
	EXPECT_EQ(CacheText(), TEXT("/Game/Kept=Odd=Name\n"));
	FFileUtils::LoadAssetClassCache();
	EXPECT_FALSE(Matches(TEXT(""), TEXT("Kept.uasset"), MeshPattern, Class));
}

TEST_F(AssetClassCacheTest, AnAssetOfABlueprintClassIsFiledUnderItsFirstNativeAncestor)
{
	// A class made the way the Blueprint compiler makes one, saved in a package of its own.
	UClass* Generated = NewObject<UClass>(CreatePackage(TEXT("/Game/Blueprints/BP_Door")), UClass::StaticClass(), FName(TEXT("BP_Door_C")), RF_Public | RF_Standalone);
	Generated->SetSuperStruct(AActor::StaticClass());
	Generated->ClassFlags = CLASS_CompiledFromBlueprint | (AActor::StaticClass()->ClassFlags & CLASS_Inherit);
	Generated->StaticLink(true);
	UObject* Door = NewObject<UObject>(CreatePackage(TEXT("/Game/Doors/FrontDoor")), Generated, FName(TEXT("FrontDoor")), RF_Public | RF_Standalone);
	ASSERT_TRUE(SaveTestPackage(Generated->GetOutermost(), Generated));
	SaveAndForget(Door);
	ASSERT_EQ(FindPackage(nullptr, TEXT("/Game/Blueprints/BP_Door")), nullptr);

	FName Class;
	EXPECT_TRUE(Matches(TEXT("Doors"), TEXT("FrontDoor.uasset"), {FName(TEXT("Actor"))}, Class));
	EXPECT_EQ(Class.ToString(), TEXT("Actor"));
	FFileUtils::SaveAssetClassCache();
	EXPECT_EQ(CacheText(), TEXT("/Game/Doors/FrontDoor=Actor\n"));
}
