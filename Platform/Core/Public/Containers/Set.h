// TSet: a hashed set over a sparse array, as the engine builds it. Elements keep their slots, so iteration
// follows insertion order, and a removed slot is reused by the next addition.
#pragma once

#include "CoreTypes.h"
#include "Containers/Array.h"
#include "Containers/ContainersFwd.h"
#include "Misc/AssertionMacros.h"
#include "Templates/TypeHash.h"
#include "Templates/UnrealTemplate.h"
#include <algorithm>
#include <optional>
#include <type_traits>
#include <vector>

class FSetElementId
{
public:
	FSetElementId() = default;
	static FSetElementId FromInteger(int32 Integer)
	{
		FSetElementId Id;
		Id.Index = Integer;
		return Id;
	}
	bool IsValidId() const
	{
		return Index != INDEX_NONE;
	}
	int32 AsInteger() const
	{
		return Index;
	}
	bool operator==(const FSetElementId& Other) const
	{
		return Index == Other.Index;
	}

private:
	int32 Index = INDEX_NONE;
};

template<typename ElementType, bool bInAllowDuplicateKeys = false>
struct BaseKeyFuncs
{
	static constexpr bool bAllowDuplicateKeys = bInAllowDuplicateKeys;
};

template<typename ElementType>
struct DefaultKeyFuncs : BaseKeyFuncs<ElementType, false>
{
	using KeyInitType = const ElementType&;
	using ElementInitType = const ElementType&;

	static KeyInitType GetSetKey(ElementInitType Element)
	{
		return Element;
	}
	template<typename ComparableKey>
	static bool Matches(KeyInitType A, const ComparableKey& B)
	{
		return A == B;
	}
	template<typename ComparableKey>
	static uint32 GetKeyHash(const ComparableKey& Key)
	{
		return GetTypeHash(Key);
	}
};

template<typename InElementType, typename KeyFuncs, typename Allocator>
class TSet
{

public:
	using ElementType = InElementType;
	using KeyInitType = typename KeyFuncs::KeyInitType;
	using ElementInitType = typename KeyFuncs::ElementInitType;

	TSet() = default;
	TSet(std::initializer_list<ElementType> InitList)
	{
		for (const ElementType& Element : InitList)
		{
			Add(Element);
		}
	}
	explicit TSet(const TArray<ElementType>& InArray)
	{
		Append(InArray);
	}

	int32 Num() const
	{
		return NumElements;
	}
	bool IsEmpty() const
	{
		return NumElements == 0;
	}
	void Empty(int32 ExpectedNumElements = 0)
	{
		Slots.clear();
		HashNext.clear();
		FreeSlots.clear();
		Buckets.clear();
		NumElements = 0;
		Reserve(ExpectedNumElements);
	}
	void Reset()
	{
		Empty();
	}
	void Reserve(int32 Number)
	{
		if (Number > 0)
		{
			Slots.reserve(Number);
			HashNext.reserve(Number);
			RehashIfNeeded(Number);
		}
	}
	void Shrink()
	{
	}
	void Compact()
	{
	}

	FSetElementId Add(const ElementType& InElement, bool* bIsAlreadyInSetPtr = nullptr)
	{
		return Emplace(InElement, bIsAlreadyInSetPtr);
	}
	FSetElementId Add(ElementType&& InElement, bool* bIsAlreadyInSetPtr = nullptr)
	{
		return Emplace(std::move(InElement), bIsAlreadyInSetPtr);
	}
	// An element whose key is already present replaces the old one in its slot.
	template<typename ArgType>
	FSetElementId Emplace(ArgType&& Arg, bool* bIsAlreadyInSetPtr = nullptr)
	{
		ElementType NewElement(std::forward<ArgType>(Arg));
		const uint32 Hash = KeyFuncs::GetKeyHash(KeyFuncs::GetSetKey(NewElement));
		const int32 Existing = FindIndexByHash(Hash, KeyFuncs::GetSetKey(NewElement));
		if (bIsAlreadyInSetPtr)
		{
			*bIsAlreadyInSetPtr = Existing != INDEX_NONE;
		}
		if (Existing != INDEX_NONE)
		{
			Slots[Existing].reset();
			Slots[Existing].emplace(std::move(NewElement));
			return FSetElementId::FromInteger(Existing);
		}
		return FSetElementId::FromInteger(InsertNew(std::move(NewElement), Hash));
	}
	void Append(const TArray<ElementType>& InElements)
	{
		for (const ElementType& Element : InElements)
		{
			Add(Element);
		}
	}
	void Append(const TSet& OtherSet)
	{
		for (const ElementType& Element : OtherSet)
		{
			Add(Element);
		}
	}

