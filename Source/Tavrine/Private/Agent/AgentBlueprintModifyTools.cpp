#include "Agent/Agent.h"

#include "Agent/BlueprintUtils.h"

FString FAgent::HandleModifyBlueprintVariables(const FString& Id, const TSharedPtr<FJsonObject>& Input)
{
	AddInfoMessage(TEXT("Modifying Blueprint File ..."));
	FString BlueprintName;
	if (!Input->TryGetStringField(TEXT("blueprint_name"), BlueprintName))
	{
		return TEXT("Error: Missing required fields - blueprint_name");
	}
	// The modification document comes as JSON text inside the tool's input.
	FString Updates;
	if (!Input->TryGetStringField(TEXT("updates"), Updates))
	{
		return TEXT("Error: Missing required fields: updates");
	}
	return FTavrineBlueprintUtils::ModifyBlueprint(BlueprintName, Updates);
}
