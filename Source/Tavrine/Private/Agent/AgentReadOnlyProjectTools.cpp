#include "Agent/Agent.h"

#include "Agent/BlueprintUtils.h"
#include "Agent/FindUtils.h"

namespace
{
	const TCHAR* const MissingFields = TEXT("Error: Missing required fields");
}

FString FAgent::HandleFindReferenceInAllFiles(const FString& Id, const TSharedPtr<FJsonObject>& Input)
{
	AddInfoMessage(TEXT("Finding Reference In All Files ..."));
	FString ReferenceString;
	if (!Input->TryGetStringField(TEXT("reference_string"), ReferenceString))
	{
		return MissingFields;
	}
	return FTavrineFindUtils::FindInAllFiles(ReferenceString);
}

FString FAgent::HandleReadBehaviorTree(const FString& Id, const TSharedPtr<FJsonObject>& Input)
{
	AddInfoMessage(TEXT("Reading Behavior Tree File ..."));
	FString BehaviorTreeName;
	if (!Input->TryGetStringField(TEXT("behavior_tree_name"), BehaviorTreeName))
	{
		return MissingFields;
	}
	return FTavrineBlueprintUtils::ReadBehaviorTree(BehaviorTreeName);
}
