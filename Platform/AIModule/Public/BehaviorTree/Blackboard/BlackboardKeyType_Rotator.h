// A blackboard key that holds a value of type FRotator.
#pragma once

#include "CoreMinimal.h"
#include "BehaviorTree/Blackboard/BlackboardKeyType.h"
#include "BlackboardKeyType_Rotator.generated.h"

UCLASS(EditInlineNew, meta = (DisplayName = "Rotator"), MinimalAPI)
class UBlackboardKeyType_Rotator : public UBlackboardKeyType
{
	GENERATED_BODY()

public:
	typedef FRotator FDataType;
};
