#include "Agent/BlueprintUtils.h"

#include "BlueprintUtilsModifyHelpers.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_FunctionResult.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Templates/Casts.h"
#include "UObject/Script.h"

namespace
{
	// The prefix of a replication notification function; the variable's name follows it.
	const TCHAR* const RepNotifyPrefix = TEXT("OnRep_");

	int32 FindVariableIndex(const UBlueprint& Blueprint, const FString& VariableName)
	{
		FName Name;
		if (!TavrineBlueprintModify::ToName(VariableName, Name))
		{
			return INDEX_NONE;
		}
		return Blueprint.NewVariables.IndexOfByPredicate([Name](const FBPVariableDescription& Variable)
		{
			return Variable.VarName == Name;
		});
	}

	/** Sets or clears Flags as the boolean under Key says; true when the key was there. */
	bool ApplyFlagKey(const FJsonObject& Entry, const TCHAR* Key, uint64 Flags, FBPVariableDescription& Variable)
	{
		bool bSet = false;
		if (!Entry.TryGetBoolField(Key, bSet))
		{
			return false;
		}
		if (bSet)
		{
			Variable.PropertyFlags |= Flags;
		}
		else
		{
			Variable.PropertyFlags &= ~Flags;
		}
		return true;
	}
}

bool FTavrineBlueprintUtils::ModifyBlueprintVariables(UBlueprint* Blueprint, const FJsonObject& Variables, TSharedPtr<FJsonObject>& Result)
{
	using namespace TavrineBlueprintModify;

	return ApplySection(Blueprint, *Result, TEXT("VariableModifications"), [Blueprint, &Variables](TArray<FString>& Messages)
	{
		bool bChanged = false;
		for (const TPair<FString, TSharedPtr<FJsonValue>>& Pair : Variables.Values)
		{
			const FString& VariableName = Pair.Key;
			const TSharedPtr<FJsonObject> Entry = AsObject(Pair.Value);
			if (!Entry.IsValid())
			{
				Messages.Add(FString::Printf(TEXT("Invalid JSON format for variable: %s"), *VariableName));
				continue;
			}

			int32 Index = FindVariableIndex(*Blueprint, VariableName);
			if (Index == INDEX_NONE)
			{
				// The type is only read for a new variable: an existing one keeps its type, so that its nodes stay valid.
				const FEdGraphPinType PinType = ConvertJsonToEdGraphPinType(Entry);
				if (PinType.PinCategory.IsNone())
				{
					Messages.Add(FString::Printf(TEXT("Invalid variable type for variable: %s"), *VariableName));
					continue;
				}
				FName Name;
				if (ToName(VariableName, Name))
				{
					FBlueprintEditorUtils::AddMemberVariable(Blueprint, Name, PinType, FString());
				}
				Index = FindVariableIndex(*Blueprint, VariableName);
				if (Index == INDEX_NONE)
				{
					Messages.Add(FString::Printf(TEXT("Failed to create variable: %s"), *VariableName));
					continue;
				}
				Blueprint->NewVariables[Index].PropertyFlags |= CPF_Edit | CPF_BlueprintVisible;
				bChanged = true;
				Messages.Add(FString::Printf(TEXT("Created new variable: %s"), *VariableName));
			}

			FString Replication;
			if (Entry->TryGetStringField(TEXT("Replication"), Replication))
			{
				FBPVariableDescription& Variable = Blueprint->NewVariables[Index];
				Variable.PropertyFlags &= ~(CPF_Net | CPF_RepNotify);
				if (Replication.Equals(TEXT("Replicated"), ESearchCase::IgnoreCase))
				{
					Variable.PropertyFlags |= CPF_Net;
					bChanged = true;
				}
				else if (Replication.Equals(TEXT("RepNotify"), ESearchCase::IgnoreCase))
				{
					Variable.PropertyFlags |= CPF_Net | CPF_RepNotify;
					const FString FunctionName = RepNotifyPrefix + Variable.VarName.ToString();
					CreateRepNotifyFunction(Blueprint, FunctionName);
					FName RepNotifyName;
					if (TavrineBlueprintModify::ToName(FunctionName, RepNotifyName))
					{
						// Looked up again: making the function may have moved the Blueprint's arrays.
						Blueprint->NewVariables[Index].RepNotifyFunc = RepNotifyName;
					}
					bChanged = true;
				}
			}

			FBPVariableDescription& Variable = Blueprint->NewVariables[Index];
			FString Text;
			if (Entry->TryGetStringField(TEXT("Category"), Text))
			{
				Variable.Category = FText::FromString(Text);
				bChanged = true;
			}
			if (Entry->TryGetStringField(TEXT("Tooltip"), Text))
			{
				Variable.SetMetaData(TEXT("Tooltip"), Text);
				bChanged = true;
			}
			if (const TSharedPtr<FJsonValue> Value = Entry->TryGetField(TEXT("Value")))
			{
				Variable.DefaultValue = Value->AsString();
				bChanged = true;
			}
			bChanged |= ApplyFlagKey(*Entry, TEXT("ExposeOnSpawn"), CPF_ExposeOnSpawn, Variable);
			bChanged |= ApplyFlagKey(*Entry, TEXT("Private"), CPF_DisableEditOnInstance, Variable);
			bChanged |= ApplyFlagKey(*Entry, TEXT("SaveGame"), CPF_SaveGame, Variable);
		}
		return bChanged;
	});
}

