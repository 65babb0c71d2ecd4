// Borders, boxes, spacers, images and the scroll box.
#include "Dom/JsonObject.h"
#include "SlateStandInDescription.h"
#include "Styling/CoreStyle.h"
#include "Widgets/Images/SImage.h"
#include "Widgets/Layout/SBorder.h"
#include "Widgets/Layout/SBox.h"
#include "Widgets/Layout/SScrollBox.h"
#include "Widgets/Layout/SSpacer.h"

using namespace SlateStandInDescription;

// ---- SBorder ---------------------------------------------------------------------------------------------

SBorder::SBorder()
	: BorderImageAttribute(FCoreStyleBorderBrush())
	, BorderBackgroundColorAttribute(FSlateColor(FLinearColor::White))
{
}

const FSlateBrush* SBorder::FCoreStyleBorderBrush()
{
	return FCoreStyle::Get().GetBrush(TEXT("Border"));
}

void SBorder::Construct(const FArguments& InArgs)
{
	BorderImageAttribute = InArgs._BorderImage;
	BorderBackgroundColorAttribute = InArgs._BorderBackgroundColor;
	ForegroundColorAttribute = InArgs._ForegroundColor;
	ColorAndOpacityAttribute = InArgs._ColorAndOpacity;
	ChildSlot.SetPadding(InArgs._Padding);
	ChildSlot.SetHorizontalAlignment(InArgs._HAlign);
	ChildSlot.SetVerticalAlignment(InArgs._VAlign);
	ChildSlot[InArgs._Content.Widget];
}

void SBorder::SetContent(TSharedRef<SWidget> InContent)
{
	ChildSlot[InContent];
	Invalidate(EInvalidateWidgetReason::ChildOrder);
}

void SBorder::ClearContent()
{
	ChildSlot.DetachWidget();
	Invalidate(EInvalidateWidgetReason::ChildOrder);
}

void SBorder::DescribeForStandIn(FJsonObject& Out) const
{
	SCompoundWidget::DescribeForStandIn(Out);
	Out.SetStringField(TEXT("kind"), TEXT("border"));
	Out.SetField(TEXT("brush"), Brush(GetBorderImage()));
	Out.SetField(TEXT("background"), SlateColor(GetBorderBackgroundColor()));
}

// ---- SBox ------------------------------------------------------------------------------------------------

SBox::SBox()
	: ChildSlot(this)
{
}

void SBox::Construct(const FArguments& InArgs)
{
	WidthOverride = InArgs._WidthOverride;
	HeightOverride = InArgs._HeightOverride;
	MinDesiredWidth = InArgs._MinDesiredWidth;
	MinDesiredHeight = InArgs._MinDesiredHeight;
	MaxDesiredWidth = InArgs._MaxDesiredWidth;
	MaxDesiredHeight = InArgs._MaxDesiredHeight;
	ChildSlot.SetPadding(InArgs._Padding);
	ChildSlot.SetHorizontalAlignment(InArgs._HAlign);
	ChildSlot.SetVerticalAlignment(InArgs._VAlign);
	ChildSlot[InArgs._Content.Widget];
}

void SBox::SetContent(const TSharedRef<SWidget>& InContent)
{
	ChildSlot[InContent];
	Invalidate(EInvalidateWidgetReason::ChildOrder);
}

void SBox::DescribeForStandIn(FJsonObject& Out) const
{
	Out.SetStringField(TEXT("kind"), TEXT("box"));
	auto SetSize = [&Out](const TCHAR* Name, const TAttribute<FOptionalSize>& Size)
	{
		const FOptionalSize Value = Size.Get(FOptionalSize());
		if (Value.IsSet())
		{
			Out.SetNumberField(Name, Value.Get());
		}
	};
	SetSize(TEXT("width"), WidthOverride);
	SetSize(TEXT("height"), HeightOverride);
	SetSize(TEXT("minWidth"), MinDesiredWidth);
	SetSize(TEXT("minHeight"), MinDesiredHeight);
	SetSize(TEXT("maxWidth"), MaxDesiredWidth);
	SetSize(TEXT("maxHeight"), MaxDesiredHeight);
}

// ---- SSpacer and SImage ----------------------------------------------------------------------------------

void SSpacer::Construct(const FArguments& InArgs)
{
	SpacerSize = InArgs._Size;
}

