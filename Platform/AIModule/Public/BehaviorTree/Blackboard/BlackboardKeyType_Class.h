// A blackboard key that holds a class, limited to a base class.
#pragma once

#include "CoreMinimal.h"
#include "BehaviorTree/Blackboard/BlackboardKeyType.h"
#include "BlackboardKeyType_Class.generated.h"

UCLASS(EditInlineNew, meta = (DisplayName = "Class"), MinimalAPI)
class UBlackboardKeyType_Class : public UBlackboardKeyType
{
	GENERATED_BODY()

public:
	typedef UClass* FDataType;

	UPROPERTY(Category = Blackboard, EditDefaultsOnly, meta = (AllowAbstract = "1"))
	TObjectPtr<UClass> BaseClass;
};
