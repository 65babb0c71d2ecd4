// The loop decorator: runs its branch a number of times, or forever.
#pragma once

#include "CoreMinimal.h"
#include "BehaviorTree/BTDecorator.h"
#include "BTDecorator_Loop.generated.h"

UCLASS(HideCategories = (Condition), MinimalAPI)
class UBTDecorator_Loop : public UBTDecorator
{
	GENERATED_BODY()

public:
	UBTDecorator_Loop(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	/** number of executions */
	UPROPERTY(Category = Decorator, EditAnywhere, meta = (EditCondition = "!bInfiniteLoop", ClampMin = "1", ClampMax = "255"))
	int32 NumLoops;

	/** infinite loop */
	UPROPERTY(Category = Decorator, EditAnywhere)
	bool bInfiniteLoop;

	/** timeout (when looping infinitely, when we finish a loop we will check whether we have spent this time looping, if we have we will stop looping). A negative value means loop forever. */
	UPROPERTY(Category = Decorator, EditAnywhere)
	float InfiniteLoopTimeoutTime;
};
