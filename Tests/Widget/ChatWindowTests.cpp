#include "ChatWindowTestFixture.h"

#include "HAL/StandInClock.h"
#include "Misc/DateTime.h"
#include "Misc/Paths.h"
#include "Misc/StandInProject.h"
#include "ScratchDirectory.h"
#include "Widget/TavrineSavedMode.h"
#include "Widgets/Input/SButton.h"
#include "Widgets/Input/SComboBox.h"
#include "Widgets/Layout/SScrollBox.h"
#include "Widgets/Text/SMultiLineEditableText.h"

#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace
{
	void Say(const TCHAR* Text)
	{
		FTavrineInterface::Get().OnAddStatusMessage(Text, FTavrineInterface::TavrineColor, FTavrineInterface::BoldFontName, 10.0f);
	}
}

TEST_F(FChatWindowTest, HeadersShowOnceForASpeakerAndToolNamesAreCleanedOut)
{
	ASSERT_EQ(Entries().Num(), 1);
	EXPECT_TRUE(EntryTexts()[0].StartsWith(TEXT(" [ Tavrine ] \n\nI'm Tavrine")));
	EXPECT_TRUE(EntryTexts()[0].EndsWith(TEXT("amazing! \U0001F680\n")));

	// The welcome text set the header, so the next message of the assistant comes without it.
	Say(TEXT(" [ Tavrine ] \n\nHi\n"));
	Say(TEXT(" [ TAVRINE ] \n\nHello\n"));
	Say(TEXT(" [ Tavrine ] \n"));
	FTavrineInterface::Get().OnAddStatusMessage(TEXT(" [ User ]\n\nWhat now?"), FTavrineInterface::UserColor, FTavrineInterface::RegularFontName, 10.0f);
	Say(TEXT(" [ Tavrine ] \n\nBack"));
	Say(TEXT("read_file"));
	Say(TEXT("Calling **READ_BLUEPRINT** on BP_Door"));
	const TArray<FString> Texts = EntryTexts();
	ASSERT_EQ(Texts.Num(), 6);
	EXPECT_EQ(Texts[1], TEXT("Hi"));
	EXPECT_EQ(Texts[2], TEXT("Hello"));
	EXPECT_EQ(Texts[3], TEXT(" [ User ]\n\nWhat now?"));
	EXPECT_EQ(Texts[4], TEXT(" [ Tavrine ] \n\nBack"));
	EXPECT_EQ(Texts[5], TEXT("Calling  on BP_Door"));
}

TEST_F(FChatWindowTest, NoticeAnimatesAndGivesWayToTheNextMessage)
{
	Say(TEXT("Compiling..."));
	ASSERT_EQ(Entries().Num(), 2);
	TArray<FString> Seen;
	for (int32 Tick = 0; Tick < 5; ++Tick)
	{
		Wait(0.5);
		Seen.Add(EntryTexts().Last());
	}
	EXPECT_EQ(Seen, (TArray<FString>{ TEXT("Compiling."), TEXT("Compiling.."), TEXT("Compiling..."), TEXT("Compiling"), TEXT("Compiling.") }));

	// A second notice replaces the first; a notice never moves a speaker's header.
	Say(TEXT("Processing request..."));
	ASSERT_EQ(Entries().Num(), 2);
	EXPECT_EQ(EntryTexts().Last(), TEXT("Processing request..."));

	Say(TEXT(" [ Tavrine ] \n\nDone"));
	EXPECT_EQ(EntryTexts(), (TArray<FString>{ EntryTexts()[0], TEXT("Done") }));
	EXPECT_FALSE(Window->HasActiveTimers());
}

TEST_F(FChatWindowTest, ThePromptLogKeepsWhatTheChatShowsButNotPassingNotices)
{
	FScratchDirectory Scratch;
	Scratch.WriteBytes(TEXT("Log.uproject"), "{}");
	FStandInProject::SetProjectFile(Scratch.Path(TEXT("Log.uproject")));
	FTavrineInterface& Interface = FTavrineInterface::Get();
	GetMutableDefault<UTavrineSettings>()->LogRetentionPolicy = ETavrineLogDeletionPolicy::KeepAll;
	Interface.Shutdown();
	Interface.Initialize();

	// As the chat shows them: a notice not at all, a repeated header dropped, tool names cleaned out,
	// a line that cleans to nothing not at all, and a file change as its path and its new text.
	Say(TEXT("Processing request..."));
	Say(TEXT(" [ Tavrine ] \n\nHi **there**\n"));
	Say(TEXT("read_file"));
	Interface.OnAddDiffMessage(TEXT("Source/New.h"), TEXT("old"), TEXT("a\nb"));
	GetMutableDefault<UTavrineSettings>()->bDisplayFileChangesInChat = false;
	Interface.OnAddDiffMessage(TEXT("Source/Hidden.h"), TEXT(""), TEXT("x"));
	Say(TEXT("Compiling..."));
	Say(TEXT("Done"));

	const FString Stamp = FDateTime::Now().ToString(TEXT("[%H:%M:%S] "));
	std::string Expected;
	for (const TCHAR* Entry : { TEXT("Hi there"), TEXT("Source/New.h"), TEXT("a\nb"), TEXT("Done") })
	{
		Expected += "\xEF\xBB\xBF\n" + ToUtf8(Stamp + Entry) + "\n\n";
	}
	const FString LogFile = FPaths::GetCleanFilename(Interface.GetPromptLogFilePath());
	EXPECT_EQ(Scratch.ReadBytes(*(TEXT("Plugins/tavrine-unreal/Logs/") + LogFile)), Expected);

	Interface.Shutdown();
	GetMutableDefault<UTavrineSettings>()->LogRetentionPolicy = ETavrineLogDeletionPolicy::KeepLast30Days;
	FStandInProject::Reset();
}

