#include "HttpUrl.h"

#include "PlatformHttp.h"

FString HttpUrl::GetParameter(const FString& URL, const FString& ParameterName)
{
	FString Query;
	if (!URL.Split(TEXT("?"), nullptr, &Query))
	{
		return FString();
	}
	FString WithoutFragment;
	if (Query.Split(TEXT("#"), &WithoutFragment, nullptr))
	{
		Query = WithoutFragment;
	}
	TArray<FString> Pairs;
	Query.ParseIntoArray(Pairs, TEXT("&"), true);
	for (const FString& Pair : Pairs)
	{
		FString Name = Pair;
		FString Value;
		Pair.Split(TEXT("="), &Name, &Value);
		if (FPlatformHttp::UrlDecode(Name).Equals(ParameterName, ESearchCase::CaseSensitive))
		{
			return FPlatformHttp::UrlDecode(Value);
		}
	}
	return FString();
}
