// The compilation manager against the sample project's real build: Live Coding first, Hot Reload when it is off.

#include "Agent/CompilationManager.h"
#include "BuildTestEnvironment.h"
#include "Engine/Engine.h"
#include "Engine/StaticMesh.h"
#include "ILiveCodingModule.h"
#include "Misc/HotReloadInterface.h"
#include "Modules/ModuleManager.h"
#include "UObject/Package.h"

#include <gtest/gtest.h>

using namespace BuildTests;

DEFINE_LOG_CATEGORY_STATIC(LogCompile, Log, All);
DEFINE_LOG_CATEGORY_STATIC(LogLiveCoding, Log, All);

namespace
{
	const char* const ScoreKeeperSource = "Source/SampleProject/ScoreKeeper.cpp";

	struct FReport
	{
		int32 MessageCount = 0;
		std::string ToolId;
		std::string Logs;
		bool bSuccess = false;
		bool bOnGameThread = false;
		/** The deferred commands queued when the outcome was told. */
		std::vector<std::string> DeferredCommands;
	};

	std::vector<std::string> QueuedDeferredCommands()
	{
		std::vector<std::string> Commands;
		for (const FString& Command : GEngine->DeferredCommands)
		{
			Commands.push_back(ToUtf8(Command));
		}
		return Commands;
	}

	ILiveCodingModule& LiveCoding()
	{
		return FModuleManager::LoadModuleChecked<ILiveCodingModule>(TEXT(LIVE_CODING_MODULE_NAME));
	}

	IHotReloadInterface& HotReload()
	{
		return FModuleManager::LoadModuleChecked<IHotReloadInterface>(TEXT("HotReload"));
	}

	bool Contains(const std::string& Text, const std::string& Part)
	{
		return Text.find(Part) != std::string::npos;
	}
}

class CompileTest : public ::testing::Test
{
protected:
	void SetUp() override
	{
		Handle = FCompilationManager::OnCompilationFinishedDelegate.AddLambda([this](const TArray<TSharedPtr<FJsonObject>>& Messages, FString ToolId, FString Logs, bool bSuccess)
		{
			Reports.push_back(FReport { Messages.Num(), ToUtf8(ToolId), ToUtf8(Logs), bSuccess, IsInGameThread(), QueuedDeferredCommands() });
		});
		LiveCoding().EnableForSession(true);
		ASSERT_NE(GEngine, nullptr);
	}

	void TearDown() override
	{
		FCompilationManager::OnCompilationFinishedDelegate.Remove(Handle);
		LiveCoding().EnableForSession(true);
		RestoreProject();
	}

	void Compile(const char* ToolId, int32 MessageCount = 2)
	{
		TArray<TSharedPtr<FJsonObject>> Messages;
		for (int32 Index = 0; Index < MessageCount; ++Index)
		{
			Messages.Add(MakeShared<FJsonObject>());
		}
		FCompilationManager::CompileGameProject(ToFString(ToolId), Messages);
	}

	bool WaitForReports(size_t Count)
	{
		return PumpUntil([this, Count]() { return Reports.size() >= Count; });
	}

	FDelegateHandle Handle;
	std::vector<FReport> Reports;
};

TEST_F(CompileTest, LiveCodingReportsErrorThenSuccessThenNoChanges)
{
	EditProjectFile(ScoreKeeperSource, "Score += Points;", "Score += Points");
	Compile("toolu_broken");
	// Live Coding waits for the compile: the outcome is in before the call returns.
	ASSERT_EQ(Reports.size(), 1u);
	const FReport& Broken = Reports[0];
	EXPECT_FALSE(Broken.bSuccess);
	EXPECT_EQ(Broken.ToolId, "toolu_broken");
	EXPECT_EQ(Broken.MessageCount, 2);
	ASSERT_EQ(Broken.Logs.rfind("--- LiveCoding Console Output ---\n", 0), 0u) << Broken.Logs;
	const std::string ConsolePart = Broken.Logs.substr(0, Broken.Logs.find("\n\n--- General Compilation Logs ---\n"));
	EXPECT_TRUE(Contains(ConsolePart, "Source/SampleProject/ScoreKeeper.cpp:17:")) << ConsolePart;
	EXPECT_TRUE(Contains(ConsolePart, "error: expected \u2018;\u2019") || Contains(ConsolePart, "error: expected ';'")) << ConsolePart;
	// Only error and warning lines of the build tool's log make the first part.
	EXPECT_FALSE(Contains(ConsolePart, "[Compile]")) << ConsolePart;
	EXPECT_TRUE(Contains(Broken.Logs, "\n\n--- General Compilation Logs ---\n[LogLiveCoding] Starting Live Coding compile.\n")) << Broken.Logs;

	RestoreProject();
	Compile("toolu_fixed");
	ASSERT_EQ(Reports.size(), 2u);
	EXPECT_TRUE(Reports[1].bSuccess) << Reports[1].Logs;
	EXPECT_FALSE(Contains(Reports[1].Logs, "error:")) << Reports[1].Logs;
	EXPECT_TRUE(Contains(Reports[1].Logs, "[LogLiveCoding] Live coding succeeded\n")) << Reports[1].Logs;

	Compile("toolu_again", 0);
	ASSERT_EQ(Reports.size(), 3u);
	const FReport& Unchanged = Reports[2];
	EXPECT_TRUE(Unchanged.bSuccess);
	// Nothing for the console part: the log holds no error or warning, so its heading is left out.
	EXPECT_EQ(Unchanged.Logs.rfind("\n\n--- General Compilation Logs ---\n", 0), 0u) << Unchanged.Logs;
	EXPECT_TRUE(Contains(Unchanged.Logs, "[LogLiveCoding] No code changes detected.\n")) << Unchanged.Logs;

	// The messages went back with the outcome and are not kept for the next report.
	FCompilationManager::OnLiveCodingCompilationFinished(FString(), ELiveCodingCompileResult::CompileStillActive);
	ASSERT_EQ(Reports.size(), 4u);
	EXPECT_EQ(Reports[3].MessageCount, 0);
	EXPECT_FALSE(Reports[3].bSuccess);
}

