// The stand-in's project build on its own: what it hands on, what it writes, and when it gives up.

#include "BuildTestEnvironment.h"
#include "Misc/Paths.h"
#include "StandInProjectBuild.h"

#include <gtest/gtest.h>

using namespace BuildTests;

class ProjectBuildTest : public ::testing::Test
{
protected:
	void TearDown() override
	{
		RestoreProject();
	}

	void UseBuildConfig(const std::string& Lines)
	{
		WriteText(GetProjectDir() / "Config" / "DefaultEditor.ini", "[StandIn.Build]\n" + Lines + "\n");
	}
};

TEST_F(ProjectBuildTest, LinesArriveAsWrittenAndTheLogKeepsThem)
{
	// A last line without its line end, and text that isn't ASCII.
	UseBuildConfig("BuildCommand=printf 'one\\r\\ncaf\\303\\251 warning: two'; exit 1");
	std::vector<std::string> Seen;
	FStandInProjectBuild Build([&Seen](const FString& Line) { Seen.push_back(ToUtf8(Line)); });
	ASSERT_TRUE(Build.Start());
	Build.Wait();
	EXPECT_EQ(Build.GetResult(), FStandInProjectBuild::EResult::Failed);
	ASSERT_EQ(Seen.size(), 3u);
	EXPECT_EQ(Seen[0], "one");
	EXPECT_EQ(Seen[1], "caf\xC3\xA9 warning: two");
	EXPECT_EQ(Seen[2], "The build command ended with exit code 1.");

	const std::string Log = ReadText(ToUtf8(FStandInProjectBuild::GetLogFilePath()));
	EXPECT_EQ(ToUtf8(FStandInProjectBuild::GetLogFilePath()), (GetProjectDir() / "Engine" / "Programs" / "UnrealBuildTool" / "Log.txt").string());
	EXPECT_NE(Log.find("\none\ncaf\xC3\xA9 warning: two\n"), std::string::npos) << Log;
	EXPECT_NE(Log.find("Result: Failed"), std::string::npos) << Log;
}

TEST_F(ProjectBuildTest, UpToDateOnlyWhenTheProductWasThereAndUntouched)
{
	UseBuildConfig("BuildCommand=touch Built.txt\nBuildProduct=Built.txt");
	FStandInProjectBuild First;
	ASSERT_TRUE(First.Start());
	First.Wait();
	EXPECT_EQ(First.GetResult(), FStandInProjectBuild::EResult::Succeeded);

	UseBuildConfig("BuildCommand=true\nBuildProduct=Built.txt");
	FStandInProjectBuild Second;
	ASSERT_TRUE(Second.Start());
	Second.Wait();
	EXPECT_EQ(Second.GetResult(), FStandInProjectBuild::EResult::UpToDate);
	EXPECT_EQ(ToUtf8(Second.GetOutputLines().Last()), "Target is up to date");
}

TEST_F(ProjectBuildTest, BuildThatRunsTooLongIsStopped)
{
	UseBuildConfig("BuildCommand=echo started; sleep 60\nTimeoutSeconds=1");
	FStandInProjectBuild Build;
	ASSERT_TRUE(Build.Start());
	Build.Wait();
	EXPECT_EQ(Build.GetResult(), FStandInProjectBuild::EResult::Failed);
	ASSERT_EQ(Build.GetOutputLines().Num(), 2);
	EXPECT_EQ(Build.GetOutputLines()[0], TEXT("started"));
	EXPECT_EQ(Build.GetOutputLines()[1], TEXT("The build was stopped: it ran longer than 1 seconds."));
}