void SSpacer::DescribeForStandIn(FJsonObject& Out) const
{
	Out.SetStringField(TEXT("kind"), TEXT("spacer"));
	Out.SetNumberField(TEXT("width"), GetSize().X);
	Out.SetNumberField(TEXT("height"), GetSize().Y);
}

void SImage::Construct(const FArguments& InArgs)
{
	Image = InArgs._Image;
	ColorAndOpacity = InArgs._ColorAndOpacity;
}

void SImage::DescribeForStandIn(FJsonObject& Out) const
{
	Out.SetStringField(TEXT("kind"), TEXT("image"));
	Out.SetField(TEXT("brush"), Brush(GetImage()));
	Out.SetField(TEXT("color"), SlateColor(ColorAndOpacity.Get(FSlateColor(FLinearColor::White))));
}

// ---- SScrollBox ------------------------------------------------------------------------------------------

SScrollBox::SScrollBox()
	: Children(this)
{
}

void SScrollBox::Construct(const FArguments& InArgs)
{
	Orientation = InArgs._Orientation;
	bScrollBarAlwaysVisible = InArgs._ScrollBarAlwaysVisible;
	OnUserScrolled = InArgs._OnUserScrolled;
	for (FSlot::FSlotArguments& Arguments : const_cast<TArray<FSlot::FSlotArguments>&>(InArgs._Slots))
	{
		Children.InsertSlot(Arguments.StealSlot());
	}
}

SScrollBox::FScopedWidgetSlotArguments SScrollBox::AddSlot()
{
	return InsertSlot(INDEX_NONE);
}

SScrollBox::FScopedWidgetSlotArguments SScrollBox::InsertSlot(int32 Index)
{
	return FScopedWidgetSlotArguments(
		[this](TUniquePtr<FSlot> NewSlot, int32 AtIndex)
		{
			Children.InsertSlot(MoveTemp(NewSlot), AtIndex);
			Invalidate(EInvalidateWidgetReason::ChildOrder);
		},
		Index);
}

int32 SScrollBox::RemoveSlot(const TSharedRef<SWidget>& WidgetToRemove)
{
	const int32 Index = Children.Remove(WidgetToRemove);
	if (Index != INDEX_NONE)
	{
		Invalidate(EInvalidateWidgetReason::ChildOrder);
	}
	return Index;
}

void SScrollBox::ClearChildren()
{
	Children.Empty();
	Invalidate(EInvalidateWidgetReason::ChildOrder);
}

void SScrollBox::ScrollToEnd()
{
	++ScrollToEndRequest;
	ScrollOffset = ScrollOffsetOfEnd;
	Invalidate(EInvalidateWidgetReason::Layout);
}

void SScrollBox::ScrollToStart()
{
	SetScrollOffset(0.0f);
}

void SScrollBox::SetScrollOffset(float NewScrollOffset)
{
	RequestedOffset = NewScrollOffset < 0.0f ? 0.0f : NewScrollOffset;
	ScrollOffset = RequestedOffset;
	++ScrollOffsetRequest;
	Invalidate(EInvalidateWidgetReason::Layout);
}

void SScrollBox::StandInUserScrolled(float Offset, float EndOffset)
{
	ScrollOffset = Offset;
	ScrollOffsetOfEnd = EndOffset;
	OnUserScrolled.ExecuteIfBound(Offset);
}

void SScrollBox::StandInSetLayout(float Offset, float EndOffset, float InViewFraction)
{
	ScrollOffset = Offset;
	ScrollOffsetOfEnd = EndOffset;
	ViewFraction = InViewFraction;
}

void SScrollBox::DescribeForStandIn(FJsonObject& Out) const
{
	SCompoundWidget::DescribeForStandIn(Out);
	Out.SetStringField(TEXT("kind"), TEXT("scroll"));
	Out.SetStringField(TEXT("orientation"), Orientation == Orient_Vertical ? TEXT("vertical") : TEXT("horizontal"));
	Out.SetNumberField(TEXT("scrollToEnd"), ScrollToEndRequest);
	if (ScrollOffsetRequest >= 0)
	{
		Out.SetNumberField(TEXT("offsetRequest"), ScrollOffsetRequest);
		Out.SetNumberField(TEXT("offset"), RequestedOffset);
	}
	Out.SetBoolField(TEXT("alwaysShowScrollbar"), bScrollBarAlwaysVisible);
}
