#include "API/HTTPAPI.h"

#include "Agent/Agent.h"
#include "Agent/FileUtils.h"
#include "Agent/TavrineInterface.h"
#include "HAL/PlatformTime.h"
#include "HttpModule.h"
#include "Misc/App.h"
#include "Misc/EngineVersion.h"
#include "Misc/Paths.h"
#include "Serialization/JsonReader.h"
#include "Serialization/JsonSerializer.h"
#include "Serialization/JsonWriter.h"
#include "TavrineSettings.h"
#include "UObject/Class.h"

FString ApiUrlOverride;
FString ApiKeyOverride;

namespace
{
	/** Production endpoint: gateway host, then the stage. A project's stage file may point elsewhere. */
	const TCHAR* const DefaultApiHost = TEXT("api.tavrine.ai/prod");

	/** Escapes text for a JSON string literal, as RFC 8259 asks: quotes, backslashes and control characters. */
	FString EscapeJsonString(const FString& Text)
	{
		FString Escaped;
		Escaped.Reserve(Text.Len() + 8);
		for (const TCHAR Character : Text)
		{
			switch (Character)
			{
			case TEXT('"'):
				Escaped += TEXT("\\\"");
				break;
			case TEXT('\\'):
				Escaped += TEXT("\\\\");
				break;
			case TEXT('\b'):
				Escaped += TEXT("\\b");
				break;
			case TEXT('\f'):
				Escaped += TEXT("\\f");
				break;
			case TEXT('\n'):
				Escaped += TEXT("\\n");
				break;
			case TEXT('\r'):
				Escaped += TEXT("\\r");
				break;
			case TEXT('\t'):
				Escaped += TEXT("\\t");
				break;
			default:
				if (Character < 0x20)
				{
					Escaped += FString::Printf(TEXT("\\u%04x"), static_cast<int32>(Character));
				}
				else
				{
					Escaped.AppendChar(Character);
				}
				break;
			}
		}
		return Escaped;
	}

	TSharedPtr<FJsonObject> ParseObject(const FString& Text)
	{
		TSharedPtr<FJsonObject> Object;
		const TSharedRef<TJsonReader<>> Reader = TJsonReaderFactory<>::Create(Text);
		if (!FJsonSerializer::Deserialize(Reader, Object))
		{
			return nullptr;
		}
		return Object;
	}

	const UTavrineSettings* GetTavrineSettings()
	{
		return GetDefault<UTavrineSettings>();
	}
}

FString GetApiHost()
{
	return ApiUrlOverride.IsEmpty() ? FString(DefaultApiHost) : ApiUrlOverride;
}

FString GetApiKey()
{
	if (!ApiKeyOverride.IsEmpty())
	{
		return ApiKeyOverride;
	}
	const UTavrineSettings* Settings = GetTavrineSettings();
	if (Settings && !Settings->ApiKey.IsEmpty())
	{
		return Settings->ApiKey;
	}
	return FString();
}

FString FHTTPAPI::MakeStatusUrl(const FString& InRequestId)
{
	// The identifier goes in as the backend gave it, unescaped.
	return FString::Printf(TEXT("https://%s/status?request_id=%s"), *GetApiHost(), *InRequestId);
}

FHTTPAPI& FHTTPAPI::Get()
{
	static FHTTPAPI Instance;
	return Instance;
}

FString FHTTPAPI::SerializeBody(const TSharedRef<FJsonObject>& Object)
{
	FString Body;
	const TSharedRef<TJsonWriter<>> Writer = TJsonWriterFactory<>::Create(&Body);
	FJsonSerializer::Serialize(Object, Writer);
	return Body;
}

FString FHTTPAPI::SerializeBody(const TArray<TSharedPtr<FJsonValue>>& Array)
{
	FString Body;
	const TSharedRef<TJsonWriter<>> Writer = TJsonWriterFactory<>::Create(&Body);
	FJsonSerializer::Serialize(Array, Writer);
	return Body;
}

FString FHTTPAPI::MakeInitialRequestBody(const FString& Message, const FString& ProjectTree, bool bConfirmationMode)
{
	const TSharedRef<FJsonObject> Object = MakeShared<FJsonObject>();
	Object->SetStringField(TEXT("message"), Message);
	// A tree that doesn't parse is left out rather than sent broken.
	if (!ProjectTree.IsEmpty())
	{
		const TSharedPtr<FJsonObject> Tree = ParseObject(ProjectTree);
		if (Tree.IsValid())
		{
			Object->SetObjectField(TEXT("file_structure"), Tree);
		}
	}
	Object->SetBoolField(TEXT("is_confirmation_mode"), bConfirmationMode);
	return SerializeBody(Object);
}

