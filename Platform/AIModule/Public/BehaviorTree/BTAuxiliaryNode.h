// UBTAuxiliaryNode: a node that sits on another one, the base of decorators and services.
#pragma once

#include "CoreMinimal.h"
#include "BehaviorTree/BTNode.h"
#include "BTAuxiliaryNode.generated.h"

UCLASS(Abstract, MinimalAPI)
class UBTAuxiliaryNode : public UBTNode
{
	GENERATED_BODY()

public:
	/** index of the child of the parent composite that this node belongs to, when it is a decorator */
	uint8 GetChildIndex() const
	{
		return ChildIndex;
	}
	void InitializeParentLink(uint8 InChildIndex)
	{
		ChildIndex = InChildIndex;
	}

private:
	uint8 ChildIndex = 0xFF;
};
