// Slots: where a child stands in its parent (padding, alignment, size rule), and the containers of slots.
#pragma once

#include "CoreMinimal.h"
#include "Layout/Margin.h"
#include "Misc/Attribute.h"
#include "Types/SlateEnums.h"
#include "Widgets/SNullWidget.h"
#include "Widgets/SWidget.h"

class FJsonObject;

class FSlotBase
{
public:
	enum class ESizeRule : uint8
	{
		Auto,
		Fill
	};

	FSlotBase() = default;
	SLATECORE_API virtual ~FSlotBase();
	FSlotBase(const FSlotBase&) = delete;
	FSlotBase& operator=(const FSlotBase&) = delete;

	const TSharedRef<SWidget>& GetWidget() const
	{
		return Widget;
	}
	SLATECORE_API void AttachWidget(const TSharedRef<SWidget>& InWidget);
	/** Takes the child out; the slot then holds the null widget. */
	SLATECORE_API TSharedRef<SWidget> DetachWidget();
	SLATECORE_API void SetOwnerWidget(SWidget* InOwner);
	SWidget* GetOwnerWidget() const
	{
		return OwnerWidget;
	}

	void SetPadding(TAttribute<FMargin> InPadding)
	{
		Padding = MoveTemp(InPadding);
	}
	FMargin GetPadding() const
	{
		return Padding.Get(FMargin());
	}
	void SetHorizontalAlignment(EHorizontalAlignment InAlignment)
	{
		HAlignment = InAlignment;
	}
	EHorizontalAlignment GetHorizontalAlignment() const
	{
		return HAlignment;
	}
	void SetVerticalAlignment(EVerticalAlignment InAlignment)
	{
		VAlignment = InAlignment;
	}
	EVerticalAlignment GetVerticalAlignment() const
	{
		return VAlignment;
	}
	ESizeRule GetSizeRule() const
	{
		return SizeRule;
	}
	float GetSizeValue() const
	{
		return SizeValue.Get(1.0f);
	}
	float GetMaxSize() const
	{
		return MaxSize.Get(0.0f);
	}
	void SetSizeToAuto()
	{
		SizeRule = ESizeRule::Auto;
	}
	void SetSizeToFill(TAttribute<float> InValue)
	{
		SizeRule = ESizeRule::Fill;
		SizeValue = MoveTemp(InValue);
	}
	void SetMaxSize(TAttribute<float> InMaxSize)
	{
		MaxSize = MoveTemp(InMaxSize);
	}

	/** Stand-in only: the slot's layout for the page. */
	SLATECORE_API void DescribeForStandIn(FJsonObject& Out) const;

protected:
	TSharedRef<SWidget> Widget = SNullWidget::NullWidget;
	SWidget* OwnerWidget = nullptr;
	TAttribute<FMargin> Padding = FMargin();
	EHorizontalAlignment HAlignment = HAlign_Fill;
	EVerticalAlignment VAlignment = VAlign_Fill;
	ESizeRule SizeRule = ESizeRule::Fill;
	TAttribute<float> SizeValue = 1.0f;
	TAttribute<float> MaxSize = 0.0f;
};

/**
 * The arguments of a slot being declared: `+ SVerticalBox::Slot().AutoHeight()[ Child ]`. They hold the
 * slot itself until the panel takes it.
 */
template<typename SlotType, typename ArgumentsType>
struct TSlotArgumentsBase
{
	TSlotArgumentsBase()
		: Slot(MakeUnique<SlotType>())
	{
	}
	TSlotArgumentsBase(TSlotArgumentsBase&&) = default;
	TSlotArgumentsBase& operator=(TSlotArgumentsBase&&) = default;

	ArgumentsType& operator[](const TSharedRef<SWidget>& InChildWidget)
	{
		ChildWidget = InChildWidget;
		return Me();
	}
	ArgumentsType& Padding(TAttribute<FMargin> InPadding)
	{
		Slot->SetPadding(MoveTemp(InPadding));
		return Me();
	}
	ArgumentsType& Padding(float Uniform)
	{
		return Padding(TAttribute<FMargin>(FMargin(Uniform)));
	}
	ArgumentsType& Padding(float Horizontal, float Vertical)
	{
		return Padding(TAttribute<FMargin>(FMargin(Horizontal, Vertical)));
	}
	ArgumentsType& Padding(float Left, float Top, float Right, float Bottom)
	{
		return Padding(TAttribute<FMargin>(FMargin(Left, Top, Right, Bottom)));
	}
	ArgumentsType& HAlign(EHorizontalAlignment InAlignment)
	{
		Slot->SetHorizontalAlignment(InAlignment);
		return Me();
	}
	ArgumentsType& VAlign(EVerticalAlignment InAlignment)
	{
		Slot->SetVerticalAlignment(InAlignment);
		return Me();
	}
	ArgumentsType& Expose(SlotType*& OutSlot)
	{
		OutSlot = Slot.Get();
		return Me();
	}

	/** The finished slot, with its child attached; the arguments are empty afterwards. */
	TUniquePtr<SlotType> StealSlot()
	{
		if (Slot && ChildWidget.IsValid())
		{
			Slot->AttachWidget(ChildWidget.ToSharedRef());
		}
		ChildWidget.Reset();
		return MoveTemp(Slot);
	}
	bool HasSlot() const
	{
		return Slot.IsValid();
	}

protected:
	ArgumentsType& Me()
	{
		return static_cast<ArgumentsType&>(*this);
	}
	TUniquePtr<SlotType> Slot;
	TSharedPtr<SWidget> ChildWidget;
};

