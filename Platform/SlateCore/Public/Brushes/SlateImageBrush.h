#pragma once

#include "Styling/SlateBrush.h"

/** An image file, named by its full path. */
struct FSlateImageBrush : public FSlateBrush
{
	FSlateImageBrush(const FName& InImageName, const FVector2D& InImageSize, const FLinearColor& InTint = FLinearColor(1, 1, 1, 1),
		ESlateBrushTileType::Type InTiling = ESlateBrushTileType::NoTile, ESlateBrushImageType::Type InImageType = ESlateBrushImageType::FullColor)
		: FSlateBrush(ESlateBrushDrawType::Image, InImageName, FMargin(), InTiling, InImageType, InImageSize, FSlateColor(InTint))
	{
	}
	FSlateImageBrush(const FString& InImageName, const FVector2D& InImageSize, const FLinearColor& InTint = FLinearColor(1, 1, 1, 1),
		ESlateBrushTileType::Type InTiling = ESlateBrushTileType::NoTile, ESlateBrushImageType::Type InImageType = ESlateBrushImageType::FullColor)
		: FSlateImageBrush(FName(*InImageName), InImageSize, InTint, InTiling, InImageType)
	{
	}
	FSlateImageBrush(const FString& InImageName, const FVector2D& InImageSize, const FSlateColor& InTint,
		ESlateBrushTileType::Type InTiling = ESlateBrushTileType::NoTile, ESlateBrushImageType::Type InImageType = ESlateBrushImageType::FullColor)
		: FSlateBrush(ESlateBrushDrawType::Image, FName(*InImageName), FMargin(), InTiling, InImageType, InImageSize, InTint)
	{
	}
};

/** An SVG file, drawn at any size. */
struct FSlateVectorImageBrush : public FSlateImageBrush
{
	FSlateVectorImageBrush(const FString& InImageName, const FVector2D& InImageSize, const FLinearColor& InTint = FLinearColor(1, 1, 1, 1),
		ESlateBrushTileType::Type InTiling = ESlateBrushTileType::NoTile)
		: FSlateImageBrush(InImageName, InImageSize, InTint, InTiling, ESlateBrushImageType::Vector)
	{
	}
	FSlateVectorImageBrush(const FString& InImageName, const FVector2D& InImageSize, const FSlateColor& InTint,
		ESlateBrushTileType::Type InTiling = ESlateBrushTileType::NoTile)
		: FSlateImageBrush(InImageName, InImageSize, InTint, InTiling, ESlateBrushImageType::Vector)
	{
	}
};
