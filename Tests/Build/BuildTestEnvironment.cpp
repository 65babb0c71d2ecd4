#include "BuildTestEnvironment.h"

#include "HttpStandInSettings.h"
#include "Misc/OutputDeviceRedirector.h"
#include "Misc/StandInEngineLoop.h"
#include "Misc/StandInProject.h"
#include "Modules/ModuleManager.h"
#include "TestCertificate.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <memory>
#include <sstream>
#include <csignal>
#include <sys/file.h>
#include <thread>
#include <unistd.h>

namespace Fs = std::filesystem;

namespace
{
	const Fs::path SampleDir = BUILD_TESTS_SAMPLE_PROJECT_DIR;
	const Fs::path ScratchDir = BUILD_TESTS_SCRATCH_DIR;

	/** Copies a file with its modification time, so that make sees the copy as built as the original. */
	void CopyWithTime(const Fs::path& From, const Fs::path& To)
	{
		Fs::create_directories(To.parent_path());
		Fs::copy_file(From, To, Fs::copy_options::overwrite_existing);
		Fs::last_write_time(To, Fs::last_write_time(From));
	}

	void CopyTree(const Fs::path& From, const Fs::path& To)
	{
		for (const Fs::directory_entry& Entry : Fs::recursive_directory_iterator(From))
		{
			if (Entry.is_regular_file())
			{
				CopyWithTime(Entry.path(), To / Fs::relative(Entry.path(), From));
			}
		}
	}

	/** Makes To's files hold what From's hold, touching only those that differ, so that builds stay incremental. */
	void SyncTree(const Fs::path& From, const Fs::path& To)
	{
		for (const Fs::directory_entry& Entry : Fs::recursive_directory_iterator(From))
		{
			const Fs::path Target = To / Fs::relative(Entry.path(), From);
			if (Entry.is_regular_file() && (!Fs::exists(Target) || BuildTests::ReadText(Entry.path()) != BuildTests::ReadText(Target)))
			{
				Fs::create_directories(Target.parent_path());
				Fs::copy_file(Entry.path(), Target, Fs::copy_options::overwrite_existing);
			}
		}
		if (Fs::exists(To))
		{
			std::vector<Fs::path> Extra;
			for (const Fs::directory_entry& Entry : Fs::recursive_directory_iterator(To))
			{
				if (Entry.is_regular_file() && !Fs::exists(From / Fs::relative(Entry.path(), To)))
				{
					Extra.push_back(Entry.path());
				}
			}
			for (const Fs::path& Path : Extra)
			{
				Fs::remove(Path);
			}
		}
	}

	/**
	 * The sample built once for all test programs, under a lock since ctest runs them side by side.
	 * Copies of it start warm: a test's compile rebuilds only what the test changed.
	 */
	void PrepareBuiltTemplate(const Fs::path& Template)
	{
		Fs::create_directories(ScratchDir);
		const int LockFile = open((ScratchDir / "Template.lock").c_str(), O_CREAT | O_RDWR, 0644);
		ASSERT_GE(LockFile, 0);
		flock(LockFile, LOCK_EX);
		Fs::create_directories(Template);
		Fs::copy_file(SampleDir / "SampleProject.uproject", Template / "SampleProject.uproject", Fs::copy_options::overwrite_existing);
		SyncTree(SampleDir / "Config", Template / "Config");
		SyncTree(SampleDir / "Source", Template / "Source");
		const std::string Command = "cd '" + Template.string() + "' && STANDIN_CORE_INCLUDE_DIR='" BUILD_TESTS_CORE_INCLUDE_DIR "' make -s -f Source/StandInBuild.mk >/dev/null 2>&1";
		const int Status = std::system(Command.c_str());
		flock(LockFile, LOCK_UN);
		close(LockFile);
		ASSERT_EQ(Status, 0) << "the sample project must build: " << Command;
	}

	/** A program that crashed leaves its copy behind; its process is gone, so the copy can go. */
	void RemoveLeftoversOfEndedRuns()
	{
		for (const Fs::directory_entry& Entry : Fs::directory_iterator(ScratchDir))
		{
			const std::string Name = Entry.path().filename().string();
			if (Name.rfind("Run-", 0) == 0 && kill(std::atoi(Name.c_str() + 4), 0) != 0)
			{
				Fs::remove_all(Entry.path());
			}
		}
	}

