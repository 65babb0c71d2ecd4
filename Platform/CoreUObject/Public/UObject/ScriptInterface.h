// TScriptInterface: an object together with the address of the part of it that implements an interface.
#pragma once

#include "CoreMinimal.h"
#include "UObject/Object.h"

class FScriptInterface
{
public:
	FScriptInterface() = default;
	FScriptInterface(UObject* InObjectPointer, void* InInterfacePointer)
		: ObjectPointer(InObjectPointer)
		, InterfacePointer(InInterfacePointer)
	{
	}

	UObject* GetObject() const
	{
		return ObjectPointer;
	}
	void* GetInterface() const
	{
		return ObjectPointer != nullptr ? InterfacePointer : nullptr;
	}
	void SetObject(UObject* InObjectPointer)
	{
		ObjectPointer = InObjectPointer;
		if (ObjectPointer == nullptr)
		{
			InterfacePointer = nullptr;
		}
	}
	void SetInterface(void* InInterfacePointer)
	{
		InterfacePointer = InInterfacePointer;
	}
	explicit operator bool() const
	{
		return GetInterface() != nullptr;
	}
	bool operator==(const FScriptInterface& Other) const
	{
		return ObjectPointer == Other.ObjectPointer && InterfacePointer == Other.InterfacePointer;
	}
	friend uint32 GetTypeHash(const FScriptInterface& Interface)
	{
		return GetTypeHash(static_cast<const void*>(Interface.ObjectPointer));
	}

private:
	UObject* ObjectPointer = nullptr;
	void* InterfacePointer = nullptr;
};

template<class InterfaceType>
class TScriptInterface : public FScriptInterface
{
public:
	TScriptInterface() = default;
	TScriptInterface(TYPE_OF_NULLPTR)
	{
	}
	template<class UObjectType>
	TScriptInterface(UObjectType* Source)
	{
		operator=(Source);
	}

	template<class UObjectType>
	TScriptInterface& operator=(UObjectType* Source)
	{
		UObject* Object = Source;
		SetObject(Object);
		SetInterface(Object != nullptr ? Object->GetInterfaceAddress(InterfaceType::UClassType::StaticClass()) : nullptr);
		return *this;
	}

	InterfaceType* GetInterface() const
	{
		return static_cast<InterfaceType*>(FScriptInterface::GetInterface());
	}
	InterfaceType* operator->() const
	{
		return GetInterface();
	}
	InterfaceType& operator*() const
	{
		return *GetInterface();
	}
};
