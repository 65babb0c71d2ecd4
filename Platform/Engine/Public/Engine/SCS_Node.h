// USCS_Node: one component of a Blueprint's construction script: its template and its children.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/Object.h"
#include "SCS_Node.generated.h"

class UActorComponent;
class USceneComponent;
class USimpleConstructionScript;

UCLASS()
class ENGINE_API USCS_Node : public UObject
{
	GENERATED_BODY()

public:
	USCS_Node(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	/** The class of the component. */
	UPROPERTY()
	TObjectPtr<UClass> ComponentClass;

	/** The component the Blueprint's objects get a copy of. */
	UPROPERTY()
	TObjectPtr<UActorComponent> ComponentTemplate;

	/** The socket of the parent this component is attached to. */
	UPROPERTY()
	FName AttachToName;

	/** The parent when it is a component of a parent class (not of this script). */
	UPROPERTY()
	FName ParentComponentOrVariableName;

	UPROPERTY()
	FName ParentComponentOwnerClassName;

	UPROPERTY()
	bool bIsParentComponentNative = false;

	UPROPERTY()
	FText CategoryName;

	UPROPERTY()
	TArray<TObjectPtr<USCS_Node>> ChildNodes;

	UPROPERTY()
	FGuid VariableGuid;

	FName GetVariableName() const
	{
		return InternalVariableName;
	}
	void SetVariableName(const FName& NewName, bool bRenameTemplate = true);
	const TArray<USCS_Node*>& GetChildNodes() const
	{
		return reinterpret_cast<const TArray<USCS_Node*>&>(ChildNodes);
	}
	// This node and every node below it.
	TArray<USCS_Node*> GetAllNodes();
	void AddChildNode(USCS_Node* InNode, bool bAddToAllNodes = true);
	void RemoveChildNode(USCS_Node* InNode, bool bRemoveFromAllNodes = true);
	void SetParent(USCS_Node* InParentNode);
	void SetParent(const USceneComponent* InParentComponent);
	USimpleConstructionScript* GetSCS() const;
	bool IsRootNode() const;

private:
	UPROPERTY()
	FName InternalVariableName;
};
