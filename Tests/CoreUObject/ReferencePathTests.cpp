// Paths that name objects without holding them: top-level asset paths, soft paths, export text paths, and
// the load functions that take them.
#include "ReflectionTestTypes.h"
#include "CoreUObject.h"
#include "ObjectTestSupport.h"
#include "CoreTestPrinters.h"
#include <gtest/gtest.h>

namespace
{
	const FString TempRoot(TEXT(COREUOBJECT_TESTS_TEMP_DIR));
}

TEST(ReferencePaths, AssetAndSoftPathsSplitThePartsTheEngineWay)
{
	const FTopLevelAssetPath Actor(TEXT("/Script/Engine.Actor"));
	EXPECT_TRUE(Actor.IsValid());
	EXPECT_EQ(Actor.GetPackageName(), FName(TEXT("/Script/Engine")));
	EXPECT_EQ(Actor.GetAssetName(), FName(TEXT("Actor")));
	EXPECT_EQ(Actor.ToString(), TEXT("/Script/Engine.Actor"));
	EXPECT_EQ(FTopLevelAssetPath(TEXT("/Script/Engine.Blueprint'/Game/BP.BP'")).ToString(), TEXT("/Game/BP.BP"));
	EXPECT_EQ(FTopLevelAssetPath(TEXT("/Script/engine.actor")), Actor);
	EXPECT_EQ(FTopLevelAssetPath(TEXT("/Game/Only")).ToString(), TEXT("/Game/Only"));
	// Not top-level paths: a subobject, a relative name, nothing.
	EXPECT_TRUE(FTopLevelAssetPath(TEXT("/Game/A.B:C")).IsNull());
	EXPECT_TRUE(FTopLevelAssetPath(TEXT("/Game/A.B.C")).IsNull());
	EXPECT_TRUE(FTopLevelAssetPath(TEXT("Actor")).IsNull());
	EXPECT_TRUE(FTopLevelAssetPath(TEXT("None")).IsNull());

	const FSoftObjectPath Sub(TEXT("/Game/Map.Map:Level.Light"));
	EXPECT_EQ(Sub.GetAssetPathString(), TEXT("/Game/Map.Map"));
	EXPECT_EQ(Sub.GetSubPathString(), TEXT("Level.Light"));
	EXPECT_EQ(Sub.GetLongPackageName(), TEXT("/Game/Map"));
	EXPECT_EQ(Sub.GetAssetName(), TEXT("Map"));
	EXPECT_EQ(Sub.ToString(), TEXT("/Game/Map.Map:Level.Light"));
	EXPECT_FALSE(Sub.IsAsset());
	EXPECT_EQ(FSoftObjectPath(TEXT("/Game/Map.Map.Level")).ToString(), TEXT("/Game/Map.Map:Level"));
	EXPECT_EQ(FSoftObjectPath(TEXT("/Script/Engine.StaticMesh'/Game/Cube.Cube'")).ToString(), TEXT("/Game/Cube.Cube"));
	EXPECT_TRUE(FSoftObjectPath(TEXT("")).IsNull());
	FLogCapture Log;
	EXPECT_TRUE(FSoftObjectPath(TEXT("Relative.Name")).IsNull());
	EXPECT_TRUE(Log.Contains(TEXT("is not an object path")));
	EXPECT_EQ(FSoftObjectPath(TEXT("/Game/Map.Map")), FSoftObjectPath(TEXT("/game/map.map")));

	// Reading a path back from text stops where a list item ends.
	FSoftObjectPath Read;
	const TCHAR* Text = TEXT("/Game/A.A,/Game/B.B");
	EXPECT_TRUE(Read.ImportTextItem(Text, PPF_Delimited, nullptr, nullptr));
	EXPECT_EQ(Read.ToString(), TEXT("/Game/A.A"));
	EXPECT_EQ(*Text, TEXT(','));
	Text = TEXT("\"/Game/With Space.With Space\"");
	EXPECT_TRUE(Read.ImportTextItem(Text, PPF_Delimited, nullptr, nullptr));
	EXPECT_EQ(Read.GetAssetName(), TEXT("With Space"));
	Text = TEXT("None");
	EXPECT_TRUE(Read.ImportTextItem(Text, PPF_None, nullptr, nullptr));
	EXPECT_TRUE(Read.IsNull());
}

