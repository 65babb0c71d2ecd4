#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/KismetEditorUtilities.h"
#include "Engine/Blueprint.h"
#include "Engine/BlueprintGeneratedClass.h"
#include "Engine/SimpleConstructionScript.h"
#include "Engine/SCS_Node.h"
#include "Engine/TimelineTemplate.h"
#include "Animation/AnimBlueprint.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "K2Node_Event.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_FunctionResult.h"
#include "K2Node_Timeline.h"
#include "K2Node_Variable.h"
#include "GameFramework/Actor.h"
#include "UObject/Interface.h"
#include "UObject/Package.h"

UEdGraph* FBlueprintEditorUtils::CreateNewGraph(UObject* ParentScope, const FName& GraphName, TSubclassOf<UEdGraph> GraphClass, TSubclassOf<UEdGraphSchema> SchemaClass)
{
	if (ParentScope == nullptr || GraphClass == nullptr || GraphName.IsNone())
	{
		return nullptr;
	}
	if (UObject* Existing = StaticFindObjectFast(nullptr, ParentScope, GraphName))
	{
		// A graph that an undo took out of its Blueprint still holds the name; it gives it up.
		UEdGraph* Orphan = Cast<UEdGraph>(Existing);
		UBlueprint* Blueprint = Cast<UBlueprint>(ParentScope);
		TArray<UEdGraph*> Graphs;
		if (Blueprint != nullptr)
		{
			Blueprint->GetAllGraphs(Graphs);
		}
		if (Orphan == nullptr || Blueprint == nullptr || Graphs.Contains(Orphan))
		{
			return nullptr;
		}
		Orphan->Rename(*MakeUniqueObjectName(GetTransientPackage(), Orphan->GetClass(), FName(*(TEXT("TRASH_") + GraphName.ToString()))).ToString(), GetTransientPackage(), REN_DontCreateRedirectors | REN_NonTransactional | REN_DoNotDirty);
	}
	UEdGraph* Graph = NewObject<UEdGraph>(ParentScope, GraphClass.Get(), GraphName, RF_Transactional);
	Graph->Schema = SchemaClass;
	Graph->GraphGuid = FGuid::NewGuid();
	return Graph;
}

void FBlueprintEditorUtils::AddFunctionGraphImpl(UBlueprint* Blueprint, UEdGraph* Graph, bool bIsUserCreated, UObject* SignatureFromObject)
{
	if (Blueprint == nullptr || Graph == nullptr || Blueprint->FunctionGraphs.Contains(Graph))
	{
		return;
	}
	Blueprint->Modify();
	Blueprint->FunctionGraphs.Add(Graph);
	const UEdGraphSchema_K2* Schema = Cast<const UEdGraphSchema_K2>(Graph->GetSchema());
	if (Schema == nullptr)
	{
		Schema = GetDefault<UEdGraphSchema_K2>();
	}
	Schema->CreateDefaultNodesForGraph(*Graph);
	if (UFunction* Signature = Cast<UFunction>(SignatureFromObject))
	{
		Schema->CreateFunctionGraphTerminators(*Graph, static_cast<const UFunction*>(Signature));
	}
	else
	{
		Schema->CreateFunctionGraphTerminators(*Graph, Cast<UClass>(SignatureFromObject));
	}
	if (bIsUserCreated)
	{
		// A function the user adds is callable from Blueprints and editable.
		Schema->AddExtraFunctionFlags(Graph, FUNC_BlueprintCallable | FUNC_BlueprintEvent | FUNC_Public);
		Schema->MarkFunctionEntryAsEditable(Graph, true);
	}
	MarkBlueprintAsStructurallyModified(Blueprint);
}

void FBlueprintEditorUtils::AddUbergraphPage(UBlueprint* Blueprint, UEdGraph* Graph)
{
	if (Blueprint == nullptr || Graph == nullptr || Blueprint->UbergraphPages.Contains(Graph))
	{
		return;
	}
	Blueprint->Modify();
	Blueprint->UbergraphPages.Add(Graph);
	MarkBlueprintAsStructurallyModified(Blueprint);
}

