// UK2Node_FunctionResult: where a function graph returns; its inputs are the function's out parameters.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "K2Node_FunctionTerminator.h"
#include "K2Node_FunctionResult.generated.h"

UCLASS()
class BLUEPRINTGRAPH_API UK2Node_FunctionResult : public UK2Node_FunctionTerminator
{
	GENERATED_BODY()

public:
	UK2Node_FunctionResult(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	virtual FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	virtual void AllocateDefaultPins() override;
	virtual bool CanCreateUserDefinedPin(const FEdGraphPinType& InPinType, EEdGraphPinDirection InDesiredDirection, FText& OutErrorMessage) override;
	// Every result node of the graph (a function may return in several places).
	TArray<UK2Node_FunctionResult*> GetAllResultNodes() const;
};
