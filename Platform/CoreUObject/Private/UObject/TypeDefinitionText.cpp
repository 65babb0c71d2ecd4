// The definitions of types made at run time, as "CustomProperties" lines of their package file:
//   CustomProperties Class Flags=0x00040001 Within=/Script/CoreUObject.Object
//   CustomProperties Interface Class=/Script/Engine.SomeInterface
//   CustomProperties Function Flags=0x04020400
//   CustomProperties Super Path=/Script/Engine.Actor
//   CustomProperties Property Type=ArrayProperty Name=Items Flags=0x0000000000000005 Inner="Type=ObjectProperty ..."
#include "UObject/Class.h"
#include "UObject/UnrealType.h"
#include "UObject/EnumProperty.h"
#include "UObject/TextProperty.h"
#include "Misc/FeedbackContext.h"
#include "Misc/PackageName.h"
#include "Templates/Casts.h"
#include "PackageTextFormat.h"
#include "CoreUObjectLog.h"

using namespace UE::CoreUObject::Private;

namespace
{
	FString Spaces(uint32 Indent)
	{
		FString Result;
		for (uint32 Index = 0; Index < Indent; ++Index)
		{
			Result.AppendChar(TEXT(' '));
		}
		return Result;
	}

	FString PathOf(const UObject* Object)
	{
		return PackageText::FormatValue(Object != nullptr ? Object->GetPathName() : FString(TEXT("None")));
	}

	FString DescribeProperty(const FProperty* Property)
	{
		FString Text = FString::Printf(TEXT("Type=%s Name=%s Flags=0x%016llx"), *Property->GetClass()->GetName(), *PackageText::FormatValue(Property->GetName()), static_cast<unsigned long long>(Property->PropertyFlags));
		if (Property->ArrayDim != 1)
		{
			Text += FString::Printf(TEXT(" ArrayDim=%d"), Property->ArrayDim);
		}
		if (!Property->RepNotifyFunc.IsNone())
		{
			Text += TEXT(" RepNotify=") + PackageText::FormatValue(Property->RepNotifyFunc.ToString());
		}
		if (const FObjectPropertyBase* ObjectProperty = CastField<FObjectPropertyBase>(Property))
		{
			Text += TEXT(" Class=") + PathOf(ObjectProperty->PropertyClass);
		}
		if (const FClassProperty* ClassProperty = CastField<FClassProperty>(Property))
		{
			Text += TEXT(" MetaClass=") + PathOf(ClassProperty->MetaClass);
		}
		if (const FSoftClassProperty* SoftClassProperty = CastField<FSoftClassProperty>(Property))
		{
			Text += TEXT(" MetaClass=") + PathOf(SoftClassProperty->MetaClass);
		}
		if (const FInterfaceProperty* InterfaceProperty = CastField<FInterfaceProperty>(Property))
		{
			Text += TEXT(" Class=") + PathOf(InterfaceProperty->InterfaceClass);
		}
		if (const FStructProperty* StructProperty = CastField<FStructProperty>(Property))
		{
			Text += TEXT(" Struct=") + PathOf(StructProperty->Struct);
		}
		if (const FByteProperty* ByteProperty = CastField<FByteProperty>(Property); ByteProperty != nullptr && ByteProperty->Enum != nullptr)
		{
			Text += TEXT(" Enum=") + PathOf(ByteProperty->Enum);
		}
		if (const FEnumProperty* EnumProperty = CastField<FEnumProperty>(Property))
		{
			Text += TEXT(" Enum=") + PathOf(EnumProperty->GetEnum());
			if (EnumProperty->GetUnderlyingProperty() != nullptr)
			{
				Text += TEXT(" Inner=") + PackageText::FormatValue(DescribeProperty(EnumProperty->GetUnderlyingProperty()));
			}
		}
		if (const FDelegateProperty* DelegateProperty = CastField<FDelegateProperty>(Property))
		{
			Text += TEXT(" Signature=") + PathOf(DelegateProperty->SignatureFunction);
		}
		if (const FMulticastDelegateProperty* MulticastProperty = CastField<FMulticastDelegateProperty>(Property))
		{
			Text += TEXT(" Signature=") + PathOf(MulticastProperty->SignatureFunction);
		}
		if (const FArrayProperty* ArrayProperty = CastField<FArrayProperty>(Property); ArrayProperty != nullptr && ArrayProperty->Inner != nullptr)
		{
			Text += TEXT(" Inner=") + PackageText::FormatValue(DescribeProperty(ArrayProperty->Inner));
		}
		if (const FSetProperty* SetProperty = CastField<FSetProperty>(Property); SetProperty != nullptr && SetProperty->ElementProp != nullptr)
		{
			Text += TEXT(" Inner=") + PackageText::FormatValue(DescribeProperty(SetProperty->ElementProp));
		}
		if (const FMapProperty* MapProperty = CastField<FMapProperty>(Property); MapProperty != nullptr && MapProperty->KeyProp != nullptr && MapProperty->ValueProp != nullptr)
		{
			Text += TEXT(" Key=") + PackageText::FormatValue(DescribeProperty(MapProperty->KeyProp));
			Text += TEXT(" Value=") + PackageText::FormatValue(DescribeProperty(MapProperty->ValueProp));
		}
#if WITH_EDITORONLY_DATA
		if (const TMap<FName, FString>* MetaData = Property->GetMetaDataMap())
		{
			for (const TPair<FName, FString>& Pair : *MetaData)
			{
				Text += FString::Printf(TEXT(" Meta.%s=%s"), *Pair.Key.ToString(), *PackageText::FormatValue(Pair.Value));
			}
		}
#endif
		return Text;
	}

