// The wait task: finishes after a time.
#pragma once

#include "CoreMinimal.h"
#include "BehaviorTree/BTTaskNode.h"
#include "BehaviorTree/ValueOrBBKey.h"
#include "BTTask_Wait.generated.h"

UCLASS(MinimalAPI)
class UBTTask_Wait : public UBTTaskNode
{
	GENERATED_BODY()

public:
	UBTTask_Wait(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

protected:
	/** wait time in seconds */
	UPROPERTY(Category = Wait, EditAnywhere, meta = (ClampMin = "0.0", UIMin = "0.0"))
	FValueOrBBKey_Float WaitTime;

	/** allows adding random time to wait time */
	UPROPERTY(Category = Wait, EditAnywhere, meta = (UIMin = 0, ClampMin = 0))
	FValueOrBBKey_Float RandomDeviation;
};
