#pragma once

#include "CoreMinimal.h"
#include "Containers/Ticker.h"
#include "Dom/JsonObject.h"
#include "Dom/JsonValue.h"
#include "Interfaces/IHttpRequest.h"
#include "Interfaces/IHttpResponse.h"

DECLARE_DELEGATE_FourParams(FOnApiStatusMessage, const FString& /*Text*/, const FLinearColor& /*Color*/, const FName& /*FontName*/, float /*FontSize*/);
DECLARE_DELEGATE_OneParam(FOnApiRequestError, const FString& /*Text*/);
DECLARE_DELEGATE(FOnApiRequestAccepted);
DECLARE_DELEGATE_OneParam(FOnApiResponse, TSharedPtr<FJsonObject> /*Response*/);
DECLARE_DELEGATE_OneParam(FOnApiRequestFailed, const FString& /*Error*/);
DECLARE_DELEGATE(FOnApiPollSent);
DECLARE_DELEGATE_ThreeParams(FOnApiStatusReceived, const FString& /*RequestId*/, const FString& /*Status*/, TSharedPtr<FJsonObject> /*Document*/);

/** Host and path of the backend from the project's stage file, set at module start; empty when unset. */
extern FString ApiUrlOverride;
/** Backend key from the project's stage file, set at module start; empty when unset. */
extern FString ApiKeyOverride;

/** The backend's host and path, without scheme. */
FString GetApiHost();
/** The key for the "x-api-key" header; may be empty. */
FString GetApiKey();

/**
 * Client of the backend: posts commands, polls their status on the core ticker and reports the
 * outcome through its delegates, which the agent binds.
 */
class FHTTPAPI
{
public:
	static constexpr float InitialPollInterval = 2.0f;
	static constexpr float PollIntervalGrowth = 1.5f;
	static constexpr float MaxPollInterval = 10.0f;
	static constexpr float TickerPeriod = 0.1f;

	static FHTTPAPI& Get();

	FHTTPAPI(const FHTTPAPI&) = delete;
	FHTTPAPI& operator=(const FHTTPAPI&) = delete;

	FOnApiStatusMessage OnStatusMessage;
	FOnApiRequestError OnRequestError;
	FOnApiRequestAccepted OnRequestAccepted;
	FOnApiResponse OnResponse;
	FOnApiRequestFailed OnRequestFailed;
	FOnApiPollSent OnPollSent;
	FOnApiStatusReceived OnStatusReceived;

	void InitialRequest(const FString& Message);
	/** Sends the user's next message, with the tool results not yet sent, which are then cleared. */
	void RegularRequest(const FString& Message);
	void TypeRequest(const FString& Type);
	/** The one POST of the client; every body goes out through here. */
	void Send(const FString& Body);

	void StartPolling();
	void StopPolling();
	void Poll(const FString& InRequestId);
	bool Tick(float DeltaTime);

	void OnCommandComplete(FHttpRequestPtr Request, FHttpResponsePtr Response, bool bWasSuccessful);
	void OnStatusComplete(FHttpRequestPtr Request, FHttpResponsePtr Response, bool bWasSuccessful);

	const FString& GetRequestId() const { return RequestId; }
	bool IsPolling() const { return bIsPolling; }
	float GetPollInterval() const { return PollInterval; }

	/** Writes a body in the pretty form that every request uses. */
	static FString SerializeBody(const TSharedRef<FJsonObject>& Object);
	static FString SerializeBody(const TArray<TSharedPtr<FJsonValue>>& Array);

	/** Body of the first request of a conversation; ProjectTree is JSON text and may be empty. */
	static FString MakeInitialRequestBody(const FString& Message, const FString& ProjectTree, bool bConfirmationMode);
	/** Body of a later user message; ToolResults go first when there are any. */
	static FString MakeRegularRequestBody(const FString& Message, const TArray<TSharedPtr<FJsonValue>>& ToolResults);
	static FString MakeTypeRequestBody(const FString& Type);

	/** Where the status of a request is polled. */
	static FString MakeStatusUrl(const FString& InRequestId);

	/** The "engine-version" header's value, major and minor; empty when the version string has no minor part. */
	static FString MakeEngineVersionHeader(const FString& VersionString);

private:
	FHTTPAPI() = default;

	/** The project's file tree as JSON text, or empty when there is none to send. */
	static FString GetProjectTree();

	FString RequestId;
	bool bIsPolling = false;
	FTSTicker::FDelegateHandle PollTickerHandle;
	float PollInterval = InitialPollInterval;
	double LastPollTime = 0.0;
};