void FTavrineBlueprintUtils::CreateRepNotifyFunction(UBlueprint* Blueprint, const FString& FunctionName)
{
	FName GraphName;
	if (Blueprint == nullptr || FunctionName.IsEmpty() || !TavrineBlueprintModify::ToName(FunctionName, GraphName))
	{
		return;
	}
	// A second RepNotify on the same variable keeps the function the user may have filled in since.
	if (TavrineBlueprintModify::FindGraphByName(Blueprint->FunctionGraphs, FunctionName) != nullptr)
	{
		return;
	}

	UEdGraph* FunctionGraph = FBlueprintEditorUtils::CreateNewGraph(Blueprint, GraphName, UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
	if (!ensure(FunctionGraph))
	{
		return;
	}
	FBlueprintEditorUtils::AddFunctionGraph<UClass>(Blueprint, FunctionGraph, false, UFunction::StaticClass());

	const UEdGraphSchema_K2* Schema = Cast<const UEdGraphSchema_K2>(FunctionGraph->GetSchema());
	if (!ensure(Schema))
	{
		return;
	}

	const bool bHasEntry = FunctionGraph->Nodes.ContainsByPredicate([](const UEdGraphNode* Node)
	{
		return Cast<const UK2Node_FunctionEntry>(Node) != nullptr;
	});
	if (!bHasEntry)
	{
		FGraphNodeCreator<UK2Node_FunctionEntry> EntryCreator(*FunctionGraph);
		UK2Node_FunctionEntry* EntryNode = EntryCreator.CreateNode();
		if (ensure(EntryNode))
		{
			EntryNode->SetExtraFlags(FUNC_BlueprintCosmetic);
			EntryNode->CustomGeneratedFunctionName = GraphName;
			EntryNode->MetaData.Category = FText::FromString(TEXT("RepNotify"));

			// The notified variable's value comes in as the function's one parameter.
			const FString VariableName = FunctionName.RightChop(FCString::Strlen(RepNotifyPrefix));
			FEdGraphPinType PinType;
			PinType.PinCategory = UEdGraphSchema_K2::PC_Wildcard;
			const int32 Index = FindVariableIndex(*Blueprint, VariableName);
			if (Index != INDEX_NONE)
			{
				PinType = Blueprint->NewVariables[Index].VarType;
			}
			FName PinName;
			if (TavrineBlueprintModify::ToName(VariableName, PinName))
			{
				EntryNode->CreateUserDefinedPin(PinName, PinType, EGPD_Output, false);
			}
			EntryCreator.Finalize();
		}
	}

	Schema->AddExtraFunctionFlags(FunctionGraph, FUNC_Net | FUNC_NetServer | FUNC_NetClient);

	FGraphNodeCreator<UK2Node_FunctionResult> ResultCreator(*FunctionGraph);
	UK2Node_FunctionResult* ResultNode = ResultCreator.CreateNode();
	if (ensure(ResultNode))
	{
		ResultCreator.Finalize();
	}

	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Blueprint);
}
