// The lowest layer of every object: its class, outer, name and flags, and its place in the object registry.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/UObjectGlobals.h"

namespace UE::CoreUObject::Private
{
	struct FObjectBaseAccess;
}

class COREUOBJECT_API UObjectBase
{
	friend struct UE::CoreUObject::Private::FObjectBaseAccess;

protected:
	// Takes the object's identity from the initializer of the construction in progress.
	UObjectBase();

public:
	virtual ~UObjectBase();
	UObjectBase(const UObjectBase&) = delete;
	UObjectBase& operator=(const UObjectBase&) = delete;

	UClass* GetClass() const
	{
		return ClassPrivate;
	}
	UObject* GetOuter() const
	{
		return OuterPrivate;
	}
	FName GetFName() const
	{
		return NamePrivate;
	}
	EObjectFlags GetFlags() const
	{
		return ObjectFlags;
	}
	uint32 GetUniqueID() const
	{
		return static_cast<uint32>(InternalIndex);
	}
	// True for a live object of the registry with a class.
	bool IsValidLowLevel() const;
	bool IsValidLowLevelFast(bool bRecursive = true) const
	{
		return IsValidLowLevel();
	}

protected:
	void SetFlagsTo(EObjectFlags NewFlags)
	{
		ObjectFlags = NewFlags;
	}
	// Changes name and outer and moves the object in the name lookup; no checks.
	void LowLevelRename(FName NewName, UObject* NewOuter = nullptr);

	bool IsRootedInternal() const
	{
		return bRooted;
	}
	void SetRootedInternal(bool bInRooted)
	{
		bRooted = bInRooted;
	}

private:
	EObjectFlags ObjectFlags;
	int32 InternalIndex;
	UClass* ClassPrivate;
	FName NamePrivate;
	UObject* OuterPrivate;
	bool bRooted;
};
