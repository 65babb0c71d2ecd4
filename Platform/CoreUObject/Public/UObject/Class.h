// The reflected types: UField, UStruct, UScriptStruct, UClass, UEnum and UFunction, and the class default objects.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/Object.h"
#include "UObject/Field.h"
#include "UObject/TopLevelAssetPath.h"
#include "Misc/Guid.h"

class FProperty;
class UFunction;
class FReferenceCollector;

namespace EIncludeSuperFlag
{
	enum Type
	{
		ExcludeSuper,
		IncludeSuper
	};
}

enum class EGetByNameFlags
{
	None = 0,
	ErrorIfNotFound = 0x01,
	CaseSensitive = 0x02,
	CheckAuthoredName = 0x04,
};
ENUM_CLASS_FLAGS(EGetByNameFlags);

// The base of types and functions: metadata for the editor, and the link to the next field of its owner.
class COREUOBJECT_API UField : public UObject
{
	DECLARE_CLASS_INTRINSIC(UField, UObject, CLASS_Abstract, TEXT("/Script/CoreUObject"), CASTCLASS_UField)

public:
	UField(const FObjectInitializer& ObjectInitializer);

	UClass* GetOwnerClass() const;
	UStruct* GetOwnerStruct() const;

#if WITH_EDITORONLY_DATA
	bool HasMetaData(const TCHAR* Key) const
	{
		return FindMetaData(Key) != nullptr;
	}
	bool HasMetaData(const FName& Key) const
	{
		return FindMetaData(Key) != nullptr;
	}
	// The value of the key, or an empty string.
	const FString& GetMetaData(const TCHAR* Key) const;
	const FString& GetMetaData(const FName& Key) const;
	const FString* FindMetaData(const TCHAR* Key) const;
	const FString* FindMetaData(const FName& Key) const;
	FText GetMetaDataText(const TCHAR* MetaDataKey, const FString LocalizationNamespace = FString(), const FString LocalizationKey = FString()) const;
	void SetMetaData(const TCHAR* Key, const TCHAR* InValue);
	void SetMetaData(const FName& Key, const TCHAR* InValue);
	void RemoveMetaData(const TCHAR* Key);
	bool GetBoolMetaData(const TCHAR* Key) const;
	int32 GetIntMetaData(const TCHAR* Key) const;
	float GetFloatMetaData(const TCHAR* Key) const;
	const TMap<FName, FString>& GetMetaDataMap() const
	{
		return MetaData;
	}
#endif
	// The DisplayName metadata, else the name spelled for people.
	virtual FText GetDisplayNameText() const;
	// The ToolTip metadata, else the display name.
	virtual FText GetToolTipText(bool bShortTooltip = false) const;

	UField* Next = nullptr;

private:
#if WITH_EDITORONLY_DATA
	TMap<FName, FString> MetaData;
#endif
};

// A type with properties: the base of classes, script structs and functions.
class COREUOBJECT_API UStruct : public UField
{
	DECLARE_CLASS_INTRINSIC(UStruct, UField, CLASS_None, TEXT("/Script/CoreUObject"), CASTCLASS_UStruct)

public:
	UStruct(const FObjectInitializer& ObjectInitializer);
	virtual ~UStruct();

	UStruct* GetSuperStruct() const
	{
		return SuperStruct;
	}
	void SetSuperStruct(UStruct* NewSuperStruct);
	bool IsChildOf(const UStruct* SomeBase) const;
	template<class T>
	bool IsChildOf() const
	{
		return IsChildOf(T::StaticClass());
	}

	int32 GetPropertiesSize() const
	{
		return PropertiesSize;
	}
	int32 GetMinAlignment() const
	{
		return MinAlignment;
	}
	// The size rounded up to the alignment.
	int32 GetStructureSize() const;
	void SetPropertiesSize(int32 NewSize)
	{
		PropertiesSize = NewSize;
	}

