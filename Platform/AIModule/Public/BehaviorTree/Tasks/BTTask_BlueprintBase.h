// The parent of tasks made as Blueprints.
#pragma once

#include "CoreMinimal.h"
#include "BehaviorTree/BTTaskNode.h"
#include "BTTask_BlueprintBase.generated.h"

UCLASS(Abstract, Blueprintable, MinimalAPI)
class UBTTask_BlueprintBase : public UBTTaskNode
{
	GENERATED_BODY()

public:
	UBTTask_BlueprintBase(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	// Named after its Blueprint, as the behaviour tree editor shows it.
	AIMODULE_API virtual void PostInitProperties() override;

protected:
	/** show detailed information about properties */
	UPROPERTY(EditInstanceOnly, Category = Description)
	uint32 bShowPropertyDetails : 1;
};
