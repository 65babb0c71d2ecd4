#include "Curl/CurlHttpRequest.h"

#include "Curl/CurlHttpManager.h"
#include "HAL/PlatformTime.h"
#include "HttpLog.h"
#include "HttpModule.h"
#include "HttpStandInSettings.h"
#include "HttpStringConv.h"
#include "HttpUrl.h"

#include <cstring>

namespace
{
	FCurlHttpManager& GetCurlManager()
	{
		return static_cast<FCurlHttpManager&>(FHttpModule::Get().GetHttpManager());
	}

	long ToMilliseconds(float Seconds)
	{
		return static_cast<long>(Seconds * 1000.0f);
	}

	EHttpFailureReason ClassifyFailure(CURLcode Result)
	{
		switch (Result)
		{
		case CURLE_OPERATION_TIMEDOUT:
			return EHttpFailureReason::TimedOut;
		case CURLE_UNSUPPORTED_PROTOCOL:
		case CURLE_URL_MALFORMAT:
		case CURLE_FAILED_INIT:
		case CURLE_OUT_OF_MEMORY:
		case CURLE_WRITE_ERROR:
		case CURLE_FILESIZE_EXCEEDED:
			return EHttpFailureReason::Other;
		default:
			// Refused, unreachable, reset, TLS and certificate failures all mean no usable connection.
			return EHttpFailureReason::ConnectionError;
		}
	}

	// What a user can act on, before libcurl's own words.
	const TCHAR* DescribeFailure(CURLcode Result)
	{
		switch (Result)
		{
		case CURLE_COULDNT_CONNECT:
			return TEXT("connection refused");
		case CURLE_COULDNT_RESOLVE_HOST:
			return TEXT("host not found");
		case CURLE_OPERATION_TIMEDOUT:
			return TEXT("timed out");
		case CURLE_PEER_FAILED_VERIFICATION:
		case CURLE_SSL_CACERT_BADFILE:
			return TEXT("certificate not trusted");
		case CURLE_SSL_CONNECT_ERROR:
			return TEXT("secure connection failed");
		case CURLE_GOT_NOTHING:
		case CURLE_RECV_ERROR:
		case CURLE_SEND_ERROR:
			return TEXT("connection closed without an answer");
		default:
			return TEXT("transfer failed");
		}
	}

	std::string Trim(const std::string& Text)
	{
		const size_t First = Text.find_first_not_of(" \t\r\n");
		if (First == std::string::npos)
		{
			return std::string();
		}
		return Text.substr(First, Text.find_last_not_of(" \t\r\n") - First + 1);
	}
}

FCurlHttpRequest::~FCurlHttpRequest()
{
	ReleaseEasyHandle();
}

bool FCurlHttpRequest::CanBeChanged(const TCHAR* What) const
{
	if (Status == EHttpRequestStatus::Processing)
	{
		UE_LOG(LogHttp, Warning, TEXT("Can't set the %s of the request to '%s' while it is processing."), What, *URL);
		return false;
	}
	return true;
}

FString FCurlHttpRequest::GetURLParameter(const FString& ParameterName) const
{
	return HttpUrl::GetParameter(URL, ParameterName);
}

void FCurlHttpRequest::SetVerb(const FString& InVerb)
{
	if (CanBeChanged(TEXT("verb")))
	{
		Verb = InVerb.ToUpper();
	}
}

void FCurlHttpRequest::SetURL(const FString& InURL)
{
	if (CanBeChanged(TEXT("URL")))
	{
		URL = InURL;
	}
}

void FCurlHttpRequest::SetContent(const TArray<uint8>& ContentPayload)
{
	if (CanBeChanged(TEXT("content")))
	{
		Payload = ContentPayload;
	}
}

void FCurlHttpRequest::SetContent(TArray<uint8>&& ContentPayload)
{
	if (CanBeChanged(TEXT("content")))
	{
		Payload = MoveTemp(ContentPayload);
	}
}

void FCurlHttpRequest::SetContentAsString(const FString& ContentString)
{
	if (CanBeChanged(TEXT("content")))
	{
		const std::string Utf8 = HttpStringConv::ToUtf8(ContentString);
		Payload.Reset();
		Payload.Append(reinterpret_cast<const uint8*>(Utf8.data()), static_cast<int32>(Utf8.size()));
	}
}

