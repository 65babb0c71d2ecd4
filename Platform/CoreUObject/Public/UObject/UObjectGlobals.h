// Creating and finding objects: NewObject, the object initializer, packages by name, lookups by path.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"

class FProperty;

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
