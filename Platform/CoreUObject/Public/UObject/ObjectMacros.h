// The reflection macros, the object, class and property flags, and the boilerplate that a class's
// generated body expands to.
#pragma once

#include "CoreTypes.h"
#include "Misc/EnumClassFlags.h"
#include "UObject/Script.h"

#ifndef COREUOBJECT_API
#define COREUOBJECT_API
#endif
#define NO_API

class UObject;
class UClass;
class UEnum;
class UScriptStruct;
class UPackage;
class FObjectInitializer;

// The header tool reads these; the compiler sees nothing.
#define UCLASS(...)
#define UINTERFACE(...)
#define USTRUCT(...)
#define UENUM(...)
#define UPROPERTY(...)
#define UFUNCTION(...)
#define UPARAM(...)
#define UMETA(...)
#define UDELEGATE(...)

// GENERATED_BODY() names the macro that the header tool wrote for its own line of the header:
// <file id>_<line>_GENERATED_BODY, defined in the header's .generated.h.
#define BODY_MACRO_COMBINE_INNER(A, B, C, D) A##B##C##D
#define BODY_MACRO_COMBINE(A, B, C, D) BODY_MACRO_COMBINE_INNER(A, B, C, D)
#define GENERATED_BODY(...) BODY_MACRO_COMBINE(CURRENT_FILE_ID, _, __LINE__, _GENERATED_BODY)
#define GENERATED_UCLASS_BODY(...) BODY_MACRO_COMBINE(CURRENT_FILE_ID, _, __LINE__, _GENERATED_UCLASS_BODY)
#define GENERATED_USTRUCT_BODY(...) BODY_MACRO_COMBINE(CURRENT_FILE_ID, _, __LINE__, _GENERATED_USTRUCT_BODY)
#define GENERATED_UINTERFACE_BODY(...) BODY_MACRO_COMBINE(CURRENT_FILE_ID, _, __LINE__, _GENERATED_UINTERFACE_BODY)
#define GENERATED_IINTERFACE_BODY(...) BODY_MACRO_COMBINE(CURRENT_FILE_ID, _, __LINE__, _GENERATED_IINTERFACE_BODY)

enum EObjectFlags : uint32
{
	RF_NoFlags = 0x00000000,
	RF_Public = 0x00000001,
	RF_Standalone = 0x00000002,
	RF_MarkAsNative = 0x00000004,
	RF_Transactional = 0x00000008,
	RF_ClassDefaultObject = 0x00000010,
	RF_ArchetypeObject = 0x00000020,
	RF_Transient = 0x00000040,
	RF_MarkAsRootSet = 0x00000080,
	RF_TagGarbageTemp = 0x00000100,
	RF_NeedInitialization = 0x00000200,
	RF_NeedLoad = 0x00000400,
	RF_KeepForCooker = 0x00000800,
	RF_NeedPostLoad = 0x00001000,
	RF_NeedPostLoadSubobjects = 0x00002000,
	RF_NewerVersionExists = 0x00004000,
	RF_BeginDestroyed = 0x00008000,
	RF_FinishDestroyed = 0x00010000,
	RF_BeingRegenerated = 0x00020000,
	RF_DefaultSubObject = 0x00040000,
	RF_WasLoaded = 0x00080000,
	RF_TextExportTransient = 0x00100000,
	RF_LoadCompleted = 0x00200000,
	RF_InheritableComponentTemplate = 0x00400000,
	RF_DuplicateTransient = 0x00800000,
	RF_StrongRefOnFrame = 0x01000000,
	RF_NonPIEDuplicateTransient = 0x02000000,
	RF_WillBeLoaded = 0x08000000,
	RF_HasExternalPackage = 0x10000000,
	RF_MirroredGarbage = 0x40000000,
	RF_AllocatedInSharedPage = 0x80000000,
};
ENUM_CLASS_FLAGS(EObjectFlags);