	// Adds a property in front of this struct's own properties, as the engine does.
	void AddCppProperty(FProperty* Property);
	// Chains the properties of this struct and its supers (PropertyLink) and lets each finish its layout.
	virtual void Link(bool bRelinkExistingProperties);
	void StaticLink(bool bRelinkExistingProperties = false)
	{
		Link(bRelinkExistingProperties);
	}
	// The property of that name here or in a super struct (names compare without regard to case), or null.
	FProperty* FindPropertyByName(FName InName) const;
	// "/Script/Engine.Actor" for AActor.
	FTopLevelAssetPath GetStructPathName() const
	{
		return FTopLevelAssetPath(this);
	}
	// The prefix of the C++ name: "F" for structs, "U" or "A" for classes.
	virtual const TCHAR* GetPrefixCPP() const
	{
		return TEXT("F");
	}
	// Native types: compiled-in classes and structs, and their functions.
	bool IsNativeType() const;

	// Reports the types this struct's properties refer to, its super struct and its functions.
	static void AddReferencedObjects(UObject* InThis, FReferenceCollector& Collector);

	// A type made at run time (a Blueprint's class) is saved with its definition: its super type and
	// its properties. Native types are defined by code and write nothing.
	virtual void ExportCustomProperties(FOutputDevice& Out, uint32 Indent) override;
	virtual void ImportCustomProperties(const TCHAR* SourceText, FFeedbackContext* Warn) override;

	// Gives every property of a block of this struct's layout its starting value.
	virtual void InitializeStruct(void* Dest, int32 ArrayDim = 1) const;
	virtual void DestroyStruct(void* Dest, int32 ArrayDim = 1) const;

	// Functions and other UFields owned by this struct.
	UField* Children = nullptr;
	// This struct's own properties, in declaration order.
	FField* ChildProperties = nullptr;
	// Every property including the supers', the struct's own first.
	FProperty* PropertyLink = nullptr;

protected:
	UStruct* SuperStruct = nullptr;
	int32 PropertiesSize = 0;
	int32 MinAlignment = 1;
};

// A reflected C++ struct (USTRUCT).
class COREUOBJECT_API UScriptStruct : public UStruct
{
	DECLARE_CLASS_INTRINSIC(UScriptStruct, UStruct, CLASS_None, TEXT("/Script/CoreUObject"), CASTCLASS_UScriptStruct)

public:
	// What a property needs to construct, copy, compare and destroy values of the native struct.
	struct ICppStructOps
	{
		ICppStructOps(int32 InSize, int32 InAlignment)
			: Size(InSize)
			, Alignment(InAlignment)
		{
		}
		virtual ~ICppStructOps()
		{
		}
		virtual void Construct(void* Dest) = 0;
		virtual void Destruct(void* Dest) = 0;
		virtual bool HasCopy() const = 0;
		virtual bool Copy(void* Dest, const void* Src, int32 ArrayDim) = 0;
		virtual bool HasIdentical() const = 0;
		virtual bool Identical(const void* A, const void* B, uint32 PortFlags, bool& bOutResult) = 0;
		int32 GetSize() const
		{
			return Size;
		}
		int32 GetAlignment() const
		{
			return Alignment;
		}

	private:
		int32 Size;
		int32 Alignment;
	};

	template<class CPPSTRUCT>
	struct TCppStructOps final : public ICppStructOps
	{
		TCppStructOps()
			: ICppStructOps(sizeof(CPPSTRUCT), alignof(CPPSTRUCT))
		{
		}
		virtual void Construct(void* Dest) override
		{
			new (Dest) CPPSTRUCT();
		}
		virtual void Destruct(void* Dest) override
		{
			static_cast<CPPSTRUCT*>(Dest)->~CPPSTRUCT();
		}
		virtual bool HasCopy() const override
		{
			return true;
		}
		virtual bool Copy(void* Dest, const void* Src, int32 ArrayDim) override
		{
			for (int32 Index = 0; Index < ArrayDim; ++Index)
			{
				static_cast<CPPSTRUCT*>(Dest)[Index] = static_cast<const CPPSTRUCT*>(Src)[Index];
			}
			return true;
		}
		virtual bool HasIdentical() const override
		{
			return requires(const CPPSTRUCT& A, const CPPSTRUCT& B) { A == B; };
		}
		virtual bool Identical(const void* A, const void* B, uint32 PortFlags, bool& bOutResult) override
		{
			if constexpr (requires(const CPPSTRUCT& Left, const CPPSTRUCT& Right) { Left == Right; })
			{
				bOutResult = *static_cast<const CPPSTRUCT*>(A) == *static_cast<const CPPSTRUCT*>(B);
				return true;
			}
			else
			{
				return false;
			}
		}
	};

