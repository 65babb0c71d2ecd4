// UAnimBlueprint: a Blueprint that animates a skeleton. Its asset class differs from UBlueprint's.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "Engine/Blueprint.h"
#include "AnimBlueprint.generated.h"

class USkeleton;
class UAnimBlueprintGeneratedClass;

UCLASS(BlueprintType)
class ENGINE_API UAnimBlueprint : public UBlueprint
{
	GENERATED_BODY()

public:
	UAnimBlueprint(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	/** The skeleton the Blueprint animates. */
	UPROPERTY(AssetRegistrySearchable, EditAnywhere, AdvancedDisplay, Category = ClassOptions)
	TObjectPtr<USkeleton> TargetSkeleton;

	UAnimBlueprintGeneratedClass* GetAnimBlueprintGeneratedClass() const;
	UAnimBlueprintGeneratedClass* GetAnimBlueprintSkeletonClass() const;
};
