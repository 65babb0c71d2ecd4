#pragma once

#include "CoreTypes.h"

// Monotonic time and cycle counters. One cycle is one microsecond, as on the engine's Linux targets.
// Under the stand-in's manual clock (HAL/StandInClock.h) every reading here follows that clock.
struct FPlatformTime
{
	// Seconds from an arbitrary origin; never goes backwards under real time.
	static double Seconds();
	// Wraps around after about 71 minutes; use Cycles64 for long spans.
	static uint32 Cycles();
	static uint64 Cycles64();

	static double GetSecondsPerCycle()
	{
		return 1.0e-6;
	}
	static double GetSecondsPerCycle64()
	{
		return 1.0e-6;
	}
	static float ToSeconds(uint32 Cycles)
	{
		return static_cast<float>(GetSecondsPerCycle() * Cycles);
	}
	static float ToMilliseconds(uint32 Cycles)
	{
		return static_cast<float>(GetSecondsPerCycle() * 1000.0 * Cycles);
	}
	static double ToSeconds64(uint64 Cycles)
	{
		return GetSecondsPerCycle64() * static_cast<double>(Cycles);
	}
	static double ToMilliseconds64(uint64 Cycles)
	{
		return GetSecondsPerCycle64() * 1000.0 * static_cast<double>(Cycles);
	}
};
