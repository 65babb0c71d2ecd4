// The cooldown decorator: closes its branch for a time after it ran.
#pragma once

#include "CoreMinimal.h"
#include "BehaviorTree/BTDecorator.h"
#include "BTDecorator_Cooldown.generated.h"

UCLASS(HideCategories = (Condition), MinimalAPI)
class UBTDecorator_Cooldown : public UBTDecorator
{
	GENERATED_BODY()

public:
	UBTDecorator_Cooldown(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	/** max time in seconds before the node can run again */
	UPROPERTY(Category = Decorator, EditAnywhere)
	float CoolDownTime;
};
