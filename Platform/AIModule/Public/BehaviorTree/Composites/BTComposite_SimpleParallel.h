// The simple parallel composite: one main task, and a background branch that runs beside it.
#pragma once

#include "CoreMinimal.h"
#include "BehaviorTree/BehaviorTreeTypes.h"
#include "BehaviorTree/BTCompositeNode.h"
#include "BTComposite_SimpleParallel.generated.h"

UCLASS(MinimalAPI)
class UBTComposite_SimpleParallel : public UBTCompositeNode
{
	GENERATED_BODY()

public:
	UBTComposite_SimpleParallel(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	/** how background tree should be handled when main task finishes execution */
	UPROPERTY(EditInstanceOnly, Category = Parallel)
	TEnumAsByte<EBTParallelMode::Type> FinishMode;
};
