#include "HAL/StandInClock.h"

#include <chrono>
#include <mutex>

namespace
{
	struct FClockState
	{
		std::mutex Mutex;
		bool bManual = false;
		// Under real time the reading is real monotonic time plus this offset, which keeps the reading
		// continuous across a return from manual time.
		double RealOffset = 0.0;
		double ManualSeconds = 0.0;
		// Where the manual clock and the wall clock stood when manual time began.
		double ManualStartSeconds = 0.0;
		double WallAtManualStart = 0.0;
	};

	FClockState& GetState()
	{
		static FClockState State;
		return State;
	}

	double ReadMonotonic()
	{
		using namespace std::chrono;
		return duration<double>(steady_clock::now().time_since_epoch()).count();
	}

	double ReadSystemWall()
	{
		using namespace std::chrono;
		return duration<double>(system_clock::now().time_since_epoch()).count();
	}

	// Caller holds the mutex.
	void EnterManualLocked(FClockState& State)
	{
		if (!State.bManual)
		{
			State.ManualSeconds = ReadMonotonic() + State.RealOffset;
			State.ManualStartSeconds = State.ManualSeconds;
			State.WallAtManualStart = ReadSystemWall();
			State.bManual = true;
		}
	}

	double WallUnixLocked(const FClockState& State)
	{
		if (!State.bManual)
		{
			return ReadSystemWall();
		}
		return State.WallAtManualStart + (State.ManualSeconds - State.ManualStartSeconds);
	}
}

void FStandInClock::UseManualTime(bool bManual)
{
	FClockState& State = GetState();
	std::lock_guard<std::mutex> Lock(State.Mutex);
	if (bManual)
	{
		EnterManualLocked(State);
	}
	else if (State.bManual)
	{
		State.RealOffset = State.ManualSeconds - ReadMonotonic();
		State.bManual = false;
	}
}

bool FStandInClock::IsManualTime()
{
	FClockState& State = GetState();
	std::lock_guard<std::mutex> Lock(State.Mutex);
	return State.bManual;
}

void FStandInClock::Advance(double DeltaSeconds)
{
	FClockState& State = GetState();
	std::lock_guard<std::mutex> Lock(State.Mutex);
	EnterManualLocked(State);
	if (DeltaSeconds > 0.0)
	{
		State.ManualSeconds += DeltaSeconds;
	}
}

void FStandInClock::SetSeconds(double NewSeconds)
{
	FClockState& State = GetState();
	std::lock_guard<std::mutex> Lock(State.Mutex);
	EnterManualLocked(State);
	State.ManualSeconds = NewSeconds;
}

double FStandInClock::GetSeconds()
{
	FClockState& State = GetState();
	std::lock_guard<std::mutex> Lock(State.Mutex);
	return State.bManual ? State.ManualSeconds : ReadMonotonic() + State.RealOffset;
}

double FStandInClock::GetRealSeconds()
{
	return ReadMonotonic();
}

double FStandInClock::GetWallOffsetSeconds()
{
	FClockState& State = GetState();
	std::lock_guard<std::mutex> Lock(State.Mutex);
	return State.bManual ? WallUnixLocked(State) - ReadSystemWall() : 0.0;
}

double FStandInClock::GetWallUnixSeconds()
{
	FClockState& State = GetState();
	std::lock_guard<std::mutex> Lock(State.Mutex);
	return WallUnixLocked(State);
}
