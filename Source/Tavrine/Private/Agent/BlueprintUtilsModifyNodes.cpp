#include "Agent/BlueprintUtils.h"

#include "BlueprintUtilsModifyHelpers.h"
#include "EdGraph/EdGraph.h"
#include "EdGraph/EdGraphNode.h"
#include "EdGraph/EdGraphPin.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "K2Node_CallFunction.h"
#include "K2Node_VariableGet.h"
#include "K2Node_VariableSet.h"
#include "Kismet/KismetSystemLibrary.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Math/UnrealMathUtility.h"
#include "Math/Vector2D.h"
#include "Templates/Casts.h"

namespace
{
	/** A graph coordinate from the document, kept inside what a node's integer position can hold. */
	double ToGraphCoordinate(double Value)
	{
		return FMath::Clamp(Value, static_cast<double>(MIN_int32), static_cast<double>(MAX_int32));
	}

	/** The node entry's "Location"; (0, 0) unless both coordinates are numbers. */
	FVector2D ReadLocation(const FJsonObject& NodeEntry)
	{
		const TSharedPtr<FJsonObject>* Location = nullptr;
		double X = 0.0;
		double Y = 0.0;
		if (NodeEntry.TryGetObjectField(TEXT("Location"), Location) && Location != nullptr && Location->IsValid()
			&& (*Location)->TryGetNumberField(TEXT("X"), X) && (*Location)->TryGetNumberField(TEXT("Y"), Y))
		{
			return FVector2D(ToGraphCoordinate(X), ToGraphCoordinate(Y));
		}
		return FVector2D(0.0, 0.0);
	}

	/**
	 * Links Pin to the pin named PinName on the first node of its graph, in the graph's order, whose full
	 * title is NodeTitle and that has such a pin; false when there is none.
	 */
	bool LinkToNamedNode(UEdGraphPin& Pin, const FString& NodeTitle, const FString& PinName)
	{
		UEdGraph* Graph = Pin.GetOwningNode() != nullptr ? Pin.GetOwningNode()->GetGraph() : nullptr;
		FName FarPinName;
		if (Graph == nullptr || !TavrineBlueprintModify::ToName(PinName, FarPinName))
		{
			return false;
		}
		for (UEdGraphNode* Candidate : Graph->Nodes)
		{
			if (Candidate == nullptr || !Candidate->GetNodeTitle(ENodeTitleType::FullTitle).ToString().Equals(NodeTitle, ESearchCase::IgnoreCase))
			{
				continue;
			}
			UEdGraphPin* FarPin = Candidate->FindPin(FarPinName, EGPD_MAX);
			// A pin never links to itself; a node of the same title further on may have the pin meant.
			if (FarPin == nullptr || FarPin == &Pin)
			{
				continue;
			}
			Candidate->Modify();
			Pin.MakeLinkTo(FarPin, true);
			return true;
		}
		return false;
	}
}

UEdGraphNode* FTavrineBlueprintUtils::CreateEdGraphNode(const TSharedPtr<FJsonObject>& NodeEntry, UEdGraph* Graph)
{
	using namespace TavrineBlueprintModify;

	if (!NodeEntry.IsValid() || Graph == nullptr)
	{
		return nullptr;
	}
	const UEdGraphSchema_K2* Schema = Cast<const UEdGraphSchema_K2>(Graph->GetSchema());
	UBlueprint* Blueprint = FBlueprintEditorUtils::FindBlueprintForGraph(Graph);
	if (Schema == nullptr || Blueprint == nullptr)
	{
		return nullptr;
	}

	const FVector2D Location = ReadLocation(*NodeEntry);
	FString NodeClass;
	if (!NodeEntry->TryGetStringField(TEXT("Class"), NodeClass))
	{
		return nullptr;
	}
	const TSharedPtr<FJsonObject>* Properties = nullptr;
	const bool bHasProperties = NodeEntry->TryGetObjectField(TEXT("Properties"), Properties) && Properties != nullptr && Properties->IsValid();

	const bool bVariableGet = NodeClass.Equals(TEXT("UK2Node_VariableGet"), ESearchCase::IgnoreCase);
	if (bVariableGet || NodeClass.Equals(TEXT("UK2Node_VariableSet"), ESearchCase::IgnoreCase))
	{
		FString VariableName;
		FName Name;
		if (!bHasProperties || !(*Properties)->TryGetStringField(TEXT("VariableName"), VariableName) || !ToName(VariableName, Name))
		{
			return nullptr;
		}
		UClass* OwnerClass = Blueprint->GeneratedClass.Get();
		if (bVariableGet)
		{
			return Schema->SpawnVariableGetNode(Location, Graph, Name, OwnerClass);
		}
		return Schema->SpawnVariableSetNode(Location, Graph, Name, OwnerClass);
	}

	if (NodeClass.Equals(TEXT("UK2Node_CallFunction"), ESearchCase::IgnoreCase))
	{
		FString FunctionName;
		if (!bHasProperties || !(*Properties)->TryGetStringField(TEXT("FunctionName"), FunctionName))
		{
			return nullptr;
		}
		FName Name;
		const UFunction* Function = ToName(FunctionName, Name) ? UKismetSystemLibrary::StaticClass()->FindFunctionByName(Name, EIncludeSuperFlag::IncludeSuper) : nullptr;
		// The node is made in the graph so that its pins exist for the entry's "Pins"; an unknown function
		// leaves it without a target, which the compile then reports.
		FGraphNodeCreator<UK2Node_CallFunction> NodeCreator(*Graph);
		UK2Node_CallFunction* CallNode = NodeCreator.CreateNode();
		if (Function != nullptr)
		{
			CallNode->SetFromFunction(Function);
		}
		CallNode->NodePosX = static_cast<int32>(Location.X);
		CallNode->NodePosY = static_cast<int32>(Location.Y);
		NodeCreator.Finalize();
		return CallNode;
	}

	return nullptr;
}

