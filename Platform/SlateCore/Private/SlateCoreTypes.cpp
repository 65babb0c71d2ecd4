// The named constants of the small value types.
#include "Fonts/SlateFontInfo.h"
#include "Layout/Visibility.h"
#include "Types/WidgetActiveTimerDelegate.h"

const FFontOutlineSettings FFontOutlineSettings::NoOutline;

const EVisibility EVisibility::Visible(EVisibility::VIS_Visible);
const EVisibility EVisibility::Collapsed(EVisibility::VIS_Collapsed);
const EVisibility EVisibility::Hidden(EVisibility::VIS_Hidden);
const EVisibility EVisibility::HitTestInvisible(EVisibility::VIS_HitTestInvisible);
const EVisibility EVisibility::SelfHitTestInvisible(EVisibility::VIS_SelfHitTestInvisible);
const EVisibility EVisibility::All(EVisibility::VIS_All);

FString EVisibility::ToString() const
{
	switch (Value)
	{
	case VIS_Collapsed:
		return TEXT("Collapsed");
	case VIS_Hidden:
		return TEXT("Hidden");
	case VIS_HitTestInvisible:
		return TEXT("HitTestInvisible");
	case VIS_SelfHitTestInvisible:
		return TEXT("SelfHitTestInvisible");
	case VIS_All:
		return TEXT("All");
	default:
		return TEXT("Visible");
	}
}

bool FActiveTimerHandle::ExecuteIfDue(double CurrentTime)
{
	if (bPendingRemoval)
	{
		return false;
	}
	if (CurrentTime < NextExecutionTime)
	{
		return true;
	}
	const float DeltaTime = static_cast<float>(CurrentTime - LastExecutionTime);
	LastExecutionTime = CurrentTime;
	// Intervals missed while the application stood still are not made up for.
	NextExecutionTime = CurrentTime + Period;
	const EActiveTimerReturnType Result = TimerFunction.IsBound() ? TimerFunction.Execute(CurrentTime, DeltaTime) : EActiveTimerReturnType::Stop;
	if (Result == EActiveTimerReturnType::Stop)
	{
		bPendingRemoval = true;
	}
	return !bPendingRemoval;
}
