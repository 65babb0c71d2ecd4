// UK2Node_FunctionEntry: where a function graph starts; its outputs are the function's parameters.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "Engine/Blueprint.h"
#include "K2Node_FunctionTerminator.h"
#include "K2Node_FunctionEntry.generated.h"

UCLASS()
class BLUEPRINTGRAPH_API UK2Node_FunctionEntry : public UK2Node_FunctionTerminator
{
	GENERATED_BODY()

public:
	UK2Node_FunctionEntry(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	/** A name for the generated function other than the graph's. */
	UPROPERTY()
	FName CustomGeneratedFunctionName;

	UPROPERTY()
	FKismetUserDeclaredFunctionMetadata MetaData;

	/** Variables that live while the function runs. */
	UPROPERTY()
	TArray<FBPVariableDescription> LocalVariables;

	UPROPERTY()
	bool bEnforceConstCorrectness = true;

	void SetExtraFlags(int32 InFlags)
	{
		ExtraFlags = InFlags;
	}
	void AddExtraFlags(int32 InFlags)
	{
		ExtraFlags |= InFlags;
	}
	void ClearExtraFlags(int32 InFlags)
	{
		ExtraFlags &= ~InFlags;
	}
	int32 GetExtraFlags() const
	{
		return ExtraFlags;
	}
	// The function's flags: those of the signature it overrides, else public callable ones, and the extra flags.
	int32 GetFunctionFlags() const;
	bool IsEditable() const
	{
		return bIsEditable;
	}
	void SetEditable(bool bInEditable)
	{
		bIsEditable = bInEditable;
	}

	virtual FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	virtual void AllocateDefaultPins() override;
	virtual bool CanCreateUserDefinedPin(const FEdGraphPinType& InPinType, EEdGraphPinDirection InDesiredDirection, FText& OutErrorMessage) override;
	virtual bool CanUserDeleteNode() const override
	{
		return false;
	}

private:
	UPROPERTY()
	int32 ExtraFlags = 0;

	UPROPERTY()
	bool bIsEditable = true;
};
