// The browser window's server side: frames of the widget tree, the page's events as Slate input, and
// what the server hands out.
#include "Brushes/SlateImageBrush.h"
#include "Dom/JsonObject.h"
#include "Framework/Application/SlateApplication.h"
#include "Framework/Docking/TabManager.h"
#include "HAL/PlatformProcess.h"
#include "Serialization/JsonReader.h"
#include "Serialization/JsonSerializer.h"
#include "Ui/SlatePageEvents.h"
#include "Ui/SlatePageServer.h"
#include "Ui/SlatePageSnapshot.h"
#include "ToolMenus.h"
#include "Widgets/Docking/SDockTab.h"
#include "Widgets/Images/SImage.h"
#include "Widgets/Input/SComboBox.h"
#include "Widgets/Layout/SScrollBox.h"
#include "Widgets/Text/STextBlock.h"
#include "Widgets/Input/SButton.h"
#include "Widgets/SBoxPanel.h"
#include "Widgets/Text/SMultiLineEditableText.h"

#include <gtest/gtest.h>
#include <httplib.h>

#include <fstream>

namespace
{
	TSharedPtr<FJsonObject> ParseObject(const FString& Text)
	{
		TSharedPtr<FJsonObject> Object;
		FJsonSerializer::Deserialize(TJsonReaderFactory<>::Create(Text), Object);
		return Object;
	}

	TSharedRef<FJsonObject> Event(const FString& Json)
	{
		TSharedPtr<FJsonObject> Object = ParseObject(Json);
		return Object.ToSharedRef();
	}

	class SlatePageTest : public testing::Test
	{
	protected:
		void SetUp() override
		{
			Root = SNew(SVerticalBox)
				.IsEnabled_Lambda([this]() { return bPanelEnabled; })
				+ SVerticalBox::Slot()[SAssignNew(Send, SButton).OnClicked_Lambda([this]() { ++Clicks; return FReply::Handled(); })]
				+ SVerticalBox::Slot()[SAssignNew(Hidden, SButton).Visibility(EVisibility::Collapsed).OnClicked_Lambda([this]() { ++Clicks; return FReply::Handled(); })]
				+ SVerticalBox::Slot()[SAssignNew(Input, SMultiLineEditableText)]
				+ SVerticalBox::Slot()[SNew(SImage).Image(&Icon)];
			Input->SetOnKeyDownHandler(FOnKeyDown::CreateLambda([this](const FGeometry&, const FKeyEvent& Key)
			{
				if (Key.GetKey() == EKeys::Enter && !Key.IsShiftDown())
				{
					Sent = Input->GetText().ToString();
					return FReply::Handled();
				}
				return FReply::Unhandled();
			}));
			FSlateApplication::Get().StandInAddRoot(Root.ToSharedRef());
		}
		void TearDown() override
		{
			FSlateApplication::Get().StandInRemoveRoot(Root.ToSharedRef());
			FSlateApplication::Shutdown();
		}
		FString Id(const TSharedPtr<SWidget>& Widget) const
		{
			return FString::Printf(TEXT("%llu"), static_cast<unsigned long long>(Widget->GetStandInId()));
		}

		FSlateImageBrush Icon{FString(TEXT("/plugin/Resources/Icon.svg")), FVector2D(16.0, 16.0)};
		TSharedPtr<SVerticalBox> Root;
		TSharedPtr<SButton> Send;
		TSharedPtr<SButton> Hidden;
		TSharedPtr<SMultiLineEditableText> Input;
		bool bPanelEnabled = true;
		int32 Clicks = 0;
		FString Sent;
	};
}

