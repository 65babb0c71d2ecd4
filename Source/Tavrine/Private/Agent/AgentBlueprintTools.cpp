#include "Agent/Agent.h"

#include "Agent/BlueprintUtils.h"

FString FAgent::HandleCreateBlueprint(const FString& Id, const TSharedPtr<FJsonObject>& Input)
{
	AddInfoMessage(TEXT("Creating Blueprint File ..."));
	FString Path;
	FString Name;
	FString ParentClassName;
	if (!Input->TryGetStringField(TEXT("BPPath"), Path) || !Input->TryGetStringField(TEXT("BPName"), Name) || !Input->TryGetStringField(TEXT("BPParentClassName"), ParentClassName))
	{
		return TEXT("Error: Missing required fields");
	}
	return FTavrineBlueprintUtils::CreateBlueprintAsset(Path, Name, ParentClassName);
}

FString FAgent::HandleReadBlueprint(const FString& Id, const TSharedPtr<FJsonObject>& Input)
{
	AddInfoMessage(TEXT("Reading Blueprint Asset ..."));
	FString BlueprintName;
	if (!Input->TryGetStringField(TEXT("blueprint_name"), BlueprintName))
	{
		return TEXT("Error: Missing required fields: blueprint_name");
	}
	FString DataSubset;
	if (!Input->TryGetStringField(TEXT("data_subset"), DataSubset))
	{
		return TEXT("Error: Missing required fields: data_subset");
	}
	return FTavrineBlueprintUtils::ReadBlueprint(BlueprintName, DataSubset);
}

FString FAgent::HandleSaveAndCompileAllDirtyBlueprints(const FString& Id, const TSharedPtr<FJsonObject>& Input)
{
	AddInfoMessage(TEXT("Saving and compiling all dirty blueprints ..."));
	return FTavrineBlueprintUtils::SaveAndCompileAllDirtyBlueprints();
}
