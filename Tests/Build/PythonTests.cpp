// Generated Python scripts run by the editor's Python plugin: output, failures, and the files left behind.

#include "Agent/PythonUtils.h"
#include "BuildTestEnvironment.h"
#include "IPythonScriptPlugin.h"

#include <gtest/gtest.h>

#include <chrono>

using namespace BuildTests;
namespace Fs = std::filesystem;

namespace
{
	/** Files in the folder whose names start with Prefix. */
	std::vector<std::string> FilesStartingWith(const Fs::path& Folder, const std::string& Prefix)
	{
		std::vector<std::string> Found;
		if (Fs::exists(Folder))
		{
			for (const Fs::directory_entry& Entry : Fs::directory_iterator(Folder))
			{
				if (Entry.path().filename().string().rfind(Prefix, 0) == 0)
				{
					Found.push_back(Entry.path().filename().string());
				}
			}
		}
		return Found;
	}

	std::vector<std::string> LeftoverScripts()
	{
		return FilesStartingWith(GetProjectDir() / "Plugins" / "tavrine-unreal" / "Python", "generated_script_");
	}

	std::vector<std::string> LeftoverLogs()
	{
		return FilesStartingWith(GetProjectDir() / "Saved" / "Logs", "PythonScriptLog_");
	}

	FPythonScriptResult RunScript(const char* Code)
	{
		return FTavrinePythonUtils::CreateAndExecutePythonScript(ToFString(Code));
	}
}

class PythonTest : public ::testing::Test
{
protected:
	void TearDown() override
	{
		RestoreProject();
		EXPECT_TRUE(LeftoverScripts().empty());
	}
};

TEST_F(PythonTest, PrintedTextComesBackAndBothFilesAreGone)
{
	const FPythonScriptResult Result = RunScript("print('hello')\nprint('w\xC3\xB6rld', 42)");
	EXPECT_TRUE(Result.bSuccess);
	EXPECT_EQ(ToUtf8(Result.Message), "Python script completed: \nhello\nw\xC3\xB6rld 42\n");
	EXPECT_TRUE(Result.Details.IsEmpty());
	EXPECT_TRUE(LeftoverLogs().empty());

	const FPythonScriptResult Empty = RunScript("");
	EXPECT_TRUE(Empty.bSuccess);
	EXPECT_EQ(ToUtf8(Empty.Message), "Python script completed: \n");
	EXPECT_TRUE(LeftoverLogs().empty());
}

TEST_F(PythonTest, ExceptionGivesOutputBlankAndTraceback)
{
	const FPythonScriptResult Result = RunScript("print('before')\nraise ValueError('boom')");
	EXPECT_FALSE(Result.bSuccess);
	EXPECT_EQ(ToUtf8(Result.Message), "Error: Python script execution failed.");
	const std::string Details = ToUtf8(Result.Details);
	// The log file's text, one blank, then the plugin's result.
	EXPECT_EQ(Details.rfind("before\n Traceback (most recent call last):\n", 0), 0u) << Details;
	EXPECT_NE(Details.find("ValueError: boom"), std::string::npos) << Details;
	EXPECT_NE(Details.find("generated_script_"), std::string::npos) << "the traceback names the script: " << Details;
	EXPECT_TRUE(LeftoverLogs().empty());
}

TEST_F(PythonTest, SyntaxErrorRunsNothingSoThereIsNoLogToRead)
{
	const FPythonScriptResult Result = RunScript("def broken(:\n    pass");
	EXPECT_FALSE(Result.bSuccess);
	EXPECT_EQ(ToUtf8(Result.Message), "Error: Python script execution failed.");
	const std::string Details = ToUtf8(Result.Details);
	EXPECT_EQ(Details.rfind("Error: Failed to read Python script log file. ", 0), 0u) << Details;
	EXPECT_NE(Details.find("SyntaxError"), std::string::npos) << Details;
	EXPECT_TRUE(LeftoverLogs().empty());
}

