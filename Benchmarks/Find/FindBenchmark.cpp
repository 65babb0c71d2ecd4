// The reference search on a generated project of 20,000 C++ files (about 500 MB) against
// `grep -r -i -l -F` on the same folders in the same run. Both read a warm page cache: each benchmark runs
// its first pass unmeasured. The project is generated once into the build folder and kept for later runs.
#include "Agent/FindUtils.h"
#include "CoreMinimal.h"
#include "Dom/JsonObject.h"
#include "Misc/StandInProject.h"

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
	const char* const SearchString = "maxhealth";

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
		}

		std::filesystem::path Root;

	private:
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
		using FTavrineFindUtils::FindInAllCppFiles;
	};

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
}

BENCHMARK(BM_Grep)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(3.0);
BENCHMARK(BM_FindInAllCppFiles)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(3.0);

BENCHMARK_MAIN();
