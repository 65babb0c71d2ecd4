#include "UObject/Class.h"
#include "Templates/Casts.h"
#include "UObject/UnrealType.h"
#include "UObject/EnumProperty.h"
#include "Misc/CString.h"
#include "Misc/PackageName.h"
#include "CoreUObjectLog.h"

namespace
{
	const FString EmptyMetaDataValue;
}

// UField

UField::UField(const FObjectInitializer& ObjectInitializer)
	: UObject(ObjectInitializer)
{
}

UClass* UField::GetOwnerClass() const
{
	for (const UObject* Object = this; Object != nullptr; Object = Object->GetOuter())
	{
		if (Object->IsA(UClass::StaticClass()))
		{
			return const_cast<UClass*>(static_cast<const UClass*>(Object));
		}
	}
	return nullptr;
}

UStruct* UField::GetOwnerStruct() const
{
	for (const UObject* Object = this; Object != nullptr; Object = Object->GetOuter())
	{
		if (Object->IsA(UStruct::StaticClass()))
		{
			return const_cast<UStruct*>(static_cast<const UStruct*>(Object));
		}
	}
	return nullptr;
}

#if WITH_EDITORONLY_DATA
const FString* UField::FindMetaData(const TCHAR* Key) const
{
	return FindMetaData(FName(Key, FNAME_Find));
}

const FString* UField::FindMetaData(const FName& Key) const
{
	return Key.IsNone() ? nullptr : MetaData.Find(Key);
}

const FString& UField::GetMetaData(const TCHAR* Key) const
{
	const FString* Value = FindMetaData(Key);
	return Value != nullptr ? *Value : EmptyMetaDataValue;
}

const FString& UField::GetMetaData(const FName& Key) const
{
	const FString* Value = FindMetaData(Key);
	return Value != nullptr ? *Value : EmptyMetaDataValue;
}

FText UField::GetMetaDataText(const TCHAR* MetaDataKey, const FString LocalizationNamespace, const FString LocalizationKey) const
{
	return FText::FromString(GetMetaData(MetaDataKey));
}

void UField::SetMetaData(const TCHAR* Key, const TCHAR* InValue)
{
	MetaData.Add(FName(Key), FString(InValue));
}

void UField::SetMetaData(const FName& Key, const TCHAR* InValue)
{
	MetaData.Add(Key, FString(InValue));
}

void UField::RemoveMetaData(const TCHAR* Key)
{
	MetaData.Remove(FName(Key, FNAME_Find));
}

bool UField::GetBoolMetaData(const TCHAR* Key) const
{
	return GetMetaData(Key).Equals(TEXT("true"), ESearchCase::IgnoreCase);
}

int32 UField::GetIntMetaData(const TCHAR* Key) const
{
	return FCString::Atoi(*GetMetaData(Key));
}

float UField::GetFloatMetaData(const TCHAR* Key) const
{
	return static_cast<float>(FCString::Atof(*GetMetaData(Key)));
}
#endif

FText UField::GetDisplayNameText() const
{
#if WITH_EDITORONLY_DATA
	if (const FString* DisplayName = FindMetaData(TEXT("DisplayName")))
	{
		return FText::FromString(*DisplayName);
	}
#endif
	return FText::FromString(FName::NameToDisplayString(GetName(), false));
}

FText UField::GetToolTipText(bool bShortTooltip) const
{
#if WITH_EDITORONLY_DATA
	if (bShortTooltip)
	{
		if (const FString* ShortToolTip = FindMetaData(TEXT("ShortTooltip")))
		{
			return FText::FromString(*ShortToolTip);
		}
	}
	if (const FString* ToolTip = FindMetaData(TEXT("ToolTip")))
	{
		if (!ToolTip->IsEmpty())
		{
			return FText::FromString(*ToolTip);
		}
	}
#endif
	return GetDisplayNameText();
}

// UStruct

UStruct::UStruct(const FObjectInitializer& ObjectInitializer)
	: UField(ObjectInitializer)
{
}

