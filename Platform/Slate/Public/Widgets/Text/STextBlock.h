#pragma once

#include "CoreMinimal.h"
#include "Fonts/SlateFontInfo.h"
#include "Styling/SlateColor.h"
#include "Styling/SlateTypes.h"
#include "Widgets/SLeafWidget.h"

/** Read-only text in one font and colour; the style gives what the arguments leave unset. */
class STextBlock : public SLeafWidget
{
public:
	SLATE_BEGIN_ARGS(STextBlock)
		: _Text()
		, _TextStyle(nullptr)
		, _AutoWrapText(false)
		, _WrapTextAt(0.0f)
		, _Justification(ETextJustify::Left)
		, _Margin(FMargin())
		{}
		SLATE_ATTRIBUTE(FText, Text)
		SLATE_STYLE_ARGUMENT(FTextBlockStyle, TextStyle)
		SLATE_ATTRIBUTE(FSlateFontInfo, Font)
		SLATE_ATTRIBUTE(FSlateColor, ColorAndOpacity)
		SLATE_ATTRIBUTE(FVector2D, ShadowOffset)
		SLATE_ATTRIBUTE(FLinearColor, ShadowColorAndOpacity)
		SLATE_ATTRIBUTE(FSlateColor, HighlightColor)
		SLATE_ATTRIBUTE(FText, HighlightText)
		SLATE_ATTRIBUTE(bool, AutoWrapText)
		SLATE_ATTRIBUTE(float, WrapTextAt)
		SLATE_ATTRIBUTE(ETextJustify::Type, Justification)
		SLATE_ATTRIBUTE(FMargin, Margin)
		SLATE_ATTRIBUTE(float, MinDesiredWidth)
		SLATE_ARGUMENT(TOptional<ETextOverflowPolicy>, OverflowPolicy)
	SLATE_END_ARGS()

	SLATE_API void Construct(const FArguments& InArgs);

	const FText& GetText() const
	{
		return BoundText.Get(FText::GetEmpty());
	}
	void SetText(TAttribute<FText> InText)
	{
		BoundText = MoveTemp(InText);
	}
	void SetFont(TAttribute<FSlateFontInfo> InFont)
	{
		Font = MoveTemp(InFont);
	}
	void SetColorAndOpacity(TAttribute<FSlateColor> InColorAndOpacity)
	{
		ColorAndOpacity = MoveTemp(InColorAndOpacity);
	}
	void SetTextStyle(const FTextBlockStyle* InTextStyle)
	{
		TextStyle = InTextStyle ? *InTextStyle : FTextBlockStyle::GetDefault();
	}
	void SetAutoWrapText(TAttribute<bool> InAutoWrapText)
	{
		AutoWrapText = MoveTemp(InAutoWrapText);
	}
	void SetJustification(TAttribute<ETextJustify::Type> InJustification)
	{
		Justification = MoveTemp(InJustification);
	}
	void SetMargin(TAttribute<FMargin> InMargin)
	{
		Margin = MoveTemp(InMargin);
	}
	/** The font in force: the argument's, else the style's. */
	FSlateFontInfo GetFont() const
	{
		return Font.IsSet() ? Font.Get() : TextStyle.Font;
	}
	/** The colour in force: the argument's, else the style's. */
	FSlateColor GetColorAndOpacity() const
	{
		return ColorAndOpacity.IsSet() ? ColorAndOpacity.Get() : TextStyle.ColorAndOpacity;
	}

	SLATE_API virtual void DescribeForStandIn(FJsonObject& Out) const override;

private:
	TAttribute<FText> BoundText;
	// A copy: the style the caller passed need not outlive the text.
	FTextBlockStyle TextStyle;
	TAttribute<FSlateFontInfo> Font;
	TAttribute<FSlateColor> ColorAndOpacity;
	TAttribute<bool> AutoWrapText;
	TAttribute<ETextJustify::Type> Justification;
	TAttribute<FMargin> Margin;
};
