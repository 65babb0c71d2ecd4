// TMap: key-value pairs in a TSet keyed by the pair's Key, iterating in insertion order like the engine's.
#pragma once

#include "CoreTypes.h"
#include "Containers/Array.h"
#include "Containers/Set.h"
#include "Templates/Tuple.h"

template<typename KeyType, typename ValueType, bool bInAllowDuplicateKeys>
struct TDefaultMapHashableKeyFuncs : BaseKeyFuncs<TPair<KeyType, ValueType>, bInAllowDuplicateKeys>
{
	using KeyInitType = const KeyType&;
	using ElementInitType = const TPair<KeyType, ValueType>&;

	static KeyInitType GetSetKey(ElementInitType Element)
	{
		return Element.Key;
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

template<typename InKeyType, typename InValueType, typename SetAllocator, typename KeyFuncs>
class TMap
{
public:
	using KeyType = InKeyType;
	using ValueType = InValueType;
	using ElementType = TPair<KeyType, ValueType>;
	using KeyConstPointerType = const KeyType&;
	using ElementSetType = TSet<ElementType, KeyFuncs, SetAllocator>;

	TMap() = default;
	TMap(std::initializer_list<ElementType> InitList)
	{
		for (const ElementType& Element : InitList)
		{
			Add(Element.Key, Element.Value);
		}
	}

	int32 Num() const
	{
		return Pairs.Num();
	}
	bool IsEmpty() const
	{
		return Pairs.IsEmpty();
	}
	void Empty(int32 ExpectedNumElements = 0)
	{
		Pairs.Empty(ExpectedNumElements);
	}
	void Reset()
	{
		Pairs.Reset();
	}
	void Reserve(int32 Number)
	{
		Pairs.Reserve(Number);
	}
	void Shrink()
	{
	}
	void Compact()
	{
	}

	// Adding a key that is present replaces its pair (key spelling and value) in place.
	ValueType& Add(const KeyType& InKey, const ValueType& InValue)
	{
		return Emplace(InKey, InValue);
	}
	ValueType& Add(const KeyType& InKey, ValueType&& InValue)
	{
		return Emplace(InKey, std::move(InValue));
	}
	ValueType& Add(KeyType&& InKey, const ValueType& InValue)
	{
		return Emplace(std::move(InKey), InValue);
	}
	ValueType& Add(KeyType&& InKey, ValueType&& InValue)
	{
		return Emplace(std::move(InKey), std::move(InValue));
	}
	ValueType& Add(const KeyType& InKey)
	{
		return Emplace(InKey, ValueType());
	}
	ValueType& Add(KeyType&& InKey)
	{
		return Emplace(std::move(InKey), ValueType());
	}
	ValueType& Add(const TPair<KeyType, ValueType>& Pair)
	{
		return Emplace(Pair.Key, Pair.Value);
	}
	template<typename InitKeyType, typename InitValueType = ValueType>
	ValueType& Emplace(InitKeyType&& InKey, InitValueType&& InValue = ValueType())
	{
		const FSetElementId Id = Pairs.Emplace(ElementType(std::forward<InitKeyType>(InKey), std::forward<InitValueType>(InValue)));
		return Pairs[Id].Value;
	}
	ValueType& FindOrAdd(const KeyType& Key)
	{
		if (ValueType* Existing = Find(Key))
		{
			return *Existing;
		}
		return Add(Key);
	}
	ValueType& FindOrAdd(KeyType&& Key)
	{
		if (ValueType* Existing = Find(Key))
		{
			return *Existing;
		}
		return Add(std::move(Key));
	}
	template<typename InitValueType>
	ValueType& FindOrAdd(const KeyType& Key, InitValueType&& Value)
	{
		if (ValueType* Existing = Find(Key))
		{
			return *Existing;
		}
		return Emplace(Key, std::forward<InitValueType>(Value));
	}
	void Append(const TMap& Other)
	{
		for (const ElementType& Pair : Other)
		{
			Add(Pair.Key, Pair.Value);
		}
	}

	ValueType* Find(KeyConstPointerType Key)
	{
		ElementType* Pair = Pairs.Find(Key);
		return Pair ? &Pair->Value : nullptr;
	}
	const ValueType* Find(KeyConstPointerType Key) const
	{
		const ElementType* Pair = Pairs.Find(Key);
		return Pair ? &Pair->Value : nullptr;
	}
	ValueType FindRef(KeyConstPointerType Key) const
	{
		const ValueType* Value = Find(Key);
		return Value ? *Value : ValueType();
	}
	ValueType& FindChecked(KeyConstPointerType Key)
	{
		ValueType* Value = Find(Key);
		check(Value != nullptr);
		return *Value;
	}
	const ValueType& FindChecked(KeyConstPointerType Key) const
	{
		const ValueType* Value = Find(Key);
		check(Value != nullptr);
		return *Value;
	}
	ValueType& operator[](KeyConstPointerType Key)
	{
		return FindChecked(Key);
	}
	const ValueType& operator[](KeyConstPointerType Key) const
	{
		return FindChecked(Key);
	}
	const KeyType* FindKey(const ValueType& Value) const
	{
		for (const ElementType& Pair : Pairs)
		{
			if (Pair.Value == Value)
			{
				return &Pair.Key;
			}
		}
		return nullptr;
	}
	bool Contains(KeyConstPointerType Key) const
	{
		return Pairs.Contains(Key);
	}
	int32 Remove(KeyConstPointerType Key)
	{
		return Pairs.Remove(Key);
	}
	bool RemoveAndCopyValue(KeyConstPointerType Key, ValueType& OutRemovedValue)
	{
		const FSetElementId Id = Pairs.FindId(Key);
		if (!Id.IsValidId())
		{
			return false;
		}
		OutRemovedValue = std::move(Pairs[Id].Value);
		Pairs.Remove(Id);
		return true;
	}
	ValueType FindAndRemoveChecked(KeyConstPointerType Key)
	{
		ValueType Result;
		const bool bRemoved = RemoveAndCopyValue(Key, Result);
		check(bRemoved);
		return Result;
	}

	int32 GetKeys(TArray<KeyType>& OutKeys) const
	{
		OutKeys.Reset(Num());
		for (const ElementType& Pair : Pairs)
		{
			OutKeys.Add(Pair.Key);
		}
		return OutKeys.Num();
	}
	int32 GetKeys(TSet<KeyType>& OutKeys) const
	{
		OutKeys.Reset();
		for (const ElementType& Pair : Pairs)
		{
			OutKeys.Add(Pair.Key);
		}
		return OutKeys.Num();
	}
	void GenerateKeyArray(TArray<KeyType>& OutArray) const
	{
		GetKeys(OutArray);
	}
	void GenerateValueArray(TArray<ValueType>& OutArray) const
	{
		OutArray.Reset(Num());
		for (const ElementType& Pair : Pairs)
		{
			OutArray.Add(Pair.Value);
		}
	}
	TArray<ElementType> Array() const
	{
		return Pairs.Array();
	}

	template<typename PredicateType>
	void KeySort(const PredicateType& Predicate)
	{
		Pairs.Sort([&Predicate](const ElementType& A, const ElementType& B) { return Predicate(A.Key, B.Key); });
	}
	template<typename PredicateType>
	void ValueSort(const PredicateType& Predicate)
	{
		Pairs.Sort([&Predicate](const ElementType& A, const ElementType& B) { return Predicate(A.Value, B.Value); });
	}

	bool OrderIndependentCompareEqual(const TMap& Other) const
	{
		if (Num() != Other.Num())
		{
			return false;
		}
		for (const ElementType& Pair : Pairs)
		{
			const ValueType* OtherValue = Other.Find(Pair.Key);
			if (!OtherValue || !(*OtherValue == Pair.Value))
			{
				return false;
			}
		}
		return true;
	}

	template<bool bConst>
	class TBaseIterator
	{
		using SetIteratorType = std::conditional_t<bConst, typename ElementSetType::TConstIterator, typename ElementSetType::TIterator>;
		using ItKeyType = std::conditional_t<bConst, const KeyType, KeyType>;
		using ItValueType = std::conditional_t<bConst, const ValueType, ValueType>;
		using ItElementType = std::conditional_t<bConst, const ElementType, ElementType>;

	public:
		explicit TBaseIterator(const SetIteratorType& InIterator)
			: Iterator(InIterator)
		{
		}
		TBaseIterator& operator++()
		{
			++Iterator;
			return *this;
		}
		explicit operator bool() const
		{
			return static_cast<bool>(Iterator);
		}
		bool operator!=(const TBaseIterator& Other) const
		{
			return Iterator != Other.Iterator;
		}
		bool operator==(const TBaseIterator& Other) const
		{
			return Iterator == Other.Iterator;
		}
		ItElementType& operator*() const
		{
			return *Iterator;
		}
		ItElementType* operator->() const
		{
			return &*Iterator;
		}
		ItKeyType& Key() const
		{
			return Iterator->Key;
		}
		ItValueType& Value() const
		{
			return Iterator->Value;
		}
		FSetElementId GetId() const
		{
			return Iterator.GetId();
		}
		void RemoveCurrent()
		{
			Iterator.RemoveCurrent();
		}

	private:
		SetIteratorType Iterator;
	};
	using TIterator = TBaseIterator<false>;
	using TConstIterator = TBaseIterator<true>;

	TIterator CreateIterator()
	{
		return TIterator(Pairs.CreateIterator());
	}
	TConstIterator CreateConstIterator() const
	{
		return TConstIterator(Pairs.CreateConstIterator());
	}
	TIterator begin()
	{
		return TIterator(Pairs.begin());
	}
	TIterator end()
	{
		return TIterator(Pairs.end());
	}
	TConstIterator begin() const
	{
		return TConstIterator(Pairs.begin());
	}
	TConstIterator end() const
	{
		return TConstIterator(Pairs.end());
	}

private:
	ElementSetType Pairs;
};
