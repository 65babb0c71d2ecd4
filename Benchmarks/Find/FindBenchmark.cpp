// The reference search on a generated project: 20,000 C++ files (about 500 MB), searched beside
// `grep -r -i -l -F` on the same folders in the same run, and 1,000 Blueprints. The sources are read from
// a warm page cache: each benchmark runs its first pass unmeasured. The project is generated once into
// the build folder and kept for later runs.
#include "Agent/FindUtils.h"
#include "AssetRegistry/AssetRegistryModule.h"
#include "CoreMinimal.h"
#include "Dom/JsonObject.h"
#include "GameFramework/Actor.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/KismetEditorUtilities.h"
#include "Misc/StandInProject.h"
#include "Modules/ModuleManager.h"
#include "SampleBlueprintBuilder.h"
#include "UObject/Package.h"
#include "UObject/UObjectHash.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace
{
	constexpr int Modules = 40;
	constexpr int FoldersPerModule = 25;
	constexpr int FilesPerFolder = 20;
	constexpr size_t FileBytes = 25 * 1024;
	constexpr int Blueprints = 1000;
	const char* const SearchString = "maxhealth";

	void UnloadBlueprints();

	// A source file of about FileBytes: functions that differ by their numbers. One file in fifty
	// mentions the searched name, near its end, so that a search reads most of every file.
	std::string MakeSource(int Index)
	{
		std::string Text = "#include \"CoreMinimal.h\"\n\n";
		Text.reserve(FileBytes + 512);
		for (int Function = 0; Text.size() < FileBytes; ++Function)
		{
			Text += "void UGeneratedComponent" + std::to_string(Index) + "::Update" + std::to_string(Function) +
				"(float DeltaSeconds)\n{\n\tAccumulated += DeltaSeconds * " + std::to_string(Function % 17) +
				".0f;\n\tif (Accumulated > Threshold)\n\t{\n\t\tOnThresholdReached.Broadcast(this, Accumulated);\n\t}\n}\n\n";
		}
		if (Index % 50 == 7)
		{
			Text += "float UGeneratedComponent::GetMaxHealth() const { return MaxHealth; }\n";
		}
		return Text;
	}

	class FGeneratedProject
	{
	public:
		FGeneratedProject()
			: Root(FIND_BENCHMARK_DATA_DIR)
		{
			const std::filesystem::path Done = Root / "generated";
			if (!std::filesystem::exists(Done))
			{
				std::filesystem::remove_all(Root);
				Generate();
				std::ofstream(Done) << "done";
			}
			FStandInProject::SetProjectFile(FString(UTF8_TO_TCHAR((Root / "Bench.uproject").c_str())));
			const std::filesystem::path BlueprintsDone = Root / "generated-blueprints";
			if (!std::filesystem::exists(BlueprintsDone))
			{
				GenerateBlueprints();
				std::ofstream(BlueprintsDone) << "done";
			}
			FModuleManager::LoadModuleChecked<FAssetRegistryModule>(TEXT("AssetRegistry")).Get().SearchAllAssets(true);
		}

		std::filesystem::path Root;

	private:
		// Actor Blueprints of a few variables, a function and an event graph with two nodes; one in fifty
		// has a variable of the searched name. Saved, then dropped from memory.
		static void GenerateBlueprints()
		{
			for (int Index = 0; Index < Blueprints; ++Index)
			{
				const FString Name = FString::Printf(TEXT("/Game/Bench/Folder%d/BP_Generated%d"), Index / 100, Index);
				UBlueprint* Blueprint = FSampleBlueprintBuilder::CreateBlueprint(Name, AActor::StaticClass());
				for (int Variable = 0; Variable < 5; ++Variable)
				{
					const FString VariableName = Index % 50 == 7 && Variable == 0 ? FString(TEXT("MaxHealth")) : FString::Printf(TEXT("Value%d"), Variable);
					FBlueprintEditorUtils::AddMemberVariable(Blueprint, FName(*VariableName), FSampleBlueprintBuilder::MakeRealPinType());
				}
				UEdGraphNode* Entry = nullptr;
				UEdGraphNode* Result = nullptr;
				FSampleBlueprintBuilder::AddFunction(Blueprint, FName(TEXT("Recalculate")), { { FName(TEXT("Amount")), FSampleBlueprintBuilder::MakeRealPinType() } }, {}, Entry, Result);
				UEdGraph* EventGraph = FBlueprintEditorUtils::FindEventGraph(Blueprint);
				UEdGraphNode* BeginPlay = FSampleBlueprintBuilder::AddEvent(Blueprint, EventGraph, FName(TEXT("ReceiveBeginPlay")), 0, 0);
				UEdGraphNode* Print = FSampleBlueprintBuilder::AddPrintString(EventGraph, TEXT("Ready"), 300, 0);
				if (BeginPlay != nullptr)
				{
					FSampleBlueprintBuilder::Link(BeginPlay, FName(TEXT("then")), Print, FName(TEXT("execute")));
				}
				FKismetEditorUtilities::CompileBlueprint(Blueprint);
				FSampleBlueprintBuilder::Save(Blueprint);
			}
			UnloadBlueprints();
		}

		// A tenth of the modules are plugins; each folder holds .cpp files and their headers.
		void Generate()
		{
			std::filesystem::create_directories(Root / "Content");
			std::ofstream(Root / "Bench.uproject") << "{}";
			int Index = 0;
			for (int Module = 0; Module < Modules; ++Module)
			{
				const std::filesystem::path ModuleRoot = Module % 10 == 9
					? Root / "Plugins" / ("Plugin" + std::to_string(Module)) / "Source"
					: Root / "Source" / ("Module" + std::to_string(Module));
				for (int Folder = 0; Folder < FoldersPerModule; ++Folder)
				{
					const std::filesystem::path Directory = ModuleRoot / ("Folder" + std::to_string(Folder));
					std::filesystem::create_directories(Directory);
					for (int File = 0; File < FilesPerFolder; ++File, ++Index)
					{
						const char* Extension = File % 2 == 0 ? ".cpp" : ".h";
						std::ofstream(Directory / ("Generated" + std::to_string(Index) + Extension), std::ios::binary) << MakeSource(Index);
					}
				}
			}
		}
	};

	const FGeneratedProject& Project()
	{
		static const FGeneratedProject Generated;
		return Generated;
	}

	struct FFindUtilsAccess : FTavrineFindUtils
	{
		using FTavrineFindUtils::FindInAllBlueprintFiles;
		using FTavrineFindUtils::FindInAllCppFiles;
	};

	// Every Blueprint package leaves memory, as in an editor session that hasn't opened them.
	void UnloadBlueprints()
	{
		TArray<UObject*> Packages;
		GetObjectsOfClass(UPackage::StaticClass(), Packages);
		for (UObject* Package : Packages)
		{
			if (Package->GetName().StartsWith(TEXT("/Game/")))
			{
				TArray<UObject*> Inners;
				GetObjectsWithOuter(Package, Inners, true);
				for (UObject* Inner : Inners)
				{
					Inner->ClearFlags(RF_Standalone);
				}
				Package->ClearFlags(RF_Standalone);
			}
		}
		CollectGarbage(RF_NoFlags);
	}

	void BM_Grep(benchmark::State& State)
	{
		const std::string Root = Project().Root.string();
		const std::string Command = std::string("grep -r -i -l -F '") + SearchString + "' '" + Root + "/Source' '" + Root + "/Plugins' > /dev/null";
		if (std::system(Command.c_str()) != 0)
		{
			State.SkipWithError("grep failed");
			return;
		}
		for (auto _ : State)
		{
			benchmark::DoNotOptimize(std::system(Command.c_str()));
		}
	}

	void BM_FindInAllCppFiles(benchmark::State& State)
	{
		Project();
		const FString Search(UTF8_TO_TCHAR(SearchString));
		TSharedPtr<FJsonObject> Result = MakeShared<FJsonObject>();
		FFindUtilsAccess::FindInAllCppFiles(Search, Result);
		for (auto _ : State)
		{
			Result = MakeShared<FJsonObject>();
			FFindUtilsAccess::FindInAllCppFiles(Search, Result);
			benchmark::DoNotOptimize(Result);
		}
		State.counters["Matches"] = Result->GetArrayField(TEXT("cpp_references")).Num();
	}

	// Each call loads every Blueprint that isn't in memory; the first search of a session loads them all.
	void BM_FindInAllBlueprintFiles(benchmark::State& State, bool bUnloadFirst)
	{
		Project();
		const FString Search(UTF8_TO_TCHAR(SearchString));
		TSharedPtr<FJsonObject> Result = MakeShared<FJsonObject>();
		FFindUtilsAccess::FindInAllBlueprintFiles(Search, Result);
		for (auto _ : State)
		{
			if (bUnloadFirst)
			{
				State.PauseTiming();
				UnloadBlueprints();
				State.ResumeTiming();
			}
			Result = MakeShared<FJsonObject>();
			FFindUtilsAccess::FindInAllBlueprintFiles(Search, Result);
			benchmark::DoNotOptimize(Result);
		}
		State.counters["Matches"] = Result->GetArrayField(TEXT("blueprint_references")).Num();
	}
}

BENCHMARK(BM_Grep)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(3.0);
BENCHMARK(BM_FindInAllCppFiles)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(3.0);
BENCHMARK_CAPTURE(BM_FindInAllBlueprintFiles, Loaded, false)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(3.0);
BENCHMARK_CAPTURE(BM_FindInAllBlueprintFiles, FromDisk, true)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(3.0);

BENCHMARK_MAIN();