UStruct::~UStruct()
{
	FField* Field = ChildProperties;
	while (Field != nullptr)
	{
		FField* Next = Field->Next;
		delete Field;
		Field = Next;
	}
	ChildProperties = nullptr;
	PropertyLink = nullptr;
}

void UStruct::SetSuperStruct(UStruct* NewSuperStruct)
{
	SuperStruct = NewSuperStruct;
}

bool UStruct::IsChildOf(const UStruct* SomeBase) const
{
	if (SomeBase == nullptr)
	{
		return false;
	}
	for (const UStruct* Struct = this; Struct != nullptr; Struct = Struct->GetSuperStruct())
	{
		if (Struct == SomeBase)
		{
			return true;
		}
	}
	return false;
}

int32 UStruct::GetStructureSize() const
{
	const int32 Alignment = MinAlignment > 0 ? MinAlignment : 1;
	return (PropertiesSize + Alignment - 1) / Alignment * Alignment;
}

void UStruct::AddCppProperty(FProperty* Property)
{
	Property->Next = ChildProperties;
	ChildProperties = Property;
}

void UStruct::Link(bool bRelinkExistingProperties)
{
	if (bRelinkExistingProperties)
	{
		// Properties made at run time get their places here: after the super struct's (a function's
		// parameters start at zero), each aligned as its type needs.
		const bool bIsFunction = IsA(UFunction::StaticClass());
		int32 Size = (SuperStruct != nullptr && !bIsFunction) ? SuperStruct->GetPropertiesSize() : 0;
		int32 Alignment = (SuperStruct != nullptr && !bIsFunction) ? FMath::Max(SuperStruct->GetMinAlignment(), 1) : 1;
		for (FField* Field = ChildProperties; Field != nullptr; Field = Field->Next)
		{
			if (FProperty* Property = CastField<FProperty>(Field))
			{
				Property->LinkInternal();
				const int32 PropertyAlignment = FMath::Max(Property->GetMinAlignment(), 1);
				const int32 Offset = (Size + PropertyAlignment - 1) / PropertyAlignment * PropertyAlignment;
				Property->SetOffset_Internal(Offset);
				Size = Offset + Property->GetSize();
				Alignment = FMath::Max(Alignment, PropertyAlignment);
			}
		}
		PropertiesSize = Size;
		MinAlignment = Alignment;
	}
	FProperty** Tail = &PropertyLink;
	for (FField* Field = ChildProperties; Field != nullptr; Field = Field->Next)
	{
		if (FProperty* Property = CastField<FProperty>(Field))
		{
			Property->LinkInternal();
			*Tail = Property;
			Tail = &Property->PropertyLinkNext;
		}
	}
	// The supers' chain follows, so that a walk of PropertyLink sees every property once.
	*Tail = SuperStruct != nullptr ? SuperStruct->PropertyLink : nullptr;
}

FProperty* UStruct::FindPropertyByName(FName InName) const
{
	if (InName.IsNone())
	{
		return nullptr;
	}
	for (FProperty* Property = PropertyLink; Property != nullptr; Property = Property->PropertyLinkNext)
	{
		if (Property->GetFName() == InName)
		{
			return Property;
		}
	}
	return nullptr;
}

void UStruct::InitializeStruct(void* Dest, int32 ArrayDim) const
{
	const int32 Stride = GetStructureSize();
	for (int32 Index = 0; Index < ArrayDim; ++Index)
	{
		uint8* Element = static_cast<uint8*>(Dest) + Index * Stride;
		for (FProperty* Property = PropertyLink; Property != nullptr; Property = Property->PropertyLinkNext)
		{
			Property->InitializeValue_InContainer(Element);
		}
	}
}

void UStruct::DestroyStruct(void* Dest, int32 ArrayDim) const
{
	const int32 Stride = GetStructureSize();
	for (int32 Index = 0; Index < ArrayDim; ++Index)
	{
		uint8* Element = static_cast<uint8*>(Dest) + Index * Stride;
		for (FProperty* Property = PropertyLink; Property != nullptr; Property = Property->PropertyLinkNext)
		{
			Property->DestroyValue_InContainer(Element);
		}
	}
}