	UScriptStruct(const FObjectInitializer& ObjectInitializer);
	virtual ~UScriptStruct();

	ICppStructOps* GetCppStructOps() const
	{
		return CppStructOps;
	}
	// Takes ownership of the ops.
	void SetCppStructOps(ICppStructOps* InCppStructOps);

	virtual void InitializeStruct(void* Dest, int32 ArrayDim = 1) const override;
	virtual void DestroyStruct(void* Dest, int32 ArrayDim = 1) const override;
	void CopyScriptStruct(void* Dest, const void* Src, int32 ArrayDim = 1) const;
	// The native == when the struct has one, else property by property.
	bool CompareScriptStruct(const void* A, const void* B, uint32 PortFlags) const;

	// "(Name=Value,...)": the members that differ from Defaults (all of an atomic struct, or when Defaults is Value).
	void ExportText(FString& ValueStr, const void* Value, const void* Defaults, UObject* OwnerObject, int32 PortFlags, UObject* ExportRootScope, bool bAllowNativeOverride = true) const;
	// Reads "(Name=Value,...)" into Value; members not named keep their values. Null when the text isn't such a list.
	const TCHAR* ImportText(const TCHAR* Buffer, void* Value, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText, const FString& StructName, bool bAllowNativeOverride = true) const;
	const TCHAR* ImportText(const TCHAR* Buffer, void* Value, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText, const TFunctionRef<FString()>& StructNameGetter, bool bAllowNativeOverride = true) const
	{
		return ImportText(Buffer, Value, OwnerObject, PortFlags, ErrorText, StructNameGetter(), bAllowNativeOverride);
	}
	FString GetStructCPPName(uint32 CPPExportFlags = 0) const
	{
		return FString(TEXT("F")) + GetName();
	}

	EStructFlags StructFlags = STRUCT_NoFlags;

private:
	ICppStructOps* CppStructOps = nullptr;
};

// An interface class that a class implements, and where that part sits in its objects.
struct FImplementedInterface
{
	UClass* Class = nullptr;
	int32 PointerOffset = 0;
	bool bImplementedByK2 = false;
};

class COREUOBJECT_API UClass : public UStruct
{
	DECLARE_CLASS_INTRINSIC(UClass, UStruct, CLASS_None, TEXT("/Script/CoreUObject"), CASTCLASS_UClass)

public:
	typedef void (*ClassConstructorType)(const FObjectInitializer&);

	UClass(const FObjectInitializer& ObjectInitializer);

	UClass* GetSuperClass() const
	{
		return static_cast<UClass*>(GetSuperStruct());
	}

	// The object holding the class's defaults; made on first request unless bCreateIfNeeded is false.
	UObject* GetDefaultObject(bool bCreateIfNeeded = true) const;
	template<class T>
	T* GetDefaultObject() const
	{
		UObject* Object = GetDefaultObject();
		check(Object == nullptr || Object->IsA(T::StaticClass()));
		return static_cast<T*>(Object);
	}

	bool HasAnyClassFlags(EClassFlags FlagsToCheck) const
	{
		return (ClassFlags & FlagsToCheck) != 0;
	}
	bool HasAllClassFlags(EClassFlags FlagsToCheck) const
	{
		return (ClassFlags & FlagsToCheck) == FlagsToCheck;
	}
	EClassFlags GetClassFlags() const
	{
		return ClassFlags;
	}
	bool HasAnyCastFlag(EClassCastFlags FlagToCheck) const
	{
		return (ClassCastFlags & FlagToCheck) != 0;
	}
	bool HasAllCastFlags(EClassCastFlags FlagsToCheck) const
	{
		return (ClassCastFlags & FlagsToCheck) == FlagsToCheck;
	}

