// The project tree of a generated project of 100,000 files in 10,000 folders, against `find` on the
// same folder in the same run. Both walk a warm page cache: each benchmark runs its first pass
// unmeasured, and the generated project stays for the whole run.
#include "Agent/FileUtils.h"
#include "CoreMinimal.h"
#include "Dom/JsonObject.h"
#include "Misc/StandInProject.h"
#include "TavrineSettings.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

namespace
{
	constexpr int TopFolders = 100;
	constexpr int SubFoldersEach = 99;
	constexpr int FilesPerFolder = 10;

	// One folder of the usual mix: sources, headers, config and assets are listed, text files aren't.
	void FillFolder(const std::filesystem::path& Folder, int Index)
	{
		static const char* const Extensions[] = { ".cpp", ".h", ".ini", ".uasset", ".txt" };
		std::filesystem::create_directories(Folder);
		for (int File = 0; File < FilesPerFolder; ++File)
		{
			std::ofstream(Folder / ("File" + std::to_string(Index) + "_" + std::to_string(File) + Extensions[File % 5])) << "x";
		}
	}

	// 100 top folders (one of them "Intermediate", which the tree skips) with 99 subfolders each:
	// 10,000 folders, 10 files in each.
	class FGeneratedProject
	{
	public:
		FGeneratedProject()
		{
			char Template[] = "/tmp/tavrine-tree-XXXXXX";
			Root = mkdtemp(Template);
			std::ofstream(Root / "Bench.uproject") << "{}";
			int Index = 0;
			for (int Top = 0; Top < TopFolders; ++Top)
			{
				const std::filesystem::path TopFolder = Root / (Top == 0 ? std::string("Intermediate") : "Module" + std::to_string(Top));
				FillFolder(TopFolder, Index++);
				for (int Sub = 1; Sub < SubFoldersEach + 1; ++Sub)
				{
					FillFolder(TopFolder / ("Folder" + std::to_string(Sub)), Index++);
				}
			}
			FStandInProject::SetProjectFile(FString(UTF8_TO_TCHAR((Root / "Bench.uproject").c_str())));
		}

		~FGeneratedProject()
		{
			std::error_code Ignored;
			std::filesystem::remove_all(Root, Ignored);
		}

		std::filesystem::path Root;
	};

	const FGeneratedProject& Project()
	{
		static const FGeneratedProject Generated;
		return Generated;
	}

	void BM_Find(benchmark::State& State)
	{
		const std::string Command = "find '" + Project().Root.string() + "' > /dev/null";
		if (std::system(Command.c_str()) != 0)
		{
			State.SkipWithError("find failed");
			return;
		}
		for (auto _ : State)
		{
			benchmark::DoNotOptimize(std::system(Command.c_str()));
		}
	}

	void BM_BuildJsonTree(benchmark::State& State)
	{
		const FString Directory = FString(UTF8_TO_TCHAR(Project().Root.c_str()));
		const UTavrineSettings* Settings = GetDefault<UTavrineSettings>();
		const TSet<FName> NoPatterns;
		int32 Members = FFileUtils::BuildJsonTree(Directory, Settings->SupportedFileExtensions, Settings->ExcludedDirectories, NoPatterns)->Values.Num();
		for (auto _ : State)
		{
			Members = FFileUtils::BuildJsonTree(Directory, Settings->SupportedFileExtensions, Settings->ExcludedDirectories, NoPatterns)->Values.Num();
			benchmark::DoNotOptimize(Members);
		}
		State.counters["TopMembers"] = Members;
	}

	// What the first request and the tool pay: the tree, its condensed text and the collection after it.
	void BM_TreeText(benchmark::State& State)
	{
		const FString Directory = FString(UTF8_TO_TCHAR(Project().Root.c_str()));
		FString Text = FFileUtils::GetSubDirectoryStructureAsJsonObject(Directory);
		for (auto _ : State)
		{
			Text = FFileUtils::GetSubDirectoryStructureAsJsonObject(Directory);
			benchmark::DoNotOptimize(Text);
		}
		State.counters["TextChars"] = Text.Len();
	}
}

BENCHMARK(BM_Find)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(2.0);
BENCHMARK(BM_BuildJsonTree)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(2.0);
BENCHMARK(BM_TreeText)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(2.0);

BENCHMARK_MAIN();
