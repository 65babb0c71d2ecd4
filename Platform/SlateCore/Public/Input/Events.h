#pragma once

#include "CoreMinimal.h"
#include "GenericPlatform/GenericApplication.h"
#include "InputCoreTypes.h"
#include "Types/SlateEnums.h"

struct FInputEvent
{
	FInputEvent() = default;
	FInputEvent(const FModifierKeysState& InModifierKeys, const uint32 InUserIndex, const bool bInIsRepeat)
		: ModifierKeys(InModifierKeys)
		, UserIndex(InUserIndex)
		, bIsRepeat(bInIsRepeat)
	{
	}
	virtual ~FInputEvent() = default;

	bool IsRepeat() const
	{
		return bIsRepeat;
	}
	bool IsShiftDown() const
	{
		return ModifierKeys.IsShiftDown();
	}
	bool IsLeftShiftDown() const
	{
		return ModifierKeys.IsLeftShiftDown();
	}
	bool IsRightShiftDown() const
	{
		return ModifierKeys.IsRightShiftDown();
	}
	bool IsControlDown() const
	{
		return ModifierKeys.IsControlDown();
	}
	bool IsLeftControlDown() const
	{
		return ModifierKeys.IsLeftControlDown();
	}
	bool IsRightControlDown() const
	{
		return ModifierKeys.IsRightControlDown();
	}
	bool IsAltDown() const
	{
		return ModifierKeys.IsAltDown();
	}
	bool IsCommandDown() const
	{
		return ModifierKeys.IsCommandDown();
	}
	bool AreCapsLocked() const
	{
		return ModifierKeys.AreCapsLocked();
	}
	const FModifierKeysState& GetModifierKeys() const
	{
		return ModifierKeys;
	}
	uint32 GetUserIndex() const
	{
		return UserIndex;
	}

protected:
	FModifierKeysState ModifierKeys;
	uint32 UserIndex = 0;
	bool bIsRepeat = false;
};

struct FKeyEvent : public FInputEvent
{
	// Not for normal use: events come from the application.
	FKeyEvent() = default;
	FKeyEvent(const FKey InKey, const FModifierKeysState& InModifierKeys, const uint32 InUserIndex, const bool bInIsRepeat, const uint32 InCharacterCode, const uint32 InKeyCode)
		: FInputEvent(InModifierKeys, InUserIndex, bInIsRepeat)
		, Key(InKey)
		, CharacterCode(InCharacterCode)
		, KeyCode(InKeyCode)
	{
	}

	FKey GetKey() const
	{
		return Key;
	}
	uint32 GetCharacter() const
	{
		return CharacterCode;
	}
	uint32 GetKeyCode() const
	{
		return KeyCode;
	}

private:
	FKey Key;
	uint32 CharacterCode = 0;
	uint32 KeyCode = 0;
};

struct FCharacterEvent : public FInputEvent
{
	FCharacterEvent() = default;
	FCharacterEvent(const TCHAR InCharacter, const FModifierKeysState& InModifierKeys, const uint32 InUserIndex, const bool bInIsRepeat)
		: FInputEvent(InModifierKeys, InUserIndex, bInIsRepeat)
		, Character(InCharacter)
	{
	}

	TCHAR GetCharacter() const
	{
		return Character;
	}

private:
	TCHAR Character = 0;
};

struct FFocusEvent
{
	FFocusEvent() = default;
	explicit FFocusEvent(EFocusCause InCause)
		: Cause(InCause)
	{
	}
	EFocusCause GetCause() const
	{
		return Cause;
	}

private:
	EFocusCause Cause{};
};
