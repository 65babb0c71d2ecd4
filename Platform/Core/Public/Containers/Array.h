// TArray: a contiguous array with int32 indices and the engine's member names.
#pragma once

#include "CoreTypes.h"
#include "Containers/ContainersFwd.h"
#include "Misc/AssertionMacros.h"
#include "Templates/TypeHash.h"
#include "Templates/UnrealTemplate.h"
#include <algorithm>
#include <initializer_list>
#include <type_traits>
#include <vector>

namespace UE::Core::Private
{
	// Pointers sort by what they point at, as in the engine.
	template<typename PredicateType>
	struct TDereferenceWrapper
	{
		const PredicateType& Predicate;
		template<typename T>
		bool operator()(const T& A, const T& B) const
		{
			if constexpr (std::is_pointer_v<T>)
			{
				return Predicate(*A, *B);
			}
			else
			{
				return Predicate(A, B);
			}
		}
	};

	struct FLess
	{
		template<typename T>
		bool operator()(const T& A, const T& B) const
		{
			return A < B;
		}
	};
}

template<typename InElementType, typename InAllocator>
class TArray
{
	// std::vector<bool> packs bits; bytes keep GetData() and element references working.
	using StorageElementType = std::conditional_t<std::is_same_v<InElementType, bool>, uint8, InElementType>;

public:
	using ElementType = InElementType;
	using SizeType = int32;
	using ElementAllocatorType = InAllocator;

	TArray() = default;
	TArray(std::initializer_list<ElementType> InitList)
	{
		Append(InitList);
	}
	TArray(const ElementType* Ptr, SizeType Count)
	{
		Append(Ptr, Count);
	}
	template<typename OtherElementType, typename OtherAllocator, typename = std::enable_if_t<!std::is_same_v<TArray, TArray<OtherElementType, OtherAllocator>>>>
	explicit TArray(const TArray<OtherElementType, OtherAllocator>& Other)
	{
		Reserve(Other.Num());
		for (const OtherElementType& Element : Other)
		{
			Emplace(Element);
		}
	}
	TArray(const TArray&) = default;
	TArray(TArray&&) = default;
	TArray& operator=(const TArray&) = default;
	TArray& operator=(TArray&& Other)
	{
		if (this != &Other)
		{
			Storage = std::move(Other.Storage);
			Other.Storage.clear();
		}
		return *this;
	}
	TArray& operator=(std::initializer_list<ElementType> InitList)
	{
		Empty();
		Append(InitList);
		return *this;
	}

	// Size
	SizeType Num() const
	{
		return static_cast<SizeType>(Storage.size());
	}
	bool IsEmpty() const
	{
		return Storage.empty();
	}
	SizeType Max() const
	{
		return static_cast<SizeType>(Storage.capacity());
	}
	SizeType GetSlack() const
	{
		return Max() - Num();
	}
	bool IsValidIndex(SizeType Index) const
	{
		return Index >= 0 && Index < Num();
	}
	static constexpr uint32 GetTypeSize()
	{
		return sizeof(ElementType);
	}
	SIZE_T GetAllocatedSize() const
	{
		return Storage.capacity() * sizeof(ElementType);
	}
	void CheckInvariants() const
	{
	}
	void RangeCheck(SizeType Index) const
	{
		if (UNLIKELY(!IsValidIndex(Index)))
		{
			UE::Core::Private::OnInvalidArrayIndex(Index, Num());
		}
	}

	// Access
	ElementType* GetData()
	{
		return reinterpret_cast<ElementType*>(Storage.data());
	}
	const ElementType* GetData() const
	{
		return reinterpret_cast<const ElementType*>(Storage.data());
	}
	ElementType& operator[](SizeType Index)
	{
		RangeCheck(Index);
		return GetData()[Index];
	}
	const ElementType& operator[](SizeType Index) const
	{
		RangeCheck(Index);
		return GetData()[Index];
	}
	ElementType& Last(SizeType IndexFromTheEnd = 0)
	{
		return (*this)[Num() - IndexFromTheEnd - 1];
	}
	const ElementType& Last(SizeType IndexFromTheEnd = 0) const
	{
		return (*this)[Num() - IndexFromTheEnd - 1];
	}
	ElementType& Top()
	{
		return Last();
	}
	const ElementType& Top() const
	{
		return Last();
	}

