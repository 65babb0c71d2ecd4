// A blackboard key that holds one value of an enum.
#pragma once

#include "CoreMinimal.h"
#include "BehaviorTree/Blackboard/BlackboardKeyType.h"
#include "BlackboardKeyType_Enum.generated.h"

UCLASS(EditInlineNew, meta = (DisplayName = "Enum"), MinimalAPI)
class UBlackboardKeyType_Enum : public UBlackboardKeyType
{
	GENERATED_BODY()

public:
	typedef uint8 FDataType;

	UPROPERTY(Category = Blackboard, EditDefaultsOnly)
	TObjectPtr<UEnum> EnumType;

	/** name of enum defined in c++ code, will take priority over asset from EnumType property */
	UPROPERTY(Category = Blackboard, EditDefaultsOnly)
	FString EnumName;

	/** set when EnumName override is valid and active */
	UPROPERTY(Category = Blackboard, VisibleDefaultsOnly)
	uint32 bIsEnumNameValid : 1;
};
