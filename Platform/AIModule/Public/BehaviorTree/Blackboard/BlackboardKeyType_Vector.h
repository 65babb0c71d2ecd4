// A blackboard key that holds a value of type FVector.
#pragma once

#include "CoreMinimal.h"
#include "BehaviorTree/Blackboard/BlackboardKeyType.h"
#include "BlackboardKeyType_Vector.generated.h"

UCLASS(EditInlineNew, meta = (DisplayName = "Vector"), MinimalAPI)
class UBlackboardKeyType_Vector : public UBlackboardKeyType
{
	GENERATED_BODY()

public:
	typedef FVector FDataType;
};
