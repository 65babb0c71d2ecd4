// FVector2D: a point in 2D space (graph positions), with double components as in the engine.
#pragma once

#include "CoreTypes.h"

struct FVector2D
{
	double X = 0.0;
	double Y = 0.0;

	constexpr FVector2D() = default;
	constexpr FVector2D(double InX, double InY)
		: X(InX)
		, Y(InY)
	{
	}

	FVector2D operator+(const FVector2D& Other) const
	{
		return FVector2D(X + Other.X, Y + Other.Y);
	}
	FVector2D operator-(const FVector2D& Other) const
	{
		return FVector2D(X - Other.X, Y - Other.Y);
	}
	bool operator==(const FVector2D& Other) const
	{
		return X == Other.X && Y == Other.Y;
	}
	bool operator!=(const FVector2D& Other) const
	{
		return !(*this == Other);
	}
};
