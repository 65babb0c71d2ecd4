#include "K2Node.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "Kismet2/CompilerResultsLog.h"
#include "BlueprintGraphPrivate.h"

UK2Node::UK2Node(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
{
}

UBlueprint* UK2Node::GetBlueprint() const
{
	return BlueprintGraph::Private::FindBlueprint(this);
}

UClass* UK2Node::GetBlueprintClassFromNode() const
{
	return BlueprintGraph::Private::GetSelfClassForNode(this);
}

void UK2Node::ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const
{
	const UEdGraphSchema_K2* Schema = GetDefault<UEdGraphSchema_K2>();
	const UClass* SelfClass = GetBlueprintClassFromNode();
	for (const UEdGraphPin* Pin : Pins)
	{
		if (Pin->Direction != EGPD_Output)
		{
			continue;
		}
		// Each link is checked once, from its output side.
		for (const UEdGraphPin* Other : Pin->LinkedTo)
		{
			if (!Schema->ArePinTypesCompatible(Pin->PinType, Other->PinType, SelfClass))
			{
				MessageLog.Error(*FString::Printf(TEXT("The type of %s (%s) is not compatible with %s (%s) on %s in @@"), *Pin->PinName.ToString(), *UEdGraphSchema_K2::TypeToText(Pin->PinType).ToString(), *Other->PinName.ToString(), *UEdGraphSchema_K2::TypeToText(Other->PinType).ToString(), Other->GetOwningNode() != nullptr ? *Other->GetOwningNode()->GetNodeTitle(ENodeTitleType::ListView).ToString() : TEXT("nothing")), this);
			}
			else if (Other->Direction == Pin->Direction)
			{
				MessageLog.Error(*FString::Printf(TEXT("%s links two outputs in @@"), *Pin->PinName.ToString()), this);
			}
		}
	}
}

UEdGraphPin* UK2Node::GetExecPin() const
{
	UEdGraphPin* Pin = FindPin(UEdGraphSchema_K2::PN_Execute, EGPD_Input);
	return Pin != nullptr && Pin->PinType.PinCategory == UEdGraphSchema_K2::PC_Exec ? Pin : nullptr;
}

UEdGraphPin* UK2Node::GetThenPin() const
{
	UEdGraphPin* Pin = FindPin(UEdGraphSchema_K2::PN_Then, EGPD_Output);
	return Pin != nullptr && Pin->PinType.PinCategory == UEdGraphSchema_K2::PC_Exec ? Pin : nullptr;
}

void UK2Node::ReconstructNode()
{
	Modify();
	TArray<UEdGraphPin*> OldPins = MoveTemp(Pins);
	Pins.Reset();
	AllocateDefaultPins();
	ReallocatePinsDuringReconstruction(OldPins);
	for (UEdGraphPin* OldPin : OldPins)
	{
		// Links that no new pin took over are broken on the far side.
		for (UEdGraphPin* Other : OldPin->LinkedTo)
		{
			if (Other->GetOwningNode() != nullptr)
			{
				Other->GetOwningNode()->Modify();
			}
			Other->LinkedTo.Remove(OldPin);
		}
		delete OldPin;
	}
}

void UK2Node::ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins)
{
	for (UEdGraphPin* NewPin : Pins)
	{
		for (UEdGraphPin*& OldPin : OldPins)
		{
			if (OldPin != nullptr && OldPin->PinName == NewPin->PinName && OldPin->Direction == NewPin->Direction)
			{
				for (UEdGraphPin* Other : OldPin->LinkedTo)
				{
					if (Other->GetOwningNode() != nullptr)
					{
						Other->GetOwningNode()->Modify();
					}
				}
				NewPin->CopyPersistentDataFromOldPin(*OldPin);
				OldPin->LinkedTo.Reset();
				break;
			}
		}
	}
}

void UK2Node::PinConnectionListChanged(UEdGraphPin* Pin)
{
	Super::PinConnectionListChanged(Pin);
}
