// The widget styles: text blocks, buttons, editable text boxes.
#pragma once

#include "CoreMinimal.h"
#include "Fonts/SlateFontInfo.h"
#include "Layout/Margin.h"
#include "Styling/SlateBrush.h"
#include "Styling/SlateColor.h"
#include "Styling/SlateWidgetStyle.h"
#include "Types/SlateEnums.h"

struct FTextBlockStyle : public FSlateWidgetStyle
{
	SLATECORE_API static const FName TypeName;
	virtual const FName GetTypeName() const override
	{
		return TypeName;
	}
	SLATECORE_API static const FTextBlockStyle& GetDefault();

	FSlateFontInfo Font;
	FSlateColor ColorAndOpacity = FSlateColor(FLinearColor::White);
	FVector2D ShadowOffset = FVector2D(0.0, 0.0);
	FLinearColor ShadowColorAndOpacity = FLinearColor::Black;
	FSlateColor SelectedBackgroundColor = FSlateColor(FLinearColor(0.1f, 0.3f, 0.8f, 1.0f));
	FSlateColor HighlightColor = FSlateColor(FLinearColor(0.02f, 0.3f, 0.0f, 1.0f));
	FSlateBrush HighlightShape;
	FSlateBrush StrikeBrush;
	FSlateBrush UnderlineBrush;
	ETextTransformPolicy TransformPolicy = ETextTransformPolicy::None;
	ETextOverflowPolicy OverflowPolicy = ETextOverflowPolicy::Clip;

	FTextBlockStyle& SetFont(const FSlateFontInfo& InFont)
	{
		Font = InFont;
		return *this;
	}
	FTextBlockStyle& SetFont(const FName& InFontName, float InSize)
	{
		Font.TypefaceFontName = InFontName;
		Font.Size = InSize;
		return *this;
	}
	FTextBlockStyle& SetFont(const FString& InFontName, float InSize)
	{
		return SetFont(FName(*InFontName), InSize);
	}
	FTextBlockStyle& SetFont(const TCHAR* InFontName, float InSize)
	{
		return SetFont(FName(InFontName), InSize);
	}
	FTextBlockStyle& SetFont(const ANSICHAR* InFontName, float InSize)
	{
		return SetFont(FName(InFontName), InSize);
	}
	FTextBlockStyle& SetFontName(const FName& InFontName)
	{
		Font.TypefaceFontName = InFontName;
		return *this;
	}
	FTextBlockStyle& SetTypefaceFontName(const FName& InFontName)
	{
		Font.TypefaceFontName = InFontName;
		return *this;
	}
	FTextBlockStyle& SetFontSize(float InSize)
	{
		Font.Size = InSize;
		return *this;
	}
	FTextBlockStyle& SetColorAndOpacity(const FSlateColor& InColorAndOpacity)
	{
		ColorAndOpacity = InColorAndOpacity;
		return *this;
	}
	FTextBlockStyle& SetShadowOffset(const FVector2D& InShadowOffset)
	{
		ShadowOffset = InShadowOffset;
		return *this;
	}
	FTextBlockStyle& SetShadowColorAndOpacity(const FLinearColor& InColor)
	{
		ShadowColorAndOpacity = InColor;
		return *this;
	}
	FTextBlockStyle& SetSelectedBackgroundColor(const FSlateColor& InColor)
	{
		SelectedBackgroundColor = InColor;
		return *this;
	}
	FTextBlockStyle& SetHighlightColor(const FSlateColor& InColor)
	{
		HighlightColor = InColor;
		return *this;
	}
	FTextBlockStyle& SetHighlightShape(const FSlateBrush& InBrush)
	{
		HighlightShape = InBrush;
		return *this;
	}
	FTextBlockStyle& SetTransformPolicy(ETextTransformPolicy InPolicy)
	{
		TransformPolicy = InPolicy;
		return *this;
	}
	FTextBlockStyle& SetOverflowPolicy(ETextOverflowPolicy InPolicy)
	{
		OverflowPolicy = InPolicy;
		return *this;
	}
};

struct FButtonStyle : public FSlateWidgetStyle
{
	SLATECORE_API static const FName TypeName;
	virtual const FName GetTypeName() const override
	{
		return TypeName;
	}
	SLATECORE_API static const FButtonStyle& GetDefault();

