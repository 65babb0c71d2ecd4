// UK2Node_CustomEvent: an event the Blueprint declares itself, with user-defined parameters.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "K2Node_Event.h"
#include "K2Node_CustomEvent.generated.h"

UCLASS()
class BLUEPRINTGRAPH_API UK2Node_CustomEvent : public UK2Node_Event
{
	GENERATED_BODY()

public:
	UK2Node_CustomEvent(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	UPROPERTY()
	bool bCallInEditor = false;

	UPROPERTY()
	bool bIsDeprecated = false;

	UPROPERTY()
	FString DeprecationMessage;

	// A custom event node in the graph, named after the function and with its parameters.
	static UK2Node_CustomEvent* CreateFromFunction(FVector2D GraphPosition, UEdGraph* ParentGraph, const FString& Name, const UFunction* Function, bool bSelectNewNode = true);
	uint32 GetNetFlags() const
	{
		return FunctionFlags & (FUNC_Net | FUNC_NetReliable | FUNC_NetMulticast | FUNC_NetServer | FUNC_NetClient);
	}
	bool IsOverride() const
	{
		return false;
	}
	// Renames the event to the first free "<Name>_<n>" from StartIndex on.
	void RenameCustomEventCloseToName(int32 StartIndex = 1);
	virtual void OnRenameNode(const FString& NewName);

	virtual void AllocateDefaultPins() override;
	virtual FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	virtual bool CanCreateUserDefinedPin(const FEdGraphPinType& InPinType, EEdGraphPinDirection InDesiredDirection, FText& OutErrorMessage) override;

protected:
	UPROPERTY()
	FKismetUserDeclaredFunctionMetadata MetaData;
};
