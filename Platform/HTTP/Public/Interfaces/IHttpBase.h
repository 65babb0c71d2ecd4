#pragma once

#include "CoreMinimal.h"

namespace EHttpRequestStatus
{
	enum Type
	{
		NotStarted,
		Processing,
		Failed,
		Succeeded
	};

	inline const TCHAR* ToString(const EHttpRequestStatus::Type Value)
	{
		switch (Value)
		{
		case NotStarted: return TEXT("NotStarted");
		case Processing: return TEXT("Processing");
		case Failed: return TEXT("Failed");
		case Succeeded: return TEXT("Succeeded");
		}
		return TEXT("Unknown");
	}

	inline bool IsFinished(const EHttpRequestStatus::Type Value)
	{
		return Value == Failed || Value == Succeeded;
	}
}

enum class EHttpFailureReason : uint8
{
	None = 0,
	ConnectionError,
	Cancelled,
	TimedOut,
	Other
};

inline const TCHAR* LexToString(EHttpFailureReason Reason)
{
	switch (Reason)
	{
	case EHttpFailureReason::None: return TEXT("None");
	case EHttpFailureReason::ConnectionError: return TEXT("ConnectionError");
	case EHttpFailureReason::Cancelled: return TEXT("Cancelled");
	case EHttpFailureReason::TimedOut: return TEXT("TimedOut");
	case EHttpFailureReason::Other: return TEXT("Other");
	}
	return TEXT("Unknown");
}

/** Base interface for Http requests and responses. */
class IHttpBase
{
public:
	virtual ~IHttpBase() = default;

	virtual FString GetURL() const = 0;
	/** The URL after redirects; this implementation doesn't follow redirects, so it equals GetURL. */
	virtual const FString& GetEffectiveURL() const = 0;
	virtual FString GetURLParameter(const FString& ParameterName) const = 0;
	/** The value of a header, or an empty string if not found. Names compare without regard to case. */
	virtual FString GetHeader(const FString& HeaderName) const = 0;
	/** All headers as "Name: Value", in the order they were set or received. */
	virtual TArray<FString> GetAllHeaders() const = 0;
	virtual FString GetContentType() const = 0;
	virtual uint64 GetContentLength() const = 0;
	virtual const TArray<uint8>& GetContent() const = 0;
	virtual EHttpRequestStatus::Type GetStatus() const = 0;
	virtual EHttpFailureReason GetFailureReason() const = 0;
};
