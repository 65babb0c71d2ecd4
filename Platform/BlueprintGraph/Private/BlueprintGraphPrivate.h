// Helpers the schema and the nodes share.
#pragma once

#include "CoreMinimal.h"
#include "Engine/MemberReference.h"

class UBlueprint;
class UEdGraph;
class UEdGraphNode;
class UEdGraphPin;
struct FBPVariableDescription;

namespace BlueprintGraph::Private
{
	// The Blueprint that holds the object (a graph or a node), walking its outers.
	UBlueprint* FindBlueprint(const UObject* Object);
	// The class that "self" is in the node's graph: the Blueprint's class, or null before its first compile.
	UClass* GetSelfClassForNode(const UEdGraphNode* Node);
	// A member of self when the graph's Blueprint derives from Source (or Source is null), else of Source.
	void ConfigureVariableReference(FMemberReference& Reference, FName VariableName, UStruct* Source, const UEdGraph* Graph);
	// Adds a new node to the graph at the position, with a new id and its default pins.
	void PlaceNewNode(UEdGraph& Graph, UEdGraphNode& Node, const FVector2D& Position);
	// The Blueprint changed: its status is dirty and its package needs saving.
	void MarkOwningBlueprintModified(const UObject* Object);
	// The description of a member variable of the Blueprint or of a Blueprint it derives from, or null.
	const FBPVariableDescription* FindVariableDescription(const UBlueprint* Blueprint, FName VariableName);
	// A pin's default from the metadata "CPP_Default_<Param>" of the function, or the type's own default.
	void SetDefaultFromFunctionMetadata(UEdGraphPin* Pin, const UFunction* Function);
}
