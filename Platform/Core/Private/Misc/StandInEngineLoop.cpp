#include "Misc/StandInEngineLoop.h"

#include "Async/TaskGraphInterfaces.h"
#include "Containers/Ticker.h"
#include "HAL/PlatformTime.h"
#include "HAL/StandInClock.h"

#include <atomic>
#include <chrono>
#include <thread>

namespace
{
	// The clock's reading at the end of the previous TickFromClock, or a negative value before the first.
	std::atomic<double> GLastTurnSeconds{-1.0};

	void SleepRealSeconds(double Seconds)
	{
		std::this_thread::sleep_for(std::chrono::duration<double>(Seconds));
	}
}

void FStandInEngineLoop::Tick(float DeltaSeconds)
{
	FTaskGraphInterface::Get().ProcessThreadUntilIdle(ENamedThreads::GameThread);
	FTSTicker::GetCoreTicker().Tick(DeltaSeconds);
}

void FStandInEngineLoop::TickFromClock()
{
	const double Now = FPlatformTime::Seconds();
	const double Last = GLastTurnSeconds.exchange(Now);
	// A clock set backwards (SetSeconds in a test) gives a zero delta, never a negative one.
	const double Delta = Last < 0.0 || Now < Last ? 0.0 : Now - Last;
	Tick(static_cast<float>(Delta));
}

bool FStandInEngineLoop::PumpUntil(TFunction<bool()> Done, double TimeoutSeconds, double ManualStepSeconds)
{
	const double Deadline = FStandInClock::GetRealSeconds() + TimeoutSeconds;
	if (Done && Done())
	{
		return true;
	}
	for (;;)
	{
		if (FStandInClock::IsManualTime())
		{
			SleepRealSeconds(0.0002);
			FStandInClock::Advance(ManualStepSeconds);
		}
		else
		{
			SleepRealSeconds(0.001);
		}
		TickFromClock();
		if (Done && Done())
		{
			return true;
		}
		if (FStandInClock::GetRealSeconds() >= Deadline)
		{
			return false;
		}
	}
}
