#include "HttpManager.h"

#include "Interfaces/IHttpRequest.h"

FHttpManager::FHttpManager()
{
	EnsureTicking();
}

void FHttpManager::EnsureTicking()
{
	// A host or test that resets the core ticker drops this ticker too; requests must still move.
	if (!TickerHandle.IsValid())
	{
		TickerHandle = FTSTicker::GetCoreTicker().AddTicker(FTickerDelegate::CreateRaw(this, &FHttpManager::Tick), 0.0f);
	}
}

FHttpManager::~FHttpManager()
{
	FTSTicker::GetCoreTicker().RemoveTicker(TickerHandle);
}

void FHttpManager::AddRequest(const FHttpRequestRef& Request)
{
	EnsureTicking();
	if (!IsValidRequest(&Request.Get()))
	{
		Requests.Add(Request);
		RequestAddedDelegate.ExecuteIfBound(Request);
	}
}

void FHttpManager::RemoveRequest(const FHttpRequestRef& Request)
{
	const IHttpRequest* Removed = &Request.Get();
	Requests.RemoveAll([Removed](const FHttpRequestRef& Candidate) { return &Candidate.Get() == Removed; });
}

bool FHttpManager::IsValidRequest(const IHttpRequest* RequestPtr) const
{
	for (const FHttpRequestRef& Request : Requests)
	{
		if (&Request.Get() == RequestPtr)
		{
			return true;
		}
	}
	return false;
}

void FHttpManager::Flush(EHttpFlushReason FlushReason)
{
	// Implementations that can wait on their transfers override this.
	Tick(0.0f);
}

bool FHttpManager::Tick(float DeltaSeconds)
{
	// A copy: completion delegates start and drop requests while we walk.
	const TArray<FHttpRequestRef> Ticked = Requests;
	for (const FHttpRequestRef& Request : Ticked)
	{
		Request->Tick(DeltaSeconds);
	}
	return true;
}
