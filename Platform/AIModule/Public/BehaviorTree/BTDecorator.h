// UBTDecorator: a condition on the branch below it.
#pragma once

#include "CoreMinimal.h"
#include "BehaviorTree/BehaviorTreeTypes.h"
#include "BehaviorTree/BTAuxiliaryNode.h"
#include "BTDecorator.generated.h"

UCLASS(Abstract, MinimalAPI)
class UBTDecorator : public UBTAuxiliaryNode
{
	GENERATED_BODY()

public:
	bool IsInversed() const
	{
		return bInverseCondition;
	}
	void SetIsInversed(bool bShouldBeInversed)
	{
		bInverseCondition = bShouldBeInversed;
	}
	EBTFlowAbortMode::Type GetFlowAbortMode() const
	{
		return FlowAbortMode;
	}

private:
	/** if set, condition check result will be inversed */
	UPROPERTY(Category = Condition, EditAnywhere)
	uint32 bInverseCondition : 1;

protected:
	/** flow controller settings */
	UPROPERTY(Category = FlowControl, EditAnywhere)
	TEnumAsByte<EBTFlowAbortMode::Type> FlowAbortMode;
};
