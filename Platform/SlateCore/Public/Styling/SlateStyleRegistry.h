#pragma once

#include "CoreMinimal.h"
#include "Styling/ISlateStyle.h"

/** The registered style sets, by name; icons and commands find their images through it. */
class FSlateStyleRegistry
{
public:
	/** A set whose name is taken already is refused with a warning. */
	static SLATECORE_API void RegisterSlateStyle(const ISlateStyle& InSlateStyle);
	static SLATECORE_API void UnRegisterSlateStyle(const ISlateStyle& InSlateStyle);
	static SLATECORE_API void UnRegisterSlateStyle(const FName StyleSetName);
	static SLATECORE_API const ISlateStyle* FindSlateStyle(const FName& InSlateStyleName);
	/** Visits each set until the visitor gives false; gives false when it stopped early. */
	static SLATECORE_API bool IterateAllStyles(TFunctionRef<bool(const ISlateStyle&)> Iter);
};
