#include "CoreMinimal.h"
#include "Containers/Ticker.h"
#include "HAL/PlatformTime.h"
#include "HAL/StandInClock.h"
#include "Misc/StandInEngineLoop.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>

namespace
{
	// Every test here leaves the clock on real time, whatever it did.
	class FManualClockTest : public ::testing::Test
	{
	protected:
		void TearDown() override
		{
			FStandInClock::UseManualTime(false);
		}
	};

	class FTickingObject : public TSharedFromThis<FTickingObject>
	{
	public:
		bool OnTick(float DeltaTime)
		{
			++Ticks;
			return true;
		}
		int32 Ticks = 0;
	};
}

TEST(Ticker, DelaysCountTickTimeAndTheCallbackGetsTheFrameDelta)
{
	FTSTicker Ticker;
	TArray<float> SlowDeltas;
	int32 EveryFrame = 0;
	int32 OneShot = 0;
	Ticker.AddTicker(FTickerDelegate::CreateLambda([&SlowDeltas](float DeltaTime)
		{
			SlowDeltas.Add(DeltaTime);
			return true;
		}),
		2.0f);
	Ticker.AddTicker(TEXT("EveryFrame"), 0.0f, [&EveryFrame](float) { ++EveryFrame; return true; });
	Ticker.AddTicker(TEXT("OneShot"), 0.0f, [&OneShot](float) { ++OneShot; return false; });

	// 0.5 s frames: the 2 s ticker fires on the fourth frame (t = 2) and the eighth (t = 4).
	for (int32 Frame = 1; Frame <= 8; ++Frame)
	{
		Ticker.Tick(0.5f);
		EXPECT_EQ(SlowDeltas.Num(), Frame / 4) << "after frame " << Frame;
	}
	EXPECT_EQ(SlowDeltas, TArray<float>({0.5f, 0.5f}));
	EXPECT_EQ(EveryFrame, 8);
	EXPECT_EQ(OneShot, 1);

	// One long frame fires a due ticker once, not once per missed period.
	Ticker.Tick(10.0f);
	EXPECT_EQ(SlowDeltas.Num(), 3);
	EXPECT_EQ(SlowDeltas.Last(), 10.0f);

	// The 0.1 s period that the plugin's polling uses, over many frames of 0.1 s: one call per frame.
	int32 Polls = 0;
	Ticker.AddTicker(FTickerDelegate::CreateLambda([&Polls](float) { ++Polls; return true; }), 0.1f);
	for (int32 Frame = 0; Frame < 50; ++Frame)
	{
		Ticker.Tick(0.1f);
	}
	EXPECT_EQ(Polls, 50);
}

TEST(Ticker, RemovalAndAdditionDuringTick)
{
	FTSTicker Ticker;
	int32 SelfRemovingCalls = 0;
	int32 VictimCalls = 0;
	int32 LateCalls = 0;
	FTSTicker::FDelegateHandle SelfRemoving;
	FTSTicker::FDelegateHandle Victim;

	SelfRemoving = Ticker.AddTicker(FTickerDelegate::CreateLambda([&](float)
		{
			++SelfRemovingCalls;
			FTSTicker::RemoveTicker(SelfRemoving);
			// Returning true does not undo the removal.
			return true;
		}));
	Ticker.AddTicker(FTickerDelegate::CreateLambda([&](float)
		{
			FTSTicker::RemoveTicker(Victim);
			Ticker.AddTicker(FTickerDelegate::CreateLambda([&LateCalls](float) { ++LateCalls; return true; }));
			return false;
		}));
	Victim = Ticker.AddTicker(FTickerDelegate::CreateLambda([&VictimCalls](float) { ++VictimCalls; return true; }));

	Ticker.Tick(0.1f);
	EXPECT_EQ(SelfRemovingCalls, 1);
	EXPECT_EQ(VictimCalls, 0);
	EXPECT_EQ(LateCalls, 0);

	Ticker.Tick(0.1f);
	Ticker.Tick(0.1f);
	EXPECT_EQ(SelfRemovingCalls, 1);
	EXPECT_EQ(VictimCalls, 0);
	EXPECT_EQ(LateCalls, 2);

	// Removing an unknown or stale handle does nothing.
	FTSTicker::RemoveTicker(FTSTicker::FDelegateHandle());
	FTSTicker::RemoveTicker(SelfRemoving);

	// A shared-pointer ticker ends with its object.
	TSharedPtr<FTickingObject> Object = MakeShared<FTickingObject>();
	const FTSTicker::FDelegateHandle ObjectHandle = Ticker.AddTicker(FTickerDelegate::CreateSP(Object.ToSharedRef(), &FTickingObject::OnTick));
	Ticker.Tick(0.1f);
	EXPECT_EQ(Object->Ticks, 1);
	Object.Reset();
	Ticker.Tick(0.1f);
	EXPECT_FALSE(ObjectHandle.IsValid());
}

