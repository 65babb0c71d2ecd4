// Creating and finding objects: NewObject, the object initializer, packages by name, lookups by path.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/ObjectPtr.h"

class FProperty;
class FArchive;
class UStruct;

COREUOBJECT_API DECLARE_LOG_CATEGORY_EXTERN(LogUObjectGlobals, Log, All);

namespace UE::CoreUObject::Private
{
	struct FObjectConstruction;
}

// Carries what an object is while its C++ constructor runs: the memory, class, outer, name and flags
// the object system chose, and the archetype its values come from.
class COREUOBJECT_API FObjectInitializer
{
public:
	FObjectInitializer();
	~FObjectInitializer();
	FObjectInitializer(const FObjectInitializer&) = delete;
	FObjectInitializer& operator=(const FObjectInitializer&) = delete;

	// The initializer of the object under construction on this thread.
	static FObjectInitializer& Get();

	UObject* GetObj() const
	{
		return Obj;
	}
	UClass* GetClass() const
	{
		return PendingClass;
	}
	UObject* GetArchetype() const
	{
		return ObjectArchetype;
	}

private:
	friend class UObjectBase;
	friend struct UE::CoreUObject::Private::FObjectConstruction;

	UObject* Obj = nullptr;
	UObject* ObjectArchetype = nullptr;
	UClass* PendingClass = nullptr;
	UObject* PendingOuter = nullptr;
	FName PendingName;
	EObjectFlags PendingFlags = RF_NoFlags;
	FObjectInitializer* Previous = nullptr;
	bool bPushed = false;
};

struct FStaticConstructObjectParameters
{
	const UClass* Class = nullptr;
	UObject* Outer = nullptr;
	FName Name;
	EObjectFlags SetFlags = RF_NoFlags;
	// The object whose values the new one starts with; the class default object when null.
	UObject* Template = nullptr;
	bool bCopyTransientsFromClassDefaults = false;

	explicit FStaticConstructObjectParameters(const UClass* InClass)
		: Class(InClass)
	{
	}
};

COREUOBJECT_API UObject* StaticConstructObject_Internal(const FStaticConstructObjectParameters& Params);

// The package for objects that are never saved: "/Engine/Transient".
COREUOBJECT_API UPackage* GetTransientPackage();
// Finds the package of that long name, or creates it.
COREUOBJECT_API UPackage* CreatePackage(const TCHAR* PackageName);
COREUOBJECT_API FName MakeUniqueObjectName(UObject* Outer, const UClass* Class, FName BaseName = NAME_None);

// Finds an object by its path ("/Script/Module.Class", "/Game/Map.Map:Actor") or, with an outer, by its
// name inside that outer. Null when there is none of that class.
COREUOBJECT_API UObject* StaticFindObject(UClass* Class, UObject* InOuter, const TCHAR* Name, bool bExactClass = false);
COREUOBJECT_API UObject* StaticFindObjectFast(UClass* Class, UObject* InOuter, FName InName, bool bExactClass = false, EObjectFlags ExclusiveFlags = RF_NoFlags);

// The first loaded object of that class whose name (its last path part) equals Name, any outer; options
// ask for the exact class and prefer native objects.
enum class EFindFirstObjectOptions : uint32
{
	None = 0,
	ExactClass = 1 << 1,
	NativeFirst = 1 << 2,
	EnsureIfAmbiguous = 1 << 3,
};
ENUM_CLASS_FLAGS(EFindFirstObjectOptions);
COREUOBJECT_API UObject* StaticFindFirstObject(UClass* Class, const TCHAR* Name, EFindFirstObjectOptions Options = EFindFirstObjectOptions::None, ELogVerbosity::Type AmbiguousMessageVerbosity = ELogVerbosity::NoLogging, const TCHAR* InCurrentOperation = nullptr);

class FLinkerInstancingContext;
class UPackageMap;

