// A blackboard key that holds a value of type float.
#pragma once

#include "CoreMinimal.h"
#include "BehaviorTree/Blackboard/BlackboardKeyType.h"
#include "BlackboardKeyType_Float.generated.h"

UCLASS(EditInlineNew, meta = (DisplayName = "Float"), MinimalAPI)
class UBlackboardKeyType_Float : public UBlackboardKeyType
{
	GENERATED_BODY()

public:
	typedef float FDataType;
};
