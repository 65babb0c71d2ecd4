// UEdGraphNode: a node of an editor graph, with its pins, position, comment and id.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/Object.h"
#include "Math/Vector2D.h"
#include "Templates/Casts.h"
#include "EdGraph/EdGraphPin.h"
#include "EdGraphNode.generated.h"

class UEdGraph;
class UEdGraphSchema;

/** Which form of a node's title is asked for. */
namespace ENodeTitleType
{
	enum Type
	{
		// The title the graph draws; may hold a second line.
		FullTitle,
		// The short form for lists.
		ListView,
		// The text a rename starts from.
		EditableTitle,
		// The form in the context menu.
		MenuTitle,
		MAX_TitleTypes,
	};
}

/** How a new pin is made beyond its direction, category and name. */
struct FCreatePinParams
{
	FCreatePinParams() = default;
	FCreatePinParams(const FEdGraphPinType& PinType)
		: ContainerType(PinType.ContainerType)
		, bIsReference(PinType.bIsReference)
		, bIsConst(PinType.bIsConst)
		, ValueTerminalType(PinType.PinValueType)
	{
	}

	EPinContainerType ContainerType = EPinContainerType::None;
	bool bIsReference = false;
	bool bIsConst = false;
	int32 Index = INDEX_NONE;
	FEdGraphTerminalType ValueTerminalType;
};

UCLASS()
class ENGINE_API UEdGraphNode : public UObject
{
	GENERATED_BODY()

public:
	UEdGraphNode(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());
	virtual ~UEdGraphNode();

	// The node's pins, owned by it. Not reflected: the node writes them itself (see ExportCustomProperties).
	TArray<UEdGraphPin*> Pins;

	UPROPERTY()
	int32 NodePosX = 0;

	UPROPERTY()
	int32 NodePosY = 0;

	UPROPERTY()
	int32 NodeWidth = 0;

	UPROPERTY()
	int32 NodeHeight = 0;

	UPROPERTY()
	uint8 bCanRenameNode : 1;

	UPROPERTY()
	uint8 bCommentBubblePinned : 1;

	UPROPERTY()
	uint8 bCommentBubbleVisible : 1;

	UPROPERTY()
	uint8 bCommentBubbleMakeVisible : 1;

	UPROPERTY()
	FString NodeComment;

	UPROPERTY()
	FGuid NodeGuid;

	UPROPERTY()
	FString ErrorMsg;

	UPROPERTY()
	uint8 bHasCompilerMessage : 1;

	UPROPERTY()
	int32 ErrorType = 0;

	// The title of the node, in the form asked for.
	virtual FText GetNodeTitle(ENodeTitleType::Type TitleType) const;
	virtual FText GetTooltipText() const;

	// Makes the pins a new node has.
	virtual void AllocateDefaultPins();
	// Rebuilds the pins from the node's settings, keeping the links and defaults of pins that stay.
	virtual void ReconstructNode();
	// Once, when a brand-new node is placed (before its default pins are made).
	virtual void PostPlacedNewNode();
	// After a node was pasted or otherwise placed, links it to FromPin when it fits.
	virtual void AutowireNewNode(UEdGraphPin* FromPin);
	// Called when a pin's links changed.
	virtual void PinConnectionListChanged(UEdGraphPin* Pin);
	virtual void NodeConnectionListChanged();
	virtual void PinDefaultValueChanged(UEdGraphPin* Pin);
	virtual void GetPinHoverText(const UEdGraphPin& Pin, FString& HoverTextOut) const;
	virtual bool CanUserDeleteNode() const
	{
		return true;
	}
	virtual bool CanDuplicateNode() const
	{
		return true;
	}
	// Breaks every link and takes the node out of its graph.
	virtual void DestroyNode();

	void CreateNewGuid();

