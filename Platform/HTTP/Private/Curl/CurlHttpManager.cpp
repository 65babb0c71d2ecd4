#include "Curl/CurlHttpManager.h"

#include "Curl/CurlHttpRequest.h"
#include "HttpLog.h"
#include "HttpStandInSettings.h"
#include "HttpStringConv.h"

#include <chrono>
#include <fstream>
#include <sstream>

namespace
{
	constexpr int FlushPollMilliseconds = 10;

	std::string ReadWholeFile(const std::string& Path)
	{
		std::ifstream File(Path, std::ios::binary);
		std::stringstream Content;
		Content << File.rdbuf();
		return Content.str();
	}

	std::chrono::seconds GetFlushLimit(EHttpFlushReason FlushReason)
	{
		switch (FlushReason)
		{
		case EHttpFlushReason::Shutdown:
			return std::chrono::seconds(5);
		case EHttpFlushReason::FullFlush:
			// Every request carries its own timeout; this only guards against one without any.
			return std::chrono::seconds(600);
		default:
			return std::chrono::seconds(60);
		}
	}
}

FCurlHttpManager::FCurlHttpManager()
{
	curl_global_init(CURL_GLOBAL_DEFAULT);
	MultiHandle = curl_multi_init();
}

FCurlHttpManager::~FCurlHttpManager()
{
	CancelAll();
	FHttpManager::Tick(0.0f);
	if (MultiHandle != nullptr)
	{
		curl_multi_cleanup(MultiHandle);
	}
}

bool FCurlHttpManager::StartTransfer(FCurlHttpRequest& Request)
{
	return MultiHandle != nullptr && Request.GetEasyHandle() != nullptr
		&& curl_multi_add_handle(MultiHandle, Request.GetEasyHandle()) == CURLM_OK;
}

void FCurlHttpManager::StopTransfer(FCurlHttpRequest& Request)
{
	// Removing a handle that isn't (or no longer is) in the multi handle is harmless.
	if (MultiHandle != nullptr && Request.GetEasyHandle() != nullptr)
	{
		curl_multi_remove_handle(MultiHandle, Request.GetEasyHandle());
	}
}

const std::string* FCurlHttpManager::GetTrustedCertificates(CURL* EasyHandle)
{
	const FString ExtraCaFile = FHttpStandInSettings::GetExtraCaFile();
	if (ExtraCaFile.IsEmpty())
	{
		return nullptr;
	}
	if (!bHasTrustedCertificates)
	{
		char* DefaultBundle = nullptr;
		curl_easy_getinfo(EasyHandle, CURLINFO_CAINFO, &DefaultBundle);
		SystemCertificates = ReadWholeFile(DefaultBundle != nullptr ? DefaultBundle : "/etc/ssl/certs/ca-certificates.crt");
		bHasTrustedCertificates = true;
	}
	// Read for each request: a test may write a new certificate under the same name.
	const std::string Extra = ReadWholeFile(HttpStringConv::ToUtf8(ExtraCaFile));
	if (Extra.empty())
	{
		UE_LOG(LogHttp, Error, TEXT("The extra CA file '%s' can't be read; only the system's certificates are trusted."), *ExtraCaFile);
	}
	TrustedCertificates = SystemCertificates + "\n" + Extra;
	return &TrustedCertificates;
}

void FCurlHttpManager::CancelAll()
{
	const TArray<FHttpRequestRef> InFlight = Requests;
	for (const FHttpRequestRef& Request : InFlight)
	{
		Request->CancelRequest();
	}
}

bool FCurlHttpManager::Tick(float DeltaSeconds)
{
	if (MultiHandle != nullptr && Requests.Num() > 0)
	{
		int RunningCount = 0;
		curl_multi_perform(MultiHandle, &RunningCount);
		int QueuedCount = 0;
		while (CURLMsg* Message = curl_multi_info_read(MultiHandle, &QueuedCount))
		{
			if (Message->msg != CURLMSG_DONE)
			{
				continue;
			}
			char* Owner = nullptr;
			curl_easy_getinfo(Message->easy_handle, CURLINFO_PRIVATE, &Owner);
			if (Owner != nullptr)
			{
				reinterpret_cast<FCurlHttpRequest*>(Owner)->OnTransferDone(Message->data.result);
			}
		}
	}
	// Completion delegates run from here, on the game thread.
	return FHttpManager::Tick(DeltaSeconds);
}

void FCurlHttpManager::Flush(EHttpFlushReason FlushReason)
{
	if (FlushReason == EHttpFlushReason::Shutdown)
	{
		CancelAll();
	}
	const auto Deadline = std::chrono::steady_clock::now() + GetFlushLimit(FlushReason);
	while (Requests.Num() > 0)
	{
		Tick(0.0f);
		if (Requests.Num() == 0)
		{
			break;
		}
		if (std::chrono::steady_clock::now() >= Deadline)
		{
			UE_LOG(LogHttp, Warning, TEXT("Flush gave up waiting; cancelling %d request(s)."), Requests.Num());
			CancelAll();
			Tick(0.0f);
			break;
		}
		curl_multi_poll(MultiHandle, nullptr, 0, FlushPollMilliseconds, nullptr);
	}
}
