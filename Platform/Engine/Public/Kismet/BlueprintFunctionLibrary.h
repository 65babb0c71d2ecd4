// UBlueprintFunctionLibrary: the base of classes whose static functions Blueprints call.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/Object.h"
#include "BlueprintFunctionLibrary.generated.h"

/**
 * This class is a base class for any function libraries exposed to blueprints.
 */
UCLASS(Abstract, MinimalAPI)
class UBlueprintFunctionLibrary : public UObject
{
	GENERATED_BODY()
};
