#pragma once

#include "CoreMinimal.h"

class FSlateStyleSet;
class ISlateStyle;

/** The plugin's style set ("TavrineStyle"): the icons of its menu entry, tool bar button and tab. */
class FTavrineStyle
{
public:
	/** Registers the set once and then starts the facade; without the plugin on disk, neither happens. */
	static void Initialize();
	/** Stops the facade first, so that a running conversation ends while everything is still there. */
	static void Shutdown();
	static void ReloadTextures();
	static const ISlateStyle& Get();
	static FName GetStyleSetName();

private:
	static TSharedRef<FSlateStyleSet> Create(const FString& ContentRoot);

	static TSharedPtr<FSlateStyleSet> StyleInstance;
};
