// Stand-in only: what the head of a text package file says about its assets, for the asset registry's scan.
// The engine's registry reads its own package headers; the stand-in's files are text (TextPackageFormat.md).
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"

struct FStandInPackageAsset
{
	FName AssetName;
	// "/Script/Engine.Blueprint"
	FString ClassPath;
	TArray<TPair<FName, FString>> Tags;
};

struct FStandInPackageSummary
{
	int32 Version = 0;
	FString PackageName;
	TArray<FStandInPackageAsset> Assets;
};

class COREUOBJECT_API FStandInPackageFile
{
public:
	// Reads the lines before the first object, without making objects. False (with the reason) for a file
	// that isn't a whole text package of a version this build reads.
	static bool ReadSummary(const FString& Filename, FStandInPackageSummary& OutSummary, FString* OutError = nullptr);
};
