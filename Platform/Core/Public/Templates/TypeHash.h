#pragma once

#include "CoreTypes.h"
#include <type_traits>

inline constexpr uint32 HashCombineFast(uint32 A, uint32 B)
{
	return A ^ (B + 0x9e3779b9 + (A << 6) + (A >> 2));
}

inline constexpr uint32 HashCombine(uint32 A, uint32 C)
{
	return HashCombineFast(A, C);
}

inline uint32 PointerHash(const void* Key)
{
	const UPTRINT Value = reinterpret_cast<UPTRINT>(Key);
	return static_cast<uint32>((Value >> 4) ^ (Value >> 32));
}

template<typename T>
inline std::enable_if_t<std::is_integral_v<T> || std::is_enum_v<T>, uint32> GetTypeHash(T Value)
{
	const uint64 Bits = static_cast<uint64>(Value);
	return static_cast<uint32>(Bits ^ (Bits >> 32));
}

inline uint32 GetTypeHash(float Value)
{
	uint32 Bits;
	static_assert(sizeof(Bits) == sizeof(Value));
	__builtin_memcpy(&Bits, &Value, sizeof(Bits));
	return Value == 0.0f ? 0u : Bits;
}

inline uint32 GetTypeHash(double Value)
{
	uint64 Bits;
	__builtin_memcpy(&Bits, &Value, sizeof(Bits));
	return Value == 0.0 ? 0u : static_cast<uint32>(Bits ^ (Bits >> 32));
}

template<typename T>
inline uint32 GetTypeHash(T* Value)
{
	return PointerHash(Value);
}

inline uint32 GetTypeHash(TYPE_OF_NULLPTR)
{
	return 0;
}