TEST_F(SlatePageTest, FramesShowEffectiveStateAndEventsReachOnlyWhatTheUserCouldReach)
{
	FSlatePageSnapshot Snapshot;
	bPanelEnabled = false;
	TSharedPtr<FJsonObject> Frame = ParseObject(Snapshot.Build(7));
	ASSERT_TRUE(Frame.IsValid());
	EXPECT_EQ(Frame->GetNumberField(TEXT("ack")), 7.0);
	const TSharedPtr<FJsonObject> RootNode = Frame->GetArrayField(TEXT("roots"))[0]->AsObject();
	const TArray<TSharedPtr<FJsonValue>>& Slots = RootNode->GetArrayField(TEXT("children"));
	ASSERT_EQ(Slots.Num(), 4);
	// A child of a disabled panel is disabled, whatever it says itself; a collapsed one lists no children.
	const TSharedPtr<FJsonObject> SendNode = Slots[0]->AsObject()->GetObjectField(TEXT("widget"));
	EXPECT_EQ(SendNode->GetStringField(TEXT("kind")), TEXT("button"));
	EXPECT_FALSE(SendNode->GetBoolField(TEXT("enabled")));
	const TSharedPtr<FJsonObject> HiddenNode = Slots[1]->AsObject()->GetObjectField(TEXT("widget"));
	EXPECT_EQ(HiddenNode->GetStringField(TEXT("visibility")), TEXT("collapsed"));
	EXPECT_FALSE(HiddenNode->HasField(TEXT("children")));
	EXPECT_TRUE(Snapshot.GetImageFiles().Contains(TEXT("/plugin/Resources/Icon.svg")));

	const FString Click = FString::Printf(TEXT("{\"type\":\"click\",\"id\":%s}"), *Id(Send));
	ApplySlatePageEvent(*Event(Click), Snapshot);
	ApplySlatePageEvent(*Event(FString::Printf(TEXT("{\"type\":\"click\",\"id\":%s}"), *Id(Hidden))), Snapshot);
	EXPECT_EQ(Clicks, 0);
	bPanelEnabled = true;
	ApplySlatePageEvent(*Event(Click), Snapshot);
	EXPECT_EQ(Clicks, 1);

	// Typing, then Shift+Enter (left to the text: a line end at the caret), then Enter (taken by the handler).
	ApplySlatePageEvent(*Event(FString::Printf(TEXT("{\"type\":\"text\",\"id\":%s,\"text\":\"hi there\",\"caret\":2}"), *Id(Input))), Snapshot);
	ApplySlatePageEvent(*Event(FString::Printf(TEXT("{\"type\":\"key\",\"id\":%s,\"key\":\"Enter\",\"shift\":true,\"text\":\"hi there\",\"caret\":2}"), *Id(Input))), Snapshot);
	EXPECT_EQ(Input->GetText().ToString(), TEXT("hi\n there"));
	EXPECT_TRUE(Input->HasKeyboardFocus());
	ApplySlatePageEvent(*Event(FString::Printf(TEXT("{\"type\":\"key\",\"id\":%s,\"key\":\"Enter\"}"), *Id(Input))), Snapshot);
	EXPECT_EQ(Sent, TEXT("hi\n there"));

	// A widget gone since the frame is not reached; nor is an unknown id.
	const FString GoneClick = FString::Printf(TEXT("{\"type\":\"click\",\"id\":%s}"), *Id(Send));
	Root->RemoveSlot(Send.ToSharedRef());
	Send.Reset();
	ApplySlatePageEvent(*Event(GoneClick), Snapshot);
	ApplySlatePageEvent(*Event(TEXT("{\"type\":\"click\",\"id\":123456789}")), Snapshot);
	EXPECT_EQ(Clicks, 1);
}

TEST_F(SlatePageTest, ServerHandsOutThePageFramesAndOnlyTheImagesOfTheTree)
{
	const std::string IconFile = testing::TempDir() + "tavrine-page-icon.svg";
	std::ofstream(IconFile) << "<svg xmlns='http://www.w3.org/2000/svg'/>";
	const std::string SecretFile = testing::TempDir() + "tavrine-page-secret.txt";
	std::ofstream(SecretFile) << "secret";
	Icon.SetResourceName(FName(UTF8_TO_TCHAR(IconFile.c_str())));

	FSlatePageServer Server;
	std::string Error;
	ASSERT_TRUE(Server.Start(0, Error)) << Error;
	Server.Tick();
	httplib::Client Client("127.0.0.1", Server.GetPort());
	httplib::Result Page = Client.Get("/");
	ASSERT_TRUE(Page);
	EXPECT_NE(Page->body.find("<title>Tavrine</title>"), std::string::npos);

	httplib::Result Frame = Client.Get("/frame?since=-1");
	ASSERT_TRUE(Frame);
	EXPECT_EQ(Frame->status, 200);
	EXPECT_NE(Frame->body.find("\"version\":1"), std::string::npos);

	// A list of events, applied in order on the next tick; the frame acknowledges the last.
	const std::string Events = "[{\"seq\":1,\"type\":\"text\",\"id\":" + std::string(TCHAR_TO_UTF8(*Id(Input))) + ",\"text\":\"a\"},"
		"{\"seq\":2,\"type\":\"text\",\"id\":" + std::string(TCHAR_TO_UTF8(*Id(Input))) + ",\"text\":\"ab\"}]";
	ASSERT_TRUE(Client.Post("/event", Events, "application/json"));
	Server.Tick();
	EXPECT_EQ(Input->GetText().ToString(), TEXT("ab"));
	int64_t Version = 0;
	EXPECT_NE(Server.GetFrame(Version).find("\"ack\":2"), std::string::npos);
	EXPECT_EQ(Version, 2);

	EXPECT_EQ(Client.Get(("/image?path=" + IconFile).c_str())->status, 200);
	EXPECT_EQ(Client.Get(("/image?path=" + SecretFile).c_str())->status, 404);
	Server.Stop();
}