FString FHTTPAPI::MakeRegularRequestBody(const FString& Message, const TArray<TSharedPtr<FJsonValue>>& ToolResults)
{
	if (ToolResults.IsEmpty())
	{
		return FString::Printf(TEXT("{\"message\": \"%s\"}"), *EscapeJsonString(Message));
	}
	return FString::Printf(TEXT("{\"tool_results\": %s, \"message\": \"%s\"}"), *SerializeBody(ToolResults), *EscapeJsonString(Message));
}

FString FHTTPAPI::MakeTypeRequestBody(const FString& Type)
{
	return FString::Printf(TEXT("{\"type\": \"%s\"}"), *EscapeJsonString(Type));
}

FString FHTTPAPI::MakeEngineVersionHeader(const FString& VersionString)
{
	TArray<FString> Pieces;
	VersionString.ParseIntoArray(Pieces, TEXT("."), true);
	if (Pieces.Num() < 2)
	{
		return FString();
	}
	return Pieces[0] + TEXT(".") + Pieces[1];
}

FString FHTTPAPI::GetProjectTree()
{
	return FFileUtils::GetSubDirectoryStructureAsJsonObject(FPaths::ProjectDir());
}

void FHTTPAPI::InitialRequest(const FString& Message)
{
	RequestId.Empty();
	const UTavrineSettings* Settings = GetTavrineSettings();
	const bool bConfirmationMode = !Settings || Settings->Mode == ETavrineMode::ExplainerMode;
	Send(MakeInitialRequestBody(Message, GetProjectTree(), bConfirmationMode));
}

void FHTTPAPI::RegularRequest(const FString& Message)
{
	FAgent& Agent = FAgent::Get();
	const FString Body = MakeRegularRequestBody(Message, Agent.GetToolResults());
	Agent.ClearToolResults();
	Send(Body);
}

void FHTTPAPI::TypeRequest(const FString& Type)
{
	Send(MakeTypeRequestBody(Type));
}

void FHTTPAPI::Send(const FString& Body)
{
	PollInterval = InitialPollInterval;

	const FHttpRequestRef Request = FHttpModule::Get().CreateRequest();
	Request->SetVerb(TEXT("POST"));
	Request->SetURL(FString::Printf(TEXT("https://%s/command"), *GetApiHost()));
	Request->SetHeader(TEXT("Content-Type"), TEXT("application/json"));
	Request->SetHeader(TEXT("x-api-key"), GetApiKey());
	Request->SetHeader(TEXT("conversation-id"), FAgent::Get().GetConversationId());
	Request->SetHeader(TEXT("engine"), FApp::GetBranchName());

	const FString EngineVersion = MakeEngineVersionHeader(FEngineVersion::Current().ToString(EVersionComponent::Branch));
	// A malformed version is worth a report, not a lost request.
	if (ensureMsgf(!EngineVersion.IsEmpty(), TEXT("Error: Unreal Engine version string is invalid. Expected at least Major.Minor format.")))
	{
		Request->SetHeader(TEXT("engine-version"), EngineVersion);
	}

	Request->SetContentAsString(Body);
	Request->OnProcessRequestComplete().BindRaw(this, &FHTTPAPI::OnCommandComplete);
	Request->ProcessRequest();

	OnStatusMessage.ExecuteIfBound(TEXT("Sending request..."), FTavrineInterface::MessageColor, FTavrineInterface::ItalicFontName, FTavrineInterface::MessageFontSize);
}

