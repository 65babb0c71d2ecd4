#include "HAL/PlatformTime.h"
#include "HAL/StandInClock.h"

double FPlatformTime::Seconds()
{
	return FStandInClock::GetSeconds();
}

uint32 FPlatformTime::Cycles()
{
	return static_cast<uint32>(Cycles64());
}

uint64 FPlatformTime::Cycles64()
{
	const double Now = Seconds();
	return Now > 0.0 ? static_cast<uint64>(Now / GetSecondsPerCycle64()) : 0;
}
