#pragma once

#include "Agent/Agent.h"

#include <string>

// What the host tells the user about the agent: the state by name, what can be done in it, and the
// tool calls that wait for a decision.
namespace HostAgentStatus
{
	const char* GetStateName(EAgentState State);

	/** A turn is over: the agent waits for the user, or is back in Idle, and nothing is on the wire. */
	bool IsSettled();

	/** The chat window's rule for its Pause button: a request runs and no pause was asked for yet. */
	bool CanPause();

	/** The answer of /state, e.g. "State: Idle. Pause possible: no. Undo possible: yes. Redo possible: no." */
	std::string DescribeState();

	/** Tool calls of the last answer that wait for approval; 0 outside AwaitingApproval and Approved. */
	int32 CountWaitingCalls();

	/** How to go on with the waiting calls, for a terminal session or for a --prompt run that ends. */
	std::string DescribeWaitingCalls(int32 Count, bool bInteractive);
}
