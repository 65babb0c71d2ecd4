// UK2Node_CallFunction: calls a UFunction; pins made from its parameters.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "Engine/MemberReference.h"
#include "K2Node.h"
#include "K2Node_CallFunction.generated.h"

UCLASS()
class BLUEPRINTGRAPH_API UK2Node_CallFunction : public UK2Node
{
	GENERATED_BODY()

public:
	UK2Node_CallFunction(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	UPROPERTY()
	uint32 bIsPureFunc : 1;

	UPROPERTY()
	uint32 bIsConstFunc : 1;

	UPROPERTY()
	uint32 bIsInterfaceCall : 1;

	UPROPERTY()
	uint32 bIsFinalFunction : 1;

	UPROPERTY()
	uint32 bIsBeadFunction : 1;

	UPROPERTY()
	uint32 bDefaultsToPureFunc : 1;

	UPROPERTY()
	uint32 bWantsEnumToExecExpansion : 1;

	/** The function called: its owner class (or self) and name. */
	UPROPERTY()
	FMemberReference FunctionReference;

	// Sets the node up to call the function (before its pins are made).
	virtual void SetFromFunction(const UFunction* Function);
	FName GetFunctionName() const
	{
		return FunctionReference.GetMemberName();
	}
	// The function, looked up in the node's Blueprint class for a self call; null when it isn't found.
	UFunction* GetTargetFunction() const;
	static UFunction* GetTargetFunctionFromSkeletonClass(UClass* SkeletonClass, const FMemberReference& Reference);
	UEdGraphPin* GetReturnValuePin() const;
	virtual bool IsNodePure() const override
	{
		return bIsPureFunc;
	}
	// The function's name as the editor shows it: its DisplayName metadata, else its name spelled for people.
	static FText GetUserFacingFunctionName(const UFunction* Function, ENodeTitleType::Type NodeTitleType = ENodeTitleType::FullTitle);
	// "Target is <Class>" for a member function of another class; empty for static and self calls.
	FText GetFunctionContextString() const;
	// Makes the pins of the function's parameters (and exec pins unless pure); false when there is no function.
	bool CreatePinsForFunctionCall(const UFunction* Function);

	virtual void AllocateDefaultPins() override;
	virtual FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	virtual FText GetTooltipText() const override;
	virtual FText GetKeywords() const override;
	virtual void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;
};
