#pragma once

#include "CoreMinimal.h"
#include "Layout/Children.h"
#include "Styling/SlateColor.h"
#include "Widgets/DeclarativeSyntaxSupport.h"
#include "Widgets/SWidget.h"

/** A widget made of one child tree, which it builds in Construct: `ChildSlot[ ... ];`. */
class SCompoundWidget : public SWidget
{
public:
	SLATECORE_API SCompoundWidget();

	virtual FChildren* GetChildren() override
	{
		return &ChildSlot;
	}

	FSlateColor GetForegroundColor() const
	{
		return ForegroundColorAttribute.Get(FSlateColor::UseForeground());
	}
	void SetForegroundColor(TAttribute<FSlateColor> InForegroundColor)
	{
		ForegroundColorAttribute = MoveTemp(InForegroundColor);
	}
	FLinearColor GetColorAndOpacity() const
	{
		return ColorAndOpacityAttribute.Get(FLinearColor::White);
	}
	void SetColorAndOpacity(TAttribute<FLinearColor> InColorAndOpacity)
	{
		ColorAndOpacityAttribute = MoveTemp(InColorAndOpacity);
	}

	SLATECORE_API virtual void DescribeForStandIn(FJsonObject& Out) const override;

protected:
	FCompoundWidgetOneChildSlot ChildSlot;
	TAttribute<FSlateColor> ForegroundColorAttribute;
	TAttribute<FLinearColor> ColorAndOpacityAttribute;
};
