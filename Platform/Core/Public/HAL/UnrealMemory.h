#pragma once

#include "CoreTypes.h"
#include <cstdlib>
#include <cstring>

struct FMemory
{
	static void* Memcpy(void* Dest, const void* Src, SIZE_T Count)
	{
		return std::memcpy(Dest, Src, Count);
	}
	static void* Memmove(void* Dest, const void* Src, SIZE_T Count)
	{
		return std::memmove(Dest, Src, Count);
	}
	static int32 Memcmp(const void* Buf1, const void* Buf2, SIZE_T Count)
	{
		return std::memcmp(Buf1, Buf2, Count);
	}
	static void* Memset(void* Dest, uint8 Char, SIZE_T Count)
	{
		return std::memset(Dest, Char, Count);
	}
	static void* Memzero(void* Dest, SIZE_T Count)
	{
		return std::memset(Dest, 0, Count);
	}
	template<typename T>
	static void Memzero(T& Value)
	{
		std::memset(&Value, 0, sizeof(T));
	}
	static void* Malloc(SIZE_T Count, uint32 Alignment = 0)
	{
		return std::malloc(Count ? Count : 1);
	}
	static void* Realloc(void* Original, SIZE_T Count, uint32 Alignment = 0)
	{
		return std::realloc(Original, Count ? Count : 1);
	}
	static void Free(void* Original)
	{
		std::free(Original);
	}
};
