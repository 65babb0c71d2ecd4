#pragma once

#include "CoreTypes.h"
#include "Templates/TypeHash.h"
#include <tuple>
#include <utility>

// The engine's TPair is a two-element tuple whose elements are named Key and Value.
template<typename KeyType, typename ValueType>
struct TPair
{
	KeyType Key;
	ValueType Value;

	TPair() = default;
	template<typename K, typename V>
	TPair(K&& InKey, V&& InValue)
		: Key(std::forward<K>(InKey))
		, Value(std::forward<V>(InValue))
	{
	}

	bool operator==(const TPair& Other) const
	{
		return Key == Other.Key && Value == Other.Value;
	}
	bool operator!=(const TPair& Other) const
	{
		return !(*this == Other);
	}
	bool operator<(const TPair& Other) const
	{
		return Key < Other.Key || (!(Other.Key < Key) && Value < Other.Value);
	}

	template<int32 Index>
	decltype(auto) Get() &
	{
		static_assert(Index == 0 || Index == 1);
		if constexpr (Index == 0)
		{
			return (Key);
		}
		else
		{
			return (Value);
		}
	}
	template<int32 Index>
	decltype(auto) Get() const&
	{
		static_assert(Index == 0 || Index == 1);
		if constexpr (Index == 0)
		{
			return (Key);
		}
		else
		{
			return (Value);
		}
	}
};

template<typename KeyType, typename ValueType>
TPair<std::decay_t<KeyType>, std::decay_t<ValueType>> MakeTuple(KeyType&& Key, ValueType&& Value)
{
	return TPair<std::decay_t<KeyType>, std::decay_t<ValueType>>(std::forward<KeyType>(Key), std::forward<ValueType>(Value));
}

template<typename KeyType, typename ValueType>
uint32 GetTypeHash(const TPair<KeyType, ValueType>& Pair)
{
	return HashCombine(GetTypeHash(Pair.Key), GetTypeHash(Pair.Value));
}

template<typename... Types>
using TTuple = std::tuple<Types...>;
