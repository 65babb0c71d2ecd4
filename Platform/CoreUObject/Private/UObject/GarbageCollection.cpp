// Mark and sweep over every live object: what nothing reachable refers to is destroyed.
#include "UObject/UObjectGlobals.h"
#include "UObject/GCObject.h"
#include "UObject/Class.h"
#include "UObject/UnrealType.h"
#include "UObject/Package.h"
#include "ObjectConstruction.h"
#include "ObjectRegistry.h"
#include "CoreUObjectLog.h"
#include <algorithm>
#include <mutex>
#include <unordered_map>
#include <unordered_set>
#include <vector>

using namespace UE::CoreUObject::Private;

namespace
{
	bool GIsCollecting = false;

	std::mutex& GCObjectsMutex()
	{
		static std::mutex Mutex;
		return Mutex;
	}

	std::vector<FGCObject*>& GCObjects()
	{
		static std::vector<FGCObject*>* Objects = new std::vector<FGCObject*>();
		return *Objects;
	}

	// Whether a property's values can hold strong object references, worked out once per property and
	// collection (properties of destroyed types go away between collections).
	std::unordered_map<const FProperty*, bool>& ReferenceCache()
	{
		static std::unordered_map<const FProperty*, bool> Cache;
		return Cache;
	}

	bool MayHoldReferences(const FProperty* Property)
	{
		std::unordered_map<const FProperty*, bool>& Cache = ReferenceCache();
		if (Property == nullptr)
		{
			return false;
		}
		const auto Found = Cache.find(Property);
		if (Found != Cache.end())
		{
			return Found->second;
		}
		bool bResult = false;
		if (CastField<FObjectProperty>(Property) || CastField<FInterfaceProperty>(Property))
		{
			bResult = true;
		}
		else if (const FArrayProperty* Array = CastField<FArrayProperty>(Property))
		{
			bResult = MayHoldReferences(Array->Inner);
		}
		else if (const FSetProperty* Set = CastField<FSetProperty>(Property))
		{
			bResult = MayHoldReferences(Set->ElementProp);
		}
		else if (const FMapProperty* Map = CastField<FMapProperty>(Property))
		{
			bResult = MayHoldReferences(Map->KeyProp) || MayHoldReferences(Map->ValueProp);
		}
		else if (const FStructProperty* Struct = CastField<FStructProperty>(Property))
		{
			for (FProperty* Inner = Struct->Struct != nullptr ? Struct->Struct->PropertyLink : nullptr; Inner != nullptr && !bResult; Inner = Inner->PropertyLinkNext)
			{
				bResult = MayHoldReferences(Inner);
			}
		}
		Cache[Property] = bResult;
		return bResult;
	}

	// Marks what it is told of; a reference to an object marked as garbage is cleared where that is safe.
	class FMarkingCollector final : public FReferenceCollector
	{
	public:
		explicit FMarkingCollector(size_t ExpectedObjects)
		{
			Reachable.reserve(ExpectedObjects);
		}

		void HandleObjectReference(UObject*& Object, const UObject* ReferencingObject, const FProperty* ReferencingProperty) override
		{
			if (Object == nullptr)
			{
				return;
			}
			if (Object->IsGarbage() && !Object->IsRooted() && bMayClear)
			{
				Object = nullptr;
				return;
			}
			Mark(Object);
		}

		void Mark(UObject* Object)
		{
			if (Object != nullptr && Reachable.insert(Object).second)
			{
				Pending.push_back(Object);
			}
		}

		bool IsReachable(const UObject* Object) const
		{
			return Reachable.count(Object) != 0;
		}

		// References in set elements and map keys can't be cleared without breaking their hashing, so
		// what they refer to is kept even when marked as garbage.
		void SetMayClear(bool bInMayClear)
		{
			bMayClear = bInMayClear;
		}

		void Drain()
		{
			while (!Pending.empty())
			{
				UObject* Object = Pending.back();
				Pending.pop_back();
				// An object keeps its outer and its class alive, garbage or not.
				Mark(Object->GetOuter());
				Mark(Object->GetClass());
				if (UClass* Class = Object->GetClass())
				{
					AddPropertyReferences(Class, Object, Object);
					Class->CallAddReferencedObjects(Object, *this);
				}
			}
		}

	private:
		std::unordered_set<const UObject*> Reachable;
		std::vector<UObject*> Pending;
		bool bMayClear = true;
	};