	// The ini file of the class's config properties (see the class's config name).
	FString GetConfigName() const;

	// "/Script/Engine.Actor" for AActor, "/Game/BP_Door.BP_Door_C" for a Blueprint's class.
	FTopLevelAssetPath GetClassPathName() const
	{
		return FTopLevelAssetPath(this);
	}
	virtual const TCHAR* GetPrefixCPP() const override;
	// The name the default object has: "Default__" and the class's name.
	FName GetDefaultObjectName() const;

	// A loaded type by its path ("/Script/Engine.Actor") or by its short name ("Actor"); null when there
	// is none or the short name is ambiguous in a way the options don't settle.
	static UObject* TryFindTypeSlowSafe(UClass* TypeClass, const FString& InShortNameOrPathName, EFindFirstObjectOptions InOptions = EFindFirstObjectOptions::None);
	static UObject* TryFindTypeSlow(UClass* TypeClass, const FString& InShortNameOrPathName, EFindFirstObjectOptions InOptions = EFindFirstObjectOptions::None)
	{
		return TryFindTypeSlowSafe(TypeClass, InShortNameOrPathName, InOptions);
	}
	template<typename T>
	static T* TryFindTypeSlowSafe(const FString& InShortNameOrPathName, EFindFirstObjectOptions InOptions = EFindFirstObjectOptions::None)
	{
		return static_cast<T*>(TryFindTypeSlowSafe(T::StaticClass(), InShortNameOrPathName, InOptions));
	}
	template<typename T>
	static T* TryFindTypeSlow(const FString& InShortNameOrPathName, EFindFirstObjectOptions InOptions = EFindFirstObjectOptions::None)
	{
		return TryFindTypeSlowSafe<T>(InShortNameOrPathName, InOptions);
	}

	// How objects of the class report references beyond their reflected properties (their AddReferencedObjects).
	typedef void (*ClassAddReferencedObjectsType)(UObject*, FReferenceCollector&);
	ClassAddReferencedObjectsType ClassAddReferencedObjects = nullptr;
	void CallAddReferencedObjects(UObject* Object, FReferenceCollector& Collector) const;

#if WITH_EDITORONLY_DATA
	// The Blueprint this class was compiled from; null for native classes.
	UObject* ClassGeneratedBy = nullptr;
#endif

	// Reports the class default object and the classes this class names besides its super class.
	static void AddReferencedObjects(UObject* InThis, FReferenceCollector& Collector);
	// A class is never an asset itself; a Blueprint that makes one is.
	virtual bool IsAsset() const override
	{
		return false;
	}
	virtual void ExportCustomProperties(FOutputDevice& Out, uint32 Indent) override;
	virtual void ImportCustomProperties(const TCHAR* SourceText, FFeedbackContext* Warn) override;

	UFunction* FindFunctionByName(FName InName, EIncludeSuperFlag::Type IncludeSuper = EIncludeSuperFlag::IncludeSuper) const;
	void AddFunctionToFunctionMap(UFunction* Function, FName FuncName);
	bool ImplementsInterface(const UClass* SomeInterface) const;

	ClassConstructorType ClassConstructor = nullptr;
	EClassFlags ClassFlags = CLASS_None;
	EClassCastFlags ClassCastFlags = CASTCLASS_None;
	UClass* ClassWithin = nullptr;
	FName ClassConfigName;
	TArray<FImplementedInterface> Interfaces;
	TMap<FName, UFunction*> FuncMap;

private:
	friend struct UE::CoreUObject::Private::FObjectConstruction;

	UObject* CreateDefaultObject();

	mutable UObject* ClassDefaultObject = nullptr;
	// The properties a new native object copies from the class default object: those whose default
	// differs from what the constructor gives (config values, for one). Worked out at the first NewObject.
	TArray<FProperty*> PostConstructCopyList;
	bool bPostConstructCopyListReady = false;
};

