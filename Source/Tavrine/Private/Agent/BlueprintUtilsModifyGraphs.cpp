#include "Agent/BlueprintUtils.h"

#include "BlueprintUtilsModifyHelpers.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "Kismet2/BlueprintEditorUtils.h"

bool FTavrineBlueprintUtils::ModifyBlueprintGraphs(UBlueprint* Blueprint, const TArray<TSharedPtr<FJsonValue>>& Graphs, TSharedPtr<FJsonObject>& Result)
{
	using namespace TavrineBlueprintModify;

	return ApplySection(Blueprint, *Result, TEXT("GraphModifications"), [Blueprint, &Graphs](TArray<FString>& Messages)
	{
		bool bChanged = false;
		for (const TSharedPtr<FJsonValue>& Element : Graphs)
		{
			const TSharedPtr<FJsonObject> Entry = AsObject(Element);
			FString GraphName;
			FString GraphType;
			if (!Entry.IsValid() || !Entry->TryGetStringField(TEXT("Name"), GraphName) || !Entry->TryGetStringField(TEXT("Type"), GraphType))
			{
				Messages.Add(TEXT("Graph entry missing 'Name' or 'Type' field."));
				continue;
			}
			if (!GraphType.Equals(TEXT("EventGraph"), ESearchCase::IgnoreCase))
			{
				Messages.Add(FString::Printf(TEXT("Invalid graph type: %s"), *GraphType));
				continue;
			}
			// Nodes stand in the entry itself here, not under an "EdGraph" key as in a function entry.
			const TArray<TSharedPtr<FJsonValue>>* Nodes = nullptr;
			const bool bHasNodes = Entry->TryGetArrayField(TEXT("Nodes"), Nodes) && Nodes != nullptr;

			// Only event graph pages are searched: a name that only a function bears gives a new page.
			if (UEdGraph* Page = FindGraphByName(Blueprint->UbergraphPages, GraphName))
			{
				if (bHasNodes)
				{
					bChanged |= AddNodesToGraph(Page, *Nodes);
				}
				Messages.Add(FString::Printf(TEXT("Modified existing graph: %s"), *GraphName));
				continue;
			}

			FName Name;
			UEdGraph* NewGraph = nullptr;
			if (ToName(GraphName, Name))
			{
				NewGraph = FBlueprintEditorUtils::CreateNewGraph(Blueprint, Name, UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
			}
			// Null when another object of the Blueprint already bears the name.
			if (!ensure(NewGraph))
			{
				Messages.Add(FString::Printf(TEXT("Failed to create graph: %s"), *GraphName));
				continue;
			}
			FBlueprintEditorUtils::AddUbergraphPage(Blueprint, NewGraph);
			if (bHasNodes)
			{
				AddNodesToGraph(NewGraph, *Nodes);
			}
			bChanged = true;
			Messages.Add(FString::Printf(TEXT("Created new graph: %s of type %s"), *GraphName, *GraphType));
		}
		return bChanged;
	});
}