void FCurlHttpRequest::SetHeader(const FString& HeaderName, const FString& HeaderValue)
{
	if (CanBeChanged(TEXT("headers")))
	{
		Headers.Set(HeaderName, HeaderValue);
	}
}

void FCurlHttpRequest::AppendToHeader(const FString& HeaderName, const FString& AdditionalHeaderValue)
{
	if (CanBeChanged(TEXT("headers")))
	{
		Headers.Append(HeaderName, AdditionalHeaderValue);
	}
}

float FCurlHttpRequest::GetElapsedTime() const
{
	if (Status == EHttpRequestStatus::Processing)
	{
		return static_cast<float>(FPlatformTime::Seconds() - StartSeconds);
	}
	return static_cast<float>(ElapsedSeconds);
}

bool FCurlHttpRequest::ProcessRequest()
{
	if (Status == EHttpRequestStatus::Processing)
	{
		UE_LOG(LogHttp, Warning, TEXT("The request to '%s' is already processing."), *URL);
		return false;
	}
	FCurlHttpManager& Manager = GetCurlManager();
	Response.Reset();
	FailureReason = EHttpFailureReason::None;
	bCanceled = false;
	bTransferDone = false;
	TransferResult = CURLE_OK;
	ReceivedBody.Empty();
	MaxBodyBytes = FHttpStandInSettings::GetMaxResponseBodyBytes();
	bBodyTooLarge = false;
	ReceivedHeaders.Reset();
	ErrorBuffer[0] = '\0';
	Status = EHttpRequestStatus::Processing;
	StartSeconds = FPlatformTime::Seconds();
	ElapsedSeconds = 0.0;
	Manager.AddRequest(AsShared());

	if (URL.IsEmpty() || !SetUpEasyHandle(Manager) || !Manager.StartTransfer(*this))
	{
		UE_LOG(LogHttp, Warning, TEXT("The request to '%s' could not be started."), *URL);
		ReleaseEasyHandle();
		// Completed from the next tick like any failure, so callers have a single path to handle.
		bTransferDone = true;
		TransferResult = URL.IsEmpty() ? CURLE_URL_MALFORMAT : CURLE_FAILED_INIT;
		return false;
	}
	return true;
}

