#pragma once

#include "CoreMinimal.h"
#include "Types/SlateStructs.h"
#include "Widgets/SPanel.h"

/** One child with size overrides: fixed, least and most width and height. */
class SBox : public SPanel
{
public:
	SLATE_BEGIN_ARGS(SBox)
		: _HAlign(HAlign_Fill)
		, _VAlign(VAlign_Fill)
		, _Padding(FMargin(0.0f))
		{}
		SLATE_DEFAULT_SLOT(FArguments, Content)
		SLATE_ARGUMENT(EHorizontalAlignment, HAlign)
		SLATE_ARGUMENT(EVerticalAlignment, VAlign)
		SLATE_ATTRIBUTE(FMargin, Padding)
		SLATE_ATTRIBUTE(FOptionalSize, WidthOverride)
		SLATE_ATTRIBUTE(FOptionalSize, HeightOverride)
		SLATE_ATTRIBUTE(FOptionalSize, MinDesiredWidth)
		SLATE_ATTRIBUTE(FOptionalSize, MinDesiredHeight)
		SLATE_ATTRIBUTE(FOptionalSize, MaxDesiredWidth)
		SLATE_ATTRIBUTE(FOptionalSize, MaxDesiredHeight)
		SLATE_ATTRIBUTE(FOptionalSize, MinAspectRatio)
		SLATE_ATTRIBUTE(FOptionalSize, MaxAspectRatio)
	SLATE_END_ARGS()

	SLATE_API SBox();
	SLATE_API void Construct(const FArguments& InArgs);

	virtual FChildren* GetChildren() override
	{
		return &ChildSlot;
	}
	SLATE_API void SetContent(const TSharedRef<SWidget>& InContent);
	void SetHAlign(EHorizontalAlignment HAlign)
	{
		ChildSlot.SetHorizontalAlignment(HAlign);
	}
	void SetVAlign(EVerticalAlignment VAlign)
	{
		ChildSlot.SetVerticalAlignment(VAlign);
	}
	void SetPadding(TAttribute<FMargin> InPadding)
	{
		ChildSlot.SetPadding(MoveTemp(InPadding));
	}
	void SetWidthOverride(TAttribute<FOptionalSize> InWidthOverride)
	{
		WidthOverride = MoveTemp(InWidthOverride);
	}
	void SetHeightOverride(TAttribute<FOptionalSize> InHeightOverride)
	{
		HeightOverride = MoveTemp(InHeightOverride);
	}
	void SetMinDesiredWidth(TAttribute<FOptionalSize> InSize)
	{
		MinDesiredWidth = MoveTemp(InSize);
	}
	void SetMinDesiredHeight(TAttribute<FOptionalSize> InSize)
	{
		MinDesiredHeight = MoveTemp(InSize);
	}
	void SetMaxDesiredWidth(TAttribute<FOptionalSize> InSize)
	{
		MaxDesiredWidth = MoveTemp(InSize);
	}
	void SetMaxDesiredHeight(TAttribute<FOptionalSize> InSize)
	{
		MaxDesiredHeight = MoveTemp(InSize);
	}

	SLATE_API virtual void DescribeForStandIn(FJsonObject& Out) const override;

protected:
	FSingleWidgetChildrenSlot ChildSlot;
	TAttribute<FOptionalSize> WidthOverride;
	TAttribute<FOptionalSize> HeightOverride;
	TAttribute<FOptionalSize> MinDesiredWidth;
	TAttribute<FOptionalSize> MinDesiredHeight;
	TAttribute<FOptionalSize> MaxDesiredWidth;
	TAttribute<FOptionalSize> MaxDesiredHeight;
};
