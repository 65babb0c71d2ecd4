// The declarative syntax, slots, polled attributes, timers and key routing of the Slate stand-in.
#include "Framework/Application/SlateApplication.h"
#include "HAL/StandInClock.h"
#include "Widgets/Input/SButton.h"
#include "Widgets/Input/SComboBox.h"
#include "Widgets/Input/SMultiLineEditableTextBox.h"
#include "Widgets/Layout/SBorder.h"
#include "Widgets/Layout/SBox.h"
#include "Widgets/Layout/SScrollBox.h"
#include "Widgets/SBoxPanel.h"
#include "Widgets/SCompoundWidget.h"
#include "Widgets/Text/SMultiLineEditableText.h"
#include "Widgets/Text/STextBlock.h"

#include <gtest/gtest.h>

namespace
{
	// A small chat-like widget: a scroll box, an input whose key handler sends on Enter, and a button.
	class STestPanel : public SCompoundWidget
	{
	public:
		SLATE_BEGIN_ARGS(STestPanel)
			: _Title(TEXT("untitled"))
			{}
			SLATE_ARGUMENT(FString, Title)
		SLATE_END_ARGS()

		void Construct(const FArguments& InArgs, int32 InStartCount)
		{
			Title = InArgs._Title;
			Count = InStartCount;
			ChildSlot
			.Padding(3.0f)
			[
				SNew(SVerticalBox)
				+ SVerticalBox::Slot()
				.FillHeight(1.0f)
				[
					SAssignNew(Scroll, SScrollBox)
				]
				+ SVerticalBox::Slot()
				.AutoHeight()
				.Padding(1.0f, 2.0f, 3.0f, 4.0f)
				[
					SAssignNew(Input, SMultiLineEditableText)
					.IsEnabled(this, &STestPanel::CanType)
				]
				+ SVerticalBox::Slot()
				.AutoHeight()
				[
					SAssignNew(Button, SButton)
					.Text(FText::FromString(TEXT("Send")))
					.Visibility_Lambda([this]() { return bShowButton ? EVisibility::Visible : EVisibility::Collapsed; })
					.OnClicked(this, &STestPanel::OnSend)
				]
			];
			Input->SetOnKeyDownHandler(FOnKeyDown::CreateSP(this, &STestPanel::OnInputKey));
		}

		bool CanType() const
		{
			++EnabledReads;
			return bCanType;
		}
		FReply OnSend()
		{
			++Sent;
			return FReply::Handled();
		}
		FReply OnInputKey(const FGeometry&, const FKeyEvent& Event)
		{
			if (Event.GetKey() == EKeys::Enter && !Event.IsShiftDown())
			{
				return OnSend();
			}
			return FReply::Unhandled();
		}
		virtual FReply OnKeyDown(const FGeometry&, const FKeyEvent& Event) override
		{
			++BubbledKeys;
			return Event.GetKey() == EKeys::Escape ? FReply::Handled() : FReply::Unhandled();
		}
		virtual void Tick(const FGeometry&, const double, const float) override
		{
			++Ticks;
		}

		FString Title;
		int32 Count = 0;
		bool bCanType = true;
		bool bShowButton = true;
		mutable int32 EnabledReads = 0;
		int32 Sent = 0;
		int32 BubbledKeys = 0;
		int32 Ticks = 0;
		TSharedPtr<SScrollBox> Scroll;
		TSharedPtr<SMultiLineEditableText> Input;
		TSharedPtr<SButton> Button;
	};

	FKeyEvent MakeKey(const FKey& Key, bool bLeftShift = false)
	{
		return FKeyEvent(Key, FModifierKeysState(bLeftShift, false, false, false, false, false, false, false, false), 0, false, 0, 0);
	}

	class SlateWidgetTest : public testing::Test
	{
	protected:
		void SetUp() override
		{
			FStandInClock::UseManualTime(true);
			Panel = SNew(STestPanel, 7).Title(TEXT("Chat"));
			FSlateApplication::Get().StandInAddRoot(Panel.ToSharedRef());
		}
		void TearDown() override
		{
			FSlateApplication::Get().StandInRemoveRoot(Panel.ToSharedRef());
			FSlateApplication::Shutdown();
			FStandInClock::UseManualTime(false);
		}
		TSharedPtr<STestPanel> Panel;
	};
}

