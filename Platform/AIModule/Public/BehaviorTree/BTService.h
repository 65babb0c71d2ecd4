// UBTService: work that runs at an interval while its branch is active.
#pragma once

#include "CoreMinimal.h"
#include "BehaviorTree/BTAuxiliaryNode.h"
#include "BTService.generated.h"

UCLASS(Abstract, MinimalAPI)
class UBTService : public UBTAuxiliaryNode
{
	GENERATED_BODY()

public:
	UBTService(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

protected:
	/** defines time span between subsequent ticks of the service */
	UPROPERTY(Category = Service, EditAnywhere, meta = (ClampMin = "0.001"))
	float Interval;

	/** adds random range to service's Interval */
	UPROPERTY(Category = Service, EditAnywhere, meta = (ClampMin = "0.0"))
	float RandomDeviation;

	/** call Tick event when task search enters this node */
	UPROPERTY(Category = Service, EditAnywhere, AdvancedDisplay)
	uint32 bCallTickOnSearchStart : 1;

	/** if set, next tick time will be always reset to service's interval when node is activated */
	UPROPERTY(Category = Service, EditAnywhere, AdvancedDisplay)
	uint32 bRestartTimerOnEachActivation : 1;
};
