#pragma once

#include "CoreMinimal.h"

/**
 * Stand-in only: what the engine would take from its own configuration. The host program and
 * the tests set these; plugin code never reads them.
 */
class FHttpStandInSettings
{
public:
	/**
	 * A PEM file whose certificates are trusted in addition to the system's, so that a local
	 * backend with its own certificate can be reached with verification on. Empty for none.
	 * Starts from the environment variable TAVRINE_EXTRA_CA_FILE; read when a request starts.
	 */
	static void SetExtraCaFile(const FString& Path);
	static FString GetExtraCaFile();
};