TEST_F(FChatWindowTest, DiffBlocksNumberEachSideAndFollowTheSetting)
{
	FTavrineInterface& Interface = FTavrineInterface::Get();
	Interface.OnAddDiffMessage(TEXT("Source/New.h"), TEXT(""), TEXT("a\nb"));
	ASSERT_EQ(Entries().Num(), 2);
	// Path, the old column (empty for added lines), the new column, then prefix and text of each line.
	EXPECT_EQ(TextsUnder(Entries().Last()), (TArray<FString>{ TEXT("Source/New.h"), TEXT(""), TEXT(""), TEXT("1"), TEXT("2"), TEXT("+ "), TEXT("a"), TEXT("+ "), TEXT("b") }));

	Interface.OnAddDiffMessage(TEXT("Source/Old.h"), TEXT("a"), TEXT(""));
	EXPECT_EQ(TextsUnder(Entries().Last()), (TArray<FString>{ TEXT("Source/Old.h"), TEXT("1"), TEXT(""), TEXT("- "), TEXT("a") }));

	GetMutableDefault<UTavrineSettings>()->bDisplayFileChangesInChat = false;
	Interface.OnAddDiffMessage(TEXT("Source/Hidden.h"), TEXT(""), TEXT("x"));
	Say(TEXT("Still here"));
	EXPECT_EQ(EntryTexts().Last(1), TEXT("Source/Old.h"));
	EXPECT_EQ(EntryTexts().Last(), TEXT("Still here"));
}

TEST_F(FChatWindowTest, EnterAndTheButtonsFollowTheTurn)
{
	FAgent& Agent = FAgent::Get();
	EXPECT_FALSE(Button(TEXT("Undo")).IsEnabled());
	EXPECT_FALSE(Button(TEXT("Redo")).IsEnabled());
	EXPECT_FALSE(Button(TEXT("[ End ]")).IsEnabled());

	// Idle: an empty box sends nothing; Shift+Enter only adds a line end behind the text.
	EXPECT_FALSE(Button(TEXT("[ Start ]")).IsEnabled());
	EXPECT_TRUE(PressEnter());
	EXPECT_TRUE(Sent.IsEmpty());
	Type(TEXT("Hello"));
	EXPECT_TRUE(PressEnter(true));
	EXPECT_EQ(Typed(), TEXT("Hello\n"));
	EXPECT_TRUE(Sent.IsEmpty());

	EXPECT_TRUE(PressEnter());
	EXPECT_EQ(Agent.GetState(), EAgentState::InitialRequest);
	EXPECT_TRUE(Typed().IsEmpty());

	// While the request runs the box is closed, and Pause stands where Continue stood.
	Accept();
	EXPECT_EQ(Agent.GetState(), EAgentState::PollRequest);
	EXPECT_FALSE(Prompt->IsEnabled());
	EXPECT_FALSE(IsShown(TEXT("Continue")));
	EXPECT_TRUE(IsShown(TEXT("Pause")));
	EXPECT_TRUE(Button(TEXT("Pause")).IsEnabled());
	EXPECT_TRUE(Button(TEXT("[ End ]")).IsEnabled());

	// Awaiting approval: an empty box can't send; text goes the Continue way and aborts the waiting call.
	Complete(TEXT(R"({"response": [{"type": "tool_use", "name": "nope", "id": "t1", "input": {}}]})"));
	ASSERT_EQ(Agent.GetState(), EAgentState::AwaitingApproval);
	EXPECT_TRUE(Prompt->IsEnabled());
	EXPECT_TRUE(IsShown(TEXT("Continue")));
	EXPECT_FALSE(IsShown(TEXT("Pause")));
	EXPECT_FALSE(Button(TEXT("Continue")).IsEnabled());
	const int32 SentBefore = Sent.Num();
	PressEnter();
	EXPECT_EQ(Sent.Num(), SentBefore);
	Type(TEXT("No, stop"));
	EXPECT_TRUE(PressEnter());
	EXPECT_TRUE(Agent.GetPendingToolUses().IsEmpty());
	EXPECT_EQ(Sent.Num(), SentBefore + 1);

	// A click on Pause leaves it shown but closed; the answer's call then waits, and Continue with an
	// empty box runs it.
	Accept(TEXT("req-2"));
	Click(TEXT("Pause"));
	EXPECT_TRUE(IsShown(TEXT("Pause")));
	EXPECT_FALSE(Button(TEXT("Pause")).IsEnabled());
	Complete(TEXT(R"({"response": [{"type": "tool_use", "name": "nope", "id": "t2", "input": {}}]})"));
	ASSERT_EQ(Agent.GetState(), EAgentState::Pause);
	EXPECT_TRUE(Button(TEXT("Continue")).IsEnabled());
	Click(TEXT("Continue"));
	EXPECT_TRUE(Agent.GetPendingToolUses().IsEmpty());
	EXPECT_TRUE(LastBody()->HasField(TEXT("tool_results")));

	// Awaiting an update: Enter with text continues, which "[ Start ]" (closed outside Idle) never does.
	Accept(TEXT("req-3"));
	SetMode(ETavrineMode::ExplainerAndImplementerMode);
	Complete(TEXT(R"({"response": [{"type": "text", "text": "Ok"}]})"));
	ASSERT_EQ(Agent.GetState(), EAgentState::AwaitingUpdate);
	Type(TEXT("More"));
	EXPECT_FALSE(Button(TEXT("[ Start ]")).IsEnabled());
	EXPECT_TRUE(PressEnter());
	EXPECT_TRUE(LastBody()->HasField(TEXT("was_confirmed")));

	Click(TEXT("[ End ]"));
	EXPECT_EQ(Agent.GetState(), EAgentState::Idle);
	EXPECT_FALSE(Button(TEXT("[ End ]")).IsEnabled());
}

