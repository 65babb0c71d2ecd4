#pragma once

#include "Styling/SlateBrush.h"

/** A box of one colour with rounded corners. */
struct FSlateRoundedBoxBrush : public FSlateBrush
{
	FSlateRoundedBoxBrush(const FSlateColor& InFillColor, float InRadius = 4.0f)
		: FSlateBrush(ESlateBrushDrawType::RoundedBox, NAME_None, FMargin(), ESlateBrushTileType::NoTile, ESlateBrushImageType::NoImage, FVector2D(8.0, 8.0), InFillColor)
	{
		CornerRadius = InRadius;
	}
	FSlateRoundedBoxBrush(const FLinearColor& InFillColor, float InRadius = 4.0f)
		: FSlateRoundedBoxBrush(FSlateColor(InFillColor), InRadius)
	{
	}
};
