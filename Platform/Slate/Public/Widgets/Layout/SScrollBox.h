#pragma once

#include "CoreMinimal.h"
#include "Layout/Children.h"
#include "Widgets/Layout/SScrollBar.h"
#include "Widgets/SCompoundWidget.h"

/**
 * A list of children that scrolls. The stand-in's page does the layout and the scrolling, and reports the
 * offsets back; ScrollToEnd is a request that the page carries out when it next draws.
 */
class SScrollBox : public SCompoundWidget
{
public:
	class FSlot : public FSlotBase
	{
	public:
		FSlot()
		{
			SetSizeToAuto();
		}
		struct FSlotArguments : public TSlotArgumentsBase<FSlot, FSlotArguments>
		{
			FSlotArguments& AutoSize()
			{
				Slot->SetSizeToAuto();
				return *this;
			}
			FSlotArguments& FillSize(TAttribute<float> InSize)
			{
				Slot->SetSizeToFill(MoveTemp(InSize));
				return *this;
			}
			FSlotArguments& MaxSize(TAttribute<float> InMaxSize)
			{
				Slot->SetMaxSize(MoveTemp(InMaxSize));
				return *this;
			}
		};
	};
	using FScopedWidgetSlotArguments = TScopedWidgetSlotArguments<FSlot>;

	SLATE_BEGIN_ARGS(SScrollBox)
		: _Orientation(Orient_Vertical)
		, _ScrollBarVisibility(EVisibility::Visible)
		, _ScrollBarAlwaysVisible(false)
		, _ScrollBarThickness(FVector2D(9.0, 9.0))
		, _AllowOverscroll(EAllowOverscroll::Yes)
		, _AnimateWheelScrolling(false)
		, _ConsumeMouseWheel(EConsumeMouseWheel::WhenScrollingPossible)
		, _NavigationScrollPadding(0.0f)
		{}
		SLATE_SLOT_ARGUMENT(SScrollBox::FSlot, Slots)
		SLATE_ARGUMENT(EOrientation, Orientation)
		SLATE_ARGUMENT(EVisibility, ScrollBarVisibility)
		SLATE_ARGUMENT(bool, ScrollBarAlwaysVisible)
		SLATE_ARGUMENT(FVector2D, ScrollBarThickness)
		SLATE_ARGUMENT(EAllowOverscroll, AllowOverscroll)
		SLATE_ARGUMENT(bool, AnimateWheelScrolling)
		SLATE_ARGUMENT(EConsumeMouseWheel, ConsumeMouseWheel)
		SLATE_ARGUMENT(float, NavigationScrollPadding)
		SLATE_EVENT(FOnUserScrolled, OnUserScrolled)
	SLATE_END_ARGS()

	SLATE_API SScrollBox();
	SLATE_API void Construct(const FArguments& InArgs);

	virtual FChildren* GetChildren() override
	{
		return &Children;
	}
	static FSlot::FSlotArguments Slot()
	{
		return FSlot::FSlotArguments();
	}
	SLATE_API FScopedWidgetSlotArguments AddSlot();
	SLATE_API FScopedWidgetSlotArguments InsertSlot(int32 Index);
	/** Removes the child if it is one; gives the index it had, or -1. */
	SLATE_API int32 RemoveSlot(const TSharedRef<SWidget>& WidgetToRemove);
	SLATE_API void ClearChildren();
	int32 NumSlots() const
	{
		return Children.Num();
	}
	FSlot& GetSlot(int32 SlotIndex)
	{
		return Children[SlotIndex];
	}

	/** Asks for the end to be shown when the box is next drawn. */
	SLATE_API void ScrollToEnd();
	SLATE_API void ScrollToStart();
	float GetScrollOffset() const
	{
		return ScrollOffset;
	}
	float GetScrollOffsetOfEnd() const
	{
		return ScrollOffsetOfEnd;
	}
	SLATE_API void SetScrollOffset(float NewScrollOffset);
	float GetViewFraction() const
	{
		return ViewFraction;
	}
	void SetScrollBarAlwaysVisible(bool InAlwaysVisible)
	{
		bScrollBarAlwaysVisible = InAlwaysVisible;
	}
	void SetScrollBarTrackAlwaysVisible(bool InAlwaysVisible)
	{
	}
	void SetOrientation(EOrientation InOrientation)
	{
		Orientation = InOrientation;
	}
	EOrientation GetOrientation() const
	{
		return Orientation;
	}
	void SetOnUserScrolled(const FOnUserScrolled& InHandler)
	{
		OnUserScrolled = InHandler;
	}

	// ---- Stand-in only ----------------------------------------------------------------------------------

	/** The user scrolled the page's box to Offset (of at most EndOffset): tells the handler. */
	SLATE_API void StandInUserScrolled(float Offset, float EndOffset);
	/** The page's layout: the offsets without a user's scroll (after content grew or a scroll to the end). */
	SLATE_API void StandInSetLayout(float Offset, float EndOffset, float InViewFraction);
	/** Rises with each ScrollToEnd; the page scrolls when it sees a new value. */
	int32 GetStandInScrollToEndRequest() const
	{
		return ScrollToEndRequest;
	}
	/** The offset the program last set, rising with each request; -1 when none. */
	int32 GetStandInScrollOffsetRequest() const
	{
		return ScrollOffsetRequest;
	}
	SLATE_API virtual void DescribeForStandIn(FJsonObject& Out) const override;

private:
	TPanelChildren<FSlot> Children;
	FOnUserScrolled OnUserScrolled;
	EOrientation Orientation = Orient_Vertical;
	bool bScrollBarAlwaysVisible = false;
	float ScrollOffset = 0.0f;
	float ScrollOffsetOfEnd = 0.0f;
	float ViewFraction = 1.0f;
	float RequestedOffset = 0.0f;
	int32 ScrollToEndRequest = 0;
	int32 ScrollOffsetRequest = -1;
};
