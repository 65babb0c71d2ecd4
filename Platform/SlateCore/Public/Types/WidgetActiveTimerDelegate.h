#pragma once

#include "CoreMinimal.h"
#include "Delegates/Delegate.h"

enum class EActiveTimerReturnType : uint8
{
	Stop,
	Continue
};

/** Called with the application's current time and the time since the timer last ran. */
DECLARE_DELEGATE_RetVal_TwoParams(EActiveTimerReturnType, FWidgetActiveTimerDelegate, double, float);

/**
 * One registered timer. It first runs one period after registration, then every period (0: every frame);
 * intervals missed while the application stood still are not replayed.
 */
class FActiveTimerHandle
{
public:
	FActiveTimerHandle(float InPeriod, FWidgetActiveTimerDelegate InTimerFunction, double InNextExecutionTime)
		: Period(InPeriod)
		, TimerFunction(MoveTemp(InTimerFunction))
		, NextExecutionTime(InNextExecutionTime)
		, LastExecutionTime(InNextExecutionTime - InPeriod)
	{
	}

	bool IsPendingRemoval() const
	{
		return bPendingRemoval;
	}
	void MarkPendingRemoval()
	{
		bPendingRemoval = true;
	}
	float GetPeriod() const
	{
		return Period;
	}

	/** Runs the timer if it is due at CurrentTime; gives false once it asked to stop. */
	SLATECORE_API bool ExecuteIfDue(double CurrentTime);

private:
	float Period;
	FWidgetActiveTimerDelegate TimerFunction;
	double NextExecutionTime;
	double LastExecutionTime;
	bool bPendingRemoval = false;
};