void FBlueprintEditorUtils::AddMacroGraph(UBlueprint* Blueprint, UEdGraph* Graph, bool bIsUserCreated, UClass* SignatureFromClass)
{
	if (Blueprint == nullptr || Graph == nullptr || Blueprint->MacroGraphs.Contains(Graph))
	{
		return;
	}
	Blueprint->Modify();
	Blueprint->MacroGraphs.Add(Graph);
	MarkBlueprintAsStructurallyModified(Blueprint);
}

void FBlueprintEditorUtils::AddInterfaceGraph(UBlueprint* Blueprint, UEdGraph* Graph, UClass* InterfaceClass)
{
	if (Blueprint == nullptr || Graph == nullptr)
	{
		return;
	}
	const UEdGraphSchema_K2* Schema = GetDefault<UEdGraphSchema_K2>();
	const UFunction* Signature = InterfaceClass != nullptr ? InterfaceClass->FindFunctionByName(Graph->GetFName()) : nullptr;
	Schema->CreateFunctionGraphTerminators(*Graph, Signature);
}

void FBlueprintEditorUtils::AddDomainSpecificGraph(UBlueprint* Blueprint, UEdGraph* Graph)
{
	if (Blueprint == nullptr || Graph == nullptr)
	{
		return;
	}
	Blueprint->Modify();
	Blueprint->FunctionGraphs.AddUnique(Graph);
	MarkBlueprintAsStructurallyModified(Blueprint);
}

void FBlueprintEditorUtils::RemoveGraph(UBlueprint* Blueprint, UEdGraph* GraphToRemove)
{
	if (Blueprint == nullptr || GraphToRemove == nullptr)
	{
		return;
	}
	Blueprint->Modify();
	GraphToRemove->Modify();
	Blueprint->FunctionGraphs.Remove(GraphToRemove);
	Blueprint->UbergraphPages.Remove(GraphToRemove);
	Blueprint->MacroGraphs.Remove(GraphToRemove);
	Blueprint->DelegateSignatureGraphs.Remove(GraphToRemove);
	Blueprint->EventGraphs.Remove(GraphToRemove);
	for (FBPInterfaceDescription& Interface : Blueprint->ImplementedInterfaces)
	{
		Interface.Graphs.Remove(GraphToRemove);
	}
	// The graph leaves the Blueprint for the transient package, so its name is free again; undo brings it back.
	GraphToRemove->Rename(nullptr, GetTransientPackage(), REN_DontCreateRedirectors);
	MarkBlueprintAsStructurallyModified(Blueprint);
}

bool FBlueprintEditorUtils::AddMemberVariable(UBlueprint* Blueprint, const FName& NewVarName, const FEdGraphPinType& NewVarType, const FString& DefaultValue)
{
	if (Blueprint == nullptr || NewVarName.IsNone() || NewVarType.PinCategory.IsNone() || NewVarType.PinCategory == UEdGraphSchema_K2::PC_Exec || NewVarType.PinCategory == UEdGraphSchema_K2::PC_Wildcard)
	{
		return false;
	}
	// A variable can't take a name that the Blueprint or a parent class already uses.
	if (FindNewVariableIndex(Blueprint, NewVarName) != INDEX_NONE)
	{
		return false;
	}
	UClass* ParentClass = Blueprint->ParentClass;
	if (ParentClass != nullptr && (ParentClass->FindPropertyByName(NewVarName) != nullptr || ParentClass->FindFunctionByName(NewVarName) != nullptr))
	{
		return false;
	}
	if (!IsNameFree(Blueprint, NewVarName))
	{
		return false;
	}
	Blueprint->Modify();
	FBPVariableDescription Variable;
	Variable.VarName = NewVarName;
	Variable.VarGuid = FGuid::NewGuid();
	Variable.FriendlyName = FName::NameToDisplayString(NewVarName.ToString(), NewVarType.PinCategory == UEdGraphSchema_K2::PC_Boolean);
	Variable.VarType = NewVarType;
	Variable.PropertyFlags = CPF_Edit | CPF_BlueprintVisible | CPF_DisableEditOnInstance;
	if (NewVarType.PinCategory == UEdGraphSchema_K2::PC_MCDelegate)
	{
		Variable.PropertyFlags |= CPF_BlueprintAssignable | CPF_BlueprintCallable;
	}
	Variable.Category = UEdGraphSchema_K2::VR_DefaultCategory;
	Variable.DefaultValue = DefaultValue;
	Blueprint->NewVariables.Add(Variable);
	MarkBlueprintAsStructurallyModified(Blueprint);
	return true;
}

