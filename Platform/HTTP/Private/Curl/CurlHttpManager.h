#pragma once

#include "CoreMinimal.h"
#include "HttpManager.h"

#include <curl/curl.h>

#include <string>

class FCurlHttpRequest;

/** Runs every transfer in one libcurl multi handle, advanced without blocking on each tick. */
class FCurlHttpManager : public FHttpManager
{
public:
	FCurlHttpManager();
	virtual ~FCurlHttpManager();

	bool StartTransfer(FCurlHttpRequest& Request);
	void StopTransfer(FCurlHttpRequest& Request);
	/** The system's trusted certificates plus the extra CA file, or null to use libcurl's own. */
	const std::string* GetTrustedCertificates(CURL* EasyHandle);

	virtual void Flush(EHttpFlushReason FlushReason) override;
	virtual bool Tick(float DeltaSeconds) override;

private:
	void CancelAll();

	CURLM* MultiHandle = nullptr;
	std::string SystemCertificates;
	std::string TrustedCertificates;
	bool bHasTrustedCertificates = false;
};
