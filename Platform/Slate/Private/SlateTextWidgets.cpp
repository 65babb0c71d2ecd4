// Text blocks and editable texts.
#include "Dom/JsonObject.h"
#include "SlateStandInDescription.h"
#include "Widgets/Input/SMultiLineEditableTextBox.h"
#include "Widgets/Text/SMultiLineEditableText.h"
#include "Widgets/Text/STextBlock.h"

using namespace SlateStandInDescription;

namespace
{
	const TCHAR* JustificationName(ETextJustify::Type Justification)
	{
		switch (Justification)
		{
		case ETextJustify::Center:
			return TEXT("center");
		case ETextJustify::Right:
		case ETextJustify::InvariantRight:
			return TEXT("right");
		default:
			return TEXT("left");
		}
	}
}

// ---- STextBlock ------------------------------------------------------------------------------------------

void STextBlock::Construct(const FArguments& InArgs)
{
	BoundText = InArgs._Text;
	TextStyle = InArgs._TextStyle ? *InArgs._TextStyle : FTextBlockStyle::GetDefault();
	Font = InArgs._Font;
	ColorAndOpacity = InArgs._ColorAndOpacity;
	AutoWrapText = InArgs._AutoWrapText;
	Justification = InArgs._Justification;
	Margin = InArgs._Margin;
}

void STextBlock::DescribeForStandIn(FJsonObject& Out) const
{
	Out.SetStringField(TEXT("kind"), TEXT("text"));
	Out.SetStringField(TEXT("text"), GetText().ToString());
	Out.SetField(TEXT("font"), SlateStandInDescription::Font(GetFont()));
	Out.SetField(TEXT("color"), SlateColor(GetColorAndOpacity()));
	Out.SetBoolField(TEXT("wrap"), AutoWrapText.Get(false));
	Out.SetStringField(TEXT("justify"), JustificationName(Justification.Get(ETextJustify::Left)));
	Out.SetField(TEXT("margin"), SlateStandInDescription::Margin(Margin.Get(FMargin())));
}

// ---- SMultiLineEditableText ------------------------------------------------------------------------------

void SMultiLineEditableText::Construct(const FArguments& InArgs)
{
	TextStyle = InArgs._TextStyle ? *InArgs._TextStyle : FTextBlockStyle::GetDefault();
	Font = InArgs._Font;
	HintText = InArgs._HintText;
	bIsReadOnly = InArgs._IsReadOnly;
	AutoWrapText = InArgs._AutoWrapText;
	Justification = InArgs._Justification;
	Margin = InArgs._Margin;
	OnTextChanged = InArgs._OnTextChanged;
	OnTextCommitted = InArgs._OnTextCommitted;
	OnKeyDownHandler = InArgs._OnKeyDownHandler;
	ModiferKeyForNewLine = InArgs._ModiferKeyForNewLine;
	SetText(InArgs._Text);
}

FText SMultiLineEditableText::GetText() const
{
	return BoundText.IsBound() ? BoundText.Get() : EditedText;
}

void SMultiLineEditableText::SetText(const TAttribute<FText>& InNewText)
{
	BoundText = InNewText;
	EditedText = InNewText.Get(FText::GetEmpty());
	Caret = -1;
	SelectionStart = -1;
	++TextVersion;
}

FText SMultiLineEditableText::GetSelectedText() const
{
	const FString Text = GetText().ToString();
	if (SelectionStart < 0)
	{
		return FText::GetEmpty();
	}
	const int32 End = Caret < 0 ? Text.Len() : Caret;
	const int32 Start = SelectionStart < End ? SelectionStart : End;
	const int32 Stop = SelectionStart < End ? End : SelectionStart;
	return FText::FromString(Text.Mid(Start, Stop - Start));
}

void SMultiLineEditableText::SelectAllText()
{
	SelectionStart = 0;
	Caret = -1;
}

void SMultiLineEditableText::ClearSelection()
{
	SelectionStart = -1;
}

void SMultiLineEditableText::GoTo(int32 CharacterIndex)
{
	Caret = CharacterIndex;
	SelectionStart = -1;
}

void SMultiLineEditableText::InsertTextAtCursor(const FString& InString)
{
	FString Text = GetText().ToString();
	int32 Start = Caret < 0 || Caret > Text.Len() ? Text.Len() : Caret;
	int32 Stop = Start;
	if (SelectionStart >= 0 && SelectionStart <= Text.Len())
	{
		Stop = SelectionStart > Start ? SelectionStart : Start;
		Start = SelectionStart < Start ? SelectionStart : Start;
	}
	Text = Text.Left(Start) + InString + Text.Mid(Stop);
	EditedText = FText::FromString(Text);
	BoundText = TAttribute<FText>();
	Caret = Start + InString.Len();
	SelectionStart = -1;
	++TextVersion;
	OnTextChanged.ExecuteIfBound(EditedText);
}

