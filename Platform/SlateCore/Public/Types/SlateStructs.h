#pragma once

#include "CoreMinimal.h"

/** A size that may be left unset, as a box's overrides are. A float converts to a set size. */
struct FOptionalSize
{
	FOptionalSize() = default;
	FOptionalSize(const float SpecifiedSize)
		: Size(SpecifiedSize)
		, bIsSet(true)
	{
	}

	bool IsSet() const
	{
		return bIsSet;
	}
	float Get() const
	{
		return Size;
	}
	bool operator==(const FOptionalSize& Other) const
	{
		return bIsSet == Other.bIsSet && (!bIsSet || Size == Other.Size);
	}

private:
	float Size = 0.0f;
	bool bIsSet = false;
};
