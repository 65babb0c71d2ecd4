// A blackboard key that holds a value of type int32.
#pragma once

#include "CoreMinimal.h"
#include "BehaviorTree/Blackboard/BlackboardKeyType.h"
#include "BlackboardKeyType_Int.generated.h"

UCLASS(EditInlineNew, meta = (DisplayName = "Int"), MinimalAPI)
class UBlackboardKeyType_Int : public UBlackboardKeyType
{
	GENERATED_BODY()

public:
	typedef int32 FDataType;
};
