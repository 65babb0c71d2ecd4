#include "HostCommands.h"

#include "HostAgentStatus.h"

#include "Agent/Agent.h"
#include "Agent/TavrineInterface.h"

#include <cstdio>

FHostCommands::FHostCommands()
{
	FTavrineInterface& Interface = FTavrineInterface::Get();
	Add("/continue", "[TEXT]", "go on: without text resume or run the waiting tool calls, with text answer instead", [&Interface](const FString& Text) { Interface.Continue(Text); });
	Add("/approve", "", "approve the waiting tool calls (they run with /continue)", [&Interface](const FString&) { Interface.Approve(); });
	Add("/pause", "", "pause the running request", [&Interface](const FString&) { Interface.PauseRequest(); });
	Add("/cancel", "[REASON]", "cancel the conversation", [&Interface](const FString& Reason) { Interface.CancelRequest(Reason); });
	Add("/end", "[REASON]", "end the conversation", [&Interface](const FString& Reason) { Interface.EndRequest(Reason); });
	Add("/undo", "", "take back every change of the last conversation", [&Interface](const FString&) { Interface.UndoLastOperation(); });
	Add("/redo", "", "put back what the last undo took back", [&Interface](const FString&) { Interface.RedoLastOperation(); });
	Add("/state", "", "print the agent's state and what is possible in it", [](const FString&) { std::printf("%s\n", HostAgentStatus::DescribeState().c_str()); });
	Add("/help", "", "print this list", [this](const FString&) { std::fputs(GetHelp().c_str(), stdout); });
	Commands.push_back({ "/quit", "", "leave the host (/exit too)", [](const FString&) { return false; } });
	Commands.push_back({ "/exit", "", "", [](const FString&) { return false; } });
}

void FHostCommands::Add(const char* Name, const char* Arguments, const char* Help, std::function<void(const FString&)> Run)
{
	Commands.push_back({ Name, Arguments, Help, [Run = MoveTemp(Run)](const FString& Argument) { Run(Argument); return true; } });
}

bool FHostCommands::HandleLine(const std::string& Line)
{
	if (Line.empty() || Line[0] != '/')
	{
		SendTypedMessage(UTF8_TO_TCHAR(Line.c_str()));
		return true;
	}
	const size_t Blank = Line.find(' ');
	const std::string Name = Line.substr(0, Blank);
	FString Argument = Blank == std::string::npos ? FString() : FString(UTF8_TO_TCHAR(Line.substr(Blank + 1).c_str()));
	Argument.TrimStartAndEndInline();
	for (const FCommand& Command : Commands)
	{
		if (Command.Name == Name)
		{
			return Command.Run(Argument);
		}
	}
	std::printf("Unknown command %s.\n%s", Name.c_str(), GetHelp().c_str());
	return true;
}

void FHostCommands::SendTypedMessage(const FString& Text)
{
	// The chat window's Enter key: a first message in Idle; otherwise Continue, which takes text in
	// Pause, AwaitingUpdate and AwaitingApproval, and an empty line in Pause alone.
	FTavrineInterface& Interface = FTavrineInterface::Get();
	const EAgentState State = FAgent::Get().GetState();
	const bool bCanContinue = State == EAgentState::Pause || (!Text.IsEmpty() && (State == EAgentState::AwaitingUpdate || State == EAgentState::AwaitingApproval));
	if (State == EAgentState::Idle)
	{
		if (!Text.IsEmpty())
		{
			Interface.InitialRequest(Text);
		}
	}
	else if (bCanContinue)
	{
		Interface.Continue(Text);
	}
	else if (!Text.IsEmpty())
	{
		std::printf("The agent is busy (%s): /pause or /cancel stops it.\n", HostAgentStatus::GetStateName(State));
	}
}

std::string FHostCommands::GetHelp() const
{
	std::string Help = "Plain text sends a message. Commands:\n";
	for (const FCommand& Command : Commands)
	{
		if (Command.Help.empty())
		{
			continue;
		}
		const std::string Usage = Command.Arguments.empty() ? Command.Name : Command.Name + " " + Command.Arguments;
		Help += "  " + Usage + std::string(Usage.size() < 20 ? 20 - Usage.size() : 1, ' ') + Command.Help + "\n";
	}
	return Help;
}
