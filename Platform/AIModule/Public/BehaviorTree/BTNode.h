// UBTNode: the base of every node of a behaviour tree.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/Object.h"
#include "BTNode.generated.h"

class UBehaviorTree;
class UBlackboardData;
class UBTCompositeNode;

UCLASS(Abstract, Config = Game, MinimalAPI)
class UBTNode : public UObject
{
	GENERATED_BODY()

public:
	UBTNode(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	// Links the node into its tree; the tree's loader calls it for every node.
	AIMODULE_API void InitializeNode(UBTCompositeNode* InParentNode, uint16 InExecutionIndex, uint16 InMemoryOffset, uint8 InTreeDepth);
	AIMODULE_API void InitializeFromAsset(UBehaviorTree& Asset);

	// The node's name, or a short form of its class name when it has none.
	AIMODULE_API FString GetNodeName() const;
	UBTCompositeNode* GetParentNode() const
	{
		return ParentNode;
	}
	UBehaviorTree* GetTreeAsset() const
	{
		return TreeAsset;
	}
	AIMODULE_API UBlackboardData* GetBlackboardAsset() const;
	uint16 GetExecutionIndex() const
	{
		return ExecutionIndex;
	}
	uint8 GetTreeDepth() const
	{
		return TreeDepth;
	}

	/** node name */
	UPROPERTY(Category = Description, EditAnywhere)
	FString NodeName;

private:
	/** source asset */
	UPROPERTY()
	TObjectPtr<UBehaviorTree> TreeAsset;

	/** parent node */
	UPROPERTY()
	TObjectPtr<UBTCompositeNode> ParentNode;

	uint16 ExecutionIndex = 0;
	uint16 MemoryOffset = 0;
	uint8 TreeDepth = 0;
};
