#include "GameThreadIdentity.h"
#include "CoreGlobals.h"

#include <atomic>
#include <thread>

namespace
{
	std::atomic<std::thread::id> GGameThreadId{std::thread::id()};
}

bool UE::TaskGraph::Private::ClaimGameThread()
{
	std::thread::id Expected;
	const std::thread::id Current = std::this_thread::get_id();
	// Compare-exchange: the first thread into the loop wins, whichever threads race for it.
	return GGameThreadId.compare_exchange_strong(Expected, Current) || Expected == Current;
}

bool UE::TaskGraph::Private::IsKnownGameThread()
{
	return GGameThreadId.load() == std::this_thread::get_id();
}

bool IsInGameThread()
{
	// Before the loop has started, every thread counts as the game thread, as in the engine before its
	// game thread is known.
	const std::thread::id GameThreadId = GGameThreadId.load();
	return GameThreadId == std::thread::id() || GameThreadId == std::this_thread::get_id();
}
