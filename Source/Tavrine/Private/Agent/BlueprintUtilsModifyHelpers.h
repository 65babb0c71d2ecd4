// What the sections of a Blueprint modification share: reading entries that may be any JSON value, names
// that may be of any length, graphs found by name, and the sections' message lists.
#pragma once

#include "CoreMinimal.h"
#include "Dom/JsonObject.h"
#include "Dom/JsonValue.h"
#include "Templates/Function.h"

class UBlueprint;
class UEdGraph;

namespace TavrineBlueprintModify
{
	/** The element's object; null when the element is no JSON object, which ends only that element. */
	TSharedPtr<FJsonObject> AsObject(const TSharedPtr<FJsonValue>& Element);

	/**
	 * A name from the backend as an FName; false when it is empty or too long for one (the engine refuses
	 * such names outright), which callers treat as a name that nothing bears.
	 */
	bool ToName(const FString& Text, FName& OutName);

	/** The first graph whose object name equals Name without regard to case; null when none does. */
	UEdGraph* FindGraphByName(const TArray<TObjectPtr<UEdGraph>>& Graphs, const FString& Name);

	/**
	 * What every section does around its entries: refuses a null Blueprint ("Error" in the result), records
	 * the Blueprint in the open transaction, writes the section's messages under MessagesKey when there are
	 * any, and tells the editor of a structural change. ApplyEntries adds its messages and says whether
	 * anything changed; so does the section.
	 */
	bool ApplySection(UBlueprint* Blueprint, FJsonObject& Result, const TCHAR* MessagesKey, TFunctionRef<bool(TArray<FString>& Messages)> ApplyEntries);

	/** Whether a save document of SaveBlueprint reports success; the save there also tells the asset registry. */
	bool SaveSucceeded(const FString& SaveDocument);
}
