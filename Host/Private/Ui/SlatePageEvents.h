#pragma once

#include "CoreMinimal.h"

class FJsonObject;
class FSlatePageSnapshot;

/**
 * Carries out one event of the page as the user's input would reach Slate: clicks on shown and enabled
 * buttons, typing and keys through the focused widget, scrolls, menu entries, closing tabs. Events that
 * name a widget no longer there are dropped. Game thread only.
 */
void ApplySlatePageEvent(const FJsonObject& Event, const FSlatePageSnapshot& Snapshot);
