#pragma once

#include "CoreTypes.h"

/** The parts of a version, in the order ToString writes them. */
enum class EVersionComponent
{
	Major,
	Minor,
	Patch,
	Changelist,
	Branch
};

/** Which of two versions is newer. */
enum class EVersionComparison
{
	Neither,
	First,
	Second
};

/** Major.Minor.Patch and a changelist; the top bit of the changelist marks a licensee build. */
class FEngineVersionBase
{
public:
	FEngineVersionBase()
		: Major(0)
		, Minor(0)
		, Patch(0)
		, Changelist(0)
	{
	}

	FEngineVersionBase(uint16 InMajor, uint16 InMinor, uint16 InPatch = 0, uint32 InChangelist = 0)
		: Major(InMajor)
		, Minor(InMinor)
		, Patch(InPatch)
		, Changelist(InChangelist)
	{
	}

	uint16 GetMajor() const
	{
		return Major;
	}
	uint16 GetMinor() const
	{
		return Minor;
	}
	uint16 GetPatch() const
	{
		return Patch;
	}
	uint32 GetChangelist() const
	{
		return Changelist & (uint32)0x7fffffffU;
	}
	bool IsLicenseeVersion() const
	{
		return (Changelist & (uint32)0x80000000U) != 0;
	}
	bool IsEmpty() const
	{
		return Major == 0 && Minor == 0 && Patch == 0;
	}
	bool HasChangelist() const
	{
		return GetChangelist() != 0;
	}
	bool IsPromotedBuild() const
	{
		return HasChangelist();
	}

	/** Compares the numbers; changelists count only when both have one. */
	static EVersionComparison GetNewest(const FEngineVersionBase& First, const FEngineVersionBase& Second, EVersionComponent* OutComponent);

protected:
	uint16 Major;
	uint16 Minor;
	uint16 Patch;
	uint32 Changelist;
};