	FSlateBrush Normal;
	FSlateBrush Hovered;
	FSlateBrush Pressed;
	FSlateBrush Disabled;
	FSlateColor NormalForeground = FSlateColor::UseForeground();
	FSlateColor HoveredForeground = FSlateColor::UseForeground();
	FSlateColor PressedForeground = FSlateColor::UseForeground();
	FSlateColor DisabledForeground = FSlateColor::UseForeground();
	FMargin NormalPadding;
	FMargin PressedPadding;

	FButtonStyle& SetNormal(const FSlateBrush& InNormal)
	{
		Normal = InNormal;
		return *this;
	}
	FButtonStyle& SetHovered(const FSlateBrush& InHovered)
	{
		Hovered = InHovered;
		return *this;
	}
	FButtonStyle& SetPressed(const FSlateBrush& InPressed)
	{
		Pressed = InPressed;
		return *this;
	}
	FButtonStyle& SetDisabled(const FSlateBrush& InDisabled)
	{
		Disabled = InDisabled;
		return *this;
	}
	FButtonStyle& SetNormalForeground(const FSlateColor& InColor)
	{
		NormalForeground = InColor;
		return *this;
	}
	FButtonStyle& SetHoveredForeground(const FSlateColor& InColor)
	{
		HoveredForeground = InColor;
		return *this;
	}
	FButtonStyle& SetPressedForeground(const FSlateColor& InColor)
	{
		PressedForeground = InColor;
		return *this;
	}
	FButtonStyle& SetDisabledForeground(const FSlateColor& InColor)
	{
		DisabledForeground = InColor;
		return *this;
	}
	FButtonStyle& SetNormalPadding(const FMargin& InPadding)
	{
		NormalPadding = InPadding;
		return *this;
	}
	FButtonStyle& SetPressedPadding(const FMargin& InPadding)
	{
		PressedPadding = InPadding;
		return *this;
	}
};

struct FEditableTextBoxStyle : public FSlateWidgetStyle
{
	SLATECORE_API static const FName TypeName;
	virtual const FName GetTypeName() const override
	{
		return TypeName;
	}
	SLATECORE_API static const FEditableTextBoxStyle& GetDefault();

	FSlateBrush BackgroundImageNormal;
	FSlateBrush BackgroundImageHovered;
	FSlateBrush BackgroundImageFocused;
	FSlateBrush BackgroundImageReadOnly;
	FMargin Padding = FMargin(4.0f, 2.0f);
	FTextBlockStyle TextStyle;
	FSlateColor ForegroundColor = FSlateColor::UseForeground();
	FSlateColor BackgroundColor = FSlateColor(FLinearColor::White);
	FSlateColor ReadOnlyForegroundColor = FSlateColor::UseForeground();

	FEditableTextBoxStyle& SetBackgroundImageNormal(const FSlateBrush& InBrush)
	{
		BackgroundImageNormal = InBrush;
		return *this;
	}
	FEditableTextBoxStyle& SetBackgroundImageHovered(const FSlateBrush& InBrush)
	{
		BackgroundImageHovered = InBrush;
		return *this;
	}
	FEditableTextBoxStyle& SetBackgroundImageFocused(const FSlateBrush& InBrush)
	{
		BackgroundImageFocused = InBrush;
		return *this;
	}
	FEditableTextBoxStyle& SetBackgroundImageReadOnly(const FSlateBrush& InBrush)
	{
		BackgroundImageReadOnly = InBrush;
		return *this;
	}
	FEditableTextBoxStyle& SetPadding(const FMargin& InPadding)
	{
		Padding = InPadding;
		return *this;
	}
	FEditableTextBoxStyle& SetTextStyle(const FTextBlockStyle& InTextStyle)
	{
		TextStyle = InTextStyle;
		return *this;
	}
	FEditableTextBoxStyle& SetFont(const FSlateFontInfo& InFont)
	{
		TextStyle.Font = InFont;
		return *this;
	}
	FEditableTextBoxStyle& SetForegroundColor(const FSlateColor& InColor)
	{
		ForegroundColor = InColor;
		return *this;
	}
	FEditableTextBoxStyle& SetBackgroundColor(const FSlateColor& InColor)
	{
		BackgroundColor = InColor;
		return *this;
	}
};

struct FComboBoxStyle : public FSlateWidgetStyle
{
	SLATECORE_API static const FName TypeName;
	virtual const FName GetTypeName() const override
	{
		return TypeName;
	}
	SLATECORE_API static const FComboBoxStyle& GetDefault();

	FButtonStyle ButtonStyle;
	FMargin ContentPadding = FMargin(4.0f, 2.0f);
};