// UScriptStruct

UScriptStruct::UScriptStruct(const FObjectInitializer& ObjectInitializer)
	: UStruct(ObjectInitializer)
{
}

UScriptStruct::~UScriptStruct()
{
	delete CppStructOps;
}

void UScriptStruct::SetCppStructOps(ICppStructOps* InCppStructOps)
{
	delete CppStructOps;
	CppStructOps = InCppStructOps;
	if (CppStructOps != nullptr)
	{
		PropertiesSize = CppStructOps->GetSize();
		MinAlignment = CppStructOps->GetAlignment();
		StructFlags = StructFlags | STRUCT_Native;
	}
}

void UScriptStruct::InitializeStruct(void* Dest, int32 ArrayDim) const
{
	if (CppStructOps == nullptr)
	{
		UStruct::InitializeStruct(Dest, ArrayDim);
		return;
	}
	for (int32 Index = 0; Index < ArrayDim; ++Index)
	{
		CppStructOps->Construct(static_cast<uint8*>(Dest) + Index * CppStructOps->GetSize());
	}
}

void UScriptStruct::DestroyStruct(void* Dest, int32 ArrayDim) const
{
	if (CppStructOps == nullptr)
	{
		UStruct::DestroyStruct(Dest, ArrayDim);
		return;
	}
	for (int32 Index = 0; Index < ArrayDim; ++Index)
	{
		CppStructOps->Destruct(static_cast<uint8*>(Dest) + Index * CppStructOps->GetSize());
	}
}

void UScriptStruct::CopyScriptStruct(void* Dest, const void* Src, int32 ArrayDim) const
{
	if (CppStructOps != nullptr && CppStructOps->HasCopy() && CppStructOps->Copy(Dest, Src, ArrayDim))
	{
		return;
	}
	const int32 Stride = GetStructureSize();
	for (int32 Index = 0; Index < ArrayDim; ++Index)
	{
		for (FProperty* Property = PropertyLink; Property != nullptr; Property = Property->PropertyLinkNext)
		{
			Property->CopyCompleteValue_InContainer(static_cast<uint8*>(Dest) + Index * Stride, static_cast<const uint8*>(Src) + Index * Stride);
		}
	}
}

bool UScriptStruct::CompareScriptStruct(const void* A, const void* B, uint32 PortFlags) const
{
	bool bResult = false;
	if (CppStructOps != nullptr && CppStructOps->HasIdentical() && CppStructOps->Identical(A, B, PortFlags, bResult))
	{
		return bResult;
	}
	for (FProperty* Property = PropertyLink; Property != nullptr; Property = Property->PropertyLinkNext)
	{
		for (int32 Index = 0; Index < Property->ArrayDim; ++Index)
		{
			if (!Property->Identical_InContainer(A, B, Index, PortFlags))
			{
				return false;
			}
		}
	}
	return true;
}

// UClass

UClass::UClass(const FObjectInitializer& ObjectInitializer)
	: UStruct(ObjectInitializer)
{
}

UObject* UClass::GetDefaultObject(bool bCreateIfNeeded) const
{
	if (ClassDefaultObject == nullptr && bCreateIfNeeded)
	{
		const_cast<UClass*>(this)->CreateDefaultObject();
	}
	return ClassDefaultObject;
}

UFunction* UClass::FindFunctionByName(FName InName, EIncludeSuperFlag::Type IncludeSuper) const
{
	for (const UClass* Class = this; Class != nullptr; Class = Class->GetSuperClass())
	{
		if (UFunction* const* Found = Class->FuncMap.Find(InName))
		{
			return *Found;
		}
		if (IncludeSuper == EIncludeSuperFlag::ExcludeSuper)
		{
			break;
		}
	}
	if (IncludeSuper == EIncludeSuperFlag::IncludeSuper)
	{
		// Functions of implemented interfaces are functions of the class too.
		for (const UClass* Class = this; Class != nullptr; Class = Class->GetSuperClass())
		{
			for (const FImplementedInterface& Interface : Class->Interfaces)
			{
				if (Interface.Class != nullptr)
				{
					if (UFunction* Function = Interface.Class->FindFunctionByName(InName))
					{
						return Function;
					}
				}
			}
		}
	}
	return nullptr;
}

