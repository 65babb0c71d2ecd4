// FWeakObjectPtr: a reference that doesn't keep its object alive and reads null once the object is gone.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"

class UObject;

struct COREUOBJECT_API FWeakObjectPtr
{
	FWeakObjectPtr() = default;
	FWeakObjectPtr(TYPE_OF_NULLPTR)
	{
	}
	FWeakObjectPtr(const UObject* Object)
	{
		operator=(Object);
	}

	FWeakObjectPtr& operator=(const UObject* Object);
	void Reset()
	{
		ObjectIndex = INDEX_NONE;
		ObjectSerialNumber = 0;
	}

	// The object, or null when it was destroyed (or, unless asked for, marked as garbage).
	UObject* Get(bool bEvenIfGarbage = false) const;
	bool IsValid(bool bEvenIfGarbage = false) const
	{
		return Get(bEvenIfGarbage) != nullptr;
	}
	// Set once, and its object is gone now.
	bool IsStale(bool bIncludingGarbage = true) const;
	bool IsExplicitlyNull() const
	{
		return ObjectIndex == INDEX_NONE;
	}

	bool operator==(const FWeakObjectPtr& Other) const
	{
		return ObjectIndex == Other.ObjectIndex && ObjectSerialNumber == Other.ObjectSerialNumber;
	}
	bool operator!=(const FWeakObjectPtr& Other) const
	{
		return !(*this == Other);
	}
	friend uint32 GetTypeHash(const FWeakObjectPtr& Ptr)
	{
		return HashCombine(GetTypeHash(Ptr.ObjectIndex), GetTypeHash(Ptr.ObjectSerialNumber));
	}

private:
	int32 ObjectIndex = INDEX_NONE;
	int32 ObjectSerialNumber = 0;
};
