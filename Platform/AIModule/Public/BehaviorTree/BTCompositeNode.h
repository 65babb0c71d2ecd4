// UBTCompositeNode: a node that decides in which order its children run.
#pragma once

#include "CoreMinimal.h"
#include "BehaviorTree/BTNode.h"
#include "BTCompositeNode.generated.h"

class UBTCompositeNode;
class UBTDecorator;
class UBTService;
class UBTTaskNode;

USTRUCT()
struct FBTCompositeChild
{
	GENERATED_BODY()

	/** child node: a composite, or else a task */
	UPROPERTY()
	TObjectPtr<UBTCompositeNode> ChildComposite = nullptr;

	UPROPERTY()
	TObjectPtr<UBTTaskNode> ChildTask = nullptr;

	/** execution decorators */
	UPROPERTY()
	TArray<TObjectPtr<UBTDecorator>> Decorators;
};

UCLASS(Abstract, MinimalAPI)
class UBTCompositeNode : public UBTNode
{
	GENERATED_BODY()

public:
	/** child nodes */
	UPROPERTY()
	TArray<FBTCompositeChild> Children;

	/** service nodes */
	UPROPERTY()
	TArray<TObjectPtr<UBTService>> Services;

	/** if set, all decorators in branch below will be removed when execution flow leaves */
	UPROPERTY(Category = Composite, EditAnywhere)
	uint32 bApplyDecoratorScope : 1;

	int32 GetChildrenNum() const
	{
		return Children.Num();
	}
	// The child's composite or, failing that, its task.
	AIMODULE_API UBTNode* GetChildNode(int32 Index) const;
};
