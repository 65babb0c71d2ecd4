// The object system under load: an asset of 2,000 subobjects saved and loaded, and the registry's scan of a
// content folder of 5,000 assets.
#include "CoreMinimal.h"
#include "CoreUObject.h"
#include "AssetRegistry/IAssetRegistry.h"
#include "Components/SceneComponent.h"
#include "Engine/StaticMesh.h"
#include "GameFramework/Actor.h"
#include "HAL/FileManager.h"
#include "Misc/FileHelper.h"
#include "Misc/PackageName.h"
#include "Misc/Paths.h"
#include "Misc/StandInProject.h"
#include <benchmark/benchmark.h>

namespace
{
	constexpr int32 NumSubobjects = 2000;
	constexpr int32 NumAssets = 5000;

	void UseProject(const TCHAR* Name)
	{
		const FString Dir = FPaths::Combine(FString(TEXT(OBJECTS_BENCHMARK_TEMP_DIR)), Name) + TEXT("/");
		IFileManager::Get().MakeDirectory(*(Dir + TEXT("Content")), true);
		const FString ProjectFile = Dir + Name + TEXT(".uproject");
		FFileHelper::SaveStringToFile(TEXT("{}"), *ProjectFile);
		FStandInProject::SetProjectFile(ProjectFile);
	}

	bool Save(UPackage* Package)
	{
		FSavePackageArgs Args;
		Args.TopLevelFlags = RF_Standalone;
		return UPackage::Save(Package, nullptr, *FPackageName::LongPackageNameToFilename(Package->GetName(), FPackageName::GetAssetPackageExtension()), Args).IsSuccessful();
	}

	void Forget(UPackage* Package)
	{
		TArray<UObject*> Inners;
		GetObjectsWithOuter(Package, Inners);
		for (UObject* Inner : Inners)
		{
			Inner->ClearFlags(RF_Standalone);
		}
		CollectGarbage(RF_NoFlags);
	}

	// An actor holding 2,000 scene components, each placed, tagged and attached to the one before.
	UPackage* MakeBigAsset()
	{
		UPackage* Package = CreatePackage(TEXT("/Game/Big/Crowd"));
		AActor* Actor = NewObject<AActor>(Package, FName(TEXT("Crowd")), RF_Public | RF_Standalone);
		USceneComponent* Previous = nullptr;
		for (int32 Index = 0; Index < NumSubobjects; ++Index)
		{
			USceneComponent* Component = NewObject<USceneComponent>(Actor, FName(*FString::Printf(TEXT("Part_%d"), Index)));
			Component->SetRelativeLocation(FVector(Index, Index * 2.0, 0.5));
			Component->SetRelativeRotation(FRotator(0.0, Index % 360, 0.0));
			Component->ComponentTags.Add(FName(*FString::Printf(TEXT("Tag%d"), Index % 7)));
			Component->SetupAttachment(Previous);
			Actor->InstanceComponents.Add(Component);
			Previous = Component;
		}
		Actor->RootComponent = Actor->InstanceComponents.Num() > 0 ? Cast<USceneComponent>(Actor->InstanceComponents[0]) : nullptr;
		return Package;
	}
}

static void BM_SavePackageOf2000Subobjects(benchmark::State& State)
{
	UseProject(TEXT("SaveBig"));
	UPackage* Package = MakeBigAsset();
	for (auto _ : State)
	{
		if (!Save(Package))
		{
			State.SkipWithError("save failed");
			break;
		}
	}
	State.counters["file_bytes"] = static_cast<double>(IFileManager::Get().FileSize(*FPackageName::LongPackageNameToFilename(Package->GetName(), FPackageName::GetAssetPackageExtension())));
	Forget(Package);
	FStandInProject::Reset();
}
BENCHMARK(BM_SavePackageOf2000Subobjects)->Unit(benchmark::kMillisecond);

static void BM_LoadPackageOf2000Subobjects(benchmark::State& State)
{
	UseProject(TEXT("LoadBig"));
	UPackage* Package = MakeBigAsset();
	Save(Package);
	Forget(Package);
	for (auto _ : State)
	{
		AActor* Loaded = LoadObject<AActor>(nullptr, TEXT("/Game/Big/Crowd.Crowd"));
		if (Loaded == nullptr || Loaded->InstanceComponents.Num() != NumSubobjects)
		{
			State.SkipWithError("load failed");
			break;
		}
		State.PauseTiming();
		Forget(Loaded->GetOutermost());
		State.ResumeTiming();
	}
	FStandInProject::Reset();
}
BENCHMARK(BM_LoadPackageOf2000Subobjects)->Unit(benchmark::kMillisecond);

static void BM_ScanContentOf5000Assets(benchmark::State& State)
{
	UseProject(TEXT("Scan"));
	// One saved mesh, copied under 5,000 names into 50 folders: the scan reads each file's head.
	UStaticMesh* Mesh = NewObject<UStaticMesh>(CreatePackage(TEXT("/Game/Template/Mesh")), FName(TEXT("Mesh")), RF_Public | RF_Standalone);
	Mesh->NumLODs = 4;
	Save(Mesh->GetOutermost());
	FString Template;
	FFileHelper::LoadFileToString(Template, *FPackageName::LongPackageNameToFilename(TEXT("/Game/Template/Mesh"), FPackageName::GetAssetPackageExtension()));
	for (int32 Index = 0; Index < NumAssets; ++Index)
	{
		const FString Name = FString::Printf(TEXT("Mesh_%d"), Index);
		const FString PackageName = FString::Printf(TEXT("/Game/Folder%d/%s"), Index % 50, *Name);
		const FString File = FPackageName::LongPackageNameToFilename(PackageName, FPackageName::GetAssetPackageExtension());
		if (!IFileManager::Get().FileExists(*File))
		{
			FFileHelper::SaveStringToFile(Template.Replace(TEXT("/Game/Template/Mesh"), *PackageName).Replace(TEXT("Name=Mesh"), *(TEXT("Name=") + Name)), *File);
		}
	}
	IAssetRegistry* Registry = IAssetRegistry::Get();
	for (auto _ : State)
	{
		Registry->ScanPathsSynchronous({TEXT("/Game/")}, true);
		TArray<FAssetData> Meshes;
		Registry->GetAssetsByClass(UStaticMesh::StaticClass()->GetClassPathName(), Meshes);
		if (Meshes.Num() != NumAssets + 1)
		{
			State.SkipWithError("scan missed assets");
			break;
		}
	}
	FStandInProject::Reset();
}
BENCHMARK(BM_ScanContentOf5000Assets)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
