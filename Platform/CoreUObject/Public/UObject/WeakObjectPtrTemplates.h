// TWeakObjectPtr: FWeakObjectPtr for objects of one class.
#pragma once

#include "CoreMinimal.h"
#include "UObject/WeakObjectPtr.h"

template<class T>
struct TWeakObjectPtr
{
	TWeakObjectPtr() = default;
	TWeakObjectPtr(TYPE_OF_NULLPTR)
	{
	}
	template<class U, typename = std::enable_if_t<std::is_convertible_v<U*, T*>>>
	TWeakObjectPtr(U* Object)
		: WeakPtr(reinterpret_cast<const UObject*>(static_cast<const T*>(Object)))
	{
	}
	template<class U, typename = std::enable_if_t<std::is_convertible_v<U*, T*>>>
	TWeakObjectPtr(const TWeakObjectPtr<U>& Other)
		: WeakPtr(Other.GetWeakPtr())
	{
	}

	template<class U, typename = std::enable_if_t<std::is_convertible_v<U*, T*>>>
	TWeakObjectPtr& operator=(U* Object)
	{
		WeakPtr = reinterpret_cast<const UObject*>(static_cast<const T*>(Object));
		return *this;
	}
	void Reset()
	{
		WeakPtr.Reset();
	}

	T* Get(bool bEvenIfGarbage = false) const
	{
		return reinterpret_cast<T*>(WeakPtr.Get(bEvenIfGarbage));
	}
	T* operator->() const
	{
		return Get();
	}
	T& operator*() const
	{
		return *Get();
	}
	bool IsValid(bool bEvenIfGarbage = false) const
	{
		return WeakPtr.IsValid(bEvenIfGarbage);
	}
	bool IsStale(bool bIncludingGarbage = true) const
	{
		return WeakPtr.IsStale(bIncludingGarbage);
	}
	bool IsExplicitlyNull() const
	{
		return WeakPtr.IsExplicitlyNull();
	}
	explicit operator bool() const
	{
		return IsValid();
	}
	const FWeakObjectPtr& GetWeakPtr() const
	{
		return WeakPtr;
	}

	bool operator==(const TWeakObjectPtr& Other) const
	{
		return WeakPtr == Other.WeakPtr;
	}
	bool operator!=(const TWeakObjectPtr& Other) const
	{
		return WeakPtr != Other.WeakPtr;
	}
	friend uint32 GetTypeHash(const TWeakObjectPtr& Ptr)
	{
		return GetTypeHash(Ptr.WeakPtr);
	}

private:
	FWeakObjectPtr WeakPtr;
};
