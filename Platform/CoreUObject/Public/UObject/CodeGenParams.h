// The tables that generated .gen.cpp files describe their types with, and the functions that build
// the UClass, UScriptStruct and UEnum objects from them.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/Class.h"
#include "UObject/UnrealType.h"

namespace UECodeGen_Private
{
	enum class EPropertyGenFlags : uint8
	{
		None,
		Byte,
		Int8,
		Int16,
		Int,
		Int64,
		UInt16,
		UInt32,
		UInt64,
		Float,
		Double,
		Bool,
		Str,
		Name,
		Array,
		Enum,
		Object,
		WeakObject,
		SoftObject,
		Class,
		SoftClass,
		Interface,
		Struct,
		Text,
		Set,
		Map,
		Delegate,
		InlineMulticastDelegate,
	};

	struct FMetaDataPairParam
	{
		const TCHAR* Key;
		const TCHAR* Value;
	};

	struct FPropertyParams
	{
		const TCHAR* Name = nullptr;
		EPropertyGenFlags Kind = EPropertyGenFlags::None;
		EPropertyFlags Flags = CPF_None;
		// Offset of the value in its owner; unused for a bitfield bool, which SetBitFunc and ClearBitFunc locate.
		int32 Offset = 0;
		int32 ArrayDim = 1;
		// Bool: the size of the storage, and for a bitfield the functions that set and clear its bit in a
		// constructed owner.
		uint32 BoolSize = 0;
		bool bNativeBool = false;
		void (*SetBitFunc)(void* Owner) = nullptr;
		void (*ClearBitFunc)(void* Owner) = nullptr;
		uint32 OwnerSize = 0;
		// Byte and Enum: the enum; Enum: the size and signedness of its underlying integer.
		UEnum* (*EnumFunc)() = nullptr;
		uint32 EnumUnderlyingSize = 0;
		bool bEnumUnderlyingSigned = false;
		// Array and Set: the element property; Map: the key property, and the value property in ValueInner.
		const FPropertyParams* Inner = nullptr;
		const FPropertyParams* ValueInner = nullptr;
		const FScriptArrayOps* ArrayOps = nullptr;
		const FScriptSetOps* SetOps = nullptr;
		const FScriptMapOps* MapOps = nullptr;
		// Object kinds: the class of the referred objects (Interface: the interface class); Class and
		// SoftClass: also the class the value must derive from.
		UClass* (*ClassFunc)() = nullptr;
		UClass* (*MetaClassFunc)() = nullptr;
		// Struct: the struct.
		UScriptStruct* (*StructFunc)() = nullptr;
		// Delegates: the signature.
		UFunction* (*SignatureFunctionFunc)() = nullptr;
		const TCHAR* RepNotifyFunc = nullptr;
		const FMetaDataPairParam* MetaData = nullptr;
		int32 NumMetaData = 0;
	};

	// A delegate signature declared outside a class lives in the package; one declared in a class in the class.
	struct FDelegateFunctionParams
	{
		const TCHAR* Name = nullptr;
		const TCHAR* PackageName = nullptr;
		UClass* (*OuterClassFunc)() = nullptr;
		EFunctionFlags FunctionFlags = FUNC_None;
		const struct FPropertyParams* const* Properties = nullptr;
		int32 NumProperties = 0;
		uint32 ParmsSize = 0;
	};

	struct FFunctionParams
	{
		const TCHAR* Name = nullptr;
		EFunctionFlags FunctionFlags = FUNC_None;
		const FPropertyParams* const* Properties = nullptr;
		int32 NumProperties = 0;
		uint32 ParmsSize = 0;
		const FMetaDataPairParam* MetaData = nullptr;
		int32 NumMetaData = 0;
	};

	struct FImplementedInterfaceParams
	{
		UClass* (*ClassFunc)();
		int32 Offset;
		bool bImplementedByK2;
	};

	struct FClassParams
	{
		// The class's name without its prefix: "PlayerSettings" for UPlayerSettings.
		const TCHAR* Name = nullptr;
		const TCHAR* PackageName = nullptr;
		uint32 Size = 0;
		uint32 Alignment = 0;
		EClassFlags ClassFlags = CLASS_None;
		EClassCastFlags CastFlags = CASTCLASS_None;
		const TCHAR* ConfigName = nullptr;
		void (*ClassConstructor)(const FObjectInitializer&) = nullptr;
		UClass* (*SuperClassFunc)() = nullptr;
		UClass* (*WithinClassFunc)() = nullptr;
		void (*AddReferencedObjects)(UObject*, FReferenceCollector&) = nullptr;
		const FPropertyParams* const* Properties = nullptr;
		int32 NumProperties = 0;
		const FFunctionParams* const* Functions = nullptr;
		int32 NumFunctions = 0;
		const FImplementedInterfaceParams* Interfaces = nullptr;
		int32 NumInterfaces = 0;
		const FMetaDataPairParam* MetaData = nullptr;
		int32 NumMetaData = 0;
	};

	struct FStructParams
	{
		const TCHAR* Name = nullptr;
		const TCHAR* PackageName = nullptr;
		EStructFlags StructFlags = STRUCT_NoFlags;
		UScriptStruct::ICppStructOps* (*NewStructOps)() = nullptr;
		UScriptStruct* (*SuperFunc)() = nullptr;
		const FPropertyParams* const* Properties = nullptr;
		int32 NumProperties = 0;
		const FMetaDataPairParam* MetaData = nullptr;
		int32 NumMetaData = 0;
	};

	struct FEnumeratorParam
	{
		const TCHAR* Name;
		int64 Value;
	};

	struct FEnumParams
	{
		const TCHAR* Name = nullptr;
		const TCHAR* CppType = nullptr;
		const TCHAR* PackageName = nullptr;
		const FEnumeratorParam* Enumerators = nullptr;
		int32 NumEnumerators = 0;
		UEnum::ECppForm CppForm = UEnum::ECppForm::Regular;
		EEnumFlags EnumFlags = EEnumFlags::None;
		const FMetaDataPairParam* MetaData = nullptr;
		int32 NumMetaData = 0;
	};

	// Build the type once; OutClass is set before its properties are, so that they may refer back to it.
	COREUOBJECT_API void ConstructUClass(UClass*& OutClass, const FClassParams& Params);
	COREUOBJECT_API void ConstructUScriptStruct(UScriptStruct*& OutStruct, const FStructParams& Params);
	COREUOBJECT_API void ConstructUEnum(UEnum*& OutEnum, const FEnumParams& Params);
	COREUOBJECT_API void ConstructUDelegateFunction(UFunction*& OutFunction, const FDelegateFunctionParams& Params);

	template<class CPPSTRUCT>
	UScriptStruct::ICppStructOps* NewCppStructOps()
	{
		return new UScriptStruct::TCppStructOps<CPPSTRUCT>();
	}
}

// Queues a file's registration function, run by ProcessNewlyLoadedUObjects so that its types are known
// by name; a static object of each .gen.cpp holds one.
struct COREUOBJECT_API FRegisterCompiledInInfo
{
	explicit FRegisterCompiledInInfo(void (*RegisterFunction)());
};