TEST_F(CompileTest, HotReloadRunsWhenLiveCodingIsOffAndReportsOnTheGameThreadLater)
{
	LiveCoding().EnableForSession(false);
	EditProjectFile(ScoreKeeperSource, "return TEXT(\"Gold\");", "return TEXT(\"Gold\")");
	Compile("toolu_hot");
	EXPECT_TRUE(Reports.empty()) << "the Hot Reload path reports through the module's event";
	EXPECT_TRUE(HotReload().IsCurrentlyCompiling());

	ASSERT_TRUE(WaitForReports(1));
	const FReport& Broken = Reports[0];
	EXPECT_FALSE(Broken.bSuccess);
	EXPECT_EQ(Broken.ToolId, "toolu_hot");
	EXPECT_EQ(Broken.MessageCount, 2);
	EXPECT_TRUE(Contains(Broken.Logs, "Source/SampleProject/ScoreKeeper.cpp:37:9: error: expected")) << Broken.Logs;
	// The compiler's output comes first, then each captured line after a line end.
	EXPECT_TRUE(Contains(Broken.Logs, "\n[LogCompile] ")) << Broken.Logs;
	EXPECT_FALSE(HotReload().OnModuleCompilerFinished().IsBound()) << "a binding serves one compile";

	EXPECT_TRUE(Broken.bOnGameThread);

	// A second request while the build runs starts nothing: the running build's end reports once, to it.
	RestoreProject();
	Compile("toolu_hot_fixed");
	Compile("toolu_hot_asked_again", 1);
	ASSERT_TRUE(WaitForReports(2));
	PumpUntil([]() { return false; }, 0.5);
	ASSERT_EQ(Reports.size(), 2u);
	EXPECT_TRUE(Reports[1].bSuccess) << Reports[1].Logs;
	EXPECT_EQ(Reports[1].ToolId, "toolu_hot_asked_again");
	EXPECT_EQ(Reports[1].MessageCount, 1);
}

TEST_F(CompileTest, ProjectWithoutBuildCommandHasNoLiveCodingAndFailsThroughHotReload)
{
	WriteText(GetProjectDir() / "Config" / "DefaultEditor.ini", "; no build command\n");
	EXPECT_FALSE(LiveCoding().IsEnabledForSession());
	Compile("toolu_nothing");
	ASSERT_TRUE(WaitForReports(1));
	EXPECT_FALSE(Reports[0].bSuccess);
	EXPECT_TRUE(Contains(Reports[0].Logs, "The project has no build command")) << Reports[0].Logs;
}

TEST_F(CompileTest, CapturesOnlyTheCompileCategoriesAndFiltersWithoutCase)
{
	FCompilationManager::CaptureCompilationLogs();
	UE_LOG(LogTemp, Error, TEXT("error: not the compiler's"));
	UE_LOG(LogCompile, Display, TEXT("Module.cpp(3): Error C2143: syntax"));
	UE_LOG(LogLiveCoding, Warning, TEXT("patch took %d ms"), 12);
	const TArray<FString>& Logs = FCompilationManager::GetCompilationLogs();
	ASSERT_EQ(Logs.Num(), 2);
	EXPECT_EQ(Logs[0], TEXT("[LogCompile] Module.cpp(3): Error C2143: syntax"));
	EXPECT_EQ(Logs[1], TEXT("[LogLiveCoding] patch took 12 ms"));

	const TArray<FString> Errors = FCompilationManager::FilterCompilationErrors(TEXT("error"));
	ASSERT_EQ(Errors.Num(), 1);
	EXPECT_EQ(Errors[0], Logs[0]);

	// Each compile starts from an empty list.
	FCompilationManager::CaptureCompilationLogs();
	EXPECT_EQ(FCompilationManager::GetCompilationLogs().Num(), 0);
}

