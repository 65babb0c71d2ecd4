#pragma once

#include "CoreMinimal.h"
#include "Framework/SlateDelegates.h"
#include "Styling/SlateTypes.h"
#include "Widgets/Layout/SBorder.h"

/**
 * A clickable border. Its style gives a brush for each state (normal, hovered, pressed, disabled); a
 * disabled or hidden button takes no click.
 */
class SButton : public SBorder
{
public:
	SLATE_BEGIN_ARGS(SButton)
		: _Text()
		, _HAlign(HAlign_Fill)
		, _VAlign(VAlign_Fill)
		, _ContentPadding(FMargin(4.0f, 2.0f))
		, _ButtonStyle(nullptr)
		, _TextStyle(nullptr)
		, _ClickMethod(EButtonClickMethod::DownAndUp)
		, _PressMethod(EButtonPressMethod::DownAndUp)
		, _IsFocusable(true)
		, _ButtonColorAndOpacity(FLinearColor::White)
		, _ForegroundColor(FSlateColor::UseForeground())
		{}
		SLATE_DEFAULT_SLOT(FArguments, Content)
		SLATE_ATTRIBUTE(FText, Text)
		SLATE_ARGUMENT(EHorizontalAlignment, HAlign)
		SLATE_ARGUMENT(EVerticalAlignment, VAlign)
		SLATE_ATTRIBUTE(FMargin, ContentPadding)
		SLATE_STYLE_ARGUMENT(FButtonStyle, ButtonStyle)
		SLATE_STYLE_ARGUMENT(FTextBlockStyle, TextStyle)
		SLATE_ARGUMENT(EButtonClickMethod::Type, ClickMethod)
		SLATE_ARGUMENT(EButtonPressMethod::Type, PressMethod)
		SLATE_ARGUMENT(bool, IsFocusable)
		SLATE_ATTRIBUTE(FSlateColor, ButtonColorAndOpacity)
		SLATE_ATTRIBUTE(FSlateColor, ForegroundColor)
		SLATE_ATTRIBUTE(FVector2D, ContentScale)
		SLATE_ATTRIBUTE(FVector2D, DesiredSizeScale)
		SLATE_EVENT(FOnClicked, OnClicked)
		SLATE_EVENT(FSimpleDelegate, OnPressed)
		SLATE_EVENT(FSimpleDelegate, OnReleased)
		SLATE_EVENT(FSimpleDelegate, OnHovered)
		SLATE_EVENT(FSimpleDelegate, OnUnhovered)
	SLATE_END_ARGS()

	SLATE_API SButton();
	SLATE_API void Construct(const FArguments& InArgs);

	/** Runs the click handler, as a click does; gives Unhandled when none is bound. */
	SLATE_API FReply ExecuteOnClick();
	void SetOnClicked(FOnClicked InOnClicked)
	{
		OnClicked = InOnClicked;
	}
	SLATE_API void SetButtonStyle(const FButtonStyle* InButtonStyle);
	const FButtonStyle& GetButtonStyle() const
	{
		return Style;
	}
	void SetContentPadding(TAttribute<FMargin> InContentPadding)
	{
		SetPadding(MoveTemp(InContentPadding));
	}
	void SetClickMethod(EButtonClickMethod::Type InClickMethod)
	{
	}
	bool IsPressed() const
	{
		return false;
	}
	virtual bool SupportsKeyboardFocus() const override
	{
		return bIsFocusable;
	}

	SLATE_API virtual void DescribeForStandIn(FJsonObject& Out) const override;

private:
	FOnClicked OnClicked;
	// A copy, so that the page draws the states the button was given.
	FButtonStyle Style;
	bool bIsFocusable = true;
};
