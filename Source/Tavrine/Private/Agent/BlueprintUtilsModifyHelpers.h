// What the sections of a Blueprint modification share: reading entries that may be any JSON value, names
// that may be of any length, graphs found by name, and the sections' message lists.
#pragma once

#include "CoreMinimal.h"
#include "Dom/JsonObject.h"
#include "Dom/JsonValue.h"

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

	/** Writes a section's messages under Key, each a JSON string, in order; nothing when there are none. */
	void WriteMessages(FJsonObject& Result, const TCHAR* Key, const TArray<FString>& Messages);

	/** Whether a save document of SaveBlueprint reports success; the save there also tells the asset registry. */
	bool SaveSucceeded(const FString& SaveDocument);

	/** The text a section writes when it is handed no Blueprint. */
	void WriteInvalidBlueprint(FJsonObject& Result);
}
