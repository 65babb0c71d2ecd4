// The default focus service: keeps the controller's focus on the actor or location of a key.
#pragma once

#include "CoreMinimal.h"
#include "BehaviorTree/Services/BTService_BlackboardBase.h"
#include "BTService_DefaultFocus.generated.h"

UCLASS(MinimalAPI)
class UBTService_DefaultFocus : public UBTService_BlackboardBase
{
	GENERATED_BODY()

public:
	UBTService_DefaultFocus(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

protected:
	UPROPERTY()
	uint8 FocusPriority;
};
