// The daily prompt log: one UTF-8 file a local day in the plugin's folder, and the retention policy that
// the facade applies when it starts, all on the manual clock.
#include "Agent/TavrineInterface.h"
#include "HAL/FileManager.h"
#include "HAL/StandInClock.h"
#include "Misc/DateTime.h"
#include "Misc/StandInProject.h"
#include "ScratchDirectory.h"
#include "TavrineSettings.h"

#include "CoreTestPrinters.h"
#include <gtest/gtest.h>

namespace
{
	const std::string Bom = "\xEF\xBB\xBF";

	class FPromptLogTest : public ::testing::Test
	{
	protected:
		void SetUp() override
		{
			FStandInClock::UseManualTime(true);
			Scratch.WriteBytes(TEXT("Log.uproject"), "{}");
			FStandInProject::SetProjectFile(Scratch.Path(TEXT("Log.uproject")));
		}

		void TearDown() override
		{
			FTavrineInterface::Get().Shutdown();
			GetMutableDefault<UTavrineSettings>()->LogRetentionPolicy = ETavrineLogDeletionPolicy::KeepLast30Days;
			FStandInProject::Reset();
			FStandInClock::UseManualTime(false);
		}

		/** Starts the facade afresh under the policy: that sets up the folder and applies the policy. */
		static void Restart(ETavrineLogDeletionPolicy Policy)
		{
			GetMutableDefault<UTavrineSettings>()->LogRetentionPolicy = Policy;
			FTavrineInterface::Get().Shutdown();
			FTavrineInterface::Get().Initialize();
		}

		/** A log file of that age, by its modification time. */
		void MakeLog(const TCHAR* Name, FTimespan Age) const
		{
			const FString Relative = FString(TEXT("Plugins/tavrine-unreal/Logs/")) + Name;
			Scratch.WriteBytes(*Relative, "old entry\n");
			IFileManager::Get().SetTimeStamp(*Scratch.Path(*Relative), FDateTime::UtcNow() - Age);
		}

		bool HasLog(const TCHAR* Name) const
		{
			return std::filesystem::exists(Scratch.Native(*(FString(TEXT("Plugins/tavrine-unreal/Logs/")) + Name)));
		}

		static std::string ReadBytes(const FString& Path)
		{
			std::ifstream Stream(TCHAR_TO_UTF8(*Path), std::ios::binary);
			return std::string(std::istreambuf_iterator<char>(Stream), std::istreambuf_iterator<char>());
		}

		FScratchDirectory Scratch;
	};
}

TEST_F(FPromptLogTest, EntriesAppendToTheFileOfTheDayAndPastMidnightToTheNext)
{
	Restart(ETavrineLogDeletionPolicy::KeepAll);
	FTavrineInterface& Facade = FTavrineInterface::Get();
	// Half a second into the last but one second of the local day.
	const FDateTime Now = FDateTime::Now();
	FStandInClock::Advance(((Now.GetDate() + FTimespan::FromDays(1)) - Now).GetTotalSeconds() - 1.5);

	const FString Today = Facade.GetPromptLogFilePath();
	EXPECT_EQ(Today, Scratch.Dir() + TEXT("Plugins/tavrine-unreal/Logs/TavrinePrompts_") + FDateTime::Now().ToString(TEXT("%Y-%m-%d")) + TEXT(".log"));
	Facade.TavrineInterfaceLogString(TEXT("Gr\u00FC\u00DFe"), Today, true);
	Facade.TavrineInterfaceLogString(TEXT("no time"), Facade.GetPromptLogFilePath(), false);

	FStandInClock::Advance(3.0);
	const FString Tomorrow = Facade.GetPromptLogFilePath();
	EXPECT_NE(Tomorrow, Today);
	Facade.TavrineInterfaceLogString(TEXT("next day"), Tomorrow, true);

	// Each append is written as UTF-8 text with its mark, as the engine's forced UTF-8 writes it.
	EXPECT_EQ(ReadBytes(Today), Bom + "\n[23:59:58] Gr\xC3\xBC\xC3\x9F" "e\n\n" + Bom + "no time\n");
	EXPECT_EQ(ReadBytes(Tomorrow), Bom + "\n[00:00:01] next day\n\n");
}

TEST_F(FPromptLogTest, RetentionAtStartKeepsAFileExactlyThirtyDaysOld)
{
	Restart(ETavrineLogDeletionPolicy::KeepAll);
	MakeLog(TEXT("Thirty.log"), FTimespan::FromDays(30));
	MakeLog(TEXT("Older.log"), FTimespan::FromDays(30) + FTimespan::FromSeconds(1));
	MakeLog(TEXT("Fresh.log"), FTimespan::FromDays(1));
	MakeLog(TEXT("Notes.txt"), FTimespan::FromDays(400));

	Restart(ETavrineLogDeletionPolicy::KeepAll);
	EXPECT_TRUE(HasLog(TEXT("Older.log")));
	// A second start without a shutdown is none: the new policy waits.
	GetMutableDefault<UTavrineSettings>()->LogRetentionPolicy = ETavrineLogDeletionPolicy::DeleteAllOnStart;
	FTavrineInterface::Get().Initialize();
	EXPECT_TRUE(HasLog(TEXT("Fresh.log")));

	Restart(ETavrineLogDeletionPolicy::KeepLast30Days);
	EXPECT_FALSE(HasLog(TEXT("Older.log")));
	EXPECT_TRUE(HasLog(TEXT("Thirty.log")));
	EXPECT_TRUE(HasLog(TEXT("Fresh.log")));

	Restart(ETavrineLogDeletionPolicy::DeleteAllOnStart);
	EXPECT_FALSE(HasLog(TEXT("Thirty.log")));
	EXPECT_FALSE(HasLog(TEXT("Fresh.log")));
	// Only the logs are the policy's: other files in the folder stay.
	EXPECT_TRUE(HasLog(TEXT("Notes.txt")));
}
