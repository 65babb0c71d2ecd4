// Stand-in only: how widgets write their looks for the host's page (colours stay linear; the page turns
// them into sRGB as Slate's renderer does).
#pragma once

#include "CoreMinimal.h"
#include "Dom/JsonObject.h"
#include "Dom/JsonValue.h"
#include "Fonts/SlateFontInfo.h"
#include "Layout/Margin.h"
#include "Styling/SlateBrush.h"
#include "Styling/SlateColor.h"

namespace SlateStandInDescription
{
	SLATECORE_API TSharedPtr<FJsonValue> Color(const FLinearColor& Color);
	/** A specified colour, or {"foreground": true} (subdued: 0.5) for the inherited foreground. */
	SLATECORE_API TSharedPtr<FJsonValue> SlateColor(const FSlateColor& Color);
	SLATECORE_API TSharedPtr<FJsonValue> Margin(const FMargin& Margin);
	SLATECORE_API TSharedPtr<FJsonValue> Font(const FSlateFontInfo& Font);
	/** Null for no brush or one that draws nothing; an image brush names its file by the page's URL. */
	SLATECORE_API TSharedPtr<FJsonValue> Brush(const FSlateBrush* Brush);
	/** The URL path under which the page gets an image file. */
	SLATECORE_API FString ImageUrl(const FName ResourceName);
}
