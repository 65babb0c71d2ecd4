// One modification of a large Blueprint (2,000 nodes in its event graph, 200 variables): 100 nodes added to
// a function, linked in a chain by their titles, then the compile and the save that every change brings.
// The compile and the save of the same modified Blueprint are measured alone beside it, for their share.
#include "CoreMinimal.h"
#include "Agent/BlueprintUtils.h"
#include "EdGraph/EdGraph.h"
#include "Editor.h"
#include "HAL/FileManager.h"
#include "Misc/FileHelper.h"
#include "Misc/StandInProject.h"
#include "SampleBlueprintBuilder.h"
#include "UnrealEdModule.h"
#include <benchmark/benchmark.h>

namespace
{
	constexpr int32 NumNodes = 2000;
	constexpr int32 NumVariables = 200;
	constexpr int32 NumAddedPairs = 50;
	const TCHAR* const BlueprintName = TEXT("BP_Large");

	UBlueprint* LargeBlueprint()
	{
		static UBlueprint* Blueprint = []
		{
			const FString Dir = FString(TEXT(BLUEPRINT_MODIFY_BENCHMARK_TEMP_DIR)) + TEXT("/Project/");
			IFileManager::Get().DeleteDirectory(*Dir, false, true);
			IFileManager::Get().MakeDirectory(*(Dir + TEXT("Content")), true);
			FFileHelper::SaveStringToFile(TEXT("{}"), *(Dir + TEXT("Project.uproject")));
			FStandInProject::SetProjectFile(Dir + TEXT("Project.uproject"));
			// Every modification is an editor transaction, undone between runs.
			check(FUnrealEdModule::StartEditorEngine() != nullptr);
			UBlueprint* Made = FSampleBlueprintBuilder::MakeLarge(FString(FSampleBlueprintBuilder::Folder) / BlueprintName, NumNodes, NumVariables);
			Made->AddToRoot();
			// The function the nodes go to, made once.
			FTavrineBlueprintUtils::ModifyBlueprint(BlueprintName, TEXT(R"({"Functions": [ { "Name": "Relay" } ]})"));
			GEditor->ResetTransaction(FText::FromString(TEXT("Benchmark start")));
			return Made;
		}();
		return Blueprint;
	}

	/** Pairs of a variable get and a variable set, each set fed by its get and run after the set before it. */
	FString AddNodesDocument()
	{
		FString Nodes;
		FString Previous = TEXT("Relay");
		for (int32 Pair = 0; Pair < NumAddedPairs; ++Pair)
		{
			const FString Source = FString::Printf(TEXT("Var_%03d"), Pair * 2);
			const FString Target = FString::Printf(TEXT("Var_%03d"), Pair * 2 + 1);
			Nodes += FString::Printf(TEXT(R"({"Class":"UK2Node_VariableGet","Location":{"X":%d,"Y":200},"Properties":{"VariableName":"%s"}},)"), Pair * 300, *Source);
			Nodes += FString::Printf(TEXT(R"({"Class":"UK2Node_VariableSet","Location":{"X":%d,"Y":0},"Properties":{"VariableName":"%s","Pins":[)"
				R"({"PinName":"execute","Connections":[{"Node":"%s","Pin":"then"}]},{"PinName":"%s","Connections":[{"Node":"Get %s","Pin":"%s"}]}]}})"),
				Pair * 300 + 150, *Target, *Previous, *Target, *Source, *Source);
			Nodes += Pair + 1 < NumAddedPairs ? TEXT(",") : TEXT("");
			Previous = TEXT("Set ") + Target;
		}
		return FString::Printf(TEXT(R"({"Functions":[{"Name":"Relay","EdGraph":{"Nodes":[%s]}}]})"), *Nodes);
	}

	/** Applies the document and leaves the Blueprint modified; the caller undoes it. */
	bool Apply(const FString& Document)
	{
		return FTavrineBlueprintUtils::ModifyBlueprint(BlueprintName, Document).Contains(TEXT("\"Success\""));
	}

	void BM_ModifyAdd100LinkedNodes(benchmark::State& State)
	{
		LargeBlueprint();
		const FString Document = AddNodesDocument();
		bool bSucceeded = true;
		for (auto _ : State)
		{
			bSucceeded &= Apply(Document);
			State.PauseTiming();
			GEditor->UndoTransaction();
			State.ResumeTiming();
		}
		State.counters["succeeded"] = bSucceeded ? 1 : 0;
	}
	BENCHMARK(BM_ModifyAdd100LinkedNodes)->Unit(benchmark::kMillisecond);

	// The compile and the save alone, of the Blueprint as the modification leaves it.
	void BM_CompileModified(benchmark::State& State)
	{
		UBlueprint* Blueprint = LargeBlueprint();
		Apply(AddNodesDocument());
		for (auto _ : State)
		{
			FTavrineBlueprintUtils::CompileBlueprint(Blueprint);
		}
		GEditor->UndoTransaction();
	}
	BENCHMARK(BM_CompileModified)->Unit(benchmark::kMillisecond);

	void BM_SaveModified(benchmark::State& State)
	{
		UBlueprint* Blueprint = LargeBlueprint();
		Apply(AddNodesDocument());
		for (auto _ : State)
		{
			FTavrineBlueprintUtils::SaveBlueprint(Blueprint);
		}
		GEditor->UndoTransaction();
	}
	BENCHMARK(BM_SaveModified)->Unit(benchmark::kMillisecond);
}

BENCHMARK_MAIN();