	// Adding
	SizeType Add(const ElementType& Item)
	{
		Storage.push_back(Item);
		return Num() - 1;
	}
	SizeType Add(ElementType&& Item)
	{
		Storage.push_back(std::move(Item));
		return Num() - 1;
	}
	// The index is taken first: adding may move the storage that GetData() points into.
	ElementType& Add_GetRef(const ElementType& Item)
	{
		const SizeType Index = Add(Item);
		return GetData()[Index];
	}
	ElementType& Add_GetRef(ElementType&& Item)
	{
		const SizeType Index = Add(std::move(Item));
		return GetData()[Index];
	}
	template<typename... ArgsType>
	SizeType Emplace(ArgsType&&... Args)
	{
		Storage.emplace_back(std::forward<ArgsType>(Args)...);
		return Num() - 1;
	}
	template<typename... ArgsType>
	ElementType& Emplace_GetRef(ArgsType&&... Args)
	{
		const SizeType Index = Emplace(std::forward<ArgsType>(Args)...);
		return GetData()[Index];
	}
	template<typename... ArgsType>
	void EmplaceAt(SizeType Index, ArgsType&&... Args)
	{
		check(Index >= 0 && Index <= Num());
		Storage.emplace(Storage.begin() + Index, std::forward<ArgsType>(Args)...);
	}
	SizeType AddUnique(const ElementType& Item)
	{
		const SizeType Index = Find(Item);
		return Index != INDEX_NONE ? Index : Add(Item);
	}
	SizeType AddUnique(ElementType&& Item)
	{
		const SizeType Index = Find(Item);
		return Index != INDEX_NONE ? Index : Add(std::move(Item));
	}
	SizeType AddDefaulted(SizeType Count = 1)
	{
		const SizeType First = Num();
		Storage.resize(Storage.size() + Count);
		return First;
	}
	ElementType& AddDefaulted_GetRef()
	{
		const SizeType Index = AddDefaulted();
		return GetData()[Index];
	}
	SizeType AddZeroed(SizeType Count = 1)
	{
		const SizeType First = Num();
		Storage.resize(Storage.size() + Count, StorageElementType());
		return First;
	}
	ElementType& AddZeroed_GetRef()
	{
		const SizeType Index = AddZeroed();
		return GetData()[Index];
	}
	SizeType AddUninitialized(SizeType Count = 1)
	{
		return AddDefaulted(Count);
	}
	void Push(const ElementType& Item)
	{
		Add(Item);
	}
	void Push(ElementType&& Item)
	{
		Add(std::move(Item));
	}
	ElementType Pop(EAllowShrinking AllowShrinking = EAllowShrinking::Yes)
	{
		check(Num() > 0);
		ElementType Result = std::move(Last());
		Storage.pop_back();
		return Result;
	}
	SizeType Insert(const ElementType& Item, SizeType Index)
	{
		check(Index >= 0 && Index <= Num());
		Storage.insert(Storage.begin() + Index, Item);
		return Index;
	}
	SizeType Insert(ElementType&& Item, SizeType Index)
	{
		check(Index >= 0 && Index <= Num());
		Storage.insert(Storage.begin() + Index, std::move(Item));
		return Index;
	}
	SizeType Insert(const TArray& Items, SizeType Index)
	{
		check(Index >= 0 && Index <= Num());
		Storage.insert(Storage.begin() + Index, Items.Storage.begin(), Items.Storage.end());
		return Index;
	}
	SizeType Insert(std::initializer_list<ElementType> Items, SizeType Index)
	{
		check(Index >= 0 && Index <= Num());
		Storage.insert(Storage.begin() + Index, Items.begin(), Items.end());
		return Index;
	}
	SizeType InsertDefaulted(SizeType Index, SizeType Count = 1)
	{
		check(Index >= 0 && Index <= Num());
		Storage.insert(Storage.begin() + Index, Count, StorageElementType());
		return Index;
	}
	void Append(const TArray& Other)
	{
		Storage.insert(Storage.end(), Other.Storage.begin(), Other.Storage.end());
	}
	void Append(TArray&& Other)
	{
		if (Storage.empty())
		{
			Storage = std::move(Other.Storage);
		}
		else
		{
			Storage.insert(Storage.end(), std::make_move_iterator(Other.Storage.begin()), std::make_move_iterator(Other.Storage.end()));
		}
		Other.Storage.clear();
	}
	void Append(const ElementType* Ptr, SizeType Count)
	{
		check(Count >= 0);
		Storage.insert(Storage.end(), reinterpret_cast<const StorageElementType*>(Ptr), reinterpret_cast<const StorageElementType*>(Ptr) + Count);
	}
	void Append(std::initializer_list<ElementType> InitList)
	{
		Storage.insert(Storage.end(), InitList.begin(), InitList.end());
	}
	TArray& operator+=(const TArray& Other)
	{
		Append(Other);
		return *this;
	}
	TArray& operator+=(TArray&& Other)
	{
		Append(std::move(Other));
		return *this;
	}
	void Init(const ElementType& Element, SizeType Count)
	{
		Storage.assign(Count, Element);
	}

