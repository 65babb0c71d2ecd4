#include "TerminalInput.h"

#include <iostream>
#include <thread>

FTerminalInput::FTerminalInput()
	: Shared(std::make_shared<FShared>())
{
	std::thread([Shared = Shared]()
	{
		std::string Line;
		while (std::getline(std::cin, Line))
		{
			std::lock_guard<std::mutex> Lock(Shared->Mutex);
			Shared->Lines.push_back(Line);
		}
		std::lock_guard<std::mutex> Lock(Shared->Mutex);
		Shared->bEnded = true;
	}).detach();
}

std::optional<std::string> FTerminalInput::PopLine()
{
	std::lock_guard<std::mutex> Lock(Shared->Mutex);
	if (Shared->Lines.empty())
	{
		return std::nullopt;
	}
	std::string Line = std::move(Shared->Lines.front());
	Shared->Lines.pop_front();
	return Line;
}

bool FTerminalInput::IsFinished()
{
	std::lock_guard<std::mutex> Lock(Shared->Mutex);
	return Shared->bEnded && Shared->Lines.empty();
}