void FBlueprintEditorUtils::RemoveMemberVariable(UBlueprint* Blueprint, const FName VarName)
{
	const int32 Index = FindNewVariableIndex(Blueprint, VarName);
	if (Index == INDEX_NONE)
	{
		return;
	}
	Blueprint->Modify();
	Blueprint->NewVariables.RemoveAt(Index);
	MarkBlueprintAsStructurallyModified(Blueprint);
}

void FBlueprintEditorUtils::RenameMemberVariable(UBlueprint* Blueprint, const FName OldName, const FName NewName)
{
	const int32 Index = FindNewVariableIndex(Blueprint, OldName);
	if (Index == INDEX_NONE || NewName.IsNone() || OldName == NewName || !IsNameFree(Blueprint, NewName))
	{
		return;
	}
	Blueprint->Modify();
	Blueprint->NewVariables[Index].VarName = NewName;
	Blueprint->NewVariables[Index].FriendlyName = FName::NameToDisplayString(NewName.ToString(), false);
	// The nodes of the variable follow it.
	TArray<UK2Node_Variable*> Nodes;
	GetAllNodesOfClass(Blueprint, Nodes);
	for (UK2Node_Variable* Node : Nodes)
	{
		if (Node->VariableReference.IsSelfContext() && Node->GetVarName() == OldName)
		{
			Node->Modify();
			Node->VariableReference.SetSelfMember(NewName, Node->VariableReference.GetMemberGuid());
			for (UEdGraphPin* Pin : Node->Pins)
			{
				if (Pin->PinName == OldName)
				{
					Pin->PinName = NewName;
				}
			}
		}
	}
	MarkBlueprintAsStructurallyModified(Blueprint);
}

void FBlueprintEditorUtils::ChangeMemberVariableType(UBlueprint* Blueprint, const FName VariableName, const FEdGraphPinType& NewPinType)
{
	const int32 Index = FindNewVariableIndex(Blueprint, VariableName);
	if (Index == INDEX_NONE || NewPinType.PinCategory.IsNone())
	{
		return;
	}
	Blueprint->Modify();
	Blueprint->NewVariables[Index].VarType = NewPinType;
	Blueprint->NewVariables[Index].DefaultValue.Reset();
	MarkBlueprintAsStructurallyModified(Blueprint);
}

int32 FBlueprintEditorUtils::FindNewVariableIndex(const UBlueprint* Blueprint, const FName& InName)
{
	if (Blueprint == nullptr)
	{
		return INDEX_NONE;
	}
	for (int32 Index = 0; Index < Blueprint->NewVariables.Num(); ++Index)
	{
		if (Blueprint->NewVariables[Index].VarName == InName)
		{
			return Index;
		}
	}
	return INDEX_NONE;
}

int32 FBlueprintEditorUtils::FindNewVariableIndexAndBlueprint(UBlueprint* InBlueprint, FName InName, UBlueprint*& OutFoundBlueprint)
{
	OutFoundBlueprint = nullptr;
	for (UBlueprint* Current = InBlueprint; Current != nullptr;)
	{
		const int32 Index = FindNewVariableIndex(Current, InName);
		if (Index != INDEX_NONE)
		{
			OutFoundBlueprint = Current;
			return Index;
		}
		Current = Current->ParentClass != nullptr ? Cast<UBlueprint>(Current->ParentClass->ClassGeneratedBy) : nullptr;
	}
	return INDEX_NONE;
}

void FBlueprintEditorUtils::SetBlueprintVariableMetaData(UBlueprint* Blueprint, const FName& VarName, const UStruct* InLocalVarScope, const FName& MetaDataKey, const FString& MetaDataValue)
{
	const int32 Index = FindNewVariableIndex(Blueprint, VarName);
	if (Index == INDEX_NONE)
	{
		return;
	}
	Blueprint->Modify();
	Blueprint->NewVariables[Index].SetMetaData(MetaDataKey, MetaDataValue);
	if (UClass* Class = Blueprint->GeneratedClass)
	{
		if (FProperty* Property = Class->FindPropertyByName(VarName))
		{
			Property->SetMetaData(MetaDataKey, *MetaDataValue);
		}
	}
	MarkBlueprintAsModified(Blueprint);
}

