#pragma once

#include "CoreMinimal.h"
#include "Curl/CurlHttpResponse.h"
#include "HttpHeaderList.h"
#include "Interfaces/IHttpRequest.h"

#include <curl/curl.h>

#include <string>

class FCurlHttpManager;

/** A request carried out by one libcurl easy handle inside the manager's multi handle. */
class FCurlHttpRequest : public IHttpRequest
{
public:

	FCurlHttpRequest() = default;
	virtual ~FCurlHttpRequest();

	virtual FString GetURL() const override { return URL; }
	virtual const FString& GetEffectiveURL() const override { return URL; }
	virtual FString GetURLParameter(const FString& ParameterName) const override;
	virtual FString GetHeader(const FString& HeaderName) const override { return Headers.Find(HeaderName); }
	virtual TArray<FString> GetAllHeaders() const override { return Headers.ToStrings(); }
	virtual FString GetContentType() const override { return Headers.Find(TEXT("Content-Type")); }
	virtual uint64 GetContentLength() const override { return static_cast<uint64>(Payload.Num()); }
	virtual const TArray<uint8>& GetContent() const override { return Payload; }
	virtual EHttpRequestStatus::Type GetStatus() const override { return Status; }
	virtual EHttpFailureReason GetFailureReason() const override { return FailureReason; }

	virtual FString GetVerb() const override { return Verb; }
	virtual void SetVerb(const FString& InVerb) override;
	virtual void SetURL(const FString& InURL) override;
	virtual void SetContent(const TArray<uint8>& ContentPayload) override;
	virtual void SetContent(TArray<uint8>&& ContentPayload) override;
	virtual void SetContentAsString(const FString& ContentString) override;
	virtual void SetHeader(const FString& HeaderName, const FString& HeaderValue) override;
	virtual void AppendToHeader(const FString& HeaderName, const FString& AdditionalHeaderValue) override;
	virtual void SetTimeout(float InTimeoutSecs) override { Timeout = InTimeoutSecs; }
	virtual void ClearTimeout() override { Timeout.Reset(); }
	virtual TOptional<float> GetTimeout() const override { return Timeout; }
	virtual bool ProcessRequest() override;
	virtual FHttpRequestCompleteDelegate& OnProcessRequestComplete() override { return CompleteDelegate; }
	virtual void CancelRequest() override;
	virtual const FHttpResponsePtr GetResponse() const override { return Response; }
	virtual void Tick(float DeltaSeconds) override;
	virtual float GetElapsedTime() const override;

	/** Called by the manager, from its tick, when libcurl reports the transfer over. */
	void OnTransferDone(CURLcode Result);
	CURL* GetEasyHandle() const { return EasyHandle; }

private:
	bool CanBeChanged(const TCHAR* What) const;
	bool SetUpEasyHandle(FCurlHttpManager& Manager);
	void ReleaseEasyHandle();
	void FinishRequest();
	static size_t ReceiveHeaderLine(char* Data, size_t Size, size_t Count, void* Request);
	static size_t ReceiveBody(char* Data, size_t Size, size_t Count, void* Request);

	FString URL;
	FString Verb = TEXT("GET");
	FHttpHeaderList Headers;
	TArray<uint8> Payload;
	TOptional<float> Timeout;
	FHttpRequestCompleteDelegate CompleteDelegate;

	EHttpRequestStatus::Type Status = EHttpRequestStatus::NotStarted;
	EHttpFailureReason FailureReason = EHttpFailureReason::None;
	FHttpResponsePtr Response;
	double StartSeconds = 0.0;
	double ElapsedSeconds = 0.0;

	CURL* EasyHandle = nullptr;
	curl_slist* HeaderList = nullptr;
	// libcurl reads the body from here while the transfer runs, so it mustn't move meanwhile.
	std::string UploadBody;
	TArray<uint8> ReceivedBody;
	int64 MaxBodyBytes = 0;
	bool bBodyTooLarge = false;
	FHttpHeaderList ReceivedHeaders;
	char ErrorBuffer[CURL_ERROR_SIZE] = {};
	bool bTransferDone = false;
	bool bCanceled = false;
	CURLcode TransferResult = CURLE_OK;
};