#define RF_AllFlags ((EObjectFlags)0xffffffff)
#define RF_Load ((EObjectFlags)(RF_Public | RF_Standalone | RF_Transactional | RF_ClassDefaultObject | RF_ArchetypeObject | RF_DefaultSubObject | RF_TextExportTransient | RF_InheritableComponentTemplate | RF_DuplicateTransient | RF_NonPIEDuplicateTransient))
#define RF_PropagateToSubObjects ((EObjectFlags)(RF_Public | RF_ArchetypeObject | RF_Transactional | RF_Transient))

enum EPropertyFlags : uint64
{
	CPF_None = 0,
	CPF_Edit = 0x0000000000000001,
	CPF_ConstParm = 0x0000000000000002,
	CPF_BlueprintVisible = 0x0000000000000004,
	CPF_ExportObject = 0x0000000000000008,
	CPF_BlueprintReadOnly = 0x0000000000000010,
	CPF_Net = 0x0000000000000020,
	CPF_EditFixedSize = 0x0000000000000040,
	CPF_Parm = 0x0000000000000080,
	CPF_OutParm = 0x0000000000000100,
	CPF_ZeroConstructor = 0x0000000000000200,
	CPF_ReturnParm = 0x0000000000000400,
	CPF_DisableEditOnTemplate = 0x0000000000000800,
	CPF_NonNullable = 0x0000000000001000,
	CPF_Transient = 0x0000000000002000,
	CPF_Config = 0x0000000000004000,
	CPF_RequiredParm = 0x0000000000008000,
	CPF_DisableEditOnInstance = 0x0000000000010000,
	CPF_EditConst = 0x0000000000020000,
	CPF_GlobalConfig = 0x0000000000040000,
	CPF_InstancedReference = 0x0000000000080000,
	CPF_ExperimentalExternalObjects = 0x0000000000100000,
	CPF_DuplicateTransient = 0x0000000000200000,
	CPF_SaveGame = 0x0000000001000000,
	CPF_NoClear = 0x0000000002000000,
	CPF_ReferenceParm = 0x0000000008000000,
	CPF_BlueprintAssignable = 0x0000000010000000,
	CPF_Deprecated = 0x0000000020000000,
	CPF_IsPlainOldData = 0x0000000040000000,
	CPF_RepSkip = 0x0000000080000000,
	CPF_RepNotify = 0x0000000100000000,
	CPF_Interp = 0x0000000200000000,
	CPF_NonTransactional = 0x0000000400000000,
	CPF_EditorOnly = 0x0000000800000000,
	CPF_NoDestructor = 0x0000001000000000,
	CPF_AutoWeak = 0x0000004000000000,
	CPF_ContainsInstancedReference = 0x0000008000000000,
	CPF_AssetRegistrySearchable = 0x0000010000000000,
	CPF_SimpleDisplay = 0x0000020000000000,
	CPF_AdvancedDisplay = 0x0000040000000000,
	CPF_Protected = 0x0000080000000000,
	CPF_BlueprintCallable = 0x0000100000000000,
	CPF_BlueprintAuthorityOnly = 0x0000200000000000,
	CPF_TextExportTransient = 0x0000400000000000,
	CPF_NonPIEDuplicateTransient = 0x0000800000000000,
	CPF_ExposeOnSpawn = 0x0001000000000000,
	CPF_PersistentInstance = 0x0002000000000000,
	CPF_UObjectWrapper = 0x0004000000000000,
	CPF_HasGetValueTypeHash = 0x0008000000000000,
	CPF_NativeAccessSpecifierPublic = 0x0010000000000000,
	CPF_NativeAccessSpecifierProtected = 0x0020000000000000,
	CPF_NativeAccessSpecifierPrivate = 0x0040000000000000,
	CPF_SkipSerialization = 0x0080000000000000,
};
ENUM_CLASS_FLAGS(EPropertyFlags);

#define CPF_NativeAccessSpecifiers (CPF_NativeAccessSpecifierPublic | CPF_NativeAccessSpecifierProtected | CPF_NativeAccessSpecifierPrivate)
#define CPF_ParmFlags (CPF_Parm | CPF_OutParm | CPF_ReturnParm | CPF_RequiredParm | CPF_ReferenceParm | CPF_ConstParm)
#define CPF_PropagateToArrayInner (CPF_ExportObject | CPF_PersistentInstance | CPF_InstancedReference | CPF_ContainsInstancedReference | CPF_Config | CPF_EditConst | CPF_Deprecated | CPF_EditorOnly | CPF_AutoWeak | CPF_UObjectWrapper)
#define CPF_AllFlags ((EPropertyFlags)0xFFFFFFFFFFFFFFFF)

