#pragma once

#include "CoreTypes.h"
#include "Containers/UnrealString.h"

struct FColor;

struct FLinearColor
{
	float R = 0.0f;
	float G = 0.0f;
	float B = 0.0f;
	float A = 0.0f;

	FLinearColor() = default;
	explicit FLinearColor(EForceInit)
	{
	}
	constexpr FLinearColor(float InR, float InG, float InB, float InA = 1.0f)
		: R(InR)
		, G(InG)
		, B(InB)
		, A(InA)
	{
	}
	CORE_API FLinearColor(const FColor& Color);

	bool operator==(const FLinearColor& Other) const
	{
		return R == Other.R && G == Other.G && B == Other.B && A == Other.A;
	}
	bool operator!=(const FLinearColor& Other) const
	{
		return !(*this == Other);
	}
	bool Equals(const FLinearColor& Other, float Tolerance = 1.e-4f) const
	{
		auto Near = [Tolerance](float X, float Y) { return (X > Y ? X - Y : Y - X) <= Tolerance; };
		return Near(R, Other.R) && Near(G, Other.G) && Near(B, Other.B) && Near(A, Other.A);
	}
	FLinearColor CopyWithNewOpacity(float NewOpacity) const
	{
		return FLinearColor(R, G, B, NewOpacity);
	}
	CORE_API FColor ToFColor(bool bSRGB) const;
	CORE_API FString ToString() const;

	static CORE_API const FLinearColor White;
	static CORE_API const FLinearColor Gray;
	static CORE_API const FLinearColor Black;
	static CORE_API const FLinearColor Transparent;
	static CORE_API const FLinearColor Red;
	static CORE_API const FLinearColor Green;
	static CORE_API const FLinearColor Blue;
	static CORE_API const FLinearColor Yellow;
};

// Stored in the engine's B, G, R, A order.
struct FColor
{
	uint8 B = 0;
	uint8 G = 0;
	uint8 R = 0;
	uint8 A = 0;

	FColor() = default;
	constexpr FColor(uint8 InR, uint8 InG, uint8 InB, uint8 InA = 255)
		: B(InB)
		, G(InG)
		, R(InR)
		, A(InA)
	{
	}
	bool operator==(const FColor& Other) const
	{
		return R == Other.R && G == Other.G && B == Other.B && A == Other.A;
	}
	bool operator!=(const FColor& Other) const
	{
		return !(*this == Other);
	}
	FLinearColor ReinterpretAsLinear() const
	{
		return FLinearColor(R / 255.0f, G / 255.0f, B / 255.0f, A / 255.0f);
	}
	CORE_API FString ToHex() const;
	CORE_API FString ToString() const;

	static CORE_API const FColor White;
	static CORE_API const FColor Black;
	static CORE_API const FColor Red;
	static CORE_API const FColor Green;
	static CORE_API const FColor Blue;
};
