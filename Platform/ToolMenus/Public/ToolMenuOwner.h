#pragma once

#include "CoreMinimal.h"

/** Who added a menu entry: a pointer (usually the module) or a name; entries are removed by owner. */
struct FToolMenuOwner
{
	FToolMenuOwner() = default;
	FToolMenuOwner(const void* InPointer)
		: Pointer(InPointer)
	{
	}
	FToolMenuOwner(const WIDECHAR* InName)
		: Name(InName)
	{
	}
	FToolMenuOwner(const ANSICHAR* InName)
		: Name(InName)
	{
	}
	FToolMenuOwner(const FName InName)
		: Name(InName)
	{
	}

	bool IsSet() const
	{
		return Pointer != nullptr || !Name.IsNone();
	}
	bool operator==(const FToolMenuOwner& Other) const
	{
		return Pointer == Other.Pointer && Name == Other.Name;
	}
	bool operator!=(const FToolMenuOwner& Other) const
	{
		return !(*this == Other);
	}

private:
	const void* Pointer = nullptr;
	FName Name;
};