enum EClassFlags : uint32
{
	CLASS_None = 0x00000000u,
	CLASS_Abstract = 0x00000001u,
	CLASS_DefaultConfig = 0x00000002u,
	CLASS_Config = 0x00000004u,
	CLASS_Transient = 0x00000008u,
	CLASS_Optional = 0x00000010u,
	CLASS_MatchedSerializers = 0x00000020u,
	CLASS_ProjectUserConfig = 0x00000040u,
	CLASS_Native = 0x00000080u,
	CLASS_NotPlaceable = 0x00000200u,
	CLASS_PerObjectConfig = 0x00000400u,
	CLASS_ReplicationDataIsSetUp = 0x00000800u,
	CLASS_EditInlineNew = 0x00001000u,
	CLASS_CollapseCategories = 0x00002000u,
	CLASS_Interface = 0x00004000u,
	CLASS_PerPlatformConfig = 0x00008000u,
	CLASS_Const = 0x00010000u,
	CLASS_NeedsDeferredDependencyLoading = 0x00020000u,
	CLASS_CompiledFromBlueprint = 0x00040000u,
	CLASS_MinimalAPI = 0x00080000u,
	CLASS_RequiredAPI = 0x00100000u,
	CLASS_DefaultToInstanced = 0x00200000u,
	CLASS_TokenStreamAssembled = 0x00400000u,
	CLASS_HasInstancedReference = 0x00800000u,
	CLASS_Hidden = 0x01000000u,
	CLASS_Deprecated = 0x02000000u,
	CLASS_HideDropDown = 0x04000000u,
	CLASS_GlobalUserConfig = 0x08000000u,
	CLASS_Intrinsic = 0x10000000u,
	CLASS_Constructed = 0x20000000u,
	CLASS_ConfigDoNotCheckDefaults = 0x40000000u,
	CLASS_NewerVersionExists = 0x80000000u,
};
ENUM_CLASS_FLAGS(EClassFlags);

// Flags a class takes over from its super class.
#define CLASS_Inherit ((EClassFlags)(CLASS_Transient | CLASS_Optional | CLASS_DefaultConfig | CLASS_Config | CLASS_PerObjectConfig | CLASS_ConfigDoNotCheckDefaults | CLASS_NotPlaceable | CLASS_Const | CLASS_HasInstancedReference | CLASS_Deprecated | CLASS_DefaultToInstanced | CLASS_GlobalUserConfig | CLASS_ProjectUserConfig | CLASS_PerPlatformConfig | CLASS_NeedsDeferredDependencyLoading))
#define CLASS_AllFlags ((EClassFlags)0xffffffffu)

