// UAnimSequenceBase: an animation that plays over time, at a rate, possibly looping.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "Animation/AnimationAsset.h"
#include "AnimSequenceBase.generated.h"

UCLASS(abstract, BlueprintType)
class ENGINE_API UAnimSequenceBase : public UAnimationAsset
{
	GENERATED_BODY()

public:
	UAnimSequenceBase(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	/** How fast the animation plays; 1 is its own speed. */
	UPROPERTY(EditAnywhere, Category = Animation)
	float RateScale = 1.0f;

	/** Whether it starts again at its end. */
	UPROPERTY(EditAnywhere, Category = Animation)
	bool bLoop = false;

	virtual float GetPlayLength() const override;

protected:
	/** The length in seconds at rate 1. */
	UPROPERTY(AssetRegistrySearchable)
	float SequenceLength = 0.0f;
};
