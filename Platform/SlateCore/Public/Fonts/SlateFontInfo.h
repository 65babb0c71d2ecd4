#pragma once

#include "CoreMinimal.h"

class UObject;

struct FFontOutlineSettings
{
	FFontOutlineSettings() = default;
	FFontOutlineSettings(int32 InOutlineSize, FLinearColor InColor = FLinearColor::Black)
		: OutlineSize(InOutlineSize)
		, OutlineColor(InColor)
	{
	}
	bool operator==(const FFontOutlineSettings& Other) const
	{
		return OutlineSize == Other.OutlineSize && OutlineColor == Other.OutlineColor;
	}

	int32 OutlineSize = 0;
	FLinearColor OutlineColor = FLinearColor::Black;

	static const FFontOutlineSettings NoOutline;
};

/** A font: the typeface ("Regular", "Bold", "Italic", "Mono") of the default family, and a size in points. */
struct FSlateFontInfo
{
	FSlateFontInfo() = default;

	const UObject* FontObject = nullptr;
	FName TypefaceFontName;
	float Size = 24.0f;
	int32 LetterSpacing = 0;
	float SkewAmount = 0.0f;
	FFontOutlineSettings OutlineSettings;

	bool HasValidFont() const
	{
		return !TypefaceFontName.IsNone();
	}
	bool IsLegacyIdenticalTo(const FSlateFontInfo& Other) const
	{
		return *this == Other;
	}
	bool operator==(const FSlateFontInfo& Other) const
	{
		return TypefaceFontName == Other.TypefaceFontName && Size == Other.Size && LetterSpacing == Other.LetterSpacing
			&& OutlineSettings == Other.OutlineSettings;
	}
	bool operator!=(const FSlateFontInfo& Other) const
	{
		return !(*this == Other);
	}
};
