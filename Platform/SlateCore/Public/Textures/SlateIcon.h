#pragma once

#include "CoreMinimal.h"
#include "Styling/ISlateStyle.h"

/** An icon named by style set and style; the brush is looked up when it is drawn. */
struct FSlateIcon
{
	FSlateIcon() = default;
	FSlateIcon(const FName InStyleSetName, const FName InStyleName, const FName InSmallStyleName = NAME_None, const FName InStatusOverlayStyleName = NAME_None)
		: StyleSetName(InStyleSetName)
		, StyleName(InStyleName)
		, SmallStyleName(InSmallStyleName.IsNone() ? FName(*(InStyleName.ToString() + TEXT(".Small"))) : InSmallStyleName)
		, StatusOverlayStyleName(InStatusOverlayStyleName)
		, bIsSet(true)
	{
	}

	const FName& GetStyleSetName() const
	{
		return StyleSetName;
	}
	const FName& GetStyleName() const
	{
		return StyleName;
	}
	const FName& GetSmallStyleName() const
	{
		return SmallStyleName;
	}
	bool IsSet() const
	{
		return bIsSet;
	}
	/** The set, or null when no set of that name is registered. */
	SLATECORE_API const ISlateStyle* GetStyleSet() const;
	/** The brush; the default brush when the set or the style is missing. */
	SLATECORE_API const FSlateBrush* GetIcon() const;
	/** The small brush, or the large one when the set has no small one. */
	SLATECORE_API const FSlateBrush* GetSmallIcon() const;
	/** The brush, or null when the set or the style is missing. */
	SLATECORE_API const FSlateBrush* GetOptionalIcon() const;

	bool operator==(const FSlateIcon& Other) const
	{
		return StyleSetName == Other.StyleSetName && StyleName == Other.StyleName && SmallStyleName == Other.SmallStyleName && bIsSet == Other.bIsSet;
	}

private:
	FName StyleSetName;
	FName StyleName;
	FName SmallStyleName;
	FName StatusOverlayStyleName;
	bool bIsSet = false;
};
