#pragma once

#include "CoreMinimal.h"
#include "Containers/Ticker.h"
#include "HttpFwd.h"

enum class EHttpFlushReason : uint8
{
	Default,
	Background,
	Shutdown,
	FullFlush,
	Count
};

/** Called from the thread that adds a request to the manager; meant for analytics and test doubles. */
DECLARE_DELEGATE_OneParam(FHttpManagerRequestAddedDelegate, const FHttpRequestRef& /*Request*/);

/**
 * Keeps the requests in flight alive and ticks them from the core ticker, so that they make
 * progress while the engine loop turns and complete on the game thread.
 */
class FHttpManager
{
public:
	FHttpManager();
	virtual ~FHttpManager();
	FHttpManager(const FHttpManager&) = delete;
	FHttpManager& operator=(const FHttpManager&) = delete;

	void AddRequest(const FHttpRequestRef& Request);
	void RemoveRequest(const FHttpRequestRef& Request);
	bool IsValidRequest(const IHttpRequest* RequestPtr) const;
	/** Replaces the delegate called for each request added; an unbound one turns it off. */
	void SetRequestAddedDelegate(const FHttpManagerRequestAddedDelegate& Delegate) { RequestAddedDelegate = Delegate; }

	/** Blocks, turning the requests until none is left; Shutdown cancels them first. */
	virtual void Flush(EHttpFlushReason FlushReason);
	virtual bool Tick(float DeltaSeconds);

	/** Stand-in only: the number of requests still in flight, so the host can tell when a turn has gone quiet. */
	int32 GetNumActiveRequests() const { return Requests.Num(); }

protected:
	TArray<FHttpRequestRef> Requests;

private:
	void EnsureTicking();

	FTSTicker::FDelegateHandle TickerHandle;
	FHttpManagerRequestAddedDelegate RequestAddedDelegate;
};
