#pragma once

#include "CoreMinimal.h"
#include "CoreTestPrinters.h"
#include "ISourceControlModule.h"
#include "Misc/OutputDeviceRedirector.h"
#include "Misc/Paths.h"
#include "Misc/StandInProject.h"
#include "ScriptedSourceControlProvider.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>

inline const std::string Utf8Bom = "\xEF\xBB\xBF";
inline const std::string Utf16LeBom = "\xFF\xFE";

/** Text as UTF-16 little-endian bytes, without a byte order mark. */
inline std::string Utf16LeBytes(const FString& Text)
{
	std::string Bytes;
	for (TCHAR Char : Text)
	{
		Bytes += {static_cast<char>(Char & 0xFF), static_cast<char>(Char >> 8)};
	}
	return Bytes;
}

/** Keeps the LogTemp lines, as "Level: text", while it lives. */
class FLogCapture final : public FOutputDevice
{
public:
	FLogCapture()
	{
		GLog->AddOutputDevice(this);
	}
	virtual ~FLogCapture() override
	{
		GLog->RemoveOutputDevice(this);
	}
	virtual void Serialize(const TCHAR* V, ELogVerbosity::Type Verbosity, const FName& Category) override
	{
		const ELogVerbosity::Type Level = static_cast<ELogVerbosity::Type>(Verbosity & ELogVerbosity::VerbosityMask);
		if (Category == FName(TEXT("LogTemp")))
		{
			Lines.Add(FString(Level == ELogVerbosity::Error ? TEXT("Error: ") : Level == ELogVerbosity::Warning ? TEXT("Warning: ") : TEXT("Display: ")) + V);
		}
	}

	TArray<FString> Lines;
};

/**
 * Each test gets a project of its own (a folder with a .uproject) as the project directory, and the
 * "None" source-control provider unless it asks for a scripted one.
 */
class FFilesTest : public ::testing::Test
{
protected:
	void SetUp() override
	{
		const ::testing::TestInfo* Info = ::testing::UnitTest::GetInstance()->current_test_info();
		const std::filesystem::path Root = std::filesystem::path(FILES_TESTS_TEMP_DIR) / (std::string(Info->test_suite_name()) + "." + Info->name());
		std::error_code Error;
		std::filesystem::remove_all(Root, Error);
		std::filesystem::create_directories(Root);
		std::ofstream(Root / "Sample.uproject") << "{}";
		FStandInProject::SetProjectFile(UTF8_TO_TCHAR((Root / "Sample.uproject").string().c_str()));
		ProjectDir = FPaths::ProjectDir();
		ISourceControlModule::Get().SetProvider(FName(TEXT("None")));
	}

	void TearDown() override
	{
		if (ScriptedProvider.IsValid())
		{
			ISourceControlModule::Get().UnregisterProvider(*ScriptedProvider);
		}
		ISourceControlModule::Get().SetProvider(FName(TEXT("None")));
		FStandInProject::Reset();
		// A failed test's folder stays for inspection; the next run clears it.
		std::error_code Error;
		if (!HasFailure())
		{
			std::filesystem::remove_all(Utf8(ProjectDir), Error);
		}
	}

	/** A fresh scripted provider, in use until the next call or the end of the test. */
	FScriptedSourceControlProvider& UseScriptedProvider()
	{
		if (ScriptedProvider.IsValid())
		{
			ISourceControlModule::Get().UnregisterProvider(*ScriptedProvider);
		}
		ScriptedProvider = MakeUnique<FScriptedSourceControlProvider>();
		ISourceControlModule::Get().RegisterProvider(*ScriptedProvider);
		ISourceControlModule::Get().SetProvider(ScriptedProvider->GetName());
		Log.Lines.Reset();
		return *ScriptedProvider;
	}

	FString ProjectPath(const FString& Relative) const
	{
		return ProjectDir + Relative;
	}
	void WriteBytes(const FString& Relative, const std::string& Bytes) const
	{
		const std::filesystem::path Target(Utf8(ProjectPath(Relative)));
		std::filesystem::create_directories(Target.parent_path());
		std::ofstream(Target, std::ios::binary | std::ios::trunc) << Bytes;
	}
	std::string ReadBytes(const FString& Relative) const
	{
		std::ifstream Stream(Utf8(ProjectPath(Relative)), std::ios::binary);
		return std::string(std::istreambuf_iterator<char>(Stream), std::istreambuf_iterator<char>());
	}
	bool Exists(const FString& Relative) const
	{
		return std::filesystem::exists(Utf8(ProjectPath(Relative)));
	}
	void MakeReadOnly(const FString& Relative) const
	{
		using std::filesystem::perms;
		std::filesystem::permissions(Utf8(ProjectPath(Relative)), perms::owner_write | perms::group_write | perms::others_write, std::filesystem::perm_options::remove);
	}
	static std::string Utf8(const FString& Text)
	{
		return std::string(TCHAR_TO_UTF8(*Text));
	}

	FString ProjectDir;
	FLogCapture Log;

private:
	TUniquePtr<FScriptedSourceControlProvider> ScriptedProvider;
};
