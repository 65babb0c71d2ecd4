// A decorator that watches one blackboard key.
#pragma once

#include "CoreMinimal.h"
#include "BehaviorTree/BTDecorator.h"
#include "BehaviorTree/BehaviorTreeKeySelector.h"
#include "BTDecorator_BlackboardBase.generated.h"

UCLASS(Abstract, MinimalAPI)
class UBTDecorator_BlackboardBase : public UBTDecorator
{
	GENERATED_BODY()

public:
	FName GetSelectedBlackboardKey() const
	{
		return BlackboardKey.SelectedKeyName;
	}

protected:
	/** blackboard key selector */
	UPROPERTY(EditAnywhere, Category = Blackboard)
	FBlackboardKeySelector BlackboardKey;
};
