#include "Agent/BlueprintUtils.h"

#include "Agent/Agent.h"
#include "BlueprintUtilsModifyHelpers.h"
#include "EdGraph/EdGraph.h"
#include "Engine/Blueprint.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/KismetEditorUtilities.h"
#include "ScopedTransaction.h"
#include "Serialization/JsonReader.h"
#include "Serialization/JsonSerializer.h"
#include "UObject/NameTypes.h"

namespace TavrineBlueprintModify
{
	TSharedPtr<FJsonObject> AsObject(const TSharedPtr<FJsonValue>& Element)
	{
		const TSharedPtr<FJsonObject>* Object = nullptr;
		if (!Element.IsValid() || !Element->TryGetObject(Object) || Object == nullptr)
		{
			return nullptr;
		}
		return *Object;
	}

	bool ToName(const FString& Text, FName& OutName)
	{
		if (Text.IsEmpty() || Text.Len() >= NAME_SIZE)
		{
			return false;
		}
		OutName = FName(*Text);
		return true;
	}

	UEdGraph* FindGraphByName(const TArray<TObjectPtr<UEdGraph>>& Graphs, const FString& Name)
	{
		for (UEdGraph* Graph : Graphs)
		{
			if (Graph != nullptr && Graph->GetName().Equals(Name, ESearchCase::IgnoreCase))
			{
				return Graph;
			}
		}
		return nullptr;
	}

	bool ApplySection(UBlueprint* Blueprint, FJsonObject& Result, const TCHAR* MessagesKey, TFunctionRef<bool(TArray<FString>& Messages)> ApplyEntries)
	{
		if (Blueprint == nullptr)
		{
			Result.SetStringField(TEXT("Error"), TEXT("Invalid Blueprint provided."));
			return false;
		}
		Blueprint->Modify();

		TArray<FString> Messages;
		const bool bChanged = ApplyEntries(Messages);
		if (!Messages.IsEmpty())
		{
			TArray<TSharedPtr<FJsonValue>> Values;
			Values.Reserve(Messages.Num());
			for (const FString& Message : Messages)
			{
				Values.Add(MakeShared<FJsonValueString>(Message));
			}
			Result.SetArrayField(MessagesKey, MoveTemp(Values));
		}
		if (bChanged)
		{
			FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Blueprint);
		}
		return bChanged;
	}

	bool SaveSucceeded(const FString& SaveDocument)
	{
		TSharedPtr<FJsonObject> Outcome;
		return FJsonSerializer::Deserialize(TJsonReaderFactory<>::Create(SaveDocument), Outcome) && Outcome.IsValid() && Outcome->HasField(TEXT("Success"));
	}
}

FString FTavrineBlueprintUtils::ModifyBlueprint(const FString& BlueprintName, const FString& ModificationJson)
{
	TSharedPtr<FJsonObject> Result = MakeShared<FJsonObject>();

	TSharedPtr<FJsonObject> Document;
	if (!FJsonSerializer::Deserialize(TJsonReaderFactory<>::Create(ModificationJson), Document) || !Document.IsValid())
	{
		Result->SetStringField(TEXT("Error"), TEXT("Failed to parse modification JSON."));
		return SerializeJson(Result);
	}

	UBlueprint* Blueprint = GetBlueprintFromtBlueprintName(BlueprintName);
	if (Blueprint == nullptr)
	{
		Result->SetStringField(TEXT("Error"), FString::Printf(TEXT("Blueprint '%s' not found."), *BlueprintName));
		return SerializeJson(Result);
	}

	// Undo and redo of a conversation find its changes by this name. The transaction is kept whatever the
	// sections report: what did apply stays undoable.
	const FString TransactionName = FString::Printf(TEXT("Tavrine Transaction %s"), *FAgent::Get().GetConversationId());
	FScopedTransaction Transaction(FText::FromString(TransactionName), true);

	// The sections in their fixed order; a later one may use what an earlier one made (a function's nodes
	// read a variable created above them).
	bool bChanged = false;
	const TSharedPtr<FJsonObject>* Variables = nullptr;
	if (Document->TryGetObjectField(TEXT("Variables"), Variables) && Variables != nullptr && Variables->IsValid())
	{
		bChanged |= ModifyBlueprintVariables(Blueprint, **Variables, Result);
	}
	const TArray<TSharedPtr<FJsonValue>>* Functions = nullptr;
	if (Document->TryGetArrayField(TEXT("Functions"), Functions) && Functions != nullptr)
	{
		bChanged |= ModifyBlueprintFunctions(Blueprint, *Functions, Result);
	}
	const TArray<TSharedPtr<FJsonValue>>* Graphs = nullptr;
	if (Document->TryGetArrayField(TEXT("Graphs"), Graphs) && Graphs != nullptr)
	{
		bChanged |= ModifyBlueprintGraphs(Blueprint, *Graphs, Result);
	}

	if (!bChanged)
	{
		Result->SetStringField(TEXT("Message"), TEXT("No modifications were made to the Blueprint."));
		return SerializeJson(Result);
	}

	// A Blueprint with compile errors is saved all the same: the backend reads the errors back and fixes them.
	FKismetEditorUtilities::CompileBlueprint(Blueprint);
	if (TavrineBlueprintModify::SaveSucceeded(SaveBlueprint(Blueprint)))
	{
		Result->SetStringField(TEXT("Success"), TEXT("Blueprint modified, compiled, and saved successfully."));
	}
	else
	{
		Result->SetStringField(TEXT("Error"), TEXT("Failed to save modified Blueprint."));
	}
	return SerializeJson(Result);
}
