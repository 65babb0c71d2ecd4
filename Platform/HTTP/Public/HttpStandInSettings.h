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

	/** The default bound on a response body: far above any real answer, far below int32's range. */
	static constexpr int64 DefaultMaxResponseBodyBytes = 256 * 1024 * 1024;
	/**
	 * A response whose body would pass this many bytes fails (reason Other) instead of being held:
	 * 256 MiB unless set, and never more. Read when a request starts.
	 */
	static void SetMaxResponseBodyBytes(int64 Bytes);
	static int64 GetMaxResponseBodyBytes();
};
