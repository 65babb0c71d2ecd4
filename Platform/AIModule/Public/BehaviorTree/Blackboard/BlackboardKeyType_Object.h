// A blackboard key that holds an object, limited to a base class.
#pragma once

#include "CoreMinimal.h"
#include "BehaviorTree/Blackboard/BlackboardKeyType.h"
#include "BlackboardKeyType_Object.generated.h"

UCLASS(EditInlineNew, meta = (DisplayName = "Object"), MinimalAPI)
class UBlackboardKeyType_Object : public UBlackboardKeyType
{
	GENERATED_BODY()

public:
	typedef UObject* FDataType;

	UPROPERTY(Category = Blackboard, EditDefaultsOnly, meta = (AllowAbstract = "1"))
	TObjectPtr<UClass> BaseClass;
};
