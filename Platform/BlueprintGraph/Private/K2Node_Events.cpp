#include "K2Node_Event.h"
#include "K2Node_CustomEvent.h"
#include "EdGraphSchema_K2.h"
#include "EdGraph/EdGraph.h"
#include "Engine/Blueprint.h"
#include "Kismet2/CompilerResultsLog.h"
#include "UObject/UnrealType.h"
#include "BlueprintGraphPrivate.h"

const FName UK2Node_Event::DelegateOutputName(TEXT("OutputDelegate"));

UK2Node_Event::UK2Node_Event(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
	, bOverrideFunction(false)
	, bInternalEvent(false)
{
}

FName UK2Node_Event::GetFunctionName() const
{
	return bOverrideFunction ? EventReference.GetMemberName() : CustomFunctionName;
}

UFunction* UK2Node_Event::FindEventSignatureFunction() const
{
	return EventReference.GetMemberName().IsNone() ? nullptr : EventReference.ResolveMemberFunction(GetBlueprintClassFromNode());
}

void UK2Node_Event::AllocateDefaultPins()
{
	CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Delegate, DelegateOutputName);
	CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Exec, UEdGraphSchema_K2::PN_Then);
	if (const UFunction* Signature = FindEventSignatureFunction())
	{
		const UEdGraphSchema_K2* Schema = GetDefault<UEdGraphSchema_K2>();
		for (FProperty* Param = CastField<FProperty>(Signature->ChildProperties); Param != nullptr; Param = CastField<FProperty>(Param->Next))
		{
			FEdGraphPinType Type;
			if (!Param->HasAnyPropertyFlags(CPF_ReturnParm) && Schema->ConvertPropertyToPinType(Param, Type))
			{
				CreatePin(EGPD_Output, Type, Param->GetFName());
			}
		}
	}
	Super::AllocateDefaultPins();
}

FText UK2Node_Event::GetNodeTitle(ENodeTitleType::Type TitleType) const
{
	if (const UFunction* Signature = FindEventSignatureFunction())
	{
		return FText::FromString(TEXT("Event ") + Signature->GetDisplayNameText().ToString());
	}
	return FText::FromString(TEXT("Event ") + FName::NameToDisplayString(GetFunctionName().ToString(), false));
}

FText UK2Node_Event::GetTooltipText() const
{
	const UFunction* Signature = FindEventSignatureFunction();
	return Signature != nullptr ? Signature->GetToolTipText() : FText::FromName(GetFunctionName());
}

void UK2Node_Event::ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const
{
	Super::ValidateNodeDuringCompilation(MessageLog);
	if (bOverrideFunction && FindEventSignatureFunction() == nullptr)
	{
		MessageLog.Error(*FString::Printf(TEXT("Cannot override '%s' at @@: no parent class has such an event"), *EventReference.GetMemberName().ToString()), this);
	}
}

UK2Node_CustomEvent::UK2Node_CustomEvent(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
{
}

UK2Node_CustomEvent* UK2Node_CustomEvent::CreateFromFunction(FVector2D GraphPosition, UEdGraph* ParentGraph, const FString& Name, const UFunction* Function, bool bSelectNewNode)
{
	if (ParentGraph == nullptr)
	{
		return nullptr;
	}
	UK2Node_CustomEvent* Node = NewObject<UK2Node_CustomEvent>(ParentGraph, NAME_None, RF_Transactional);
	Node->CustomFunctionName = FName(*Name);
	if (Function != nullptr)
	{
		const UEdGraphSchema_K2* Schema = GetDefault<UEdGraphSchema_K2>();
		for (FProperty* Param = CastField<FProperty>(Function->ChildProperties); Param != nullptr; Param = CastField<FProperty>(Param->Next))
		{
			FEdGraphPinType Type;
			if (!Param->HasAnyPropertyFlags(CPF_ReturnParm) && Schema->ConvertPropertyToPinType(Param, Type))
			{
				TSharedPtr<FUserPinInfo> Info = MakeShared<FUserPinInfo>();
				Info->PinName = Param->GetFName();
				Info->PinType = Type;
				Info->DesiredPinDirection = EGPD_Output;
				Node->UserDefinedPins.Add(Info);
			}
		}
	}
	BlueprintGraph::Private::PlaceNewNode(*ParentGraph, *Node, GraphPosition);
	return Node;
}

void UK2Node_CustomEvent::RenameCustomEventCloseToName(int32 StartIndex)
{
	const FString Base = CustomFunctionName.ToString();
	const UEdGraph* Graph = GetGraph();
	for (int32 Index = StartIndex;; ++Index)
	{
		const FName Candidate(*FString::Printf(TEXT("%s_%d"), *Base, Index));
		bool bTaken = false;
		if (Graph != nullptr)
		{
			for (const UEdGraphNode* Node : Graph->Nodes)
			{
				const UK2Node_Event* Event = Cast<UK2Node_Event>(Node);
				bTaken |= Event != nullptr && Event != this && Event->GetFunctionName() == Candidate;
			}
		}
		if (!bTaken)
		{
			OnRenameNode(Candidate.ToString());
			return;
		}
	}
}

void UK2Node_CustomEvent::OnRenameNode(const FString& NewName)
{
	Modify();
	CustomFunctionName = FName(*NewName);
}

void UK2Node_CustomEvent::AllocateDefaultPins()
{
	CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Delegate, DelegateOutputName);
	CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Exec, UEdGraphSchema_K2::PN_Then);
	UK2Node_EditablePinBase::AllocateDefaultPins();
}

FText UK2Node_CustomEvent::GetNodeTitle(ENodeTitleType::Type TitleType) const
{
	if (TitleType == ENodeTitleType::FullTitle)
	{
		return FText::FromString(CustomFunctionName.ToString() + TEXT("\nCustom Event"));
	}
	return FText::FromName(CustomFunctionName);
}

bool UK2Node_CustomEvent::CanCreateUserDefinedPin(const FEdGraphPinType& InPinType, EEdGraphPinDirection InDesiredDirection, FText& OutErrorMessage)
{
	if (InDesiredDirection == EGPD_Input)
	{
		OutErrorMessage = FText::FromString(TEXT("Add Pin: Cannot add input pins to an event"));
		return false;
	}
	return true;
}
