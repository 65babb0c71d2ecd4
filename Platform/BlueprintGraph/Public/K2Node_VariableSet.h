// UK2Node_VariableSet: writes a variable ("Set <Var>"), with exec pins and the new value as output.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "K2Node_Variable.h"
#include "K2Node_VariableSet.generated.h"

UCLASS()
class BLUEPRINTGRAPH_API UK2Node_VariableSet : public UK2Node_Variable
{
	GENERATED_BODY()

public:
	UK2Node_VariableSet(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	virtual void AllocateDefaultPins() override;
	virtual FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	// Whether the variable calls a function when set (a RepNotify variable).
	bool HasLocalRepNotify() const;
};
