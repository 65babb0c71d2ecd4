// Builds the reflected types from the tables of generated code (and of the hand-declared intrinsic classes).
#include "UObject/CodeGenParams.h"
#include "UObject/EnumProperty.h"
#include "UObject/TextProperty.h"
#include "UObject/Package.h"
#include "CoreUObjectLog.h"
#include "ObjectConstruction.h"

using namespace UE::CoreUObject::Private;

void UE::CoreUObject::Private::PlaceNativeBitfields(UStruct* Struct, void* Instance)
{
	for (FField* Field = Struct->ChildProperties; Field != nullptr; Field = Field->Next)
	{
		FBoolProperty* Property = CastField<FBoolProperty>(Field);
		if (Property != nullptr && Property->IsAwaitingNativeBitfieldPlace() && !Property->PlaceNativeBitfield(Instance))
		{
			UE_LOG(LogClass, Error, TEXT("Bitfield %s of %s moves no bit; its value reads as false"), *Property->GetName(), *Struct->GetName());
		}
	}
}

namespace
{
	const EObjectFlags NativeFieldFlags = RF_Public | RF_MarkAsNative | RF_Transient;

	FNumericProperty* NewIntegerProperty(FFieldVariant Owner, FName Name, uint32 Size, bool bSigned)
	{
		switch (Size)
		{
			case 1:
				return bSigned ? static_cast<FNumericProperty*>(new FInt8Property(Owner, Name, NativeFieldFlags, 0, CPF_None)) : new FByteProperty(Owner, Name, NativeFieldFlags, 0, CPF_None);
			case 2:
				return bSigned ? static_cast<FNumericProperty*>(new FInt16Property(Owner, Name, NativeFieldFlags, 0, CPF_None)) : new FUInt16Property(Owner, Name, NativeFieldFlags, 0, CPF_None);
			case 8:
				return bSigned ? static_cast<FNumericProperty*>(new FInt64Property(Owner, Name, NativeFieldFlags, 0, CPF_None)) : new FUInt64Property(Owner, Name, NativeFieldFlags, 0, CPF_None);
			default:
				return bSigned ? static_cast<FNumericProperty*>(new FIntProperty(Owner, Name, NativeFieldFlags, 0, CPF_None)) : new FUInt32Property(Owner, Name, NativeFieldFlags, 0, CPF_None);
		}
	}

	// A bitfield gets its place later, from a constructed owner: a struct's at once, a class's from its
	// default object (PlaceNativeBitfields). Its setters never touch memory that isn't an owner.
	FBoolProperty* NewBitfieldProperty(FFieldVariant Owner, const UECodeGen_Private::FPropertyParams& Params, EPropertyFlags Flags)
	{
		FBoolProperty* Property = new FBoolProperty(Owner, FName(Params.Name), NativeFieldFlags, 0, Flags, 1, 1, false);
		Property->SetNativeBitfieldAccessors(Params.SetBitFunc, Params.ClearBitFunc, static_cast<int32>(Params.OwnerSize));
		return Property;
	}

	void PlaceStructBitfields(UScriptStruct* Struct)
	{
		UScriptStruct::ICppStructOps* Ops = Struct->GetCppStructOps();
		if (Ops == nullptr)
		{
			return;
		}
		const int32 Alignment = Ops->GetAlignment();
		void* Memory = FObjectConstruction::AllocateObjectMemory(Ops->GetSize(), Alignment);
		Ops->Construct(Memory);
		UE::CoreUObject::Private::PlaceNativeBitfields(Struct, Memory);
		Ops->Destruct(Memory);
		FObjectConstruction::FreeObjectMemory(Memory, Alignment);
	}

