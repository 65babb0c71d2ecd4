#include "Agent/BlueprintUtils.h"

#include "EdGraphSchema_K2.h"
#include "Templates/Casts.h"
#include "UObject/Class.h"
#include "UObject/Interface.h"
#include "UObject/TextProperty.h"
#include "UObject/UnrealType.h"
#include "UObject/UObjectGlobals.h"

namespace
{
	const TCHAR* const ContainerNames[] = { TEXT("None"), TEXT("Array"), TEXT("Set"), TEXT("Map") };

	void WriteTypeTerms(FJsonObject& Out, const FName& Category, const FName& SubCategory, const UObject* SubCategoryObject)
	{
		Out.SetStringField(TEXT("Category"), Category.ToString());
		Out.SetStringField(TEXT("SubCategory"), SubCategory.ToString());
		if (SubCategoryObject != nullptr)
		{
			Out.SetStringField(TEXT("SubCategoryObject"), SubCategoryObject->GetPathName());
		}
	}

	/** Reads what WriteTypeTerms writes. Only objects in memory are found: a type read back never loads anything. */
	void ReadTypeTerms(const FJsonObject& In, FName& OutCategory, FName& OutSubCategory, TWeakObjectPtr<UObject>& OutSubCategoryObject)
	{
		FString Text;
		if (In.TryGetStringField(TEXT("Category"), Text))
		{
			OutCategory = FName(*Text);
		}
		if (In.TryGetStringField(TEXT("SubCategory"), Text))
		{
			OutSubCategory = FName(*Text);
		}
		if (In.TryGetStringField(TEXT("SubCategoryObject"), Text))
		{
			OutSubCategoryObject = StaticFindObject(UObject::StaticClass(), nullptr, *Text, false);
		}
	}

	UObject* FindOrLoadObject(UClass* Class, const FString& Path)
	{
		if (UObject* Found = StaticFindObject(Class, nullptr, *Path, false))
		{
			return Found;
		}
		return StaticLoadObject(Class, nullptr, *Path, nullptr, LOAD_None, nullptr, true);
	}

	UClass* FindOrLoadClass(const FString& Path)
	{
		if (UClass* Found = Cast<UClass>(FindOrLoadObject(UClass::StaticClass(), Path)))
		{
			return Found;
		}
		return StaticLoadClass(UObject::StaticClass(), nullptr, *Path);
	}

	UScriptStruct* FindStructByWordOrPath(const FString& StructType)
	{
		if (StructType.Equals(TEXT("Vector"), ESearchCase::IgnoreCase))
		{
			return TBaseStructure<FVector>::Get();
		}
		if (StructType.Equals(TEXT("Rotator"), ESearchCase::IgnoreCase))
		{
			return TBaseStructure<FRotator>::Get();
		}
		if (StructType.Equals(TEXT("Transform"), ESearchCase::IgnoreCase))
		{
			return TBaseStructure<FTransform>::Get();
		}
		return Cast<UScriptStruct>(FindOrLoadObject(UScriptStruct::StaticClass(), StructType));
	}

	/** The rows of the property type object that name only a category. */
	struct FSimplePropertyType
	{
		const TCHAR* Type;
		FName Category;
		FName SubCategory;
	};

	/** The rows that name a class in "PropertyClass". */
	struct FClassPropertyType
	{
		const TCHAR* Type;
		FName Category;
	};

	/** The export text of a value; a failing export gives the fallback of its kind of property. */
	FString ExportValue(const FProperty* Property, const void* Value)
	{
		FString Text;
		try
		{
			Property->ExportText_Direct(Text, Value, Value, nullptr, PPF_None);
		}
		catch (...)
		{
			if (Property->IsA<FNumericProperty>())
			{
				return TEXT("0");
			}
			if (Property->IsA<FBoolProperty>())
			{
				return TEXT("False");
			}
			if (Property->IsA<FNameProperty>() || Property->IsA<FStrProperty>() || Property->IsA<FTextProperty>())
			{
				return FString();
			}
			return TEXT("Error");
		}
		return Text;
	}
}

