// The blackboard decorator: a condition on the value of a blackboard key.
#pragma once

#include "CoreMinimal.h"
#include "BehaviorTree/Decorators/BTDecorator_BlackboardBase.h"
#include "BTDecorator_Blackboard.generated.h"

UENUM()
namespace EBTBlackboardRestart
{
	enum Type : int
	{
		ValueChange UMETA(DisplayName = "On Value Change"),
		ResultChange UMETA(DisplayName = "On Result Change"),
	};
}

UCLASS(MinimalAPI)
class UBTDecorator_Blackboard : public UBTDecorator_BlackboardBase
{
	GENERATED_BODY()

public:
	UBTDecorator_Blackboard(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

protected:
	/** value for arithmetic operations */
	UPROPERTY(Category = Blackboard, EditAnywhere)
	int32 IntValue;

	/** value for arithmetic operations */
	UPROPERTY(Category = Blackboard, EditAnywhere)
	float FloatValue;

	/** value for string operations */
	UPROPERTY(Category = Blackboard, EditAnywhere)
	FString StringValue;

	/** operation type */
	UPROPERTY()
	uint8 OperationType;

	/** when observer can try to request abort? */
	UPROPERTY(Category = FlowControl, EditAnywhere)
	TEnumAsByte<EBTBlackboardRestart::Type> NotifyObserver;
};
