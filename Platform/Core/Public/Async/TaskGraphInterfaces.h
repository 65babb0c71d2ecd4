#pragma once

#include "CoreTypes.h"
#include "Containers/Array.h"
#include "Stats/Stats.h"
#include "Templates/Function.h"
#include "Templates/RefCounting.h"

/** The threads a task can be sent to: a named thread, or any worker. */
namespace ENamedThreads
{
	enum Type : int32
	{
		UnusedAnchor = -1,
		RHIThread = 0,
		GameThread = 1,
		ActualRenderingThread = 2,
		AnyThread = 0xff,

		MainQueue = 0x000,
		LocalQueue = 0x100,
		ThreadIndexMask = 0xff,
		QueueIndexMask = 0x100,

		NormalTaskPriority = 0x000,
		HighTaskPriority = 0x200,
		NormalThreadPriority = 0x000,
		HighThreadPriority = 0x400,
		BackgroundThreadPriority = 0x800,

		GameThread_Local = GameThread | LocalQueue,
		AnyHiPriThreadNormalTask = AnyThread | HighThreadPriority,
		AnyHiPriThreadHiPriTask = AnyThread | HighThreadPriority | HighTaskPriority,
		AnyNormalThreadNormalTask = AnyThread | NormalThreadPriority,
		AnyNormalThreadHiPriTask = AnyThread | NormalThreadPriority | HighTaskPriority,
		AnyBackgroundThreadNormalTask = AnyThread | BackgroundThreadPriority,
		AnyBackgroundHiPriTask = AnyThread | BackgroundThreadPriority | HighTaskPriority,
	};

	/** The thread part of a thread-and-flags value: a named thread, or AnyThread. */
	inline Type GetThreadIndex(Type ThreadAndIndex)
	{
		return Type(ThreadAndIndex & ThreadIndexMask);
	}
}

class FGraphEvent;
typedef TRefCountPtr<FGraphEvent> FGraphEventRef;
typedef TArray<FGraphEventRef> FGraphEventArray;

namespace UE::TaskGraph::Private
{
	struct FTask;
}

/** Completes when its task has run; tasks that wait on it are sent on then. */
class FGraphEvent : public FRefCountBase
{
public:
	CORE_API FGraphEvent();
	CORE_API ~FGraphEvent() override;

	CORE_API bool IsComplete() const;

	/** Blocks until complete. On the game thread it serves the game thread's tasks while it waits. */
	CORE_API void Wait(ENamedThreads::Type CurrentThreadIfKnown = ENamedThreads::AnyThread);

private:
	friend struct UE::TaskGraph::Private::FTask;
	struct FState;
	FState* State;
};

/** A task made of a function. */
struct FFunctionGraphTask
{
	/**
	 * Sends the function to the given thread once every prerequisite is complete. A task for the game thread
	 * runs at the next turn of the engine loop (FTaskGraphInterface::ProcessThreadUntilIdle), in the order
	 * sent; one for AnyThread runs on a worker thread. Safe from any thread.
	 */
	static CORE_API FGraphEventRef CreateAndDispatchWhenReady(TUniqueFunction<void()> InFunction, TStatId InStatId = TStatId(), const FGraphEventArray* InPrerequisites = nullptr, ENamedThreads::Type InDesiredThread = ENamedThreads::AnyThread);
	static CORE_API FGraphEventRef CreateAndDispatchWhenReady(TUniqueFunction<void()> InFunction, TStatId InStatId, const FGraphEventRef& InPrerequisite, ENamedThreads::Type InDesiredThread = ENamedThreads::AnyThread);
};

/** The task system: a queue for the game thread and a few worker threads for the rest. */
class FTaskGraphInterface
{
public:
	static CORE_API FTaskGraphInterface& Get();

	static bool IsRunning()
	{
		return true;
	}

	/**
	 * Runs the tasks queued for the named thread when the call begins, in order; tasks they send to that
	 * thread wait for the next call, so that a task that re-sends itself cannot keep the loop here. Only the
	 * game thread has a queue of its own, and only the game thread may serve it.
	 */
	CORE_API void ProcessThreadUntilIdle(ENamedThreads::Type CurrentThread);

	CORE_API void WaitUntilTaskCompletes(const FGraphEventRef& Task, ENamedThreads::Type CurrentThreadIfKnown = ENamedThreads::AnyThread);
	CORE_API void WaitUntilTasksComplete(const FGraphEventArray& Tasks, ENamedThreads::Type CurrentThreadIfKnown = ENamedThreads::AnyThread);

	/** GameThread on the game thread, AnyThread elsewhere. */
	CORE_API ENamedThreads::Type GetCurrentThreadIfKnown(bool bLocalQueue = false);
};