void FHTTPAPI::OnCommandComplete(FHttpRequestPtr Request, FHttpResponsePtr Response, bool bWasSuccessful)
{
	if (!bWasSuccessful || !Response.IsValid())
	{
		OnRequestError.ExecuteIfBound(TEXT("Request Failed"));
		return;
	}
	const FString Content = Response->GetContentAsString();
	if (Content.IsEmpty())
	{
		OnRequestError.ExecuteIfBound(TEXT("Request Failed"));
		return;
	}

	const int32 ResponseCode = Response->GetResponseCode();
	if (ResponseCode == 401 || ResponseCode == 403)
	{
		OnRequestError.ExecuteIfBound(TEXT("Make sure you have a valid API key."));
		return;
	}

	// Other codes aren't judged: a document with a request id is an accepted request.
	const TSharedPtr<FJsonObject> Document = ParseObject(Content);
	if (!Document.IsValid())
	{
		OnRequestError.ExecuteIfBound(TEXT("Failed to parse initial response"));
		return;
	}

	FString NewRequestId;
	if (!Document->TryGetStringField(TEXT("request_id"), NewRequestId))
	{
		OnRequestError.ExecuteIfBound(TEXT("Failed to get request ID from response"));
		return;
	}

	RequestId = NewRequestId;
	bIsPolling = true;
	LastPollTime = FPlatformTime::Seconds();
	StartPolling();
	OnRequestAccepted.ExecuteIfBound();
}

void FHTTPAPI::StartPolling()
{
	if (PollTickerHandle.IsValid())
	{
		FTSTicker::GetCoreTicker().RemoveTicker(PollTickerHandle);
	}
	PollTickerHandle = FTSTicker::GetCoreTicker().AddTicker(FTickerDelegate::CreateRaw(this, &FHTTPAPI::Tick), TickerPeriod);
}

void FHTTPAPI::StopPolling()
{
	bIsPolling = false;
	if (PollTickerHandle.IsValid())
	{
		FTSTicker::GetCoreTicker().RemoveTicker(PollTickerHandle);
		PollTickerHandle.Reset();
	}
	PollInterval = InitialPollInterval;
}

bool FHTTPAPI::Tick(float DeltaTime)
{
	if (!bIsPolling)
	{
		return false;
	}

	const double Now = FPlatformTime::Seconds();
	if (Now - LastPollTime < PollInterval)
	{
		return true;
	}

	Poll(RequestId);
	LastPollTime = Now;
	PollInterval = FMath::Min(PollInterval * PollIntervalGrowth, MaxPollInterval);
	return true;
}

void FHTTPAPI::Poll(const FString& InRequestId)
{
	if (!bIsPolling)
	{
		return;
	}

	const FHttpRequestRef Request = FHttpModule::Get().CreateRequest();
	Request->SetVerb(TEXT("GET"));
	Request->SetURL(MakeStatusUrl(InRequestId));
	Request->SetHeader(TEXT("x-api-key"), GetApiKey());
	Request->SetHeader(TEXT("conversation-id"), FAgent::Get().GetConversationId());
	Request->OnProcessRequestComplete().BindRaw(this, &FHTTPAPI::OnStatusComplete);
	Request->ProcessRequest();

	OnPollSent.ExecuteIfBound();
}

void FHTTPAPI::OnStatusComplete(FHttpRequestPtr Request, FHttpResponsePtr Response, bool bWasSuccessful)
{
	// An answer that arrives after polling stopped belongs to a request nobody waits for.
	if (!bIsPolling)
	{
		return;
	}
	// Polls are not serialised: with a backend slower than the poll gap, an earlier request's final answer
	// can arrive after the next request is being polled, and would run that turn's tool calls again.
	if (Request.IsValid() && !Request->GetURL().Equals(MakeStatusUrl(RequestId), ESearchCase::CaseSensitive))
	{
		return;
	}
	// A failed or unreadable poll is only a missed look; the next tick asks again.
	if (!bWasSuccessful || !Response.IsValid())
	{
		return;
	}
	const TSharedPtr<FJsonObject> Document = ParseObject(Response->GetContentAsString());
	if (!Document.IsValid())
	{
		return;
	}
	FString Status;
	if (!Document->TryGetStringField(TEXT("status"), Status))
	{
		return;
	}

	OnStatusReceived.ExecuteIfBound(RequestId, Status, Document);

	if (Status.Equals(TEXT("COMPLETED"), ESearchCase::IgnoreCase))
	{
		StopPolling();
		const TSharedPtr<FJsonObject>* Answer = nullptr;
		if (Document->TryGetObjectField(TEXT("response"), Answer) && Answer)
		{
			OnResponse.ExecuteIfBound(*Answer);
		}
	}
	else if (Status.Equals(TEXT("FAILED"), ESearchCase::IgnoreCase))
	{
		StopPolling();
		FString Error;
		if (Document->TryGetStringField(TEXT("error"), Error))
		{
			OnRequestFailed.ExecuteIfBound(Error);
		}
	}
}
