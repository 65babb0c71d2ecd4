#pragma once

#include "UObject/Object.h"
#include "UnknownSpecifier.generated.h"

UCLASS()
class UTypo : public UObject
{
	GENERATED_BODY()
	UPROPERTY(EditAnywere)
	int32 Value;
};
