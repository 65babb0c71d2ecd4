// Timeline types shared with the timeline template.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "TimelineComponent.generated.h"

/** Where a timeline ends. */
UENUM()
enum ETimelineLengthMode : int
{
	/** At its set length. */
	TL_TimelineLength,
	/** At its last key. */
	TL_LastKeyFrame,
};