enum EClassCastFlags : uint64
{
	CASTCLASS_None = 0x0000000000000000,
	CASTCLASS_UField = 0x0000000000000001,
	CASTCLASS_FInt8Property = 0x0000000000000002,
	CASTCLASS_UEnum = 0x0000000000000004,
	CASTCLASS_UStruct = 0x0000000000000008,
	CASTCLASS_UScriptStruct = 0x0000000000000010,
	CASTCLASS_UClass = 0x0000000000000020,
	CASTCLASS_FByteProperty = 0x0000000000000040,
	CASTCLASS_FIntProperty = 0x0000000000000080,
	CASTCLASS_FFloatProperty = 0x0000000000000100,
	CASTCLASS_FUInt64Property = 0x0000000000000200,
	CASTCLASS_FClassProperty = 0x0000000000000400,
	CASTCLASS_FUInt32Property = 0x0000000000000800,
	CASTCLASS_FInterfaceProperty = 0x0000000000001000,
	CASTCLASS_FNameProperty = 0x0000000000002000,
	CASTCLASS_FStrProperty = 0x0000000000004000,
	CASTCLASS_FProperty = 0x0000000000008000,
	CASTCLASS_FObjectProperty = 0x0000000000010000,
	CASTCLASS_FBoolProperty = 0x0000000000020000,
	CASTCLASS_FUInt16Property = 0x0000000000040000,
	CASTCLASS_UFunction = 0x0000000000080000,
	CASTCLASS_FStructProperty = 0x0000000000100000,
	CASTCLASS_FArrayProperty = 0x0000000000200000,
	CASTCLASS_FInt64Property = 0x0000000000400000,
	CASTCLASS_FDelegateProperty = 0x0000000000800000,
	CASTCLASS_FNumericProperty = 0x0000000001000000,
	CASTCLASS_FMulticastDelegateProperty = 0x0000000002000000,
	CASTCLASS_FObjectPropertyBase = 0x0000000004000000,
	CASTCLASS_FWeakObjectProperty = 0x0000000008000000,
	CASTCLASS_FLazyObjectProperty = 0x0000000010000000,
	CASTCLASS_FSoftObjectProperty = 0x0000000020000000,
	CASTCLASS_FTextProperty = 0x0000000040000000,
	CASTCLASS_FInt16Property = 0x0000000080000000,
	CASTCLASS_FDoubleProperty = 0x0000000100000000,
	CASTCLASS_FSoftClassProperty = 0x0000000200000000,
	CASTCLASS_UPackage = 0x0000000400000000,
	CASTCLASS_ULevel = 0x0000000800000000,
	CASTCLASS_AActor = 0x0000001000000000,
	CASTCLASS_APlayerController = 0x0000002000000000,
	CASTCLASS_APawn = 0x0000004000000000,
	CASTCLASS_USceneComponent = 0x0000008000000000,
	CASTCLASS_UPrimitiveComponent = 0x0000010000000000,
	CASTCLASS_USkinnedMeshComponent = 0x0000020000000000,
	CASTCLASS_USkeletalMeshComponent = 0x0000040000000000,
	CASTCLASS_UBlueprint = 0x0000080000000000,
	CASTCLASS_UDelegateFunction = 0x0000100000000000,
	CASTCLASS_UStaticMeshComponent = 0x0000200000000000,
	CASTCLASS_FMapProperty = 0x0000400000000000,
	CASTCLASS_FSetProperty = 0x0000800000000000,
	CASTCLASS_FEnumProperty = 0x0001000000000000,
	CASTCLASS_USparseDelegateFunction = 0x0002000000000000,
	CASTCLASS_FMulticastInlineDelegateProperty = 0x0004000000000000,
	CASTCLASS_FMulticastSparseDelegateProperty = 0x0008000000000000,
	CASTCLASS_FFieldPathProperty = 0x0010000000000000,
	CASTCLASS_FObjectPtrProperty = 0x0020000000000000,
	CASTCLASS_FClassPtrProperty = 0x0040000000000000,
	CASTCLASS_FLargeWorldCoordinatesRealProperty = 0x0080000000000000,
	CASTCLASS_FOptionalProperty = 0x0100000000000000,
};
ENUM_CLASS_FLAGS(EClassCastFlags);

enum EStructFlags : int32
{
	STRUCT_NoFlags = 0x00000000,
	STRUCT_Native = 0x00000001,
	STRUCT_IdenticalNative = 0x00000002,
	STRUCT_HasInstancedReference = 0x00000004,
	STRUCT_NoExport = 0x00000008,
	STRUCT_Atomic = 0x00000010,
	STRUCT_Immutable = 0x00000020,
	STRUCT_AddStructReferencedObjects = 0x00000040,
	STRUCT_RequiredAPI = 0x00000200,
	STRUCT_NetSerializeNative = 0x00000400,
	STRUCT_SerializeNative = 0x00000800,
	STRUCT_CopyNative = 0x00001000,
	STRUCT_IsPlainOldData = 0x00002000,
	STRUCT_NoDestructor = 0x00004000,
	STRUCT_ZeroConstructor = 0x00008000,
	STRUCT_ExportTextItemNative = 0x00010000,
	STRUCT_ImportTextItemNative = 0x00020000,
};
ENUM_CLASS_FLAGS(EStructFlags);

