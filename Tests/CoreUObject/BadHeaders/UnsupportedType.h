#pragma once

#include "UObject/Object.h"
#include "UnsupportedType.generated.h"

UCLASS()
class UPointing : public UObject
{
	GENERATED_BODY()
	UPROPERTY()
	FVector* Target;
};
