// UK2Node_Knot: a reroute point that passes a link through ("Reroute Node").
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "K2Node.h"
#include "K2Node_Knot.generated.h"

UCLASS()
class BLUEPRINTGRAPH_API UK2Node_Knot : public UK2Node
{
	GENERATED_BODY()

public:
	UK2Node_Knot(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	UEdGraphPin* GetInputPin() const
	{
		return Pins.Num() > 0 ? Pins[0] : nullptr;
	}
	UEdGraphPin* GetOutputPin() const
	{
		return Pins.Num() > 1 ? Pins[1] : nullptr;
	}
	UEdGraphPin* GetPassThroughPin(const UEdGraphPin* FromPin) const;
	bool ShouldDrawNodeAsControlPointOnly(int32& OutInputPinIndex, int32& OutOutputPinIndex) const
	{
		OutInputPinIndex = 0;
		OutOutputPinIndex = 1;
		return true;
	}

	virtual void AllocateDefaultPins() override;
	virtual FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	virtual bool IsNodePure() const override
	{
		return true;
	}
	// A knot takes the type of what it is linked to.
	virtual void PinConnectionListChanged(UEdGraphPin* Pin) override;
};
