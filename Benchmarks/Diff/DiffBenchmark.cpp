// The chat's diff of two 20,000-line sources with scattered edits: time, and the peak memory the
// comparison adds, beside what a table of int32 common lengths would take for the same pair.
#include "CoreMinimal.h"
#include "Widget/DiffHunks.h"

#include <benchmark/benchmark.h>
#include <fstream>
#include <random>
#include <string>

namespace
{
	/** Resident memory figures of this process from /proc, in bytes: the current and the peak since the last reset. */
	int64 ReadStatusBytes(const char* Field)
	{
		std::ifstream Status("/proc/self/status");
		std::string Line;
		const std::string Prefix = std::string(Field) + ":";
		while (std::getline(Status, Line))
		{
			if (Line.rfind(Prefix, 0) == 0)
			{
				return std::stoll(Line.substr(Prefix.size())) * 1024;
			}
		}
		return 0;
	}

	/** Makes the peak figure start again from the current resident size. */
	void ResetPeak()
	{
		std::ofstream("/proc/self/clear_refs") << "5";
	}

	/** A C++-like source of Lines lines, and a copy with one edit (change, insertion or removal) every ~200 lines. */
	void MakePair(int32 Lines, FString& OutOld, FString& OutNew)
	{
		std::mt19937 Random(20000);
		TArray<FString> Old;
		for (int32 Index = 0; Index < Lines; ++Index)
		{
			switch (Index % 5)
			{
			case 0: Old.Add(FString::Printf(TEXT("void Function%d(int32 Value)"), Index)); break;
			case 1: Old.Add(TEXT("{")); break;
			case 2: Old.Add(FString::Printf(TEXT("\tValue += %d;"), Index)); break;
			case 3: Old.Add(TEXT("}")); break;
			default: Old.Add(TEXT("")); break;
			}
		}
		TArray<FString> New;
		std::uniform_int_distribution<int32> Gap(1, 400);
		std::uniform_int_distribution<int32> Kind(0, 2);
		int32 NextEdit = Gap(Random);
		for (int32 Index = 0; Index < Old.Num(); ++Index)
		{
			if (Index != NextEdit)
			{
				New.Add(Old[Index]);
				continue;
			}
			NextEdit += Gap(Random);
			switch (Kind(Random))
			{
			case 0: New.Add(Old[Index] + TEXT(" // changed")); break;
			case 1: New.Add(TEXT("\tLog(Value);")); New.Add(Old[Index]); break;
			default: break;
			}
		}
		OutOld = FString::Join(Old, TEXT("\n"));
		OutNew = FString::Join(New, TEXT("\n"));
	}

	void BM_BuildDiffHunks(benchmark::State& State)
	{
		const int32 Lines = static_cast<int32>(State.range(0));
		FString Old;
		FString New;
		MakePair(Lines, Old, New);

		int64 PeakAdded = 0;
		int64 Records = 0;
		for (auto _ : State)
		{
			ResetPeak();
			const int64 Before = ReadStatusBytes("VmRSS");
			const TArray<FDiffHunk> Hunks = BuildDiffHunks(Old, New);
			PeakAdded = FMath::Max(PeakAdded, ReadStatusBytes("VmHWM") - Before);
			Records = 0;
			for (const FDiffHunk& Hunk : Hunks)
			{
				Records += Hunk.Num();
			}
			benchmark::DoNotOptimize(Hunks.Num());
		}

		const double FullTableBytes = 4.0 * (Lines + 1) * (Lines + 1);
		State.counters["records"] = static_cast<double>(Records);
		State.counters["peak_MB"] = static_cast<double>(PeakAdded) / (1 << 20);
		State.counters["int32_table_MB"] = FullTableBytes / (1 << 20);
		State.counters["fraction_of_table"] = static_cast<double>(PeakAdded) / FullTableBytes;
	}
}

BENCHMARK(BM_BuildDiffHunks)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond)->Iterations(3);

// The C allocator hands the table back to the system after each run, so every run's peak is its own.
BENCHMARK_MAIN();
