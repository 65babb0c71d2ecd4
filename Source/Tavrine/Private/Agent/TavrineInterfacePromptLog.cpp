// Placeholder until the prompt log lands: the chat logs through these, and they write nothing yet.
#include "Agent/TavrineInterface.h"

FString FTavrineInterface::GetPromptLogFilePath() const
{
	return FString();
}

void FTavrineInterface::TavrineInterfaceLogString(const FString& Text, const FString& FilePath, bool bWithTimestamp)
{
}
