#pragma once

#include "CoreMinimal.h"
#include "Math/Vector2D.h"

struct FMargin
{
	float Left = 0.0f;
	float Top = 0.0f;
	float Right = 0.0f;
	float Bottom = 0.0f;

	FMargin() = default;
	FMargin(float UniformMargin)
		: Left(UniformMargin)
		, Top(UniformMargin)
		, Right(UniformMargin)
		, Bottom(UniformMargin)
	{
	}
	FMargin(float Horizontal, float Vertical)
		: Left(Horizontal)
		, Top(Vertical)
		, Right(Horizontal)
		, Bottom(Vertical)
	{
	}
	FMargin(float InLeft, float InTop, float InRight, float InBottom)
		: Left(InLeft)
		, Top(InTop)
		, Right(InRight)
		, Bottom(InBottom)
	{
	}
	FMargin(const FVector2D& InVector)
		: FMargin(static_cast<float>(InVector.X), static_cast<float>(InVector.Y))
	{
	}

	bool operator==(const FMargin& Other) const
	{
		return Left == Other.Left && Top == Other.Top && Right == Other.Right && Bottom == Other.Bottom;
	}
	bool operator!=(const FMargin& Other) const
	{
		return !(*this == Other);
	}
	FMargin operator+(const FMargin& Other) const
	{
		return FMargin(Left + Other.Left, Top + Other.Top, Right + Other.Right, Bottom + Other.Bottom);
	}
	FVector2D GetDesiredSize() const
	{
		return FVector2D(Left + Right, Top + Bottom);
	}
};
