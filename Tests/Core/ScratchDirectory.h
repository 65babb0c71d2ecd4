// A folder of its own for one test, under the working directory (the build tree), removed afterwards.
#pragma once

#include "CoreMinimal.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

class FScratchDirectory
{
public:
	FScratchDirectory()
	{
		const ::testing::TestInfo* Info = ::testing::UnitTest::GetInstance()->current_test_info();
		const std::string TestName = Info != nullptr ? std::string(Info->test_suite_name()) + "." + Info->name() : "Scratch";
		Root = std::filesystem::current_path() / "Scratch" / (TestName + "-" + std::to_string(std::random_device{}()));
		std::filesystem::create_directories(Root);
	}

	~FScratchDirectory()
	{
		// Read-only files and folders must not keep the tree alive.
		std::error_code Error;
		for (const std::filesystem::directory_entry& Entry : std::filesystem::recursive_directory_iterator(Root, Error))
		{
			std::filesystem::permissions(Entry.path(), std::filesystem::perms::owner_all, std::filesystem::perm_options::add, Error);
		}
		// The shared parent stays: tests run in parallel processes, and another may be creating its folder in it.
		std::filesystem::remove_all(Root, Error);
	}

	FScratchDirectory(const FScratchDirectory&) = delete;
	FScratchDirectory& operator=(const FScratchDirectory&) = delete;

	/** The folder itself, absolute, with a final slash. */
	FString Dir() const
	{
		return FString(UTF8_TO_TCHAR(Root.string().c_str())) + TEXT("/");
	}

	/** A path inside the folder. */
	FString Path(const TCHAR* Relative) const
	{
		return Dir() + Relative;
	}

	std::filesystem::path Native(const TCHAR* Relative) const
	{
		return Root / std::string(TCHAR_TO_UTF8(Relative));
	}

	void WriteBytes(const TCHAR* Relative, const std::string& Bytes) const
	{
		const std::filesystem::path Target = Native(Relative);
		std::filesystem::create_directories(Target.parent_path());
		std::ofstream Stream(Target, std::ios::binary | std::ios::trunc);
		Stream.write(Bytes.data(), (std::streamsize)Bytes.size());
	}

	std::string ReadBytes(const TCHAR* Relative) const
	{
		std::ifstream Stream(Native(Relative), std::ios::binary);
		return std::string(std::istreambuf_iterator<char>(Stream), std::istreambuf_iterator<char>());
	}

private:
	std::filesystem::path Root;
};
