// The run-behaviour task: runs another tree as a subtree.
#pragma once

#include "CoreMinimal.h"
#include "BehaviorTree/BTTaskNode.h"
#include "BTTask_RunBehavior.generated.h"

class UBehaviorTree;

UCLASS(MinimalAPI)
class UBTTask_RunBehavior : public UBTTaskNode
{
	GENERATED_BODY()

public:
	UBTTask_RunBehavior(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	UBehaviorTree* GetSubtreeAsset() const
	{
		return BehaviorAsset;
	}

protected:
	/** behavior to run */
	UPROPERTY(Category = Node, EditAnywhere)
	TObjectPtr<UBehaviorTree> BehaviorAsset;
};