class COREUOBJECT_API UEnum : public UField
{
	DECLARE_CLASS_INTRINSIC(UEnum, UField, CLASS_None, TEXT("/Script/CoreUObject"), CASTCLASS_UEnum)

public:
	// How the enum is written in C++, which decides the form of its names.
	enum class ECppForm : uint8
	{
		Regular,     // enum EName { One }: names "One"
		Namespaced,  // namespace EName { enum Type { One }; }: names "EName::One"
		EnumClass    // enum class EName { One }: names "EName::One"
	};

	UEnum(const FObjectInitializer& ObjectInitializer);

	// Replaces the names; adds "<Enum>_MAX" past the largest value unless the enum has it or bAddMaxKeyIfMissing is false.
	virtual bool SetEnums(TArray<TPair<FName, int64>>& InNames, ECppForm InCppForm, EEnumFlags InFlags = EEnumFlags::None, bool bAddMaxKeyIfMissing = true);

	int32 NumEnums() const
	{
		return Names.Num();
	}
	FName GetNameByIndex(int32 Index) const;
	FName GetNameByValue(int64 InValue) const;
	int64 GetValueByIndex(int32 Index) const;
	int32 GetIndexByValue(int64 InValue) const;
	// Accepts the full name ("EName::One") and, for enum classes and namespaced enums, the short one ("One").
	int32 GetIndexByName(const FName InName, EGetByNameFlags Flags = EGetByNameFlags::None) const;
	int64 GetValueByName(const FName InName, EGetByNameFlags Flags = EGetByNameFlags::None) const;
	int32 GetIndexByNameString(const FString& SearchString, EGetByNameFlags Flags = EGetByNameFlags::None) const;
	int64 GetValueByNameString(const FString& SearchString, EGetByNameFlags Flags = EGetByNameFlags::None) const;
	// The name without the "EName::" part.
	FString GetNameStringByIndex(int32 InIndex) const;
	FString GetNameStringByValue(int64 InValue) const;
	FString GetAuthoredNameStringByIndex(int32 InIndex) const
	{
		return GetNameStringByIndex(InIndex);
	}
	FString GetAuthoredNameStringByValue(int64 InValue) const
	{
		return GetNameStringByValue(InValue);
	}
	// The DisplayName metadata of the entry, else its short name spelled for people.
	FText GetDisplayNameTextByIndex(int32 InIndex) const;
	FText GetDisplayNameTextByValue(int64 InValue) const;
	FText GetToolTipTextByIndex(int32 NameIndex) const;

	int64 GetMaxEnumValue() const;
	bool IsValidEnumValue(int64 InValue) const;
	bool IsValidEnumName(FName InName) const;
	bool ContainsExistingMax() const;
	ECppForm GetCppForm() const
	{
		return CppForm;
	}
	bool HasAnyEnumFlags(EEnumFlags InFlags) const
	{
		return EnumHasAnyFlags(EnumFlags, InFlags);
	}
	// The name an entry of this enum has in full: "EName::One" for enum classes and namespaced enums.
	FString GenerateFullEnumName(const TCHAR* InEnumName) const;

#if WITH_EDITORONLY_DATA
	// Metadata of the enum (NameIndex INDEX_NONE) or of one entry, stored as "<ShortName>.<Key>".
	FString GetMetaData(const TCHAR* Key, int32 NameIndex = INDEX_NONE, bool bAllowRemap = true) const;
	void SetMetaData(const TCHAR* Key, const TCHAR* InValue, int32 NameIndex = INDEX_NONE);
	bool HasMetaData(const TCHAR* Key, int32 NameIndex = INDEX_NONE) const;
	void RemoveMetaData(const TCHAR* Key, int32 NameIndex = INDEX_NONE);
#endif