TEST_F(SlateWidgetTest, DeclarationBuildsTheTreeWithSlotsParentsAndPolledAttributes)
{
	EXPECT_EQ(Panel->Title, TEXT("Chat"));
	EXPECT_EQ(Panel->Count, 7);
	EXPECT_EQ(Panel->GetType(), FName(TEXT("STestPanel")));
	ASSERT_EQ(Panel->GetChildren()->Num(), 1);
	EXPECT_EQ(Panel->GetChildren()->GetSlotAt(0)->GetPadding(), FMargin(3.0f));

	TSharedRef<SWidget> Box = Panel->GetChildren()->GetChildAt(0);
	EXPECT_EQ(Box->GetType(), FName(TEXT("SVerticalBox")));
	ASSERT_EQ(Box->GetChildren()->Num(), 3);
	EXPECT_EQ(Box->GetChildren()->GetSlotAt(0)->GetSizeRule(), FSlotBase::ESizeRule::Fill);
	EXPECT_EQ(Box->GetChildren()->GetSlotAt(1)->GetSizeRule(), FSlotBase::ESizeRule::Auto);
	EXPECT_EQ(Box->GetChildren()->GetSlotAt(1)->GetPadding(), FMargin(1.0f, 2.0f, 3.0f, 4.0f));
	EXPECT_EQ(&Box->GetChildren()->GetChildAt(1).Get(), Panel->Input.Get());
	// Parents are set, so events can travel up.
	EXPECT_EQ(Panel->Input->GetParentWidget().Get(), &Box.Get());
	EXPECT_EQ(Box->GetParentWidget().Get(), Panel.Get());

	// Bound attributes are read each time, not once.
	const int32 ReadsBefore = Panel->EnabledReads;
	EXPECT_TRUE(Panel->Input->IsEnabled());
	Panel->bCanType = false;
	EXPECT_FALSE(Panel->Input->IsEnabled());
	EXPECT_EQ(Panel->EnabledReads, ReadsBefore + 2);
	Panel->bShowButton = false;
	EXPECT_EQ(Panel->Button->GetVisibility(), EVisibility::Collapsed);
	EXPECT_FALSE(FSlateApplication::IsStandInWidgetShown(*Panel->Button));

	// The button's text became a label.
	ASSERT_EQ(Panel->Button->GetChildren()->Num(), 1);
	TSharedRef<SWidget> Label = Panel->Button->GetChildren()->GetChildAt(0);
	ASSERT_EQ(Label->GetType(), FName(TEXT("STextBlock")));
	EXPECT_EQ(static_cast<STextBlock&>(Label.Get()).GetText().ToString(), TEXT("Send"));
}

TEST_F(SlateWidgetTest, ScopedSlotsJoinAtTheEndOfTheStatementAndLeaveWhenRemoved)
{
	SScrollBox& Scroll = *Panel->Scroll;
	TSharedPtr<STextBlock> First;
	TSharedPtr<STextBlock> Second;
	{
		SScrollBox::FScopedWidgetSlotArguments Pending = Scroll.AddSlot();
		Pending.Padding(0.0f, 0.0f, 0.0f, 8.0f)[SAssignNew(First, STextBlock).Text(FText::FromString(TEXT("one")))];
		// Not yet: the slot joins when the arguments go out of scope.
		EXPECT_EQ(Scroll.NumSlots(), 0);
	}
	ASSERT_EQ(Scroll.NumSlots(), 1);
	EXPECT_EQ(Scroll.GetSlot(0).GetPadding(), FMargin(0.0f, 0.0f, 0.0f, 8.0f));
	Scroll.AddSlot()[SAssignNew(Second, STextBlock)];
	Scroll.InsertSlot(0)[SNew(STextBlock).Text(FText::FromString(TEXT("zero")))];
	ASSERT_EQ(Scroll.NumSlots(), 3);
	EXPECT_EQ(&Scroll.GetChildren()->GetChildAt(1).Get(), First.Get());
	EXPECT_EQ(First->GetParentWidget().Get(), &Scroll);

	EXPECT_EQ(Scroll.RemoveSlot(First.ToSharedRef()), 1);
	EXPECT_EQ(Scroll.RemoveSlot(First.ToSharedRef()), INDEX_NONE);
	EXPECT_EQ(Scroll.NumSlots(), 2);
	EXPECT_FALSE(First->GetParentWidget().IsValid());
	EXPECT_EQ(&Scroll.GetChildren()->GetChildAt(1).Get(), Second.Get());

	// ScrollToEnd is a request the page carries out; the user's scroll reaches the handler with its offset.
	const int32 Requests = Scroll.GetStandInScrollToEndRequest();
	Scroll.ScrollToEnd();
	EXPECT_EQ(Scroll.GetStandInScrollToEndRequest(), Requests + 1);
	float Reported = -1.0f;
	Scroll.SetOnUserScrolled(FOnUserScrolled::CreateLambda([&Reported](float Offset) { Reported = Offset; }));
	Scroll.StandInSetLayout(0.0f, 300.0f, 0.5f);
	EXPECT_EQ(Reported, -1.0f);
	Scroll.StandInUserScrolled(120.0f, 300.0f);
	EXPECT_EQ(Reported, 120.0f);
	EXPECT_EQ(Scroll.GetScrollOffset(), 120.0f);
	EXPECT_EQ(Scroll.GetScrollOffsetOfEnd(), 300.0f);
}