enum class EEnumFlags
{
	None = 0,
	Flags = 0x00000001,
	NewerVersionExists = 0x00000002,
};
ENUM_CLASS_FLAGS(EEnumFlags);

// How objects and packages are loaded (StaticLoadObject, LoadPackage).
enum ELoadFlags : uint32
{
	LOAD_None = 0x00000000,
	LOAD_Async = 0x00000001,
	LOAD_NoWarn = 0x00000002,
	LOAD_EditorOnly = 0x00000004,
	LOAD_ResolvingDeferredExports = 0x00000008,
	LOAD_Verify = 0x00000010,
	LOAD_NoVerify = 0x00000080,
	LOAD_IsVerifying = 0x00000100,
	LOAD_SkipLoadImportedPackages = 0x00000200,
	LOAD_RegenerateBulkDataGuids = 0x00000400,
	LOAD_DisableDependencyPreloading = 0x00001000,
	LOAD_Quiet = 0x00002000,
	LOAD_FindIfFail = 0x00004000,
	LOAD_MemoryReader = 0x00008000,
	LOAD_NoRedirects = 0x00010000,
	LOAD_ForDiff = 0x00020000,
	LOAD_PackageForPIE = 0x00080000,
	LOAD_DeferDependencyLoads = 0x00100000,
	LOAD_ForFileDiff = 0x00200000,
	LOAD_DisableCompileOnLoad = 0x00400000,
	LOAD_DisableEngineVersionChecks = 0x00800000,
};

// How packages are saved (FSavePackageArgs::SaveFlags).
enum ESaveFlags : uint32
{
	SAVE_None = 0x00000000,
	SAVE_NoError = 0x00000001,
	SAVE_FromAutosave = 0x00000002,
	SAVE_KeepDirty = 0x00000004,
	SAVE_Async = 0x00000010,
	SAVE_Unversioned_Native = 0x00000020,
	SAVE_CutdownPackage = 0x00000040,
	SAVE_KeepEditorOnlyCookedPackages = 0x00000080,
	SAVE_Concurrent = 0x00000100,
	SAVE_DiffOnly = 0x00000200,
	SAVE_DiffCallstack = 0x00000400,
	SAVE_ComputeHash = 0x00000800,
	SAVE_CompareLinker = 0x00001000,
	SAVE_CookSoftPackageReferencesOnly = 0x00002000,
	SAVE_BulkDataByReference = 0x00004000,
	SAVE_Unversioned_Properties = 0x00008000,
	SAVE_Optional = 0x00010000,
	SAVE_AllowTimeout = 0x00020000,
	SAVE_RehydratePayloads = 0x00040000,
	SAVE_CookSoftPackageReferencesOnlyEditorOnly = 0x00080000,
};

enum EPackageFlags : uint32
{
	PKG_None = 0x00000000,
	PKG_NewlyCreated = 0x00000001,
	PKG_ClientOptional = 0x00000002,
	PKG_ServerSideOnly = 0x00000004,
	PKG_CompiledIn = 0x00000010,
	PKG_ForDiffing = 0x00000020,
	PKG_EditorOnly = 0x00000040,
	PKG_Developer = 0x00000080,
	PKG_UncookedOnly = 0x00000100,
	PKG_Cooked = 0x00000200,
	PKG_ContainsNoAsset = 0x00000400,
	PKG_NotExternallyReferenceable = 0x00000800,
	PKG_UnversionedProperties = 0x00002000,
	PKG_ContainsMapData = 0x00004000,
	PKG_IsSaving = 0x00008000,
	PKG_Compiling = 0x00010000,
	PKG_ContainsMap = 0x00020000,
	PKG_RequiresLocalizationGather = 0x00040000,
	PKG_PlayInEditor = 0x00100000,
	PKG_ContainsScript = 0x00200000,
	PKG_DisallowExport = 0x00400000,
	PKG_DynamicImports = 0x10000000,
	PKG_RuntimeGenerated = 0x20000000,
	PKG_ReloadingForCooker = 0x40000000,
	PKG_FilterEditorOnly = 0x80000000,
};
ENUM_CLASS_FLAGS(EPackageFlags);

