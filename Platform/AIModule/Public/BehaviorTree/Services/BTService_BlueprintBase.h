// The parent of services made as Blueprints; not meant for native classes.
#pragma once

#include "CoreMinimal.h"
#include "BehaviorTree/BTService.h"
#include "BTService_BlueprintBase.generated.h"

UCLASS(Abstract, Blueprintable, MinimalAPI)
class UBTService_BlueprintBase : public UBTService
{
	GENERATED_BODY()

public:
	UBTService_BlueprintBase(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	// Named after its Blueprint, as the behaviour tree editor shows it.
	AIMODULE_API virtual void PostInitProperties() override;

protected:
	/** show detailed information about properties */
	UPROPERTY(EditInstanceOnly, Category = Description)
	uint32 bShowPropertyDetails : 1;
};
