// Brings the agent back to Idle with no conversation, whatever an earlier case left behind.
#pragma once

#include "Agent/Agent.h"

inline void ResetAgentConversation()
{
	FAgent& Agent = FAgent::Get();
	Agent.Cancel(FString());
	// Only Continue settles calls that were left waiting.
	if (!Agent.GetPendingToolUses().IsEmpty())
	{
		const FAgentStateData Data(TEXT("reset"));
		Agent.SetState(EAgentState::Continue, &Data);
		Agent.Cancel(FString());
	}
	Agent.ClearMessages();
	Agent.ClearToolResults();
}