TEST_F(SlateWidgetTest, ActiveTimersRunAfterTheirPeriodUntilStoppedAndOnlyWhileShown)
{
	FSlateApplication::Get().Tick();
	TArray<float> Deltas;
	int32 StopAfter = 3;
	Panel->Input->RegisterActiveTimer(0.5f, FWidgetActiveTimerDelegate::CreateLambda([&](double, float Delta)
	{
		Deltas.Add(Delta);
		return Deltas.Num() >= StopAfter ? EActiveTimerReturnType::Stop : EActiveTimerReturnType::Continue;
	}));
	int32 EveryFrame = 0;
	TSharedRef<FActiveTimerHandle> Frame = Panel->Scroll->RegisterActiveTimer(0.0f, FWidgetActiveTimerDelegate::CreateLambda([&](double, float)
	{
		++EveryFrame;
		return EActiveTimerReturnType::Continue;
	}));

	FStandInClock::Advance(0.4);
	FSlateApplication::Get().Tick();
	EXPECT_EQ(Deltas.Num(), 0);
	EXPECT_EQ(EveryFrame, 1);
	FStandInClock::Advance(0.1);
	FSlateApplication::Get().Tick();
	EXPECT_EQ(Deltas.Num(), 1);
	// Three periods pass at once: one call, not three.
	FStandInClock::Advance(1.5);
	FSlateApplication::Get().Tick();
	ASSERT_EQ(Deltas.Num(), 2);
	EXPECT_NEAR(Deltas[1], 1.5f, 1e-3);
	FStandInClock::Advance(0.5);
	FSlateApplication::Get().Tick();
	FStandInClock::Advance(0.5);
	FSlateApplication::Get().Tick();
	EXPECT_EQ(Deltas.Num(), 3);
	EXPECT_FALSE(Panel->Input->HasActiveTimers());

	Panel->Scroll->UnRegisterActiveTimer(Frame);
	const int32 FramesBefore = EveryFrame;
	FSlateApplication::Get().Tick();
	EXPECT_EQ(EveryFrame, FramesBefore);

	// A collapsed widget is not drawn, so neither it nor its timers tick.
	const int32 TicksBefore = Panel->Ticks;
	int32 HiddenRuns = 0;
	Panel->Button->RegisterActiveTimer(0.0f, FWidgetActiveTimerDelegate::CreateLambda([&](double, float)
	{
		++HiddenRuns;
		return EActiveTimerReturnType::Continue;
	}));
	Panel->bShowButton = false;
	FSlateApplication::Get().Tick();
	EXPECT_EQ(HiddenRuns, 0);
	EXPECT_EQ(Panel->Ticks, TicksBefore + 1);
}

