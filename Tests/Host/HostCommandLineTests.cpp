#include "HostOptions.h"
#include "HostProject.h"
#include "ScratchDirectory.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

namespace
{
	std::optional<FHostOptions> Parse(std::initializer_list<const char*> Args, std::string& Error)
	{
		std::vector<std::string> Storage{"tavrine"};
		Storage.insert(Storage.end(), Args.begin(), Args.end());
		std::vector<char*> ArgV;
		for (std::string& Arg : Storage)
		{
			ArgV.push_back(Arg.data());
		}
		return ParseHostOptions(static_cast<int>(ArgV.size()), ArgV.data(), "/default/project", Error);
	}

	std::string ParseError(std::initializer_list<const char*> Args)
	{
		std::string Error;
		EXPECT_FALSE(Parse(Args, Error).has_value());
		return Error;
	}
}

TEST(HostCommandLine, OptionsAndTheirDefaults)
{
	std::string Error;
	const std::optional<FHostOptions> Bare = Parse({}, Error);
	ASSERT_TRUE(Bare.has_value());
	EXPECT_EQ(Bare->ProjectPath, "/default/project");
	EXPECT_TRUE(Bare->bInteractive) << "without a prompt the host reads the terminal";
	EXPECT_EQ(Bare->SourceControl, "auto");

	const std::optional<FHostOptions> Full = Parse({"--project", "P", "--prompt", "Make a door", "--timeout", "2.5", "--source-control", "none", "--no-color", "--verbose"}, Error);
	ASSERT_TRUE(Full.has_value());
	EXPECT_EQ(Full->ProjectPath, "P");
	EXPECT_EQ(Full->Prompt, "Make a door");
	EXPECT_FALSE(Full->bInteractive);
	EXPECT_DOUBLE_EQ(Full->TimeoutSeconds, 2.5);
	EXPECT_EQ(Full->SourceControl, "none");
	EXPECT_FALSE(Full->bColor);
	EXPECT_TRUE(Full->bVerbose);

	const std::optional<FHostOptions> Both = Parse({"--prompt", "Hi", "--interactive"}, Error);
	ASSERT_TRUE(Both.has_value());
	EXPECT_TRUE(Both->bInteractive) << "a first prompt, then the terminal";
}

TEST(HostCommandLine, BadCommandLinesSayWhatIsWrong)
{
	EXPECT_EQ(ParseError({"--prompt"}), "--prompt needs a value");
	EXPECT_EQ(ParseError({"--timeout", "soon"}), "--timeout takes a positive number of seconds, not 'soon'");
	EXPECT_EQ(ParseError({"--timeout", "-3"}), "--timeout takes a positive number of seconds, not '-3'");
	EXPECT_EQ(ParseError({"--timeout", "5s"}), "--timeout takes a positive number of seconds, not '5s'");
	EXPECT_EQ(ParseError({"--source-control", "svn"}), "--source-control takes auto, git or none, not 'svn'");
	EXPECT_EQ(ParseError({"--frobnicate"}), "unknown argument '--frobnicate'");
	// Help is not an error: no message, and the caller prints the usage.
	EXPECT_EQ(ParseError({"--help"}), "");
}

TEST(HostProject, ProjectFolderShapeAndStageFile)
{
	FScratchDirectory Scratch;
	std::string Error;
	EXPECT_EQ(ResolveProjectFile(TCHAR_TO_UTF8(*Scratch.Path(TEXT("Missing"))), Error), "");
	EXPECT_NE(Error.find("does not exist"), std::string::npos) << Error;

	Scratch.WriteBytes(TEXT("Game/Config/DefaultGame.ini"), "");
	const std::string GameDir = TCHAR_TO_UTF8(*Scratch.Path(TEXT("Game")));
	EXPECT_EQ(ResolveProjectFile(GameDir, Error), "");
	EXPECT_NE(Error.find("has no .uproject file"), std::string::npos) << Error;

	Scratch.WriteBytes(TEXT("Game/Game.uproject"), "{}");
	EXPECT_EQ(ResolveProjectFile(GameDir, Error), "");
	EXPECT_NE(Error.find("has no Source/ folder"), std::string::npos) << Error;

	Scratch.WriteBytes(TEXT("Game/Source/.keep"), "");
	Scratch.WriteBytes(TEXT("Game/Content/.keep"), "");
	Error.clear();
	const std::string Resolved = ResolveProjectFile(GameDir, Error);
	EXPECT_EQ(Error, "");
	EXPECT_EQ(Resolved.substr(Resolved.size() - std::string("/Game/Game.uproject").size()), "/Game/Game.uproject");
	EXPECT_EQ(ResolveProjectFile(Resolved, Error), Resolved) << "the .uproject itself names the same project";
	EXPECT_EQ(ResolveProjectFile(TCHAR_TO_UTF8(*Scratch.Path(TEXT("Game/Config/DefaultGame.ini"))), Error), "");
	EXPECT_NE(Error.find("is not a .uproject file"), std::string::npos) << Error;

	Scratch.WriteBytes(TEXT("Game/Other.uproject"), "{}");
	EXPECT_EQ(ResolveProjectFile(GameDir, Error), "");
	EXPECT_NE(Error.find("more than one .uproject"), std::string::npos) << Error;

	// The stage file: absent is fine (the module's defaults apply); present, it must name a stage with a URL.
	EXPECT_EQ(CheckPluginIni(GameDir), "");
	Scratch.WriteBytes(TEXT("Game/Config/DefaultPlugin.ini"), "[Tavrine]\nStage=Sandbox\nDevApiUrl=127.0.0.1:8443/dev\n");
	EXPECT_NE(CheckPluginIni(GameDir).find("the stage Sandbox has no SandboxApiUrl"), std::string::npos);
	Scratch.WriteBytes(TEXT("Game/Config/DefaultPlugin.ini"), "[Tavrine]\nStage=Live\n");
	EXPECT_NE(CheckPluginIni(GameDir).find("unknown Stage 'Live'"), std::string::npos);
	Scratch.WriteBytes(TEXT("Game/Config/DefaultPlugin.ini"), "[Other]\nStage=Dev\n");
	EXPECT_NE(CheckPluginIni(GameDir).find("has no Stage in its [Tavrine] section"), std::string::npos);
	Scratch.WriteBytes(TEXT("Game/Config/DefaultPlugin.ini"), "[Tavrine]\nStage=dev\nDevApiUrl=127.0.0.1:8443/dev\n");
	EXPECT_EQ(CheckPluginIni(GameDir), "") << "stage names compare as the engine's strings do, without case";
}
