// The arguments and result of UPackage::Save.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"

class ITargetPlatform;
class FOutputDevice;

enum class ESavePackageResult
{
	Success,
	Canceled,
	Error,
	MissingFile,
	ReplaceCompletely,
	ContainsEditorOnlyData,
	ReferencedOnlyByEditorOnlyData,
	DifferentContent,
	GenerateStub,
	Timeout,
};

struct FSavePackageArgs
{
	ITargetPlatform* TargetPlatform = nullptr;
	// Objects with any of these flags (and what they own) are what the package is saved for.
	EObjectFlags TopLevelFlags = RF_Standalone;
	// ESaveFlags.
	uint32 SaveFlags = SAVE_None;
	bool bForceByteSwapping = false;
	bool bWarnOfLongFilename = true;
	bool bSlowTask = true;
	// Where failures are reported besides the log; may be null.
	FOutputDevice* Error = nullptr;
};

struct FSavePackageResultStruct
{
	FSavePackageResultStruct() = default;
	FSavePackageResultStruct(ESavePackageResult InResult)
		: Result(InResult)
	{
	}
	FSavePackageResultStruct(ESavePackageResult InResult, int64 InTotalFileSize)
		: Result(InResult)
		, TotalFileSize(InTotalFileSize)
	{
	}

	bool IsSuccessful() const
	{
		return Result == ESavePackageResult::Success;
	}
	bool operator==(const FSavePackageResultStruct& Other) const
	{
		return Result == Other.Result;
	}
	bool operator!=(const FSavePackageResultStruct& Other) const
	{
		return Result != Other.Result;
	}

	ESavePackageResult Result = ESavePackageResult::Error;
	int64 TotalFileSize = 0;
};
