// A blackboard key that holds a value of type FName.
#pragma once

#include "CoreMinimal.h"
#include "BehaviorTree/Blackboard/BlackboardKeyType.h"
#include "BlackboardKeyType_Name.generated.h"

UCLASS(EditInlineNew, meta = (DisplayName = "Name"), MinimalAPI)
class UBlackboardKeyType_Name : public UBlackboardKeyType
{
	GENERATED_BODY()

public:
	typedef FName FDataType;
};
