#pragma once

#include "CoreMinimal.h"

class FJsonObject;
class FJsonValue;
class UBlueprint;

/**
 * Finds where a name is used: in the project's C++ sources and in all its Blueprints. Reads only, and
 * keeps nothing between calls: each search walks the disk and loads every Blueprint again.
 * Matching is a substring test that ignores case, everywhere.
 */
class TAVRINE_API FTavrineFindUtils
{
public:
	FTavrineFindUtils() = delete;

	/** { "reference_string", "cpp_references", "blueprint_references" } as formatted JSON text. */
	static FString FindInAllFiles(const FString& ReferenceString);

protected:
	/** Sets "cpp_references": one entry for each .cpp or .h file under Source/ or Plugins/ whose path or text holds the string. */
	static void FindInAllCppFiles(const FString& ReferenceString, TSharedPtr<FJsonObject>& Result);
	/** Sets "blueprint_references": every match in every Blueprint asset of the project. */
	static void FindInAllBlueprintFiles(const FString& ReferenceString, TSharedPtr<FJsonObject>& Result);
	/** Adds the Blueprint's matches: its name, variables, function names, node titles, comments and pins. */
	static void FindInBlueprint(UBlueprint* Blueprint, const FString& ReferenceString, TArray<TSharedPtr<FJsonValue>>& OutReferences);
};
