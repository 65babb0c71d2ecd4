// UK2Node: the base of the nodes of Blueprint graphs.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "EdGraph/EdGraphNode.h"
#include "K2Node.generated.h"

class UBlueprint;
class UEdGraphSchema_K2;
class FCompilerResultsLog;

UCLASS(abstract)
class BLUEPRINTGRAPH_API UK2Node : public UEdGraphNode
{
	GENERATED_BODY()

public:
	UK2Node(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	// A pure node has no exec pins and runs when its output is read.
	virtual bool IsNodePure() const
	{
		return false;
	}
	virtual bool NodeCausesStructuralBlueprintChange() const
	{
		return false;
	}
	// The Blueprint whose graph holds the node, or null.
	UBlueprint* GetBlueprint() const;
	// The class the node's self refers to: the Blueprint's skeleton or generated class.
	UClass* GetBlueprintClassFromNode() const;
	// Checks the node as the compiler would; errors and warnings go to the log (on the node as well).
	virtual void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const;
	// The exec input and the first exec output ("then"), when the node has them.
	UEdGraphPin* GetExecPin() const;
	UEdGraphPin* GetThenPin() const;
	virtual void ReconstructNode() override;
	virtual void PinConnectionListChanged(UEdGraphPin* Pin) override;
	// Links the new pins to what the old pins with the same names and directions were linked to.
	virtual void ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins);
	virtual bool ShouldShowNodeProperties() const
	{
		return false;
	}
	// The text a search for the node's keywords matches.
	virtual FText GetKeywords() const
	{
		return FText::GetEmpty();
	}
	virtual FText GetMenuCategory() const
	{
		return FText::GetEmpty();
	}
};
