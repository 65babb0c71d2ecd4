#include "UObject/Class.h"
#include "CoreUObjectLog.h"

namespace
{
	// "EName::Entry" -> "Entry"; a name without "::" stays as it is.
	FString ShortEnumName(const FString& FullName)
	{
		const int32 Separator = FullName.Find(TEXT("::"), ESearchCase::CaseSensitive, ESearchDir::FromEnd);
		return Separator == INDEX_NONE ? FullName : FullName.Mid(Separator + 2);
	}
}

UEnum::UEnum(const FObjectInitializer& ObjectInitializer)
	: UField(ObjectInitializer)
{
}

FString UEnum::GenerateFullEnumName(const TCHAR* InEnumName) const
{
	if (CppForm == ECppForm::Regular)
	{
		return InEnumName;
	}
	return GetName() + TEXT("::") + InEnumName;
}

bool UEnum::SetEnums(TArray<TPair<FName, int64>>& InNames, ECppForm InCppForm, EEnumFlags InFlags, bool bAddMaxKeyIfMissing)
{
	Names = InNames;
	CppForm = InCppForm;
	EnumFlags = InFlags;
	if (bAddMaxKeyIfMissing && !ContainsExistingMax())
	{
		const int64 MaxValue = Names.Num() > 0 ? GetMaxEnumValue() + 1 : 0;
		Names.Add(TPair<FName, int64>(FName(*GenerateFullEnumName(*(GetName() + TEXT("_MAX")))), MaxValue));
	}
	return true;
}

bool UEnum::ContainsExistingMax() const
{
	const FString OwnMax = GetName() + TEXT("_MAX");
	for (const TPair<FName, int64>& Entry : Names)
	{
		const FString Short = ShortEnumName(Entry.Key.ToString());
		if (Short.Equals(TEXT("MAX")) || Short.Equals(OwnMax))
		{
			return true;
		}
	}
	return false;
}

FName UEnum::GetNameByIndex(int32 Index) const
{
	return Names.IsValidIndex(Index) ? Names[Index].Key : FName(NAME_None);
}

FName UEnum::GetNameByValue(int64 InValue) const
{
	return GetNameByIndex(GetIndexByValue(InValue));
}

int64 UEnum::GetValueByIndex(int32 Index) const
{
	return Names.IsValidIndex(Index) ? Names[Index].Value : int64(INDEX_NONE);
}

int32 UEnum::GetIndexByValue(int64 InValue) const
{
	for (int32 Index = 0; Index < Names.Num(); ++Index)
	{
		if (Names[Index].Value == InValue)
		{
			return Index;
		}
	}
	return INDEX_NONE;
}

int32 UEnum::GetIndexByName(const FName InName, EGetByNameFlags Flags) const
{
	if (InName.IsNone())
	{
		return INDEX_NONE;
	}
	return GetIndexByNameString(InName.ToString(), Flags);
}

int32 UEnum::GetIndexByNameString(const FString& SearchString, EGetByNameFlags Flags) const
{
	const ESearchCase::Type SearchCase = EnumHasAnyFlags(Flags, EGetByNameFlags::CaseSensitive) ? ESearchCase::CaseSensitive : ESearchCase::IgnoreCase;
	const bool bSearchHasScope = SearchString.Contains(TEXT("::"));
	for (int32 Index = 0; Index < Names.Num(); ++Index)
	{
		const FString EntryName = Names[Index].Key.ToString();
		// "One" finds "EName::One", and "EName::One" finds "One" of an old-style enum.
		const bool bMatch = bSearchHasScope
			? EntryName.Equals(SearchString, SearchCase) || (!EntryName.Contains(TEXT("::")) && EntryName.Equals(ShortEnumName(SearchString), SearchCase))
			: ShortEnumName(EntryName).Equals(SearchString, SearchCase);
		if (bMatch)
		{
			return Index;
		}
	}
	if (EnumHasAnyFlags(Flags, EGetByNameFlags::ErrorIfNotFound))
	{
		UE_LOG(LogClass, Warning, TEXT("Enum %s has no entry %s"), *GetName(), *SearchString);
	}
	return INDEX_NONE;
}