	template<typename TEnum>
	static FString GetValueAsString(const TEnum EnumValue)
	{
		return StaticEnum<TEnum>()->GetNameByValue(static_cast<int64>(EnumValue)).ToString();
	}
	template<typename TEnum>
	static FName GetValueAsName(const TEnum EnumValue)
	{
		return StaticEnum<TEnum>()->GetNameByValue(static_cast<int64>(EnumValue));
	}
	template<typename TEnum>
	static FText GetDisplayValueAsText(const TEnum EnumValue)
	{
		return StaticEnum<TEnum>()->GetDisplayNameTextByValue(static_cast<int64>(EnumValue));
	}

	// The C++ type, such as "EPlayerMode" or "EName::Type".
	FString CppType;

protected:
	FString MetaDataKey(const TCHAR* Key, int32 NameIndex) const;

	TArray<TPair<FName, int64>> Names;
	ECppForm CppForm = ECppForm::Regular;
	EEnumFlags EnumFlags = EEnumFlags::None;
};

typedef void (*FNativeFuncPtr)(UObject* Context, struct FFrame& TheStack, void* Result);

class COREUOBJECT_API UFunction : public UStruct
{
	DECLARE_CLASS_INTRINSIC(UFunction, UStruct, CLASS_None, TEXT("/Script/CoreUObject"), CASTCLASS_UFunction)

public:
	UFunction(const FObjectInitializer& ObjectInitializer);

	virtual void Link(bool bRelinkExistingProperties) override;
	virtual void ExportCustomProperties(FOutputDevice& Out, uint32 Indent) override;
	virtual void ImportCustomProperties(const TCHAR* SourceText, FFeedbackContext* Warn) override;

	// The ReturnValue parameter, or null.
	FProperty* GetReturnProperty() const;
	bool HasAnyFunctionFlags(EFunctionFlags FlagsToCheck) const
	{
		return (FunctionFlags & FlagsToCheck) != 0;
	}
	bool HasAllFunctionFlags(EFunctionFlags FlagsToCheck) const
	{
		return (FunctionFlags & FlagsToCheck) == FlagsToCheck;
	}
	UClass* GetOuterUClass() const;
	UFunction* GetSuperFunction() const
	{
		return static_cast<UFunction*>(GetSuperStruct());
	}

	EFunctionFlags FunctionFlags = FUNC_None;
	uint8 NumParms = 0;
	uint16 ParmsSize = 0;
	uint16 ReturnValueOffset = MAX_uint16;
	FNativeFuncPtr Func = nullptr;
};

// The struct object of a C++ struct: StaticStruct<T>(), which the reflection data of T defines.
template<class T>
struct TBaseStructure
{
	static UScriptStruct* Get()
	{
		return StaticStruct<T>();
	}
};

// The engine's core structs are reflected by CoreUObject itself.
template<> COREUOBJECT_API UScriptStruct* StaticStruct<FVector>();
template<> COREUOBJECT_API UScriptStruct* StaticStruct<FRotator>();
template<> COREUOBJECT_API UScriptStruct* StaticStruct<FQuat>();
template<> COREUOBJECT_API UScriptStruct* StaticStruct<FTransform>();
template<> COREUOBJECT_API UScriptStruct* StaticStruct<FLinearColor>();
template<> COREUOBJECT_API UScriptStruct* StaticStruct<FColor>();
template<> COREUOBJECT_API UScriptStruct* StaticStruct<FGuid>();

// The class default object of T, made on first use.
template<class T>
const T* GetDefault()
{
	return static_cast<const T*>(T::StaticClass()->GetDefaultObject());
}
template<class T>
T* GetMutableDefault()
{
	return static_cast<T*>(T::StaticClass()->GetDefaultObject());
}
// The default object of Class, which must be T or derive from it.
template<class T>
const T* GetDefault(UClass* Class)
{
	UObject* Object = Class->GetDefaultObject();
	check(Object == nullptr || Object->IsA(T::StaticClass()));
	return static_cast<const T*>(Object);
}
template<class T>
T* GetMutableDefault(UClass* Class)
{
	UObject* Object = Class->GetDefaultObject();
	check(Object == nullptr || Object->IsA(T::StaticClass()));
	return static_cast<T*>(Object);
}
