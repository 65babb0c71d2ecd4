#include "Curl/CurlHttpResponse.h"

#include "HttpStringConv.h"
#include "HttpUrl.h"

FCurlHttpResponse::FCurlHttpResponse(const FString& InURL, int32 InResponseCode, FHttpHeaderList&& InHeaders, TArray<uint8>&& InContent)
	: URL(InURL)
	, ResponseCode(InResponseCode)
	, Headers(MoveTemp(InHeaders))
	, Content(MoveTemp(InContent))
{
}

FString FCurlHttpResponse::GetURLParameter(const FString& ParameterName) const
{
	return HttpUrl::GetParameter(URL, ParameterName);
}

FString FCurlHttpResponse::GetContentAsString() const
{
	return HttpStringConv::FromUtf8(reinterpret_cast<const char*>(Content.GetData()), static_cast<size_t>(Content.Num()));
}
