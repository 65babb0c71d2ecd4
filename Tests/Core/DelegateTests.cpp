#include "CoreMinimal.h"
#include "Delegates/Delegate.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

DECLARE_DELEGATE_RetVal_TwoParams(int32, FCombineDelegate, int32, int32);
DECLARE_DELEGATE_OneParam(FStringSink, const FString&);
DECLARE_MULTICAST_DELEGATE_OneParam(FOnNumber, int32);
DECLARE_TS_MULTICAST_DELEGATE_OneParam(FOnNumberThreadSafe, int32);

namespace
{
	int32 SubtractWithPayload(int32 A, int32 B, int32 Payload)
	{
		return A - B - Payload;
	}

	class FCounterBase
	{
	public:
		virtual ~FCounterBase() = default;
		void AddOne(int32 Value)
		{
			Total += Value + 1;
		}
		int32 Total = 0;
	};

	class FCounter : public FCounterBase, public TSharedFromThis<FCounter>
	{
	public:
		int32 Scale(int32 A, int32 B, int32 Factor) const
		{
			return (A + B) * Factor;
		}
		int32 Sum(int32 A, int32 B)
		{
			++Calls;
			return A + B;
		}
		void Record(int32 Value)
		{
			Seen.Add(Value);
		}
		void RecordTagged(int32 Value, FString Tag)
		{
			Seen.Add(Value);
			Tags.Add(Tag);
		}
		// The raw-pointer CreateSP form goes through AsShared, as from inside a member function.
		FOnNumber::FDelegate MakeSelfBinding()
		{
			return FOnNumber::FDelegate::CreateSP(this, &FCounter::Record);
		}

		int32 Calls = 0;
		TArray<int32> Seen;
		TArray<FString> Tags;
	};
}

TEST(Delegates, EveryBindingKindCallsWithParametersThenPayload)
{
	EXPECT_EQ(FCombineDelegate::CreateStatic(&SubtractWithPayload, 1).Execute(10, 3), 6);

	const FCombineDelegate Lambda = FCombineDelegate::CreateLambda([](int32 A, int32 B, FString C, int32 D, double E, bool F)
		{
			return A * 1000 + B * 100 + C.Len() * 10 + D + static_cast<int32>(E) + (F ? 1 : 0);
		},
		FString(TEXT("abc")), 4, 2.0, true);
	EXPECT_EQ(Lambda.Execute(1, 2), 1000 + 200 + 30 + 4 + 2 + 1);

	FCounter Raw;
	FCombineDelegate RawDelegate;
	RawDelegate.BindRaw(&Raw, &FCounter::Sum);
	EXPECT_EQ(RawDelegate.Execute(2, 5), 7);
	EXPECT_EQ(FCombineDelegate::CreateRaw(&Raw, &FCounter::Scale, 3).Execute(1, 1), 6);
	const FCounter& ConstRaw = Raw;
	EXPECT_EQ(FCombineDelegate::CreateRaw(&ConstRaw, &FCounter::Scale, 2).Execute(1, 2), 6);
	FOnNumber::FDelegate::CreateRaw(&Raw, &FCounterBase::AddOne).Execute(4);
	EXPECT_EQ(Raw.Total, 5);
	EXPECT_TRUE(RawDelegate.IsBoundToObject(&Raw));

	TSharedRef<FCounter> Shared = MakeShared<FCounter>();
	TSharedPtr<FCounter> SharedPtr = Shared;
	EXPECT_EQ(FCombineDelegate::CreateSP(Shared, &FCounter::Sum).Execute(1, 2), 3);
	EXPECT_EQ(FCombineDelegate::CreateSP(SharedPtr, &FCounter::Scale, 10).Execute(1, 2), 30);
	Shared->MakeSelfBinding().Execute(9);
	EXPECT_EQ(Shared->Seen, TArray<int32>({9}));
	FOnNumber::FDelegate Tagged;
	Tagged.BindSP(Shared, &FCounter::RecordTagged, FString(TEXT("tag")));
	Tagged.Execute(1);
	EXPECT_EQ(Shared->Tags, TArray<FString>({TEXT("tag")}));
	EXPECT_EQ(FCombineDelegate::CreateSPLambda(Shared, [](int32 A, int32 B) { return A * B; }).Execute(3, 4), 12);
}

