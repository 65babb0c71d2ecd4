#include "Agent/Agent.h"

#include "API/HTTPAPI.h"
#include "Agent/CompilationManager.h"
#include "Agent/FileHistory.h"
#include "Agent/FileUtils.h"
#include "Agent/TavrineInterface.h"
#include "Misc/Guid.h"
#include "Misc/Paths.h"
#include "TavrineSettings.h"
#include "UObject/Class.h"

FAgent& FAgent::Get()
{
	static FAgent Instance;
	return Instance;
}

FString FAgent::MakeTransactionName(const FString& InConversationId)
{
	return FString::Printf(TEXT("Tavrine Transaction %s"), *InConversationId);
}

FAgent::FAgent()
{
	FHTTPAPI& Api = FHTTPAPI::Get();
	Api.OnStatusMessage.BindRaw(this, &FAgent::HandleStatusMessage);
	Api.OnRequestError.BindRaw(this, &FAgent::HandleRequestError);
	Api.OnRequestAccepted.BindRaw(this, &FAgent::HandleRequestAccepted);
	Api.OnResponse.BindRaw(this, &FAgent::HandleResponse);
	Api.OnRequestFailed.BindRaw(this, &FAgent::HandleRequestFailed);
	Api.OnPollSent.BindRaw(this, &FAgent::HandlePollSent);
	CompilationFinishedHandle = FCompilationManager::OnCompilationFinishedDelegate.AddRaw(this, &FAgent::OnCompilationFinished);
}

FAgent::~FAgent()
{
	FCompilationManager::OnCompilationFinishedDelegate.Remove(CompilationFinishedHandle);
	FHTTPAPI& Api = FHTTPAPI::Get();
	Api.OnStatusMessage.Unbind();
	Api.OnRequestError.Unbind();
	Api.OnRequestAccepted.Unbind();
	Api.OnResponse.Unbind();
	Api.OnRequestFailed.Unbind();
	Api.OnPollSent.Unbind();
}

void FAgent::SetState(EAgentState NewState, const FAgentStateData* Data)
{
	if (NewState == State)
	{
		return;
	}
	State = NewState;

	const FString Message = Data ? Data->Message : FString();
	switch (NewState)
	{
	case EAgentState::Indexing:
		EnterIndexing();
		break;
	case EAgentState::Idle:
		EnterIdle();
		break;
	case EAgentState::InitialRequest:
		EnterInitialRequest(Message);
		break;
	case EAgentState::RegularRequest:
		EnterRegularRequest(Message);
		break;
	case EAgentState::Continue:
		EnterContinue(Message);
		break;
	case EAgentState::AwaitingUpdate:
		EnterAwaitingUpdate();
		break;
	case EAgentState::Pause:
		EnterPause();
		break;
	case EAgentState::CancelRequest:
		EnterCancelRequest(Message);
		break;
	case EAgentState::EndRequest:
		EnterEndRequest(Message);
		break;
	default:
		// The other states only mark where the conversation stands.
		break;
	}

	if (OnStateChanged.IsBound())
	{
		OnStateChanged.Broadcast();
	}
}

void FAgent::SetPaused(bool bInPaused)
{
	bPaused = bInPaused;
	if (bInPaused)
	{
		AddInfoMessage(TEXT("Pausing request..."));
	}
}

void FAgent::Cancel(const FString& Reason)
{
	const FAgentStateData Data(Reason);
	SetState(EAgentState::CancelRequest, &Data);
}

void FAgent::End(const FString& Reason)
{
	const FAgentStateData Data(Reason);
	SetState(EAgentState::EndRequest, &Data);
}

void FAgent::EnterIndexing()
{
	// The tree is built in a later game-thread task; the agent is ready once it is done.
	FFileUtils::GetSubDirectoryStructureAsJsonObjectAsync(FPaths::ProjectDir(), TDelegate<void(const FString&)>::CreateLambda([](const FString& Tree)
	{
		FAgent::Get().SetState(EAgentState::Idle);
	}));
}

void FAgent::EnterIdle()
{
	SetPaused(false);
	SetConfirmed(false);
	ClearConversationId();
	FHTTPAPI::Get().StopPolling();
}

