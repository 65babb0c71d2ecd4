// A blackboard key that holds one value of an enum declared in C++, named by its text.
#pragma once

#include "CoreMinimal.h"
#include "BehaviorTree/Blackboard/BlackboardKeyType.h"
#include "BlackboardKeyType_NativeEnum.generated.h"

UCLASS(NotEditInlineNew, HideDropDown, MinimalAPI)
class UBlackboardKeyType_NativeEnum : public UBlackboardKeyType
{
	GENERATED_BODY()

public:
	typedef uint8 FDataType;

	UPROPERTY(Category = Blackboard, EditDefaultsOnly)
	FString EnumName;

	UPROPERTY()
	TObjectPtr<UEnum> EnumType;
};
