#pragma once

#include "UObject/Object.h"
#include "UnknownMacroArgument.generated.h"

UCLASS()
class UTypo : public UObject
{
	GENERATED_BODY()
	UPROPERTY(EditAnywere)
	int32 Value;
};