TSharedPtr<FJsonObject> FTavrineBlueprintUtils::ConvertEdGraphPinTypeToJson(const FEdGraphPinType& PinType)
{
	TSharedPtr<FJsonObject> Json = MakeShared<FJsonObject>();
	WriteTypeTerms(*Json, PinType.PinCategory, PinType.PinSubCategory, PinType.PinSubCategoryObject.Get());

	const uint8 Container = static_cast<uint8>(PinType.ContainerType);
	Json->SetStringField(TEXT("Container"), Container < UE_ARRAY_COUNT(ContainerNames) ? ContainerNames[Container] : TEXT("None"));

	const FEdGraphTerminalType& ValueType = PinType.PinValueType;
	if (PinType.ContainerType == EPinContainerType::Map && !ValueType.TerminalCategory.IsNone())
	{
		TSharedPtr<FJsonObject> ValueJson = MakeShared<FJsonObject>();
		WriteTypeTerms(*ValueJson, ValueType.TerminalCategory, ValueType.TerminalSubCategory, ValueType.TerminalSubCategoryObject.Get());
		Json->SetObjectField(TEXT("ValueType"), ValueJson);
	}

	TArray<TSharedPtr<FJsonValue>> Flags;
	if (PinType.bIsReference)
	{
		Flags.Add(MakeShared<FJsonValueString>(TEXT("Reference")));
	}
	if (PinType.bIsConst)
	{
		Flags.Add(MakeShared<FJsonValueString>(TEXT("Const")));
	}
	if (PinType.bIsWeakPointer)
	{
		Flags.Add(MakeShared<FJsonValueString>(TEXT("Weak")));
	}
	if (PinType.bIsUObjectWrapper)
	{
		Flags.Add(MakeShared<FJsonValueString>(TEXT("UObjectWrapper")));
	}
	Json->SetArrayField(TEXT("Flags"), Flags);
	return Json;
}

FEdGraphPinType FTavrineBlueprintUtils::ConvertJsonToEdGraphPinType(const TSharedPtr<FJsonObject>& Holder)
{
	FEdGraphPinType PinType;
	const TSharedPtr<FJsonObject>* TypeJson = nullptr;
	if (!Holder.IsValid() || !Holder->TryGetObjectField(TEXT("Type"), TypeJson) || TypeJson == nullptr || !TypeJson->IsValid())
	{
		return PinType;
	}
	const FJsonObject& Json = **TypeJson;
	ReadTypeTerms(Json, PinType.PinCategory, PinType.PinSubCategory, PinType.PinSubCategoryObject);

	PinType.ContainerType = EPinContainerType::None;
	FString Container;
	if (Json.TryGetStringField(TEXT("Container"), Container))
	{
		for (uint8 Index = 1; Index < UE_ARRAY_COUNT(ContainerNames); ++Index)
		{
			if (Container.Equals(ContainerNames[Index], ESearchCase::IgnoreCase))
			{
				PinType.ContainerType = static_cast<EPinContainerType>(Index);
				break;
			}
		}
	}

	const TSharedPtr<FJsonObject>* ValueJson = nullptr;
	if (PinType.ContainerType == EPinContainerType::Map && Json.TryGetObjectField(TEXT("ValueType"), ValueJson) && ValueJson != nullptr && ValueJson->IsValid())
	{
		FEdGraphTerminalType& ValueType = PinType.PinValueType;
		ReadTypeTerms(**ValueJson, ValueType.TerminalCategory, ValueType.TerminalSubCategory, ValueType.TerminalSubCategoryObject);
	}

	PinType.bIsReference = false;
	PinType.bIsConst = false;
	PinType.bIsWeakPointer = false;
	PinType.bIsUObjectWrapper = false;
	const TArray<TSharedPtr<FJsonValue>>* Flags = nullptr;
	if (!Json.TryGetArrayField(TEXT("Flags"), Flags) || Flags == nullptr)
	{
		return PinType;
	}
	for (const TSharedPtr<FJsonValue>& FlagValue : *Flags)
	{
		FString Flag;
		if (!FlagValue.IsValid() || !FlagValue->TryGetString(Flag))
		{
			continue;
		}
		if (Flag.Equals(TEXT("Reference"), ESearchCase::IgnoreCase))
		{
			PinType.bIsReference = true;
		}
		else if (Flag.Equals(TEXT("Const"), ESearchCase::IgnoreCase))
		{
			PinType.bIsConst = true;
		}
		else if (Flag.Equals(TEXT("Weak"), ESearchCase::IgnoreCase))
		{
			PinType.bIsWeakPointer = true;
		}
		else if (Flag.Equals(TEXT("UObjectWrapper"), ESearchCase::IgnoreCase))
		{
			PinType.bIsUObjectWrapper = true;
		}
	}
	return PinType;
}

