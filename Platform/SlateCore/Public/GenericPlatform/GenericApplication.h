// The state of the modifier keys at an input event.
#pragma once

#include "CoreMinimal.h"

namespace EModifierKey
{
	typedef uint8 Type;
	const Type None = 0;
	const Type Control = 1 << 0;
	const Type Alt = 1 << 1;
	const Type Shift = 1 << 2;
	const Type Command = 1 << 3;
}

class FModifierKeysState
{
public:
	FModifierKeysState() = default;
	FModifierKeysState(const bool bInIsLeftShiftDown, const bool bInIsRightShiftDown, const bool bInIsLeftControlDown, const bool bInIsRightControlDown,
		const bool bInIsLeftAltDown, const bool bInIsRightAltDown, const bool bInIsLeftCommandDown, const bool bInIsRightCommandDown,
		const bool bInAreCapsLocked)
		: bIsLeftShiftDown(bInIsLeftShiftDown)
		, bIsRightShiftDown(bInIsRightShiftDown)
		, bIsLeftControlDown(bInIsLeftControlDown)
		, bIsRightControlDown(bInIsRightControlDown)
		, bIsLeftAltDown(bInIsLeftAltDown)
		, bIsRightAltDown(bInIsRightAltDown)
		, bIsLeftCommandDown(bInIsLeftCommandDown)
		, bIsRightCommandDown(bInIsRightCommandDown)
		, bAreCapsLocked(bInAreCapsLocked)
	{
	}

	bool IsShiftDown() const
	{
		return bIsLeftShiftDown || bIsRightShiftDown;
	}
	bool IsLeftShiftDown() const
	{
		return bIsLeftShiftDown;
	}
	bool IsRightShiftDown() const
	{
		return bIsRightShiftDown;
	}
	bool IsControlDown() const
	{
		return bIsLeftControlDown || bIsRightControlDown;
	}
	bool IsLeftControlDown() const
	{
		return bIsLeftControlDown;
	}
	bool IsRightControlDown() const
	{
		return bIsRightControlDown;
	}
	bool IsAltDown() const
	{
		return bIsLeftAltDown || bIsRightAltDown;
	}
	bool IsLeftAltDown() const
	{
		return bIsLeftAltDown;
	}
	bool IsRightAltDown() const
	{
		return bIsRightAltDown;
	}
	bool IsCommandDown() const
	{
		return bIsLeftCommandDown || bIsRightCommandDown;
	}
	bool AreCapsLocked() const
	{
		return bAreCapsLocked;
	}
	// The engine's spelling.
	bool AreModifersDown(EModifierKey::Type ModifierKeys) const
	{
		bool bAllDown = true;
		if ((ModifierKeys & EModifierKey::Shift) != 0)
		{
			bAllDown &= IsShiftDown();
		}
		if ((ModifierKeys & EModifierKey::Control) != 0)
		{
			bAllDown &= IsControlDown();
		}
		if ((ModifierKeys & EModifierKey::Alt) != 0)
		{
			bAllDown &= IsAltDown();
		}
		if ((ModifierKeys & EModifierKey::Command) != 0)
		{
			bAllDown &= IsCommandDown();
		}
		return bAllDown;
	}
	bool AnyModifiersDown() const
	{
		return IsShiftDown() || IsControlDown() || IsAltDown() || IsCommandDown();
	}

private:
	bool bIsLeftShiftDown = false;
	bool bIsRightShiftDown = false;
	bool bIsLeftControlDown = false;
	bool bIsRightControlDown = false;
	bool bIsLeftAltDown = false;
	bool bIsRightAltDown = false;
	bool bIsLeftCommandDown = false;
	bool bIsRightCommandDown = false;
	bool bAreCapsLocked = false;
};
