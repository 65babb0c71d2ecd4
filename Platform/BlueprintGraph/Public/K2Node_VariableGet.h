// UK2Node_VariableGet: reads a variable; pure ("Get <Var>").
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "K2Node_Variable.h"
#include "K2Node_VariableGet.generated.h"

UCLASS()
class BLUEPRINTGRAPH_API UK2Node_VariableGet : public UK2Node_Variable
{
	GENERATED_BODY()

public:
	UK2Node_VariableGet(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	virtual void AllocateDefaultPins() override;
	virtual FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	virtual bool IsNodePure() const override
	{
		return true;
	}
};