void FAgent::EnterInitialRequest(const FString& Message)
{
	AddUserMessage(FString::Printf(TEXT(" [ User Start ]\n\n%s\n"), *Message));
	ConversationId = FGuid::NewGuid().ToString(EGuidFormats::Digits);
	// The changes of this conversation are undone under its id, even after it has ended.
	UndoConversationId = ConversationId;
	ClearMessages();
	ClearToolResults();
	FFileHistory::Get().ClearAllHistory();
	FHTTPAPI::Get().InitialRequest(Message);
}

void FAgent::EnterRegularRequest(const FString& Message)
{
	AddUserMessage(FString::Printf(TEXT(" [ User ]\n\n%s\n"), *Message));
	FHTTPAPI::Get().RegularRequest(Message);
}

void FAgent::EnterContinue(const FString& Message)
{
	SetPaused(false);
	SetConfirmed(true);

	// The calls run from a copy, so a handler that changes the list can't disturb the loop; the list is
	// emptied once they have all run.
	const TArray<TSharedPtr<FJsonObject>> Waiting = PendingToolUses;

	if (Message.IsEmpty())
	{
		AddUserMessage(TEXT(" [ User ]\n\nThe process has been resumed.\n"));
		for (const TSharedPtr<FJsonObject>& Block : Waiting)
		{
			RunToolUse(Block);
		}
	}
	else
	{
		// New text from the user overrides the calls the backend asked for before it.
		AddUserMessage(FString::Printf(TEXT(" [ User ]\n\n%s\n"), *Message));
		for (const TSharedPtr<FJsonObject>& Block : Waiting)
		{
			AbortToolUse(Block);
		}
	}
	PendingToolUses.Empty();

	const TSharedRef<FJsonObject> Body = MakeShared<FJsonObject>();
	Body->SetStringField(TEXT("message"), Message);
	if (!ToolResults.IsEmpty())
	{
		Body->SetArrayField(TEXT("tool_results"), ToolResults);
	}
	Body->SetBoolField(TEXT("was_confirmed"), bConfirmed);
	FHTTPAPI::Get().Send(FHTTPAPI::SerializeBody(Body));
	ClearToolResults();
}

void FAgent::EnterAwaitingUpdate()
{
	SetPaused(false);
	SetConfirmed(false);
}

void FAgent::EnterPause()
{
	AddUserMessage(TEXT(" [ User ]\n\nThe process has been paused.\n"));
}

void FAgent::EnterCancelRequest(const FString& Reason)
{
	AddUserMessage(Reason.IsEmpty() ? FString(TEXT(" [ Cancelled ]")) : FString::Printf(TEXT(" [ Cancelled ]\n\n%s\n"), *Reason));
	SetState(EAgentState::Idle);
}

void FAgent::EnterEndRequest(const FString& Reason)
{
	AddUserMessage(Reason.IsEmpty() ? FString(TEXT(" [ User End ]")) : FString::Printf(TEXT(" [ User End ]\n\n%s"), *Reason));
	SetState(EAgentState::Idle);
}

void FAgent::HandleStatusMessage(const FString& Text, const FLinearColor& Color, const FName& FontName, float FontSize)
{
	FTavrineInterface::Get().OnAddStatusMessage(Text, Color, FontName, FontSize);
}

void FAgent::HandleRequestError(const FString& Text)
{
	Cancel(Text);
}

void FAgent::HandleRequestAccepted()
{
	SetState(EAgentState::PollRequest);
}

void FAgent::HandleRequestFailed(const FString& Text)
{
	Cancel(FString::Printf(TEXT("Request failed: %s"), *Text));
}

void FAgent::HandlePollSent()
{
	AddInfoMessage(bPaused ? TEXT("Pausing request...") : TEXT("Processing request..."));
}