TEST(Delegates, SharedPointerBindingDiesWithItsObject)
{
	TSharedPtr<FCounter> Object = MakeShared<FCounter>();
	FStringSink Sink;
	int32 LambdaCalls = 0;
	const FOnNumber::FDelegate Method = FOnNumber::FDelegate::CreateSP(Object, &FCounter::Record);
	const FOnNumber::FDelegate Lambda = FOnNumber::FDelegate::CreateSPLambda(Object.ToSharedRef(), [&LambdaCalls](int32) { ++LambdaCalls; });
	FOnNumber Event;
	Event.AddSP(Object.ToSharedRef(), &FCounter::Record);
	EXPECT_TRUE(Method.IsBound());
	EXPECT_TRUE(Event.IsBound());

	Object.Reset();
	EXPECT_FALSE(Method.IsBound());
	EXPECT_FALSE(Method.ExecuteIfBound(1));
	EXPECT_FALSE(Lambda.ExecuteIfBound(1));
	EXPECT_EQ(LambdaCalls, 0);
	EXPECT_FALSE(Event.IsBound());
	Event.Broadcast(1);

	const TSharedPtr<FCounter> Null;
	EXPECT_FALSE(FOnNumber::FDelegate::CreateSP(Null, &FCounter::Record).IsBound());
	EXPECT_FALSE(Sink.ExecuteIfBound(TEXT("unbound")));
}

TEST(Delegates, CopiesUnbindingAndHandles)
{
	FOnNumber::FDelegate Counting = FOnNumber::FDelegate::CreateLambda([Count = 0](int32 Add) mutable { Count += Add; });
	const FOnNumber::FDelegate Copy = Counting;
	EXPECT_TRUE(Counting.GetHandle().IsValid());
	EXPECT_EQ(Copy.GetHandle(), Counting.GetHandle());

	FOnNumber::FDelegate Other = FOnNumber::FDelegate::CreateLambda([](int32) {});
	EXPECT_NE(Other.GetHandle(), Counting.GetHandle());
	Counting.Unbind();
	EXPECT_FALSE(Counting.IsBound());
	EXPECT_FALSE(Counting.GetHandle().IsValid());
	EXPECT_TRUE(Copy.IsBound());

	// A callback that unbinds its own delegate keeps its captures until it returns.
	FStringSink SelfUnbinding;
	FString Seen;
	const FString Captured(TEXT("still alive"));
	SelfUnbinding.BindLambda([&SelfUnbinding, &Seen, Captured](const FString& Prefix)
		{
			SelfUnbinding.Unbind();
			Seen = Prefix + Captured;
		});
	EXPECT_TRUE(SelfUnbinding.ExecuteIfBound(TEXT("> ")));
	EXPECT_EQ(Seen, TEXT("> still alive"));
	EXPECT_FALSE(SelfUnbinding.IsBound());

	FDelegateHandle Handle = Other.GetHandle();
	Handle.Reset();
	EXPECT_FALSE(Handle.IsValid());
	EXPECT_EQ(Handle, FDelegateHandle());
}

TEST(MulticastDelegates, AddRemoveAndRemoveAll)
{
	FOnNumber Event;
	FCounter Raw;
	TSharedRef<FCounter> Shared = MakeShared<FCounter>();
	TArray<int32> LambdaSeen;

	const FDelegateHandle LambdaHandle = Event.AddLambda([&LambdaSeen](int32 Value) { LambdaSeen.Add(Value); });
	const FDelegateHandle RawHandle = Event.AddRaw(&Raw, &FCounter::Record);
	Event.AddRaw(&Raw, &FCounter::RecordTagged, FString(TEXT("second")));
	Event.AddSP(Shared, &FCounter::Record);
	EXPECT_TRUE(LambdaHandle.IsValid());
	EXPECT_NE(LambdaHandle, RawHandle);
	EXPECT_FALSE(Event.Add(FOnNumber::FDelegate()).IsValid());

	Event.Broadcast(1);
	EXPECT_EQ(LambdaSeen.Num(), 1);
	EXPECT_EQ(Raw.Seen.Num(), 2);
	EXPECT_EQ(Shared->Seen.Num(), 1);

	EXPECT_TRUE(Event.Remove(RawHandle));
	EXPECT_FALSE(Event.Remove(RawHandle));
	EXPECT_FALSE(Event.Remove(FDelegateHandle()));
	EXPECT_TRUE(Event.IsBoundToObject(&Raw));
	EXPECT_EQ(Event.RemoveAll(&Raw), 1);
	EXPECT_FALSE(Event.IsBoundToObject(&Raw));
	EXPECT_EQ(Event.RemoveAll(&Shared.Get()), 1);

	Event.Broadcast(2);
	EXPECT_EQ(LambdaSeen, TArray<int32>({1, 2}));
	EXPECT_EQ(Raw.Seen.Num(), 2);
	EXPECT_EQ(Shared->Seen.Num(), 1);

	const FOnNumber Copy = Event;
	Event.Clear();
	EXPECT_FALSE(Event.IsBound());
	Copy.Broadcast(3);
	EXPECT_EQ(LambdaSeen, TArray<int32>({1, 2, 3}));
}

