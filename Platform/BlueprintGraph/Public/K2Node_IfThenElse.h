// UK2Node_IfThenElse: "Branch": runs "then" or "else" by a condition.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "K2Node.h"
#include "K2Node_IfThenElse.generated.h"

UCLASS()
class BLUEPRINTGRAPH_API UK2Node_IfThenElse : public UK2Node
{
	GENERATED_BODY()

public:
	UK2Node_IfThenElse(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	UEdGraphPin* GetThenPin() const;
	UEdGraphPin* GetElsePin() const;
	UEdGraphPin* GetConditionPin() const;

	virtual void AllocateDefaultPins() override;
	virtual FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
};