	// Lookups take the key type, so text converts to FString (and hashes without case) before hashing.
	FSetElementId FindId(KeyInitType Key) const
	{
		return FSetElementId::FromInteger(FindIndexByHash(KeyFuncs::GetKeyHash(Key), Key));
	}
	ElementType* Find(KeyInitType Key)
	{
		const int32 Index = FindIndexByHash(KeyFuncs::GetKeyHash(Key), Key);
		return Index == INDEX_NONE ? nullptr : &*Slots[Index];
	}
	const ElementType* Find(KeyInitType Key) const
	{
		const int32 Index = FindIndexByHash(KeyFuncs::GetKeyHash(Key), Key);
		return Index == INDEX_NONE ? nullptr : &*Slots[Index];
	}
	bool Contains(KeyInitType Key) const
	{
		return FindIndexByHash(KeyFuncs::GetKeyHash(Key), Key) != INDEX_NONE;
	}
	int32 Remove(KeyInitType Key)
	{
		const int32 Index = FindIndexByHash(KeyFuncs::GetKeyHash(Key), Key);
		if (Index == INDEX_NONE)
		{
			return 0;
		}
		RemoveAtIndex(Index);
		return 1;
	}
	void Remove(FSetElementId Id)
	{
		if (IsValidId(Id))
		{
			RemoveAtIndex(Id.AsInteger());
		}
	}
	bool IsValidId(FSetElementId Id) const
	{
		const int32 Index = Id.AsInteger();
		return Index >= 0 && Index < static_cast<int32>(Slots.size()) && Slots[Index].has_value();
	}
	ElementType& operator[](FSetElementId Id)
	{
		check(IsValidId(Id));
		return *Slots[Id.AsInteger()];
	}
	const ElementType& operator[](FSetElementId Id) const
	{
		check(IsValidId(Id));
		return *Slots[Id.AsInteger()];
	}

	TArray<ElementType> Array() const
	{
		TArray<ElementType> Result;
		Result.Reserve(NumElements);
		for (const ElementType& Element : *this)
		{
			Result.Add(Element);
		}
		return Result;
	}
	TSet Union(const TSet& Other) const
	{
		TSet Result(*this);
		Result.Append(Other);
		return Result;
	}
	TSet Intersect(const TSet& Other) const
	{
		TSet Result;
		for (const ElementType& Element : *this)
		{
			if (Other.Contains(KeyFuncs::GetSetKey(Element)))
			{
				Result.Add(Element);
			}
		}
		return Result;
	}
	TSet Difference(const TSet& Other) const
	{
		TSet Result;
		for (const ElementType& Element : *this)
		{
			if (!Other.Contains(KeyFuncs::GetSetKey(Element)))
			{
				Result.Add(Element);
			}
		}
		return Result;
	}
	bool Includes(const TSet& Other) const
	{
		for (const ElementType& Element : Other)
		{
			if (!Contains(KeyFuncs::GetSetKey(Element)))
			{
				return false;
			}
		}
		return true;
	}

	// Reorders the elements; the slots are compacted as the engine's sort does.
	template<typename PredicateType>
	void Sort(const PredicateType& Predicate)
	{
		std::vector<ElementType> Sorted;
		Sorted.reserve(NumElements);
		for (ElementType& Element : *this)
		{
			Sorted.push_back(std::move(Element));
		}
		std::stable_sort(Sorted.begin(), Sorted.end(), Predicate);
		Empty(static_cast<int32>(Sorted.size()));
		for (ElementType& Element : Sorted)
		{
			Add(std::move(Element));
		}
	}

	template<bool bConst>
	class TBaseIterator
	{
		using SetType = std::conditional_t<bConst, const TSet, TSet>;
		using ItElementType = std::conditional_t<bConst, const ElementType, ElementType>;

