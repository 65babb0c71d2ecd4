// FBlackboardKeySelector: which blackboard key a node reads, as the node's details panel picks it.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "Templates/SubclassOf.h"
#include "BehaviorTreeKeySelector.generated.h"

class UBlackboardKeyType;

USTRUCT(BlueprintType)
struct FBlackboardKeySelector
{
	GENERATED_BODY()

	/** array of allowed types with additional properties (e.g. uobject's base class) */
	UPROPERTY(transient, EditInstanceOnly, BlueprintReadWrite, Category = Blackboard)
	TArray<TObjectPtr<UBlackboardKeyType>> AllowedTypes;

	/** name of selected key */
	UPROPERTY(EditInstanceOnly, BlueprintReadWrite, Category = Blackboard)
	FName SelectedKeyName;

	/** class of selected key */
	UPROPERTY(transient, EditInstanceOnly, BlueprintReadWrite, Category = Blackboard)
	TSubclassOf<UBlackboardKeyType> SelectedKeyType;

	/** requires selecting a key when false */
	UPROPERTY(EditInstanceOnly, BlueprintReadWrite, Category = Blackboard)
	uint32 bNoneIsAllowedValue : 1;

	FBlackboardKeySelector()
		: bNoneIsAllowedValue(0)
	{
	}
};