bool FBlueprintEditorUtils::GetBlueprintVariableMetaData(const UBlueprint* Blueprint, const FName& VarName, const UStruct* InLocalVarScope, const FName& MetaDataKey, FString& OutMetaDataValue)
{
	const int32 Index = FindNewVariableIndex(Blueprint, VarName);
	if (Index == INDEX_NONE || !Blueprint->NewVariables[Index].HasMetaData(MetaDataKey))
	{
		return false;
	}
	OutMetaDataValue = Blueprint->NewVariables[Index].GetMetaData(MetaDataKey);
	return true;
}

void FBlueprintEditorUtils::RemoveBlueprintVariableMetaData(UBlueprint* Blueprint, const FName& VarName, const UStruct* InLocalVarScope, const FName& MetaDataKey)
{
	const int32 Index = FindNewVariableIndex(Blueprint, VarName);
	if (Index == INDEX_NONE)
	{
		return;
	}
	Blueprint->Modify();
	Blueprint->NewVariables[Index].RemoveMetaData(MetaDataKey);
	MarkBlueprintAsModified(Blueprint);
}

void FBlueprintEditorUtils::SetBlueprintVariableCategory(UBlueprint* Blueprint, const FName& VarName, const UStruct* InLocalVarScope, const FText& NewCategory, bool bDontRecompile)
{
	const int32 Index = FindNewVariableIndex(Blueprint, VarName);
	if (Index == INDEX_NONE)
	{
		return;
	}
	Blueprint->Modify();
	Blueprint->NewVariables[Index].Category = NewCategory.IsEmpty() ? UEdGraphSchema_K2::VR_DefaultCategory : NewCategory;
	MarkBlueprintAsModified(Blueprint);
}

void FBlueprintEditorUtils::SetBlueprintPropertyReadOnlyFlag(UBlueprint* Blueprint, const FName& VarName, const bool bVariableIsReadOnly)
{
	const int32 Index = FindNewVariableIndex(Blueprint, VarName);
	if (Index == INDEX_NONE)
	{
		return;
	}
	Blueprint->Modify();
	uint64& Flags = Blueprint->NewVariables[Index].PropertyFlags;
	Flags = bVariableIsReadOnly ? (Flags | CPF_BlueprintReadOnly) : (Flags & ~static_cast<uint64>(CPF_BlueprintReadOnly));
	MarkBlueprintAsStructurallyModified(Blueprint);
}

void FBlueprintEditorUtils::SetInterfaceFlags(UBlueprint* Blueprint, const FName& VarName, const bool bInstanceEditable)
{
	const int32 Index = FindNewVariableIndex(Blueprint, VarName);
	if (Index == INDEX_NONE)
	{
		return;
	}
	Blueprint->Modify();
	uint64& Flags = Blueprint->NewVariables[Index].PropertyFlags;
	Flags = bInstanceEditable ? (Flags & ~static_cast<uint64>(CPF_DisableEditOnInstance)) : (Flags | CPF_DisableEditOnInstance);
	MarkBlueprintAsStructurallyModified(Blueprint);
}

void FBlueprintEditorUtils::GetClassVariableList(const UBlueprint* Blueprint, TArray<FName>& VisibleVariables, bool bIncludePrivateVars)
{
	if (Blueprint == nullptr)
	{
		return;
	}
	for (const FBPVariableDescription& Variable : Blueprint->NewVariables)
	{
		if (bIncludePrivateVars || !Variable.HasMetaData(FBlueprintMetadata::MD_Private))
		{
			VisibleVariables.Add(Variable.VarName);
		}
	}
}