void UClass::AddFunctionToFunctionMap(UFunction* Function, FName FuncName)
{
	FuncMap.Add(FuncName, Function);
}

bool UClass::ImplementsInterface(const UClass* SomeInterface) const
{
	if (SomeInterface == nullptr || !SomeInterface->HasAnyClassFlags(CLASS_Interface))
	{
		return false;
	}
	for (const UClass* Class = this; Class != nullptr; Class = Class->GetSuperClass())
	{
		for (const FImplementedInterface& Interface : Class->Interfaces)
		{
			if (Interface.Class != nullptr && Interface.Class->IsChildOf(SomeInterface))
			{
				return true;
			}
		}
	}
	return false;
}

// UFunction

UFunction::UFunction(const FObjectInitializer& ObjectInitializer)
	: UStruct(ObjectInitializer)
{
}

void UFunction::Link(bool bRelinkExistingProperties)
{
	UStruct::Link(bRelinkExistingProperties);
	NumParms = 0;
	ReturnValueOffset = MAX_uint16;
	for (FProperty* Property = PropertyLink; Property != nullptr; Property = Property->PropertyLinkNext)
	{
		if (Property->HasAnyPropertyFlags(CPF_Parm))
		{
			++NumParms;
		}
		if (Property->HasAnyPropertyFlags(CPF_ReturnParm))
		{
			ReturnValueOffset = static_cast<uint16>(Property->GetOffset_ForUFunction());
		}
	}
	ParmsSize = static_cast<uint16>(PropertiesSize);
}

FProperty* UFunction::GetReturnProperty() const
{
	for (FProperty* Property = PropertyLink; Property != nullptr; Property = Property->PropertyLinkNext)
	{
		if (Property->HasAnyPropertyFlags(CPF_ReturnParm))
		{
			return Property;
		}
	}
	return nullptr;
}

UClass* UFunction::GetOuterUClass() const
{
	UObject* Outer = GetOuter();
	return Outer != nullptr && Outer->IsA(UClass::StaticClass()) ? static_cast<UClass*>(Outer) : nullptr;
}

// Types as objects: what they refer to, their names, and lookups by name

namespace
{
	void AddFieldTypeReferences(FField* Field, FReferenceCollector& Collector)
	{
		if (Field == nullptr)
		{
			return;
		}
		if (FObjectPropertyBase* ObjectProperty = CastField<FObjectPropertyBase>(Field))
		{
			Collector.AddReferencedObject(ObjectProperty->PropertyClass);
		}
		if (FClassProperty* ClassProperty = CastField<FClassProperty>(Field))
		{
			Collector.AddReferencedObject(ClassProperty->MetaClass);
		}
		if (FSoftClassProperty* SoftClassProperty = CastField<FSoftClassProperty>(Field))
		{
			Collector.AddReferencedObject(SoftClassProperty->MetaClass);
		}
		if (FInterfaceProperty* InterfaceProperty = CastField<FInterfaceProperty>(Field))
		{
			Collector.AddReferencedObject(InterfaceProperty->InterfaceClass);
		}
		if (FStructProperty* StructProperty = CastField<FStructProperty>(Field))
		{
			Collector.AddReferencedObject(StructProperty->Struct);
		}
		if (FByteProperty* ByteProperty = CastField<FByteProperty>(Field))
		{
			Collector.AddReferencedObject(ByteProperty->Enum);
		}
		if (FEnumProperty* EnumProperty = CastField<FEnumProperty>(Field))
		{
			UEnum* Enum = EnumProperty->GetEnum();
			Collector.AddReferencedObject(Enum);
		}
		if (FDelegateProperty* DelegateProperty = CastField<FDelegateProperty>(Field))
		{
			Collector.AddReferencedObject(DelegateProperty->SignatureFunction);
		}
		if (FMulticastDelegateProperty* MulticastProperty = CastField<FMulticastDelegateProperty>(Field))
		{
			Collector.AddReferencedObject(MulticastProperty->SignatureFunction);
		}
		if (FArrayProperty* ArrayProperty = CastField<FArrayProperty>(Field))
		{
			AddFieldTypeReferences(ArrayProperty->Inner, Collector);
		}
		if (FSetProperty* SetProperty = CastField<FSetProperty>(Field))
		{
			AddFieldTypeReferences(SetProperty->ElementProp, Collector);
		}
		if (FMapProperty* MapProperty = CastField<FMapProperty>(Field))
		{
			AddFieldTypeReferences(MapProperty->KeyProp, Collector);
			AddFieldTypeReferences(MapProperty->ValueProp, Collector);
		}
	}
}

