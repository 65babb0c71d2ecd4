// The Selector composite: executes children from left to right until one of them succeeds.
#pragma once

#include "CoreMinimal.h"
#include "BehaviorTree/BTCompositeNode.h"
#include "BTComposite_Selector.generated.h"

UCLASS(MinimalAPI)
class UBTComposite_Selector : public UBTCompositeNode
{
	GENERATED_BODY()

public:
	UBTComposite_Selector(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());
};
