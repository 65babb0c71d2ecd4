#include "EdGraphSchema_K2.h"
#include "EdGraph/EdGraph.h"
#include "Engine/Blueprint.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_FunctionResult.h"
#include "K2Node_VariableGet.h"
#include "K2Node_VariableSet.h"
#include "UObject/UnrealType.h"
#include "UObject/EnumProperty.h"
#include "UObject/TextProperty.h"
#include "UObject/Interface.h"
#include "BlueprintGraphPrivate.h"

const FName FBlueprintMetadata::MD_AllowPrivateAccess(TEXT("AllowPrivateAccess"));
const FName FBlueprintMetadata::MD_Tooltip(TEXT("Tooltip"));
const FName FBlueprintMetadata::MD_DisplayName(TEXT("DisplayName"));
const FName FBlueprintMetadata::MD_FunctionCategory(TEXT("Category"));
const FName FBlueprintMetadata::MD_Private(TEXT("BlueprintPrivate"));
const FName FBlueprintMetadata::MD_Protected(TEXT("BlueprintProtected"));
const FName FBlueprintMetadata::MD_ExposeOnSpawn(TEXT("ExposeOnSpawn"));
const FName FBlueprintMetadata::MD_FieldNotify(TEXT("FieldNotify"));
const FName FBlueprintMetadata::MD_DeprecatedFunction(TEXT("DeprecatedFunction"));
const FName FBlueprintMetadata::MD_CallInEditor(TEXT("CallInEditor"));
const FName FBlueprintMetadata::MD_CompactNodeTitle(TEXT("CompactNodeTitle"));
const FName FBlueprintMetadata::MD_Latent(TEXT("Latent"));
const FName FBlueprintMetadata::MD_WorldContext(TEXT("WorldContext"));
const FName FBlueprintMetadata::MD_DefaultToSelf(TEXT("DefaultToSelf"));
const FName FBlueprintMetadata::MD_BlueprintThreadSafe(TEXT("BlueprintThreadSafe"));
const FName FBlueprintMetadata::MD_UIMin(TEXT("UIMin"));
const FName FBlueprintMetadata::MD_UIMax(TEXT("UIMax"));
const FName FBlueprintMetadata::MD_ClampMin(TEXT("ClampMin"));
const FName FBlueprintMetadata::MD_ClampMax(TEXT("ClampMax"));