TEST_F(SlatePageTest, EventsDriveScrollBoxesCombosMenusAndTabsAndAStillTreeKeepsItsFrame)
{
	float UserOffset = -1.0f;
	TSharedPtr<SScrollBox> Scroll;
	TArray<TSharedPtr<FString>> Options = {MakeShared<FString>(TEXT("A")), MakeShared<FString>(TEXT("B"))};
	TSharedPtr<FString> Picked;
	TSharedPtr<SComboBox<TSharedPtr<FString>>> Combo;
	Root->AddSlot()[SAssignNew(Scroll, SScrollBox).OnUserScrolled_Lambda([&UserOffset](float Offset) { UserOffset = Offset; })];
	Root->AddSlot()[SAssignNew(Combo, SComboBox<TSharedPtr<FString>>)
		.OptionsSource(&Options)
		.OnGenerateWidget_Lambda([](TSharedPtr<FString> Option) -> TSharedRef<SWidget> { return SNew(STextBlock).Text(FText::FromString(*Option)); })
		.OnSelectionChanged_Lambda([&Picked](TSharedPtr<FString> Option, ESelectInfo::Type) { Picked = Option; })];

	int32 MenuRuns = 0;
	static int32 Owner = 0;
	{
		FToolMenuOwnerScoped Scope(&Owner);
		UToolMenus::Get()->ExtendMenu(TEXT("Page.ToolBar"))->FindOrAddSection(TEXT("S")).AddEntry(FToolMenuEntry::InitToolBarButton(TEXT("Run"),
			FUIAction(FExecuteAction::CreateLambda([&MenuRuns]() { ++MenuRuns; })), FText::FromString(TEXT("Run"))));
	}
	bool bTabClosed = false;
	FGlobalTabmanager::Get()->RegisterNomadTabSpawner(TEXT("PageTab"), FOnSpawnTab::CreateLambda([&bTabClosed](const FSpawnTabArgs&)
	{
		return SNew(SDockTab).OnTabClosed_Lambda([&bTabClosed](TSharedRef<SDockTab>) { bTabClosed = true; });
	}));
	TSharedPtr<SDockTab> Tab = FGlobalTabmanager::Get()->TryInvokeTab(FTabId(TEXT("PageTab")));

	FSlatePageSnapshot Snapshot;
	TSharedPtr<FJsonObject> Frame = ParseObject(Snapshot.Build(0));
	const TArray<TSharedPtr<FJsonValue>>* Entries = nullptr;
	ASSERT_TRUE(Frame->GetObjectField(TEXT("menus"))->TryGetArrayField(TEXT("Page.ToolBar"), Entries));
	const FString EntryId = (*Entries)[0]->AsObject()->GetStringField(TEXT("id"));

	ApplySlatePageEvent(*Event(FString::Printf(TEXT("{\"type\":\"layout\",\"id\":%s,\"offset\":0,\"end\":500}"), *Id(Scroll))), Snapshot);
	EXPECT_EQ(UserOffset, -1.0f);
	EXPECT_EQ(Scroll->GetScrollOffsetOfEnd(), 500.0f);
	ApplySlatePageEvent(*Event(FString::Printf(TEXT("{\"type\":\"scroll\",\"id\":%s,\"offset\":120,\"end\":500}"), *Id(Scroll))), Snapshot);
	EXPECT_EQ(UserOffset, 120.0f);
	ApplySlatePageEvent(*Event(FString::Printf(TEXT("{\"type\":\"select\",\"id\":%s,\"index\":1}"), *Id(Combo))), Snapshot);
	EXPECT_EQ(Picked, Options[1]);
	ApplySlatePageEvent(*Event(FString::Printf(TEXT("{\"type\":\"menu\",\"entry\":\"%s\"}"), *EntryId)), Snapshot);
	EXPECT_EQ(MenuRuns, 1);
	ApplySlatePageEvent(*Event(FString::Printf(TEXT("{\"type\":\"closeTab\",\"id\":%s}"), *Id(Tab))), Snapshot);
	EXPECT_TRUE(bTabClosed);
	EXPECT_FALSE(FGlobalTabmanager::Get()->FindExistingLiveTab(FTabId(TEXT("PageTab"))).IsValid());
	FGlobalTabmanager::Get()->UnregisterNomadTabSpawner(TEXT("PageTab"));
	UToolMenus::UnregisterOwner(&Owner);

	// Nothing changed, nothing new to send; a change of a polled attribute is a new frame.
	FSlatePageServer Server;
	std::string Error;
	ASSERT_TRUE(Server.Start(0, Error)) << Error;
	int64_t Version = 0;
	Server.Tick();
	const std::string First = Server.GetFrame(Version);
	FPlatformProcess::Sleep(0.05f);
	Server.Tick();
	int64_t Later = 0;
	EXPECT_EQ(Server.GetFrame(Later), First);
	EXPECT_EQ(Later, Version);
	bPanelEnabled = false;
	FPlatformProcess::Sleep(0.05f);
	Server.Tick();
	Server.GetFrame(Later);
	EXPECT_EQ(Later, Version + 1);
	Server.Stop();
}