	UEdGraphPin* CreatePin(EEdGraphPinDirection Dir, const FName PinCategory, const FName PinSubCategory, UObject* PinSubCategoryObject, const FName PinName, const FCreatePinParams& PinParams = FCreatePinParams());
	UEdGraphPin* CreatePin(EEdGraphPinDirection Dir, const FName PinCategory, const FName PinName, const FCreatePinParams& PinParams = FCreatePinParams())
	{
		return CreatePin(Dir, PinCategory, NAME_None, nullptr, PinName, PinParams);
	}
	UEdGraphPin* CreatePin(EEdGraphPinDirection Dir, const FName PinCategory, const FName PinSubCategory, const FName PinName, const FCreatePinParams& PinParams = FCreatePinParams())
	{
		return CreatePin(Dir, PinCategory, PinSubCategory, nullptr, PinName, PinParams);
	}
	UEdGraphPin* CreatePin(EEdGraphPinDirection Dir, UObject* PinSubCategoryObject, const FName PinCategory, const FName PinName, const FCreatePinParams& PinParams = FCreatePinParams())
	{
		return CreatePin(Dir, PinCategory, NAME_None, PinSubCategoryObject, PinName, PinParams);
	}
	UEdGraphPin* CreatePin(EEdGraphPinDirection Dir, const FEdGraphPinType& InPinType, const FName PinName, int32 Index = INDEX_NONE);

	// Breaks the pin's links, takes it off the node and frees it.
	bool RemovePin(UEdGraphPin* Pin);
	// Frees every pin without touching the pins they link to (for a rebuild or a reload).
	void DestroyAllPinsWithoutUnlinking();

	// The pin of that name (case ignored) and direction (EGPD_MAX for either), or null.
	UEdGraphPin* FindPin(const FName PinName, const EEdGraphPinDirection Direction = EGPD_MAX) const;
	UEdGraphPin* FindPin(const FString& PinName, const EEdGraphPinDirection Direction = EGPD_MAX) const
	{
		return FindPin(FName(*PinName), Direction);
	}
	UEdGraphPin* FindPin(const TCHAR* PinName, const EEdGraphPinDirection Direction = EGPD_MAX) const
	{
		return FindPin(FName(PinName), Direction);
	}
	UEdGraphPin* FindPinChecked(const FName PinName, const EEdGraphPinDirection Direction = EGPD_MAX) const;
	UEdGraphPin* FindPinChecked(const FString& PinName, const EEdGraphPinDirection Direction = EGPD_MAX) const
	{
		return FindPinChecked(FName(*PinName), Direction);
	}
	UEdGraphPin* FindPinChecked(const TCHAR* PinName, const EEdGraphPinDirection Direction = EGPD_MAX) const
	{
		return FindPinChecked(FName(PinName), Direction);
	}
	UEdGraphPin* FindPinById(const FGuid PinId) const;
	UEdGraphPin* GetPinAt(int32 Index) const
	{
		return Pins.IsValidIndex(Index) ? Pins[Index] : nullptr;
	}
	int32 GetPinIndex(UEdGraphPin* Pin) const
	{
		return Pins.Find(Pin);
	}
	const TArray<UEdGraphPin*>& GetAllPins()
	{
		return Pins;
	}

	UEdGraph* GetGraph() const;
	const UEdGraphSchema* GetSchema() const;
	FVector2D GetPosition() const
	{
		return FVector2D(NodePosX, NodePosY);
	}

	// Pins are written as "CustomProperties Pin (...)" lines, links by node name and pin id.
	virtual void ExportCustomProperties(FOutputDevice& Out, uint32 Indent) override;
	virtual void ImportCustomProperties(const TCHAR* SourceText, FFeedbackContext* Warn) override;
	virtual void ResetCustomProperties() override;
	virtual void PostLoad() override;
	virtual void PostEditUndo() override;
	virtual void BeginDestroy() override;
	// Pins hold object references (default objects, subcategory objects) that the collector must see.
	static void AddReferencedObjects(UObject* InThis, FReferenceCollector& Collector);

	// Links read from text name their far pin by node and id; this finds those pins once the nodes exist.
	void ResolvePendingLinks();

private:
	struct FPendingLink
	{
		UEdGraphPin* Pin;
		FName NodeName;
		FGuid PinId;
	};
	TArray<FPendingLink> PendingLinks;
	// Pins taken off by ResetCustomProperties: a pin read back with the same id is the same pin again, so
	// that nodes outside an undo keep valid links to it. Those not read back are freed after the undo.
	TArray<UEdGraphPin*> PinPool;
};
