// Keys as the input layer names them. A key is its name: two keys are equal when their names are.
#pragma once

#include "CoreMinimal.h"

struct FKey
{
	FKey() = default;
	FKey(const FName InName)
		: KeyName(InName)
	{
	}
	FKey(const TCHAR* InName)
		: KeyName(InName)
	{
	}
	FKey(const ANSICHAR* InName)
		: KeyName(InName)
	{
	}

	bool IsValid() const
	{
		return !KeyName.IsNone();
	}
	FName GetFName() const
	{
		return KeyName;
	}
	FString ToString() const
	{
		return KeyName.ToString();
	}
	FText GetDisplayName(bool bLongDisplayName = true) const
	{
		return FText::FromName(KeyName);
	}
	bool IsModifierKey() const;

	friend bool operator==(const FKey& A, const FKey& B)
	{
		return A.KeyName == B.KeyName;
	}
	friend bool operator!=(const FKey& A, const FKey& B)
	{
		return !(A == B);
	}
	friend uint32 GetTypeHash(const FKey& Key)
	{
		return GetTypeHash(Key.KeyName);
	}

private:
	FName KeyName;
};

struct EKeys
{
	static const FKey Invalid;
	static const FKey AnyKey;

	static const FKey BackSpace;
	static const FKey Tab;
	static const FKey Enter;
	static const FKey Pause;
	static const FKey Escape;
	static const FKey SpaceBar;
	static const FKey PageUp;
	static const FKey PageDown;
	static const FKey End;
	static const FKey Home;
	static const FKey Left;
	static const FKey Up;
	static const FKey Right;
	static const FKey Down;
	static const FKey Insert;
	static const FKey Delete;

	static const FKey A;
	static const FKey C;
	static const FKey V;
	static const FKey X;
	static const FKey Z;

	static const FKey LeftShift;
	static const FKey RightShift;
	static const FKey LeftControl;
	static const FKey RightControl;
	static const FKey LeftAlt;
	static const FKey RightAlt;
	static const FKey LeftCommand;
	static const FKey RightCommand;

	static const FKey LeftMouseButton;
	static const FKey RightMouseButton;
	static const FKey MouseScrollUp;
	static const FKey MouseScrollDown;

	/** The key of this name, or Invalid when the stand-in knows no such key. */
	static FKey FromName(const FName Name);
};