void FAgent::HandleResponse(TSharedPtr<FJsonObject> Response)
{
	if (!Response.IsValid())
	{
		Cancel(TEXT("Failed to parse API response"));
		return;
	}

	SetState(EAgentState::PollResponse);
	LastResponse = Response;

	// An answer that doesn't grant it runs nothing unasked.
	bool bAutoContinue = false;
	Response->TryGetBoolField(TEXT("auto_continue"), bAutoContinue);
	SetConfirmed(bAutoContinue);

	const TArray<TSharedPtr<FJsonValue>>* Recorded = nullptr;
	if (Response->TryGetArrayField(TEXT("messages"), Recorded) && Recorded)
	{
		for (const TSharedPtr<FJsonValue>& Value : *Recorded)
		{
			const TSharedPtr<FJsonObject>* Object = nullptr;
			if (Value.IsValid() && Value->TryGetObject(Object) && Object && Object->IsValid())
			{
				AddMessage(MakeShared<FJsonValueObject>(*Object));
			}
		}
	}

	const TArray<TSharedPtr<FJsonValue>>* Blocks = nullptr;
	if (!Response->TryGetArrayField(TEXT("response"), Blocks) || !Blocks)
	{
		return;
	}

	const TSharedRef<FJsonObject> AssistantMessage = MakeShared<FJsonObject>();
	AssistantMessage->SetStringField(TEXT("role"), TEXT("assistant"));
	AssistantMessage->SetArrayField(TEXT("content"), *Blocks);
	AddMessage(MakeShared<FJsonValueObject>(AssistantMessage));

	for (const TSharedPtr<FJsonValue>& Value : *Blocks)
	{
		const TSharedPtr<FJsonObject>* BlockPtr = nullptr;
		if (!Value.IsValid() || !Value->TryGetObject(BlockPtr) || !BlockPtr || !BlockPtr->IsValid())
		{
			continue;
		}
		const TSharedPtr<FJsonObject> Block = *BlockPtr;

		FString Type;
		if (!Block->TryGetStringField(TEXT("type"), Type))
		{
			continue;
		}

		if (Type.Equals(TEXT("text"), ESearchCase::IgnoreCase))
		{
			FString Text;
			if (Block->TryGetStringField(TEXT("text"), Text))
			{
				AddAssistantMessage(FString::Printf(TEXT(" [ Tavrine ] \n\n%s\n"), *Text));
			}
		}
		if (Type.Equals(TEXT("tool_use"), ESearchCase::IgnoreCase))
		{
			// Read the flags afresh for each call: an earlier call of this answer may have changed them.
			if (!bPaused && (IsImplementerMode() || bConfirmed))
			{
				RunToolUse(Block);
			}
			else
			{
				PendingToolUses.Add(Block);
			}
		}
	}

	if (ToolResults.IsEmpty())
	{
		if (bPaused)
		{
			SetState(EAgentState::Pause);
		}
		else if (IsImplementerMode() || bConfirmed)
		{
			SetState(EAgentState::AwaitingUpdate);
		}
		else
		{
			SetState(EAgentState::AwaitingApproval);
		}
		return;
	}

	// The state moves on when the backend accepts the results.
	SendToolResults();
}

void FAgent::SendToolResults()
{
	const TSharedRef<FJsonObject> Body = MakeShared<FJsonObject>();
	Body->SetArrayField(TEXT("tool_results"), ToolResults);
	if (!IsImplementerMode())
	{
		Body->SetBoolField(TEXT("was_confirmed"), bConfirmed);
	}
	FHTTPAPI::Get().Send(FHTTPAPI::SerializeBody(Body));
	ClearToolResults();
}

bool FAgent::IsImplementerMode() const
{
	const UTavrineSettings* Settings = GetDefault<UTavrineSettings>();
	return Settings && Settings->Mode == ETavrineMode::ExplainerAndImplementerMode;
}

void FAgent::AddUserMessage(const FString& Text)
{
	FTavrineInterface::Get().OnAddStatusMessage(Text, FTavrineInterface::UserColor, FTavrineInterface::RegularFontName, FTavrineInterface::UserFontSize);
}

void FAgent::AddAssistantMessage(const FString& Text)
{
	FTavrineInterface::Get().OnAddStatusMessage(Text, FTavrineInterface::TavrineColor, FTavrineInterface::BoldFontName, FTavrineInterface::TavrineFontSize);
}

void FAgent::AddInfoMessage(const FString& Text)
{
	FTavrineInterface::Get().OnAddStatusMessage(Text, FTavrineInterface::MessageColor, FTavrineInterface::ItalicFontName, FTavrineInterface::MessageFontSize);
}
