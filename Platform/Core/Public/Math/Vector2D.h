// FVector2D: a 2D point or size (graph positions, widget sizes), with double components as in the engine.
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
	explicit constexpr FVector2D(double InF)
		: X(InF)
		, Y(InF)
	{
	}

	bool operator==(const FVector2D& Other) const
	{
		return X == Other.X && Y == Other.Y;
	}
	bool operator!=(const FVector2D& Other) const
	{
		return !(*this == Other);
	}
	FVector2D operator+(const FVector2D& Other) const
	{
		return FVector2D(X + Other.X, Y + Other.Y);
	}
	FVector2D operator-(const FVector2D& Other) const
	{
		return FVector2D(X - Other.X, Y - Other.Y);
	}
	FVector2D operator*(double Scale) const
	{
		return FVector2D(X * Scale, Y * Scale);
	}

	static const FVector2D ZeroVector;
	static const FVector2D UnitVector;
};

inline const FVector2D FVector2D::ZeroVector(0.0, 0.0);
inline const FVector2D FVector2D::UnitVector(1.0, 1.0);

using FVector2f = FVector2D;
using FDeprecateSlateVector2D = FVector2D;
