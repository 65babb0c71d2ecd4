// An answer handed straight to the plugin's completion handlers, in the backend's place.
#pragma once

#include "CoreMinimal.h"
#include "Interfaces/IHttpResponse.h"

class FFakeHttpResponse : public IHttpResponse
{
public:
	FFakeHttpResponse(int32 InCode, const FString& InContent)
		: Code(InCode)
		, Content(InContent)
	{
	}

	virtual FString GetURL() const override { return FString(); }
	virtual const FString& GetEffectiveURL() const override { return Content; }
	virtual FString GetURLParameter(const FString& Name) const override { return FString(); }
	virtual FString GetHeader(const FString& Name) const override { return FString(); }
	virtual TArray<FString> GetAllHeaders() const override { return {}; }
	virtual FString GetContentType() const override { return TEXT("application/json"); }
	virtual uint64 GetContentLength() const override { return 0; }
	virtual const TArray<uint8>& GetContent() const override { return Bytes; }
	virtual EHttpRequestStatus::Type GetStatus() const override { return EHttpRequestStatus::Succeeded; }
	virtual EHttpFailureReason GetFailureReason() const override { return EHttpFailureReason::None; }
	virtual int32 GetResponseCode() const override { return Code; }
	virtual FString GetContentAsString() const override { return Content; }

private:
	int32 Code;
	FString Content;
	TArray<uint8> Bytes;
};
