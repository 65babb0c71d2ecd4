#include "Agent/Agent.h"

#include "Agent/FindUtils.h"

FString FAgent::HandleFindReferenceInAllFiles(const FString& Id, const TSharedPtr<FJsonObject>& Input)
{
	AddInfoMessage(TEXT("Finding Reference In All Files ..."));
	FString ReferenceString;
	if (!Input->TryGetStringField(TEXT("reference_string"), ReferenceString))
	{
		return TEXT("Error: Missing required fields");
	}
	return FTavrineFindUtils::FindInAllFiles(ReferenceString);
}
