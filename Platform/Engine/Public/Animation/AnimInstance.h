// UAnimInstance: the object that runs an Animation Blueprint for a skeletal mesh.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/Object.h"
#include "AnimInstance.generated.h"

UCLASS(transient, Blueprintable)
class ENGINE_API UAnimInstance : public UObject
{
	GENERATED_BODY()

public:
	UAnimInstance(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	/** Called every frame before the pose is evaluated. */
	UFUNCTION(BlueprintImplementableEvent)
	void BlueprintUpdateAnimation(float DeltaTimeX);

	/** Called when the instance starts. */
	UFUNCTION(BlueprintImplementableEvent)
	void BlueprintInitializeAnimation();
};
