#pragma once

#include "CoreMinimal.h"
#include "Styling/SlateBrush.h"
#include "Styling/SlateColor.h"
#include "Widgets/SCompoundWidget.h"

/** A brush behind one child: the background, tinted by the background colour, then the padded content. */
class SBorder : public SCompoundWidget
{
public:
	SLATE_BEGIN_ARGS(SBorder)
		: _HAlign(HAlign_Fill)
		, _VAlign(VAlign_Fill)
		, _Padding(FMargin(2.0f))
		, _BorderImage(FCoreStyleBorderBrush())
		, _ContentScale(FVector2D(1.0, 1.0))
		, _DesiredSizeScale(FVector2D(1.0, 1.0))
		, _ColorAndOpacity(FLinearColor::White)
		, _BorderBackgroundColor(FLinearColor::White)
		, _ForegroundColor(FSlateColor::UseForeground())
		, _ShowEffectWhenDisabled(true)
		{}
		SLATE_DEFAULT_SLOT(FArguments, Content)
		SLATE_ARGUMENT(EHorizontalAlignment, HAlign)
		SLATE_ARGUMENT(EVerticalAlignment, VAlign)
		SLATE_ATTRIBUTE(FMargin, Padding)
		SLATE_ATTRIBUTE(const FSlateBrush*, BorderImage)
		SLATE_ATTRIBUTE(FVector2D, ContentScale)
		SLATE_ATTRIBUTE(FVector2D, DesiredSizeScale)
		SLATE_ATTRIBUTE(FLinearColor, ColorAndOpacity)
		SLATE_ATTRIBUTE(FSlateColor, BorderBackgroundColor)
		SLATE_ATTRIBUTE(FSlateColor, ForegroundColor)
		SLATE_ARGUMENT(bool, ShowEffectWhenDisabled)
	SLATE_END_ARGS()

	SLATE_API SBorder();
	SLATE_API void Construct(const FArguments& InArgs);

	SLATE_API void SetContent(TSharedRef<SWidget> InContent);
	const TSharedRef<SWidget>& GetContent() const
	{
		return ChildSlot.GetWidget();
	}
	SLATE_API void ClearContent();
	void SetBorderImage(TAttribute<const FSlateBrush*> InBorderImage)
	{
		BorderImageAttribute = MoveTemp(InBorderImage);
	}
	const FSlateBrush* GetBorderImage() const
	{
		return BorderImageAttribute.Get(nullptr);
	}
	void SetBorderBackgroundColor(TAttribute<FSlateColor> InColor)
	{
		BorderBackgroundColorAttribute = MoveTemp(InColor);
	}
	FSlateColor GetBorderBackgroundColor() const
	{
		return BorderBackgroundColorAttribute.Get(FSlateColor(FLinearColor::White));
	}
	void SetPadding(TAttribute<FMargin> InPadding)
	{
		ChildSlot.SetPadding(MoveTemp(InPadding));
	}
	void SetHAlign(EHorizontalAlignment InAlignment)
	{
		ChildSlot.SetHorizontalAlignment(InAlignment);
	}
	void SetVAlign(EVerticalAlignment InAlignment)
	{
		ChildSlot.SetVerticalAlignment(InAlignment);
	}

	SLATE_API virtual void DescribeForStandIn(FJsonObject& Out) const override;

protected:
	/** The default background: the core style's "Border" brush. */
	static SLATE_API const FSlateBrush* FCoreStyleBorderBrush();

	TAttribute<const FSlateBrush*> BorderImageAttribute;
	TAttribute<FSlateColor> BorderBackgroundColorAttribute;
};
