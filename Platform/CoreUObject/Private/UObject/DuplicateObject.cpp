// Copies of objects with everything inside them; references among the copied objects move to the copies.
#include "UObject/UObjectGlobals.h"
#include "UObject/Class.h"
#include "UObject/UnrealType.h"
#include "UObject/UObjectHash.h"
#include "CoreUObjectLog.h"
#include <unordered_map>

namespace
{
	class FRemapCollector final : public FReferenceCollector
	{
	public:
		explicit FRemapCollector(const std::unordered_map<const UObject*, UObject*>& InMap)
			: Map(InMap)
		{
		}
		void HandleObjectReference(UObject*& Object, const UObject* ReferencingObject, const FProperty* ReferencingProperty) override
		{
			const auto Found = Map.find(Object);
			if (Found != Map.end())
			{
				Object = Found->second;
			}
		}

	private:
		const std::unordered_map<const UObject*, UObject*>& Map;
	};

	UObject* MakeCopy(const UObject* Source, UObject* Outer, FName Name, UClass* Class, EObjectFlags FlagMask)
	{
		const EObjectFlags Flags = Source->GetMaskedFlags(FlagMask) & ~(RF_ClassDefaultObject | RF_BeginDestroyed | RF_FinishDestroyed | RF_MirroredGarbage);
		if (UObject* Existing = StaticFindObjectFast(nullptr, Outer, Name))
		{
			// A default subobject the outer's constructor made already takes the copy.
			if (Existing->GetClass() == Class && Existing->HasAnyFlags(RF_DefaultSubObject))
			{
				Existing->SetFlags(Flags);
				return Existing;
			}
			Name = MakeUniqueObjectName(Outer, Class, Name);
		}
		return NewObject<UObject>(Outer, Class, Name, Flags);
	}
}

UObject* StaticDuplicateObject(const UObject* SourceObject, UObject* DestOuter, const FName DestName, EObjectFlags FlagMask, UClass* DestClass)
{
	if (SourceObject == nullptr || DestOuter == nullptr)
	{
		UE_LOG(LogUObjectGlobals, Warning, TEXT("StaticDuplicateObject needs an object and an outer"));
		return nullptr;
	}
	UClass* RootClass = DestClass != nullptr ? DestClass : SourceObject->GetClass();
	if (!RootClass->IsChildOf(SourceObject->GetClass()) && !SourceObject->GetClass()->IsChildOf(RootClass))
	{
		UE_LOG(LogUObjectGlobals, Warning, TEXT("StaticDuplicateObject: %s can't become a %s"), *SourceObject->GetFullName(), *RootClass->GetName());
		return nullptr;
	}
	const FName RootName = DestName.IsNone() ? MakeUniqueObjectName(DestOuter, RootClass, SourceObject->GetFName()) : DestName;
	std::unordered_map<const UObject*, UObject*> Copies;
	TArray<TPair<const UObject*, UObject*>> Order;
	UObject* Root = MakeCopy(SourceObject, DestOuter, RootName, RootClass, FlagMask);
	if (Root == nullptr)
	{
		return nullptr;
	}
	Copies[SourceObject] = Root;
	Order.Add(TPair<const UObject*, UObject*>(SourceObject, Root));

	TArray<UObject*> Inners;
	GetObjectsWithOuter(SourceObject, Inners, true);
	for (UObject* Inner : Inners)
	{
		if (Inner->HasAnyFlags(RF_DuplicateTransient))
		{
			continue;
		}
		const auto OuterCopy = Copies.find(Inner->GetOuter());
		if (OuterCopy == Copies.end())
		{
			continue;
		}
		if (UObject* Copy = MakeCopy(Inner, OuterCopy->second, Inner->GetFName(), Inner->GetClass(), FlagMask))
		{
			Copies[Inner] = Copy;
			Order.Add(TPair<const UObject*, UObject*>(Inner, Copy));
		}
	}

	FRemapCollector Remap(Copies);
	for (const TPair<const UObject*, UObject*>& Pair : Order)
	{
		for (FProperty* Property = Pair.Value->GetClass()->PropertyLink; Property != nullptr; Property = Property->PropertyLinkNext)
		{
			if (!Property->HasAnyPropertyFlags(CPF_DuplicateTransient) && Pair.Key->IsA(Property->GetOwnerClass() != nullptr ? Property->GetOwnerClass() : UObject::StaticClass()))
			{
				Property->CopyCompleteValue_InContainer(Pair.Value, Pair.Key);
			}
		}
		Remap.AddPropertyReferences(Pair.Value->GetClass(), Pair.Value, Pair.Value);
	}
	for (const TPair<const UObject*, UObject*>& Pair : Order)
	{
		Pair.Value->PostDuplicate(false);
	}
	return Root;
}
