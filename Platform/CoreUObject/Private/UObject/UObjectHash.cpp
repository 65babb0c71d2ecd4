#include "UObject/UObjectHash.h"
#include "UObject/Class.h"
#include "ObjectRegistry.h"

using namespace UE::CoreUObject::Private;

void ForEachObjectWithOuter(const UObjectBase* Outer, TFunctionRef<void(UObject*)> Operation, bool bIncludeNestedObjects, EObjectFlags ExclusionFlags)
{
	TArray<UObject*> Results;
	GetObjectsWithOuter(Outer, Results, bIncludeNestedObjects, ExclusionFlags);
	for (UObject* Object : Results)
	{
		Operation(Object);
	}
}

void GetObjectsWithOuter(const UObjectBase* Outer, TArray<UObject*>& Results, bool bIncludeNestedObjects, EObjectFlags ExclusionFlags)
{
	const int32 Start = Results.Num();
	for (UObjectBase* Object : FObjectRegistry::Get().FindByOuter(Outer))
	{
		if ((Object->GetFlags() & ExclusionFlags) == 0)
		{
			Results.Add(static_cast<UObject*>(Object));
		}
	}
	if (bIncludeNestedObjects)
	{
		// Each found object's inners follow, until no new ones turn up.
		for (int32 Index = Start; Index < Results.Num(); ++Index)
		{
			for (UObjectBase* Object : FObjectRegistry::Get().FindByOuter(Results[Index]))
			{
				if ((Object->GetFlags() & ExclusionFlags) == 0)
				{
					Results.Add(static_cast<UObject*>(Object));
				}
			}
		}
	}
}

UObject* FindObjectWithOuter(const UObjectBase* Outer, const UClass* ClassToLookFor, FName NameToLookFor)
{
	for (UObjectBase* Object : FObjectRegistry::Get().FindByOuter(Outer))
	{
		UObject* Candidate = static_cast<UObject*>(Object);
		if ((ClassToLookFor == nullptr || Candidate->IsA(ClassToLookFor)) && (NameToLookFor.IsNone() || Candidate->GetFName() == NameToLookFor))
		{
			return Candidate;
		}
	}
	return nullptr;
}

void ForEachObjectOfClass(const UClass* ClassToLookFor, TFunctionRef<void(UObject*)> Operation, bool bIncludeDerivedClasses, EObjectFlags ExcludeFlags)
{
	TArray<UObject*> Results;
	GetObjectsOfClass(ClassToLookFor, Results, bIncludeDerivedClasses, ExcludeFlags);
	for (UObject* Object : Results)
	{
		Operation(Object);
	}
}

void GetObjectsOfClass(const UClass* ClassToLookFor, TArray<UObject*>& Results, bool bIncludeDerivedClasses, EObjectFlags ExcludeFlags)
{
	ProcessNewlyLoadedUObjects();
	for (UObjectBase* Object : FObjectRegistry::Get().AllObjects())
	{
		UClass* Class = Object->GetClass();
		if (Class == nullptr || (Object->GetFlags() & ExcludeFlags) != 0)
		{
			continue;
		}
		if (ClassToLookFor == nullptr || (bIncludeDerivedClasses ? Class->IsChildOf(ClassToLookFor) : Class == ClassToLookFor))
		{
			Results.Add(static_cast<UObject*>(Object));
		}
	}
}

void GetDerivedClasses(const UClass* ClassToLookFor, TArray<UClass*>& Results, bool bRecursive)
{
	TArray<UObject*> Classes;
	GetObjectsOfClass(UClass::StaticClass(), Classes, true, RF_NoFlags);
	for (UObject* Object : Classes)
	{
		UClass* Class = static_cast<UClass*>(Object);
		if (Class != ClassToLookFor && (bRecursive ? Class->IsChildOf(ClassToLookFor) : Class->GetSuperClass() == ClassToLookFor))
		{
			Results.Add(Class);
		}
	}
}
