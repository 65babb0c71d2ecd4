// Lookups over the live objects: by outer, by class.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"

class UObjectBase;

// The objects whose outer is Outer (and, when nested, their inners in turn).
COREUOBJECT_API void GetObjectsWithOuter(const UObjectBase* Outer, TArray<UObject*>& Results, bool bIncludeNestedObjects = true, EObjectFlags ExclusionFlags = RF_NoFlags);
COREUOBJECT_API void ForEachObjectWithOuter(const UObjectBase* Outer, TFunctionRef<void(UObject*)> Operation, bool bIncludeNestedObjects = true, EObjectFlags ExclusionFlags = RF_NoFlags);
// The first direct inner of Outer of that class (any, when null) and name (any, when none).
COREUOBJECT_API UObject* FindObjectWithOuter(const UObjectBase* Outer, const UClass* ClassToLookFor = nullptr, FName NameToLookFor = NAME_None);
// The objects of a class, and by default of its subclasses, without class default objects.
COREUOBJECT_API void GetObjectsOfClass(const UClass* ClassToLookFor, TArray<UObject*>& Results, bool bIncludeDerivedClasses = true, EObjectFlags ExcludeFlags = RF_ClassDefaultObject);
COREUOBJECT_API void ForEachObjectOfClass(const UClass* ClassToLookFor, TFunctionRef<void(UObject*)> Operation, bool bIncludeDerivedClasses = true, EObjectFlags ExcludeFlags = RF_ClassDefaultObject);
COREUOBJECT_API void GetDerivedClasses(const UClass* ClassToLookFor, TArray<UClass*>& Results, bool bRecursive = true);
