#include "Misc/EngineVersion.h"

#include "Misc/App.h"

EVersionComparison FEngineVersionBase::GetNewest(const FEngineVersionBase& First, const FEngineVersionBase& Second, EVersionComponent* OutComponent)
{
	EVersionComponent Component = EVersionComponent::Major;
	EVersionComparison Result = EVersionComparison::Neither;
	if (First.Major != Second.Major)
	{
		Result = First.Major > Second.Major ? EVersionComparison::First : EVersionComparison::Second;
	}
	else if (First.Minor != Second.Minor)
	{
		Component = EVersionComponent::Minor;
		Result = First.Minor > Second.Minor ? EVersionComparison::First : EVersionComparison::Second;
	}
	else if (First.Patch != Second.Patch)
	{
		Component = EVersionComponent::Patch;
		Result = First.Patch > Second.Patch ? EVersionComparison::First : EVersionComparison::Second;
	}
	else if (First.IsLicenseeVersion() == Second.IsLicenseeVersion() && First.HasChangelist() && Second.HasChangelist() && First.GetChangelist() != Second.GetChangelist())
	{
		Component = EVersionComponent::Changelist;
		Result = First.GetChangelist() > Second.GetChangelist() ? EVersionComparison::First : EVersionComparison::Second;
	}
	if (OutComponent != nullptr)
	{
		*OutComponent = Component;
	}
	return Result;
}

FEngineVersion::FEngineVersion(uint16 InMajor, uint16 InMinor, uint16 InPatch, uint32 InChangelist, const FString& InBranch)
{
	Set(InMajor, InMinor, InPatch, InChangelist, InBranch);
}

void FEngineVersion::Set(uint16 InMajor, uint16 InMinor, uint16 InPatch, uint32 InChangelist, const FString& InBranch)
{
	Major = InMajor;
	Minor = InMinor;
	Patch = InPatch;
	Changelist = InChangelist;
	Branch = InBranch;
}

void FEngineVersion::Empty()
{
	Set(0, 0, 0, 0, FString());
}

bool FEngineVersion::ExactMatch(const FEngineVersion& Other) const
{
	return Major == Other.Major && Minor == Other.Minor && Patch == Other.Patch && Changelist == Other.Changelist && Branch.Equals(Other.Branch);
}

bool FEngineVersion::IsCompatibleWith(const FEngineVersionBase& Other) const
{
	return GetNewest(*this, Other, nullptr) != EVersionComparison::Second;
}

FString FEngineVersion::ToString(EVersionComponent LastComponent) const
{
	FString Result = FString::Printf(TEXT("%u"), (uint32)Major);
	if (LastComponent >= EVersionComponent::Minor)
	{
		Result += FString::Printf(TEXT(".%u"), (uint32)Minor);
		if (LastComponent >= EVersionComponent::Patch)
		{
			Result += FString::Printf(TEXT(".%u"), (uint32)Patch);
			if (LastComponent >= EVersionComponent::Changelist)
			{
				Result += FString::Printf(TEXT("-%u"), GetChangelist());
				if (LastComponent >= EVersionComponent::Branch && !Branch.IsEmpty())
				{
					Result += TEXT("+");
					Result += Branch;
				}
			}
		}
	}
	return Result;
}

bool FEngineVersion::Parse(const FString& Text, FEngineVersion& OutVersion)
{
	const TCHAR* Cursor = *Text;
	uint32 Numbers[3] = {0, 0, 0};
	for (int32 Index = 0; Index < 3; ++Index)
	{
		if (Index > 0)
		{
			if (*Cursor != TEXT('.'))
			{
				return false;
			}
			++Cursor;
		}
		if (*Cursor < TEXT('0') || *Cursor > TEXT('9'))
		{
			return false;
		}
		uint64 Value = 0;
		while (*Cursor >= TEXT('0') && *Cursor <= TEXT('9'))
		{
			Value = Value * 10 + (uint64)(*Cursor++ - TEXT('0'));
			if (Value > 0xFFFF)
			{
				return false;
			}
		}
		Numbers[Index] = (uint32)Value;
	}
	uint64 ParsedChangelist = 0;
	if (*Cursor == TEXT('-'))
	{
		++Cursor;
		if (*Cursor < TEXT('0') || *Cursor > TEXT('9'))
		{
			return false;
		}
		while (*Cursor >= TEXT('0') && *Cursor <= TEXT('9'))
		{
			ParsedChangelist = ParsedChangelist * 10 + (uint64)(*Cursor++ - TEXT('0'));
			if (ParsedChangelist > 0x7fffffffU)
			{
				return false;
			}
		}
	}
	FString ParsedBranch;
	if (*Cursor == TEXT('+'))
	{
		ParsedBranch = Cursor + 1;
	}
	else if (*Cursor != 0)
	{
		return false;
	}
	OutVersion.Set((uint16)Numbers[0], (uint16)Numbers[1], (uint16)Numbers[2], (uint32)ParsedChangelist, ParsedBranch);
	return true;
}

const FEngineVersion& FEngineVersion::Current()
{
	static const FEngineVersion Version(5, 5, 4, 0, FApp::GetBranchName());
	return Version;
}

const FEngineVersion& FEngineVersion::CompatibleWith()
{
	static const FEngineVersion Version(5, 5, 0, 0, FApp::GetBranchName());
	return Version;
}