// Finds the object or loads its package from disk ("/Game/Maps/Main.Main", or "/Game/Maps/Main" for the
// package's main asset). Null when neither works; logs unless LOAD_NoWarn or LOAD_Quiet is given.
COREUOBJECT_API UObject* StaticLoadObject(UClass* Class, UObject* InOuter, const TCHAR* Name, const TCHAR* Filename = nullptr, uint32 LoadFlags = LOAD_None, UPackageMap* Sandbox = nullptr, bool bAllowObjectReconciliation = true, const FLinkerInstancingContext* InstancingContext = nullptr);
// StaticLoadObject of a class that must be BaseClass or derive from it.
COREUOBJECT_API UClass* StaticLoadClass(UClass* BaseClass, UObject* InOuter, const TCHAR* Name, const TCHAR* Filename = nullptr, uint32 LoadFlags = LOAD_None, UPackageMap* Sandbox = nullptr);
// The package of that long name, loaded from its file unless it is in memory already; null when there is no such file or it can't be read.
COREUOBJECT_API UPackage* LoadPackage(UPackage* InOuter, const TCHAR* InLongPackageName, uint32 LoadFlags, FArchive* InReaderOverride = nullptr, const FLinkerInstancingContext* InstancingContext = nullptr);
COREUOBJECT_API UPackage* FindPackage(UObject* InOuter, const TCHAR* PackageName);

// Destroys every object that nothing reachable refers to. Reachable are rooted objects, native types, objects
// with any of KeepFlags, what FGCObjects report, and what those refer to through their outers, classes and
// reflected object properties. Objects marked as garbage die even when referred to, and such references are cleared.
COREUOBJECT_API void CollectGarbage(EObjectFlags KeepFlags, bool bPerformFullPurge = true);
COREUOBJECT_API bool IsGarbageCollecting();

// Told every object that an object refers to, when the garbage collector asks.
class COREUOBJECT_API FReferenceCollector
{
public:
	virtual ~FReferenceCollector() = default;

	// May clear the reference, when it refers to an object marked as garbage.
	virtual void HandleObjectReference(UObject*& Object, const UObject* ReferencingObject, const FProperty* ReferencingProperty) = 0;

	template<class UObjectType>
	void AddReferencedObject(UObjectType*& Object, const UObject* ReferencingObject = nullptr, const FProperty* ReferencingProperty = nullptr)
	{
		HandleObjectReference(*reinterpret_cast<UObject**>(&Object), ReferencingObject, ReferencingProperty);
	}
	template<class UObjectType>
	void AddReferencedObject(const UObjectType*& Object, const UObject* ReferencingObject = nullptr, const FProperty* ReferencingProperty = nullptr)
	{
		HandleObjectReference(*const_cast<UObject**>(reinterpret_cast<const UObject**>(&Object)), ReferencingObject, ReferencingProperty);
	}
	template<class UObjectType>
	void AddReferencedObject(TObjectPtr<UObjectType>& Object, const UObject* ReferencingObject = nullptr, const FProperty* ReferencingProperty = nullptr)
	{
		HandleObjectReference(*reinterpret_cast<UObject**>(&Object), ReferencingObject, ReferencingProperty);
	}
	template<class UObjectType>
	void AddReferencedObjects(TArray<UObjectType*>& ObjectArray, const UObject* ReferencingObject = nullptr, const FProperty* ReferencingProperty = nullptr)
	{
		for (UObjectType*& Object : ObjectArray)
		{
			AddReferencedObject(Object, ReferencingObject, ReferencingProperty);
		}
	}
	template<class UObjectType>
	void AddReferencedObjects(TArray<TObjectPtr<UObjectType>>& ObjectArray, const UObject* ReferencingObject = nullptr, const FProperty* ReferencingProperty = nullptr)
	{
		for (TObjectPtr<UObjectType>& Object : ObjectArray)
		{
			AddReferencedObject(Object, ReferencingObject, ReferencingProperty);
		}
	}
	// The object references held in a value of a reflected struct.
	void AddPropertyReferences(const UStruct* Struct, void* Container, const UObject* ReferencingObject = nullptr);
};