	class FBuildTestEnvironment : public ::testing::Environment
	{
	public:
		void SetUp() override
		{
			const Fs::path Template = ScratchDir / "Template";
			PrepareBuiltTemplate(Template);
			RemoveLeftoversOfEndedRuns();
			ProjectDir = ScratchDir / ("Run-" + std::to_string(getpid()));
			Fs::remove_all(ProjectDir);
			CopyTree(Template, ProjectDir);
			Fs::create_directories(ProjectDir / "Content");

			Certificate = std::make_unique<FTemporaryCertificate>();
			ASSERT_TRUE(Certificate->IsValid()) << Certificate->GetError();
			FHttpStandInSettings::SetExtraCaFile(BuildTests::ToFString(Certificate->GetCertFile()));
			FLocalBackendOptions Options;
			Options.CertFile = Certificate->GetCertFile();
			Options.KeyFile = Certificate->GetKeyFile();
			std::string Error;
			ASSERT_TRUE(Backend.Start(Options, Error)) << Error;
			BuildTests::WriteText(ProjectDir / "Config" / "DefaultPlugin.ini",
				"[Tavrine]\nStage=Dev\nDevApiUrl=127.0.0.1:" + std::to_string(Backend.GetPort()) + "/dev\nDevApiKey=build-tests\n");

			FStandInProject::SetProjectFile(BuildTests::ToFString((ProjectDir / "SampleProject.uproject").string()));
			FStandInProject::SetEngineDir(BuildTests::ToFString((ProjectDir / "Engine").string()));
			// As in the editor: the engine is there before the plugins, so compiles can queue their deferred commands.
			ASSERT_NE(FModuleManager::Get().LoadModule(TEXT("UnrealEd")), nullptr);
			ASSERT_NE(FModuleManager::Get().LoadModule(TEXT("Tavrine")), nullptr);
			ASSERT_NE(FModuleManager::Get().LoadModule(TEXT("PythonScriptPlugin")), nullptr);
		}

		void TearDown() override
		{
			FModuleManager::Get().UnloadModulesAtShutdown();
			Backend.Stop();
			FStandInProject::Reset();
			Certificate.reset();
			Fs::remove_all(ProjectDir);
		}

		Fs::path ProjectDir;
		FLocalBackend Backend;
		std::unique_ptr<FTemporaryCertificate> Certificate;
	};

	FBuildTestEnvironment* const Environment = static_cast<FBuildTestEnvironment*>(::testing::AddGlobalTestEnvironment(new FBuildTestEnvironment()));
}

namespace BuildTests
{
	Fs::path GetProjectDir()
	{
		return Environment->ProjectDir;
	}

	FLocalBackend& GetBackend()
	{
		return Environment->Backend;
	}

	std::string ReadText(const Fs::path& Path)
	{
		std::ifstream Stream(Path, std::ios::binary);
		std::ostringstream Text;
		Text << Stream.rdbuf();
		return Text.str();
	}

	void WriteText(const Fs::path& Path, const std::string& Text)
	{
		Fs::create_directories(Path.parent_path());
		std::ofstream(Path, std::ios::binary | std::ios::trunc) << Text;
	}

	void EditProjectFile(const std::string& RelativePath, const std::string& Old, const std::string& New)
	{
		const Fs::path Path = GetProjectDir() / RelativePath;
		std::string Text = ReadText(Path);
		const size_t At = Text.find(Old);
		ASSERT_NE(At, std::string::npos) << "'" << Old << "' is not in " << RelativePath;
		Text.replace(At, Old.size(), New);
		WriteText(Path, Text);
	}

	void RestoreProject()
	{
		SyncTree(SampleDir / "Source", GetProjectDir() / "Source");
		CopyWithTime(SampleDir / "Config" / "DefaultEditor.ini", GetProjectDir() / "Config" / "DefaultEditor.ini");
	}

	void AddEditorConfig(const std::string& IniLines)
	{
		const Fs::path Path = GetProjectDir() / "Config" / "DefaultEditor.ini";
		WriteText(Path, ReadText(Path) + "\n" + IniLines + "\n");
	}

	bool PumpUntil(const std::function<bool()>& Done, double TimeoutSeconds)
	{
		const auto Deadline = std::chrono::steady_clock::now() + std::chrono::duration<double>(TimeoutSeconds);
		while (!Done())
		{
			if (std::chrono::steady_clock::now() > Deadline)
			{
				return false;
			}
			FStandInEngineLoop::Tick(0.01f);
			std::this_thread::sleep_for(std::chrono::milliseconds(5));
		}
		return true;
	}

	FLogCapture::FLogCapture()
	{
		GLog->AddOutputDevice(this);
	}

	FLogCapture::~FLogCapture()
	{
		GLog->RemoveOutputDevice(this);
	}

	void FLogCapture::Serialize(const TCHAR* V, ELogVerbosity::Type Verbosity, const FName& Category)
	{
		Lines.push_back(FLine { ToUtf8(Category.ToString()), Verbosity, ToUtf8(FString(V)) });
	}

	bool FLogCapture::Has(const std::string& Category, const std::string& TextPart) const
	{
		for (const FLine& Line : Lines)
		{
			if (Line.Category == Category && Line.Text.find(TextPart) != std::string::npos)
			{
				return true;
			}
		}
		return false;
	}
}