bool FBlueprintEditorUtils::ImplementNewInterface(UBlueprint* Blueprint, FTopLevelAssetPath InterfaceClassPathName)
{
	if (Blueprint == nullptr || InterfaceClassPathName.IsNull())
	{
		return false;
	}
	UClass* Interface = Cast<UClass>(StaticFindObject(UClass::StaticClass(), nullptr, *InterfaceClassPathName.ToString()));
	if (Interface == nullptr)
	{
		Interface = Cast<UClass>(StaticLoadObject(UClass::StaticClass(), nullptr, *InterfaceClassPathName.ToString(), nullptr, LOAD_Quiet | LOAD_NoWarn));
	}
	if (Interface == nullptr || !Interface->HasAnyClassFlags(CLASS_Interface) || Interface == UInterface::StaticClass())
	{
		return false;
	}
	for (const FBPInterfaceDescription& Existing : Blueprint->ImplementedInterfaces)
	{
		if (Existing.Interface == Interface)
		{
			return false;
		}
	}
	if (Blueprint->ParentClass != nullptr && Blueprint->ParentClass->ImplementsInterface(Interface))
	{
		return false;
	}
	Blueprint->Modify();
	FBPInterfaceDescription Description;
	Description.Interface = Interface;
	// Each function of the interface that has no implementation elsewhere gets a graph.
	for (UField* Field = Interface->Children; Field != nullptr; Field = Field->Next)
	{
		UFunction* Function = Cast<UFunction>(Field);
		if (Function == nullptr || Function->HasAnyFunctionFlags(FUNC_Delegate))
		{
			continue;
		}
		if (UEdGraph* Graph = CreateNewGraph(Blueprint, Function->GetFName(), UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass()))
		{
			AddInterfaceGraph(Blueprint, Graph, Interface);
			Description.Graphs.Add(Graph);
		}
	}
	Blueprint->ImplementedInterfaces.Add(Description);
	MarkBlueprintAsStructurallyModified(Blueprint);
	return true;
}

void FBlueprintEditorUtils::RemoveInterface(UBlueprint* Blueprint, FTopLevelAssetPath InterfaceClassPathName, bool bPreserveFunctions)
{
	if (Blueprint == nullptr)
	{
		return;
	}
	for (int32 Index = 0; Index < Blueprint->ImplementedInterfaces.Num(); ++Index)
	{
		const UClass* Interface = Blueprint->ImplementedInterfaces[Index].Interface.Get();
		if (Interface != nullptr && Interface->GetClassPathName() == InterfaceClassPathName)
		{
			Blueprint->Modify();
			if (bPreserveFunctions)
			{
				for (UEdGraph* Graph : Blueprint->ImplementedInterfaces[Index].Graphs)
				{
					Blueprint->FunctionGraphs.Add(Graph);
				}
			}
			Blueprint->ImplementedInterfaces.RemoveAt(Index);
			MarkBlueprintAsStructurallyModified(Blueprint);
			return;
		}
	}
}

void FBlueprintEditorUtils::GetInterfaceGraphs(UBlueprint* Blueprint, FTopLevelAssetPath InterfaceClassPathName, TArray<UEdGraph*>& ChildGraphs)
{
	if (Blueprint == nullptr)
	{
		return;
	}
	for (const FBPInterfaceDescription& Description : Blueprint->ImplementedInterfaces)
	{
		if (Description.Interface != nullptr && Description.Interface->GetClassPathName() == InterfaceClassPathName)
		{
			for (UEdGraph* Graph : Description.Graphs)
			{
				ChildGraphs.Add(Graph);
			}
		}
	}
}

bool FBlueprintEditorUtils::IsInterfaceGraph(const UEdGraph* Graph)
{
	const UBlueprint* Blueprint = FindBlueprintForGraph(Graph);
	if (Blueprint == nullptr)
	{
		return false;
	}
	for (const FBPInterfaceDescription& Description : Blueprint->ImplementedInterfaces)
	{
		if (Description.Graphs.Contains(Graph))
		{
			return true;
		}
	}
	return false;
}

void FBlueprintEditorUtils::ConformDelegateSignatureGraphs(UBlueprint* Blueprint)
{
	if (Blueprint == nullptr)
	{
		return;
	}
	// A signature graph without its dispatcher variable goes.
	for (int32 Index = Blueprint->DelegateSignatureGraphs.Num() - 1; Index >= 0; --Index)
	{
		UEdGraph* Graph = Blueprint->DelegateSignatureGraphs[Index];
		const int32 Variable = Graph != nullptr ? FindNewVariableIndex(Blueprint, Graph->GetFName()) : INDEX_NONE;
		if (Variable == INDEX_NONE || Blueprint->NewVariables[Variable].VarType.PinCategory != UEdGraphSchema_K2::PC_MCDelegate)
		{
			Blueprint->Modify();
			Blueprint->DelegateSignatureGraphs.RemoveAt(Index);
		}
	}
}