void UStruct::AddReferencedObjects(UObject* InThis, FReferenceCollector& Collector)
{
	UStruct* This = static_cast<UStruct*>(InThis);
	Collector.AddReferencedObject(This->SuperStruct, This);
	for (UField* Field = This->Children; Field != nullptr; Field = Field->Next)
	{
		UObject* Child = Field;
		Collector.AddReferencedObject(Child, This);
	}
	for (FField* Field = This->ChildProperties; Field != nullptr; Field = Field->Next)
	{
		AddFieldTypeReferences(Field, Collector);
	}
	UObject::AddReferencedObjects(InThis, Collector);
}

void UClass::AddReferencedObjects(UObject* InThis, FReferenceCollector& Collector)
{
	UClass* This = static_cast<UClass*>(InThis);
	Collector.AddReferencedObject(This->ClassDefaultObject, This);
	Collector.AddReferencedObject(This->ClassWithin, This);
#if WITH_EDITORONLY_DATA
	Collector.AddReferencedObject(This->ClassGeneratedBy, This);
#endif
	for (FImplementedInterface& Interface : This->Interfaces)
	{
		Collector.AddReferencedObject(Interface.Class, This);
	}
	for (TPair<FName, UFunction*>& Pair : This->FuncMap)
	{
		Collector.AddReferencedObject(Pair.Value, This);
	}
	UStruct::AddReferencedObjects(InThis, Collector);
}

void UClass::CallAddReferencedObjects(UObject* Object, FReferenceCollector& Collector) const
{
	for (const UClass* Class = this; Class != nullptr; Class = Class->GetSuperClass())
	{
		if (Class->ClassAddReferencedObjects != nullptr)
		{
			Class->ClassAddReferencedObjects(Object, Collector);
			return;
		}
	}
}

bool UStruct::IsNativeType() const
{
	if (const UClass* Class = Cast<UClass>(this))
	{
		return Class->HasAnyClassFlags(CLASS_Native);
	}
	if (const UScriptStruct* Struct = Cast<UScriptStruct>(this))
	{
		return (Struct->StructFlags & STRUCT_Native) != 0;
	}
	return HasAnyFlags(RF_MarkAsNative);
}

const TCHAR* UClass::GetPrefixCPP() const
{
	return HasAnyCastFlag(CASTCLASS_AActor) ? TEXT("A") : TEXT("U");
}

FName UClass::GetDefaultObjectName() const
{
	return FName(*(FString(TEXT("Default__")) + GetName()));
}

UObject* UClass::TryFindTypeSlowSafe(UClass* TypeClass, const FString& InShortNameOrPathName, EFindFirstObjectOptions InOptions)
{
	if (TypeClass == nullptr || InShortNameOrPathName.IsEmpty())
	{
		return nullptr;
	}
	if (!FPackageName::IsShortPackageName(InShortNameOrPathName))
	{
		return StaticFindObject(TypeClass, nullptr, *InShortNameOrPathName, EnumHasAnyFlags(InOptions, EFindFirstObjectOptions::ExactClass));
	}
	return StaticFindFirstObject(TypeClass, *InShortNameOrPathName, InOptions);
}
