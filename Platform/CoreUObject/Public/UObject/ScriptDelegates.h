// Delegates that reflection can see: an object and the name of one of its functions, alone or in a list.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/WeakObjectPtr.h"

class UObject;

class COREUOBJECT_API FScriptDelegate
{
public:
	FScriptDelegate() = default;

	void BindUFunction(UObject* InObject, const FName& InFunctionName);
	void Unbind()
	{
		Object.Reset();
		FunctionName = NAME_None;
	}
	// Bound to an object that still lives.
	bool IsBound() const;
	bool IsBoundToObject(const void* InUserObject) const;
	UObject* GetUObject() const
	{
		return Object.Get();
	}
	FName GetFunctionName() const
	{
		return FunctionName;
	}
	// "Object.Function", or "(null)" when unbound.
	FString ToString() const;

	bool operator==(const FScriptDelegate& Other) const
	{
		return Object == Other.Object && FunctionName == Other.FunctionName;
	}
	bool operator!=(const FScriptDelegate& Other) const
	{
		return !(*this == Other);
	}
	friend uint32 GetTypeHash(const FScriptDelegate& Delegate)
	{
		return HashCombine(GetTypeHash(Delegate.Object), GetTypeHash(Delegate.FunctionName));
	}

private:
	FWeakObjectPtr Object;
	FName FunctionName;
};

class COREUOBJECT_API FMulticastScriptDelegate
{
public:
	typedef TArray<FScriptDelegate> FInvocationList;

	bool IsBound() const;
	bool Contains(const FScriptDelegate& InDelegate) const;
	bool Contains(const UObject* InObject, FName InFunctionName) const;
	void Add(const FScriptDelegate& InDelegate);
	void AddUnique(const FScriptDelegate& InDelegate);
	void Remove(const FScriptDelegate& InDelegate);
	void Remove(const UObject* InObject, FName InFunctionName);
	void RemoveAll(const UObject* Object);
	void Clear()
	{
		InvocationList.Empty();
	}
	const FInvocationList& GetInvocationList() const
	{
		return InvocationList;
	}
	// "(Object.Function,Object.Function)".
	FString ToString() const;

	bool operator==(const FMulticastScriptDelegate& Other) const
	{
		return InvocationList == Other.InvocationList;
	}

private:
	FInvocationList InvocationList;
};
