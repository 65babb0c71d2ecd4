// TSubclassOf: a class that must be T or derive from it.
#pragma once

#include "CoreMinimal.h"
#include "UObject/Class.h"

template<class T>
class TSubclassOf
{
public:
	TSubclassOf() = default;
	TSubclassOf(TYPE_OF_NULLPTR)
	{
	}
	TSubclassOf(UClass* From)
		: Class(From)
	{
	}
	template<class U, typename = std::enable_if_t<std::is_convertible_v<U*, T*>>>
	TSubclassOf(const TSubclassOf<U>& Other)
		: Class(Other.Get())
	{
	}

	TSubclassOf& operator=(UClass* From)
	{
		Class = From;
		return *this;
	}

	// The class when it derives from T, else null.
	UClass* Get() const
	{
		return Class != nullptr && Class->IsChildOf(T::StaticClass()) ? Class : nullptr;
	}
	UClass* operator*() const
	{
		return Get();
	}
	UClass* operator->() const
	{
		return Get();
	}
	operator UClass*() const
	{
		return Get();
	}
	T* GetDefaultObject() const
	{
		UClass* Result = Get();
		return Result != nullptr ? static_cast<T*>(Result->GetDefaultObject()) : nullptr;
	}
	friend uint32 GetTypeHash(const TSubclassOf& Subclass)
	{
		return GetTypeHash(static_cast<const void*>(Subclass.Class));
	}

private:
	UClass* Class = nullptr;
};
