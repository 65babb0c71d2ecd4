// Vertical and horizontal boxes: children one after the other, each slot auto-sized or filling a share.
#pragma once

#include "CoreMinimal.h"
#include "Layout/Children.h"
#include "Widgets/SPanel.h"

class SBoxPanel : public SPanel
{
public:
	class FSlot : public FSlotBase
	{
	};

	virtual FChildren* GetChildren() override
	{
		return &Children;
	}
	int32 NumSlots() const
	{
		return Children.Num();
	}
	/** Gives the index the widget had, or -1 when it wasn't a child. */
	SLATECORE_API int32 RemoveSlot(const TSharedRef<SWidget>& SlotWidget);
	SLATECORE_API void ClearChildren();
	EOrientation GetOrientation() const
	{
		return Orientation;
	}
	SLATECORE_API virtual void DescribeForStandIn(FJsonObject& Out) const override;

protected:
	explicit SBoxPanel(EOrientation InOrientation)
		: Children(this)
		, Orientation(InOrientation)
	{
	}
	template<typename SlotArgumentsArray>
	void AddSlotsFromArguments(const SlotArgumentsArray& ConstSlots)
	{
		// The declaration is finished with: its slots move into the panel, as in the engine.
		for (auto& Arguments : const_cast<SlotArgumentsArray&>(ConstSlots))
		{
			Children.InsertSlot(Arguments.StealSlot());
		}
	}

	TPanelChildren<FSlot> Children;
	EOrientation Orientation;
};


/** What the vertical and the horizontal box share: their slot arguments, and adding slots at run time. */
template<typename SlotType>
class TBoxPanel : public SBoxPanel
{
public:
	using FSlot = SlotType;
	using FScopedWidgetSlotArguments = TScopedWidgetSlotArguments<SlotType>;

	static typename SlotType::FSlotArguments Slot()
	{
		return typename SlotType::FSlotArguments();
	}
	FScopedWidgetSlotArguments AddSlot()
	{
		return InsertSlot(INDEX_NONE);
	}
	FScopedWidgetSlotArguments InsertSlot(int32 Index = -1)
	{
		return FScopedWidgetSlotArguments(
			[this](TUniquePtr<SlotType> NewSlot, int32 AtIndex)
			{
				Children.InsertSlot(MoveTemp(NewSlot), AtIndex);
				Invalidate(EInvalidateWidgetReason::ChildOrder);
			},
			Index);
	}
	SlotType& GetSlot(int32 SlotIndex)
	{
		return static_cast<SlotType&>(Children[SlotIndex]);
	}

protected:
	explicit TBoxPanel(EOrientation InOrientation)
		: SBoxPanel(InOrientation)
	{
	}
};

class FVerticalBoxSlot : public SBoxPanel::FSlot
{
public:
	struct FSlotArguments : public TSlotArgumentsBase<FVerticalBoxSlot, FSlotArguments>
	{
		FSlotArguments& AutoHeight()
		{
			Slot->SetSizeToAuto();
			return *this;
		}
		FSlotArguments& FillHeight(TAttribute<float> InStretchCoefficient)
		{
			Slot->SetSizeToFill(MoveTemp(InStretchCoefficient));
			return *this;
		}
		FSlotArguments& MaxHeight(TAttribute<float> InMaxHeight)
		{
			Slot->SetMaxSize(MoveTemp(InMaxHeight));
			return *this;
		}
	};
	void SetAutoHeight()
	{
		SetSizeToAuto();
	}
	void SetFillHeight(TAttribute<float> InStretchCoefficient)
	{
		SetSizeToFill(MoveTemp(InStretchCoefficient));
	}
	void SetMaxHeight(TAttribute<float> InMaxHeight)
	{
		SetMaxSize(MoveTemp(InMaxHeight));
	}
};

class FHorizontalBoxSlot : public SBoxPanel::FSlot
{
public:
	struct FSlotArguments : public TSlotArgumentsBase<FHorizontalBoxSlot, FSlotArguments>
	{
		FSlotArguments& AutoWidth()
		{
			Slot->SetSizeToAuto();
			return *this;
		}
		FSlotArguments& FillWidth(TAttribute<float> InStretchCoefficient)
		{
			Slot->SetSizeToFill(MoveTemp(InStretchCoefficient));
			return *this;
		}
		FSlotArguments& MaxWidth(TAttribute<float> InMaxWidth)
		{
			Slot->SetMaxSize(MoveTemp(InMaxWidth));
			return *this;
		}
	};
	void SetAutoWidth()
	{
		SetSizeToAuto();
	}
	void SetFillWidth(TAttribute<float> InStretchCoefficient)
	{
		SetSizeToFill(MoveTemp(InStretchCoefficient));
	}
	void SetMaxWidth(TAttribute<float> InMaxWidth)
	{
		SetMaxSize(MoveTemp(InMaxWidth));
	}
};

class SVerticalBox : public TBoxPanel<FVerticalBoxSlot>
{
public:
	SLATE_BEGIN_ARGS(SVerticalBox) {}
		SLATE_SLOT_ARGUMENT(FVerticalBoxSlot, Slots)
	SLATE_END_ARGS()

	SVerticalBox()
		: TBoxPanel(Orient_Vertical)
	{
	}
	void Construct(const FArguments& InArgs)
	{
		AddSlotsFromArguments(InArgs._Slots);
	}
};

class SHorizontalBox : public TBoxPanel<FHorizontalBoxSlot>
{
public:
	SLATE_BEGIN_ARGS(SHorizontalBox) {}
		SLATE_SLOT_ARGUMENT(FHorizontalBoxSlot, Slots)
	SLATE_END_ARGS()

	SHorizontalBox()
		: TBoxPanel(Orient_Horizontal)
	{
	}
	void Construct(const FArguments& InArgs)
	{
		AddSlotsFromArguments(InArgs._Slots);
	}
};
