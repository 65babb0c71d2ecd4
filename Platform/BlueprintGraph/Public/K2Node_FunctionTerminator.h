// UK2Node_FunctionTerminator: the entry or result node of a function graph.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "Engine/MemberReference.h"
#include "K2Node_EditablePinBase.h"
#include "K2Node_FunctionTerminator.generated.h"

UCLASS(abstract)
class BLUEPRINTGRAPH_API UK2Node_FunctionTerminator : public UK2Node_EditablePinBase
{
	GENERATED_BODY()

public:
	UK2Node_FunctionTerminator(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	/** The function the node stands for: its owner and name. */
	UPROPERTY()
	FMemberReference FunctionReference;

	// The function this graph implements (an inherited one it overrides), or null for a new function.
	UFunction* FindSignatureFunction() const;
	virtual bool CanUseRefParams() const override
	{
		return true;
	}

protected:
	virtual FName CreateUniquePinName(FName SourcePinName) const override;
};
