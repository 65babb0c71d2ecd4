// The daily prompt log: one UTF-8 file a local day in the plugin's folder, and the retention policy that
// the facade applies when it starts, on the manual clock.
#include "Agent/TavrineInterface.h"
#include "HAL/FileManager.h"
#include "HAL/StandInClock.h"
#include "Misc/Paths.h"
#include "Misc/StandInProject.h"
#include "ScratchDirectory.h"
#include "TavrineSettings.h"

#include "CoreTestPrinters.h"
#include <gtest/gtest.h>

TEST(PromptLog, EntriesGoToTheFileOfTheDayAndOldFilesGoByThePolicyAtStart)
{
	FScratchDirectory Scratch;
	Scratch.WriteBytes(TEXT("Log.uproject"), "{}");
	FStandInProject::SetProjectFile(Scratch.Path(TEXT("Log.uproject")));
	FStandInClock::UseManualTime(true);
	FTavrineInterface& Facade = FTavrineInterface::Get();
	const FString Logs = TEXT("Plugins/tavrine-unreal/Logs/");
	const auto Restart = [&Facade](ETavrineLogDeletionPolicy Policy)
	{
		GetMutableDefault<UTavrineSettings>()->LogRetentionPolicy = Policy;
		Facade.Shutdown();
		Facade.Initialize();
	};
	Restart(ETavrineLogDeletionPolicy::KeepAll);

	// Half a second into the last but one second of the local day, then past midnight.
	const FDateTime Now = FDateTime::Now();
	FStandInClock::Advance(((Now.GetDate() + FTimespan::FromDays(1)) - Now).GetTotalSeconds() - 1.5);
	const FString Today = TEXT("TavrinePrompts_") + FDateTime::Now().ToString(TEXT("%Y-%m-%d")) + TEXT(".log");
	ASSERT_EQ(Facade.GetPromptLogFilePath(), Scratch.Path(*(Logs + Today)));
	Facade.TavrineInterfaceLogString(TEXT("Gr\u00FC\u00DFe"), Facade.GetPromptLogFilePath(), true);
	Facade.TavrineInterfaceLogString(TEXT("no time"), Facade.GetPromptLogFilePath(), false);
	FStandInClock::Advance(3.0);
	const FString Tomorrow = FPaths::GetCleanFilename(Facade.GetPromptLogFilePath());
	EXPECT_NE(Tomorrow, Today);
	Facade.TavrineInterfaceLogString(TEXT("next day"), Facade.GetPromptLogFilePath(), true);
	// Each append is UTF-8 with its mark, as the engine's forced UTF-8 writes it.
	const std::string Bom = "\xEF\xBB\xBF";
	EXPECT_EQ(Scratch.ReadBytes(*(Logs + Today)), Bom + "\n[23:59:58] Gr\xC3\xBC\xC3\x9F" "e\n\n" + Bom + "no time\n");
	EXPECT_EQ(Scratch.ReadBytes(*(Logs + Tomorrow)), Bom + "\n[00:00:01] next day\n\n");

	for (const auto& [Name, Age] : { std::pair(TEXT("Thirty.log"), FTimespan::FromDays(30)), std::pair(TEXT("Older.log"), FTimespan::FromDays(30) + FTimespan::FromSeconds(1)),
		std::pair(TEXT("Notes.txt"), FTimespan::FromDays(400)) })
	{
		Scratch.WriteBytes(*(Logs + Name), "old entry\n");
		IFileManager::Get().SetTimeStamp(*Scratch.Path(*(Logs + Name)), FDateTime::UtcNow() - Age);
	}
	const auto Has = [&Scratch, &Logs](const TCHAR* Name) { return std::filesystem::exists(Scratch.Native(*(Logs + Name))); };
	Restart(ETavrineLogDeletionPolicy::KeepAll);
	EXPECT_TRUE(Has(TEXT("Older.log")));
	// A second start without a shutdown is none: the new policy waits.
	GetMutableDefault<UTavrineSettings>()->LogRetentionPolicy = ETavrineLogDeletionPolicy::DeleteAllOnStart;
	Facade.Initialize();
	EXPECT_TRUE(Has(TEXT("Older.log")));
	Restart(ETavrineLogDeletionPolicy::KeepLast30Days);
	EXPECT_FALSE(Has(TEXT("Older.log")));
	EXPECT_TRUE(Has(TEXT("Thirty.log")));
	Restart(ETavrineLogDeletionPolicy::DeleteAllOnStart);
	EXPECT_FALSE(Has(TEXT("Thirty.log")));
	EXPECT_FALSE(Has(*Tomorrow));
	// Only the logs are the policy's.
	EXPECT_TRUE(Has(TEXT("Notes.txt")));

	Facade.Shutdown();
	GetMutableDefault<UTavrineSettings>()->LogRetentionPolicy = ETavrineLogDeletionPolicy::KeepLast30Days;
	FStandInProject::Reset();
	FStandInClock::UseManualTime(false);
}
