// What objects and listeners are told around a package save.
#pragma once

#include "CoreMinimal.h"

struct FObjectPreSaveContext
{
	FObjectPreSaveContext() = default;
	explicit FObjectPreSaveContext(const FString& InTargetFilename, uint32 InSaveFlags)
		: TargetFilename(InTargetFilename)
		, SaveFlags(InSaveFlags)
	{
	}

	const FString& GetTargetFilename() const
	{
		return TargetFilename;
	}
	uint32 GetSaveFlags() const
	{
		return SaveFlags;
	}
	bool IsProceduralSave() const
	{
		return false;
	}

private:
	FString TargetFilename;
	uint32 SaveFlags = 0;
};

struct FObjectPostSaveContext
{
	FObjectPostSaveContext() = default;
	FObjectPostSaveContext(const FString& InTargetFilename, uint32 InSaveFlags, bool bInSaveSucceeded)
		: TargetFilename(InTargetFilename)
		, SaveFlags(InSaveFlags)
		, bSaveSucceeded(bInSaveSucceeded)
	{
	}

	const FString& GetTargetFilename() const
	{
		return TargetFilename;
	}
	uint32 GetSaveFlags() const
	{
		return SaveFlags;
	}
	bool SaveSucceeded() const
	{
		return bSaveSucceeded;
	}

private:
	FString TargetFilename;
	uint32 SaveFlags = 0;
	bool bSaveSucceeded = false;
};
