// UEdGraphPin and its type: the connection points of graph nodes. Pins are not objects: their node owns them.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/Object.h"
#include "UObject/WeakObjectPtrTemplates.h"
#include "Containers/EnumAsByte.h"
#include "Misc/Guid.h"
#include "EdGraphPin.generated.h"

class UEdGraphNode;
class UEdGraphSchema;

/** Which way a pin points on its node. */
UENUM()
enum EEdGraphPinDirection : int
{
	EGPD_Input,
	EGPD_Output,
	EGPD_MAX,
};

/** The container a pin's value is held in. */
UENUM()
enum class EPinContainerType : uint8
{
	None,
	Array,
	Set,
	Map,
};

/** A member of a class or package, known by its parent, its name and its id. */
USTRUCT()
struct FSimpleMemberReference
{
	GENERATED_BODY()

	UPROPERTY()
	TObjectPtr<UObject> MemberParent = nullptr;

	UPROPERTY()
	FName MemberName;

	UPROPERTY()
	FGuid MemberGuid;

	void Reset()
	{
		*this = FSimpleMemberReference();
	}
	bool operator==(const FSimpleMemberReference& Other) const
	{
		return MemberParent == Other.MemberParent && MemberName == Other.MemberName && MemberGuid == Other.MemberGuid;
	}
};

/** The value type of a map pin. */
USTRUCT()
struct FEdGraphTerminalType
{
	GENERATED_BODY()

	UPROPERTY()
	FName TerminalCategory;

	UPROPERTY()
	FName TerminalSubCategory;

	UPROPERTY()
	TWeakObjectPtr<UObject> TerminalSubCategoryObject;

	UPROPERTY()
	bool bTerminalIsConst = false;

	UPROPERTY()
	bool bTerminalIsWeakPointer = false;

	UPROPERTY()
	bool bTerminalIsUObjectWrapper = false;

	bool operator==(const FEdGraphTerminalType& Other) const
	{
		return TerminalCategory == Other.TerminalCategory && TerminalSubCategory == Other.TerminalSubCategory && TerminalSubCategoryObject == Other.TerminalSubCategoryObject && bTerminalIsConst == Other.bTerminalIsConst && bTerminalIsWeakPointer == Other.bTerminalIsWeakPointer && bTerminalIsUObjectWrapper == Other.bTerminalIsUObjectWrapper;
	}
	bool operator!=(const FEdGraphTerminalType& Other) const
	{
		return !(*this == Other);
	}
};

/** The type of a pin or a variable: category, subcategory (a class, struct or enum object) and container. */
USTRUCT(BlueprintType)
struct FEdGraphPinType
{
	GENERATED_BODY()

	UPROPERTY()
	FName PinCategory;

	UPROPERTY()
	FName PinSubCategory;

	UPROPERTY()
	TWeakObjectPtr<UObject> PinSubCategoryObject;

	UPROPERTY()
	FSimpleMemberReference PinSubCategoryMemberReference;

	UPROPERTY()
	FEdGraphTerminalType PinValueType;

	UPROPERTY()
	EPinContainerType ContainerType = EPinContainerType::None;

	UPROPERTY()
	uint8 bIsReference : 1;

	UPROPERTY()
	uint8 bIsConst : 1;

	UPROPERTY()
	uint8 bIsWeakPointer : 1;

	UPROPERTY()
	uint8 bIsUObjectWrapper : 1;

	UPROPERTY()
	uint8 bSerializeAsSinglePrecisionFloat : 1;

	FEdGraphPinType()
		: bIsReference(false)
		, bIsConst(false)
		, bIsWeakPointer(false)
		, bIsUObjectWrapper(false)
		, bSerializeAsSinglePrecisionFloat(false)
	{
	}

	FEdGraphPinType(FName InPinCategory, FName InPinSubCategory, UObject* InPinSubCategoryObject, EPinContainerType InPinContainerType, bool bInIsReference, const FEdGraphTerminalType& InValueTerminalType)
		: PinCategory(InPinCategory)
		, PinSubCategory(InPinSubCategory)
		, PinSubCategoryObject(InPinSubCategoryObject)
		, PinValueType(InValueTerminalType)
		, ContainerType(InPinContainerType)
		, bIsReference(bInIsReference)
		, bIsConst(false)
		, bIsWeakPointer(false)
		, bIsUObjectWrapper(false)
		, bSerializeAsSinglePrecisionFloat(false)
	{
	}