UTimelineTemplate* FBlueprintEditorUtils::AddNewTimeline(UBlueprint* Blueprint, const FName& TimelineVarName)
{
	if (Blueprint == nullptr || TimelineVarName.IsNone() || Blueprint->FindTimelineTemplateByVariableName(TimelineVarName) != nullptr || !IsNameFree(Blueprint, TimelineVarName))
	{
		return nullptr;
	}
	Blueprint->Modify();
	UTimelineTemplate* Timeline = NewObject<UTimelineTemplate>(Blueprint, FName(*(TimelineVarName.ToString() + UTimelineTemplate::TemplatePostfix)), RF_Transactional);
	Timeline->TimelineGuid = FGuid::NewGuid();
	Blueprint->Timelines.Add(Timeline);
	MarkBlueprintAsStructurallyModified(Blueprint);
	return Timeline;
}

void FBlueprintEditorUtils::RemoveTimeline(UBlueprint* Blueprint, UTimelineTemplate* Timeline, bool bDontRecompile)
{
	if (Blueprint == nullptr || Timeline == nullptr)
	{
		return;
	}
	Blueprint->Modify();
	Blueprint->Timelines.Remove(Timeline);
	MarkBlueprintAsStructurallyModified(Blueprint);
}

UK2Node_Timeline* FBlueprintEditorUtils::FindNodeForTimeline(UBlueprint* Blueprint, UTimelineTemplate* Timeline)
{
	if (Timeline == nullptr)
	{
		return nullptr;
	}
	TArray<UK2Node_Timeline*> Nodes;
	GetAllNodesOfClass(Blueprint, Nodes);
	for (UK2Node_Timeline* Node : Nodes)
	{
		if (Node->TimelineName == Timeline->GetVariableName())
		{
			return Node;
		}
	}
	return nullptr;
}

int32 FBlueprintEditorUtils::FindTimelineIndex(const UBlueprint* Blueprint, const FName& InName)
{
	if (Blueprint == nullptr)
	{
		return INDEX_NONE;
	}
	for (int32 Index = 0; Index < Blueprint->Timelines.Num(); ++Index)
	{
		const UTimelineTemplate* Timeline = Blueprint->Timelines[Index];
		if (Timeline != nullptr && (Timeline->GetVariableName() == InName || Timeline->GetFName() == InName))
		{
			return Index;
		}
	}
	return INDEX_NONE;
}

FName FBlueprintEditorUtils::FindUniqueTimelineName(const UBlueprint* Blueprint)
{
	return FindUniqueKismetName(Blueprint, TEXT("Timeline"));
}

USCS_Node* FBlueprintEditorUtils::FindSCS_Node(const UBlueprint* Blueprint, const FName InName)
{
	return Blueprint != nullptr && Blueprint->SimpleConstructionScript != nullptr ? Blueprint->SimpleConstructionScript->FindSCSNode(InName) : nullptr;
}

void FBlueprintEditorUtils::RenameComponentMemberVariable(UBlueprint* Blueprint, USCS_Node* Node, const FName NewName)
{
	if (Blueprint == nullptr || Node == nullptr || NewName.IsNone() || !IsNameFree(Blueprint, NewName))
	{
		return;
	}
	Node->SetVariableName(NewName);
	MarkBlueprintAsStructurallyModified(Blueprint);
}

UBlueprint* FBlueprintEditorUtils::FindBlueprintForGraph(const UEdGraph* Graph)
{
	for (const UObject* Outer = Graph; Outer != nullptr; Outer = Outer->GetOuter())
	{
		if (const UBlueprint* Blueprint = Cast<UBlueprint>(Outer))
		{
			return const_cast<UBlueprint*>(Blueprint);
		}
	}
	return nullptr;
}

UBlueprint* FBlueprintEditorUtils::FindBlueprintForGraphChecked(const UEdGraph* Graph)
{
	UBlueprint* Blueprint = FindBlueprintForGraph(Graph);
	check(Blueprint != nullptr);
	return Blueprint;
}

