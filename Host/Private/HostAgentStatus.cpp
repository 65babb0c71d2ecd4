#include "HostAgentStatus.h"

#include "Agent/TavrineInterface.h"
#include "HttpManager.h"
#include "HttpModule.h"

namespace HostAgentStatus
{
	const char* GetStateName(EAgentState State)
	{
		switch (State)
		{
		case EAgentState::None: return "None";
		case EAgentState::Indexing: return "Indexing";
		case EAgentState::Idle: return "Idle";
		case EAgentState::InitialRequest: return "InitialRequest";
		case EAgentState::RegularRequest: return "RegularRequest";
		case EAgentState::PollRequest: return "PollRequest";
		case EAgentState::PollResponse: return "PollResponse";
		case EAgentState::AwaitingApproval: return "AwaitingApproval";
		case EAgentState::Approved: return "Approved";
		case EAgentState::Continue: return "Continue";
		case EAgentState::AwaitingUpdate: return "AwaitingUpdate";
		case EAgentState::Pause: return "Pause";
		case EAgentState::CancelRequest: return "CancelRequest";
		case EAgentState::EndRequest: return "EndRequest";
		}
		return "Unknown";
	}

	namespace
	{
		bool IsWaitingForUser(EAgentState State)
		{
			return State == EAgentState::Idle || State == EAgentState::AwaitingUpdate || State == EAgentState::AwaitingApproval || State == EAgentState::Pause;
		}

		const char* YesNo(bool bValue)
		{
			return bValue ? "yes" : "no";
		}
	}

	bool IsSettled()
	{
		// After `finish` the agent already waits while its last result is still being posted.
		return IsWaitingForUser(FAgent::Get().GetState()) && FHttpModule::Get().GetHttpManager().GetNumActiveRequests() == 0;
	}

	bool CanPause()
	{
		return !FAgent::Get().IsPaused() && !IsWaitingForUser(FAgent::Get().GetState());
	}

	std::string DescribeState()
	{
		const FTavrineInterface& Interface = FTavrineInterface::Get();
		return std::string("State: ") + GetStateName(FAgent::Get().GetState()) + ". Pause possible: " + YesNo(CanPause()) + ". Undo possible: " + YesNo(Interface.CanUndo()) + ". Redo possible: " + YesNo(Interface.CanRedo()) + ".";
	}

	int32 CountWaitingCalls()
	{
		const EAgentState State = FAgent::Get().GetState();
		if (State != EAgentState::AwaitingApproval && State != EAgentState::Approved)
		{
			return 0;
		}
		return FAgent::Get().GetPendingToolUses().Num();
	}

	std::string DescribeWaitingCalls(int32 Count, bool bInteractive)
	{
		const std::string What = Count == 1 ? "1 tool call waits" : std::to_string(Count) + " tool calls wait";
		if (bInteractive)
		{
			return What + " for your approval: /continue runs them, /continue TEXT answers instead and skips them.";
		}
		return What + " for your approval, and the run ends here: add --interactive to stay in the session and type /continue to run them.";
	}
}
