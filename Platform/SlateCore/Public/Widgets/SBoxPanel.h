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

class SVerticalBox : public SBoxPanel
{
public:
	class FSlot : public SBoxPanel::FSlot
	{
	public:
		struct FSlotArguments : public TSlotArgumentsBase<FSlot, FSlotArguments>
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
	using FScopedWidgetSlotArguments = TScopedWidgetSlotArguments<FSlot>;

	SLATE_BEGIN_ARGS(SVerticalBox) {}
		SLATE_SLOT_ARGUMENT(SVerticalBox::FSlot, Slots)
	SLATE_END_ARGS()

	SVerticalBox()
		: SBoxPanel(Orient_Vertical)
	{
	}

	static FSlot::FSlotArguments Slot()
	{
		return FSlot::FSlotArguments();
	}
	void Construct(const FArguments& InArgs)
	{
		AddSlotsFromArguments(InArgs._Slots);
	}
	SLATECORE_API FScopedWidgetSlotArguments AddSlot();
	SLATECORE_API FScopedWidgetSlotArguments InsertSlot(int32 Index = -1);
	FSlot& GetSlot(int32 SlotIndex)
	{
		return static_cast<FSlot&>(Children[SlotIndex]);
	}
};

class SHorizontalBox : public SBoxPanel
{
public:
	class FSlot : public SBoxPanel::FSlot
	{
	public:
		struct FSlotArguments : public TSlotArgumentsBase<FSlot, FSlotArguments>
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
	using FScopedWidgetSlotArguments = TScopedWidgetSlotArguments<FSlot>;

	SLATE_BEGIN_ARGS(SHorizontalBox) {}
		SLATE_SLOT_ARGUMENT(SHorizontalBox::FSlot, Slots)
	SLATE_END_ARGS()

	SHorizontalBox()
		: SBoxPanel(Orient_Horizontal)
	{
	}

	static FSlot::FSlotArguments Slot()
	{
		return FSlot::FSlotArguments();
	}
	void Construct(const FArguments& InArgs)
	{
		AddSlotsFromArguments(InArgs._Slots);
	}
	SLATECORE_API FScopedWidgetSlotArguments AddSlot();
	SLATECORE_API FScopedWidgetSlotArguments InsertSlot(int32 Index = -1);
	FSlot& GetSlot(int32 SlotIndex)
	{
		return static_cast<FSlot&>(Children[SlotIndex]);
	}
};
