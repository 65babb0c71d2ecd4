#pragma once

#include "CoreMinimal.h"
#include "HttpHeaderList.h"
#include "Interfaces/IHttpResponse.h"

/** A finished exchange: made once the transfer is over, never changed afterwards. */
class FCurlHttpResponse : public IHttpResponse
{
public:
	FCurlHttpResponse(const FString& InURL, int32 InResponseCode, FHttpHeaderList&& InHeaders, TArray<uint8>&& InContent);

	virtual FString GetURL() const override { return URL; }
	virtual const FString& GetEffectiveURL() const override { return URL; }
	virtual FString GetURLParameter(const FString& ParameterName) const override;
	virtual FString GetHeader(const FString& HeaderName) const override { return Headers.Find(HeaderName); }
	virtual TArray<FString> GetAllHeaders() const override { return Headers.ToStrings(); }
	virtual FString GetContentType() const override { return Headers.Find(TEXT("Content-Type")); }
	virtual uint64 GetContentLength() const override { return static_cast<uint64>(Content.Num()); }
	virtual const TArray<uint8>& GetContent() const override { return Content; }
	virtual EHttpRequestStatus::Type GetStatus() const override { return EHttpRequestStatus::Succeeded; }
	virtual EHttpFailureReason GetFailureReason() const override { return EHttpFailureReason::None; }

	virtual int32 GetResponseCode() const override { return ResponseCode; }
	virtual FString GetContentAsString() const override;

private:
	FString URL;
	int32 ResponseCode = 0;
	FHttpHeaderList Headers;
	TArray<uint8> Content;
};
