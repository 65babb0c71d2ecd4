// USkeleton: the bone hierarchy that animations and Animation Blueprints are made for.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/Object.h"
#include "Skeleton.generated.h"

UCLASS(BlueprintType)
class ENGINE_API USkeleton : public UObject
{
	GENERATED_BODY()

public:
	USkeleton(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	/** The names of the bones, root first. */
	UPROPERTY()
	TArray<FName> BoneNames;
};
