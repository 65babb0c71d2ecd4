// UBlackboardKeyType: the type of a blackboard key's value.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/Object.h"
#include "BlackboardKeyType.generated.h"

UCLASS(EditInlineNew, Abstract, CollapseCategories, AutoExpandCategories = (Blackboard), MinimalAPI)
class UBlackboardKeyType : public UObject
{
	GENERATED_BODY()
};
