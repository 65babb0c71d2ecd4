// A service that works on one blackboard key.
#pragma once

#include "CoreMinimal.h"
#include "BehaviorTree/BTService.h"
#include "BehaviorTree/BehaviorTreeKeySelector.h"
#include "BTService_BlackboardBase.generated.h"

UCLASS(Abstract, MinimalAPI)
class UBTService_BlackboardBase : public UBTService
{
	GENERATED_BODY()

protected:
	/** blackboard key selector */
	UPROPERTY(EditAnywhere, Category = Blackboard)
	FBlackboardKeySelector BlackboardKey;
};
