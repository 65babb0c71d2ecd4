#include "Layout/Children.h"

#include "SlateStandInDescription.h"
#include "Widgets/SNullWidget.h"

FSlotBase::~FSlotBase()
{
	Widget->ConditionallyDetatchParentWidget(OwnerWidget);
}

void FSlotBase::AttachWidget(const TSharedRef<SWidget>& InWidget)
{
	Widget->ConditionallyDetatchParentWidget(OwnerWidget);
	Widget = InWidget;
	SetOwnerWidget(OwnerWidget);
}

TSharedRef<SWidget> FSlotBase::DetachWidget()
{
	TSharedRef<SWidget> Detached = Widget;
	Detached->ConditionallyDetatchParentWidget(OwnerWidget);
	Widget = SNullWidget::NullWidget;
	return Detached;
}

void FSlotBase::SetOwnerWidget(SWidget* InOwner)
{
	OwnerWidget = InOwner;
	// The null widget is shared by every empty slot and has no parent.
	if (OwnerWidget && &Widget.Get() != &SNullWidget::NullWidget.Get() && OwnerWidget->DoesSharedInstanceExist())
	{
		Widget->AssignParentWidget(OwnerWidget->AsShared());
	}
}

void FSlotBase::DescribeForStandIn(FJsonObject& Out) const
{
	Out.SetField(TEXT("padding"), SlateStandInDescription::Margin(GetPadding()));
	static const TCHAR* const HNames[] = {TEXT("fill"), TEXT("left"), TEXT("center"), TEXT("right")};
	static const TCHAR* const VNames[] = {TEXT("fill"), TEXT("top"), TEXT("center"), TEXT("bottom")};
	Out.SetStringField(TEXT("halign"), HNames[HAlignment]);
	Out.SetStringField(TEXT("valign"), VNames[VAlignment]);
	Out.SetStringField(TEXT("size"), SizeRule == ESizeRule::Auto ? TEXT("auto") : TEXT("fill"));
	Out.SetNumberField(TEXT("fill"), GetSizeValue());
	if (GetMaxSize() > 0.0f)
	{
		Out.SetNumberField(TEXT("max"), GetMaxSize());
	}
}
