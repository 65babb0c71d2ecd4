#pragma once

#include "CoreMinimal.h"

/**
 * The mode the user chose in the chat, kept in the per-user settings file beside the settings' own
 * values. The settings object holds the mode without reflection data, so its own load and save skip it.
 */
struct FTavrineSavedMode
{
	/** Puts the saved choice, if there is a valid one, into UTavrineSettings::Mode. */
	static void Load();
	/** Stores UTavrineSettings::Mode for the next session. */
	static void Save();
};
