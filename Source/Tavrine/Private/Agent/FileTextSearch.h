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
	// Offset of the first match in the bytes, or INDEX_NONE.
	int64 FindInBytes(const uint8* Data, int64 Num) const;

	FString SearchString;
	// The string's bytes with ASCII letters upper-cased, and the distance to shift for each folded byte.
	TArray<uint8> FoldedBytes;
	uint32 ShiftByFoldedByte[256];
	bool bSearchBytes = true;
	TArray<uint8> Buffer;
};
