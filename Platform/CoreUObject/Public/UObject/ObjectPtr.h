// TObjectPtr: the engine's reference to an object in reflected members; here a plain pointer in a wrapper.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"

class UObject;

template<typename T>
class TObjectPtr
{
public:
	using ElementType = T;

	TObjectPtr()
		: Pointer(nullptr)
	{
	}
	TObjectPtr(TYPE_OF_NULLPTR)
		: Pointer(nullptr)
	{
	}
	TObjectPtr(T* InPointer)
		: Pointer(InPointer)
	{
	}
	template<typename U, typename = std::enable_if_t<std::is_convertible_v<U*, T*>>>
	TObjectPtr(const TObjectPtr<U>& Other)
		: Pointer(Other.Get())
	{
	}

	TObjectPtr& operator=(T* InPointer)
	{
		Pointer = InPointer;
		return *this;
	}
	TObjectPtr& operator=(TYPE_OF_NULLPTR)
	{
		Pointer = nullptr;
		return *this;
	}

	T* Get() const
	{
		return Pointer;
	}
	operator T*() const
	{
		return Pointer;
	}
	T* operator->() const
	{
		return Pointer;
	}
	T& operator*() const
	{
		return *Pointer;
	}
	explicit operator bool() const
	{
		return Pointer != nullptr;
	}
	bool operator!() const
	{
		return Pointer == nullptr;
	}

	template<typename U>
	bool operator==(const TObjectPtr<U>& Other) const
	{
		return Pointer == Other.Get();
	}
	template<typename U>
	bool operator==(U* Other) const
	{
		return Pointer == Other;
	}
	bool operator==(TYPE_OF_NULLPTR) const
	{
		return Pointer == nullptr;
	}

	friend uint32 GetTypeHash(const TObjectPtr& Ptr)
	{
		return GetTypeHash(static_cast<const void*>(Ptr.Pointer));
	}

private:
	T* Pointer;
};

template<typename T>
T* ToRawPtr(const TObjectPtr<T>& Ptr)
{
	return Ptr.Get();
}
template<typename T>
T* ToRawPtr(T* Ptr)
{
	return Ptr;
}
