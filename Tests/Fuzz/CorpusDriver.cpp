// Without libFuzzer, a fuzz target runs once on each file of the folders or files it is given: the
// seed corpus in the tree runs as an ordinary test.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* Data, size_t Size);

namespace
{
	void RunFile(const std::filesystem::path& File)
	{
		std::ifstream Stream(File, std::ios::binary);
		const std::vector<char> Bytes((std::istreambuf_iterator<char>(Stream)), std::istreambuf_iterator<char>());
		std::printf("%s (%zu bytes)\n", File.filename().string().c_str(), Bytes.size());
		std::fflush(stdout);
		LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(Bytes.data()), Bytes.size());
	}
}

int main(int ArgC, char** ArgV)
{
	size_t Count = 0;
	for (int Index = 1; Index < ArgC; ++Index)
	{
		const std::filesystem::path Path(ArgV[Index]);
		if (!std::filesystem::is_directory(Path))
		{
			RunFile(Path);
			++Count;
			continue;
		}
		std::vector<std::filesystem::path> Files;
		for (const std::filesystem::directory_entry& Entry : std::filesystem::directory_iterator(Path))
		{
			if (Entry.is_regular_file())
			{
				Files.push_back(Entry.path());
			}
		}
		std::sort(Files.begin(), Files.end());
		for (const std::filesystem::path& File : Files)
		{
			RunFile(File);
			++Count;
		}
	}
	if (Count == 0)
	{
		std::fprintf(stderr, "no input files\n");
		return 1;
	}
	std::printf("%zu inputs ran\n", Count);
	return 0;
}