	template<typename T>
	T* FindType(const FString& Path, FFeedbackContext* Warn, const TCHAR* What)
	{
		if (Path.IsEmpty() || Path.Equals(TEXT("None")))
		{
			return nullptr;
		}
		UObject* Found = StaticFindObject(T::StaticClass(), nullptr, *Path);
		if (Found == nullptr && !FPackageName::IsScriptPackage(FPackageName::ObjectPathToPackageName(Path)))
		{
			Found = StaticLoadObject(T::StaticClass(), nullptr, *Path, nullptr, LOAD_NoWarn | LOAD_Quiet);
		}
		if (Found == nullptr && Warn != nullptr)
		{
			Warn->Log(ELogVerbosity::Warning, *FString::Printf(TEXT("unknown %s %s"), What, *Path));
		}
		return Cast<T>(Found);
	}

	FProperty* CreateProperty(FFieldVariant Owner, const FString& Description, FFeedbackContext* Warn)
	{
		PackageText::FLine Line;
		if (!PackageText::ParseLine(TEXT("Property ") + Description, Line))
		{
			if (Warn != nullptr)
			{
				Warn->Log(ELogVerbosity::Warning, *FString::Printf(TEXT("malformed property definition: %s"), *Description));
			}
			return nullptr;
		}
		const FName TypeName(*Line.Get(TEXT("Type")));
		FField* Field = FField::Construct(TypeName, Owner, FName(*Line.Get(TEXT("Name"))), RF_Public);
		FProperty* Property = CastField<FProperty>(Field);
		if (Property == nullptr)
		{
			delete Field;
			if (Warn != nullptr)
			{
				Warn->Log(ELogVerbosity::Warning, *FString::Printf(TEXT("unknown property type %s"), *TypeName.ToString()));
			}
			return nullptr;
		}
		Property->PropertyFlags = static_cast<EPropertyFlags>(FCString::Strtoui64(*Line.Get(TEXT("Flags")), nullptr, 16));
		if (const FString* ArrayDim = Line.Find(TEXT("ArrayDim")))
		{
			Property->ArrayDim = FMath::Max(FCString::Atoi(**ArrayDim), 1);
		}
		if (const FString* RepNotify = Line.Find(TEXT("RepNotify")))
		{
			Property->RepNotifyFunc = FName(**RepNotify);
		}
		if (FObjectPropertyBase* ObjectProperty = CastField<FObjectPropertyBase>(Property))
		{
			ObjectProperty->PropertyClass = FindType<UClass>(Line.Get(TEXT("Class")), Warn, TEXT("class"));
		}
		if (FClassProperty* ClassProperty = CastField<FClassProperty>(Property))
		{
			ClassProperty->MetaClass = FindType<UClass>(Line.Get(TEXT("MetaClass")), Warn, TEXT("class"));
		}
		if (FSoftClassProperty* SoftClassProperty = CastField<FSoftClassProperty>(Property))
		{
			SoftClassProperty->MetaClass = FindType<UClass>(Line.Get(TEXT("MetaClass")), Warn, TEXT("class"));
		}
		if (FInterfaceProperty* InterfaceProperty = CastField<FInterfaceProperty>(Property))
		{
			InterfaceProperty->InterfaceClass = FindType<UClass>(Line.Get(TEXT("Class")), Warn, TEXT("interface"));
		}
		if (FStructProperty* StructProperty = CastField<FStructProperty>(Property))
		{
			StructProperty->SetStruct(FindType<UScriptStruct>(Line.Get(TEXT("Struct")), Warn, TEXT("struct")));
		}
		if (FByteProperty* ByteProperty = CastField<FByteProperty>(Property))
		{
			ByteProperty->Enum = FindType<UEnum>(Line.Get(TEXT("Enum")), Warn, TEXT("enum"));
		}
		if (FEnumProperty* EnumProperty = CastField<FEnumProperty>(Property))
		{
			EnumProperty->SetEnum(FindType<UEnum>(Line.Get(TEXT("Enum")), Warn, TEXT("enum")));
			if (const FString* Inner = Line.Find(TEXT("Inner")))
			{
				EnumProperty->AddCppProperty(CreateProperty(EnumProperty, *Inner, Warn));
			}
		}
		if (FDelegateProperty* DelegateProperty = CastField<FDelegateProperty>(Property))
		{
			DelegateProperty->SignatureFunction = FindType<UFunction>(Line.Get(TEXT("Signature")), Warn, TEXT("signature"));
		}
		if (FMulticastDelegateProperty* MulticastProperty = CastField<FMulticastDelegateProperty>(Property))
		{
			MulticastProperty->SignatureFunction = FindType<UFunction>(Line.Get(TEXT("Signature")), Warn, TEXT("signature"));
		}
		if (FArrayProperty* ArrayProperty = CastField<FArrayProperty>(Property))
		{
			if (const FString* Inner = Line.Find(TEXT("Inner")))
			{
				ArrayProperty->AddCppProperty(CreateProperty(ArrayProperty, *Inner, Warn));
			}
		}
		if (FSetProperty* SetProperty = CastField<FSetProperty>(Property))
		{
			if (const FString* Inner = Line.Find(TEXT("Inner")))
			{
				SetProperty->AddCppProperty(CreateProperty(SetProperty, *Inner, Warn));
			}
		}
		if (FMapProperty* MapProperty = CastField<FMapProperty>(Property))
		{
			const FString* Key = Line.Find(TEXT("Key"));
			const FString* Value = Line.Find(TEXT("Value"));
			if (Key != nullptr && Value != nullptr)
			{
				MapProperty->AddCppProperty(CreateProperty(MapProperty, *Key, Warn));
				MapProperty->AddCppProperty(CreateProperty(MapProperty, *Value, Warn));
			}
		}
#if WITH_EDITORONLY_DATA
		for (const TPair<FString, FString>& Pair : Line.Values)
		{
			if (Pair.Key.StartsWith(TEXT("Meta.")))
			{
				Property->SetMetaData(FName(*Pair.Key.Mid(5)), *Pair.Value);
			}
		}
#endif
		return Property;
	}

