#pragma once

#include "CoreMinimal.h"
#include "HttpFwd.h"
#include "Templates/UniquePtr.h"

class FHttpManager;

/** Module for Http requests. */
class FHttpModule
{
public:
	/** The module; made at the first call and kept until the process ends. */
	static FHttpModule& Get();
	static bool IsAvailable() { return true; }

	virtual ~FHttpModule();

	/** A new request for the current platform (libcurl). */
	virtual TSharedRef<IHttpRequest, ESPMode::ThreadSafe> CreateRequest();
	/** Only meant for request and response implementations, and for flushing. */
	FHttpManager& GetHttpManager();

	/** Seconds for a whole request to complete; 0 means no limit. A request's own SetTimeout wins. */
	float GetHttpTotalTimeout() const { return HttpTotalTimeout; }
	void SetHttpTotalTimeout(float TimeOutInSec) { HttpTotalTimeout = TimeOutInSec; }
	float GetHttpConnectionTimeout() const { return HttpConnectionTimeout; }
	/** Seconds without any data flowing before a request fails; 0 means no limit. */
	float GetHttpActivityTimeout() const { return HttpActivityTimeout; }

private:
	FHttpModule();

	TUniquePtr<FHttpManager> HttpManager;
	// Generous on purpose: a backend may take long to accept a large request.
	float HttpTotalTimeout = 180.0f;
	float HttpConnectionTimeout = 30.0f;
	float HttpActivityTimeout = 0.0f;
};