	FProperty* NewProperty(FFieldVariant Owner, const UECodeGen_Private::FPropertyParams& Params, EPropertyFlags ExtraFlags)
	{
		using UECodeGen_Private::EPropertyGenFlags;
		const FName Name(Params.Name);
		const EPropertyFlags Flags = Params.Flags | ExtraFlags;
		FProperty* Property = nullptr;
		switch (Params.Kind)
		{
			case EPropertyGenFlags::Byte:
			{
				FByteProperty* ByteProperty = new FByteProperty(Owner, Name, NativeFieldFlags, Params.Offset, Flags);
				ByteProperty->Enum = Params.EnumFunc ? Params.EnumFunc() : nullptr;
				Property = ByteProperty;
				break;
			}
			case EPropertyGenFlags::Int8: Property = new FInt8Property(Owner, Name, NativeFieldFlags, Params.Offset, Flags); break;
			case EPropertyGenFlags::Int16: Property = new FInt16Property(Owner, Name, NativeFieldFlags, Params.Offset, Flags); break;
			case EPropertyGenFlags::Int: Property = new FIntProperty(Owner, Name, NativeFieldFlags, Params.Offset, Flags); break;
			case EPropertyGenFlags::Int64: Property = new FInt64Property(Owner, Name, NativeFieldFlags, Params.Offset, Flags); break;
			case EPropertyGenFlags::UInt16: Property = new FUInt16Property(Owner, Name, NativeFieldFlags, Params.Offset, Flags); break;
			case EPropertyGenFlags::UInt32: Property = new FUInt32Property(Owner, Name, NativeFieldFlags, Params.Offset, Flags); break;
			case EPropertyGenFlags::UInt64: Property = new FUInt64Property(Owner, Name, NativeFieldFlags, Params.Offset, Flags); break;
			case EPropertyGenFlags::Float: Property = new FFloatProperty(Owner, Name, NativeFieldFlags, Params.Offset, Flags); break;
			case EPropertyGenFlags::Double: Property = new FDoubleProperty(Owner, Name, NativeFieldFlags, Params.Offset, Flags); break;
			case EPropertyGenFlags::Bool:
				Property = Params.SetBitFunc ? static_cast<FProperty*>(NewBitfieldProperty(Owner, Params, Flags))
											 : new FBoolProperty(Owner, Name, NativeFieldFlags, Params.Offset, Flags, 0xff, Params.BoolSize > 0 ? Params.BoolSize : 1, true);
				break;
			case EPropertyGenFlags::Str: Property = new FStrProperty(Owner, Name, NativeFieldFlags, Params.Offset, Flags); break;
			case EPropertyGenFlags::Name: Property = new FNameProperty(Owner, Name, NativeFieldFlags, Params.Offset, Flags); break;
			case EPropertyGenFlags::Array:
			{
				FArrayProperty* ArrayProperty = new FArrayProperty(Owner, Name, NativeFieldFlags, Params.Offset, Flags, Params.ArrayOps);
				if (Params.Inner != nullptr)
				{
					ArrayProperty->AddCppProperty(NewProperty(ArrayProperty, *Params.Inner, Flags & CPF_PropagateToArrayInner));
				}
				Property = ArrayProperty;
				break;
			}
			case EPropertyGenFlags::Object:
				Property = new FObjectProperty(Owner, Name, NativeFieldFlags, Params.Offset, Flags, Params.ClassFunc ? Params.ClassFunc() : UObject::StaticClass());
				break;
			case EPropertyGenFlags::Class:
				Property = new FClassProperty(Owner, Name, NativeFieldFlags, Params.Offset, Flags, Params.MetaClassFunc ? Params.MetaClassFunc() : UObject::StaticClass());
				break;
			case EPropertyGenFlags::WeakObject:
				Property = new FWeakObjectProperty(Owner, Name, NativeFieldFlags, Params.Offset, Flags, Params.ClassFunc ? Params.ClassFunc() : UObject::StaticClass());
				break;
			case EPropertyGenFlags::SoftObject:
				Property = new FSoftObjectProperty(Owner, Name, NativeFieldFlags, Params.Offset, Flags, Params.ClassFunc ? Params.ClassFunc() : UObject::StaticClass());
				break;
			case EPropertyGenFlags::SoftClass:
				Property = new FSoftClassProperty(Owner, Name, NativeFieldFlags, Params.Offset, Flags, Params.MetaClassFunc ? Params.MetaClassFunc() : UObject::StaticClass());
				break;
			case EPropertyGenFlags::Interface:
				Property = new FInterfaceProperty(Owner, Name, NativeFieldFlags, Params.Offset, Flags, Params.ClassFunc ? Params.ClassFunc() : nullptr);
				break;
			case EPropertyGenFlags::Struct:
				Property = new FStructProperty(Owner, Name, NativeFieldFlags, Params.Offset, Flags, Params.StructFunc ? Params.StructFunc() : nullptr);
				break;
			case EPropertyGenFlags::Text: Property = new FTextProperty(Owner, Name, NativeFieldFlags, Params.Offset, Flags); break;
			case EPropertyGenFlags::Set:
			{
				FSetProperty* SetProperty = new FSetProperty(Owner, Name, NativeFieldFlags, Params.Offset, Flags, Params.SetOps);
				if (Params.Inner != nullptr)
				{
					SetProperty->AddCppProperty(NewProperty(SetProperty, *Params.Inner, Flags & CPF_PropagateToArrayInner));
				}
				Property = SetProperty;
				break;
			}
			case EPropertyGenFlags::Map:
			{
				FMapProperty* MapProperty = new FMapProperty(Owner, Name, NativeFieldFlags, Params.Offset, Flags, Params.MapOps);
				if (Params.Inner != nullptr && Params.ValueInner != nullptr)
				{
					MapProperty->AddCppProperty(NewProperty(MapProperty, *Params.Inner, Flags & CPF_PropagateToArrayInner));
					MapProperty->AddCppProperty(NewProperty(MapProperty, *Params.ValueInner, Flags & CPF_PropagateToArrayInner));
				}
				Property = MapProperty;
				break;
			}
			case EPropertyGenFlags::Delegate:
				Property = new FDelegateProperty(Owner, Name, NativeFieldFlags, Params.Offset, Flags, Params.SignatureFunctionFunc ? Params.SignatureFunctionFunc() : nullptr);
				break;
			case EPropertyGenFlags::InlineMulticastDelegate:
				Property = new FMulticastInlineDelegateProperty(Owner, Name, NativeFieldFlags, Params.Offset, Flags, Params.SignatureFunctionFunc ? Params.SignatureFunctionFunc() : nullptr);
				break;
			case EPropertyGenFlags::Enum:
			{
				FEnumProperty* EnumProperty = new FEnumProperty(Owner, Name, NativeFieldFlags, Params.Offset, Flags, Params.EnumFunc ? Params.EnumFunc() : nullptr);
				EnumProperty->AddCppProperty(NewIntegerProperty(EnumProperty, FName(TEXT("UnderlyingType")), Params.EnumUnderlyingSize, Params.bEnumUnderlyingSigned));
				Property = EnumProperty;
				break;
			}
			default:
				UE_LOG(LogClass, Error, TEXT("Property %s has a kind this build doesn't know; it is left out"), Params.Name);
				return nullptr;
		}
		if (Property == nullptr)
		{
			return nullptr;
		}
		Property->ArrayDim = Params.ArrayDim > 0 ? Params.ArrayDim : 1;
		if (Params.RepNotifyFunc != nullptr)
		{
			Property->RepNotifyFunc = FName(Params.RepNotifyFunc);
		}
#if WITH_EDITORONLY_DATA
		for (int32 Index = 0; Index < Params.NumMetaData; ++Index)
		{
			Property->SetMetaData(FName(Params.MetaData[Index].Key), Params.MetaData[Index].Value);
		}
#endif
		return Property;
	}

