// EVisibility is a struct of named constants, not an enum: it is compared, never switched on.
#pragma once

#include "CoreMinimal.h"

struct EVisibility
{
	static const EVisibility Visible;
	static const EVisibility Collapsed;
	static const EVisibility Hidden;
	static const EVisibility HitTestInvisible;
	static const EVisibility SelfHitTestInvisible;
	static const EVisibility All;

	EVisibility()
		: Value(VIS_Visible)
	{
	}

	bool operator==(const EVisibility& Other) const
	{
		return Value == Other.Value;
	}
	bool operator!=(const EVisibility& Other) const
	{
		return Value != Other.Value;
	}

	/** Drawn: everything but Collapsed and Hidden. */
	bool IsVisible() const
	{
		return Value != VIS_Collapsed && Value != VIS_Hidden;
	}
	/** Takes room in the layout: everything but Collapsed. */
	bool AreChildrenHitTestVisible() const
	{
		return Value == VIS_Visible || Value == VIS_SelfHitTestInvisible || Value == VIS_All;
	}
	bool IsHitTestVisible() const
	{
		return Value == VIS_Visible || Value == VIS_All;
	}
	SLATECORE_API FString ToString() const;

private:
	enum EPrivate : uint8
	{
		VIS_Visible,
		VIS_Collapsed,
		VIS_Hidden,
		VIS_HitTestInvisible,
		VIS_SelfHitTestInvisible,
		VIS_All
	};
	explicit constexpr EVisibility(EPrivate InValue)
		: Value(InValue)
	{
	}
	EPrivate Value;
};
