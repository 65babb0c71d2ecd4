#include "Agent/BlueprintUtils.h"

#include "EdGraph/EdGraph.h"
#include "EdGraph/EdGraphNode.h"
#include "EdGraph/EdGraphPin.h"
#include "K2Node_CallFunction.h"
#include "K2Node_VariableGet.h"
#include "K2Node_VariableSet.h"
#include "Templates/Casts.h"

namespace
{
	/**
	 * Full node titles, each made once per graph read: a title is text the node composes, and every link
	 * to a node repeats it.
	 */
	class FNodeTitles
	{
	public:
		const FString& Get(const UEdGraphNode* Node)
		{
			if (const FString* Title = Titles.Find(Node))
			{
				return *Title;
			}
			return Titles.Add(Node, Node->GetNodeTitle(ENodeTitleType::FullTitle).ToString());
		}

	private:
		TMap<const UEdGraphNode*, FString> Titles;
	};

	/** The fields that tell what a node refers to. Exactly these classes: a subclass may mean something else by them. */
	TSharedPtr<FJsonObject> ReadNodeProperties(const UEdGraphNode* Node)
	{
		TSharedPtr<FJsonObject> Properties = MakeShared<FJsonObject>();
		const UClass* NodeClass = Node->GetClass();
		if (NodeClass == UK2Node_VariableGet::StaticClass() || NodeClass == UK2Node_VariableSet::StaticClass())
		{
			Properties->SetStringField(TEXT("VariableName"), static_cast<const UK2Node_Variable*>(Node)->GetVarNameString());
		}
		else if (NodeClass == UK2Node_CallFunction::StaticClass())
		{
			Properties->SetStringField(TEXT("FunctionName"), static_cast<const UK2Node_CallFunction*>(Node)->GetFunctionName().ToString());
		}
		return Properties;
	}

	TSharedPtr<FJsonObject> ReadPin(const UEdGraphPin* Pin, FNodeTitles& Titles)
	{
		TSharedPtr<FJsonObject> PinJson = MakeShared<FJsonObject>();
		PinJson->SetStringField(TEXT("Name"), Pin->PinName.ToString());
		PinJson->SetStringField(TEXT("Value"), Pin->DefaultValue);
		PinJson->SetStringField(TEXT("Direction"), Pin->Direction == EGPD_Input ? TEXT("Input") : TEXT("Output"));
		PinJson->SetStringField(TEXT("Category"), Pin->PinType.PinCategory.ToString());
		// The short name keeps large graphs small; the variable types carry the full path.
		if (const UObject* SubCategoryObject = Pin->PinType.PinSubCategoryObject.Get())
		{
			PinJson->SetStringField(TEXT("SubCategoryObject"), SubCategoryObject->GetName());
		}

		TArray<TSharedPtr<FJsonValue>> Connections;
		Connections.Reserve(Pin->LinkedTo.Num());
		for (const UEdGraphPin* Linked : Pin->LinkedTo)
		{
			if (Linked == nullptr)
			{
				continue;
			}
			TSharedPtr<FJsonObject> Connection = MakeShared<FJsonObject>();
			if (const UEdGraphNode* LinkedNode = Linked->GetOwningNode())
			{
				Connection->SetStringField(TEXT("Node"), Titles.Get(LinkedNode));
			}
			Connection->SetStringField(TEXT("Pin"), Linked->PinName.ToString());
			Connections.Add(MakeShared<FJsonValueObject>(Connection));
		}
		PinJson->SetArrayField(TEXT("Connections"), Connections);
		return PinJson;
	}
}

TSharedPtr<FJsonObject> FTavrineBlueprintUtils::ReadEdGraph(const UEdGraph* Graph)
{
	TSharedPtr<FJsonObject> GraphJson = MakeShared<FJsonObject>();
	if (Graph == nullptr)
	{
		return GraphJson;
	}
	GraphJson->SetStringField(TEXT("Name"), Graph->GetName());
	GraphJson->SetStringField(TEXT("Class"), Graph->GetClass()->GetName());

	FNodeTitles Titles;
	TArray<TSharedPtr<FJsonValue>> Nodes;
	Nodes.Reserve(Graph->Nodes.Num());
	for (const UEdGraphNode* Node : Graph->Nodes)
	{
		if (Node == nullptr)
		{
			continue;
		}
		TSharedPtr<FJsonObject> NodeJson = MakeShared<FJsonObject>();
		NodeJson->SetStringField(TEXT("Title"), Titles.Get(Node));
		// Reflected class names carry no prefix: "K2Node_CallFunction".
		NodeJson->SetStringField(TEXT("Class"), Node->GetClass()->GetName());
		NodeJson->SetObjectField(TEXT("Properties"), ReadNodeProperties(Node));

		TArray<TSharedPtr<FJsonValue>> Pins;
		Pins.Reserve(Node->Pins.Num());
		for (const UEdGraphPin* Pin : Node->Pins)
		{
			if (Pin != nullptr)
			{
				Pins.Add(MakeShared<FJsonValueObject>(ReadPin(Pin, Titles)));
			}
		}
		NodeJson->SetArrayField(TEXT("Pins"), Pins);
		Nodes.Add(MakeShared<FJsonValueObject>(NodeJson));
	}
	GraphJson->SetArrayField(TEXT("Nodes"), Nodes);
	return GraphJson;
}