	// Adds the properties in front of the struct's own, last first, so that they end up in declaration order.
	void AddProperties(UStruct* Struct, const UECodeGen_Private::FPropertyParams* const* Properties, int32 NumProperties)
	{
		for (int32 Index = NumProperties - 1; Index >= 0; --Index)
		{
			if (FProperty* Property = NewProperty(Struct, *Properties[Index], CPF_None))
			{
				Struct->AddCppProperty(Property);
			}
		}
	}

	void AddMetaData(UField* Field, const UECodeGen_Private::FMetaDataPairParam* MetaData, int32 NumMetaData)
	{
#if WITH_EDITORONLY_DATA
		for (int32 Index = 0; Index < NumMetaData; ++Index)
		{
			Field->UField::SetMetaData(FName(MetaData[Index].Key), MetaData[Index].Value);
		}
#endif
	}

	UFunction* NewFunction(UClass* Outer, const UECodeGen_Private::FFunctionParams& Params)
	{
		UFunction* Function = NewObject<UFunction>(Outer, UFunction::StaticClass(), FName(Params.Name), NativeFieldFlags);
		if (Function == nullptr)
		{
			return nullptr;
		}
		Function->FunctionFlags = Params.FunctionFlags;
		Function->SetPropertiesSize(static_cast<int32>(Params.ParmsSize));
		AddProperties(Function, Params.Properties, Params.NumProperties);
		AddMetaData(Function, Params.MetaData, Params.NumMetaData);
		Function->StaticLink();
		Outer->AddFunctionToFunctionMap(Function, Function->GetFName());
		return Function;
	}
}

