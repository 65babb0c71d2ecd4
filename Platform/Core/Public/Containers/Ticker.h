#pragma once

#include "CoreTypes.h"
#include "Containers/Array.h"
#include "Delegates/Delegate.h"
#include "HAL/CriticalSection.h"
#include "Templates/Function.h"
#include "Templates/SharedPointer.h"

/** A ticker callback: takes the frame's delta time, returns true to stay registered. */
DECLARE_DELEGATE_RetVal_OneParam(bool, FTickerDelegate, float);

/**
 * Thread-safe ticker class: calls registered delegates from Tick, each once its delay has passed since it
 * was added or last fired. Time is the sum of the delta times given to Tick. Tickers may be added and removed
 * from any thread, and from inside a ticker callback (the callback's own included). Once RemoveTicker returns
 * the delegate will not run again; if it is running on another thread, RemoveTicker waits for it to finish.
 */
class FTSTicker
{
public:
	struct FElement;
	/** Names a registered ticker; it stays valid until the ticker is dropped. */
	typedef TWeakPtr<FElement> FDelegateHandle;

	/** Singleton used for the ticker in Core / Launch; the engine loop ticks it once a frame. */
	static CORE_API FTSTicker& GetCoreTicker();

	CORE_API FTSTicker();
	CORE_API ~FTSTicker();
	FTSTicker(const FTSTicker&) = delete;
	FTSTicker& operator=(const FTSTicker&) = delete;

	/** Registers a delegate to run every InDelay seconds; 0 means every frame, starting with the next. */
	CORE_API FDelegateHandle AddTicker(const FTickerDelegate& InDelegate, float InDelay = 0.0f);
	CORE_API FDelegateHandle AddTicker(const TCHAR* InName, float InDelay, TFunction<bool(float)> Function);

	CORE_API static void RemoveTicker(FDelegateHandle Handle);

	/** Advances the ticker's time by DeltaTime and fires the tickers that are due, passing DeltaTime. */
	CORE_API void Tick(float DeltaTime);

	/** Drops every ticker. */
	CORE_API void Reset();

private:
	FCriticalSection ElementsLock;
	// Guarded by ElementsLock, as is CurrentTime.
	TArray<TSharedPtr<FElement>> Elements;
	double CurrentTime = 0.0;
};

/** Base for objects that tick for as long as they live. */
class FTSTickerObjectBase
{
public:
	/** Called by the ticker; returns false to stop ticking. */
	virtual bool Tick(float DeltaTime) = 0;

protected:
	CORE_API explicit FTSTickerObjectBase(float InDelay = 0.0f, FTSTicker& InTicker = FTSTicker::GetCoreTicker());
	CORE_API virtual ~FTSTickerObjectBase();
	FTSTickerObjectBase(const FTSTickerObjectBase&) = delete;
	FTSTickerObjectBase& operator=(const FTSTickerObjectBase&) = delete;

private:
	FTSTicker::FDelegateHandle TickHandle;
};
