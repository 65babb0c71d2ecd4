#include "EdGraph/EdGraph.h"
#include "EdGraph/EdGraphSchema.h"

UEdGraph::UEdGraph(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
	, bEditable(true)
	, bAllowDeletion(true)
	, bAllowRenaming(true)
{
}

const UEdGraphSchema* UEdGraph::GetSchema() const
{
	return Schema != nullptr ? GetDefault<UEdGraphSchema>(Schema.Get()) : nullptr;
}

void UEdGraph::AddNode(UEdGraphNode* NodeToAdd, bool bUserAction, bool bSelectNewNode)
{
	if (NodeToAdd == nullptr || Nodes.Contains(NodeToAdd))
	{
		return;
	}
	Modify();
	NodeToAdd->Modify();
	// A node made elsewhere moves into this graph, as its pins' links are resolved within the graph.
	if (NodeToAdd->GetOuter() != this)
	{
		NodeToAdd->Rename(nullptr, this, REN_DontCreateRedirectors);
	}
	Nodes.Add(NodeToAdd);
	NotifyGraphChanged(FEdGraphEditAction(GRAPHACTION_AddNode, this, NodeToAdd, bUserAction));
}

bool UEdGraph::RemoveNode(UEdGraphNode* NodeToRemove, bool bBreakAllLinks)
{
	if (NodeToRemove == nullptr || !Nodes.Contains(NodeToRemove))
	{
		return false;
	}
	Modify();
	NodeToRemove->Modify();
	if (bBreakAllLinks)
	{
		for (UEdGraphPin* Pin : NodeToRemove->Pins)
		{
			Pin->BreakAllPinLinks(true);
		}
	}
	Nodes.Remove(NodeToRemove);
	NotifyGraphChanged(FEdGraphEditAction(GRAPHACTION_RemoveNode, this, NodeToRemove, false));
	return true;
}

UEdGraphNode* UEdGraph::CreateNode(TSubclassOf<UEdGraphNode> NewNodeClass, bool bFromUI, bool bSelectNewNode)
{
	if (NewNodeClass == nullptr)
	{
		return nullptr;
	}
	UEdGraphNode* Node = NewObject<UEdGraphNode>(this, NewNodeClass.Get(), NAME_None, RF_Transactional);
	AddNode(Node, bFromUI, bSelectNewNode);
	return Node;
}

void UEdGraph::GetAllChildrenGraphs(TArray<UEdGraph*>& Graphs) const
{
	for (UEdGraph* SubGraph : SubGraphs)
	{
		if (SubGraph != nullptr)
		{
			Graphs.Add(SubGraph);
			SubGraph->GetAllChildrenGraphs(Graphs);
		}
	}
}

void UEdGraph::NotifyGraphChanged()
{
	NotifyGraphChanged(FEdGraphEditAction());
}

void UEdGraph::NotifyGraphChanged(const FEdGraphEditAction& Action)
{
	OnGraphChanged.Broadcast(Action);
}

void UEdGraph::NotifyNodeChanged(const UEdGraphNode* Node)
{
	FEdGraphEditAction Action(GRAPHACTION_EditNode, this, const_cast<UEdGraphNode*>(Node), false);
	NotifyGraphChanged(Action);
}

FDelegateHandle UEdGraph::AddOnGraphChangedHandler(const FOnGraphChanged::FDelegate& InHandler)
{
	return OnGraphChanged.Add(InHandler);
}

void UEdGraph::RemoveOnGraphChangedHandler(FDelegateHandle Handle)
{
	OnGraphChanged.Remove(Handle);
}

void UEdGraph::PostLoad()
{
	Super::PostLoad();
	// Nodes of other classes than a graph knows may fail to load; a graph keeps only those it has.
	Nodes.RemoveAll([](const TObjectPtr<UEdGraphNode>& Node) { return Node == nullptr; });
}

void UEdGraph::PostEditUndo()
{
	Super::PostEditUndo();
	NotifyGraphChanged();
}
