#include "EdGraph/EdGraphNode.h"
#include "EdGraph/EdGraph.h"
#include "EdGraph/EdGraphSchema.h"
#include "Misc/OutputDevice.h"
#include "UObject/UObjectGlobals.h"
#include "PinText.h"

using namespace UE::Engine::Private;

DEFINE_LOG_CATEGORY_STATIC(LogEdGraph, Log, All);

UEdGraphNode::UEdGraphNode(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
	, bCanRenameNode(false)
	, bCommentBubblePinned(false)
	, bCommentBubbleVisible(false)
	, bCommentBubbleMakeVisible(false)
	, bHasCompilerMessage(false)
{
}

UEdGraphNode::~UEdGraphNode()
{
	DestroyAllPinsWithoutUnlinking();
	for (UEdGraphPin* Pin : PinPool)
	{
		delete Pin;
	}
}

FText UEdGraphNode::GetNodeTitle(ENodeTitleType::Type TitleType) const
{
	return FText::FromString(GetClass()->GetName());
}

FText UEdGraphNode::GetTooltipText() const
{
	return GetClass()->GetToolTipText();
}

void UEdGraphNode::AllocateDefaultPins()
{
}

void UEdGraphNode::ReconstructNode()
{
}

void UEdGraphNode::PostPlacedNewNode()
{
}

void UEdGraphNode::AutowireNewNode(UEdGraphPin* FromPin)
{
}

void UEdGraphNode::PinConnectionListChanged(UEdGraphPin* Pin)
{
}

void UEdGraphNode::NodeConnectionListChanged()
{
}

void UEdGraphNode::PinDefaultValueChanged(UEdGraphPin* Pin)
{
}

void UEdGraphNode::GetPinHoverText(const UEdGraphPin& Pin, FString& HoverTextOut) const
{
	HoverTextOut = Pin.PinToolTip;
}

void UEdGraphNode::DestroyNode()
{
	if (UEdGraph* Graph = GetGraph())
	{
		Graph->RemoveNode(this);
	}
	else
	{
		Modify();
		for (UEdGraphPin* Pin : Pins)
		{
			Pin->BreakAllPinLinks();
		}
	}
}

void UEdGraphNode::CreateNewGuid()
{
	NodeGuid = FGuid::NewGuid();
}

UEdGraphPin* UEdGraphNode::CreatePin(EEdGraphPinDirection Dir, const FName PinCategory, const FName PinSubCategory, UObject* PinSubCategoryObject, const FName PinName, const FCreatePinParams& PinParams)
{
	UEdGraphPin* Pin = UEdGraphPin::CreatePin(this);
	Pin->PinName = PinName;
	Pin->Direction = Dir;
	Pin->PinType.PinCategory = PinCategory;
	Pin->PinType.PinSubCategory = PinSubCategory;
	Pin->PinType.PinSubCategoryObject = PinSubCategoryObject;
	Pin->PinType.ContainerType = PinParams.ContainerType;
	Pin->PinType.bIsReference = PinParams.bIsReference;
	Pin->PinType.bIsConst = PinParams.bIsConst;
	Pin->PinType.PinValueType = PinParams.ValueTerminalType;
	Modify(false);
	if (PinParams.Index != INDEX_NONE && PinParams.Index <= Pins.Num())
	{
		Pins.Insert(Pin, PinParams.Index);
	}
	else
	{
		Pins.Add(Pin);
	}
	return Pin;
}

UEdGraphPin* UEdGraphNode::CreatePin(EEdGraphPinDirection Dir, const FEdGraphPinType& InPinType, const FName PinName, int32 Index)
{
	FCreatePinParams Params(InPinType);
	Params.Index = Index;
	UEdGraphPin* Pin = CreatePin(Dir, InPinType.PinCategory, InPinType.PinSubCategory, InPinType.PinSubCategoryObject.Get(), PinName, Params);
	Pin->PinType = InPinType;
	return Pin;
}

bool UEdGraphNode::RemovePin(UEdGraphPin* Pin)
{
	if (Pin == nullptr || !Pins.Contains(Pin))
	{
		return false;
	}
	Modify();
	Pin->BreakAllPinLinks();
	Pins.Remove(Pin);
	delete Pin;
	return true;
}

void UEdGraphNode::DestroyAllPinsWithoutUnlinking()
{
	for (UEdGraphPin* Pin : Pins)
	{
		delete Pin;
	}
	Pins.Reset();
	PendingLinks.Reset();
}

UEdGraphPin* UEdGraphNode::FindPin(const FName PinName, const EEdGraphPinDirection Direction) const
{
	for (UEdGraphPin* Pin : Pins)
	{
		if ((Direction == EGPD_MAX || Direction == Pin->Direction) && Pin->PinName == PinName)
		{
			return Pin;
		}
	}
	return nullptr;
}

UEdGraphPin* UEdGraphNode::FindPinChecked(const FName PinName, const EEdGraphPinDirection Direction) const
{
	UEdGraphPin* Pin = FindPin(PinName, Direction);
	checkf(Pin != nullptr, TEXT("Node %s has no pin %s"), *GetName(), *PinName.ToString());
	return Pin;
}

UEdGraphPin* UEdGraphNode::FindPinById(const FGuid PinId) const
{
	for (UEdGraphPin* Pin : Pins)
	{
		if (Pin->PinId == PinId)
		{
			return Pin;
		}
	}
	return nullptr;
}

UEdGraph* UEdGraphNode::GetGraph() const
{
	return Cast<UEdGraph>(GetOuter());
}

const UEdGraphSchema* UEdGraphNode::GetSchema() const
{
	const UEdGraph* Graph = GetGraph();
	return Graph != nullptr ? Graph->GetSchema() : nullptr;
}

namespace
{
	const TCHAR* const PinKeyword = TEXT("Pin ");

	void AppendFlag(FString& Text, const TCHAR* Name, bool bValue, bool bDefault)
	{
		if (bValue != bDefault)
		{
			Text += FString::Printf(TEXT("%s=%s,"), Name, bValue ? TEXT("True") : TEXT("False"));
		}
	}

	bool ReadBool(const FString& Value)
	{
		return Value.Equals(TEXT("True"), ESearchCase::IgnoreCase) || Value == TEXT("1");
	}
}

FString UEdGraphPin::ExportTextToString() const
{
	FString Text = TEXT("(");
	Text += FString::Printf(TEXT("PinId=%s,PinName=%s,"), *PinId.ToString(), *PinText::Quote(PinName.ToString()));
	if (!PinFriendlyName.IsEmpty())
	{
		Text += TEXT("PinFriendlyName=") + PinText::Quote(PinFriendlyName.ToString()) + TEXT(",");
	}
	if (!PinToolTip.IsEmpty())
	{
		Text += TEXT("PinToolTip=") + PinText::Quote(PinToolTip) + TEXT(",");
	}
	if (Direction == EGPD_Output)
	{
		Text += TEXT("Direction=\"EGPD_Output\",");
	}
	static const FEdGraphPinType DefaultType;
	FString TypeText;
	FEdGraphPinType::StaticStruct()->ExportText(TypeText, &PinType, &DefaultType, nullptr, PPF_Delimited, nullptr);
	if (!TypeText.IsEmpty() && TypeText != TEXT("()"))
	{
		Text += TEXT("PinType=") + TypeText + TEXT(",");
	}
	if (!DefaultValue.IsEmpty())
	{
		Text += TEXT("DefaultValue=") + PinText::Quote(DefaultValue) + TEXT(",");
	}
	if (!AutogeneratedDefaultValue.IsEmpty())
	{
		Text += TEXT("AutogeneratedDefaultValue=") + PinText::Quote(AutogeneratedDefaultValue) + TEXT(",");
	}
	if (DefaultObject != nullptr)
	{
		Text += TEXT("DefaultObject=") + PinText::Quote(DefaultObject->GetPathName()) + TEXT(",");
	}
	if (!DefaultTextValue.IsEmpty())
	{
		Text += TEXT("DefaultTextValue=") + PinText::Quote(DefaultTextValue.ToString()) + TEXT(",");
	}
	if (LinkedTo.Num() > 0)
	{
		Text += TEXT("LinkedTo=(");
		for (const UEdGraphPin* Other : LinkedTo)
		{
			if (Other->GetOwningNode() != nullptr)
			{
				Text += FString::Printf(TEXT("%s %s,"), *Other->GetOwningNode()->GetName(), *Other->PinId.ToString());
			}
		}
		Text += TEXT("),");
	}
	AppendFlag(Text, TEXT("bHidden"), bHidden, false);
	AppendFlag(Text, TEXT("bNotConnectable"), bNotConnectable, false);
	AppendFlag(Text, TEXT("bDefaultValueIsReadOnly"), bDefaultValueIsReadOnly, false);
	AppendFlag(Text, TEXT("bDefaultValueIsIgnored"), bDefaultValueIsIgnored, false);
	AppendFlag(Text, TEXT("bAdvancedView"), bAdvancedView, false);
	AppendFlag(Text, TEXT("bOrphanedPin"), bOrphanedPin, false);
	Text += TEXT(")");
	return Text;
}

void UEdGraphNode::ExportCustomProperties(FOutputDevice& Out, uint32 Indent)
{
	Super::ExportCustomProperties(Out, Indent);
	for (const UEdGraphPin* Pin : Pins)
	{
		Out.Log(FString(PinKeyword) + Pin->ExportTextToString() + TEXT("\n"));
	}
}

void UEdGraphNode::ImportCustomProperties(const TCHAR* SourceText, FFeedbackContext* Warn)
{
	const FString Line(SourceText);
	if (!Line.StartsWith(PinKeyword))
	{
		Super::ImportCustomProperties(SourceText, Warn);
		return;
	}
	TArray<TPair<FString, FString>> Items;
	if (!PinText::SplitList(Line.Mid(FCString::Strlen(PinKeyword)), Items))
	{
		UE_LOG(LogEdGraph, Warning, TEXT("%s: a pin line that doesn't read: %s"), *GetPathName(), *Line);
		return;
	}
	UEdGraphPin* Pin = UEdGraphPin::CreatePin(this);
	TArray<TPair<FName, FGuid>> ReadLinks;
	for (const TPair<FString, FString>& Item : Items)
	{
		const FString& Key = Item.Key;
		const FString& Value = Item.Value;
		if (Key == TEXT("PinId"))
		{
			FGuid::Parse(Value, Pin->PinId);
		}
		else if (Key == TEXT("PinName"))
		{
			Pin->PinName = FName(*Value);
		}
		else if (Key == TEXT("PinFriendlyName"))
		{
			Pin->PinFriendlyName = FText::FromString(Value);
		}
		else if (Key == TEXT("PinToolTip"))
		{
			Pin->PinToolTip = Value;
		}
		else if (Key == TEXT("Direction"))
		{
			Pin->Direction = Value == TEXT("EGPD_Output") ? EGPD_Output : EGPD_Input;
		}
		else if (Key == TEXT("PinType"))
		{
			FEdGraphPinType::StaticStruct()->ImportText(*Value, &Pin->PinType, this, PPF_Delimited, nullptr, TEXT("EdGraphPinType"));
		}
		else if (Key == TEXT("DefaultValue"))
		{
			Pin->DefaultValue = Value;
		}
		else if (Key == TEXT("AutogeneratedDefaultValue"))
		{
			Pin->AutogeneratedDefaultValue = Value;
		}
		else if (Key == TEXT("DefaultObject"))
		{
			Pin->DefaultObject = StaticFindObject(UObject::StaticClass(), nullptr, *Value);
			if (Pin->DefaultObject == nullptr)
			{
				Pin->DefaultObject = StaticLoadObject(UObject::StaticClass(), nullptr, *Value, nullptr, LOAD_Quiet | LOAD_NoWarn);
			}
		}
		else if (Key == TEXT("DefaultTextValue"))
		{
			Pin->DefaultTextValue = FText::FromString(Value);
		}
		else if (Key == TEXT("LinkedTo"))
		{
			TArray<FString> Links;
			PinText::SplitValues(Value, Links);
			for (const FString& Link : Links)
			{
				FString NodeName;
				FString PinIdText;
				FGuid LinkedPinId;
				if (Link.Split(TEXT(" "), &NodeName, &PinIdText) && FGuid::Parse(PinIdText, LinkedPinId))
				{
					ReadLinks.Emplace(FName(*NodeName), LinkedPinId);
				}
			}
		}
		else if (Key == TEXT("bHidden"))
		{
			Pin->bHidden = ReadBool(Value);
		}
		else if (Key == TEXT("bNotConnectable"))
		{
			Pin->bNotConnectable = ReadBool(Value);
		}
		else if (Key == TEXT("bDefaultValueIsReadOnly"))
		{
			Pin->bDefaultValueIsReadOnly = ReadBool(Value);
		}
		else if (Key == TEXT("bDefaultValueIsIgnored"))
		{
			Pin->bDefaultValueIsIgnored = ReadBool(Value);
		}
		else if (Key == TEXT("bAdvancedView"))
		{
			Pin->bAdvancedView = ReadBool(Value);
		}
		else if (Key == TEXT("bOrphanedPin"))
		{
			Pin->bOrphanedPin = ReadBool(Value);
		}
	}
	const int32 PooledIndex = PinPool.IndexOfByPredicate([Pin](const UEdGraphPin* Pooled) { return Pooled->PinId == Pin->PinId; });
	if (PooledIndex != INDEX_NONE)
	{
		UEdGraphPin* Pooled = PinPool[PooledIndex];
		PinPool.RemoveAtSwap(PooledIndex);
		Pooled->AssignValuesFrom(*Pin);
		delete Pin;
		Pin = Pooled;
	}
	for (const TPair<FName, FGuid>& Link : ReadLinks)
	{
		PendingLinks.Add({Pin, Link.Key, Link.Value});
	}
	Pins.Add(Pin);
}

void UEdGraphNode::ResetCustomProperties()
{
	PinPool.Append(Pins);
	Pins.Reset();
	PendingLinks.Reset();
}

void UEdGraphNode::ResolvePendingLinks()
{
	for (const FPendingLink& Link : PendingLinks)
	{
		UEdGraphNode* OtherNode = Cast<UEdGraphNode>(StaticFindObjectFast(nullptr, GetOuter(), Link.NodeName));
		UEdGraphPin* OtherPin = OtherNode != nullptr ? OtherNode->FindPinById(Link.PinId) : nullptr;
		if (OtherPin == nullptr)
		{
			UE_LOG(LogEdGraph, Warning, TEXT("%s: pin %s links to a pin that isn't there (%s %s); the link is dropped"), *GetPathName(), *Link.Pin->PinName.ToString(), *Link.NodeName.ToString(), *Link.PinId.ToString());
			continue;
		}
		// Links are kept both ways; a half written on one side only is completed rather than left dangling.
		Link.Pin->LinkedTo.AddUnique(OtherPin);
		OtherPin->LinkedTo.AddUnique(Link.Pin);
	}
	PendingLinks.Reset();
}

void UEdGraphNode::PostLoad()
{
	Super::PostLoad();
	ResolvePendingLinks();
}

void UEdGraphNode::PostEditUndo()
{
	Super::PostEditUndo();
	ResolvePendingLinks();
	// Pins the restored state doesn't have: every node that linked to them was restored with this one.
	for (UEdGraphPin* Pin : PinPool)
	{
		delete Pin;
	}
	PinPool.Reset();
}

void UEdGraphNode::BeginDestroy()
{
	// Pins of a node being destroyed must not stay in the link lists of nodes that live on.
	for (UEdGraphPin* Pin : Pins)
	{
		for (UEdGraphPin* Other : Pin->LinkedTo)
		{
			if (Other->GetOwningNode() != nullptr && !Other->GetOwningNode()->HasAnyFlags(RF_BeginDestroyed))
			{
				Other->LinkedTo.Remove(Pin);
			}
		}
		Pin->LinkedTo.Reset();
	}
	Super::BeginDestroy();
}

void UEdGraphNode::AddReferencedObjects(UObject* InThis, FReferenceCollector& Collector)
{
	UEdGraphNode* This = static_cast<UEdGraphNode*>(InThis);
	for (UEdGraphPin* Pin : This->Pins)
	{
		Collector.AddReferencedObject(Pin->DefaultObject, This);
	}
	Super::AddReferencedObjects(InThis, Collector);
}
