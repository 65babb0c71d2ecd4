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

namespace
{
	template<typename SlotType, typename ChildrenType>
	TScopedWidgetSlotArguments<SlotType> MakeScopedSlot(SWidget* Panel, ChildrenType& Children, int32 Index)
	{
		return TScopedWidgetSlotArguments<SlotType>(
			[Panel, &Children](TUniquePtr<SlotType> NewSlot, int32 AtIndex)
			{
				Children.InsertSlot(MoveTemp(NewSlot), AtIndex);
				Panel->Invalidate(EInvalidateWidgetReason::ChildOrder);
			},
			Index);
	}
}

SVerticalBox::FScopedWidgetSlotArguments SVerticalBox::AddSlot()
{
	return MakeScopedSlot<FSlot>(this, Children, INDEX_NONE);
}

SVerticalBox::FScopedWidgetSlotArguments SVerticalBox::InsertSlot(int32 Index)
{
	return MakeScopedSlot<FSlot>(this, Children, Index);
}

SHorizontalBox::FScopedWidgetSlotArguments SHorizontalBox::AddSlot()
{
	return MakeScopedSlot<FSlot>(this, Children, INDEX_NONE);
}

SHorizontalBox::FScopedWidgetSlotArguments SHorizontalBox::InsertSlot(int32 Index)
{
	return MakeScopedSlot<FSlot>(this, Children, Index);
}