	void AppendProperty(UStruct* Struct, FProperty* Property)
	{
		FField** Tail = &Struct->ChildProperties;
		while (*Tail != nullptr)
		{
			Tail = &(*Tail)->Next;
		}
		*Tail = Property;
	}

	void ReportMalformed(FFeedbackContext* Warn, const TCHAR* SourceText)
	{
		if (Warn != nullptr)
		{
			Warn->Log(ELogVerbosity::Warning, *FString::Printf(TEXT("malformed type definition: %s"), SourceText));
		}
	}
}

void UStruct::ExportCustomProperties(FOutputDevice& Out, uint32 Indent)
{
	if (IsNativeType())
	{
		return;
	}
	if (SuperStruct != nullptr)
	{
		Out.Logf(TEXT("%sCustomProperties Super Path=%s\n"), *Spaces(Indent), *PathOf(SuperStruct));
	}
	for (FField* Field = ChildProperties; Field != nullptr; Field = Field->Next)
	{
		if (const FProperty* Property = CastField<FProperty>(Field))
		{
			Out.Logf(TEXT("%sCustomProperties Property %s\n"), *Spaces(Indent), *DescribeProperty(Property));
		}
	}
}

void UStruct::ImportCustomProperties(const TCHAR* SourceText, FFeedbackContext* Warn)
{
	PackageText::FLine Line;
	if (!PackageText::ParseLine(SourceText, Line))
	{
		ReportMalformed(Warn, SourceText);
		return;
	}
	if (Line.Keyword.Equals(TEXT("Super")))
	{
		SetSuperStruct(FindType<UStruct>(Line.Get(TEXT("Path")), Warn, TEXT("super type")));
	}
	else if (Line.Keyword.Equals(TEXT("Property")))
	{
		const FString Text(SourceText);
		if (FProperty* Property = CreateProperty(this, Text.Mid(Text.Find(TEXT("Property")) + 8).TrimStart(), Warn))
		{
			AppendProperty(this, Property);
		}
	}
	else
	{
		ReportMalformed(Warn, SourceText);
	}
}

