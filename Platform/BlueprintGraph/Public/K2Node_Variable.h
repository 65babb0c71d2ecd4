// UK2Node_Variable: the base of nodes that read or write a member variable.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "Engine/MemberReference.h"
#include "K2Node.h"
#include "K2Node_Variable.generated.h"

namespace ESelfContextInfo
{
	enum Type
	{
		Unspecified,
		NotSelfContext,
	};
}

UCLASS(abstract)
class BLUEPRINTGRAPH_API UK2Node_Variable : public UK2Node
{
	GENERATED_BODY()

public:
	UK2Node_Variable(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	/** The variable: a member of self (the Blueprint) or of another class. */
	UPROPERTY()
	FMemberReference VariableReference;

	FName GetVarName() const
	{
		return VariableReference.GetMemberName();
	}
	FString GetVarNameString() const
	{
		return GetVarName().ToString();
	}
	FText GetVarNameText() const
	{
		return FText::FromName(GetVarName());
	}
	// The property of the variable on the class of the node's scope, or null when there is none.
	FProperty* GetPropertyForVariable() const;
	// The variable's description when it is a member variable of this Blueprint (or a parent Blueprint), else null.
	const struct FBPVariableDescription* GetBlueprintVariableDescription() const;
	// The pin type the variable has: from its property, else from the Blueprint's description.
	bool GetVariablePinType(FEdGraphPinType& OutType) const;
	// Makes the pin of the variable's value, named after it; false when the variable can't be found.
	bool CreatePinForVariable(EEdGraphPinDirection Direction, FName InPinName = NAME_None);
	void CreatePinForSelf();
	UEdGraphPin* GetValuePin() const;
	virtual void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;
};