TEST(ReferencePaths, LoadFunctionsAcceptEveryFormOfAPath)
{
	FObjectTestProject Project(TempRoot, TEXT("LoadForms"));
	UPackage* Package = CreatePackage(TEXT("/Game/Forms/Thing"));
	UReflectionTestAllKinds* Thing = NewObject<UReflectionTestAllKinds>(Package, FName(TEXT("Thing")), RF_Public | RF_Standalone);
	UReflectionTestChild* Inner = NewObject<UReflectionTestChild>(Thing, FName(TEXT("Inner")));
	Inner->ChildValue = 3;
	ASSERT_TRUE(SaveTestPackage(Package, Thing));
	Thing->ClearFlags(RF_Standalone);
	CollectGarbage(RF_NoFlags);

	// A subobject's path loads its package first.
	UReflectionTestChild* LoadedInner = LoadObject<UReflectionTestChild>(nullptr, TEXT("/Game/Forms/Thing.Thing:Inner"));
	ASSERT_NE(LoadedInner, nullptr);
	EXPECT_EQ(LoadedInner->ChildValue, 3);
	UObject* LoadedThing = LoadedInner->GetOuter();
	EXPECT_EQ(StaticLoadObject(UObject::StaticClass(), nullptr, TEXT("/Game/Forms/Thing")), LoadedThing);
	EXPECT_EQ(StaticLoadObject(UObject::StaticClass(), nullptr, TEXT("/Script/CoreUObjectTests.ReflectionTestAllKinds'/Game/Forms/Thing.Thing'")), LoadedThing);
	EXPECT_EQ(StaticLoadObject(UReflectionTestChild::StaticClass(), LoadedThing, TEXT("Inner")), LoadedInner);
	EXPECT_EQ(FSoftObjectPath(LoadedInner).TryLoad(), LoadedInner);
	// The object must be of the class asked for.
	EXPECT_EQ(StaticLoadObject(UReflectionTestChild::StaticClass(), nullptr, TEXT("/Game/Forms/Thing.Thing"), nullptr, LOAD_Quiet), nullptr);
	EXPECT_EQ(FindPackage(nullptr, TEXT("/Game/Forms/Thing")), LoadedThing->GetOutermost());
	EXPECT_EQ(LoadPackage(nullptr, *Project.ContentFile(TEXT("Forms/Thing.uasset")), LOAD_None), LoadedThing->GetOutermost());

	// A soft reference finds a loaded object without loading, and loads one that isn't.
	TSoftObjectPtr<UReflectionTestAllKinds> Soft(FSoftObjectPath(TEXT("/Game/Forms/Thing.Thing")));
	EXPECT_EQ(Soft.Get(), LoadedThing);
	LoadedThing->ClearFlags(RF_Standalone);
	CollectGarbage(RF_NoFlags);
	EXPECT_TRUE(Soft.IsPending());
	UReflectionTestAllKinds* Reloaded = Soft.LoadSynchronous();
	ASSERT_NE(Reloaded, nullptr);
	EXPECT_TRUE(Soft.IsValid());
	TSoftClassPtr<UObject> SoftClass(FSoftObjectPath(TEXT("/Script/CoreUObjectTests.ReflectionTestChild")));
	EXPECT_EQ(SoftClass.Get(), UReflectionTestChild::StaticClass());

	// A package made in memory, with no file yet, is complete as it is; one with a file reads it in.
	UPackage* Fresh = CreatePackage(TEXT("/Game/Forms/Fresh"));
	EXPECT_TRUE(Fresh->IsFullyLoaded());
	Reloaded->ClearFlags(RF_Standalone);
	CollectGarbage(RF_NoFlags);
	UPackage* Partial = CreatePackage(TEXT("/Game/Forms/Thing"));
	EXPECT_FALSE(Partial->IsFullyLoaded());
	Partial->FullyLoad();
	EXPECT_TRUE(Partial->IsFullyLoaded());
	EXPECT_NE(FindObject<UReflectionTestAllKinds>(Partial, TEXT("Thing")), nullptr);
}