const FName UEdGraphSchema_K2::PC_Exec(TEXT("exec"));
const FName UEdGraphSchema_K2::PC_Boolean(TEXT("bool"));
const FName UEdGraphSchema_K2::PC_Byte(TEXT("byte"));
const FName UEdGraphSchema_K2::PC_Class(TEXT("class"));
const FName UEdGraphSchema_K2::PC_SoftClass(TEXT("softclass"));
const FName UEdGraphSchema_K2::PC_Int(TEXT("int"));
const FName UEdGraphSchema_K2::PC_Int64(TEXT("int64"));
const FName UEdGraphSchema_K2::PC_Float(TEXT("float"));
const FName UEdGraphSchema_K2::PC_Double(TEXT("double"));
const FName UEdGraphSchema_K2::PC_Real(TEXT("real"));
const FName UEdGraphSchema_K2::PC_Name(TEXT("name"));
const FName UEdGraphSchema_K2::PC_Delegate(TEXT("delegate"));
const FName UEdGraphSchema_K2::PC_MCDelegate(TEXT("mcdelegate"));
const FName UEdGraphSchema_K2::PC_Object(TEXT("object"));
const FName UEdGraphSchema_K2::PC_Interface(TEXT("interface"));
const FName UEdGraphSchema_K2::PC_SoftObject(TEXT("softobject"));
const FName UEdGraphSchema_K2::PC_String(TEXT("string"));
const FName UEdGraphSchema_K2::PC_Text(TEXT("text"));
const FName UEdGraphSchema_K2::PC_Struct(TEXT("struct"));
const FName UEdGraphSchema_K2::PC_Wildcard(TEXT("wildcard"));
const FName UEdGraphSchema_K2::PC_FieldPath(TEXT("fieldpath"));
const FName UEdGraphSchema_K2::PC_Enum(TEXT("enum"));
const FName UEdGraphSchema_K2::PSC_Self(TEXT("self"));
const FName UEdGraphSchema_K2::PSC_Index(TEXT("index"));
const FName UEdGraphSchema_K2::PSC_Bitmask(TEXT("bitmask"));
const FName UEdGraphSchema_K2::PN_Execute(TEXT("execute"));
const FName UEdGraphSchema_K2::PN_Then(TEXT("then"));
const FName UEdGraphSchema_K2::PN_Completed(TEXT("Completed"));
const FName UEdGraphSchema_K2::PN_DelegateEntry(TEXT("delegate"));
const FName UEdGraphSchema_K2::PN_EntryPoint(TEXT("EntryPoint"));
const FName UEdGraphSchema_K2::PN_Self(TEXT("self"));
const FName UEdGraphSchema_K2::PN_Else(TEXT("else"));
const FName UEdGraphSchema_K2::PN_Loop(TEXT("loop"));
const FName UEdGraphSchema_K2::PN_After(TEXT("after"));
const FName UEdGraphSchema_K2::PN_ReturnValue(TEXT("ReturnValue"));
const FName UEdGraphSchema_K2::PN_ObjectToCast(TEXT("Object"));
const FName UEdGraphSchema_K2::PN_Query(TEXT("Query"));
const FName UEdGraphSchema_K2::PN_Direction(TEXT("Direction"));
const FName UEdGraphSchema_K2::PN_Condition(TEXT("Condition"));
const FName UEdGraphSchema_K2::PN_Start(TEXT("Start"));
const FName UEdGraphSchema_K2::PN_Stop(TEXT("Stop"));
const FName UEdGraphSchema_K2::PN_Index(TEXT("Index"));
const FName UEdGraphSchema_K2::PN_Item(TEXT("Item"));
const FName UEdGraphSchema_K2::PN_CastSucceeded(TEXT("then"));
const FName UEdGraphSchema_K2::PN_CastFailed(TEXT("CastFailed"));
const FName UEdGraphSchema_K2::PN_MatineeFinished(TEXT("Finished"));
const FName UEdGraphSchema_K2::FN_UserConstructionScript(TEXT("UserConstructionScript"));
const FName UEdGraphSchema_K2::FN_ExecuteUbergraphBase(TEXT("ExecuteUbergraph"));
const FName UEdGraphSchema_K2::GN_EventGraph(TEXT("EventGraph"));
const FName UEdGraphSchema_K2::GN_AnimGraph(TEXT("AnimGraph"));
const FText UEdGraphSchema_K2::VR_DefaultCategory(FText::FromString(TEXT("Default")));

