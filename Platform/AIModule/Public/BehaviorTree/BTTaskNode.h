// UBTTaskNode: a leaf of the tree that does the work.
#pragma once

#include "CoreMinimal.h"
#include "BehaviorTree/BTNode.h"
#include "BTTaskNode.generated.h"

class UBTService;

UCLASS(Abstract, MinimalAPI)
class UBTTaskNode : public UBTNode
{
	GENERATED_BODY()

public:
	/** service nodes */
	UPROPERTY()
	TArray<TObjectPtr<UBTService>> Services;

protected:
	/** if set, task search will be discarded when this task is selected to execute but is already running */
	UPROPERTY(Category = Task, EditAnywhere)
	uint32 bIgnoreRestartSelf : 1;
};