	// Removing
	void RemoveAt(SizeType Index, SizeType Count = 1, EAllowShrinking AllowShrinking = EAllowShrinking::Yes)
	{
		check(Count >= 0 && Index >= 0 && Index + Count <= Num());
		Storage.erase(Storage.begin() + Index, Storage.begin() + Index + Count);
	}
	void RemoveAt(SizeType Index, EAllowShrinking AllowShrinking)
	{
		RemoveAt(Index, 1, AllowShrinking);
	}
	void RemoveAtSwap(SizeType Index, SizeType Count = 1, EAllowShrinking AllowShrinking = EAllowShrinking::Yes)
	{
		check(Count >= 0 && Index >= 0 && Index + Count <= Num());
		for (SizeType Removed = 0; Removed < Count; ++Removed)
		{
			const SizeType Target = Index + Count - 1 - Removed;
			if (Target != Num() - 1)
			{
				std::swap(Storage[Target], Storage.back());
			}
			Storage.pop_back();
		}
	}
	template<typename ComparisonType>
	SizeType Remove(const ComparisonType& Item)
	{
		return RemoveAll([&Item](const ElementType& Element) { return Element == Item; });
	}
	template<typename ComparisonType>
	SizeType RemoveSingle(const ComparisonType& Item)
	{
		const SizeType Index = Find(Item);
		if (Index == INDEX_NONE)
		{
			return 0;
		}
		RemoveAt(Index);
		return 1;
	}
	template<typename ComparisonType>
	SizeType RemoveSwap(const ComparisonType& Item)
	{
		return Remove(Item);
	}
	template<typename PredicateType>
	SizeType RemoveAll(const PredicateType& Predicate)
	{
		const SizeType OldNum = Num();
		ElementType* Data = GetData();
		SizeType Write = 0;
		for (SizeType Read = 0; Read < OldNum; ++Read)
		{
			if (!Predicate(Data[Read]))
			{
				if (Write != Read)
				{
					Data[Write] = std::move(Data[Read]);
				}
				++Write;
			}
		}
		Storage.erase(Storage.begin() + Write, Storage.end());
		return OldNum - Write;
	}
	template<typename PredicateType>
	SizeType RemoveAllSwap(const PredicateType& Predicate)
	{
		return RemoveAll(Predicate);
	}
	void Empty(SizeType Slack = 0)
	{
		Storage.clear();
		if (Slack == 0)
		{
			Storage.shrink_to_fit();
		}
		else
		{
			Storage.reserve(Slack);
		}
	}
	void Reset(SizeType NewSize = 0)
	{
		Storage.clear();
		Storage.reserve(NewSize);
	}
	void Reserve(SizeType Number)
	{
		Storage.reserve(Number);
	}
	void Shrink()
	{
		Storage.shrink_to_fit();
	}
	void SetNum(SizeType NewNum, EAllowShrinking AllowShrinking = EAllowShrinking::Yes)
	{
		check(NewNum >= 0);
		Storage.resize(NewNum);
	}
	void SetNumZeroed(SizeType NewNum, EAllowShrinking AllowShrinking = EAllowShrinking::Yes)
	{
		Storage.resize(NewNum, StorageElementType());
	}
	void SetNumUninitialized(SizeType NewNum, EAllowShrinking AllowShrinking = EAllowShrinking::Yes)
	{
		Storage.resize(NewNum);
	}

