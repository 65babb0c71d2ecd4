// A blackboard key that holds a value of type FString.
#pragma once

#include "CoreMinimal.h"
#include "BehaviorTree/Blackboard/BlackboardKeyType.h"
#include "BlackboardKeyType_String.generated.h"

UCLASS(EditInlineNew, meta = (DisplayName = "String"), MinimalAPI)
class UBlackboardKeyType_String : public UBlackboardKeyType
{
	GENERATED_BODY()

public:
	typedef FString FDataType;
};