bool FCurlHttpRequest::SetUpEasyHandle(FCurlHttpManager& Manager)
{
	EasyHandle = curl_easy_init();
	if (EasyHandle == nullptr)
	{
		return false;
	}
	const FHttpModule& Module = FHttpModule::Get();
	curl_easy_setopt(EasyHandle, CURLOPT_URL, HttpStringConv::ToUtf8(URL).c_str());
	curl_easy_setopt(EasyHandle, CURLOPT_PRIVATE, this);
	curl_easy_setopt(EasyHandle, CURLOPT_NOSIGNAL, 1L);
	curl_easy_setopt(EasyHandle, CURLOPT_ERRORBUFFER, ErrorBuffer);
	curl_easy_setopt(EasyHandle, CURLOPT_PROTOCOLS_STR, "http,https");
	curl_easy_setopt(EasyHandle, CURLOPT_HEADERFUNCTION, &FCurlHttpRequest::ReceiveHeaderLine);
	curl_easy_setopt(EasyHandle, CURLOPT_HEADERDATA, this);
	curl_easy_setopt(EasyHandle, CURLOPT_WRITEFUNCTION, &FCurlHttpRequest::ReceiveBody);
	curl_easy_setopt(EasyHandle, CURLOPT_WRITEDATA, this);
	// Refused up front when the announced length is too large; a body without one is cut off as it arrives.
	curl_easy_setopt(EasyHandle, CURLOPT_MAXFILESIZE_LARGE, static_cast<curl_off_t>(MaxBodyBytes));

	curl_easy_setopt(EasyHandle, CURLOPT_SSL_VERIFYPEER, 1L);
	curl_easy_setopt(EasyHandle, CURLOPT_SSL_VERIFYHOST, 2L);
	if (const std::string* Trusted = Manager.GetTrustedCertificates(EasyHandle))
	{
		curl_blob Blob { const_cast<char*>(Trusted->data()), Trusted->size(), CURL_BLOB_COPY };
		curl_easy_setopt(EasyHandle, CURLOPT_CAINFO_BLOB, &Blob);
	}

	const float TotalTimeout = Timeout.IsSet() ? Timeout.GetValue() : Module.GetHttpTotalTimeout();
	if (TotalTimeout > 0.0f)
	{
		curl_easy_setopt(EasyHandle, CURLOPT_TIMEOUT_MS, ToMilliseconds(TotalTimeout));
	}
	if (Module.GetHttpConnectionTimeout() > 0.0f)
	{
		curl_easy_setopt(EasyHandle, CURLOPT_CONNECTTIMEOUT_MS, ToMilliseconds(Module.GetHttpConnectionTimeout()));
	}
	if (Module.GetHttpActivityTimeout() > 0.0f)
	{
		curl_easy_setopt(EasyHandle, CURLOPT_LOW_SPEED_LIMIT, 1L);
		curl_easy_setopt(EasyHandle, CURLOPT_LOW_SPEED_TIME, static_cast<long>(Module.GetHttpActivityTimeout()));
	}

	UploadBody.assign(reinterpret_cast<const char*>(Payload.GetData()), static_cast<size_t>(Payload.Num()));
	const std::string VerbText = HttpStringConv::ToUtf8(Verb);
	if (VerbText == "GET")
	{
		curl_easy_setopt(EasyHandle, CURLOPT_HTTPGET, 1L);
	}
	else if (VerbText == "HEAD")
	{
		curl_easy_setopt(EasyHandle, CURLOPT_NOBODY, 1L);
	}
	else
	{
		// libcurl sends a request again, unasked, when a reused connection dies before any answer. The
		// backend can't tell a repeated POST from a new one, so anything but a read goes on a connection
		// of its own and fails instead; reads keep reusing connections.
		curl_easy_setopt(EasyHandle, CURLOPT_FRESH_CONNECT, 1L);
		if (VerbText == "POST" || !UploadBody.empty())
		{
			curl_easy_setopt(EasyHandle, CURLOPT_POST, 1L);
			curl_easy_setopt(EasyHandle, CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(UploadBody.size()));
			curl_easy_setopt(EasyHandle, CURLOPT_POSTFIELDS, UploadBody.data());
		}
		if (VerbText != "POST")
		{
			curl_easy_setopt(EasyHandle, CURLOPT_CUSTOMREQUEST, VerbText.c_str());
		}
	}

	for (const FHttpHeaderList::FEntry& Header : Headers.GetEntries())
	{
		// libcurl drops "Name:" but sends "Name;" as a header with an empty value.
		const std::string Line = Header.Value.IsEmpty()
			? HttpStringConv::ToUtf8(Header.Name) + ";"
			: HttpStringConv::ToUtf8(Header.Name) + ": " + HttpStringConv::ToUtf8(Header.Value);
		HeaderList = curl_slist_append(HeaderList, Line.c_str());
	}
	if (!Headers.Contains(TEXT("Expect")))
	{
		// No "100-continue" round trip before large bodies.
		HeaderList = curl_slist_append(HeaderList, "Expect:");
	}
	curl_easy_setopt(EasyHandle, CURLOPT_HTTPHEADER, HeaderList);
	return true;
}

void FCurlHttpRequest::ReleaseEasyHandle()
{
	if (EasyHandle != nullptr)
	{
		GetCurlManager().StopTransfer(*this);
		curl_easy_cleanup(EasyHandle);
		EasyHandle = nullptr;
	}
	if (HeaderList != nullptr)
	{
		curl_slist_free_all(HeaderList);
		HeaderList = nullptr;
	}
}

size_t FCurlHttpRequest::ReceiveHeaderLine(char* Data, size_t Size, size_t Count, void* Request)
{
	FCurlHttpRequest* This = static_cast<FCurlHttpRequest*>(Request);
	const std::string Line(Data, Size * Count);
	if (Line.rfind("HTTP/", 0) == 0)
	{
		// A new status line: headers of an interim answer (such as 100 Continue) don't count.
		This->ReceivedHeaders.Reset();
	}
	else
	{
		const size_t Colon = Line.find(':');
		if (Colon != std::string::npos && Colon > 0)
		{
			const std::string Name = Line.substr(0, Colon);
			const std::string Value = Trim(Line.substr(Colon + 1));
			This->ReceivedHeaders.Add(HttpStringConv::FromUtf8(Name.data(), Name.size()), HttpStringConv::FromUtf8(Value.data(), Value.size()));
		}
	}
	return Size * Count;
}