bool FTavrineBlueprintUtils::ModifyNodeProperties(UEdGraphNode* Node, const FJsonObject& NodeEntry, UEdGraph* Graph)
{
	using namespace TavrineBlueprintModify;

	const TSharedPtr<FJsonObject>* PropertiesField = nullptr;
	if (Node == nullptr || !NodeEntry.TryGetObjectField(TEXT("Properties"), PropertiesField) || PropertiesField == nullptr || !PropertiesField->IsValid())
	{
		return false;
	}
	const FJsonObject& Properties = **PropertiesField;
	Node->Modify();
	bool bModified = false;

	FString Comment;
	if (Properties.TryGetStringField(TEXT("Comment"), Comment))
	{
		Node->NodeComment = Comment;
		bModified = true;
	}

	const TArray<TSharedPtr<FJsonValue>>* PinEntries = nullptr;
	if (Properties.TryGetArrayField(TEXT("Pins"), PinEntries) && PinEntries != nullptr)
	{
		for (const TSharedPtr<FJsonValue>& Element : *PinEntries)
		{
			const TSharedPtr<FJsonObject> PinEntry = AsObject(Element);
			FString PinName;
			FName Name;
			if (!PinEntry.IsValid() || !PinEntry->TryGetStringField(TEXT("PinName"), PinName) || !ToName(PinName, Name))
			{
				continue;
			}
			UEdGraphPin* Pin = Node->FindPin(Name, EGPD_MAX);
			if (Pin == nullptr)
			{
				continue;
			}

			FString Value;
			if (PinEntry->TryGetStringField(TEXT("Value"), Value))
			{
				Pin->DefaultValue = Value;
				bModified = true;
			}
			FString Direction;
			if (PinEntry->TryGetStringField(TEXT("Direction"), Direction))
			{
				Pin->Direction = Direction.Equals(TEXT("Input"), ESearchCase::IgnoreCase) ? EGPD_Input : EGPD_Output;
				bModified = true;
			}
			const TArray<TSharedPtr<FJsonValue>>* Connections = nullptr;
			if (PinEntry->TryGetArrayField(TEXT("Connections"), Connections) && Connections != nullptr)
			{
				for (const TSharedPtr<FJsonValue>& ConnectionElement : *Connections)
				{
					const TSharedPtr<FJsonObject> Connection = AsObject(ConnectionElement);
					FString FarNode;
					FString FarPin;
					if (Connection.IsValid() && Connection->TryGetStringField(TEXT("Node"), FarNode) && Connection->TryGetStringField(TEXT("Pin"), FarPin))
					{
						bModified |= LinkToNamedNode(*Pin, FarNode, FarPin);
					}
				}
			}
		}
	}

	if (bModified && Node->GetGraph() != nullptr)
	{
		Node->GetGraph()->NotifyGraphChanged();
	}
	return bModified;
}

bool FTavrineBlueprintUtils::AddNodesToGraph(UEdGraph* Graph, const TArray<TSharedPtr<FJsonValue>>& NodeEntries)
{
	// Entries are worked through one by one, so a link reaches only nodes already in the graph: to link two
	// new nodes, the later entry names the earlier one.
	bool bChanged = false;
	for (const TSharedPtr<FJsonValue>& Element : NodeEntries)
	{
		const TSharedPtr<FJsonObject> NodeEntry = TavrineBlueprintModify::AsObject(Element);
		if (UEdGraphNode* Node = CreateEdGraphNode(NodeEntry, Graph))
		{
			bChanged |= ModifyNodeProperties(Node, *NodeEntry, Graph);
		}
	}
	return bChanged;
}
