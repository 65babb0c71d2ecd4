#include "Async/Async.h"

void AsyncTask(ENamedThreads::Type Thread, TUniqueFunction<void()> Function)
{
	FFunctionGraphTask::CreateAndDispatchWhenReady(MoveTemp(Function), TStatId(), nullptr, Thread);
}