UEdGraphSchema_K2::UEdGraphSchema_K2(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
{
}

namespace
{
	// The category, subcategory and object of a single (not container) property.
	bool ConvertTerminal(const FProperty* Property, FName& Category, FName& SubCategory, UObject*& SubCategoryObject, bool& bIsWeak)
	{
		SubCategory = NAME_None;
		SubCategoryObject = nullptr;
		bIsWeak = false;
		if (CastField<FBoolProperty>(Property))
		{
			Category = UEdGraphSchema_K2::PC_Boolean;
		}
		else if (const FByteProperty* Byte = CastField<FByteProperty>(Property))
		{
			Category = UEdGraphSchema_K2::PC_Byte;
			SubCategoryObject = Byte->Enum;
		}
		else if (const FEnumProperty* Enum = CastField<FEnumProperty>(Property))
		{
			Category = UEdGraphSchema_K2::PC_Byte;
			SubCategoryObject = Enum->GetEnum();
		}
		else if (CastField<FIntProperty>(Property))
		{
			Category = UEdGraphSchema_K2::PC_Int;
		}
		else if (CastField<FInt64Property>(Property))
		{
			Category = UEdGraphSchema_K2::PC_Int64;
		}
		else if (CastField<FFloatProperty>(Property))
		{
			Category = UEdGraphSchema_K2::PC_Real;
			SubCategory = UEdGraphSchema_K2::PC_Float;
		}
		else if (CastField<FDoubleProperty>(Property))
		{
			Category = UEdGraphSchema_K2::PC_Real;
			SubCategory = UEdGraphSchema_K2::PC_Double;
		}
		else if (CastField<FNameProperty>(Property))
		{
			Category = UEdGraphSchema_K2::PC_Name;
		}
		else if (CastField<FStrProperty>(Property))
		{
			Category = UEdGraphSchema_K2::PC_String;
		}
		else if (CastField<FTextProperty>(Property))
		{
			Category = UEdGraphSchema_K2::PC_Text;
		}
		else if (const FStructProperty* Struct = CastField<FStructProperty>(Property))
		{
			Category = UEdGraphSchema_K2::PC_Struct;
			SubCategoryObject = Struct->Struct;
		}
		else if (const FSoftClassProperty* SoftClass = CastField<FSoftClassProperty>(Property))
		{
			Category = UEdGraphSchema_K2::PC_SoftClass;
			SubCategoryObject = SoftClass->MetaClass;
		}
		else if (const FClassProperty* Class = CastField<FClassProperty>(Property))
		{
			Category = UEdGraphSchema_K2::PC_Class;
			SubCategoryObject = Class->MetaClass;
		}
		else if (const FSoftObjectProperty* SoftObject = CastField<FSoftObjectProperty>(Property))
		{
			Category = UEdGraphSchema_K2::PC_SoftObject;
			SubCategoryObject = SoftObject->PropertyClass;
		}
		else if (const FObjectPropertyBase* Object = CastField<FObjectPropertyBase>(Property))
		{
			Category = UEdGraphSchema_K2::PC_Object;
			SubCategoryObject = Object->PropertyClass;
			bIsWeak = CastField<FWeakObjectProperty>(Property) != nullptr;
		}
		else if (const FInterfaceProperty* Interface = CastField<FInterfaceProperty>(Property))
		{
			Category = UEdGraphSchema_K2::PC_Interface;
			SubCategoryObject = Interface->InterfaceClass;
		}
		else if (const FMulticastDelegateProperty* Multicast = CastField<FMulticastDelegateProperty>(Property))
		{
			Category = UEdGraphSchema_K2::PC_MCDelegate;
			SubCategoryObject = nullptr;
		}
		else if (CastField<FDelegateProperty>(Property))
		{
			Category = UEdGraphSchema_K2::PC_Delegate;
		}
		else
		{
			return false;
		}
		return true;
	}

	bool IsRealCategory(const FName Category)
	{
		return Category == UEdGraphSchema_K2::PC_Real || Category == UEdGraphSchema_K2::PC_Float || Category == UEdGraphSchema_K2::PC_Double;
	}

	// Whether a value of one terminal type goes into a pin of the other.
	bool AreTerminalsCompatible(FName OutCategory, FName OutSubCategory, const UObject* OutObject, FName InCategory, FName InSubCategory, const UObject* InObject, const UClass* SelfClass)
	{
		if (OutCategory == UEdGraphSchema_K2::PC_Wildcard || InCategory == UEdGraphSchema_K2::PC_Wildcard)
		{
			return true;
		}
		if (IsRealCategory(OutCategory) && IsRealCategory(InCategory))
		{
			return true;
		}
		const bool bOutObjectLike = OutCategory == UEdGraphSchema_K2::PC_Object || OutCategory == UEdGraphSchema_K2::PC_Interface;
		const bool bInObjectLike = InCategory == UEdGraphSchema_K2::PC_Object || InCategory == UEdGraphSchema_K2::PC_Interface;
		if (bOutObjectLike && bInObjectLike)
		{
			const UClass* OutClass = OutSubCategory == UEdGraphSchema_K2::PSC_Self ? SelfClass : Cast<UClass>(OutObject);
			const UClass* InClass = InSubCategory == UEdGraphSchema_K2::PSC_Self ? SelfClass : Cast<UClass>(InObject);
			if (OutClass == nullptr || InClass == nullptr)
			{
				// A type not known here (a class not loaded, self without a class) is not refused.
				return true;
			}
			if (InCategory == UEdGraphSchema_K2::PC_Interface)
			{
				return OutClass->IsChildOf(InClass) || OutClass->ImplementsInterface(InClass);
			}
			return OutClass->IsChildOf(InClass);
		}
		if (OutCategory != InCategory)
		{
			return false;
		}
		if (OutCategory == UEdGraphSchema_K2::PC_Class || OutCategory == UEdGraphSchema_K2::PC_SoftClass || OutCategory == UEdGraphSchema_K2::PC_SoftObject)
		{
			const UClass* OutClass = Cast<UClass>(OutObject);
			const UClass* InClass = Cast<UClass>(InObject);
			return OutClass == nullptr || InClass == nullptr || OutClass->IsChildOf(InClass);
		}
		if (OutCategory == UEdGraphSchema_K2::PC_Struct)
		{
			const UStruct* OutStruct = Cast<UStruct>(OutObject);
			const UStruct* InStruct = Cast<UStruct>(InObject);
			return OutStruct != nullptr && InStruct != nullptr && OutStruct->IsChildOf(InStruct);
		}
		if (OutCategory == UEdGraphSchema_K2::PC_Byte)
		{
			// A plain byte takes any enum and gives to any; two enums must be the same.
			return OutObject == nullptr || InObject == nullptr || OutObject == InObject;
		}
		return true;
	}

	FString TerminalToText(FName Category, FName SubCategory, const UObject* Object)
	{
		if (Category == UEdGraphSchema_K2::PC_Exec) return TEXT("Exec");
		if (Category == UEdGraphSchema_K2::PC_Boolean) return TEXT("Boolean");
		if (Category == UEdGraphSchema_K2::PC_Int) return TEXT("Integer");
		if (Category == UEdGraphSchema_K2::PC_Int64) return TEXT("Integer64");
		if (IsRealCategory(Category)) return SubCategory == UEdGraphSchema_K2::PC_Double ? TEXT("Float (double-precision)") : TEXT("Float (single-precision)");
		if (Category == UEdGraphSchema_K2::PC_Name) return TEXT("Name");
		if (Category == UEdGraphSchema_K2::PC_String) return TEXT("String");
		if (Category == UEdGraphSchema_K2::PC_Text) return TEXT("Text");
		if (Category == UEdGraphSchema_K2::PC_Wildcard) return TEXT("Wildcard");
		if (Category == UEdGraphSchema_K2::PC_Byte) return Object != nullptr ? Object->GetName() : FString(TEXT("Byte"));
		const FString ObjectName = Object != nullptr ? FName::NameToDisplayString(Object->GetName(), false) : FString(SubCategory == UEdGraphSchema_K2::PSC_Self ? TEXT("Self") : TEXT("None"));
		if (Category == UEdGraphSchema_K2::PC_Struct) return ObjectName;
		if (Category == UEdGraphSchema_K2::PC_Object) return ObjectName + TEXT(" Object Reference");
		if (Category == UEdGraphSchema_K2::PC_Class) return ObjectName + TEXT(" Class Reference");
		if (Category == UEdGraphSchema_K2::PC_SoftObject) return ObjectName + TEXT(" Soft Object Reference");
		if (Category == UEdGraphSchema_K2::PC_SoftClass) return ObjectName + TEXT(" Soft Class Reference");
		if (Category == UEdGraphSchema_K2::PC_Interface) return ObjectName + TEXT(" Interface");
		if (Category == UEdGraphSchema_K2::PC_Delegate) return TEXT("Delegate");
		if (Category == UEdGraphSchema_K2::PC_MCDelegate) return TEXT("Multicast Delegate");
		return Category.ToString();
	}
}

bool UEdGraphSchema_K2::ConvertPropertyToPinType(const FProperty* Property, FEdGraphPinType& TypeOut) const
{
	if (Property == nullptr)
	{
		TypeOut.PinCategory = TEXT("bad_type");
		return false;
	}
	TypeOut = FEdGraphPinType();
	const FProperty* Terminal = Property;
	if (const FArrayProperty* Array = CastField<FArrayProperty>(Property))
	{
		Terminal = Array->Inner;
		TypeOut.ContainerType = EPinContainerType::Array;
	}
	else if (const FSetProperty* Set = CastField<FSetProperty>(Property))
	{
		Terminal = Set->ElementProp;
		TypeOut.ContainerType = EPinContainerType::Set;
	}
	else if (const FMapProperty* Map = CastField<FMapProperty>(Property))
	{
		Terminal = Map->KeyProp;
		TypeOut.ContainerType = EPinContainerType::Map;
		FName ValueCategory;
		FName ValueSubCategory;
		UObject* ValueObject = nullptr;
		bool bValueWeak = false;
		if (Map->ValueProp == nullptr || !ConvertTerminal(Map->ValueProp, ValueCategory, ValueSubCategory, ValueObject, bValueWeak))
		{
			TypeOut.PinCategory = TEXT("bad_type");
			return false;
		}
		TypeOut.PinValueType.TerminalCategory = ValueCategory;
		TypeOut.PinValueType.TerminalSubCategory = ValueSubCategory;
		TypeOut.PinValueType.TerminalSubCategoryObject = ValueObject;
		TypeOut.PinValueType.bTerminalIsWeakPointer = bValueWeak;
	}
	FName Category;
	FName SubCategory;
	UObject* SubCategoryObject = nullptr;
	bool bIsWeak = false;
	if (Terminal == nullptr || !ConvertTerminal(Terminal, Category, SubCategory, SubCategoryObject, bIsWeak))
	{
		TypeOut.PinCategory = TEXT("bad_type");
		return false;
	}
	TypeOut.PinCategory = Category;
	TypeOut.PinSubCategory = SubCategory;
	TypeOut.PinSubCategoryObject = SubCategoryObject;
	TypeOut.bIsWeakPointer = bIsWeak;
	TypeOut.bIsReference = Property->HasAllPropertyFlags(CPF_OutParm | CPF_ReferenceParm);
	TypeOut.bIsConst = Property->HasAnyPropertyFlags(CPF_ConstParm);
	TypeOut.bIsUObjectWrapper = Property->HasAnyPropertyFlags(CPF_UObjectWrapper);
	return true;
}

bool UEdGraphSchema_K2::ArePinTypesCompatible(const FEdGraphPinType& Output, const FEdGraphPinType& Input, const UClass* CallingContext, bool bIgnoreArray) const
{
	if (Output.PinCategory == PC_Exec || Input.PinCategory == PC_Exec)
	{
		return Output.PinCategory == Input.PinCategory;
	}
	const bool bWildcard = Output.PinCategory == PC_Wildcard || Input.PinCategory == PC_Wildcard;
	if (!bIgnoreArray && !bWildcard && Output.ContainerType != Input.ContainerType)
	{
		return false;
	}
	if (!AreTerminalsCompatible(Output.PinCategory, Output.PinSubCategory, Output.PinSubCategoryObject.Get(), Input.PinCategory, Input.PinSubCategory, Input.PinSubCategoryObject.Get(), CallingContext))
	{
		return false;
	}
	if (Output.IsMap() && Input.IsMap())
	{
		const FEdGraphTerminalType& OutValue = Output.PinValueType;
		const FEdGraphTerminalType& InValue = Input.PinValueType;
		return AreTerminalsCompatible(OutValue.TerminalCategory, OutValue.TerminalSubCategory, OutValue.TerminalSubCategoryObject.Get(), InValue.TerminalCategory, InValue.TerminalSubCategory, InValue.TerminalSubCategoryObject.Get(), CallingContext);
	}
	return true;
}

FText UEdGraphSchema_K2::TypeToText(const FEdGraphPinType& Type)
{
	const FString Terminal = TerminalToText(Type.PinCategory, Type.PinSubCategory, Type.PinSubCategoryObject.Get());
	switch (Type.ContainerType)
	{
	case EPinContainerType::Array:
		return FText::FromString(TEXT("Array of ") + Terminal);
	case EPinContainerType::Set:
		return FText::FromString(TEXT("Set of ") + Terminal);
	case EPinContainerType::Map:
		return FText::FromString(FString::Printf(TEXT("Map of %s to %s"), *Terminal, *TerminalToText(Type.PinValueType.TerminalCategory, Type.PinValueType.TerminalSubCategory, Type.PinValueType.TerminalSubCategoryObject.Get())));
	default:
		return FText::FromString(Terminal);
	}
}

FText UEdGraphSchema_K2::TypeToText(const FProperty* const Property)
{
	FEdGraphPinType Type;
	GetDefault<UEdGraphSchema_K2>()->ConvertPropertyToPinType(Property, Type);
	return TypeToText(Type);
}

bool UEdGraphSchema_K2::IsExecPin(const UEdGraphPin& Pin)
{
	return Pin.PinType.PinCategory == PC_Exec;
}

bool UEdGraphSchema_K2::IsSelfPin(const UEdGraphPin& Pin)
{
	return Pin.PinName == PN_Self;
}

void UEdGraphSchema_K2::SetPinAutogeneratedDefaultValueBasedOnType(UEdGraphPin* Pin) const
{
	FString Value;
	const FEdGraphPinType& Type = Pin->PinType;
	if (!Type.IsContainer() && Pin->Direction == EGPD_Input)
	{
		if (Type.PinCategory == PC_Int || Type.PinCategory == PC_Int64)
		{
			Value = TEXT("0");
		}
		else if (IsRealCategory(Type.PinCategory))
		{
			Value = TEXT("0.0");
		}
		else if (Type.PinCategory == PC_Boolean)
		{
			Value = TEXT("false");
		}
		else if (Type.PinCategory == PC_Byte)
		{
			const UEnum* Enum = Cast<UEnum>(Type.PinSubCategoryObject.Get());
			Value = Enum != nullptr && Enum->NumEnums() > 0 ? Enum->GetNameStringByIndex(0) : FString(TEXT("0"));
		}
		else if (Type.PinCategory == PC_Name)
		{
			Value = TEXT("None");
		}
		else if (Type.PinCategory == PC_Struct && (Type.PinSubCategoryObject == TBaseStructure<FVector>::Get() || Type.PinSubCategoryObject == TBaseStructure<FRotator>::Get()))
		{
			Value = TEXT("0, 0, 0");
		}
	}
	SetPinAutogeneratedDefaultValue(Pin, Value);
}

void UEdGraphSchema_K2::SetPinAutogeneratedDefaultValue(UEdGraphPin* Pin, const FString& NewValue) const
{
	Pin->AutogeneratedDefaultValue = NewValue;
	Pin->DefaultValue = NewValue;
}

UK2Node_VariableGet* UEdGraphSchema_K2::SpawnVariableGetNode(const FVector2D GraphPosition, UEdGraph* ParentGraph, FName VariableName, UStruct* Source) const
{
	if (ParentGraph == nullptr)
	{
		return nullptr;
	}
	UK2Node_VariableGet* Node = NewObject<UK2Node_VariableGet>(ParentGraph, NAME_None, RF_Transactional);
	BlueprintGraph::Private::ConfigureVariableReference(Node->VariableReference, VariableName, Source, ParentGraph);
	BlueprintGraph::Private::PlaceNewNode(*ParentGraph, *Node, GraphPosition);
	return Node;
}

UK2Node_VariableSet* UEdGraphSchema_K2::SpawnVariableSetNode(const FVector2D GraphPosition, UEdGraph* ParentGraph, FName VariableName, UStruct* Source) const
{
	if (ParentGraph == nullptr)
	{
		return nullptr;
	}
	UK2Node_VariableSet* Node = NewObject<UK2Node_VariableSet>(ParentGraph, NAME_None, RF_Transactional);
	BlueprintGraph::Private::ConfigureVariableReference(Node->VariableReference, VariableName, Source, ParentGraph);
	BlueprintGraph::Private::PlaceNewNode(*ParentGraph, *Node, GraphPosition);
	return Node;
}

void UEdGraphSchema_K2::AddExtraFunctionFlags(const UEdGraph* CurrentGraph, int32 ExtraFlags) const
{
	if (CurrentGraph == nullptr)
	{
		return;
	}
	for (UEdGraphNode* Node : CurrentGraph->Nodes)
	{
		if (UK2Node_FunctionEntry* Entry = Cast<UK2Node_FunctionEntry>(Node))
		{
			Entry->Modify();
			Entry->AddExtraFlags(ExtraFlags);
		}
	}
}

void UEdGraphSchema_K2::MarkFunctionEntryAsEditable(const UEdGraph* CurrentGraph, bool bNewEditable) const
{
	if (CurrentGraph == nullptr)
	{
		return;
	}
	for (UEdGraphNode* Node : CurrentGraph->Nodes)
	{
		if (UK2Node_FunctionEntry* Entry = Cast<UK2Node_FunctionEntry>(Node))
		{
			Entry->Modify();
			Entry->SetEditable(bNewEditable);
		}
	}
}

void UEdGraphSchema_K2::CreateFunctionGraphTerminators(UEdGraph& Graph, UClass* Class) const
{
	const FName GraphName = Graph.GetFName();
	// A graph named after a function of the parent class overrides it; otherwise it is a new function.
	const UFunction* Override = Class != nullptr ? Class->FindFunctionByName(GraphName) : nullptr;
	if (Override != nullptr)
	{
		CreateFunctionGraphTerminators(Graph, Override);
		return;
	}
	FGraphNodeCreator<UK2Node_FunctionEntry> EntryCreator(Graph);
	UK2Node_FunctionEntry* Entry = EntryCreator.CreateNode();
	Entry->FunctionReference.SetSelfMember(GraphName);
	EntryCreator.Finalize();
}

void UEdGraphSchema_K2::CreateFunctionGraphTerminators(UEdGraph& Graph, const UFunction* FunctionSignature) const
{
	if (FunctionSignature == nullptr)
	{
		CreateFunctionGraphTerminators(Graph, static_cast<UClass*>(nullptr));
		return;
	}
	FGraphNodeCreator<UK2Node_FunctionEntry> EntryCreator(Graph);
	UK2Node_FunctionEntry* Entry = EntryCreator.CreateNode();
	Entry->FunctionReference.SetExternalMember(FunctionSignature->GetFName(), FunctionSignature->GetOwnerClass());
	EntryCreator.Finalize();
	bool bHasOutputs = false;
	for (FProperty* Param = CastField<FProperty>(FunctionSignature->ChildProperties); Param != nullptr; Param = CastField<FProperty>(Param->Next))
	{
		bHasOutputs |= Param->HasAnyPropertyFlags(CPF_ReturnParm) || (Param->HasAnyPropertyFlags(CPF_OutParm) && !Param->HasAnyPropertyFlags(CPF_ReferenceParm));
	}
	if (bHasOutputs)
	{
		FGraphNodeCreator<UK2Node_FunctionResult> ResultCreator(Graph);
		UK2Node_FunctionResult* Result = ResultCreator.CreateNode();
		Result->FunctionReference = Entry->FunctionReference;
		Result->NodePosX = 400;
		ResultCreator.Finalize();
	}
}

void UEdGraphSchema_K2::CreateDefaultNodesForGraph(UEdGraph& Graph) const
{
}

bool UEdGraphSchema_K2::CanKismetOverrideFunction(const UFunction* Function)
{
	return Function != nullptr && Function->HasAnyFunctionFlags(FUNC_BlueprintEvent) && !Function->HasAnyFunctionFlags(FUNC_Delegate);
}

bool UEdGraphSchema_K2::IsAllowableBlueprintVariableType(const UStruct* InStruct, bool bForInternalUse)
{
	return InStruct != nullptr;
}

bool UEdGraphSchema_K2::IsAllowableBlueprintVariableType(const UEnum* InEnum)
{
	return InEnum != nullptr;
}

bool UEdGraphSchema_K2::IsAllowableBlueprintVariableType(const UClass* InClass, bool bAssumeBlueprintType)
{
	return InClass != nullptr;
}

FString UEdGraphSchema_K2::GetFriendlySignatureName(const UFunction* Function)
{
	return Function != nullptr ? Function->GetDisplayNameText().ToString() : FString();
}

const FPinConnectionResponse UEdGraphSchema_K2::CanCreateConnection(const UEdGraphPin* A, const UEdGraphPin* B) const
{
	if (A == nullptr || B == nullptr || A->GetOwningNode() == nullptr || B->GetOwningNode() == nullptr)
	{
		return FPinConnectionResponse(CONNECT_RESPONSE_DISALLOW, TEXT("A pin is missing"));
	}
	if (A->GetOwningNode() == B->GetOwningNode())
	{
		return FPinConnectionResponse(CONNECT_RESPONSE_DISALLOW, TEXT("Both are on the same node"));
	}
	if (A->bNotConnectable || B->bNotConnectable)
	{
		return FPinConnectionResponse(CONNECT_RESPONSE_DISALLOW, TEXT("A pin can't be connected"));
	}
	if (A->Direction == B->Direction)
	{
		return FPinConnectionResponse(CONNECT_RESPONSE_DISALLOW, A->Direction == EGPD_Input ? TEXT("Both are inputs.") : TEXT("Both are outputs."));
	}
	if (A->GetOwningNode()->GetGraph() != B->GetOwningNode()->GetGraph())
	{
		return FPinConnectionResponse(CONNECT_RESPONSE_DISALLOW, TEXT("The pins are in different graphs"));
	}
	const UEdGraphPin* Output = A->Direction == EGPD_Output ? A : B;
	const UEdGraphPin* Input = A->Direction == EGPD_Output ? B : A;
	const UClass* SelfClass = BlueprintGraph::Private::GetSelfClassForNode(Output->GetOwningNode());
	if (!ArePinTypesCompatible(Output->PinType, Input->PinType, SelfClass))
	{
		return FPinConnectionResponse(CONNECT_RESPONSE_DISALLOW, FText::FromString(FString::Printf(TEXT("%s is not compatible with %s."), *TypeToText(Output->PinType).ToString(), *TypeToText(Input->PinType).ToString())));
	}
	// An exec output leads to one place; a data input takes one value.
	const bool bBreakOutput = Output->PinType.PinCategory == PC_Exec && Output->LinkedTo.Num() > 0;
	const bool bBreakInput = Input->PinType.PinCategory != PC_Exec && Input->LinkedTo.Num() > 0;
	const bool bOutputIsA = Output == A;
	if (bBreakOutput && bBreakInput)
	{
		return FPinConnectionResponse(CONNECT_RESPONSE_BREAK_OTHERS_AB, TEXT("Replace existing connections"));
	}
	if (bBreakOutput)
	{
		return FPinConnectionResponse(bOutputIsA ? CONNECT_RESPONSE_BREAK_OTHERS_A : CONNECT_RESPONSE_BREAK_OTHERS_B, TEXT("Replace existing output connections"));
	}
	if (bBreakInput)
	{
		return FPinConnectionResponse(bOutputIsA ? CONNECT_RESPONSE_BREAK_OTHERS_B : CONNECT_RESPONSE_BREAK_OTHERS_A, TEXT("Replace existing input connections"));
	}
	return FPinConnectionResponse(CONNECT_RESPONSE_MAKE, TEXT(""));
}

bool UEdGraphSchema_K2::TryCreateConnection(UEdGraphPin* A, UEdGraphPin* B) const
{
	const bool bConnected = Super::TryCreateConnection(A, B);
	if (bConnected)
	{
		BlueprintGraph::Private::MarkOwningBlueprintModified(A->GetOwningNode());
	}
	return bConnected;
}

void UEdGraphSchema_K2::TrySetDefaultValue(UEdGraphPin& Pin, const FString& NewDefaultValue, bool bMarkAsModified) const
{
	TObjectPtr<UObject> DefaultObject = nullptr;
	FText DefaultText;
	FString DefaultValue;
	GetPinDefaultValuesFromString(Pin.PinType, Pin.GetOwningNode(), NewDefaultValue, DefaultValue, DefaultObject, DefaultText);
	if (UEdGraphNode* Node = Pin.GetOwningNode())
	{
		Node->Modify(bMarkAsModified);
	}
	Pin.DefaultValue = DefaultValue;
	Pin.DefaultObject = DefaultObject;
	Pin.DefaultTextValue = DefaultText;
	if (UEdGraphNode* Node = Pin.GetOwningNode())
	{
		Node->PinDefaultValueChanged(&Pin);
		if (bMarkAsModified)
		{
			BlueprintGraph::Private::MarkOwningBlueprintModified(Node);
		}
	}
}

FString UEdGraphSchema_K2::IsPinDefaultValid(const UEdGraphPin* Pin, const FString& NewDefaultValue, UObject* NewDefaultObject, const FText& InNewDefaultText) const
{
	if (Pin == nullptr)
	{
		return TEXT("No pin");
	}
	const FName Category = Pin->PinType.PinCategory;
	if (Pin->PinType.IsContainer() || NewDefaultValue.IsEmpty())
	{
		return FString();
	}
	if (Category == PC_Int || Category == PC_Int64)
	{
		return NewDefaultValue.IsNumeric() ? FString() : FString::Printf(TEXT("'%s' is not a valid integer"), *NewDefaultValue);
	}
	if (IsRealCategory(Category))
	{
		return NewDefaultValue.IsNumeric() ? FString() : FString::Printf(TEXT("'%s' is not a valid number"), *NewDefaultValue);
	}
	if (Category == PC_Boolean)
	{
		return NewDefaultValue.Equals(TEXT("true"), ESearchCase::IgnoreCase) || NewDefaultValue.Equals(TEXT("false"), ESearchCase::IgnoreCase) ? FString() : FString::Printf(TEXT("'%s' is not a valid boolean"), *NewDefaultValue);
	}
	return FString();
}

void UEdGraphSchema_K2::GetPinDefaultValuesFromString(const FEdGraphPinType& PinType, UObject* OwningObject, const FString& NewValue, FString& UseDefaultValue, TObjectPtr<UObject>& UseDefaultObject, FText& UseDefaultText, bool bPreserveTextIdentity) const
{
	UseDefaultValue.Reset();
	UseDefaultObject = nullptr;
	UseDefaultText = FText::GetEmpty();
	const FName Category = PinType.PinCategory;
	if (!PinType.IsContainer() && (Category == PC_Object || Category == PC_Class || Category == PC_Interface))
	{
		if (!NewValue.IsEmpty() && NewValue != TEXT("None"))
		{
			UseDefaultObject = StaticFindObject(UObject::StaticClass(), nullptr, *NewValue);
			if (UseDefaultObject == nullptr)
			{
				UseDefaultObject = StaticLoadObject(UObject::StaticClass(), nullptr, *NewValue, nullptr, LOAD_Quiet | LOAD_NoWarn);
			}
		}
		return;
	}
	if (!PinType.IsContainer() && Category == PC_Text)
	{
		UseDefaultText = FText::FromString(NewValue);
		return;
	}
	UseDefaultValue = NewValue;
}
