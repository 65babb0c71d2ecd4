// Soft references: a path to an object that is loaded on demand, with the object cached while it lives.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/SoftObjectPath.h"
#include "UObject/WeakObjectPtr.h"

class UObject;
class UClass;

struct COREUOBJECT_API FSoftObjectPtr
{
	FSoftObjectPtr() = default;
	explicit FSoftObjectPtr(const FSoftObjectPath& InPath)
		: ObjectPath(InPath)
	{
	}
	FSoftObjectPtr(const UObject* Object);

	FSoftObjectPtr& operator=(const UObject* Object);
	FSoftObjectPtr& operator=(const FSoftObjectPath& InPath)
	{
		ObjectPath = InPath;
		WeakPtr.Reset();
		return *this;
	}
	void Reset()
	{
		ObjectPath.Reset();
		WeakPtr.Reset();
	}

	// The object if it is in memory, else null.
	UObject* Get() const;
	UObject* LoadSynchronous() const;
	const FSoftObjectPath& ToSoftObjectPath() const
	{
		return ObjectPath;
	}
	FString ToString() const
	{
		return ObjectPath.ToString();
	}
	bool IsNull() const
	{
		return ObjectPath.IsNull();
	}
	bool IsValid() const
	{
		return Get() != nullptr;
	}
	// A path whose object isn't in memory.
	bool IsPending() const
	{
		return !IsNull() && Get() == nullptr;
	}

	bool operator==(const FSoftObjectPtr& Other) const
	{
		return ObjectPath == Other.ObjectPath;
	}
	bool operator!=(const FSoftObjectPtr& Other) const
	{
		return !(*this == Other);
	}
	friend uint32 GetTypeHash(const FSoftObjectPtr& Ptr)
	{
		return GetTypeHash(Ptr.ObjectPath);
	}

private:
	FSoftObjectPath ObjectPath;
	mutable FWeakObjectPtr WeakPtr;
};

template<class T = UObject>
struct TSoftObjectPtr
{
	TSoftObjectPtr() = default;
	TSoftObjectPtr(TYPE_OF_NULLPTR)
	{
	}
	explicit TSoftObjectPtr(const FSoftObjectPath& Path)
		: SoftPtr(Path)
	{
	}
	template<class U, typename = std::enable_if_t<std::is_convertible_v<U*, T*>>>
	TSoftObjectPtr(const U* Object)
		: SoftPtr(reinterpret_cast<const UObject*>(static_cast<const T*>(Object)))
	{
	}

	template<class U, typename = std::enable_if_t<std::is_convertible_v<U*, T*>>>
	TSoftObjectPtr& operator=(const U* Object)
	{
		SoftPtr = reinterpret_cast<const UObject*>(static_cast<const T*>(Object));
		return *this;
	}
	void Reset()
	{
		SoftPtr.Reset();
	}

	T* Get() const
	{
		return reinterpret_cast<T*>(SoftPtr.Get());
	}
	T* LoadSynchronous() const
	{
		return reinterpret_cast<T*>(SoftPtr.LoadSynchronous());
	}
	T* operator->() const
	{
		return Get();
	}
	const FSoftObjectPath& ToSoftObjectPath() const
	{
		return SoftPtr.ToSoftObjectPath();
	}
	FString ToString() const
	{
		return SoftPtr.ToString();
	}
	FString GetAssetName() const
	{
		return SoftPtr.ToSoftObjectPath().GetAssetName();
	}
	FString GetLongPackageName() const
	{
		return SoftPtr.ToSoftObjectPath().GetLongPackageName();
	}
	bool IsNull() const
	{
		return SoftPtr.IsNull();
	}
	bool IsValid() const
	{
		return SoftPtr.IsValid();
	}
	bool IsPending() const
	{
		return SoftPtr.IsPending();
	}
	explicit operator bool() const
	{
		return IsValid();
	}
	bool operator==(const TSoftObjectPtr& Other) const
	{
		return SoftPtr == Other.SoftPtr;
	}
	bool operator!=(const TSoftObjectPtr& Other) const
	{
		return SoftPtr != Other.SoftPtr;
	}
	friend uint32 GetTypeHash(const TSoftObjectPtr& Ptr)
	{
		return GetTypeHash(Ptr.SoftPtr);
	}

private:
	FSoftObjectPtr SoftPtr;
};

template<class T = UObject>
struct TSoftClassPtr
{
	TSoftClassPtr() = default;
	TSoftClassPtr(TYPE_OF_NULLPTR)
	{
	}
	explicit TSoftClassPtr(const FSoftObjectPath& Path)
		: SoftPtr(Path)
	{
	}
	TSoftClassPtr(const UClass* Class)
		: SoftPtr(reinterpret_cast<const UObject*>(Class))
	{
	}

	TSoftClassPtr& operator=(const UClass* Class)
	{
		SoftPtr = reinterpret_cast<const UObject*>(Class);
		return *this;
	}
	void Reset()
	{
		SoftPtr.Reset();
	}

	UClass* Get() const
	{
		return reinterpret_cast<UClass*>(SoftPtr.Get());
	}
	UClass* LoadSynchronous() const
	{
		return reinterpret_cast<UClass*>(SoftPtr.LoadSynchronous());
	}
	const FSoftObjectPath& ToSoftObjectPath() const
	{
		return SoftPtr.ToSoftObjectPath();
	}
	FString ToString() const
	{
		return SoftPtr.ToString();
	}
	bool IsNull() const
	{
		return SoftPtr.IsNull();
	}
	bool IsValid() const
	{
		return SoftPtr.IsValid();
	}
	bool IsPending() const
	{
		return SoftPtr.IsPending();
	}
	bool operator==(const TSoftClassPtr& Other) const
	{
		return SoftPtr == Other.SoftPtr;
	}
	friend uint32 GetTypeHash(const TSoftClassPtr& Ptr)
	{
		return GetTypeHash(Ptr.SoftPtr);
	}

private:
	FSoftObjectPtr SoftPtr;
};