UBlueprint* FBlueprintEditorUtils::FindBlueprintForNode(const UEdGraphNode* Node)
{
	return Node != nullptr ? FindBlueprintForGraph(Node->GetGraph()) : nullptr;
}

UBlueprint* FBlueprintEditorUtils::FindBlueprintForNodeChecked(const UEdGraphNode* Node)
{
	UBlueprint* Blueprint = FindBlueprintForNode(Node);
	check(Blueprint != nullptr);
	return Blueprint;
}

namespace
{
	UEdGraph* FindGraphNamed(const TArray<TObjectPtr<UEdGraph>>& Graphs, FName Name)
	{
		for (UEdGraph* Graph : Graphs)
		{
			if (Graph != nullptr && Graph->GetFName() == Name)
			{
				return Graph;
			}
		}
		return nullptr;
	}
}

UEdGraph* FBlueprintEditorUtils::FindEventGraph(const UBlueprint* Blueprint)
{
	return Blueprint != nullptr ? FindGraphNamed(Blueprint->UbergraphPages, UEdGraphSchema_K2::GN_EventGraph) : nullptr;
}

UEdGraph* FBlueprintEditorUtils::FindUserConstructionScript(const UBlueprint* Blueprint)
{
	return Blueprint != nullptr ? FindGraphNamed(Blueprint->FunctionGraphs, UEdGraphSchema_K2::FN_UserConstructionScript) : nullptr;
}

UEdGraph* FBlueprintEditorUtils::FindScopeGraph(const UBlueprint* InBlueprint, const UStruct* InScope)
{
	return InBlueprint != nullptr && InScope != nullptr ? FindGraphNamed(InBlueprint->FunctionGraphs, InScope->GetFName()) : nullptr;
}

UK2Node_Event* FBlueprintEditorUtils::FindOverrideForFunction(const UBlueprint* Blueprint, const UClass* SignatureClass, FName SignatureName)
{
	TArray<UK2Node_Event*> Events;
	GetAllNodesOfClass(Blueprint, Events);
	for (UK2Node_Event* Event : Events)
	{
		if (Event->bOverrideFunction && Event->EventReference.GetMemberName() == SignatureName)
		{
			const UClass* Parent = Event->EventReference.GetMemberParentClass();
			if (SignatureClass == nullptr || Parent == nullptr || SignatureClass->IsChildOf(Parent) || Parent->IsChildOf(SignatureClass))
			{
				return Event;
			}
		}
	}
	return nullptr;
}

UK2Node_FunctionResult* FBlueprintEditorUtils::FindOrCreateFunctionResultNode(UK2Node_EditablePinBase* InFunctionEntryNode)
{
	UK2Node_FunctionEntry* Entry = Cast<UK2Node_FunctionEntry>(InFunctionEntryNode);
	UEdGraph* Graph = Entry != nullptr ? Entry->GetGraph() : nullptr;
	if (Graph == nullptr)
	{
		return nullptr;
	}
	TArray<UK2Node_FunctionResult*> Results;
	Graph->GetNodesOfClass(Results);
	if (Results.Num() > 0)
	{
		return Results[0];
	}
	FGraphNodeCreator<UK2Node_FunctionResult> Creator(*Graph);
	UK2Node_FunctionResult* Result = Creator.CreateNode();
	Result->FunctionReference = Entry->FunctionReference;
	Result->NodePosX = Entry->NodePosX + 400;
	Result->NodePosY = Entry->NodePosY;
	Creator.Finalize();
	// The new result node follows on from the entry when nothing else does.
	UEdGraphPin* Then = Entry->FindPin(UEdGraphSchema_K2::PN_Then, EGPD_Output);
	UEdGraphPin* Execute = Result->FindPin(UEdGraphSchema_K2::PN_Execute, EGPD_Input);
	if (Then != nullptr && Execute != nullptr && Then->LinkedTo.Num() == 0)
	{
		Then->MakeLinkTo(Execute);
	}
	return Result;
}

FKismetUserDeclaredFunctionMetadata* FBlueprintEditorUtils::GetGraphFunctionMetaData(const UEdGraph* InGraph)
{
	if (InGraph == nullptr)
	{
		return nullptr;
	}
	for (UEdGraphNode* Node : InGraph->Nodes)
	{
		if (UK2Node_FunctionEntry* Entry = Cast<UK2Node_FunctionEntry>(Node))
		{
			return &Entry->MetaData;
		}
	}
	return nullptr;
}