FReply SMultiLineEditableText::OnKeyDown(const FGeometry& MyGeometry, const FKeyEvent& InKeyEvent)
{
	if (OnKeyDownHandler.IsBound())
	{
		const FReply Reply = OnKeyDownHandler.Execute(MyGeometry, InKeyEvent);
		if (Reply.IsEventHandled())
		{
			return Reply;
		}
	}
	// Enter commits when a modifier is needed for a line end and none is down; else it becomes a character.
	if (InKeyEvent.GetKey() == EKeys::Enter && ModiferKeyForNewLine != EModifierKey::None
		&& !InKeyEvent.GetModifierKeys().AreModifersDown(ModiferKeyForNewLine))
	{
		OnTextCommitted.ExecuteIfBound(GetText(), ETextCommit::OnEnter);
		return FReply::Handled();
	}
	return FReply::Unhandled();
}

FReply SMultiLineEditableText::OnKeyChar(const FGeometry& MyGeometry, const FCharacterEvent& InCharacterEvent)
{
	if (IsTextReadOnly())
	{
		return FReply::Unhandled();
	}
	const TCHAR Character = InCharacterEvent.GetCharacter();
	if (Character == TEXT('\r') || Character == TEXT('\n'))
	{
		InsertTextAtCursor(TEXT("\n"));
		return FReply::Handled();
	}
	if (Character >= 0x20)
	{
		InsertTextAtCursor(FString::ConstructFromPtrSize(&Character, 1));
		return FReply::Handled();
	}
	return FReply::Unhandled();
}

void SMultiLineEditableText::StandInUserEdited(const FString& NewText, int32 CaretIndex)
{
	if (IsTextReadOnly())
	{
		return;
	}
	Caret = CaretIndex;
	SelectionStart = -1;
	if (GetText().ToString().Equals(NewText, ESearchCase::CaseSensitive))
	{
		return;
	}
	EditedText = FText::FromString(NewText);
	BoundText = TAttribute<FText>();
	OnTextChanged.ExecuteIfBound(EditedText);
}

void SMultiLineEditableText::DescribeForStandIn(FJsonObject& Out) const
{
	Out.SetStringField(TEXT("kind"), TEXT("editable"));
	Out.SetStringField(TEXT("text"), GetText().ToString());
	Out.SetStringField(TEXT("hint"), GetHintText().ToString());
	Out.SetNumberField(TEXT("version"), TextVersion);
	Out.SetBoolField(TEXT("readOnly"), IsTextReadOnly());
	Out.SetField(TEXT("font"), SlateStandInDescription::Font(GetFont()));
	Out.SetField(TEXT("color"), SlateColor(TextStyle.ColorAndOpacity));
	Out.SetBoolField(TEXT("wrap"), AutoWrapText.Get(false));
	Out.SetStringField(TEXT("justify"), JustificationName(Justification.Get(ETextJustify::Left)));
	Out.SetField(TEXT("margin"), SlateStandInDescription::Margin(Margin.Get(FMargin())));
}

// ---- SMultiLineEditableTextBox ---------------------------------------------------------------------------

void SMultiLineEditableTextBox::Construct(const FArguments& InArgs)
{
	BoxStyle = InArgs._Style ? *InArgs._Style : FEditableTextBoxStyle::GetDefault();
	SBorder::Construct(SBorder::FArguments()
		.BorderImage(&BoxStyle.BackgroundImageNormal)
		.BorderBackgroundColor(InArgs._BackgroundColor.IsSet() ? InArgs._BackgroundColor : TAttribute<FSlateColor>(BoxStyle.BackgroundColor))
		.ForegroundColor(InArgs._ForegroundColor.IsSet() ? InArgs._ForegroundColor : TAttribute<FSlateColor>(BoxStyle.ForegroundColor))
		.Padding(InArgs._Padding.IsSet() ? InArgs._Padding : TAttribute<FMargin>(BoxStyle.Padding))
		[
			SAssignNew(EditableText, SMultiLineEditableText)
			.Text(InArgs._Text)
			.HintText(InArgs._HintText)
			.TextStyle(InArgs._TextStyle ? InArgs._TextStyle : &BoxStyle.TextStyle)
			.Font(InArgs._Font)
			.IsReadOnly(InArgs._IsReadOnly)
			.AutoWrapText(InArgs._AutoWrapText)
			.AllowMultiLine(InArgs._AllowMultiLine)
			.Justification(InArgs._Justification)
			.Margin(InArgs._Margin)
			.ModiferKeyForNewLine(InArgs._ModiferKeyForNewLine)
			.OnTextChanged(InArgs._OnTextChanged)
			.OnTextCommitted(InArgs._OnTextCommitted)
			.OnKeyDownHandler(InArgs._OnKeyDownHandler)
		]);
}

void SMultiLineEditableTextBox::SetStyle(const FEditableTextBoxStyle* InStyle)
{
	BoxStyle = InStyle ? *InStyle : FEditableTextBoxStyle::GetDefault();
	SetBorderImage(&BoxStyle.BackgroundImageNormal);
	EditableText->SetTextStyle(&BoxStyle.TextStyle);
}