size_t FCurlHttpRequest::ReceiveBody(char* Data, size_t Size, size_t Count, void* Request)
{
	FCurlHttpRequest* This = static_cast<FCurlHttpRequest*>(Request);
	const size_t Bytes = Size * Count;
	if (static_cast<int64>(This->ReceivedBody.Num()) + static_cast<int64>(Bytes) > This->MaxBodyBytes)
	{
		// Any other count than Bytes ends the transfer with a write error.
		This->bBodyTooLarge = true;
		return 0;
	}
	if (This->ReceivedBody.Num() == 0)
	{
		// One allocation for the whole body when its length is announced.
		curl_off_t Announced = -1;
		if (curl_easy_getinfo(This->EasyHandle, CURLINFO_CONTENT_LENGTH_DOWNLOAD_T, &Announced) == CURLE_OK && Announced > 0 && Announced <= This->MaxBodyBytes)
		{
			This->ReceivedBody.Reserve(static_cast<int32>(Announced));
		}
	}
	This->ReceivedBody.Append(reinterpret_cast<const uint8*>(Data), static_cast<int32>(Bytes));
	return Bytes;
}

void FCurlHttpRequest::OnTransferDone(CURLcode Result)
{
	bTransferDone = true;
	TransferResult = Result;
}

void FCurlHttpRequest::CancelRequest()
{
	if (Status != EHttpRequestStatus::Processing || bCanceled)
	{
		return;
	}
	bCanceled = true;
	if (!bTransferDone)
	{
		GetCurlManager().StopTransfer(*this);
		bTransferDone = true;
		TransferResult = CURLE_ABORTED_BY_CALLBACK;
	}
}

void FCurlHttpRequest::Tick(float DeltaSeconds)
{
	if (Status == EHttpRequestStatus::Processing && bTransferDone)
	{
		FinishRequest();
	}
}

void FCurlHttpRequest::FinishRequest()
{
	// Whoever holds the last reference may drop it inside the delegate.
	const FHttpRequestRef Self = AsShared();
	const bool bSucceeded = !bCanceled && TransferResult == CURLE_OK;
	long ResponseCode = 0;
	if (bSucceeded && EasyHandle != nullptr)
	{
		curl_easy_getinfo(EasyHandle, CURLINFO_RESPONSE_CODE, &ResponseCode);
	}
	ReleaseEasyHandle();
	ElapsedSeconds = FPlatformTime::Seconds() - StartSeconds;

	if (bSucceeded)
	{
		Status = EHttpRequestStatus::Succeeded;
		Response = MakeShared<FCurlHttpResponse, ESPMode::ThreadSafe>(URL, static_cast<int32>(ResponseCode), MoveTemp(ReceivedHeaders), MoveTemp(ReceivedBody));
	}
	else
	{
		Status = EHttpRequestStatus::Failed;
		FailureReason = bCanceled ? EHttpFailureReason::Cancelled : ClassifyFailure(TransferResult);
		FString Detail;
		if (bCanceled)
		{
			Detail = TEXT("cancelled");
		}
		else if (bBodyTooLarge || TransferResult == CURLE_FILESIZE_EXCEEDED)
		{
			Detail = FString::Printf(TEXT("response larger than %lld bytes"), static_cast<long long>(MaxBodyBytes));
		}
		else
		{
			const char* CurlText = ErrorBuffer[0] != '\0' ? ErrorBuffer : curl_easy_strerror(TransferResult);
			Detail = FString::Printf(TEXT("%s (%s)"), DescribeFailure(TransferResult), *HttpStringConv::FromUtf8(CurlText, strlen(CurlText)));
		}
		UE_LOG(LogHttp, Warning, TEXT("%s %s failed (%s): %s"), *Verb, *URL, LexToString(FailureReason), *Detail);
	}
	ReceivedBody.Empty();
	ReceivedHeaders.Reset();
	UploadBody.clear();

	GetCurlManager().RemoveRequest(Self);
	CompleteDelegate.ExecuteIfBound(Self, Response, bSucceeded);
}
