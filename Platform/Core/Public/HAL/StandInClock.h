#pragma once

#include "CoreTypes.h"

/**
 * The clock behind FPlatformTime (and FDateTime::Now/UtcNow), which tests can stop and move by hand so that
 * waits of seconds (poll schedules, ticker delays) take no real time. Only the stand-in has it; the engine
 * always runs on real time. Real monotonic time is the default. Thread-safe.
 */
class FStandInClock
{
public:
	/**
	 * On: the clock stops at its current reading and moves only through Advance and SetSeconds.
	 * Off: it runs on real time again, going on from its last reading so that it never goes backwards.
	 */
	static void UseManualTime(bool bManual);
	static bool IsManualTime();

	/** Moves the clock forward (negative amounts are ignored); switches to manual time first if needed. */
	static void Advance(double DeltaSeconds);

	/** Sets the reading of FPlatformTime::Seconds; switches to manual time first if needed. */
	static void SetSeconds(double NewSeconds);

	/** What FPlatformTime::Seconds reports. */
	static double GetSeconds();

	/** Real monotonic seconds, whatever the mode: for timeouts that must hold even while the clock stands still. */
	static double GetRealSeconds();

	/**
	 * Seconds to add to the system's wall clock to get the stand-in's wall clock (FDateTime::Now, UtcNow).
	 * Zero under real time. Under manual time the wall clock stands at the moment manual time began, moved
	 * by every Advance and SetSeconds since, so the offset changes as real time passes.
	 */
	static double GetWallOffsetSeconds();

	/** The stand-in's wall clock as seconds since 1970-01-01 UTC, with the offset above applied. */
	static double GetWallUnixSeconds();
};
