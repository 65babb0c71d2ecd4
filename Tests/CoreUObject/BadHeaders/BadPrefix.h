#pragma once

#include "UObject/Object.h"
#include "BadPrefix.generated.h"

UCLASS()
class Settings : public UObject
{
	GENERATED_BODY()
};
