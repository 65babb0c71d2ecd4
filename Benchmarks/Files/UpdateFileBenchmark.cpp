// UpdateFile on generated C++ sources from 1 to 20 MB: the whole call (read, presence test, replacement,
// delete, write) should grow linearly with the file's size. Two paths: the model's text found exactly,
// and the slowest forgiving path, where the last adapted form (indentation only) is the one that matches.
#include "Agent/FileUtils.h"
#include "CoreMinimal.h"
#include "HAL/StandInMemory.h"
#include "Misc/FileHelper.h"
#include "Misc/Paths.h"
#include "Misc/StandInProject.h"

#include <benchmark/benchmark.h>
#include <filesystem>
#include <fstream>

namespace
{
	constexpr int64 MegaByte = 1 << 20;

	/** A project of its own in the working directory, with one source file of about Size bytes. */
	class FGeneratedProject
	{
	public:
		explicit FGeneratedProject(int64 Size)
		{
			Root = std::filesystem::current_path() / "UpdateFileBenchmarkProject";
			std::filesystem::create_directories(Root / "Source");
			std::ofstream(Root / "Bench.uproject") << "{}";
			FStandInProject::SetProjectFile(FString(UTF8_TO_TCHAR((Root / "Bench.uproject").string().c_str())));

			// CR LF and tab indentation, as Windows sources are; the target sits in the middle.
			std::string Text;
			Text.reserve(static_cast<size_t>(Size) + 256);
			int32 Function = 0;
			while (static_cast<int64>(Text.size()) < Size)
			{
				if (Function == 5000)
				{
					Text += "void Target()\r\n{\r\n\tint Marker = 0;\r\n\treturn;\r\n}\r\n";
				}
				Text += "void Function" + std::to_string(Function++) + "(int Value)\r\n{\r\n\tif (Value > 0)\r\n\t{\r\n\t\tValue -= 1;\r\n\t}\r\n}\r\n";
			}
			std::ofstream(Root / "Source" / "Big.cpp", std::ios::binary) << Text;
			Bytes = static_cast<int64>(Text.size());
		}

		~FGeneratedProject()
		{
			FStandInProject::Reset();
			std::error_code Error;
			std::filesystem::remove_all(Root, Error);
		}

		int64 Bytes = 0;

	private:
		std::filesystem::path Root;
	};

	void RunUpdate(benchmark::State& State, const FString& OldString, const FString& NewString)
	{
		FGeneratedProject Project(State.range(0) * MegaByte);
		FString Original;
		FString Updated;
		for (auto _ : State)
		{
			// The new text equals the file's own, so every iteration finds the same file.
			const FString Result = FFileUtils::UpdateFile(TEXT("Source/Big.cpp"), OldString, NewString, Original, Updated);
			if (!Result.StartsWith(TEXT("Successfully")))
			{
				State.SkipWithError(TCHAR_TO_UTF8(*Result));
				break;
			}
		}
		State.SetBytesProcessed(State.iterations() * Project.Bytes);
		State.SetComplexityN(Project.Bytes);
	}

	void BM_UpdateFileExact(benchmark::State& State)
	{
		RunUpdate(State, TEXT("\tint Marker = 0;\r\n\treturn;"), TEXT("\tint Marker = 0;\r\n\treturn;"));
	}

	void BM_UpdateFileForgiving(benchmark::State& State)
	{
		// Spaces and CR LF sent: both forms that adapt line ends double the CR; indentation alone matches.
		RunUpdate(State, TEXT("    int Marker = 0;\r\n    return;"), TEXT("\tint Marker = 0;\r\n\treturn;"));
	}
}

BENCHMARK(BM_UpdateFileExact)->Arg(1)->Arg(2)->Arg(5)->Arg(10)->Arg(20)->Unit(benchmark::kMillisecond)->Complexity(benchmark::oN);
BENCHMARK(BM_UpdateFileForgiving)->Arg(1)->Arg(2)->Arg(5)->Arg(10)->Arg(20)->Unit(benchmark::kMillisecond)->Complexity(benchmark::oN);

// The editor's allocator reuses freed memory; without this the 20 MB case measures the C library's page
// faults rather than UpdateFile.
int main(int ArgC, char** ArgV)
{
	FStandInMemory::KeepFreedMemoryForReuse();
	benchmark::Initialize(&ArgC, ArgV);
	if (benchmark::ReportUnrecognizedArguments(ArgC, ArgV))
	{
		return 1;
	}
	benchmark::RunSpecifiedBenchmarks();
	benchmark::Shutdown();
	return 0;
}
