#pragma once

#include "CoreMinimal.h"
#include "Fonts/SlateFontInfo.h"
#include "Styling/ISlateStyle.h"

/** The styles Slate itself ships: the default font family and the basic brushes. */
class FCoreStyle
{
public:
	static SLATECORE_API const ISlateStyle& Get();
	static SLATECORE_API FSlateFontInfo GetDefaultFontStyle(const FName InTypefaceFontName, const float InSize, const FFontOutlineSettings& InOutlineSettings = FFontOutlineSettings());
	static SLATECORE_API const FName& GetCoreStyleSetName();
	static SLATECORE_API bool IsStarshipStyle();
};
