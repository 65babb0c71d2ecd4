// The Blueprint tools on a large Blueprint: 2,000 nodes with about 10,000 pins, linked in one chain, and
// 200 variables. The whole document read, and the compile.
#include "CoreMinimal.h"
#include "Agent/BlueprintUtils.h"
#include "EdGraph/EdGraph.h"
#include "EdGraph/EdGraphNode.h"
#include "HAL/FileManager.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Misc/FileHelper.h"
#include "Misc/Paths.h"
#include "Misc/StandInProject.h"
#include "SampleBlueprintBuilder.h"
#include <benchmark/benchmark.h>

namespace
{
	constexpr int32 NumNodes = 2000;
	constexpr int32 NumVariables = 200;

	UBlueprint* LargeBlueprint()
	{
		static UBlueprint* Blueprint = []
		{
			const FString Dir = FString(TEXT(BLUEPRINTS_BENCHMARK_TEMP_DIR)) + TEXT("/Project/");
			IFileManager::Get().MakeDirectory(*(Dir + TEXT("Content")), true);
			FFileHelper::SaveStringToFile(TEXT("{}"), *(Dir + TEXT("Project.uproject")));
			FStandInProject::SetProjectFile(Dir + TEXT("Project.uproject"));
			UBlueprint* Made = FSampleBlueprintBuilder::MakeLarge(TEXT("/Game/Bench/BP_Large"), NumNodes, NumVariables);
			Made->AddToRoot();
			return Made;
		}();
		return Blueprint;
	}

	int32 CountPins(const UBlueprint* Blueprint)
	{
		int32 Pins = 0;
		for (const UEdGraph* Graph : Blueprint->UbergraphPages)
		{
			for (const UEdGraphNode* Node : Graph->Nodes)
			{
				Pins += Node->Pins.Num();
			}
		}
		return Pins;
	}

	void BM_ReadBlueprintAll(benchmark::State& State)
	{
		UBlueprint* Blueprint = LargeBlueprint();
		FTavrineBlueprintUtils::CompileBlueprint(Blueprint);
		int64 Characters = 0;
		for (auto _ : State)
		{
			const FString Document = FTavrineBlueprintUtils::ReadBlueprint(TEXT("BP_Large"), TEXT("All"));
			Characters = Document.Len();
			benchmark::DoNotOptimize(Document);
		}
		State.counters["nodes"] = FBlueprintEditorUtils::FindEventGraph(Blueprint)->Nodes.Num();
		State.counters["pins"] = CountPins(Blueprint);
		State.counters["chars"] = Characters;
	}
	BENCHMARK(BM_ReadBlueprintAll)->Unit(benchmark::kMillisecond);

	void BM_CompileBlueprint(benchmark::State& State)
	{
		UBlueprint* Blueprint = LargeBlueprint();
		bool bCompiled = true;
		for (auto _ : State)
		{
			bCompiled &= FTavrineBlueprintUtils::CompileBlueprint(Blueprint).Contains(TEXT("\"Success\""));
		}
		State.counters["compiled"] = bCompiled ? 1 : 0;
	}
	BENCHMARK(BM_CompileBlueprint)->Unit(benchmark::kMillisecond);
}

BENCHMARK_MAIN();
