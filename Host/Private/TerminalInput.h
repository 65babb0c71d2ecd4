#pragma once

#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

// Reads lines from standard input on a thread of its own, so the engine loop never waits for the user.
class FTerminalInput
{
public:
	FTerminalInput();

	// The next typed line, if one is waiting.
	std::optional<std::string> PopLine();
	// True once standard input has ended and every line was taken.
	bool IsFinished();

private:
	// Shared with the reader thread, which may outlive this object while it waits in a read.
	struct FShared
	{
		std::mutex Mutex;
		std::deque<std::string> Lines;
		bool bEnded = false;
	};
	std::shared_ptr<FShared> Shared;
};