class FChildren
{
public:
	explicit FChildren(SWidget* InOwner)
		: Owner(InOwner)
	{
	}
	virtual ~FChildren() = default;
	virtual int32 Num() const = 0;
	virtual TSharedRef<SWidget> GetChildAt(int32 Index) = 0;
	virtual const FSlotBase* GetSlotAt(int32 Index) const = 0;
	SWidget& GetOwner() const
	{
		return *Owner;
	}

protected:
	SWidget* Owner;
};

class FNoChildren : public FChildren
{
public:
	FNoChildren()
		: FChildren(nullptr)
	{
	}
	virtual int32 Num() const override
	{
		return 0;
	}
	virtual TSharedRef<SWidget> GetChildAt(int32 Index) override
	{
		check(false);
		return SNullWidget::NullWidget;
	}
	virtual const FSlotBase* GetSlotAt(int32 Index) const override
	{
		return nullptr;
	}
};

/** A list of slots, in order; panels and the scroll box keep their children in one. */
template<typename SlotType>
class TPanelChildren : public FChildren
{
public:
	explicit TPanelChildren(SWidget* InOwner)
		: FChildren(InOwner)
	{
	}

	virtual int32 Num() const override
	{
		return Slots.Num();
	}
	virtual TSharedRef<SWidget> GetChildAt(int32 Index) override
	{
		return Slots[Index]->GetWidget();
	}
	virtual const FSlotBase* GetSlotAt(int32 Index) const override
	{
		return Slots[Index].Get();
	}
	SlotType& operator[](int32 Index)
	{
		return *Slots[Index];
	}
	const SlotType& operator[](int32 Index) const
	{
		return *Slots[Index];
	}

	/** Index -1 (or past the end) adds at the end. */
	int32 InsertSlot(TUniquePtr<SlotType> NewSlot, int32 Index = -1)
	{
		NewSlot->SetOwnerWidget(Owner);
		if (Index < 0 || Index >= Slots.Num())
		{
			return Slots.Emplace(MoveTemp(NewSlot));
		}
		Slots.Insert(MoveTemp(NewSlot), Index);
		return Index;
	}
	/** Gives the index the widget had, or -1 when it isn't a child. */
	int32 Remove(const TSharedRef<SWidget>& SlotWidget)
	{
		for (int32 Index = 0; Index < Slots.Num(); ++Index)
		{
			if (&Slots[Index]->GetWidget().Get() == &SlotWidget.Get())
			{
				Slots.RemoveAt(Index);
				return Index;
			}
		}
		return -1;
	}
	void RemoveAt(int32 Index)
	{
		Slots.RemoveAt(Index);
	}
	void Empty()
	{
		Slots.Empty();
	}

private:
	TArray<TUniquePtr<SlotType>> Slots;
};

/**
 * The arguments that AddSlot gives: the slot joins the panel when this object goes out of scope, at the end
 * of the statement `Box->AddSlot().Padding(2)[ Child ];`.
 */
template<typename SlotType>
class TScopedWidgetSlotArguments : public SlotType::FSlotArguments
{
public:
	using FAdder = TFunction<void(TUniquePtr<SlotType>, int32)>;

	TScopedWidgetSlotArguments(FAdder InAdder, int32 InIndex = -1)
		: Adder(MoveTemp(InAdder))
		, Index(InIndex)
	{
	}
	TScopedWidgetSlotArguments(TScopedWidgetSlotArguments&&) = default;
	TScopedWidgetSlotArguments(const TScopedWidgetSlotArguments&) = delete;
	~TScopedWidgetSlotArguments()
	{
		if (Adder && this->HasSlot())
		{
			Adder(this->StealSlot(), Index);
		}
	}

private:
	FAdder Adder;
	int32 Index;
};

/** One child with padding and alignment: the content of compound widgets, borders and boxes. */
class FSingleWidgetChildrenSlot : public FSlotBase, public FChildren
{
public:
	explicit FSingleWidgetChildrenSlot(SWidget* InOwner)
		: FChildren(InOwner)
	{
		OwnerWidget = InOwner;
	}

	FSingleWidgetChildrenSlot& operator[](const TSharedRef<SWidget>& InChild)
	{
		AttachWidget(InChild);
		return *this;
	}
	FSingleWidgetChildrenSlot& Padding(TAttribute<FMargin> InPadding)
	{
		SetPadding(MoveTemp(InPadding));
		return *this;
	}
	FSingleWidgetChildrenSlot& Padding(float Uniform)
	{
		return Padding(TAttribute<FMargin>(FMargin(Uniform)));
	}
	FSingleWidgetChildrenSlot& Padding(float Horizontal, float Vertical)
	{
		return Padding(TAttribute<FMargin>(FMargin(Horizontal, Vertical)));
	}
	FSingleWidgetChildrenSlot& Padding(float Left, float Top, float Right, float Bottom)
	{
		return Padding(TAttribute<FMargin>(FMargin(Left, Top, Right, Bottom)));
	}
	FSingleWidgetChildrenSlot& HAlign(EHorizontalAlignment InAlignment)
	{
		SetHorizontalAlignment(InAlignment);
		return *this;
	}
	FSingleWidgetChildrenSlot& VAlign(EVerticalAlignment InAlignment)
	{
		SetVerticalAlignment(InAlignment);
		return *this;
	}

	virtual int32 Num() const override
	{
		return 1;
	}
	virtual TSharedRef<SWidget> GetChildAt(int32 Index) override
	{
		return GetWidget();
	}
	virtual const FSlotBase* GetSlotAt(int32 Index) const override
	{
		return this;
	}
};

using FCompoundWidgetOneChildSlot = FSingleWidgetChildrenSlot;
