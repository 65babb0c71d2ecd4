#include "BehaviorTree/BTNode.h"
#include "BehaviorTree/BehaviorTree.h"
#include "BehaviorTree/BehaviorTreeTypes.h"
#include "BehaviorTree/BTCompositeNode.h"
#include "BehaviorTree/BTService.h"
#include "BehaviorTree/BTTaskNode.h"

UBTNode::UBTNode(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
{
}

void UBTNode::InitializeNode(UBTCompositeNode* InParentNode, uint16 InExecutionIndex, uint16 InMemoryOffset, uint8 InTreeDepth)
{
	ParentNode = InParentNode;
	ExecutionIndex = InExecutionIndex;
	MemoryOffset = InMemoryOffset;
	TreeDepth = InTreeDepth;
}

void UBTNode::InitializeFromAsset(UBehaviorTree& Asset)
{
	TreeAsset = &Asset;
}

FString UBTNode::GetNodeName() const
{
	return NodeName.Len() > 0 ? NodeName : UBehaviorTreeTypes::GetShortTypeName(this);
}

UBlackboardData* UBTNode::GetBlackboardAsset() const
{
	return TreeAsset != nullptr ? TreeAsset->GetBlackboardAsset() : nullptr;
}

UBTNode* UBTCompositeNode::GetChildNode(int32 Index) const
{
	if (!Children.IsValidIndex(Index))
	{
		return nullptr;
	}
	const FBTCompositeChild& Child = Children[Index];
	if (Child.ChildComposite != nullptr)
	{
		return Child.ChildComposite;
	}
	return Child.ChildTask;
}

UBTService::UBTService(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
{
	Interval = 0.5f;
	RandomDeviation = 0.1f;
	bCallTickOnSearchStart = false;
	bRestartTimerOnEachActivation = false;
}
