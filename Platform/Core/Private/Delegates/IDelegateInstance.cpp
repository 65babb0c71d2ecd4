#include "Delegates/IDelegateInstance.h"

#include <atomic>

uint64 FDelegateHandle::GenerateNewID()
{
	static std::atomic<uint64> NextID{1};
	uint64 Result = NextID.fetch_add(1, std::memory_order_relaxed);
	// Zero marks an invalid handle; after a wrap-around it must be skipped.
	if (Result == 0)
	{
		Result = NextID.fetch_add(1, std::memory_order_relaxed);
	}
	return Result;
}
