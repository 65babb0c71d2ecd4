#include "Async/TaskGraphInterfaces.h"

#include "GameThreadIdentity.h"
#include "Misc/AssertionMacros.h"
#include "Templates/SharedPointer.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <vector>

namespace UE::TaskGraph::Private
{
	struct FTask
	{
		TUniqueFunction<void()> Function;
		ENamedThreads::Type DesiredThread = ENamedThreads::AnyThread;
		FGraphEventRef Event;
		// Prerequisites not yet complete, plus one held while the task is being set up.
		std::atomic<int32> NumPendingPrerequisites{1};

		/** False when the event is already complete and the task need not wait for it. */
		static bool AddSubsequent(FGraphEvent& Prerequisite, const TSharedPtr<FTask>& Task);
		static void OnPrerequisiteComplete(const TSharedPtr<FTask>& Task);
		static void Run(const TSharedPtr<FTask>& Task);
		static void CompleteEvent(FGraphEvent& Event);
	};
}

using UE::TaskGraph::Private::FTask;

struct FGraphEvent::FState
{
	mutable std::mutex Mutex;
	std::condition_variable CompletedCondition;
	bool bComplete = false;
	std::vector<TSharedPtr<FTask>> Subsequents;
};

namespace
{
	/** Tasks for the game thread, served by ProcessThreadUntilIdle. */
	struct FGameThreadQueue
	{
		std::mutex Mutex;
		std::deque<TSharedPtr<FTask>> Tasks;

		TSharedPtr<FTask> Pop()
		{
			std::lock_guard<std::mutex> Lock(Mutex);
			if (Tasks.empty())
			{
				return nullptr;
			}
			TSharedPtr<FTask> Task = MoveTemp(Tasks.front());
			Tasks.pop_front();
			return Task;
		}
	};

	FGameThreadQueue& GetGameThreadQueue()
	{
		static FGameThreadQueue Queue;
		return Queue;
	}

	/** Worker threads for every task not sent to the game thread. Started on first use, joined at exit. */
	class FWorkerPool
	{
	public:
		static constexpr int32 NumWorkers = 2;

		~FWorkerPool()
		{
			{
				std::lock_guard<std::mutex> Lock(Mutex);
				bStopping = true;
				// Tasks not yet started at exit are dropped: what they would touch may be gone already.
				Tasks.clear();
			}
			Wake.notify_all();
			for (std::thread& Worker : Workers)
			{
				Worker.join();
			}
		}

		void Queue(TSharedPtr<FTask> Task)
		{
			{
				std::lock_guard<std::mutex> Lock(Mutex);
				if (bStopping)
				{
					return;
				}
				if (Workers.empty())
				{
					for (int32 Index = 0; Index < NumWorkers; ++Index)
					{
						Workers.emplace_back([this] { WorkerLoop(); });
					}
				}
				Tasks.push_back(MoveTemp(Task));
			}
			Wake.notify_one();
		}

	private:
		void WorkerLoop()
		{
			for (;;)
			{
				TSharedPtr<FTask> Task;
				{
					std::unique_lock<std::mutex> Lock(Mutex);
					Wake.wait(Lock, [this] { return bStopping || !Tasks.empty(); });
					if (bStopping)
					{
						return;
					}
					Task = MoveTemp(Tasks.front());
					Tasks.pop_front();
				}
				FTask::Run(Task);
			}
		}

		std::mutex Mutex;
		std::condition_variable Wake;
		std::deque<TSharedPtr<FTask>> Tasks;
		std::vector<std::thread> Workers;
		bool bStopping = false;
	};

	FWorkerPool& GetWorkerPool()
	{
		static FWorkerPool Pool;
		return Pool;
	}

	void QueueReadyTask(const TSharedPtr<FTask>& Task)
	{
		if (ENamedThreads::GetThreadIndex(Task->DesiredThread) == ENamedThreads::GameThread)
		{
			FGameThreadQueue& Queue = GetGameThreadQueue();
			std::lock_guard<std::mutex> Lock(Queue.Mutex);
			Queue.Tasks.push_back(Task);
		}
		else
		{
			// The stand-in has no rendering or RHI thread: such tasks run on a worker like AnyThread ones.
			GetWorkerPool().Queue(Task);
		}
	}
}

bool FTask::AddSubsequent(FGraphEvent& Prerequisite, const TSharedPtr<FTask>& Task)
{
	std::lock_guard<std::mutex> Lock(Prerequisite.State->Mutex);
	if (Prerequisite.State->bComplete)
	{
		return false;
	}
	Prerequisite.State->Subsequents.push_back(Task);
	return true;
}

void FTask::OnPrerequisiteComplete(const TSharedPtr<FTask>& Task)
{
	if (Task->NumPendingPrerequisites.fetch_sub(1) == 1)
	{
		QueueReadyTask(Task);
	}
}

void FTask::Run(const TSharedPtr<FTask>& Task)
{
	if (Task->Function)
	{
		Task->Function();
	}
	// Whatever the function captured goes before the event completes, as waiters may expect it released.
	Task->Function.Reset();
	CompleteEvent(*Task->Event);
}

