// FKeyHandle: a key of a curve, known by a number that stays while keys are added or removed.
#pragma once

#include "CoreMinimal.h"

struct ENGINE_API FKeyHandle
{
	// A fresh handle, different from every other.
	FKeyHandle();

	static FKeyHandle Invalid()
	{
		return FKeyHandle(0);
	}
	bool IsValid() const
	{
		return Index != 0;
	}
	bool operator==(const FKeyHandle& Other) const
	{
		return Index == Other.Index;
	}
	bool operator!=(const FKeyHandle& Other) const
	{
		return Index != Other.Index;
	}
	friend uint32 GetTypeHash(const FKeyHandle& Handle)
	{
		return Handle.Index;
	}

private:
	explicit FKeyHandle(uint32 InIndex)
		: Index(InIndex)
	{
	}
	uint32 Index;
};