TEST_F(PythonTest, ScriptThatCannotBeWrittenRunsNothing)
{
	// A file where the scripts' folder should be: the script can't be written.
	const Fs::path Folder = GetProjectDir() / "Plugins" / "tavrine-unreal" / "Python";
	Fs::remove_all(Folder);
	WriteText(Folder, "not a folder");
	FLogCapture Log;
	const FPythonScriptResult Result = RunScript("print('never')");
	Fs::remove(Folder);
	EXPECT_FALSE(Result.bSuccess);
	EXPECT_EQ(ToUtf8(Result.Message).rfind("Error: Failed to create directory: ", 0), 0u) << ToUtf8(Result.Message);
	EXPECT_TRUE(Result.Details.IsEmpty());
	EXPECT_FALSE(Log.Has("LogPython", "never"));
	EXPECT_TRUE(LeftoverLogs().empty());
}

TEST_F(PythonTest, UnrealModuleLogsToTheEditorLog)
{
	FLogCapture Log;
	const FPythonScriptResult Result = RunScript("import unreal\nunreal.log('to the log')\nunreal.log_warning('careful')\nunreal.log_error('bad')\nprint('printed')");
	EXPECT_TRUE(Result.bSuccess) << ToUtf8(Result.Details);
	EXPECT_EQ(ToUtf8(Result.Message), "Python script completed: \nprinted\n");
	EXPECT_TRUE(Log.Has("LogPython", "to the log"));
	EXPECT_TRUE(Log.Has("LogPython", "careful"));
	bool bErrorAtErrorLevel = false;
	for (const FLogCapture::FLine& Line : Log.Lines)
	{
		bErrorAtErrorLevel |= Line.Category == "LogPython" && Line.Text == "bad" && Line.Verbosity == ELogVerbosity::Error;
	}
	EXPECT_TRUE(bErrorAtErrorLevel);

	const FPythonScriptResult Missing = RunScript("import unreal\nunreal.EditorAssetLibrary");
	EXPECT_FALSE(Missing.bSuccess);
	EXPECT_NE(ToUtf8(Missing.Details).find("log, log_warning and log_error"), std::string::npos) << ToUtf8(Missing.Details);
}

TEST_F(PythonTest, ScriptThatNeverEndsIsStoppedAndFails)
{
	AddEditorConfig("[StandIn.Python]\nTimeoutSeconds=2");
	const auto Start = std::chrono::steady_clock::now();
	const FPythonScriptResult Result = RunScript("import time\nprint('started', flush=True)\nwhile True:\n    time.sleep(0.05)");
	const double Seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - Start).count();
	EXPECT_FALSE(Result.bSuccess);
	EXPECT_LT(Seconds, 30.0);
	const std::string Details = ToUtf8(Result.Details);
	EXPECT_EQ(Details.rfind("started\n ", 0), 0u) << Details;
	EXPECT_NE(Details.find("ran longer than 2 seconds"), std::string::npos) << Details;
	EXPECT_TRUE(LeftoverLogs().empty());
}

TEST_F(PythonTest, PluginEvaluatesAndReportsItsOwnErrors)
{
	IPythonScriptPlugin* Plugin = IPythonScriptPlugin::Get();
	ASSERT_NE(Plugin, nullptr);
	FPythonCommandEx Evaluate;
	Evaluate.ExecutionMode = EPythonCommandExecutionMode::EvaluateStatement;
	Evaluate.Command = TEXT("[n * n for n in range(4)]");
	EXPECT_TRUE(Plugin->ExecPythonCommandEx(Evaluate));
	EXPECT_EQ(Evaluate.CommandResult, TEXT("[0, 1, 4, 9]"));

	FPythonCommandEx Missing;
	Missing.Command = TEXT("/no/such/script.py --flag");
	EXPECT_FALSE(Plugin->ExecPythonCommandEx(Missing));
	EXPECT_TRUE(Missing.CommandResult.Contains(TEXT("/no/such/script.py")));

	// Literal code in file mode, with its output in the command's log.
	FPythonCommandEx Literal;
	Literal.Command = TEXT("import sys\nprint('out')\nprint('err', file=sys.stderr)");
	EXPECT_TRUE(Plugin->ExecPythonCommandEx(Literal));
	ASSERT_EQ(Literal.LogOutput.Num(), 2);
	EXPECT_EQ(Literal.LogOutput[0].Output, TEXT("out"));
	EXPECT_EQ(Literal.LogOutput[1].Type, EPythonLogOutputType::Error);
}