// Registers the reflected types of code that was linked in since the last call. Lookups by name call it.
COREUOBJECT_API void ProcessNewlyLoadedUObjects();

// The ini file that the config properties of this object are read from and written to.
COREUOBJECT_API FString GetConfigFilename(UObject* SourceObject);

template<class T>
T* FindObject(UObject* Outer, const TCHAR* Name, bool bExactClass = false)
{
	return static_cast<T*>(StaticFindObject(T::StaticClass(), Outer, Name, bExactClass));
}

template<class T>
T* FindObjectFast(UObject* Outer, FName Name, bool bExactClass = false, EObjectFlags ExclusiveFlags = RF_NoFlags)
{
	return static_cast<T*>(StaticFindObjectFast(T::StaticClass(), Outer, Name, bExactClass, ExclusiveFlags));
}

template<class T>
T* NewObject(UObject* Outer, const UClass* Class, FName Name = NAME_None, EObjectFlags Flags = RF_NoFlags, UObject* Template = nullptr, bool bCopyTransientsFromClassDefaults = false)
{
	FStaticConstructObjectParameters Params(Class);
	Params.Outer = Outer;
	Params.Name = Name;
	Params.SetFlags = Flags;
	Params.Template = Template;
	Params.bCopyTransientsFromClassDefaults = bCopyTransientsFromClassDefaults;
	return static_cast<T*>(StaticConstructObject_Internal(Params));
}

template<class T>
T* NewObject(UObject* Outer = (UObject*)GetTransientPackage())
{
	return NewObject<T>(Outer, T::StaticClass());
}

template<class T>
T* NewObject(UObject* Outer, FName Name, EObjectFlags Flags = RF_NoFlags, UObject* Template = nullptr, bool bCopyTransientsFromClassDefaults = false)
{
	return NewObject<T>(Outer, T::StaticClass(), Name, Flags, Template, bCopyTransientsFromClassDefaults);
}

template<class T>
T* LoadObject(UObject* Outer, const TCHAR* Name, const TCHAR* Filename = nullptr, uint32 LoadFlags = LOAD_None, UPackageMap* Sandbox = nullptr, const FLinkerInstancingContext* InstancingContext = nullptr)
{
	return static_cast<T*>(StaticLoadObject(T::StaticClass(), Outer, Name, Filename, LoadFlags, Sandbox, true, InstancingContext));
}

template<class T>
UClass* LoadClass(UObject* Outer, const TCHAR* Name, const TCHAR* Filename = nullptr, uint32 LoadFlags = LOAD_None, UPackageMap* Sandbox = nullptr)
{
	return StaticLoadClass(T::StaticClass(), Outer, Name, Filename, LoadFlags, Sandbox);
}

template<class T>
T* FindFirstObject(const TCHAR* Name, EFindFirstObjectOptions Options = EFindFirstObjectOptions::None, ELogVerbosity::Type AmbiguousMessageVerbosity = ELogVerbosity::NoLogging, const TCHAR* InCurrentOperation = nullptr)
{
	return static_cast<T*>(StaticFindFirstObject(T::StaticClass(), Name, Options, AmbiguousMessageVerbosity, InCurrentOperation));
}

// A new object of the same class with the same property values, named and placed anew; its inner objects
// are copied too and references among them point to the copies.
COREUOBJECT_API UObject* StaticDuplicateObject(const UObject* SourceObject, UObject* DestOuter, const FName DestName = NAME_None, EObjectFlags FlagMask = RF_AllFlags, UClass* DestClass = nullptr);
template<class T>
T* DuplicateObject(const T* SourceObject, UObject* Outer, const FName Name = NAME_None)
{
	return static_cast<T*>(StaticDuplicateObject(SourceObject, Outer, Name));
}