FEdGraphPinType FTavrineBlueprintUtils::GetVarEdGraphPinTypeFromJSonObject(const TSharedPtr<FJsonObject>& TypeObject)
{
	FEdGraphPinType PinType;
	FString Type;
	if (!TypeObject.IsValid() || !TypeObject->TryGetStringField(TEXT("Type"), Type))
	{
		return PinType;
	}

	// A Blueprint float is always the double precision real.
	static const FSimplePropertyType SimpleTypes[] =
	{
		{ TEXT("BoolProperty"), UEdGraphSchema_K2::PC_Boolean, NAME_None },
		{ TEXT("ByteProperty"), UEdGraphSchema_K2::PC_Byte, NAME_None },
		{ TEXT("IntProperty"), UEdGraphSchema_K2::PC_Int, NAME_None },
		{ TEXT("Int64Property"), UEdGraphSchema_K2::PC_Int64, NAME_None },
		{ TEXT("FloatProperty"), UEdGraphSchema_K2::PC_Real, UEdGraphSchema_K2::PC_Double },
		{ TEXT("DoubleProperty"), UEdGraphSchema_K2::PC_Real, UEdGraphSchema_K2::PC_Double },
		{ TEXT("NameProperty"), UEdGraphSchema_K2::PC_Name, NAME_None },
		{ TEXT("StrProperty"), UEdGraphSchema_K2::PC_String, NAME_None },
		{ TEXT("TextProperty"), UEdGraphSchema_K2::PC_Text, NAME_None },
	};
	for (const FSimplePropertyType& Row : SimpleTypes)
	{
		if (Type.Equals(Row.Type, ESearchCase::IgnoreCase))
		{
			PinType.PinCategory = Row.Category;
			PinType.PinSubCategory = Row.SubCategory;
			return PinType;
		}
	}

	if (Type.Equals(TEXT("EnumProperty"), ESearchCase::IgnoreCase))
	{
		FString EnumType;
		TypeObject->TryGetStringField(TEXT("EnumType"), EnumType);
		UEnum* Enum = EnumType.IsEmpty() ? nullptr : Cast<UEnum>(FindOrLoadObject(UEnum::StaticClass(), EnumType));
		if (Enum != nullptr)
		{
			PinType.PinCategory = UEdGraphSchema_K2::PC_Byte;
			PinType.PinSubCategoryObject = Enum;
		}
		return PinType;
	}

	if (Type.Equals(TEXT("StructProperty"), ESearchCase::IgnoreCase))
	{
		FString StructType;
		TypeObject->TryGetStringField(TEXT("StructType"), StructType);
		UScriptStruct* Struct = StructType.IsEmpty() ? nullptr : FindStructByWordOrPath(StructType);
		if (Struct != nullptr)
		{
			PinType.PinCategory = UEdGraphSchema_K2::PC_Struct;
			PinType.PinSubCategoryObject = Struct;
		}
		return PinType;
	}

	static const FClassPropertyType ClassTypes[] =
	{
		{ TEXT("ObjectProperty"), UEdGraphSchema_K2::PC_Object },
		{ TEXT("SoftObjectProperty"), UEdGraphSchema_K2::PC_SoftObject },
		{ TEXT("ClassProperty"), UEdGraphSchema_K2::PC_Class },
		{ TEXT("SoftClassProperty"), UEdGraphSchema_K2::PC_SoftClass },
	};
	for (const FClassPropertyType& Row : ClassTypes)
	{
		if (!Type.Equals(Row.Type, ESearchCase::IgnoreCase))
		{
			continue;
		}
		FString ClassPath;
		TypeObject->TryGetStringField(TEXT("PropertyClass"), ClassPath);
		UClass* Class = ClassPath.IsEmpty() ? nullptr : FindOrLoadClass(ClassPath);
		if (Class == nullptr)
		{
			return PinType;
		}
		const bool bInterface = Row.Category == UEdGraphSchema_K2::PC_Object && Class->IsChildOf(UInterface::StaticClass());
		PinType.PinCategory = bInterface ? UEdGraphSchema_K2::PC_Interface : Row.Category;
		PinType.bIsReference = false;
		PinType.PinSubCategoryObject = Class;
		return PinType;
	}

	if (Type.Equals(TEXT("ArrayProperty"), ESearchCase::IgnoreCase))
	{
		const TSharedPtr<FJsonObject>* InnerType = nullptr;
		if (!TypeObject->TryGetObjectField(TEXT("InnerType"), InnerType) || InnerType == nullptr)
		{
			return PinType;
		}
		// An array of arrays flattens to an array of the innermost element.
		PinType = GetVarEdGraphPinTypeFromJSonObject(*InnerType);
		PinType.ContainerType = EPinContainerType::Array;
	}
	return PinType;
}

