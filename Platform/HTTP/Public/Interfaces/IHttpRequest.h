#pragma once

#include "CoreMinimal.h"
#include "Delegates/Delegate.h"
#include "HttpFwd.h"
#include "Interfaces/IHttpBase.h"
#include "Misc/Optional.h"

/**
 * Called when a request has finished, successfully or not, on the game thread.
 * bConnectedSuccessfully is true whenever a response came back, whatever its code.
 */
DECLARE_DELEGATE_ThreeParams(FHttpRequestCompleteDelegate, FHttpRequestPtr /*Request*/, FHttpResponsePtr /*Response*/, bool /*bConnectedSuccessfully*/);

/** Interface for Http requests, created by FHttpModule::CreateRequest. */
class IHttpRequest : public IHttpBase, public TSharedFromThis<IHttpRequest, ESPMode::ThreadSafe>
{
public:
	virtual ~IHttpRequest() = default;

	virtual FString GetVerb() const = 0;
	/** GET when never set. */
	virtual void SetVerb(const FString& Verb) = 0;
	virtual void SetURL(const FString& URL) = 0;
	virtual void SetContent(const TArray<uint8>& ContentPayload) = 0;
	virtual void SetContent(TArray<uint8>&& ContentPayload) = 0;
	/** The string goes out encoded as UTF-8. */
	virtual void SetContentAsString(const FString& ContentString) = 0;
	/** Replaces an earlier value of the same header, which keeps its place in the order. */
	virtual void SetHeader(const FString& HeaderName, const FString& HeaderValue) = 0;
	/** Adds to the value already set, separated by ", "; sets it when there is none. */
	virtual void AppendToHeader(const FString& HeaderName, const FString& AdditionalHeaderValue) = 0;
	/** Limit in seconds for the whole request; without one, FHttpModule's total timeout applies. */
	virtual void SetTimeout(float InTimeoutSecs) = 0;
	virtual void ClearTimeout() = 0;
	virtual TOptional<float> GetTimeout() const = 0;

	/**
	 * Starts the request; it runs while the engine loop ticks. Returns true if it started.
	 * The completion delegate is always called when the request completes or fails, if bound.
	 */
	virtual bool ProcessRequest() = 0;
	virtual FHttpRequestCompleteDelegate& OnProcessRequestComplete() = 0;
	/** Cancels a request that is still processing; its completion reports failure. */
	virtual void CancelRequest() = 0;
	virtual const FHttpResponsePtr GetResponse() const = 0;
	virtual void Tick(float DeltaSeconds) = 0;
	/** Seconds from the start of processing to completion, or until now while processing. */
	virtual float GetElapsedTime() const = 0;
};
