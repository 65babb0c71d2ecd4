#include "ChatWindowTestFixture.h"

#include "Framework/Application/SlateApplication.h"
#include "HAL/StandInClock.h"
#include "Input/Events.h"
#include "InputCoreTypes.h"
#include "Layout/Children.h"
#include "Layout/Geometry.h"
#include "Widgets/Input/SButton.h"
#include "Widgets/Layout/SScrollBox.h"
#include "Widgets/Text/SMultiLineEditableText.h"
#include "Widgets/Text/STextBlock.h"

namespace
{
	void Collect(const TSharedRef<SWidget>& Widget, FName Type, TArray<TSharedRef<SWidget>>& Out)
	{
		// Templates are named with their arguments ("SComboBox<TSharedPtr<FString>>"); the class name matches them all.
		if (Type.IsNone() || Widget->GetType() == Type || Widget->GetTypeAsString().StartsWith(Type.ToString() + TEXT("<")))
		{
			Out.Add(Widget);
		}
		if (FChildren* Children = Widget->GetChildren())
		{
			for (int32 Index = 0; Index < Children->Num(); ++Index)
			{
				Collect(Children->GetChildAt(Index), Type, Out);
			}
		}
	}
}

void FChatWindowTest::SetUp()
{
	FAgentTest::SetUp();
	STavrineWidget::bUserScrolled = false;
	Window = SNew(STavrineWidget);
	ScrollBox = StaticCastSharedRef<SScrollBox>(FindAll(Window.ToSharedRef(), TEXT("SScrollBox"))[0]);
	// The prompt box stands below the conversation, so it is the last editable text of the tree.
	Prompt = StaticCastSharedRef<SMultiLineEditableText>(FindAll(Window.ToSharedRef(), TEXT("SMultiLineEditableText")).Last());
}

void FChatWindowTest::TearDown()
{
	FSlateApplication::Get().SetKeyboardFocus(nullptr);
	Prompt.Reset();
	ScrollBox.Reset();
	Window.Reset();
	GetMutableDefault<UTavrineSettings>()->bDisplayFileChangesInChat = true;
	FAgentTest::TearDown();
}

TArray<TSharedRef<SWidget>> FChatWindowTest::FindAll(const TSharedRef<SWidget>& Root, const TCHAR* Type)
{
	TArray<TSharedRef<SWidget>> Found;
	Collect(Root, FName(Type), Found);
	return Found;
}

TArray<FString> FChatWindowTest::TextsUnder(const TSharedRef<SWidget>& Root)
{
	TArray<TSharedRef<SWidget>> All;
	Collect(Root, NAME_None, All);
	TArray<FString> Texts;
	for (const TSharedRef<SWidget>& Widget : All)
	{
		if (Widget->GetType() == FName(TEXT("STextBlock")))
		{
			Texts.Add(StaticCastSharedRef<STextBlock>(Widget)->GetText().ToString());
		}
		else if (Widget->GetType() == FName(TEXT("SMultiLineEditableText")))
		{
			Texts.Add(StaticCastSharedRef<SMultiLineEditableText>(Widget)->GetText().ToString());
		}
	}
	return Texts;
}

TArray<TSharedRef<SWidget>> FChatWindowTest::Entries() const
{
	TArray<TSharedRef<SWidget>> Found;
	FChildren* Children = ScrollBox->GetChildren();
	for (int32 Index = 0; Children && Index < Children->Num(); ++Index)
	{
		Found.Add(Children->GetChildAt(Index));
	}
	return Found;
}

TArray<FString> FChatWindowTest::EntryTexts() const
{
	TArray<FString> Texts;
	for (const TSharedRef<SWidget>& Entry : Entries())
	{
		const TArray<FString> Under = TextsUnder(Entry);
		Texts.Add(Under.IsEmpty() ? FString() : Under[0]);
	}
	return Texts;
}

SButton& FChatWindowTest::Button(const TCHAR* Label) const
{
	for (const TSharedRef<SWidget>& Candidate : FindAll(Window.ToSharedRef(), TEXT("SButton")))
	{
		const TArray<FString> Texts = TextsUnder(Candidate);
		if (Texts.Num() == 1 && Texts[0] == Label)
		{
			return static_cast<SButton&>(Candidate.Get());
		}
	}
	ADD_FAILURE() << "no button " << ToUtf8(Label);
	return static_cast<SButton&>(FindAll(Window.ToSharedRef(), TEXT("SButton"))[0].Get());
}

bool FChatWindowTest::IsShown(const TCHAR* Label) const
{
	return Button(Label).GetVisibility() == EVisibility::Visible;
}

void FChatWindowTest::Type(const FString& Text)
{
	Prompt->SetText(FText::FromString(Text));
}

FString FChatWindowTest::Typed() const
{
	return Prompt->GetText().ToString();
}

bool FChatWindowTest::PressEnter(bool bShift)
{
	// The key goes where a typing user's would: to the focused prompt box first, then up the tree.
	const FModifierKeysState Modifiers(bShift, false, false, false, false, false, false, false, false);
	FSlateApplication::Get().SetKeyboardFocus(Prompt);
	return FSlateApplication::Get().ProcessKeyDownEvent(FKeyEvent(EKeys::Enter, Modifiers, 0, false, 0, 0));
}

void FChatWindowTest::Click(const TCHAR* Label)
{
	SButton& Target = Button(Label);
	ASSERT_TRUE(Target.IsEnabled()) << ToUtf8(Label);
	Target.ExecuteOnClick();
}

void FChatWindowTest::Wait(double Seconds)
{
	FStandInClock::Advance(Seconds);
	Window->StandInRunActiveTimers(FStandInClock::GetSeconds());
}
