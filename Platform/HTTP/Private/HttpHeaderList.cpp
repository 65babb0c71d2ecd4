#include "HttpHeaderList.h"

int32 FHttpHeaderList::IndexOf(const FString& Name) const
{
	for (int32 Index = 0; Index < Entries.Num(); ++Index)
	{
		if (Entries[Index].Name.Equals(Name, ESearchCase::IgnoreCase))
		{
			return Index;
		}
	}
	return INDEX_NONE;
}

void FHttpHeaderList::Set(const FString& Name, const FString& Value)
{
	const int32 Index = IndexOf(Name);
	if (Index == INDEX_NONE)
	{
		Entries.Add(FEntry { Name, Value });
	}
	else
	{
		Entries[Index].Value = Value;
	}
}

void FHttpHeaderList::Append(const FString& Name, const FString& Value)
{
	const int32 Index = IndexOf(Name);
	if (Index == INDEX_NONE || Entries[Index].Value.IsEmpty())
	{
		Set(Name, Value);
	}
	else
	{
		Entries[Index].Value += TEXT(", ");
		Entries[Index].Value += Value;
	}
}

void FHttpHeaderList::Add(const FString& Name, const FString& Value)
{
	Entries.Add(FEntry { Name, Value });
}

void FHttpHeaderList::Reset()
{
	Entries.Reset();
}

FString FHttpHeaderList::Find(const FString& Name) const
{
	const int32 Index = IndexOf(Name);
	return Index == INDEX_NONE ? FString() : Entries[Index].Value;
}

bool FHttpHeaderList::Contains(const FString& Name) const
{
	return IndexOf(Name) != INDEX_NONE;
}

TArray<FString> FHttpHeaderList::ToStrings() const
{
	TArray<FString> Strings;
	for (const FEntry& Entry : Entries)
	{
		Strings.Add(Entry.Name + TEXT(": ") + Entry.Value);
	}
	return Strings;
}
