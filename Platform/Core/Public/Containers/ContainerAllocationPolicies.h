// Allocator policies are accepted as template arguments for source compatibility; storage is always on the heap.
#pragma once

#include "CoreTypes.h"

class FDefaultAllocator
{
};
template<uint32 NumInlineElements, typename SecondaryAllocator = FDefaultAllocator>
class TInlineAllocator
{
};
template<int32 IndexSize>
class TSizedDefaultAllocator
{
};
class FDefaultSetAllocator
{
};
class FDefaultSparseArrayAllocator
{
};

enum class EAllowShrinking : uint8
{
	No,
	Yes
};
