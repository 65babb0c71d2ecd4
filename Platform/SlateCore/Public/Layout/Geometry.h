// Where a widget stands. The stand-in lays nothing out itself (the page does), so a geometry is only the
// size the page last reported, or zero.
#pragma once

#include "CoreMinimal.h"
#include "Math/Vector2D.h"

struct FGeometry
{
	FGeometry() = default;
	explicit FGeometry(const FVector2D& InLocalSize)
		: Size(InLocalSize)
	{
	}

	FVector2D GetLocalSize() const
	{
		return Size;
	}
	FVector2D GetAbsoluteSize() const
	{
		return Size;
	}

private:
	FVector2D Size;
};
