#pragma once

#include "CoreTypes.h"
#include "Containers/UnrealString.h"
#include "Misc/EngineVersionBase.h"

/** A version with its branch, written "Major.Minor.Patch-Changelist+Branch". */
class FEngineVersion : public FEngineVersionBase
{
public:
	FEngineVersion()
	{
	}

	FEngineVersion(uint16 InMajor, uint16 InMinor, uint16 InPatch, uint32 InChangelist, const FString& InBranch);

	void Set(uint16 InMajor, uint16 InMinor, uint16 InPatch, uint32 InChangelist, const FString& InBranch);
	void Empty();

	bool ExactMatch(const FEngineVersion& Other) const;
	bool IsCompatibleWith(const FEngineVersionBase& Other) const;

	/** The components up to LastComponent, e.g. "5.5.4-0+++UE5+Release-5.5" for Branch; no "+" part without a branch. */
	FString ToString(EVersionComponent LastComponent = EVersionComponent::Branch) const;

	/** Reads the form ToString writes (Major.Minor.Patch, optionally "-Changelist" and "+Branch"). */
	static bool Parse(const FString& Text, FEngineVersion& OutVersion);

	/** The running engine: 5.5.4, changelist 0, branch "++UE5+Release-5.5". */
	static const FEngineVersion& Current();
	static const FEngineVersion& CompatibleWith();

	const FString GetBranch() const
	{
		return Branch.Replace(TEXT("+"), TEXT("/"), ESearchCase::CaseSensitive);
	}
	const FString& GetBranchDescriptor() const
	{
		return Branch;
	}

private:
	FString Branch;
};
