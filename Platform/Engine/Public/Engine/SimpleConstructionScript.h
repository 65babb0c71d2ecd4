// USimpleConstructionScript: the components an actor Blueprint's objects are made with, as a tree of nodes.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/Object.h"
#include "SimpleConstructionScript.generated.h"

class AActor;
class UBlueprint;
class UBlueprintGeneratedClass;
class USCS_Node;
class UActorComponent;

UCLASS()
class ENGINE_API USimpleConstructionScript : public UObject
{
	GENERATED_BODY()

public:
	USimpleConstructionScript(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	// A node holding a new template of the class, named after the variable (a unique one when none is
	// given). Not in the tree until AddNode or a parent's AddChildNode.
	USCS_Node* CreateNode(UClass* NewComponentClass, FName NewComponentVariableName = NAME_None);
	void AddNode(USCS_Node* Node);
	void RemoveNode(USCS_Node* Node, bool bValidateSceneRootNodes = true);
	void RemoveNodeAndPromoteChildren(USCS_Node* Node);

	const TArray<USCS_Node*>& GetRootNodes() const
	{
		return reinterpret_cast<const TArray<USCS_Node*>&>(RootNodes);
	}
	const TArray<USCS_Node*>& GetAllNodes() const
	{
		return reinterpret_cast<const TArray<USCS_Node*>&>(AllNodes);
	}
	USCS_Node* FindSCSNode(const FName InName) const;
	USCS_Node* FindSCSNodeByGuid(const FGuid Guid) const;
	USCS_Node* FindParentNode(USCS_Node* InNode) const;
	USCS_Node* GetDefaultSceneRootNode()
	{
		return DefaultSceneRootNode;
	}
	const USCS_Node* GetDefaultSceneRootNode() const
	{
		return DefaultSceneRootNode;
	}
	UBlueprint* GetBlueprint() const;
	UClass* GetOwnerClass() const;
	// A variable name of the form "<Class>" or "<Class>_<n>" that no node has yet.
	FName GenerateNewComponentName(const UClass* ComponentClass, FName DesiredName = NAME_None) const;
	// Makes the components of the tree on the actor (copies of the templates), attached as in the tree.
	void ExecuteScriptOnActor(AActor* Actor) const;

	static const FString ComponentTemplateNameSuffix;

protected:
	UPROPERTY()
	TArray<TObjectPtr<USCS_Node>> RootNodes;

	UPROPERTY()
	TArray<TObjectPtr<USCS_Node>> AllNodes;

	UPROPERTY()
	TObjectPtr<USCS_Node> DefaultSceneRootNode;

	friend class USCS_Node;
};