void FTask::CompleteEvent(FGraphEvent& Event)
{
	FGraphEvent::FState& State = *Event.State;
	std::vector<TSharedPtr<FTask>> Released;
	{
		std::lock_guard<std::mutex> Lock(State.Mutex);
		State.bComplete = true;
		Released.swap(State.Subsequents);
	}
	State.CompletedCondition.notify_all();
	for (const TSharedPtr<FTask>& Task : Released)
	{
		OnPrerequisiteComplete(Task);
	}
}

FGraphEvent::FGraphEvent()
	: State(new FState())
{
}

FGraphEvent::~FGraphEvent()
{
	delete State;
}

bool FGraphEvent::IsComplete() const
{
	std::lock_guard<std::mutex> Lock(State->Mutex);
	return State->bComplete;
}

void FGraphEvent::Wait(ENamedThreads::Type CurrentThreadIfKnown)
{
	if (UE::TaskGraph::Private::IsKnownGameThread())
	{
		// The awaited task may itself be queued for this thread, so serve the queue while waiting.
		while (!IsComplete())
		{
			if (TSharedPtr<FTask> Task = GetGameThreadQueue().Pop())
			{
				FTask::Run(Task);
				continue;
			}
			std::unique_lock<std::mutex> Lock(State->Mutex);
			State->CompletedCondition.wait_for(Lock, std::chrono::milliseconds(1), [this] { return State->bComplete; });
		}
		return;
	}
	std::unique_lock<std::mutex> Lock(State->Mutex);
	State->CompletedCondition.wait(Lock, [this] { return State->bComplete; });
}

FGraphEventRef FFunctionGraphTask::CreateAndDispatchWhenReady(TUniqueFunction<void()> InFunction, TStatId InStatId, const FGraphEventArray* InPrerequisites, ENamedThreads::Type InDesiredThread)
{
	TSharedPtr<FTask> Task = MakeShared<FTask>();
	Task->Function = MoveTemp(InFunction);
	Task->DesiredThread = InDesiredThread;
	Task->Event = new FGraphEvent();
	const FGraphEventRef Result = Task->Event;
	if (InPrerequisites)
	{
		for (const FGraphEventRef& Prerequisite : *InPrerequisites)
		{
			if (Prerequisite.IsValid())
			{
				Task->NumPendingPrerequisites.fetch_add(1);
				if (!FTask::AddSubsequent(*Prerequisite, Task))
				{
					Task->NumPendingPrerequisites.fetch_sub(1);
				}
			}
		}
	}
	// Drops the set-up hold: the task goes to its queue now unless a prerequisite is still running.
	FTask::OnPrerequisiteComplete(Task);
	return Result;
}

FGraphEventRef FFunctionGraphTask::CreateAndDispatchWhenReady(TUniqueFunction<void()> InFunction, TStatId InStatId, const FGraphEventRef& InPrerequisite, ENamedThreads::Type InDesiredThread)
{
	FGraphEventArray Prerequisites;
	if (InPrerequisite.IsValid())
	{
		Prerequisites.Add(InPrerequisite);
	}
	return CreateAndDispatchWhenReady(MoveTemp(InFunction), InStatId, &Prerequisites, InDesiredThread);
}

FTaskGraphInterface& FTaskGraphInterface::Get()
{
	static FTaskGraphInterface Instance;
	return Instance;
}

void FTaskGraphInterface::ProcessThreadUntilIdle(ENamedThreads::Type CurrentThread)
{
	if (ENamedThreads::GetThreadIndex(CurrentThread) != ENamedThreads::GameThread)
	{
		return;
	}
	if (!ensureMsgf(UE::TaskGraph::Private::ClaimGameThread(), TEXT("The game thread's tasks were served from another thread")))
	{
		return;
	}
	FGameThreadQueue& Queue = GetGameThreadQueue();
	size_t NumToRun;
	{
		std::lock_guard<std::mutex> Lock(Queue.Mutex);
		NumToRun = Queue.Tasks.size();
	}
	for (size_t Index = 0; Index < NumToRun; ++Index)
	{
		TSharedPtr<FTask> Task = Queue.Pop();
		if (!Task.IsValid())
		{
			break;
		}
		FTask::Run(Task);
	}
}

void FTaskGraphInterface::WaitUntilTaskCompletes(const FGraphEventRef& Task, ENamedThreads::Type CurrentThreadIfKnown)
{
	if (Task.IsValid())
	{
		Task->Wait(CurrentThreadIfKnown);
	}
}

void FTaskGraphInterface::WaitUntilTasksComplete(const FGraphEventArray& Tasks, ENamedThreads::Type CurrentThreadIfKnown)
{
	for (const FGraphEventRef& Task : Tasks)
	{
		WaitUntilTaskCompletes(Task, CurrentThreadIfKnown);
	}
}

ENamedThreads::Type FTaskGraphInterface::GetCurrentThreadIfKnown(bool bLocalQueue)
{
	if (UE::TaskGraph::Private::IsKnownGameThread())
	{
		return bLocalQueue ? ENamedThreads::GameThread_Local : ENamedThreads::GameThread;
	}
	return ENamedThreads::AnyThread;
}
