#include "Agent/TavrineInterface.h"

#include "Agent/Agent.h"

const FLinearColor FTavrineInterface::UserColor(66.0f / 255.0f, 133.0f / 255.0f, 244.0f / 255.0f, 1.0f);
const FLinearColor FTavrineInterface::TavrineColor(249.0f / 255.0f, 156.0f / 255.0f, 57.0f / 255.0f, 1.0f);
const FLinearColor FTavrineInterface::MessageColor(1.0f, 1.0f, 1.0f, 0.0f);
const FName FTavrineInterface::RegularFontName(TEXT("Regular"));
const FName FTavrineInterface::BoldFontName(TEXT("Bold"));
const FName FTavrineInterface::ItalicFontName(TEXT("Italic"));

FTavrineInterface& FTavrineInterface::Get()
{
	static FTavrineInterface Instance;
	return Instance;
}

void FTavrineInterface::Initialize()
{
	if (bInitialized)
	{
		return;
	}
	bInitialized = true;
	bPluginEnabled = true;
	OnInitialized.Broadcast();
}

void FTavrineInterface::Shutdown()
{
	if (!bInitialized)
	{
		return;
	}
	if (bPluginEnabled)
	{
		bPluginEnabled = false;
		OnPluginEnabledChanged.Broadcast(false);
	}
	FAgent::Get().Cancel(FString());
	bInitialized = false;
}

FString FTavrineInterface::GetVersion() const
{
	return TEXT("1.0.0");
}

void FTavrineInterface::InitialRequest(const FString& Text)
{
	FAgent& Agent = FAgent::Get();
	if (Agent.GetState() == EAgentState::Idle)
	{
		const FAgentStateData Data(Text);
		Agent.SetState(EAgentState::InitialRequest, &Data);
	}
}

void FTavrineInterface::RegularRequest(const FString& Text)
{
	FAgent& Agent = FAgent::Get();
	if (Agent.GetState() == EAgentState::AwaitingUpdate)
	{
		const FAgentStateData Data(Text);
		Agent.SetState(EAgentState::RegularRequest, &Data);
	}
}

void FTavrineInterface::Continue(FString Text)
{
	const FAgentStateData Data(Text);
	FAgent::Get().SetState(EAgentState::Continue, &Data);
}

void FTavrineInterface::Approve()
{
	FAgent& Agent = FAgent::Get();
	if (Agent.GetState() == EAgentState::AwaitingApproval)
	{
		Agent.SetState(EAgentState::Approved);
	}
}

void FTavrineInterface::PauseRequest()
{
	FAgent::Get().SetPaused(true);
}

void FTavrineInterface::CancelRequest(const FString& Reason)
{
	FAgent::Get().Cancel(Reason);
}

void FTavrineInterface::EndRequest(const FString& Reason)
{
	FAgent::Get().End(Reason);
}

void FTavrineInterface::OnAddStatusMessage(const FString& Text, const FLinearColor& Color, const FName& FontName, float FontSize)
{
	// With the chat closed there is nobody to show the line to; it is dropped.
	if (OnAddStatusMessageDelegate.IsBound())
	{
		OnAddStatusMessageDelegate.Broadcast(Text, Color, FontName, FontSize);
	}
}

void FTavrineInterface::OnAddDiffMessage(const FString& FilePath, const FString& OldText, const FString& NewText)
{
	if (OnAddDiffMessageDelegate.IsBound())
	{
		OnAddDiffMessageDelegate.Broadcast(FilePath, OldText, NewText);
	}
}
