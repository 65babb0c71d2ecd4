// The Sequence composite: executes children from left to right as long as they succeed.
#pragma once

#include "CoreMinimal.h"
#include "BehaviorTree/BTCompositeNode.h"
#include "BTComposite_Sequence.generated.h"

UCLASS(MinimalAPI)
class UBTComposite_Sequence : public UBTCompositeNode
{
	GENERATED_BODY()

public:
	UBTComposite_Sequence(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());
};
