#pragma once

#include "UObject/Object.h"
#include "IncludeAfterGenerated.generated.h"
#include "Misc/Paths.h"

UCLASS()
class ULate : public UObject
{
	GENERATED_BODY()
};
