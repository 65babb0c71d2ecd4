#pragma once

#include "CoreMinimal.h"

#include <functional>
#include <string>
#include <vector>

// What a line typed at the host's terminal does. Plain text goes to the agent as the chat window's Enter
// key sends it; a line that starts with "/" names a command of the table.
class FHostCommands
{
public:
	FHostCommands();

	/** Runs one typed line; false when it asks the host to quit. */
	bool HandleLine(const std::string& Line);

	/** One line per command with its arguments and what it does. */
	std::string GetHelp() const;

private:
	struct FCommand
	{
		std::string Name;
		std::string Arguments;
		std::string Help;
		/** Gets the argument with its outer blanks trimmed; false to quit. */
		std::function<bool(const FString&)> Run;
	};

	void Add(const char* Name, const char* Arguments, const char* Help, std::function<void(const FString&)> Run);
	void SendTypedMessage(const FString& Text);

	std::vector<FCommand> Commands;
};
