#pragma once

#include "CoreMinimal.h"
#include "Misc/OutputDevice.h"

// Prints the chat as the plugin sends it: status messages in their speaker's colour, passing notices
// ("...") dimmed, file changes as unified diffs; and writes the prompt log where the chat window would.
class FConsoleChat
{
public:
	explicit FConsoleChat(bool bInColor);
	~FConsoleChat();
	FConsoleChat(const FConsoleChat&) = delete;
	FConsoleChat& operator=(const FConsoleChat&) = delete;

private:
	void PrintStatus(const FString& Text, const FLinearColor& Color, const FName& FontName, float FontSize);
	void PrintDiff(const FString& Path, const FString& OldText, const FString& NewText);

	bool bColor;
	FDelegateHandle StatusHandle;
	FDelegateHandle DiffHandle;
};

// Engine log lines to standard error: warnings and errors, or everything when verbose.
class FConsoleLogDevice : public FOutputDevice
{
public:
	explicit FConsoleLogDevice(bool bInVerbose)
		: bVerbose(bInVerbose)
	{
	}
	void Serialize(const TCHAR* Text, ELogVerbosity::Type Verbosity, const FName& Category) override;

private:
	bool bVerbose;
};