void UClass::ExportCustomProperties(FOutputDevice& Out, uint32 Indent)
{
	if (IsNativeType())
	{
		return;
	}
	FString Line = FString::Printf(TEXT("%sCustomProperties Class Flags=0x%08x"), *Spaces(Indent), static_cast<uint32>(ClassFlags & ~(CLASS_Native | CLASS_Constructed)));
	if (ClassWithin != nullptr && ClassWithin != UObject::StaticClass())
	{
		Line += TEXT(" Within=") + PathOf(ClassWithin);
	}
	if (!ClassConfigName.IsNone())
	{
		Line += TEXT(" Config=") + PackageText::FormatValue(ClassConfigName.ToString());
	}
	Out.Logf(TEXT("%s\n"), *Line);
	for (const FImplementedInterface& Interface : Interfaces)
	{
		Out.Logf(TEXT("%sCustomProperties Interface Class=%s ImplementedByK2=%s\n"), *Spaces(Indent), *PathOf(Interface.Class), Interface.bImplementedByK2 ? TEXT("True") : TEXT("False"));
	}
	UStruct::ExportCustomProperties(Out, Indent);
}

void UClass::ImportCustomProperties(const TCHAR* SourceText, FFeedbackContext* Warn)
{
	PackageText::FLine Line;
	if (!PackageText::ParseLine(SourceText, Line))
	{
		ReportMalformed(Warn, SourceText);
		return;
	}
	if (Line.Keyword.Equals(TEXT("Class")))
	{
		ClassFlags = static_cast<EClassFlags>(FCString::Strtoui64(*Line.Get(TEXT("Flags")), nullptr, 16)) & ~CLASS_Native;
		if (const FString* Within = Line.Find(TEXT("Within")))
		{
			ClassWithin = FindType<UClass>(*Within, Warn, TEXT("class"));
		}
		if (const FString* Config = Line.Find(TEXT("Config")))
		{
			ClassConfigName = FName(**Config);
		}
	}
	else if (Line.Keyword.Equals(TEXT("Interface")))
	{
		FImplementedInterface Interface;
		Interface.Class = FindType<UClass>(Line.Get(TEXT("Class")), Warn, TEXT("interface"));
		Interface.bImplementedByK2 = Line.Get(TEXT("ImplementedByK2")).Equals(TEXT("True"), ESearchCase::IgnoreCase);
		if (Interface.Class != nullptr)
		{
			Interfaces.Add(Interface);
		}
	}
	else
	{
		UStruct::ImportCustomProperties(SourceText, Warn);
	}
}

void UFunction::ExportCustomProperties(FOutputDevice& Out, uint32 Indent)
{
	if (IsNative())
	{
		return;
	}
	Out.Logf(TEXT("%sCustomProperties Function Flags=0x%08x\n"), *Spaces(Indent), static_cast<uint32>(FunctionFlags));
	UStruct::ExportCustomProperties(Out, Indent);
}

void UFunction::ImportCustomProperties(const TCHAR* SourceText, FFeedbackContext* Warn)
{
	PackageText::FLine Line;
	if (PackageText::ParseLine(SourceText, Line) && Line.Keyword.Equals(TEXT("Function")))
	{
		FunctionFlags = static_cast<EFunctionFlags>(FCString::Strtoui64(*Line.Get(TEXT("Flags")), nullptr, 16));
		return;
	}
	UStruct::ImportCustomProperties(SourceText, Warn);
}