TEST(MulticastDelegates, CallbacksChangeTheListDuringBroadcast)
{
	FOnNumber Event;
	TArray<FString> Calls;
	FDelegateHandle SelfRemoving;
	FDelegateHandle Victim;
	FDelegateHandle Killer;

	SelfRemoving = Event.AddLambda([&](int32)
		{
			Calls.Add(TEXT("self"));
			EXPECT_TRUE(Event.Remove(SelfRemoving));
		});
	Victim = Event.AddLambda([&](int32) { Calls.Add(TEXT("victim")); });
	Killer = Event.AddLambda([&](int32)
		{
			Calls.Add(TEXT("killer"));
			Event.Remove(Victim);
			Event.AddLambda([&](int32) { Calls.Add(TEXT("late")); });
		});

	// Victim and Killer run in some order; if Killer came first, Victim must not run after its removal.
	Event.Broadcast(0);
	EXPECT_TRUE(Calls.Contains(TEXT("self")));
	EXPECT_TRUE(Calls.Contains(TEXT("killer")));
	EXPECT_FALSE(Calls.Contains(TEXT("late")));
	const int32 KillerIndex = Calls.Find(TEXT("killer"));
	const int32 VictimIndex = Calls.Find(TEXT("victim"));
	EXPECT_TRUE(VictimIndex == INDEX_NONE || VictimIndex < KillerIndex);

	Calls.Reset();
	Event.Remove(Killer);
	Event.Broadcast(0);
	EXPECT_EQ(Calls, TArray<FString>({TEXT("late")}));

	// A callback that clears the event stops the rest of the broadcast; a nested broadcast is allowed.
	FOnNumber Clearing;
	int32 Cleared = 0;
	int32 Nested = 0;
	Clearing.AddLambda([&](int32) { ++Cleared; Clearing.Clear(); });
	Clearing.AddLambda([&](int32 Depth)
		{
			++Nested;
			if (Depth == 0)
			{
				Clearing.Broadcast(1);
			}
		});
	Clearing.Broadcast(0);
	EXPECT_EQ(Cleared, 1);
	EXPECT_LE(Nested, 2);
	EXPECT_FALSE(Clearing.IsBound());
}

TEST(MulticastDelegates, ThreadSafeKindTakesAddsAndRemovesFromManyThreads)
{
	FOnNumberThreadSafe Event;
	std::atomic<int64> Sum{0};
	std::atomic<bool> bStop{false};
	const FDelegateHandle Kept = Event.AddLambda([&Sum](int32 Value) { Sum += Value; });

	std::vector<std::thread> Threads;
	for (int32 ThreadIndex = 0; ThreadIndex < 3; ++ThreadIndex)
	{
		Threads.emplace_back([&Event, &bStop]
			{
				while (!bStop)
				{
					const FDelegateHandle Handle = Event.AddLambda([](int32) {});
					EXPECT_TRUE(Event.Remove(Handle));
				}
			});
	}
	for (int32 Round = 0; Round < 2000; ++Round)
	{
		Event.Broadcast(1);
	}
	bStop = true;
	for (std::thread& Thread : Threads)
	{
		Thread.join();
	}
	EXPECT_EQ(Sum.load(), 2000);
	EXPECT_TRUE(Event.Remove(Kept));
	EXPECT_FALSE(Event.IsBound());
}

namespace
{
	class FEventOwner
	{
	public:
		DECLARE_EVENT_OneParam(FEventOwner, FOnChanged, int32);
		FOnChanged& OnChanged()
		{
			return ChangedEvent;
		}
		void Change(int32 Value)
		{
			ChangedEvent.Broadcast(Value);
		}

	private:
		FOnChanged ChangedEvent;
	};
}

TEST(MulticastDelegates, EventsBroadcastThroughTheirOwner)
{
	FEventOwner Owner;
	int32 Last = 0;
	Owner.OnChanged().AddLambda([&Last](int32 Value) { Last = Value; });
	Owner.Change(42);
	EXPECT_EQ(Last, 42);
}
