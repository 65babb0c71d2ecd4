#pragma once

#include "CoreMinimal.h"
#include "GenericPlatform/GenericApplication.h"
#include "InputCoreTypes.h"

/** A key with its modifiers; the empty chord binds nothing. */
struct FInputChord
{
	FInputChord() = default;
	FInputChord(const FKey InKey)
		: Key(InKey)
	{
	}
	FInputChord(const EModifierKey::Type InModifierKeys, const FKey InKey)
		: Key(InKey)
		, bShift((InModifierKeys & EModifierKey::Shift) != 0)
		, bCtrl((InModifierKeys & EModifierKey::Control) != 0)
		, bAlt((InModifierKeys & EModifierKey::Alt) != 0)
		, bCmd((InModifierKeys & EModifierKey::Command) != 0)
	{
	}
	FInputChord(const FKey InKey, const EModifierKey::Type InModifierKeys)
		: FInputChord(InModifierKeys, InKey)
	{
	}
	FInputChord(const FKey InKey, bool bInShift, bool bInCtrl, bool bInAlt, bool bInCmd)
		: Key(InKey)
		, bShift(bInShift)
		, bCtrl(bInCtrl)
		, bAlt(bInAlt)
		, bCmd(bInCmd)
	{
	}

	bool IsValidChord() const
	{
		return Key.IsValid();
	}
	bool operator==(const FInputChord& Other) const
	{
		return Key == Other.Key && bShift == Other.bShift && bCtrl == Other.bCtrl && bAlt == Other.bAlt && bCmd == Other.bCmd;
	}

	FKey Key;
	bool bShift = false;
	bool bCtrl = false;
	bool bAlt = false;
	bool bCmd = false;
};

typedef FInputChord FInputGesture;
