#include "EdGraph/EdGraphSchema.h"
#include "EdGraph/EdGraph.h"

UEdGraphSchema::UEdGraphSchema(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
{
}

const FPinConnectionResponse UEdGraphSchema::CanCreateConnection(const UEdGraphPin* A, const UEdGraphPin* B) const
{
	if (A == nullptr || B == nullptr || A->GetOwningNode() == B->GetOwningNode())
	{
		return FPinConnectionResponse(CONNECT_RESPONSE_DISALLOW, TEXT("Both are on the same node"));
	}
	if (A->Direction == B->Direction)
	{
		return FPinConnectionResponse(CONNECT_RESPONSE_DISALLOW, TEXT("Directions are not compatible"));
	}
	return FPinConnectionResponse(CONNECT_RESPONSE_MAKE, TEXT(""));
}

bool UEdGraphSchema::TryCreateConnection(UEdGraphPin* A, UEdGraphPin* B) const
{
	const FPinConnectionResponse Response = CanCreateConnection(A, B);
	switch (Response.Response)
	{
	case CONNECT_RESPONSE_MAKE:
		break;
	case CONNECT_RESPONSE_BREAK_OTHERS_A:
		A->BreakAllPinLinks(true);
		break;
	case CONNECT_RESPONSE_BREAK_OTHERS_B:
		B->BreakAllPinLinks(true);
		break;
	case CONNECT_RESPONSE_BREAK_OTHERS_AB:
		A->BreakAllPinLinks(true);
		B->BreakAllPinLinks(true);
		break;
	default:
		return false;
	}
	A->MakeLinkTo(B);
	A->GetOwningNode()->PinConnectionListChanged(A);
	B->GetOwningNode()->PinConnectionListChanged(B);
	if (UEdGraph* Graph = A->GetOwningNode()->GetGraph())
	{
		Graph->NotifyGraphChanged();
	}
	return true;
}

void UEdGraphSchema::BreakNodeLinks(UEdGraphNode& TargetNode) const
{
	for (UEdGraphPin* Pin : TargetNode.Pins)
	{
		Pin->BreakAllPinLinks(true);
	}
}

void UEdGraphSchema::BreakPinLinks(UEdGraphPin& TargetPin, bool bSendsNodeNotifcation) const
{
	TargetPin.BreakAllPinLinks(bSendsNodeNotifcation);
}

void UEdGraphSchema::BreakSinglePinLink(UEdGraphPin* SourcePin, UEdGraphPin* DestinationPin) const
{
	if (SourcePin != nullptr)
	{
		SourcePin->BreakLinkTo(DestinationPin);
	}
}

void UEdGraphSchema::CreateDefaultNodesForGraph(UEdGraph& Graph) const
{
}

FText UEdGraphSchema::GetPinDisplayName(const UEdGraphPin* Pin) const
{
	return FText::FromName(Pin->PinName);
}

void UEdGraphSchema::TrySetDefaultValue(UEdGraphPin& Pin, const FString& NewDefaultValue, bool bMarkAsModified) const
{
	if (UEdGraphNode* Node = Pin.GetOwningNode())
	{
		Node->Modify(bMarkAsModified);
	}
	Pin.DefaultValue = NewDefaultValue;
	if (UEdGraphNode* Node = Pin.GetOwningNode())
	{
		Node->PinDefaultValueChanged(&Pin);
	}
}

void UEdGraphSchema::TrySetDefaultObject(UEdGraphPin& Pin, UObject* NewDefaultObject, bool bMarkAsModified) const
{
	if (UEdGraphNode* Node = Pin.GetOwningNode())
	{
		Node->Modify(bMarkAsModified);
	}
	Pin.DefaultObject = NewDefaultObject;
}

void UEdGraphSchema::TrySetDefaultText(UEdGraphPin& InPin, const FText& InNewDefaultText, bool bMarkAsModified) const
{
	if (UEdGraphNode* Node = InPin.GetOwningNode())
	{
		Node->Modify(bMarkAsModified);
	}
	InPin.DefaultTextValue = InNewDefaultText;
}
