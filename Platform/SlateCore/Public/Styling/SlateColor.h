#pragma once

#include "CoreMinimal.h"

enum class ESlateColorStylingMode : uint8
{
	UseColor_Specified,
	UseColor_ColorTable,
	UseColor_Foreground,
	UseColor_Foreground_Subdued,
	UseColor_Specified_Link,
	UseColor_Unset
};

/** A colour, or a reference to the foreground colour that the enclosing widget hands down. */
struct FSlateColor
{
	FSlateColor()
		: SpecifiedColor(1.0f, 0.0f, 1.0f, 1.0f)
		, ColorUseRule(ESlateColorStylingMode::UseColor_Unset)
	{
	}
	FSlateColor(const FLinearColor& InColor)
		: SpecifiedColor(InColor)
		, ColorUseRule(ESlateColorStylingMode::UseColor_Specified)
	{
	}
	FSlateColor(const FColor InColor)
		: FSlateColor(FLinearColor(InColor))
	{
	}
	FSlateColor(const TSharedRef<FLinearColor>& InColor)
		: SpecifiedColor(*InColor)
		, ColorUseRule(ESlateColorStylingMode::UseColor_Specified_Link)
		, LinkedSpecifiedColor(InColor)
	{
	}

	static FSlateColor UseForeground()
	{
		return FSlateColor(ESlateColorStylingMode::UseColor_Foreground);
	}
	static FSlateColor UseSubduedForeground()
	{
		return FSlateColor(ESlateColorStylingMode::UseColor_Foreground_Subdued);
	}

	/** The colour itself; the magenta of an unset colour otherwise. */
	const FLinearColor& GetSpecifiedColor() const
	{
		return LinkedSpecifiedColor.IsValid() ? *LinkedSpecifiedColor : SpecifiedColor;
	}
	bool IsColorSpecified() const
	{
		return ColorUseRule == ESlateColorStylingMode::UseColor_Specified || ColorUseRule == ESlateColorStylingMode::UseColor_Specified_Link;
	}
	ESlateColorStylingMode GetColorUseRule() const
	{
		return ColorUseRule;
	}
	/** The colour to draw with, given the foreground colour in force. */
	FLinearColor GetColor(const FLinearColor& InheritedForeground) const
	{
		switch (ColorUseRule)
		{
		case ESlateColorStylingMode::UseColor_Foreground:
			return InheritedForeground;
		case ESlateColorStylingMode::UseColor_Foreground_Subdued:
			return InheritedForeground.CopyWithNewOpacity(InheritedForeground.A * 0.5f);
		default:
			return GetSpecifiedColor();
		}
	}

	bool operator==(const FSlateColor& Other) const
	{
		return ColorUseRule == Other.ColorUseRule && GetSpecifiedColor() == Other.GetSpecifiedColor();
	}
	bool operator!=(const FSlateColor& Other) const
	{
		return !(*this == Other);
	}

private:
	explicit FSlateColor(ESlateColorStylingMode InRule)
		: SpecifiedColor(1.0f, 0.0f, 1.0f, 1.0f)
		, ColorUseRule(InRule)
	{
	}
	FLinearColor SpecifiedColor;
	ESlateColorStylingMode ColorUseRule;
	TSharedPtr<FLinearColor> LinkedSpecifiedColor;
};