	// Searching
	template<typename ComparisonType>
	SizeType Find(const ComparisonType& Item) const
	{
		const ElementType* Data = GetData();
		for (SizeType Index = 0; Index < Num(); ++Index)
		{
			if (Data[Index] == Item)
			{
				return Index;
			}
		}
		return INDEX_NONE;
	}
	bool Find(const ElementType& Item, SizeType& OutIndex) const
	{
		OutIndex = Find(Item);
		return OutIndex != INDEX_NONE;
	}
	template<typename ComparisonType>
	SizeType FindLast(const ComparisonType& Item) const
	{
		const ElementType* Data = GetData();
		for (SizeType Index = Num() - 1; Index >= 0; --Index)
		{
			if (Data[Index] == Item)
			{
				return Index;
			}
		}
		return INDEX_NONE;
	}
	bool FindLast(const ElementType& Item, SizeType& OutIndex) const
	{
		OutIndex = FindLast(Item);
		return OutIndex != INDEX_NONE;
	}
	template<typename KeyType>
	SizeType IndexOfByKey(const KeyType& Key) const
	{
		return Find(Key);
	}
	template<typename PredicateType>
	SizeType IndexOfByPredicate(PredicateType Predicate) const
	{
		const ElementType* Data = GetData();
		for (SizeType Index = 0; Index < Num(); ++Index)
		{
			if (Predicate(Data[Index]))
			{
				return Index;
			}
		}
		return INDEX_NONE;
	}
	template<typename PredicateType>
	SizeType FindLastByPredicate(PredicateType Predicate) const
	{
		const ElementType* Data = GetData();
		for (SizeType Index = Num() - 1; Index >= 0; --Index)
		{
			if (Predicate(Data[Index]))
			{
				return Index;
			}
		}
		return INDEX_NONE;
	}
	template<typename KeyType>
	ElementType* FindByKey(const KeyType& Key)
	{
		const SizeType Index = Find(Key);
		return Index == INDEX_NONE ? nullptr : GetData() + Index;
	}
	template<typename KeyType>
	const ElementType* FindByKey(const KeyType& Key) const
	{
		const SizeType Index = Find(Key);
		return Index == INDEX_NONE ? nullptr : GetData() + Index;
	}
	template<typename PredicateType>
	ElementType* FindByPredicate(PredicateType Predicate)
	{
		const SizeType Index = IndexOfByPredicate(Predicate);
		return Index == INDEX_NONE ? nullptr : GetData() + Index;
	}
	template<typename PredicateType>
	const ElementType* FindByPredicate(PredicateType Predicate) const
	{
		const SizeType Index = IndexOfByPredicate(Predicate);
		return Index == INDEX_NONE ? nullptr : GetData() + Index;
	}
	template<typename PredicateType>
	TArray FilterByPredicate(PredicateType Predicate) const
	{
		TArray Result;
		for (const ElementType& Element : *this)
		{
			if (Predicate(Element))
			{
				Result.Add(Element);
			}
		}
		return Result;
	}
	template<typename ComparisonType>
	bool Contains(const ComparisonType& Item) const
	{
		return Find(Item) != INDEX_NONE;
	}
	template<typename PredicateType>
	bool ContainsByPredicate(PredicateType Predicate) const
	{
		return IndexOfByPredicate(Predicate) != INDEX_NONE;
	}