	public:
		TBaseIterator(SetType& InSet, int32 StartIndex)
			: Set(&InSet)
			, Index(StartIndex)
		{
			SkipEmpty();
		}
		TBaseIterator& operator++()
		{
			++Index;
			SkipEmpty();
			return *this;
		}
		ItElementType& operator*() const
		{
			return *Set->Slots[Index];
		}
		ItElementType* operator->() const
		{
			return &*Set->Slots[Index];
		}
		explicit operator bool() const
		{
			return Index < static_cast<int32>(Set->Slots.size());
		}
		bool operator!=(const TBaseIterator& Other) const
		{
			return Index != Other.Index;
		}
		bool operator==(const TBaseIterator& Other) const
		{
			return Index == Other.Index;
		}
		FSetElementId GetId() const
		{
			return FSetElementId::FromInteger(Index);
		}
		// Frees the current slot; the iteration goes on with the next element.
		void RemoveCurrent()
		{
			static_assert(!bConst, "RemoveCurrent needs a mutable iterator");
			Set->RemoveAtIndex(Index);
		}

	private:
		void SkipEmpty()
		{
			while (Index < static_cast<int32>(Set->Slots.size()) && !Set->Slots[Index].has_value())
			{
				++Index;
			}
		}

		SetType* Set;
		int32 Index;
	};
	using TIterator = TBaseIterator<false>;
	using TConstIterator = TBaseIterator<true>;

	TIterator CreateIterator()
	{
		return TIterator(*this, 0);
	}
	TConstIterator CreateConstIterator() const
	{
		return TConstIterator(*this, 0);
	}
	TIterator begin()
	{
		return TIterator(*this, 0);
	}
	TIterator end()
	{
		return TIterator(*this, static_cast<int32>(Slots.size()));
	}
	TConstIterator begin() const
	{
		return TConstIterator(*this, 0);
	}
	TConstIterator end() const
	{
		return TConstIterator(*this, static_cast<int32>(Slots.size()));
	}

private:
	template<typename ComparableKey>
	int32 FindIndexByHash(uint32 Hash, const ComparableKey& Key) const
	{
		if (Buckets.empty())
		{
			return INDEX_NONE;
		}
		for (int32 Index = Buckets[Hash & (Buckets.size() - 1)]; Index != INDEX_NONE; Index = HashNext[Index])
		{
			if (KeyFuncs::Matches(KeyFuncs::GetSetKey(*Slots[Index]), Key))
			{
				return Index;
			}
		}
		return INDEX_NONE;
	}

	int32 InsertNew(ElementType&& Element, uint32 Hash)
	{
		int32 Index;
		if (!FreeSlots.empty())
		{
			Index = FreeSlots.back();
			FreeSlots.pop_back();
			Slots[Index].emplace(std::move(Element));
		}
		else
		{
			Index = static_cast<int32>(Slots.size());
			Slots.emplace_back(std::move(Element));
			HashNext.push_back(INDEX_NONE);
		}
		++NumElements;
		if (!RehashIfNeeded(NumElements))
		{
			LinkToBucket(Index, Hash);
		}
		return Index;
	}

	void LinkToBucket(int32 Index, uint32 Hash)
	{
		int32& Head = Buckets[Hash & (Buckets.size() - 1)];
		HashNext[Index] = Head;
		Head = Index;
	}

	// Grows the bucket array to keep chains short; returns true when every element was relinked.
	bool RehashIfNeeded(int32 ForNum)
	{
		size_t Wanted = Buckets.empty() ? 8 : Buckets.size();
		while (Wanted < static_cast<size_t>(ForNum))
		{
			Wanted *= 2;
		}
		if (Wanted == Buckets.size())
		{
			return false;
		}
		Buckets.assign(Wanted, INDEX_NONE);
		for (int32 Index = 0; Index < static_cast<int32>(Slots.size()); ++Index)
		{
			if (Slots[Index].has_value())
			{
				LinkToBucket(Index, KeyFuncs::GetKeyHash(KeyFuncs::GetSetKey(*Slots[Index])));
			}
		}
		return true;
	}

	void RemoveAtIndex(int32 Index)
	{
		const uint32 Hash = KeyFuncs::GetKeyHash(KeyFuncs::GetSetKey(*Slots[Index]));
		int32* Link = &Buckets[Hash & (Buckets.size() - 1)];
		while (*Link != Index)
		{
			check(*Link != INDEX_NONE);
			Link = &HashNext[*Link];
		}
		*Link = HashNext[Index];
		HashNext[Index] = INDEX_NONE;
		Slots[Index].reset();
		FreeSlots.push_back(Index);
		--NumElements;
	}

	std::vector<std::optional<ElementType>> Slots;
	std::vector<int32> HashNext;
	std::vector<int32> FreeSlots;
	std::vector<int32> Buckets;
	int32 NumElements = 0;
};