TEST_F(SlateWidgetTest, KeysGoToTheHandlerFirstThenUpThroughEnabledParentsThenBecomeCharacters)
{
	FSlateApplication& App = FSlateApplication::Get();
	App.SetKeyboardFocus(Panel->Input);
	EXPECT_TRUE(Panel->Input->HasKeyboardFocus());
	EXPECT_TRUE(Panel->HasFocusedDescendants());

	EXPECT_TRUE(App.ProcessKeyDownEvent(MakeKey(EKeys::Enter)));
	EXPECT_EQ(Panel->Sent, 1);
	EXPECT_EQ(Panel->BubbledKeys, 0);

	// Shift+Enter is left to the text: it bubbles unhandled, and the character inserts a line end at the caret.
	Panel->Input->StandInUserEdited(TEXT("ab"), 1);
	EXPECT_FALSE(App.ProcessKeyDownEvent(MakeKey(EKeys::Enter, true)));
	EXPECT_EQ(Panel->BubbledKeys, 1);
	EXPECT_TRUE(App.ProcessKeyCharEvent(FCharacterEvent(TEXT('\n'), FModifierKeysState(), 0, false)));
	EXPECT_EQ(Panel->Input->GetText().ToString(), TEXT("a\nb"));

	EXPECT_TRUE(App.ProcessKeyDownEvent(MakeKey(EKeys::Escape)));
	EXPECT_EQ(Panel->BubbledKeys, 2);

	// A disabled text takes no key; the event still reaches its enabled parents.
	Panel->bCanType = false;
	EXPECT_FALSE(App.ProcessKeyDownEvent(MakeKey(EKeys::Enter)));
	EXPECT_EQ(Panel->Sent, 1);
	EXPECT_EQ(Panel->BubbledKeys, 3);

	// SetText from the program doesn't tell the change handler; the user's edit does.
	int32 Changes = 0;
	TSharedRef<SMultiLineEditableText> Text = SNew(SMultiLineEditableText).OnTextChanged_Lambda([&Changes](const FText&) { ++Changes; });
	Text->SetText(FText::FromString(TEXT("x")));
	Text->StandInUserEdited(TEXT("x"), -1);
	EXPECT_EQ(Changes, 0);
	Text->StandInUserEdited(TEXT("xy"), -1);
	EXPECT_EQ(Changes, 1);
	EXPECT_EQ(Text->GetText().ToString(), TEXT("xy"));
}

TEST_F(SlateWidgetTest, ComboBoxesShowTheirGeneratedLabelsAndTellOnlyRealSelectionChanges)
{
	TArray<TSharedPtr<FString>> Options = {MakeShared<FString>(TEXT("First")), MakeShared<FString>(TEXT("Second"))};
	TArray<FString> Changes;
	TSharedRef<SComboBox<TSharedPtr<FString>>> Combo = SNew(SComboBox<TSharedPtr<FString>>)
		.OptionsSource(&Options)
		.InitiallySelectedItem(Options[1])
		.OnGenerateWidget_Lambda([](TSharedPtr<FString> Option) -> TSharedRef<SWidget>
		{
			return SNew(SBorder)[SNew(STextBlock).Text(FText::FromString(*Option + TEXT(" mode")))];
		})
		.OnSelectionChanged_Lambda([&Changes](TSharedPtr<FString> Option, ESelectInfo::Type) { Changes.Add(Option.IsValid() ? *Option : FString()); })
		[
			SNew(STextBlock).Text(FText::FromString(TEXT("label")))
		];
	EXPECT_EQ(Combo->GetStandInOptionLabels(), (TArray<FString>{TEXT("First mode"), TEXT("Second mode")}));
	EXPECT_EQ(Combo->GetStandInSelectedIndex(), 1);
	Combo->SetSelectedItem(Options[1]);
	EXPECT_EQ(Changes.Num(), 0);
	Combo->StandInUserSelected(0);
	Combo->StandInUserSelected(7);
	EXPECT_EQ(Changes, TArray<FString>{TEXT("First")});
	EXPECT_EQ(Combo->GetSelectedItem(), Options[0]);

	// The framed text box passes its text, hint and key handler to the text inside.
	bool bHandled = false;
	TSharedRef<SMultiLineEditableTextBox> Box = SNew(SMultiLineEditableTextBox)
		.Text(FText::FromString(TEXT("draft")))
		.HintText(FText::FromString(TEXT("hint")))
		.OnKeyDownHandler_Lambda([&bHandled](const FGeometry&, const FKeyEvent&) { bHandled = true; return FReply::Handled(); });
	TSharedPtr<SMultiLineEditableText> Inner = Box->GetStandInEditableText();
	EXPECT_EQ(Inner->GetParentWidget().Get(), &Box.Get());
	EXPECT_EQ(Box->GetHintText().ToString(), TEXT("hint"));
	Inner->StandInUserEdited(TEXT("draft 2"), -1);
	EXPECT_EQ(Box->GetText().ToString(), TEXT("draft 2"));
	FSlateApplication::Get().SetKeyboardFocus(Inner);
	EXPECT_TRUE(FSlateApplication::Get().ProcessKeyDownEvent(MakeKey(EKeys::Enter)));
	EXPECT_TRUE(bHandled);
}
