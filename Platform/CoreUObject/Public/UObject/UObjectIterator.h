// TObjectIterator: every live object of a class, the class default objects left out.
#pragma once

#include "CoreMinimal.h"
#include "UObject/Object.h"
#include "UObject/UObjectHash.h"

template<class T>
class TObjectIterator
{
public:
	explicit TObjectIterator(EObjectFlags AdditionalExclusionFlags = RF_ClassDefaultObject, bool bIncludeDerivedClasses = true)
	{
		TArray<UObject*> Found;
		GetObjectsOfClass(T::StaticClass(), Found, bIncludeDerivedClasses, AdditionalExclusionFlags);
		Objects.Reserve(Found.Num());
		for (UObject* Object : Found)
		{
			Objects.Add(static_cast<T*>(Object));
		}
	}

	explicit operator bool() const
	{
		return Index < Objects.Num();
	}
	bool operator!() const
	{
		return !(bool)*this;
	}
	void operator++()
	{
		++Index;
	}
	T* operator*() const
	{
		return Objects[Index];
	}
	T* operator->() const
	{
		return Objects[Index];
	}

private:
	// A snapshot, so that objects made during the walk don't disturb it.
	TArray<T*> Objects;
	int32 Index = 0;
};
