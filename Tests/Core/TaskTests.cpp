#include "CoreMinimal.h"
#include "Async/Async.h"
#include "Async/TaskGraphInterfaces.h"
#include "HAL/CriticalSection.h"
#include "Misc/ScopeLock.h"
#include "Misc/StandInEngineLoop.h"
#include "ProfilingDebugging/MiscTrace.h"

#include <gtest/gtest.h>

#include <atomic>
#include <mutex>
#include <thread>
#include <vector>

namespace
{
	void ServeGameThread()
	{
		FTaskGraphInterface::Get().ProcessThreadUntilIdle(ENamedThreads::GameThread);
	}
}

TEST(GameThreadTasks, RunAtTheNextTurnInOrderAndTheirOwnDispatchesWaitAnotherTurn)
{
	ServeGameThread();
	ASSERT_TRUE(IsInGameThread());
	TArray<int32> Order;
	for (int32 Index = 0; Index < 5; ++Index)
	{
		AsyncTask(ENamedThreads::GameThread, [&Order, Index]
			{
				EXPECT_TRUE(IsInGameThread());
				Order.Add(Index);
			});
	}
	// A task that sends another: the follow-up belongs to a later turn, never to the call that sent it.
	FFunctionGraphTask::CreateAndDispatchWhenReady([&Order]
		{
			Order.Add(100);
			AsyncTask(ENamedThreads::GameThread, [&Order] { Order.Add(101); });
		},
		TStatId(), nullptr, ENamedThreads::GameThread);
	EXPECT_TRUE(Order.IsEmpty());

	ServeGameThread();
	EXPECT_EQ(Order, TArray<int32>({0, 1, 2, 3, 4, 100}));
	ServeGameThread();
	EXPECT_EQ(Order.Last(), 101);

	// The loop's turn serves the queue too.
	bool bRan = false;
	AsyncTask(ENamedThreads::GameThread, [&bRan] { bRan = true; });
	FStandInEngineLoop::Tick(0.0f);
	EXPECT_TRUE(bRan);
}

TEST(GameThreadTasks, DispatchFromOtherThreadsKeepsEachSendersOrder)
{
	ServeGameThread();
	constexpr int32 NumSenders = 4;
	constexpr int32 TasksPerSender = 500;
	std::vector<std::vector<int32>> Received(NumSenders);
	std::atomic<int32> NotOnGameThread{0};
	std::atomic<bool> bSendersDone{false};

	std::vector<std::thread> Senders;
	for (int32 Sender = 0; Sender < NumSenders; ++Sender)
	{
		Senders.emplace_back([&, Sender]
			{
				EXPECT_FALSE(IsInGameThread());
				for (int32 Index = 0; Index < TasksPerSender; ++Index)
				{
					AsyncTask(ENamedThreads::GameThread, [&, Sender, Index]
						{
							if (!IsInGameThread())
							{
								++NotOnGameThread;
							}
							Received[Sender].push_back(Index);
						});
				}
			});
	}
	// Serve while the senders are still sending.
	std::thread Joiner([&]
		{
			for (std::thread& Thread : Senders)
			{
				Thread.join();
			}
			bSendersDone = true;
		});
	while (!bSendersDone)
	{
		ServeGameThread();
	}
	Joiner.join();
	ServeGameThread();

	EXPECT_EQ(NotOnGameThread.load(), 0);
	for (int32 Sender = 0; Sender < NumSenders; ++Sender)
	{
		ASSERT_EQ(static_cast<int32>(Received[Sender].size()), TasksPerSender);
		for (int32 Index = 0; Index < TasksPerSender; ++Index)
		{
			ASSERT_EQ(Received[Sender][Index], Index);
		}
	}
}

TEST(GraphTasks, WorkerTasksAndPrerequisites)
{
	ServeGameThread();
	std::atomic<bool> bRelease{false};
	std::atomic<bool> bWorkerOnGameThread{true};
	std::mutex OrderMutex;
	TArray<FString> Order;
	auto Note = [&](const TCHAR* Step)
	{
		std::lock_guard<std::mutex> Lock(OrderMutex);
		Order.Add(Step);
	};

	const FGraphEventRef First = FFunctionGraphTask::CreateAndDispatchWhenReady([&]
		{
			bWorkerOnGameThread = IsInGameThread();
			while (!bRelease)
			{
				std::this_thread::yield();
			}
			Note(TEXT("first"));
		});
	const FGraphEventArray Prerequisites = {First};
	const FGraphEventRef Second = FFunctionGraphTask::CreateAndDispatchWhenReady([&] { Note(TEXT("second")); }, TStatId(), &Prerequisites, ENamedThreads::AnyThread);
	const FGraphEventRef OnGameThread = FFunctionGraphTask::CreateAndDispatchWhenReady([&] { Note(TEXT("game")); }, TStatId(), Second, ENamedThreads::GameThread);

	// Nothing can move while the first task is held.
	ServeGameThread();
	EXPECT_FALSE(First->IsComplete());
	EXPECT_FALSE(Second->IsComplete());
	EXPECT_FALSE(OnGameThread->IsComplete());

	bRelease = true;
	// Waiting on the game thread for a game-thread task serves the game thread's queue meanwhile.
	FTaskGraphInterface::Get().WaitUntilTaskCompletes(OnGameThread, ENamedThreads::GameThread);
	EXPECT_TRUE(First->IsComplete());
	EXPECT_TRUE(Second->IsComplete());
	EXPECT_FALSE(bWorkerOnGameThread.load());
	EXPECT_EQ(Order, TArray<FString>({TEXT("first"), TEXT("second"), TEXT("game")}));

	// A prerequisite that is already complete holds nothing up.
	const FGraphEventRef Late = FFunctionGraphTask::CreateAndDispatchWhenReady([&] { Note(TEXT("late")); }, TStatId(), First, ENamedThreads::AnyThread);
	Late->Wait();
	EXPECT_EQ(Order.Last(), TEXT("late"));
}

TEST(Locks, ScopeLockReleasesEarlyAndCriticalSectionsAreRecursive)
{
	FCriticalSection Section;
	auto TryLockElsewhere = [&Section]
	{
		bool bLocked = false;
		std::thread Other([&]
			{
				bLocked = Section.TryLock();
				if (bLocked)
				{
					Section.Unlock();
				}
			});
		Other.join();
		return bLocked;
	};

	{
		FScopeLock Outer(&Section);
		{
			// The owner may lock again without blocking itself.
			FScopeLock Inner(&Section);
		}
		EXPECT_FALSE(TryLockElsewhere());
		Outer.Unlock();
		EXPECT_TRUE(TryLockElsewhere());
	}
	EXPECT_TRUE(TryLockElsewhere());

	// Bookmarks record nothing but must accept printf-style arguments.
	TRACE_BOOKMARK(TEXT("Lock test %s %d"), TEXT("done"), 1);
}
