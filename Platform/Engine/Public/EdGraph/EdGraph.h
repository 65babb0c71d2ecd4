// UEdGraph: a graph of nodes (a Blueprint's event graph or function), and FGraphNodeCreator.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/Object.h"
#include "Templates/SubclassOf.h"
#include "EdGraph/EdGraphNode.h"
#include "EdGraph/EdGraphPin.h"
#include "EdGraph/EdGraphSchema.h"
#include "EdGraph.generated.h"

/** What changed in a graph, for those told of its changes. */
enum EEdGraphActionType
{
	GRAPHACTION_Default = 0,
	GRAPHACTION_AddNode = 0x1 << 0,
	GRAPHACTION_SelectNode = 0x1 << 1,
	GRAPHACTION_RemoveNode = 0x1 << 2,
	GRAPHACTION_EditNode = 0x1 << 3,
};

struct FEdGraphEditAction
{
	FEdGraphEditAction() = default;
	FEdGraphEditAction(EEdGraphActionType InAction, UEdGraph* InGraph, UEdGraphNode* InNode, bool bInUserInvoked)
		: Action(InAction)
		, Graph(InGraph)
		, bUserInvoked(bInUserInvoked)
	{
		Nodes.Add(InNode);
	}

	EEdGraphActionType Action = GRAPHACTION_Default;
	UEdGraph* Graph = nullptr;
	TSet<const UEdGraphNode*> Nodes;
	bool bUserInvoked = false;
};

DECLARE_MULTICAST_DELEGATE_OneParam(FOnGraphChanged, const FEdGraphEditAction&);

UCLASS()
class ENGINE_API UEdGraph : public UObject
{
	GENERATED_BODY()

public:
	UEdGraph(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	/** The rules of this graph (a class of UEdGraphSchema). */
	UPROPERTY()
	TSubclassOf<UEdGraphSchema> Schema;

	/** The nodes of the graph, in the order they were added. */
	UPROPERTY()
	TArray<TObjectPtr<UEdGraphNode>> Nodes;

	UPROPERTY()
	uint32 bEditable : 1;

	UPROPERTY()
	uint32 bAllowDeletion : 1;

	UPROPERTY()
	uint32 bAllowRenaming : 1;

	/** Graphs inside this one (collapsed nodes, composites). */
	UPROPERTY()
	TArray<TObjectPtr<UEdGraph>> SubGraphs;

	UPROPERTY()
	FGuid GraphGuid;

	UPROPERTY()
	FGuid InterfaceGuid;

	// The default object of the schema class.
	const UEdGraphSchema* GetSchema() const;

	// Adds a node made with this graph as its outer. The node is modified into the open transaction.
	virtual void AddNode(UEdGraphNode* NodeToAdd, bool bUserAction = false, bool bSelectNewNode = true);
	// Takes a node out of the graph (its links are broken); true when it was there.
	virtual bool RemoveNode(UEdGraphNode* NodeToRemove, bool bBreakAllLinks = true);

	UEdGraphNode* CreateNode(TSubclassOf<UEdGraphNode> NewNodeClass, bool bFromUI, bool bSelectNewNode);
	UEdGraphNode* CreateNode(TSubclassOf<UEdGraphNode> NewNodeClass, bool bSelectNewNode = true)
	{
		return CreateNode(NewNodeClass, false, bSelectNewNode);
	}
	UEdGraphNode* CreateUserInvokedNode(TSubclassOf<UEdGraphNode> NewNodeClass, bool bSelectNewNode = true)
	{
		return CreateNode(NewNodeClass, true, bSelectNewNode);
	}

	template<typename NodeClass>
	void GetNodesOfClass(TArray<NodeClass*>& OutNodes) const
	{
		for (UEdGraphNode* Node : Nodes)
		{
			if (NodeClass* Typed = Cast<NodeClass>(Node))
			{
				OutNodes.Add(Typed);
			}
		}
	}
	template<typename NodeClass, typename PredicateType>
	void GetNodesOfClassEx(TArray<NodeClass*>& OutNodes) const
	{
		GetNodesOfClass(OutNodes);
	}
	// The nodes of this graph and of its subgraphs.
	void GetAllChildrenGraphs(TArray<UEdGraph*>& Graphs) const;

	virtual void NotifyGraphChanged();
	virtual void NotifyGraphChanged(const FEdGraphEditAction& Action);
	void NotifyNodeChanged(const UEdGraphNode* Node);
	FDelegateHandle AddOnGraphChangedHandler(const FOnGraphChanged::FDelegate& InHandler);
	void RemoveOnGraphChangedHandler(FDelegateHandle Handle);

	virtual void PostLoad() override;
	virtual void PostEditUndo() override;

private:
	FOnGraphChanged OnGraphChanged;
};

/**
 * Makes a node in a graph in two steps: CreateNode, set the node up, Finalize (new id, placed, default pins).
 */
template<typename NodeType>
struct FGraphNodeCreator
{
public:
	FGraphNodeCreator(UEdGraph& InGraph)
		: Graph(InGraph)
	{
	}

	NodeType* CreateNode(bool bSelectNewNode = true, TSubclassOf<NodeType> NodeClass = NodeType::StaticClass())
	{
		Node = NewObject<NodeType>(&Graph, NodeClass.Get(), NAME_None, RF_Transactional);
		Graph.AddNode(Node, false, bSelectNewNode);
		return Node;
	}
	NodeType* CreateUserInvokedNode(bool bSelectNewNode = true, TSubclassOf<NodeType> NodeClass = NodeType::StaticClass())
	{
		Node = NewObject<NodeType>(&Graph, NodeClass.Get(), NAME_None, RF_Transactional);
		Graph.AddNode(Node, true, bSelectNewNode);
		return Node;
	}
	void Finalize()
	{
		check(Node != nullptr);
		Node->CreateNewGuid();
		Node->PostPlacedNewNode();
		if (Node->Pins.Num() == 0)
		{
			Node->AllocateDefaultPins();
		}
		bFinalized = true;
	}
	~FGraphNodeCreator()
	{
		checkf(Node == nullptr || bFinalized, TEXT("FGraphNodeCreator::Finalize must be called before the creator goes away"));
	}

private:
	FGraphNodeCreator(const FGraphNodeCreator&) = delete;
	FGraphNodeCreator& operator=(const FGraphNodeCreator&) = delete;

	UEdGraph& Graph;
	NodeType* Node = nullptr;
	bool bFinalized = false;
};
