// How an area is painted: a plain colour, an image file (by name), a box or a rounded box.
#pragma once

#include "CoreMinimal.h"
#include "Layout/Margin.h"
#include "Math/Vector2D.h"
#include "Styling/SlateColor.h"

namespace ESlateBrushDrawType
{
	enum Type
	{
		NoDrawType,
		Box,
		Border,
		Image,
		RoundedBox
	};
}

namespace ESlateBrushTileType
{
	enum Type
	{
		NoTile,
		Horizontal,
		Vertical,
		Both
	};
}

namespace ESlateBrushImageType
{
	enum Type
	{
		NoImage,
		FullColor,
		Linear,
		Vector
	};
}

struct FSlateBrush
{
	FSlateBrush() = default;
	virtual ~FSlateBrush() = default;

	FVector2D ImageSize = FVector2D(32.0, 32.0);
	FMargin Margin;
	FSlateColor TintColor = FSlateColor(FLinearColor::White);
	TEnumAsByte<ESlateBrushDrawType::Type> DrawAs = ESlateBrushDrawType::Image;
	TEnumAsByte<ESlateBrushTileType::Type> Tiling = ESlateBrushTileType::NoTile;
	TEnumAsByte<ESlateBrushImageType::Type> ImageType = ESlateBrushImageType::NoImage;
	/** Corner radius of a rounded box, in slate units. */
	float CornerRadius = 0.0f;

	const FName GetResourceName() const
	{
		return ResourceName;
	}
	void SetResourceName(FName InResourceName)
	{
		ResourceName = InResourceName;
	}
	FVector2D GetImageSize() const
	{
		return ImageSize;
	}
	void SetImageSize(const FVector2D& InSize)
	{
		ImageSize = InSize;
	}
	FLinearColor GetTint(const FLinearColor& InheritedForeground) const
	{
		return TintColor.GetColor(InheritedForeground);
	}
	bool HasUObject() const
	{
		return false;
	}

	bool operator==(const FSlateBrush& Other) const
	{
		return ImageSize == Other.ImageSize && Margin == Other.Margin && TintColor == Other.TintColor && DrawAs == Other.DrawAs
			&& ResourceName == Other.ResourceName && CornerRadius == Other.CornerRadius;
	}

protected:
	FSlateBrush(ESlateBrushDrawType::Type InDrawType, const FName InResourceName, const FMargin& InMargin, ESlateBrushTileType::Type InTiling,
		ESlateBrushImageType::Type InImageType, const FVector2D& InImageSize, const FSlateColor& InTint)
		: ImageSize(InImageSize)
		, Margin(InMargin)
		, TintColor(InTint)
		, DrawAs(InDrawType)
		, Tiling(InTiling)
		, ImageType(InImageType)
		, ResourceName(InResourceName)
	{
	}

	FName ResourceName;
};

/** The brush that paints nothing. */
struct FSlateNoResource : public FSlateBrush
{
	FSlateNoResource()
	{
		DrawAs = ESlateBrushDrawType::NoDrawType;
	}
};
