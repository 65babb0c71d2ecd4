// UBehaviorTree: the asset of a behaviour tree, its root composite and its blackboard.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/Object.h"
#include "BehaviorTree.generated.h"

class UBTCompositeNode;
class UBTDecorator;
class UBlackboardData;

UCLASS(BlueprintType, MinimalAPI)
class UBehaviorTree : public UObject
{
	GENERATED_BODY()

public:
	/** root node of loaded tree */
	UPROPERTY()
	TObjectPtr<UBTCompositeNode> RootNode;

	/** blackboard asset for this tree */
	UPROPERTY()
	TObjectPtr<UBlackboardData> BlackboardAsset;

	/** root level decorators, used by subtrees */
	UPROPERTY()
	TArray<TObjectPtr<UBTDecorator>> RootDecorators;

	virtual UBlackboardData* GetBlackboardAsset() const
	{
		return BlackboardAsset;
	}
};
