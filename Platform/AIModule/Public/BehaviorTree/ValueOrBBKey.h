// A node property given either as a value or as the blackboard key that holds it.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "ValueOrBBKey.generated.h"

USTRUCT(BlueprintType)
struct FValueOrBBKey_Float
{
	GENERATED_BODY()

	FValueOrBBKey_Float(float Default = 0.f)
		: DefaultValue(Default)
	{
	}

	/** blackboard key that overrides the value when set */
	UPROPERTY(EditAnywhere, Category = Value)
	FName Key;

	UPROPERTY(EditAnywhere, Category = Value)
	float DefaultValue;

	float GetValue() const
	{
		return DefaultValue;
	}
};