	bool IsContainer() const
	{
		return ContainerType != EPinContainerType::None;
	}
	bool IsArray() const
	{
		return ContainerType == EPinContainerType::Array;
	}
	bool IsSet() const
	{
		return ContainerType == EPinContainerType::Set;
	}
	bool IsMap() const
	{
		return ContainerType == EPinContainerType::Map;
	}

	static FEdGraphPinType GetPinTypeForTerminalType(const FEdGraphTerminalType& TerminalType);
	static FEdGraphTerminalType GetTerminalTypeForContainer(const FEdGraphPinType& ContainerType);

	ENGINE_API bool operator==(const FEdGraphPinType& Other) const;
	bool operator!=(const FEdGraphPinType& Other) const
	{
		return !(*this == Other);
	}
};

/**
 * A pin of a graph node. Not an object: the owning node makes it (UEdGraphNode::CreatePin) and frees it.
 * Links are kept on both pins.
 */
class ENGINE_API UEdGraphPin
{
public:
	// A new pin owned by the node; the node's CreatePin adds it to its Pins.
	static UEdGraphPin* CreatePin(UEdGraphNode* InOwningNode);

	UEdGraphNode* GetOwningNode() const
	{
		return OwningNode;
	}
	UEdGraphNode* GetOwningNodeUnchecked() const
	{
		return OwningNode;
	}
	const UEdGraphSchema* GetSchema() const;

	// Links this pin and ToPin both ways without asking the schema; both nodes are modified.
	void MakeLinkTo(UEdGraphPin* ToPin, bool bAlwaysMarkDirty = true);
	void BreakLinkTo(UEdGraphPin* ToPin, bool bAlwaysMarkDirty = true);
	void BreakAllPinLinks(bool bNotifyNodes = false, bool bAlwaysMarkDirty = true);
	// Moves this pin's links and default value to NewPin (used when a node is rebuilt).
	void CopyPersistentDataFromOldPin(const UEdGraphPin& SourcePin);

	FString GetName() const
	{
		return PinName.ToString();
	}
	FText GetDisplayName() const;
	FString GetDefaultAsString() const;
	FText GetDefaultAsText() const;
	bool DoesDefaultValueMatchAutogenerated() const
	{
		return DefaultValue.Equals(AutogeneratedDefaultValue, ESearchCase::IgnoreCase);
	}
	bool HasAnyConnections() const
	{
		return LinkedTo.Num() > 0;
	}

	// The pin as the engine writes it in text: "(PinId=...,PinName="...",...,LinkedTo=(Node PinId,),)".
	FString ExportTextToString() const;

	FName PinName;
	FGuid PinId;
	FText PinFriendlyName;
	FString PinToolTip;
	TEnumAsByte<EEdGraphPinDirection> Direction = EGPD_Input;
	FEdGraphPinType PinType;
	FString DefaultValue;
	FString AutogeneratedDefaultValue;
	TObjectPtr<UObject> DefaultObject = nullptr;
	FText DefaultTextValue;
	TArray<UEdGraphPin*> LinkedTo;
	TArray<UEdGraphPin*> SubPins;
	UEdGraphPin* ParentPin = nullptr;
	UEdGraphPin* ReferencePassThroughConnection = nullptr;

	uint8 bHidden : 1;
	uint8 bNotConnectable : 1;
	uint8 bDefaultValueIsReadOnly : 1;
	uint8 bDefaultValueIsIgnored : 1;
	uint8 bAdvancedView : 1;
	uint8 bDisplayAsMutableRef : 1;
	uint8 bAllowFriendlyName : 1;
	uint8 bOrphanedPin : 1;
	uint8 bUseBackwardsCompatForEmptyAutogeneratedValue : 1;

	~UEdGraphPin();

private:
	friend class UEdGraphNode;
	explicit UEdGraphPin(UEdGraphNode* InOwningNode);
	UEdGraphPin(const UEdGraphPin&) = delete;
	UEdGraphPin& operator=(const UEdGraphPin&) = delete;
	// Takes every value of Other except its links and owner.
	void AssignValuesFrom(const UEdGraphPin& Other);

	UEdGraphNode* OwningNode = nullptr;
};
