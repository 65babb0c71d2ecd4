// FHitResult: what a sweep or trace ran into.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/Class.h"
#include "HitResult.generated.h"

USTRUCT(BlueprintType)
struct FHitResult
{
	GENERATED_BODY()

	/** Whether something blocked the sweep. */
	UPROPERTY()
	uint8 bBlockingHit : 1;

	/** Whether the sweep started inside what it hit. */
	UPROPERTY()
	uint8 bStartPenetrating : 1;

	/** How far along the sweep, from 0 to 1, the hit is. */
	UPROPERTY()
	float Time = 1.0f;

	UPROPERTY()
	float Distance = 0.0f;

	UPROPERTY()
	FVector Location;

	UPROPERTY()
	FVector ImpactPoint;

	UPROPERTY()
	FVector ImpactNormal;

	FHitResult()
		: bBlockingHit(false)
		, bStartPenetrating(false)
	{
	}
};
