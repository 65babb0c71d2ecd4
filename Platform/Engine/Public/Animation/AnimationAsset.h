// UAnimationAsset: the base of animation assets, made for one skeleton.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/Object.h"
#include "AnimationAsset.generated.h"

class USkeleton;

UCLASS(abstract, BlueprintType)
class ENGINE_API UAnimationAsset : public UObject
{
	GENERATED_BODY()

public:
	UAnimationAsset(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	UFUNCTION(BlueprintPure, Category = "Animation", meta = (BlueprintThreadSafe))
	virtual float GetPlayLength() const;

	USkeleton* GetSkeleton() const
	{
		return Skeleton;
	}
	void SetSkeleton(USkeleton* NewSkeleton)
	{
		Skeleton = NewSkeleton;
	}

private:
	UPROPERTY(AssetRegistrySearchable)
	TObjectPtr<USkeleton> Skeleton;
};