namespace
{
	// Classes linked while their super class was still being made (a property of the super names the
	// subclass, as a node names its parent composite): their property chains lack the super's part.
	TArray<UClass*>& ClassesLinkedEarly()
	{
		static TArray<UClass*> Classes;
		return Classes;
	}

	bool IsLinkedEarly(const UClass* Class)
	{
		return Class != nullptr && ClassesLinkedEarly().Contains(Class);
	}

	// Links again each early class whose super is now complete, supers before subclasses.
	void RelinkClassesLinkedEarly()
	{
		TArray<UClass*>& Early = ClassesLinkedEarly();
		for (bool bRelinked = true; bRelinked;)
		{
			bRelinked = false;
			for (int32 Index = 0; Index < Early.Num(); ++Index)
			{
				UClass* Super = Early[Index]->GetSuperClass();
				if (Super != nullptr && Super->HasAnyClassFlags(CLASS_Constructed) && !IsLinkedEarly(Super))
				{
					UClass* Class = Early[Index];
					Early.RemoveAt(Index);
					Class->StaticLink();
					bRelinked = true;
					break;
				}
			}
		}
	}
}

namespace UECodeGen_Private
{
	void ConstructUClass(UClass*& OutClass, const FClassParams& Params)
	{
		if (OutClass != nullptr)
		{
			return;
		}
		// The class object is made before its own class may exist (the class of classes is one of them),
		// so it gets its class, super class and package after it is known to its static pointer.
		void* Memory = FObjectConstruction::AllocateObjectMemory(sizeof(UClass), alignof(UClass));
		const EObjectFlags ClassObjectFlags = RF_Public | RF_Standalone | RF_Transient | RF_MarkAsNative | RF_MarkAsRootSet;
		UClass* NewClass = static_cast<UClass*>(FObjectConstruction::Construct(Memory, nullptr, nullptr, FName(Params.Name), ClassObjectFlags, nullptr, &InternalConstructor<UClass>));
		NewClass->SetPropertiesSize(static_cast<int32>(Params.Size));
		NewClass->ClassFlags = Params.ClassFlags | CLASS_Native;
		NewClass->ClassCastFlags = Params.CastFlags;
		NewClass->ClassConstructor = Params.ClassConstructor;
		NewClass->ClassAddReferencedObjects = Params.AddReferencedObjects;
		NewClass->ClassConfigName = Params.ConfigName != nullptr ? FName(Params.ConfigName) : FName();
		OutClass = NewClass;

		FObjectBaseAccess::SetClass(NewClass, UClass::StaticClass());
		UClass* SuperClass = Params.SuperClassFunc != nullptr ? Params.SuperClassFunc() : nullptr;
		if (SuperClass == NewClass)
		{
			SuperClass = nullptr;
		}
		NewClass->SetSuperStruct(SuperClass);
		if (SuperClass != nullptr)
		{
			NewClass->ClassFlags |= SuperClass->ClassFlags & CLASS_Inherit;
			NewClass->ClassCastFlags |= SuperClass->ClassCastFlags;
		}
		NewClass->ClassWithin = Params.WithinClassFunc != nullptr ? Params.WithinClassFunc() : nullptr;
		FObjectBaseAccess::Rename(NewClass, NewClass->GetFName(), CreatePackage(Params.PackageName));

		AddProperties(NewClass, Params.Properties, Params.NumProperties);
		TArray<UFunction*> Functions;
		for (int32 Index = 0; Index < Params.NumFunctions; ++Index)
		{
			if (UFunction* Function = NewFunction(NewClass, *Params.Functions[Index]))
			{
				Functions.Add(Function);
			}
		}
		for (int32 Index = Functions.Num() - 1; Index >= 0; --Index)
		{
			Functions[Index]->Next = NewClass->Children;
			NewClass->Children = Functions[Index];
		}
		for (int32 Index = 0; Index < Params.NumInterfaces; ++Index)
		{
			FImplementedInterface Interface;
			Interface.Class = Params.Interfaces[Index].ClassFunc();
			Interface.PointerOffset = Params.Interfaces[Index].Offset;
			Interface.bImplementedByK2 = Params.Interfaces[Index].bImplementedByK2;
			NewClass->Interfaces.Add(Interface);
		}
		AddMetaData(NewClass, Params.MetaData, Params.NumMetaData);
		NewClass->StaticLink();
		NewClass->ClassFlags |= CLASS_Constructed;
		if (SuperClass != nullptr && (!SuperClass->HasAnyClassFlags(CLASS_Constructed) || IsLinkedEarly(SuperClass)))
		{
			ClassesLinkedEarly().Add(NewClass);
		}
		if (ClassesLinkedEarly().Num() > 0)
		{
			RelinkClassesLinkedEarly();
		}
	}

