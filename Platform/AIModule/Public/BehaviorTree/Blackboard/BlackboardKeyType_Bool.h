// A blackboard key that holds a value of type bool.
#pragma once

#include "CoreMinimal.h"
#include "BehaviorTree/Blackboard/BlackboardKeyType.h"
#include "BlackboardKeyType_Bool.generated.h"

UCLASS(EditInlineNew, meta = (DisplayName = "Bool"), MinimalAPI)
class UBlackboardKeyType_Bool : public UBlackboardKeyType
{
	GENERATED_BODY()

public:
	typedef bool FDataType;
};
