#pragma once

#include "CoreMinimal.h"

/** The base of widget styles, which style sets store by name and hand out by type. */
struct FSlateWidgetStyle
{
	virtual ~FSlateWidgetStyle() = default;
	virtual const FName GetTypeName() const = 0;
};
