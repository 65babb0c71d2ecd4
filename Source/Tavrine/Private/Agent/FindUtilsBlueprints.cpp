#include "Agent/FindUtils.h"

#include "Dom/JsonObject.h"
#include "Dom/JsonValue.h"

// Blueprint assets arrive with the Blueprint model; until then the search finds none.
void FTavrineFindUtils::FindInAllBlueprintFiles(const FString& ReferenceString, TSharedPtr<FJsonObject>& Result)
{
	Result->SetArrayField(TEXT("blueprint_references"), TArray<TSharedPtr<FJsonValue>>());
}

void FTavrineFindUtils::FindInBlueprint(UBlueprint* Blueprint, const FString& ReferenceString, TArray<TSharedPtr<FJsonValue>>& OutReferences)
{
}
