// UK2Node_Event: where an event starts in an event graph: an override of an inherited event ("Event BeginPlay").
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "Engine/MemberReference.h"
#include "K2Node_EditablePinBase.h"
#include "K2Node_Event.generated.h"

UCLASS()
class BLUEPRINTGRAPH_API UK2Node_Event : public UK2Node_EditablePinBase
{
	GENERATED_BODY()

public:
	UK2Node_Event(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	/** The event's function in the parent class ("ReceiveBeginPlay" of AActor). */
	UPROPERTY()
	FMemberReference EventReference;

	/** Whether the event overrides a function of a parent class. */
	UPROPERTY()
	uint32 bOverrideFunction : 1;

	UPROPERTY()
	uint32 bInternalEvent : 1;

	/** The name of a custom event's function. */
	UPROPERTY()
	FName CustomFunctionName;

	UPROPERTY()
	uint32 FunctionFlags = 0;

	static const FName DelegateOutputName;

	// The function the event makes: the custom name or the overridden event's.
	FName GetFunctionName() const;
	// The function the event overrides, or null.
	UFunction* FindEventSignatureFunction() const;
	bool IsCosmeticTickEvent() const
	{
		return false;
	}

	virtual void AllocateDefaultPins() override;
	virtual FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	virtual FText GetTooltipText() const override;
	virtual void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;
};
