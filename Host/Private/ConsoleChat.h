#pragma once

#include "CoreMinimal.h"
#include "Misc/OutputDevice.h"

#include <mutex>
#include <string>

// Engine log lines to standard error: warnings and errors, or everything when verbose. A transfer's
// failure is held back for the chat, which shows it beneath the "Request Failed" it caused.
class FConsoleLogDevice : public FOutputDevice
{
public:
	explicit FConsoleLogDevice(bool bInVerbose)
		: bVerbose(bInVerbose)
	{
	}
	void Serialize(const TCHAR* Text, ELogVerbosity::Type Verbosity, const FName& Category) override;

	/** The last transfer failure not yet shown, and forgets it; empty when there is none. */
	std::string TakeTransportFailure();

private:
	bool bVerbose;
	std::mutex Mutex;
	std::string TransportFailure;
};

// Prints the chat as the plugin sends it: status messages in their speaker's colour, passing notices
// ("...") dimmed, file changes as unified diffs; and writes the prompt log where the chat window would.
class FConsoleChat
{
public:
	FConsoleChat(bool bInColor, FConsoleLogDevice& InLog);
	~FConsoleChat();
	FConsoleChat(const FConsoleChat&) = delete;
	FConsoleChat& operator=(const FConsoleChat&) = delete;

private:
	void PrintStatus(const FString& Text, const FLinearColor& Color, const FName& FontName, float FontSize);
	void PrintDiff(const FString& Path, const FString& OldText, const FString& NewText);

	bool bColor;
	FConsoleLogDevice& Log;
	FDelegateHandle StatusHandle;
	FDelegateHandle DiffHandle;
};