	// Ordering
	void Sort()
	{
		Sort(UE::Core::Private::FLess());
	}
	template<typename PredicateType>
	void Sort(const PredicateType& Predicate)
	{
		std::sort(GetData(), GetData() + Num(), UE::Core::Private::TDereferenceWrapper<PredicateType>{Predicate});
	}
	void StableSort()
	{
		StableSort(UE::Core::Private::FLess());
	}
	template<typename PredicateType>
	void StableSort(const PredicateType& Predicate)
	{
		std::stable_sort(GetData(), GetData() + Num(), UE::Core::Private::TDereferenceWrapper<PredicateType>{Predicate});
	}
	void Swap(SizeType FirstIndex, SizeType SecondIndex)
	{
		RangeCheck(FirstIndex);
		RangeCheck(SecondIndex);
		std::swap(GetData()[FirstIndex], GetData()[SecondIndex]);
	}
	void SwapMemory(SizeType FirstIndex, SizeType SecondIndex)
	{
		Swap(FirstIndex, SecondIndex);
	}

	bool operator==(const TArray& Other) const
	{
		if (Num() != Other.Num())
		{
			return false;
		}
		for (SizeType Index = 0; Index < Num(); ++Index)
		{
			if (!(GetData()[Index] == Other.GetData()[Index]))
			{
				return false;
			}
		}
		return true;
	}
	bool operator!=(const TArray& Other) const
	{
		return !(*this == Other);
	}

	// Iteration
	ElementType* begin()
	{
		return GetData();
	}
	ElementType* end()
	{
		return GetData() + Num();
	}
	const ElementType* begin() const
	{
		return GetData();
	}
	const ElementType* end() const
	{
		return GetData() + Num();
	}

	template<typename ContainerType, typename IteratorElementType>
	class TIndexedIterator
	{
	public:
		TIndexedIterator(ContainerType& InContainer, SizeType StartIndex = 0)
			: Container(InContainer)
			, Index(StartIndex)
		{
		}
		TIndexedIterator& operator++()
		{
			++Index;
			return *this;
		}
		TIndexedIterator& operator--()
		{
			--Index;
			return *this;
		}
		IteratorElementType& operator*() const
		{
			return Container[Index];
		}
		IteratorElementType* operator->() const
		{
			return &Container[Index];
		}
		explicit operator bool() const
		{
			return Container.IsValidIndex(Index);
		}
		SizeType GetIndex() const
		{
			return Index;
		}
		void Reset()
		{
			Index = 0;
		}
		void RemoveCurrent()
		{
			Container.RemoveAt(Index);
			--Index;
		}
		void RemoveCurrentSwap()
		{
			Container.RemoveAtSwap(Index);
			--Index;
		}

	private:
		ContainerType& Container;
		SizeType Index;
	};
	using TIterator = TIndexedIterator<TArray, ElementType>;
	using TConstIterator = TIndexedIterator<const TArray, const ElementType>;
	TIterator CreateIterator()
	{
		return TIterator(*this);
	}
	TConstIterator CreateConstIterator() const
	{
		return TConstIterator(*this);
	}

private:
	std::vector<StorageElementType> Storage;
};

template<typename ElementType, typename Allocator>
uint32 GetTypeHash(const TArray<ElementType, Allocator>& Array)
{
	uint32 Hash = 0;
	for (const ElementType& Element : Array)
	{
		Hash = HashCombineFast(Hash, GetTypeHash(Element));
	}
	return Hash;
}