TEST_F(CompileTest, OnlySuccessAndNoChangesSucceedAndTheRescanIsQueuedAroundTheReport)
{
	const FString BuildToolLog = TEXT("Module.cpp:3:1: error: expected ';'\n");
	FCompilationManager::CaptureCompilationLogs();
	for (int32 Code = 0; Code <= 7; ++Code)
	{
		GEngine->DeferredCommands.Reset();
		FCompilationManager::OnLiveCodingCompilationFinished(Code == 7 ? FString() : BuildToolLog, static_cast<ELiveCodingCompileResult>(Code));
		ASSERT_EQ(Reports.size(), static_cast<size_t>(Code + 1));
		const bool bExpectSuccess = Code == 0 || Code == 1;
		EXPECT_EQ(Reports.back().bSuccess, bExpectSuccess) << "result code " << Code;
		// On this path the rescan is queued before the agent hears of the outcome.
		EXPECT_EQ(Reports.back().DeferredCommands, bExpectSuccess ? std::vector<std::string> { "RescanAllBlueprintClasses" } : std::vector<std::string> {}) << "result code " << Code;
	}
	EXPECT_EQ(Reports[0].Logs, "--- LiveCoding Console Output ---\nModule.cpp:3:1: error: expected ';'\n");
	FCompilationManager::OnLiveCodingCompilationFinished(FString(), ELiveCodingCompileResult::NoChanges);
	EXPECT_EQ(Reports.back().Logs, "");
	EXPECT_TRUE(Reports.back().bSuccess);

	// The two parts together, captured lines in the order they were logged.
	UE_LOG(LogLiveCoding, Display, TEXT("first"));
	UE_LOG(LogCompile, Error, TEXT("second"));
	FCompilationManager::OnLiveCodingCompilationFinished(BuildToolLog, ELiveCodingCompileResult::Failure);
	EXPECT_EQ(Reports.back().Logs, "--- LiveCoding Console Output ---\nModule.cpp:3:1: error: expected ';'\n\n\n--- General Compilation Logs ---\n[LogLiveCoding] first\n[LogCompile] second\n");

	// Hot Reload: the compiler's output, then a line end before each captured line; the rescan comes after the report.
	GEngine->DeferredCommands.Reset();
	FCompilationManager::OnHotReloadCompilationFinished(TEXT("[Compile] Module.cpp"), ECompilationResult::Succeeded, false);
	EXPECT_EQ(Reports.back().Logs, "[Compile] Module.cpp\n[LogLiveCoding] first\n[LogCompile] second");
	EXPECT_TRUE(Reports.back().bSuccess);
	EXPECT_TRUE(Reports.back().DeferredCommands.empty());
	EXPECT_EQ(QueuedDeferredCommands(), (std::vector<std::string> { "RescanAllBlueprintClasses", "HotReload.ModuleCompilationFinished" }));
	// The engine runs them on a later tick.
	PumpUntil([]() { return GEngine->DeferredCommands.IsEmpty(); }, 5.0);
	EXPECT_TRUE(GEngine->DeferredCommands.IsEmpty());

	FCompilationManager::OnHotReloadCompilationFinished(TEXT("error"), ECompilationResult::OtherCompilationError, true);
	EXPECT_FALSE(Reports.back().bSuccess);
	EXPECT_TRUE(GEngine->DeferredCommands.IsEmpty());
}

TEST_F(CompileTest, DirtyPackagesAreSavedBeforeTheCompile)
{
	UStaticMesh* Changed = NewObject<UStaticMesh>(CreatePackage(TEXT("/Game/CompileSave/Changed")), FName(TEXT("Changed")), RF_Public | RF_Standalone);
	UStaticMesh* Level = NewObject<UStaticMesh>(CreatePackage(TEXT("/Game/CompileSave/Level")), FName(TEXT("Level")), RF_Public | RF_Standalone);
	Level->GetOutermost()->SetPackageFlags(PKG_ContainsMap);
	Changed->Modify();
	Level->Modify();

	Compile("toolu_saves");
	ASSERT_EQ(Reports.size(), 1u);
	EXPECT_FALSE(Changed->GetOutermost()->IsDirty());
	EXPECT_FALSE(Level->GetOutermost()->IsDirty());
	EXPECT_TRUE(std::filesystem::exists(GetProjectDir() / "Content" / "CompileSave" / "Changed.uasset"));
	// A world package too is saved under the asset extension.
	EXPECT_TRUE(std::filesystem::exists(GetProjectDir() / "Content" / "CompileSave" / "Level.uasset"));
}