	void ConstructUScriptStruct(UScriptStruct*& OutStruct, const FStructParams& Params)
	{
		if (OutStruct != nullptr)
		{
			return;
		}
		UScriptStruct* NewStruct = NewObject<UScriptStruct>(CreatePackage(Params.PackageName), UScriptStruct::StaticClass(), FName(Params.Name), NativeFieldFlags);
		OutStruct = NewStruct;
		if (NewStruct == nullptr)
		{
			return;
		}
		if (Params.SuperFunc != nullptr)
		{
			NewStruct->SetSuperStruct(Params.SuperFunc());
		}
		NewStruct->StructFlags = NewStruct->StructFlags | Params.StructFlags;
		if (Params.NewStructOps != nullptr)
		{
			NewStruct->SetCppStructOps(Params.NewStructOps());
		}
		AddProperties(NewStruct, Params.Properties, Params.NumProperties);
		PlaceStructBitfields(NewStruct);
		AddMetaData(NewStruct, Params.MetaData, Params.NumMetaData);
		NewStruct->StaticLink();
	}

	void ConstructUEnum(UEnum*& OutEnum, const FEnumParams& Params)
	{
		if (OutEnum != nullptr)
		{
			return;
		}
		UEnum* NewEnum = NewObject<UEnum>(CreatePackage(Params.PackageName), UEnum::StaticClass(), FName(Params.Name), NativeFieldFlags);
		OutEnum = NewEnum;
		if (NewEnum == nullptr)
		{
			return;
		}
		TArray<TPair<FName, int64>> Names;
		for (int32 Index = 0; Index < Params.NumEnumerators; ++Index)
		{
			Names.Add(TPair<FName, int64>(FName(Params.Enumerators[Index].Name), Params.Enumerators[Index].Value));
		}
		NewEnum->CppType = Params.CppType != nullptr ? FString(Params.CppType) : NewEnum->GetName();
		NewEnum->SetEnums(Names, Params.CppForm, Params.EnumFlags, true);
		AddMetaData(NewEnum, Params.MetaData, Params.NumMetaData);
	}
}

namespace UECodeGen_Private
{
	void ConstructUDelegateFunction(UFunction*& OutFunction, const FDelegateFunctionParams& Params)
	{
		if (OutFunction != nullptr)
		{
			return;
		}
		UObject* Outer = Params.OuterClassFunc != nullptr ? static_cast<UObject*>(Params.OuterClassFunc()) : static_cast<UObject*>(CreatePackage(Params.PackageName));
		UFunction* Function = NewObject<UFunction>(Outer, UFunction::StaticClass(), FName(Params.Name), NativeFieldFlags);
		OutFunction = Function;
		if (Function == nullptr)
		{
			return;
		}
		Function->FunctionFlags = Params.FunctionFlags;
		Function->SetPropertiesSize(static_cast<int32>(Params.ParmsSize));
		AddProperties(Function, Params.Properties, Params.NumProperties);
		Function->StaticLink();
	}
}
