// A task that works on one blackboard key.
#pragma once

#include "CoreMinimal.h"
#include "BehaviorTree/BTTaskNode.h"
#include "BehaviorTree/BehaviorTreeKeySelector.h"
#include "BTTask_BlackboardBase.generated.h"

UCLASS(Abstract, MinimalAPI)
class UBTTask_BlackboardBase : public UBTTaskNode
{
	GENERATED_BODY()

protected:
	/** blackboard key selector */
	UPROPERTY(EditAnywhere, Category = Blackboard)
	FBlackboardKeySelector BlackboardKey;
};
