#pragma once

#include "Styling/SlateBrush.h"

/** A brush that fills its area with one colour. */
struct FSlateColorBrush : public FSlateBrush
{
	FSlateColorBrush(const FLinearColor& InColor)
		: FSlateBrush(ESlateBrushDrawType::Image, NAME_None, FMargin(), ESlateBrushTileType::NoTile, ESlateBrushImageType::NoImage, FVector2D(8.0, 8.0), FSlateColor(InColor))
	{
	}
	FSlateColorBrush(const FColor& InColor)
		: FSlateColorBrush(FLinearColor(InColor))
	{
	}
	FSlateColorBrush(const FSlateColor& InColor)
		: FSlateBrush(ESlateBrushDrawType::Image, NAME_None, FMargin(), ESlateBrushTileType::NoTile, ESlateBrushImageType::NoImage, FVector2D(8.0, 8.0), InColor)
	{
	}
	FSlateColorBrush(const TSharedRef<FLinearColor>& InColor)
		: FSlateColorBrush(FSlateColor(InColor))
	{
	}
};