// Objects with these flags survive garbage collection even when nothing references them.
#define GARBAGE_COLLECTION_KEEPFLAGS (GIsEditor ? RF_Standalone : RF_NoFlags)

// Code between "#if CPP" and "#else" is C++ only; the header tool reads the other branch.
#ifndef CPP
#define CPP 1
#endif

// Marks the constructor call that builds an object in memory the object system already allocated.
enum EInternal
{
	EC_InternalUseOnlyConstructor
};

// The offset of a member; the header tool uses it for every reflected member.
#define STRUCT_OFFSET(Struct, Member) __builtin_offsetof(Struct, Member)
#define CPP_ARRAY_DIM(ArrayName, ClassName) (sizeof(((ClassName*)0)->ArrayName) / sizeof((((ClassName*)0)->ArrayName)[0]))
// The distance from the start of an object of Class to its Interface part.
#define VTABLE_OFFSET(Class, Interface) ((PTRINT)(Interface*)(Class*)0x1000 - 0x1000)

#define COMPILED_IN_FLAGS(TStaticFlags) (TStaticFlags)

// The reflected type of T: specialised by the header tool for every reflected class, struct and enum.
template<typename T>
UClass* StaticClass();
template<typename T>
UScriptStruct* StaticStruct();
template<typename T>
UEnum* StaticEnum();

// What a class's generated body declares: its class object, its super class, and the placement form of
// new that the object system constructs it with.
#define DECLARE_CLASS(TClass, TSuperClass, TStaticFlags, TStaticCastFlags, TPackage, TRequiredAPI) \
private: \
	TClass& operator=(TClass&&); \
	TClass& operator=(const TClass&); \
	TRequiredAPI static UClass* GetPrivateStaticClass(); \
public: \
	static constexpr EClassFlags StaticClassFlags = EClassFlags(TStaticFlags); \
	typedef TSuperClass Super; \
	typedef TClass ThisClass; \
	inline static UClass* StaticClass() \
	{ \
		return GetPrivateStaticClass(); \
	} \
	inline static const TCHAR* StaticPackage() \
	{ \
		return TPackage; \
	} \
	inline static EClassCastFlags StaticClassCastFlags() \
	{ \
		return TStaticCastFlags; \
	} \
	inline void* operator new(const size_t InSize, EInternal* InMem) \
	{ \
		return (void*)InMem; \
	} \
	inline void operator delete(void* InMem, EInternal* InTag) \
	{ \
	} \
	inline void operator delete(void* InMem) \
	{ \
		::operator delete(InMem); \
	}

// The class an object of this class must be inside of.
#define DECLARE_WITHIN(TWithinClass) \
	typedef class TWithinClass WithinClass; \
	TWithinClass* GetOuter##TWithinClass() const \
	{ \
		return (TWithinClass*)GetOuter(); \
	}

// How the object system runs a class's constructor in place: with or without the initializer.
#define DEFINE_DEFAULT_CONSTRUCTOR_CALL(TClass) \
	static void __DefaultConstructor(const FObjectInitializer& X) \
	{ \
		new ((EInternal*)X.GetObj()) TClass; \
	}
#define DEFINE_DEFAULT_OBJECT_INITIALIZER_CONSTRUCTOR_CALL(TClass) \
	static void __DefaultConstructor(const FObjectInitializer& X) \
	{ \
		new ((EInternal*)X.GetObj()) TClass(X); \
	}

// The classes of CoreUObject itself are declared by hand, without the header tool.
#define DECLARE_CLASS_INTRINSIC(TClass, TSuperClass, TStaticFlags, TPackage, TStaticCastFlags) \
	DECLARE_CLASS(TClass, TSuperClass, TStaticFlags | CLASS_Intrinsic, TStaticCastFlags, TPackage, COREUOBJECT_API) \
	DEFINE_DEFAULT_OBJECT_INITIALIZER_CONSTRUCTOR_CALL(TClass)

template<class T>
void InternalConstructor(const FObjectInitializer& X)
{
	T::__DefaultConstructor(X);
}
