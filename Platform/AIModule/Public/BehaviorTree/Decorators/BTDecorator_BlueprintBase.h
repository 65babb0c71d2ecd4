// The parent of decorators made as Blueprints.
#pragma once

#include "CoreMinimal.h"
#include "BehaviorTree/BTDecorator.h"
#include "BTDecorator_BlueprintBase.generated.h"

UCLASS(Abstract, Blueprintable, MinimalAPI)
class UBTDecorator_BlueprintBase : public UBTDecorator
{
	GENERATED_BODY()

public:
	UBTDecorator_BlueprintBase(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	// Named after its Blueprint, as the behaviour tree editor shows it.
	AIMODULE_API virtual void PostInitProperties() override;

protected:
	/** show detailed information about properties */
	UPROPERTY(EditInstanceOnly, Category = Description)
	uint32 bShowPropertyDetails : 1;
};
