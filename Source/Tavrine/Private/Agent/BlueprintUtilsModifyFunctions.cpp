#include "Agent/BlueprintUtils.h"

#include "BlueprintUtilsModifyHelpers.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_FunctionResult.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Templates/Casts.h"

bool FTavrineBlueprintUtils::ModifyBlueprintFunctions(UBlueprint* Blueprint, const TArray<TSharedPtr<FJsonValue>>& Functions, TSharedPtr<FJsonObject>& Result)
{
	using namespace TavrineBlueprintModify;

	return ApplySection(Blueprint, *Result, TEXT("FunctionModifications"), [Blueprint, &Functions](TArray<FString>& Messages)
	{
		bool bChanged = false;

		// A pin for each parameter entry that has a name; a type that doesn't convert is reported and ends only
		// that parameter.
		auto AddParameterPins = [&Messages](UK2Node_EditablePinBase& Node, const TArray<TSharedPtr<FJsonValue>>& Parameters, EEdGraphPinDirection Direction)
		{
			for (const TSharedPtr<FJsonValue>& Element : Parameters)
			{
				const TSharedPtr<FJsonObject> Parameter = AsObject(Element);
				FString ParameterName;
				if (!Parameter.IsValid() || !Parameter->TryGetStringField(TEXT("Name"), ParameterName))
				{
					continue;
				}
				const FEdGraphPinType PinType = GetVarEdGraphPinTypeFromJSonObject(Parameter);
				FName PinName;
				if (PinType.PinCategory.IsNone() || !ToName(ParameterName, PinName))
				{
					Messages.Add(FString::Printf(TEXT("Invalid variable type for variable: %s"), *ParameterName));
					continue;
				}
				Node.CreateUserDefinedPin(PinName, PinType, Direction, true);
			}
		};

		for (const TSharedPtr<FJsonValue>& Element : Functions)
		{
			const TSharedPtr<FJsonObject> Entry = AsObject(Element);
			FString FunctionName;
			if (!Entry.IsValid() || !Entry->TryGetStringField(TEXT("Name"), FunctionName))
			{
				Messages.Add(TEXT("Function entry missing 'Name' field."));
				continue;
			}

			UEdGraph* FunctionGraph = FindGraphByName(Blueprint->FunctionGraphs, FunctionName);
			if (FunctionGraph == nullptr)
			{
				FName GraphName;
				UEdGraph* ExistingGraph = nullptr;
				if (ToName(FunctionName, GraphName))
				{
					ExistingGraph = FBlueprintEditorUtils::CreateNewGraph(Blueprint, GraphName, UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
				}
				// Null when another object of the Blueprint already bears the name.
				if (!ensure(ExistingGraph))
				{
					Messages.Add(FString::Printf(TEXT("Failed to create function graph for: %s"), *FunctionName));
					continue;
				}
				FunctionGraph = ExistingGraph;
				FBlueprintEditorUtils::AddFunctionGraph<UClass>(Blueprint, FunctionGraph, false, UFunction::StaticClass());

				UK2Node_FunctionEntry* EntryNode = nullptr;
				for (UEdGraphNode* Node : FunctionGraph->Nodes)
				{
					if ((EntryNode = Cast<UK2Node_FunctionEntry>(Node)) != nullptr)
					{
						break;
					}
				}
				// The signature is only set when the function is made here: an existing function's callers rely on it.
				if (EntryNode != nullptr)
				{
					const TArray<TSharedPtr<FJsonValue>>* InParams = nullptr;
					if (Entry->TryGetArrayField(TEXT("InParams"), InParams) && InParams != nullptr)
					{
						AddParameterPins(*EntryNode, *InParams, EGPD_Output);
					}
					const TArray<TSharedPtr<FJsonValue>>* OutParams = nullptr;
					if (Entry->TryGetArrayField(TEXT("OutParams"), OutParams) && OutParams != nullptr)
					{
						FGraphNodeCreator<UK2Node_FunctionResult> ResultCreator(*FunctionGraph);
						UK2Node_FunctionResult* ResultNode = ResultCreator.CreateNode();
						ResultNode->NodePosX = 600;
						ResultNode->NodePosY = 0;
						ResultCreator.Finalize();
						AddParameterPins(*ResultNode, *OutParams, EGPD_Input);
					}
					bChanged = true;
					Messages.Add(FString::Printf(TEXT("Created new function: %s"), *FunctionName));
				}
			}

			const TSharedPtr<FJsonObject>* EdGraph = nullptr;
			const TArray<TSharedPtr<FJsonValue>>* Nodes = nullptr;
			if (Entry->TryGetObjectField(TEXT("EdGraph"), EdGraph) && EdGraph != nullptr && EdGraph->IsValid() && (*EdGraph)->TryGetArrayField(TEXT("Nodes"), Nodes) && Nodes != nullptr)
			{
				bChanged |= AddNodesToGraph(FunctionGraph, *Nodes);
			}
			Messages.Add(FString::Printf(TEXT("Modified existing function: %s"), *FunctionName));
		}
		return bChanged;
	});
}
