#pragma once

#include "CoreTypes.h"
#include "Templates/Function.h"

/**
 * The turn of the editor's main loop, for the host program and for tests; only the stand-in has it.
 * A turn runs the game thread's queued tasks, then ticks the core ticker (which drives HTTP completions and
 * every ticker). The thread that turns the loop first becomes the game thread.
 */
class FStandInEngineLoop
{
public:
	/** One turn with the given delta time. */
	static CORE_API void Tick(float DeltaSeconds);

	/**
	 * One turn whose delta time is what FPlatformTime::Seconds moved since the previous turn (zero for the
	 * first one), so that it follows the manual clock when that is on.
	 */
	static CORE_API void TickFromClock();

	/**
	 * Turns the loop until Done() is true (checked before the first turn and after each) or TimeoutSeconds
	 * of real time have passed, whatever the clock; gives whether Done() became true. Under real time each
	 * turn sleeps a millisecond first. Under manual time each turn first moves the clock by ManualStepSeconds
	 * (zero leaves the clock to the caller), so that a wait of seconds on the clock takes few turns, and
	 * yields a little real time to other threads (network, servers) between turns.
	 */
	static CORE_API bool PumpUntil(TFunction<bool()> Done, double TimeoutSeconds, double ManualStepSeconds = 0.1);
};
