#pragma once

#include "CoreMinimal.h"
#include "Styling/SlateTypes.h"
#include "Widgets/Layout/SBorder.h"
#include "Widgets/Text/SMultiLineEditableText.h"

/** A framed multi-line editable text: a border around an SMultiLineEditableText. */
class SMultiLineEditableTextBox : public SBorder
{
public:
	SLATE_BEGIN_ARGS(SMultiLineEditableTextBox)
		: _Style(nullptr)
		, _TextStyle(nullptr)
		, _IsReadOnly(false)
		, _AutoWrapText(false)
		, _AllowMultiLine(true)
		, _AlwaysShowScrollbars(false)
		, _ModiferKeyForNewLine(EModifierKey::None)
		{}
		SLATE_STYLE_ARGUMENT(FEditableTextBoxStyle, Style)
		SLATE_STYLE_ARGUMENT(FTextBlockStyle, TextStyle)
		SLATE_ATTRIBUTE(FText, Text)
		SLATE_ATTRIBUTE(FText, HintText)
		SLATE_ATTRIBUTE(FSlateFontInfo, Font)
		SLATE_ATTRIBUTE(FSlateColor, ForegroundColor)
		SLATE_ATTRIBUTE(FSlateColor, BackgroundColor)
		SLATE_ATTRIBUTE(FMargin, Padding)
		SLATE_ATTRIBUTE(FMargin, Margin)
		SLATE_ATTRIBUTE(bool, IsReadOnly)
		SLATE_ATTRIBUTE(bool, AutoWrapText)
		SLATE_ATTRIBUTE(bool, AllowMultiLine)
		SLATE_ATTRIBUTE(bool, AllowContextMenu)
		SLATE_ATTRIBUTE(ETextJustify::Type, Justification)
		SLATE_ARGUMENT(bool, AlwaysShowScrollbars)
		SLATE_ARGUMENT(EModifierKey::Type, ModiferKeyForNewLine)
		SLATE_EVENT(FOnTextChanged, OnTextChanged)
		SLATE_EVENT(FOnTextCommitted, OnTextCommitted)
		SLATE_EVENT(FOnKeyDown, OnKeyDownHandler)
	SLATE_END_ARGS()

	SLATE_API void Construct(const FArguments& InArgs);

	FText GetText() const
	{
		return EditableText->GetText();
	}
	void SetText(const TAttribute<FText>& InNewText)
	{
		EditableText->SetText(InNewText);
	}
	void SetHintText(const TAttribute<FText>& InHintText)
	{
		EditableText->SetHintText(InHintText);
	}
	FText GetHintText() const
	{
		return EditableText->GetHintText();
	}
	void SetTextStyle(const FTextBlockStyle* InTextStyle)
	{
		EditableText->SetTextStyle(InTextStyle);
	}
	SLATE_API void SetStyle(const FEditableTextBoxStyle* InStyle);
	void SetTextBoxBackgroundColor(const TAttribute<FSlateColor>& InColor)
	{
		SetBorderBackgroundColor(InColor);
	}
	void SetIsReadOnly(const TAttribute<bool>& InIsReadOnly)
	{
		EditableText->SetIsReadOnly(InIsReadOnly);
	}
	void SetOnKeyDownHandler(FOnKeyDown InOnKeyDownHandler)
	{
		EditableText->SetOnKeyDownHandler(InOnKeyDownHandler);
	}
	FText GetSelectedText() const
	{
		return EditableText->GetSelectedText();
	}
	/** The inner text widget (the stand-in's page edits it). */
	const TSharedPtr<SMultiLineEditableText>& GetStandInEditableText() const
	{
		return EditableText;
	}

private:
	TSharedPtr<SMultiLineEditableText> EditableText;
	FEditableTextBoxStyle BoxStyle;
};
