#pragma once

#include "CoreMinimal.h"

/** Headers in the order they were first set; names compare without regard to case. */
class FHttpHeaderList
{
public:
	void Set(const FString& Name, const FString& Value);
	void Append(const FString& Name, const FString& Value);
	void Add(const FString& Name, const FString& Value);
	void Reset();
	/** The first value of that name, or an empty string. */
	FString Find(const FString& Name) const;
	bool Contains(const FString& Name) const;
	/** Each header as "Name: Value". */
	TArray<FString> ToStrings() const;

	struct FEntry
	{
		FString Name;
		FString Value;
	};
	const TArray<FEntry>& GetEntries() const { return Entries; }

private:
	int32 IndexOf(const FString& Name) const;

	TArray<FEntry> Entries;
};
