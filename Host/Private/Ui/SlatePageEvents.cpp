#include "Ui/SlatePageEvents.h"

#include "Dom/JsonObject.h"
#include "Framework/Application/SlateApplication.h"
#include "ToolMenus.h"
#include "Ui/SlatePageSnapshot.h"
#include "Widgets/Docking/SDockTab.h"
#include "Widgets/Input/SButton.h"
#include "Widgets/Input/SComboBox.h"
#include "Widgets/Input/SMultiLineEditableTextBox.h"
#include "Widgets/Layout/SScrollBox.h"
#include "Widgets/Text/SMultiLineEditableText.h"

DEFINE_LOG_CATEGORY_STATIC(LogSlatePage, Log, All);

namespace
{
	template<typename WidgetType>
	WidgetType* FindAs(const FJsonObject& Event, const FSlatePageSnapshot& Snapshot, TSharedPtr<SWidget>& OutKeepAlive)
	{
		double Id = 0.0;
		Event.TryGetNumberField(TEXT("id"), Id);
		OutKeepAlive = Snapshot.FindWidget(static_cast<uint64>(Id));
		return OutKeepAlive.IsValid() ? dynamic_cast<WidgetType*>(OutKeepAlive.Get()) : nullptr;
	}

	SMultiLineEditableText* FindEditable(const FJsonObject& Event, const FSlatePageSnapshot& Snapshot, TSharedPtr<SWidget>& OutKeepAlive)
	{
		if (SMultiLineEditableText* Text = FindAs<SMultiLineEditableText>(Event, Snapshot, OutKeepAlive))
		{
			return Text;
		}
		SMultiLineEditableTextBox* Box = OutKeepAlive.IsValid() ? dynamic_cast<SMultiLineEditableTextBox*>(OutKeepAlive.Get()) : nullptr;
		return Box ? Box->GetStandInEditableText().Get() : nullptr;
	}

	// The user can reach only what is drawn and not greyed out.
	bool IsLive(const SWidget& Widget)
	{
		return FSlateApplication::IsStandInWidgetShown(Widget) && FSlateApplication::IsStandInWidgetEnabled(Widget);
	}

	int32 GetInt(const FJsonObject& Event, const TCHAR* Field, int32 Default)
	{
		double Value = Default;
		Event.TryGetNumberField(Field, Value);
		return static_cast<int32>(Value);
	}

	void SyncText(const FJsonObject& Event, SMultiLineEditableText& Text)
	{
		FString NewText;
		if (Event.TryGetStringField(TEXT("text"), NewText) && IsLive(Text))
		{
			Text.StandInUserEdited(NewText, GetInt(Event, TEXT("caret"), -1));
		}
	}

	void ApplyKey(const FJsonObject& Event, const FSlatePageSnapshot& Snapshot)
	{
		TSharedPtr<SWidget> Widget;
		if (SMultiLineEditableText* Text = FindEditable(Event, Snapshot, Widget))
		{
			SyncText(Event, *Text);
			FSlateApplication::Get().SetKeyboardFocus(Text->AsShared());
		}
		FString KeyName;
		Event.TryGetStringField(TEXT("key"), KeyName);
		const FKey Key = EKeys::FromName(FName(*KeyName));
		if (!Key.IsValid())
		{
			return;
		}
		auto Flag = [&Event](const TCHAR* Field)
		{
			bool bValue = false;
			Event.TryGetBoolField(Field, bValue);
			return bValue;
		};
		const FModifierKeysState Modifiers(Flag(TEXT("shift")), false, Flag(TEXT("ctrl")), false, Flag(TEXT("alt")), false, Flag(TEXT("cmd")), false, false);
		const bool bHandled = FSlateApplication::Get().ProcessKeyDownEvent(FKeyEvent(Key, Modifiers, 0, false, 0, 0));
		// A key nobody took reaches the text as its character, as the platform sends both.
		if (!bHandled && Key == EKeys::Enter)
		{
			FSlateApplication::Get().ProcessKeyCharEvent(FCharacterEvent(TEXT('\n'), Modifiers, 0, false));
		}
		FSlateApplication::Get().ProcessKeyUpEvent(FKeyEvent(Key, Modifiers, 0, false, 0, 0));
	}
}

void ApplySlatePageEvent(const FJsonObject& Event, const FSlatePageSnapshot& Snapshot)
{
	FString Type;
	Event.TryGetStringField(TEXT("type"), Type);
	TSharedPtr<SWidget> Widget;
	if (Type == TEXT("click"))
	{
		SButton* Button = FindAs<SButton>(Event, Snapshot, Widget);
		if (Button && IsLive(*Button))
		{
			Button->ExecuteOnClick();
		}
	}
	else if (Type == TEXT("text"))
	{
		if (SMultiLineEditableText* Text = FindEditable(Event, Snapshot, Widget))
		{
			SyncText(Event, *Text);
		}
	}
	else if (Type == TEXT("focus"))
	{
		Widget = Snapshot.FindWidget(static_cast<uint64>(GetInt(Event, TEXT("id"), 0)));
		if (Widget.IsValid())
		{
			FSlateApplication::Get().SetKeyboardFocus(Widget);
		}
		else
		{
			FSlateApplication::Get().ClearKeyboardFocus();
		}
	}
	else if (Type == TEXT("key"))
	{
		ApplyKey(Event, Snapshot);
	}
	else if (Type == TEXT("scroll") || Type == TEXT("layout"))
	{
		if (SScrollBox* Scroll = FindAs<SScrollBox>(Event, Snapshot, Widget))
		{
			double Offset = 0.0;
			double End = 0.0;
			double Fraction = 1.0;
			Event.TryGetNumberField(TEXT("offset"), Offset);
			Event.TryGetNumberField(TEXT("end"), End);
			Event.TryGetNumberField(TEXT("fraction"), Fraction);
			if (Type == TEXT("scroll"))
			{
				Scroll->StandInUserScrolled(static_cast<float>(Offset), static_cast<float>(End));
			}
			else
			{
				Scroll->StandInSetLayout(static_cast<float>(Offset), static_cast<float>(End), static_cast<float>(Fraction));
			}
		}
	}
	else if (Type == TEXT("select"))
	{
		SComboBoxBase* Combo = FindAs<SComboBoxBase>(Event, Snapshot, Widget);
		if (Combo && IsLive(*Combo))
		{
			Combo->StandInUserSelected(GetInt(Event, TEXT("index"), -1));
		}
	}
	else if (Type == TEXT("menu"))
	{
		FString EntryId;
		Event.TryGetStringField(TEXT("entry"), EntryId);
		if (const FToolMenuEntry* Entry = Snapshot.FindMenuEntry(EntryId))
		{
			Entry->Execute();
		}
	}
	else if (Type == TEXT("closeTab"))
	{
		if (SDockTab* Tab = FindAs<SDockTab>(Event, Snapshot, Widget))
		{
			Tab->RequestCloseTab();
		}
	}
	else
	{
		UE_LOG(LogSlatePage, Warning, TEXT("The page sent an event of unknown type '%s'"), *Type);
	}
}