	void AddValueReferences(FReferenceCollector& Collector, const FProperty* Property, void* Value, const UObject* ReferencingObject)
	{
		if (const FObjectProperty* ObjectProperty = CastField<FObjectProperty>(Property))
		{
			Collector.AddReferencedObject(*static_cast<UObject**>(Value), ReferencingObject, ObjectProperty);
		}
		else if (const FInterfaceProperty* InterfaceProperty = CastField<FInterfaceProperty>(Property))
		{
			FScriptInterface& Interface = *static_cast<FScriptInterface*>(Value);
			UObject* Object = Interface.GetObject();
			Collector.AddReferencedObject(Object, ReferencingObject, InterfaceProperty);
			if (Object == nullptr)
			{
				Interface.SetObject(nullptr);
			}
		}
		else if (const FStructProperty* StructProperty = CastField<FStructProperty>(Property))
		{
			if (StructProperty->Struct != nullptr)
			{
				Collector.AddPropertyReferences(StructProperty->Struct, Value, ReferencingObject);
			}
		}
		else if (const FArrayProperty* ArrayProperty = CastField<FArrayProperty>(Property))
		{
			FScriptArrayHelper Helper(ArrayProperty, Value);
			for (int32 Index = 0; Index < Helper.Num(); ++Index)
			{
				AddValueReferences(Collector, ArrayProperty->Inner, Helper.GetRawPtr(Index), ReferencingObject);
			}
		}
		else if (const FSetProperty* SetProperty = CastField<FSetProperty>(Property))
		{
			FMarkingCollector* Marking = dynamic_cast<FMarkingCollector*>(&Collector);
			if (Marking != nullptr)
			{
				Marking->SetMayClear(false);
			}
			SetProperty->ForEachElement(Value, [&](const void* Element)
			{
				AddValueReferences(Collector, SetProperty->ElementProp, const_cast<void*>(Element), ReferencingObject);
			});
			if (Marking != nullptr)
			{
				Marking->SetMayClear(true);
			}
		}
		else if (const FMapProperty* MapProperty = CastField<FMapProperty>(Property))
		{
			FMarkingCollector* Marking = dynamic_cast<FMarkingCollector*>(&Collector);
			MapProperty->ForEachPair(Value, [&](const void* Key, const void* PairValue)
			{
				if (Marking != nullptr)
				{
					Marking->SetMayClear(false);
				}
				AddValueReferences(Collector, MapProperty->KeyProp, const_cast<void*>(Key), ReferencingObject);
				if (Marking != nullptr)
				{
					Marking->SetMayClear(true);
				}
				AddValueReferences(Collector, MapProperty->ValueProp, const_cast<void*>(PairValue), ReferencingObject);
			});
		}
	}

	// Native types, rooted objects and objects with the keep flags start the walk.
	bool IsRoot(const UObjectBase* Object, EObjectFlags KeepFlags)
	{
		const EObjectFlags Flags = Object->GetFlags();
		return (Flags & RF_MarkAsNative) != 0 || static_cast<const UObject*>(Object)->IsRooted() || (KeepFlags != RF_NoFlags && (Flags & KeepFlags) != 0);
	}

	void DestroyObject(UObject* Object)
	{
		UClass* Class = Object->GetClass();
		const int32 Alignment = Class != nullptr ? Class->GetMinAlignment() : 1;
		FObjectConstruction::DestroyNonNativeProperties(Object);
		Object->~UObject();
		FObjectConstruction::FreeObjectMemory(Object, Alignment);
	}
}

void FReferenceCollector::AddPropertyReferences(const UStruct* Struct, void* Container, const UObject* ReferencingObject)
{
	for (FProperty* Property = Struct != nullptr ? Struct->PropertyLink : nullptr; Property != nullptr; Property = Property->PropertyLinkNext)
	{
		if (!MayHoldReferences(Property))
		{
			continue;
		}
		for (int32 Index = 0; Index < Property->ArrayDim; ++Index)
		{
			AddValueReferences(*this, Property, Property->ContainerPtrToValuePtr<void>(Container, Index), ReferencingObject);
		}
	}
}

FGCObject::FGCObject()
{
	std::lock_guard<std::mutex> Guard(GCObjectsMutex());
	GCObjects().push_back(this);
}

FGCObject::FGCObject(const FGCObject&)
	: FGCObject()
{
}

FGCObject::~FGCObject()
{
	std::lock_guard<std::mutex> Guard(GCObjectsMutex());
	std::vector<FGCObject*>& Objects = GCObjects();
	Objects.erase(std::remove(Objects.begin(), Objects.end(), this), Objects.end());
}

bool IsGarbageCollecting()
{
	return GIsCollecting;
}

void CollectGarbage(EObjectFlags KeepFlags, bool bPerformFullPurge)
{
	if (GIsCollecting)
	{
		return;
	}
	GIsCollecting = true;
	ReferenceCache().clear();
	const std::vector<UObjectBase*> AllObjects = FObjectRegistry::Get().AllObjects();
	FMarkingCollector Collector(AllObjects.size());
	for (UObjectBase* Object : AllObjects)
	{
		if (Object->GetClass() != nullptr && IsRoot(Object, KeepFlags))
		{
			Collector.Mark(static_cast<UObject*>(Object));
		}
	}
	{
		std::vector<FGCObject*> Referencers;
		{
			std::lock_guard<std::mutex> Guard(GCObjectsMutex());
			Referencers = GCObjects();
		}
		for (FGCObject* Referencer : Referencers)
		{
			Referencer->AddReferencedObjects(Collector);
		}
	}
	Collector.Drain();

	std::vector<UObject*> Unreachable;
	for (UObjectBase* Object : AllObjects)
	{
		if (Object->GetClass() != nullptr && !Collector.IsReachable(static_cast<UObject*>(Object)))
		{
			Unreachable.push_back(static_cast<UObject*>(Object));
		}
	}
	// Every dying object learns it first, so that weak references to any of them read null from now on.
	for (UObject* Object : Unreachable)
	{
		Object->BeginDestroy();
		Object->SetFlags(RF_BeginDestroyed);
	}
	for (UObject* Object : Unreachable)
	{
		Object->FinishDestroy();
	}
	// Instances go before types, so that an object's class still describes it while it is torn down.
	std::stable_partition(Unreachable.begin(), Unreachable.end(), [](const UObject* Object)
	{
		return !Object->IsA(UStruct::StaticClass());
	});
	for (UObject* Object : Unreachable)
	{
		DestroyObject(Object);
	}
	ReferenceCache().clear();
	if (!Unreachable.empty())
	{
		UE_LOG(LogObj, Verbose, TEXT("Garbage collection destroyed %d objects"), static_cast<int32>(Unreachable.size()));
	}
	GIsCollecting = false;
}
