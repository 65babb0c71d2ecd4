#pragma once

#include "CoreMinimal.h"

/**
 * Tells whether files hold one string, ignoring case as FString::Find does (ASCII letters only). The
 * file is read in large blocks and searched as the UTF-8 bytes it is made of, so a match ends the read and
 * no decoded or lower-cased copy of the file is made. Files with a UTF-16 byte order mark, and strings
 * beyond ASCII, are decoded and searched as text instead.
 */
class FFileTextSearch
{
public:
	explicit FFileTextSearch(const FString& InSearchString);

	/**
	 * False when the file can't be read. Otherwise bOutContains tells whether its text holds the string;
	 * with bAnyReadableMatches a readable file counts as a match without its text being searched.
	 */
	bool Search(const FString& FilePath, bool bAnyReadableMatches, bool& bOutContains);

private:
	bool SearchDecodedText(const FString& FilePath, bool& bOutContains) const;
	// Whether the bytes hold the string, ignoring case.
	bool ContainsInBytes(const uint8* Data, int64 Num) const;
	// Moves End on through the bytes up to Limit; true when a match ends at End.
	bool Advance(const uint8* Data, int64& End, int64 Limit) const;
	bool MatchEndsAt(const uint8* Data, int64 End) const;

	FString SearchString;
	// The string's bytes with ASCII letters upper-cased.
	TArray<uint8> FoldedBytes;
	// How far the search may move on for the two bytes that end the text under the string, by a small
	// hash of them that stays in the first-level cache. Pairs of the string are rare in other text, so
	// the search mostly moves on by almost the string's length.
	TArray<uint8> ShiftByPairHash;
	bool bSearchBytes = true;
	TArray<uint8> Buffer;
};