TEST_F(FChatWindowTest, AUsersScrollHoldsTheViewForTheSettingsTime)
{
	auto TickAfter = [this](double Seconds)
	{
		FStandInClock::Advance(Seconds);
		Window->Tick(FGeometry(), FStandInClock::GetSeconds(), 0.0f);
	};

	ScrollBox->StandInUserScrolled(40.0f, 400.0f);
	TickAfter(9.0);
	Say(TEXT("While you read"));
	EXPECT_EQ(ScrollBox->GetScrollOffset(), 40.0f);

	// The user's own action shows the end whatever the hold says.
	Type(TEXT("Go"));
	PressEnter();
	EXPECT_EQ(ScrollBox->GetScrollOffset(), 400.0f);

	ScrollBox->StandInUserScrolled(40.0f, 400.0f);
	TickAfter(10.5);
	EXPECT_FALSE(STavrineWidget::bUserScrolled);
	Say(TEXT("Later"));
	EXPECT_EQ(ScrollBox->GetScrollOffset(), 400.0f);
}

TEST_F(FChatWindowTest, TheModeSelectorSwitchesAndKeepsTheMode)
{
	const std::filesystem::path Root = std::filesystem::temp_directory_path() / ("TavrineModeTest-" + std::to_string(::getpid()));
	std::filesystem::create_directories(Root);
	std::ofstream(Root / "Sample.uproject") << "{}\n";
	FStandInProject::SetProjectFile(UTF8_TO_TCHAR((Root / "Sample.uproject").string().c_str()));

	UTavrineSettings* Settings = GetMutableDefault<UTavrineSettings>();
	ASSERT_EQ(Settings->Mode, ETavrineMode::ExplainerMode);
	const TArray<TSharedRef<SWidget>> Combos = FindAll(Window.ToSharedRef(), TEXT("SComboBox"));
	ASSERT_EQ(Combos.Num(), 1);
	SComboBox<TSharedPtr<FString>>& Selector = static_cast<SComboBox<TSharedPtr<FString>>&>(Combos[0].Get());
	EXPECT_EQ(TextsUnder(Combos[0]), TArray<FString>{ TEXT("Explainer Mode") });

	Selector.SetSelectedItem(Window->GetModeOptions()[1]);
	EXPECT_EQ(Settings->Mode, ETavrineMode::ExplainerAndImplementerMode);
	EXPECT_EQ(TextsUnder(Combos[0]), TArray<FString>{ TEXT("Explainer And Implementer Mode") });

	// The next session reads the saved choice back.
	Settings->Mode = ETavrineMode::ExplainerMode;
	FTavrineSavedMode::Load();
	EXPECT_EQ(Settings->Mode, ETavrineMode::ExplainerAndImplementerMode);
	Selector.SetSelectedItem(Window->GetModeOptions()[0]);
	FTavrineSavedMode::Load();
	EXPECT_EQ(Settings->Mode, ETavrineMode::ExplainerMode);
	FStandInProject::Reset();
	std::filesystem::remove_all(Root);
}