FEdGraphPinType FTavrineBlueprintUtils::ConvertPropertyToEdGraphPinType(const FProperty* Property)
{
	FEdGraphPinType PinType;
	if (Property != nullptr)
	{
		GetDefault<UEdGraphSchema_K2>()->ConvertPropertyToPinType(Property, PinType);
	}
	return PinType;
}

TSharedPtr<FJsonObject> FTavrineBlueprintUtils::GetVarJSonObjectFromProperty(const FProperty* Property)
{
	return ConvertEdGraphPinTypeToJson(ConvertPropertyToEdGraphPinType(Property));
}

FString FTavrineBlueprintUtils::GetPropertyValueAsString(const void* Container, const FProperty* Property)
{
	if (Container == nullptr || Property == nullptr)
	{
		return TEXT("Invalid");
	}
	// Parameters, transient, deprecated and editor-only values say nothing about the asset.
	if (Property->HasAnyPropertyFlags(CPF_Parm | CPF_Transient | CPF_Deprecated | CPF_EditorOnly))
	{
		return FString();
	}
	const void* Value = Property->ContainerPtrToValuePtr<void>(Container, 0);
	if (Value == nullptr)
	{
		return TEXT("Invalid");
	}

	// Class properties are object properties too.
	if (Property->IsA<FObjectProperty>() || Property->IsA<FWeakObjectProperty>())
	{
		const FObjectPropertyBase* ObjectProperty = CastField<FObjectPropertyBase>(Property);
		if (ObjectProperty->GetObjectPropertyValue(Value) == nullptr)
		{
			return TEXT("None");
		}
		return ExportValue(Property, Value);
	}
	// Soft class properties are soft object properties too.
	if (Property->IsA<FSoftObjectProperty>())
	{
		const FString Text = ExportValue(Property, Value);
		return Text.IsEmpty() ? FString(TEXT("None")) : Text;
	}
	return ExportValue(Property, Value);
}
