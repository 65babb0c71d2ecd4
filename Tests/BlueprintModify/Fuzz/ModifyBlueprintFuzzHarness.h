// Feeds modification documents to one sample Blueprint, each undone after it ran, so that every document
// starts from the same Blueprint. Shared by the fuzz target and the test that replays its corpus.
#pragma once

#include "CoreMinimal.h"

class UBlueprint;

class FModifyBlueprintFuzzHarness
{
public:
	/** Makes a project in ProjectDir (emptied first) with the sample Blueprint saved in it. */
	explicit FModifyBlueprintFuzzHarness(const FString& ProjectDir);
	~FModifyBlueprintFuzzHarness();

	/** Applies Document to the sample Blueprint and undoes the modification; gives the modification's answer. */
	FString Run(const FString& Document);

	/** Whether the sample Blueprint still saves, and, loaded fresh from its file, reads as it did before. */
	bool SavesAndLoads();

	/** The name the documents are applied to. */
	static const TCHAR* const BlueprintName;

private:
	UBlueprint* Blueprint = nullptr;
	int32 RunsSinceCollect = 0;
};