void FBlueprintEditorUtils::GetAllGraphs(const UBlueprint* Blueprint, TArray<UEdGraph*>& Graphs)
{
	if (Blueprint != nullptr)
	{
		Blueprint->GetAllGraphs(Graphs);
	}
}

void FBlueprintEditorUtils::GetAllNodesOfClass(const UBlueprint* Blueprint, TSubclassOf<UEdGraphNode> NodeClass, TArray<UEdGraphNode*>& OutNodes)
{
	TArray<UEdGraph*> Graphs;
	GetAllGraphs(Blueprint, Graphs);
	for (const UEdGraph* Graph : Graphs)
	{
		for (UEdGraphNode* Node : Graph->Nodes)
		{
			if (Node != nullptr && (NodeClass == nullptr || Node->IsA(NodeClass.Get())))
			{
				OutNodes.Add(Node);
			}
		}
	}
}

bool FBlueprintEditorUtils::IsNameFree(const UBlueprint* Blueprint, const FName& Name)
{
	if (Blueprint == nullptr || Name.IsNone())
	{
		return false;
	}
	if (FindNewVariableIndex(Blueprint, Name) != INDEX_NONE || FindSCS_Node(Blueprint, Name) != nullptr || FindTimelineIndex(Blueprint, Name) != INDEX_NONE)
	{
		return false;
	}
	TArray<UEdGraph*> Graphs;
	Blueprint->GetAllGraphs(Graphs);
	for (const UEdGraph* Graph : Graphs)
	{
		if (Graph->GetFName() == Name)
		{
			return false;
		}
	}
	return true;
}

FName FBlueprintEditorUtils::FindUniqueKismetName(const UBlueprint* InBlueprint, const FString& InBaseName, UStruct* InScope)
{
	FName Name(*InBaseName);
	for (int32 Index = 0; !IsNameFree(InBlueprint, Name) && InBlueprint != nullptr; ++Index)
	{
		Name = FName(*FString::Printf(TEXT("%s_%d"), *InBaseName, Index));
	}
	return Name;
}

void FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(UBlueprint* Blueprint)
{
	if (Blueprint == nullptr)
	{
		return;
	}
	Blueprint->Status = BS_Dirty;
	Blueprint->MarkPackageDirty();
}

void FBlueprintEditorUtils::MarkBlueprintAsModified(UBlueprint* Blueprint)
{
	if (Blueprint == nullptr)
	{
		return;
	}
	Blueprint->Status = BS_Dirty;
	Blueprint->MarkPackageDirty();
}

void FBlueprintEditorUtils::MarkBlueprintAsModified(UBlueprint* Blueprint, FPropertyChangedEvent PropertyChangedEvent)
{
	MarkBlueprintAsModified(Blueprint);
}

bool FBlueprintEditorUtils::IsActorBased(const UBlueprint* Blueprint)
{
	return Blueprint != nullptr && Blueprint->ParentClass != nullptr && Blueprint->ParentClass->IsChildOf(AActor::StaticClass());
}

bool FBlueprintEditorUtils::IsAnimBlueprint(const UBlueprint* Blueprint)
{
	return Cast<UAnimBlueprint>(Blueprint) != nullptr;
}

bool FBlueprintEditorUtils::IsDataOnlyBlueprint(const UBlueprint* Blueprint)
{
	return Blueprint != nullptr && Blueprint->FunctionGraphs.Num() <= 1 && Blueprint->NewVariables.Num() == 0 && Blueprint->ImplementedInterfaces.Num() == 0 && Blueprint->DelegateSignatureGraphs.Num() == 0;
}

bool FBlueprintEditorUtils::SupportsConstructionScript(const UBlueprint* Blueprint)
{
	return IsActorBased(Blueprint);
}

UClass* FBlueprintEditorUtils::FindFirstNativeClass(UClass* Class)
{
	while (Class != nullptr && Class->HasAnyClassFlags(CLASS_CompiledFromBlueprint))
	{
		Class = Class->GetSuperClass();
	}
	return Class;
}
