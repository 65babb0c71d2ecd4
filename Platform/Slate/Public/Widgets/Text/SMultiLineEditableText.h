#pragma once

#include "CoreMinimal.h"
#include "Framework/SlateDelegates.h"
#include "Styling/SlateTypes.h"
#include "Widgets/SLeafWidget.h"

/** The widget interface of editable texts. */
class ISlateEditableTextWidget
{
public:
	virtual ~ISlateEditableTextWidget() = default;
	virtual bool IsTextReadOnly() const = 0;
	virtual bool IsTextPassword() const = 0;
	virtual bool IsMultiLineTextEdit() const = 0;
};

/**
 * Text the user can edit over several lines. Its key handler gets the first chance at a key; a key that
 * nothing handles reaches the text as a character (Enter gives a line end at the caret).
 */
class SMultiLineEditableText : public SLeafWidget, public ISlateEditableTextWidget
{
public:
	SLATE_BEGIN_ARGS(SMultiLineEditableText)
		: _Text()
		, _HintText()
		, _TextStyle(nullptr)
		, _IsReadOnly(false)
		, _AutoWrapText(false)
		, _AllowMultiLine(true)
		, _Justification(ETextJustify::Left)
		, _ModiferKeyForNewLine(EModifierKey::None)
		{}
		SLATE_ATTRIBUTE(FText, Text)
		SLATE_ATTRIBUTE(FText, HintText)
		SLATE_STYLE_ARGUMENT(FTextBlockStyle, TextStyle)
		SLATE_ATTRIBUTE(FSlateFontInfo, Font)
		SLATE_ATTRIBUTE(bool, IsReadOnly)
		SLATE_ATTRIBUTE(bool, AutoWrapText)
		SLATE_ATTRIBUTE(float, WrapTextAt)
		SLATE_ATTRIBUTE(bool, AllowMultiLine)
		SLATE_ATTRIBUTE(bool, AllowContextMenu)
		SLATE_ATTRIBUTE(bool, ClearKeyboardFocusOnCommit)
		SLATE_ATTRIBUTE(bool, ClearTextSelectionOnFocusLoss)
		SLATE_ATTRIBUTE(bool, SelectAllTextWhenFocused)
		SLATE_ATTRIBUTE(ETextJustify::Type, Justification)
		SLATE_ATTRIBUTE(FMargin, Margin)
		SLATE_ARGUMENT(EModifierKey::Type, ModiferKeyForNewLine)
		SLATE_EVENT(FOnTextChanged, OnTextChanged)
		SLATE_EVENT(FOnTextCommitted, OnTextCommitted)
		SLATE_EVENT(FOnKeyDown, OnKeyDownHandler)
	SLATE_END_ARGS()

	SLATE_API void Construct(const FArguments& InArgs);

	/** The text now; a bound text attribute is read. */
	SLATE_API FText GetText() const;
	FText GetPlainText() const
	{
		return GetText();
	}
	/** Replaces the text, without telling the change handler (as in the engine). */
	SLATE_API void SetText(const TAttribute<FText>& InNewText);
	void SetHintText(const TAttribute<FText>& InHintText)
	{
		HintText = InHintText;
	}
	FText GetHintText() const
	{
		return HintText.Get(FText::GetEmpty());
	}
	void SetTextStyle(const FTextBlockStyle* InTextStyle)
	{
		TextStyle = InTextStyle ? *InTextStyle : FTextBlockStyle::GetDefault();
	}
	void SetFont(const TAttribute<FSlateFontInfo>& InNewFont)
	{
		Font = InNewFont;
	}
	void SetIsReadOnly(const TAttribute<bool>& InIsReadOnly)
	{
		bIsReadOnly = InIsReadOnly;
	}
	void SetAutoWrapText(const TAttribute<bool>& InAutoWrapText)
	{
		AutoWrapText = InAutoWrapText;
	}
	void SetJustification(const TAttribute<ETextJustify::Type>& InJustification)
	{
		Justification = InJustification;
	}
	void SetMargin(const TAttribute<FMargin>& InMargin)
	{
		Margin = InMargin;
	}
	void SetOnKeyDownHandler(FOnKeyDown InOnKeyDownHandler)
	{
		OnKeyDownHandler = InOnKeyDownHandler;
	}
	SLATE_API FText GetSelectedText() const;
	SLATE_API void SelectAllText();
	SLATE_API void ClearSelection();
	SLATE_API void GoTo(int32 CharacterIndex);
	/** Inserts at the caret, replacing the selection. */
	SLATE_API void InsertTextAtCursor(const FString& InString);

	FSlateFontInfo GetFont() const
	{
		return Font.IsSet() ? Font.Get() : TextStyle.Font;
	}
	const FTextBlockStyle& GetTextStyle() const
	{
		return TextStyle;
	}

	virtual bool IsTextReadOnly() const override
	{
		return bIsReadOnly.Get(false);
	}
	virtual bool IsTextPassword() const override
	{
		return false;
	}
	virtual bool IsMultiLineTextEdit() const override
	{
		return true;
	}
	virtual bool SupportsKeyboardFocus() const override
	{
		return true;
	}
	SLATE_API virtual FReply OnKeyDown(const FGeometry& MyGeometry, const FKeyEvent& InKeyEvent) override;
	SLATE_API virtual FReply OnKeyChar(const FGeometry& MyGeometry, const FCharacterEvent& InCharacterEvent) override;

	// ---- Stand-in only ----------------------------------------------------------------------------------

	/** The user edited the text in the page: the new text and caret; tells the change handler. */
	SLATE_API void StandInUserEdited(const FString& NewText, int32 CaretIndex);
	void StandInSetCaret(int32 CaretIndex)
	{
		Caret = CaretIndex;
	}
	int32 GetStandInCaret() const
	{
		return Caret;
	}
	/** Rises with each change of the text that did not come from the page. */
	int32 GetStandInTextVersion() const
	{
		return TextVersion;
	}
	SLATE_API virtual void DescribeForStandIn(FJsonObject& Out) const override;

private:
	TAttribute<FText> BoundText;
	// The text being edited, when the text isn't bound to a getter.
	FText EditedText;
	TAttribute<FText> HintText;
	FTextBlockStyle TextStyle;
	TAttribute<FSlateFontInfo> Font;
	TAttribute<bool> bIsReadOnly;
	TAttribute<bool> AutoWrapText;
	TAttribute<ETextJustify::Type> Justification;
	TAttribute<FMargin> Margin;
	FOnTextChanged OnTextChanged;
	FOnTextCommitted OnTextCommitted;
	FOnKeyDown OnKeyDownHandler;
	EModifierKey::Type ModiferKeyForNewLine = EModifierKey::None;
	// Caret as a character index, -1 for the end; the page reports it.
	int32 Caret = -1;
	int32 SelectionStart = -1;
	int32 TextVersion = 0;
};
