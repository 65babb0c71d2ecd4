// The registry of live objects: every object by index, and lookups by name and by outer.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include <mutex>
#include <unordered_map>
#include <vector>

class UObjectBase;

namespace UE::CoreUObject::Private
{
	class FObjectRegistry
	{
	public:
		static FObjectRegistry& Get();

		// Returns the object's index.
		int32 Add(UObjectBase* Object, FName Name, const UObjectBase* Outer);
		void Remove(UObjectBase* Object, int32 Index, FName Name, const UObjectBase* Outer);
		void Move(UObjectBase* Object, FName OldName, const UObjectBase* OldOuter, FName NewName, const UObjectBase* NewOuter);
		bool Contains(const UObjectBase* Object, int32 Index) const;
		// Each slot counts how often it was reused, so that a weak reference knows a new object from its old one.
		int32 GetSerialNumber(int32 Index) const;
		UObjectBase* GetObject(int32 Index, int32 SerialNumber) const;

		// The objects of that name, in the order they were made.
		std::vector<UObjectBase*> FindByName(FName Name) const;
		// The direct inners of Outer (null: the packages and other outermost objects).
		std::vector<UObjectBase*> FindByOuter(const UObjectBase* Outer) const;
		std::vector<UObjectBase*> AllObjects() const;

		// A number for the next generated name of that base.
		int32 NextNameNumber(FName BaseName);

	private:
		mutable std::mutex Mutex;
		std::vector<UObjectBase*> Objects;
		std::vector<int32> SerialNumbers;
		std::vector<int32> FreeIndices;
		std::unordered_map<uint32, std::vector<UObjectBase*>> ByName;
		std::unordered_map<const UObjectBase*, std::vector<UObjectBase*>> ByOuter;
		std::unordered_map<uint32, int32> NameNumbers;
	};
}
