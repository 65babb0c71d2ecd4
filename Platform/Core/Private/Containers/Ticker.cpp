#include "Containers/Ticker.h"

#include "Misc/ScopeLock.h"

#include <atomic>

struct FTSTicker::FElement
{
	FElement(const FTickerDelegate& InDelegate, float InDelayTime, double InFireTime)
		: Delegate(InDelegate)
		, DelayTime(InDelayTime)
		, FireTime(InFireTime)
	{
	}

	// Held while the delegate runs, so that a removal from another thread waits for the call to end.
	// Recursive, so that the delegate may remove itself.
	FCriticalSection Lock;
	// Delegate and FireTime are guarded by Lock.
	FTickerDelegate Delegate;
	const float DelayTime;
	double FireTime;
	// Set under Lock; read without it when the ticker drops removed elements.
	std::atomic<bool> bRemoved{false};
};

FTSTicker& FTSTicker::GetCoreTicker()
{
	static FTSTicker CoreTicker;
	return CoreTicker;
}

FTSTicker::FTSTicker() = default;

FTSTicker::~FTSTicker() = default;

FTSTicker::FDelegateHandle FTSTicker::AddTicker(const FTickerDelegate& InDelegate, float InDelay)
{
	FScopeLock Lock(&ElementsLock);
	TSharedPtr<FElement> Element = MakeShared<FElement>(InDelegate, InDelay, CurrentTime + InDelay);
	Elements.Add(Element);
	return FDelegateHandle(Element);
}

FTSTicker::FDelegateHandle FTSTicker::AddTicker(const TCHAR* InName, float InDelay, TFunction<bool(float)> Function)
{
	// The name only labels the ticker in the engine's profiler.
	return AddTicker(FTickerDelegate::CreateLambda(MoveTemp(Function)), InDelay);
}

void FTSTicker::RemoveTicker(FDelegateHandle Handle)
{
	const TSharedPtr<FElement> Element = Handle.Pin();
	if (!Element.IsValid())
	{
		return;
	}
	FTickerDelegate Released;
	{
		FScopeLock Lock(&Element->Lock);
		Element->bRemoved = true;
		// The owner's ticker drops the element on its next Tick; the binding goes now. A call in progress
		// (this removal coming from the delegate itself) keeps its binding alive until it returns.
		Released = MoveTemp(Element->Delegate);
	}
}

void FTSTicker::Tick(float DeltaTime)
{
	TArray<TSharedPtr<FElement>> Due;
	double Now;
	{
		FScopeLock Lock(&ElementsLock);
		CurrentTime += DeltaTime;
		Now = CurrentTime;
		// Tickers added by the callbacks below are not in this list: they fire from the next Tick on.
		Due = Elements;
	}

	for (const TSharedPtr<FElement>& Element : Due)
	{
		FScopeLock Lock(&Element->Lock);
		if (Element->bRemoved || Element->FireTime > Now)
		{
			continue;
		}
		// A shared-pointer binding whose object has gone is not bound any more and ends its ticker.
		const bool bKeep = Element->Delegate.IsBound() && Element->Delegate.Execute(DeltaTime);
		if (Element->bRemoved)
		{
			continue;
		}
		if (bKeep)
		{
			Element->FireTime = Now + Element->DelayTime;
		}
		else
		{
			Element->bRemoved = true;
			Element->Delegate.Unbind();
		}
	}

	FScopeLock Lock(&ElementsLock);
	for (int32 Index = Elements.Num() - 1; Index >= 0; --Index)
	{
		if (Elements[Index]->bRemoved)
		{
			Elements.RemoveAt(Index);
		}
	}
}

void FTSTicker::Reset()
{
	TArray<TSharedPtr<FElement>> Dropped;
	{
		FScopeLock Lock(&ElementsLock);
		Dropped = MoveTemp(Elements);
		Elements.Reset();
	}
	for (const TSharedPtr<FElement>& Element : Dropped)
	{
		RemoveTicker(FDelegateHandle(Element));
	}
}

FTSTickerObjectBase::FTSTickerObjectBase(float InDelay, FTSTicker& InTicker)
{
	TickHandle = InTicker.AddTicker(FTickerDelegate::CreateRaw(this, &FTSTickerObjectBase::Tick), InDelay);
}

FTSTickerObjectBase::~FTSTickerObjectBase()
{
	FTSTicker::RemoveTicker(TickHandle);
}