int64 UEnum::GetValueByName(const FName InName, EGetByNameFlags Flags) const
{
	return GetValueByIndex(GetIndexByName(InName, Flags));
}

int64 UEnum::GetValueByNameString(const FString& SearchString, EGetByNameFlags Flags) const
{
	return GetValueByIndex(GetIndexByNameString(SearchString, Flags));
}

FString UEnum::GetNameStringByIndex(int32 InIndex) const
{
	return Names.IsValidIndex(InIndex) ? ShortEnumName(Names[InIndex].Key.ToString()) : FString();
}

FString UEnum::GetNameStringByValue(int64 InValue) const
{
	return GetNameStringByIndex(GetIndexByValue(InValue));
}

FText UEnum::GetDisplayNameTextByIndex(int32 InIndex) const
{
	const FString ShortName = GetNameStringByIndex(InIndex);
	if (ShortName.IsEmpty())
	{
		return FText::GetEmpty();
	}
#if WITH_EDITORONLY_DATA
	if (HasMetaData(TEXT("DisplayName"), InIndex))
	{
		return FText::FromString(GetMetaData(TEXT("DisplayName"), InIndex));
	}
#endif
	return FText::FromString(FName::NameToDisplayString(ShortName, false));
}

FText UEnum::GetDisplayNameTextByValue(int64 InValue) const
{
	return GetDisplayNameTextByIndex(GetIndexByValue(InValue));
}

FText UEnum::GetToolTipTextByIndex(int32 NameIndex) const
{
#if WITH_EDITORONLY_DATA
	return FText::FromString(GetMetaData(TEXT("ToolTip"), NameIndex));
#else
	return FText::GetEmpty();
#endif
}

int64 UEnum::GetMaxEnumValue() const
{
	if (Names.Num() == 0)
	{
		return 0;
	}
	int64 MaxValue = Names[0].Value;
	for (const TPair<FName, int64>& Entry : Names)
	{
		MaxValue = Entry.Value > MaxValue ? Entry.Value : MaxValue;
	}
	return MaxValue;
}

bool UEnum::IsValidEnumValue(int64 InValue) const
{
	return GetIndexByValue(InValue) != INDEX_NONE;
}

bool UEnum::IsValidEnumName(FName InName) const
{
	return GetIndexByName(InName) != INDEX_NONE;
}

FString UEnum::MetaDataKey(const TCHAR* Key, int32 NameIndex) const
{
	return NameIndex == INDEX_NONE ? FString(Key) : GetNameStringByIndex(NameIndex) + TEXT(".") + Key;
}

#if WITH_EDITORONLY_DATA
FString UEnum::GetMetaData(const TCHAR* Key, int32 NameIndex, bool bAllowRemap) const
{
	if (NameIndex != INDEX_NONE && !Names.IsValidIndex(NameIndex))
	{
		return FString();
	}
	return UField::GetMetaData(FName(*MetaDataKey(Key, NameIndex), FNAME_Find));
}

void UEnum::SetMetaData(const TCHAR* Key, const TCHAR* InValue, int32 NameIndex)
{
	UField::SetMetaData(FName(*MetaDataKey(Key, NameIndex)), InValue);
}

bool UEnum::HasMetaData(const TCHAR* Key, int32 NameIndex) const
{
	if (NameIndex != INDEX_NONE && !Names.IsValidIndex(NameIndex))
	{
		return false;
	}
	return UField::HasMetaData(FName(*MetaDataKey(Key, NameIndex), FNAME_Find));
}

void UEnum::RemoveMetaData(const TCHAR* Key, int32 NameIndex)
{
	UField::RemoveMetaData(*MetaDataKey(Key, NameIndex));
}
#endif