TEST(Ticker, RemovalFromAnotherThreadWaitsForTheRunningCall)
{
	FTSTicker Ticker;
	std::atomic<bool> bStarted{false};
	std::atomic<bool> bFinished{false};
	std::atomic<int32> Calls{0};
	const FTSTicker::FDelegateHandle Handle = Ticker.AddTicker(FTickerDelegate::CreateLambda([&](float)
		{
			++Calls;
			bStarted = true;
			std::this_thread::sleep_for(std::chrono::milliseconds(50));
			bFinished = true;
			return true;
		}));

	std::thread Remover([&]
		{
			while (!bStarted)
			{
				std::this_thread::yield();
			}
			FTSTicker::RemoveTicker(Handle);
			EXPECT_TRUE(bFinished.load());
		});
	Ticker.Tick(0.0f);
	Remover.join();
	Ticker.Tick(0.0f);
	EXPECT_EQ(Calls.load(), 1);
}

TEST_F(FManualClockTest, ManualClockStopsMovesAndHandsBackWithoutGoingBackwards)
{
	FStandInClock::UseManualTime(true);
	const double Start = FPlatformTime::Seconds();
	const double WallStart = FStandInClock::GetWallUnixSeconds();
	std::this_thread::sleep_for(std::chrono::milliseconds(20));
	EXPECT_EQ(FPlatformTime::Seconds(), Start);
	EXPECT_EQ(FStandInClock::GetWallUnixSeconds(), WallStart);

	FStandInClock::Advance(3600.0);
	FStandInClock::Advance(-5.0);
	EXPECT_DOUBLE_EQ(FPlatformTime::Seconds(), Start + 3600.0);
	EXPECT_DOUBLE_EQ(FStandInClock::GetWallUnixSeconds(), WallStart + 3600.0);
	EXPECT_NEAR(FStandInClock::GetWallOffsetSeconds(), 3600.0, 5.0);
	EXPECT_NEAR(FPlatformTime::ToSeconds64(FPlatformTime::Cycles64()), Start + 3600.0, 1.0e-5);

	FStandInClock::SetSeconds(100.0);
	EXPECT_EQ(FPlatformTime::Seconds(), 100.0);

	FStandInClock::UseManualTime(false);
	EXPECT_FALSE(FStandInClock::IsManualTime());
	const double Resumed = FPlatformTime::Seconds();
	EXPECT_GE(Resumed, 100.0);
	EXPECT_LT(Resumed, 101.0);
	EXPECT_EQ(FStandInClock::GetWallOffsetSeconds(), 0.0);
	std::this_thread::sleep_for(std::chrono::milliseconds(5));
	EXPECT_GT(FPlatformTime::Seconds(), Resumed);
}

TEST_F(FManualClockTest, PumpUntilRunsLongWaitsOnTheManualClockQuickly)
{
	FStandInClock::UseManualTime(true);
	// A turn first, so that time from earlier tests does not reach the ticker as one long frame.
	FStandInEngineLoop::TickFromClock();
	const double StartSeconds = FPlatformTime::Seconds();
	double FiredAt = 0.0;
	bool bFired = false;
	const FTSTicker::FDelegateHandle Handle = FTSTicker::GetCoreTicker().AddTicker(FTickerDelegate::CreateLambda([&](float)
		{
			FiredAt = FPlatformTime::Seconds();
			bFired = true;
			return false;
		}),
		10.0f);

	const double RealStart = FStandInClock::GetRealSeconds();
	EXPECT_TRUE(FStandInEngineLoop::PumpUntil([&bFired] { return bFired; }, 5.0));
	EXPECT_LT(FStandInClock::GetRealSeconds() - RealStart, 2.0);
	// Fired on the first turn at which 10 s of clock had passed, give or take one 0.1 s step.
	EXPECT_NEAR(FiredAt - StartSeconds, 10.0, 0.15);

	// A wait that never ends gives up after its real timeout, even though the clock keeps moving.
	const double TimeoutStart = FStandInClock::GetRealSeconds();
	EXPECT_FALSE(FStandInEngineLoop::PumpUntil([] { return false; }, 0.2));
	EXPECT_LT(FStandInClock::GetRealSeconds() - TimeoutStart, 1.0);
	FTSTicker::RemoveTicker(Handle);
}
