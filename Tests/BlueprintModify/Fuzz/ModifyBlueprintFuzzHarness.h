// Feeds modification documents to a sample Blueprint, made anew for each, so that every document starts from
// the same Blueprint. Shared by the fuzz target and the test that replays its corpus.
#pragma once

#include "CoreMinimal.h"

class UBlueprint;

class FModifyBlueprintFuzzHarness
{
public:
	/** Makes a project in ProjectDir (emptied first) with the sample Blueprint saved in it. */
	explicit FModifyBlueprintFuzzHarness(const FString& ProjectDir);
	~FModifyBlueprintFuzzHarness();

	/** Applies Document to a fresh sample Blueprint; gives the modification's answer. */
	FString Run(const FString& Document);

	/** Whether the sample Blueprint still saves, and, loaded fresh from its file, reads as it did before. */
	bool SavesAndLoads();

	/** The name the documents are applied to. */
	static const TCHAR* const BlueprintName;

private:
	/** Drops the last sample Blueprint from memory and makes it again, unsaved, under the same name. */
	void MakeBlueprint();

	UBlueprint* Blueprint = nullptr;
};
