#include "Widgets/SCompoundWidget.h"

#include "Dom/JsonObject.h"
#include "SlateStandInDescription.h"
#include "Widgets/SBoxPanel.h"

SCompoundWidget::SCompoundWidget()
	: ChildSlot(this)
{
}

void SCompoundWidget::DescribeForStandIn(FJsonObject& Out) const
{
	Out.SetStringField(TEXT("kind"), TEXT("compound"));
	if (ForegroundColorAttribute.IsSet())
	{
		Out.SetField(TEXT("foreground"), SlateStandInDescription::SlateColor(GetForegroundColor()));
	}
	if (ColorAndOpacityAttribute.IsSet())
	{
		Out.SetField(TEXT("colorAndOpacity"), SlateStandInDescription::Color(GetColorAndOpacity()));
	}
}

int32 SBoxPanel::RemoveSlot(const TSharedRef<SWidget>& SlotWidget)
{
	const int32 Index = Children.Remove(SlotWidget);
	if (Index != INDEX_NONE)
	{
		Invalidate(EInvalidateWidgetReason::ChildOrder);
	}
	return Index;
}

void SBoxPanel::ClearChildren()
{
	Children.Empty();
	Invalidate(EInvalidateWidgetReason::ChildOrder);
}

void SBoxPanel::DescribeForStandIn(FJsonObject& Out) const
{
	Out.SetStringField(TEXT("kind"), Orientation == Orient_Vertical ? TEXT("vbox") : TEXT("hbox"));
}
