#include "FileTextSearch.h"

#include "HAL/PlatformFileManager.h"
#include "Misc/FileHelper.h"
#include "Templates/UniquePtr.h"

namespace
{
	// Large enough that most sources are one read, small enough to stay in the cache.
	constexpr int64 BlockSize = 1024 * 1024;

	struct FAsciiUpperCase
	{
		uint8 Table[256];

		FAsciiUpperCase()
		{
			for (int32 Byte = 0; Byte < 256; ++Byte)
			{
				Table[Byte] = static_cast<uint8>(Byte >= 'a' && Byte <= 'z' ? Byte - ('a' - 'A') : Byte);
			}
		}
	};

	const uint8* AsciiUpperCase()
	{
		static const FAsciiUpperCase Fold;
		return Fold.Table;
	}

	constexpr int32 PairHashSize = 4096;

	int32 PairHash(uint8 First, uint8 Second)
	{
		return ((First << 4) ^ Second) & (PairHashSize - 1);
	}

	// A folded byte and, for a letter, its lower case: the bytes that text may hold in its place.
	struct FSpellings
	{
		uint8 Bytes[2];
		int32 Num;

		const uint8* begin() const
		{
			return Bytes;
		}
		const uint8* end() const
		{
			return Bytes + Num;
		}
	};

	FSpellings Spellings(uint8 Folded)
	{
		if (Folded >= 'A' && Folded <= 'Z')
		{
			return { { Folded, static_cast<uint8>(Folded + ('a' - 'A')) }, 2 };
		}
		return { { Folded, Folded }, 1 };
	}

	bool HasUtf16ByteOrderMark(const uint8* Data, int64 Num)
	{
		return Num >= 2 && ((Data[0] == 0xFF && Data[1] == 0xFE) || (Data[0] == 0xFE && Data[1] == 0xFF));
	}
}

FFileTextSearch::FFileTextSearch(const FString& InSearchString)
	: SearchString(InSearchString)
{
	const uint8* Fold = AsciiUpperCase();
	for (const TCHAR Character : SearchString)
	{
		if (Character >= 0x80)
		{
			// Beyond ASCII the decoder's view of malformed bytes could differ from the bytes themselves.
			bSearchBytes = false;
			break;
		}
		FoldedBytes.Add(Fold[static_cast<uint8>(Character)]);
	}

	const int32 Length = FoldedBytes.Num();
	if (Length >= 2)
	{
		// Every spelling of each pair of the string, ending at Index, allows a move of Length - 1 - Index;
		// pairs that share a hash keep the smallest move.
		ShiftByPairHash.Init(static_cast<uint8>(Length - 1 < 255 ? Length - 1 : 255), PairHashSize);
		for (int32 Index = 1; Index < Length; ++Index)
		{
			const uint8 Shift = static_cast<uint8>(Length - 1 - Index < 255 ? Length - 1 - Index : 255);
			for (const uint8 First : Spellings(FoldedBytes[Index - 1]))
			{
				for (const uint8 Second : Spellings(FoldedBytes[Index]))
				{
					uint8& Entry = ShiftByPairHash[PairHash(First, Second)];
					Entry = Shift < Entry ? Shift : Entry;
				}
			}
		}
	}
}

bool FFileTextSearch::Search(const FString& FilePath, bool bAnyReadableMatches, bool& bOutContains)
{
	bOutContains = false;
	if (!bSearchBytes)
	{
		return SearchDecodedText(FilePath, bOutContains);
	}

	IPlatformFile& PlatformFile = FPlatformFileManager::Get().GetPlatformFile();
	const TUniquePtr<IFileHandle> Handle(PlatformFile.OpenRead(*FilePath));
	if (!Handle)
	{
		return false;
	}

	// The last bytes of a block stay in front of the next one, so a match across blocks is found.
	const int64 Overlap = FoldedBytes.Num() > 0 ? FoldedBytes.Num() - 1 : 0;
	int64 Remaining = Handle->Size();
	if (Remaining < 0)
	{
		return false;
	}
	const int64 FirstRead = Remaining < BlockSize ? Remaining : BlockSize;
	if (Buffer.Num() < FirstRead + Overlap)
	{
		Buffer.SetNumUninitialized(FirstRead + Overlap);
	}

	int64 Kept = 0;
	bool bFirstBlock = true;
	do
	{
		const int64 ToRead = Remaining < BlockSize ? Remaining : BlockSize;
		if (ToRead > 0 && !Handle->Read(Buffer.GetData() + Kept, ToRead))
		{
			return false;
		}
		Remaining -= ToRead;
		const int64 Filled = Kept + ToRead;

		if (bFirstBlock)
		{
			bFirstBlock = false;
			if (HasUtf16ByteOrderMark(Buffer.GetData(), Filled))
			{
				return SearchDecodedText(FilePath, bOutContains);
			}
			if (bAnyReadableMatches || FoldedBytes.Num() == 0)
			{
				// Its first block read, so the file is readable; the rest can't change the answer.
				bOutContains = true;
				return true;
			}
		}

		if (ContainsInBytes(Buffer.GetData(), Filled))
		{
			bOutContains = true;
			return true;
		}
		Kept = Filled < Overlap ? Filled : Overlap;
		FMemory::Memmove(Buffer.GetData(), Buffer.GetData() + Filled - Kept, Kept);
		if (Remaining > 0 && Buffer.Num() < Kept + BlockSize)
		{
			Buffer.SetNumUninitialized(Kept + BlockSize);
		}
	}
	while (Remaining > 0);
	return true;
}

bool FFileTextSearch::SearchDecodedText(const FString& FilePath, bool& bOutContains) const
{
	FString Text;
	if (!FFileHelper::LoadFileToString(Text, *FilePath))
	{
		return false;
	}
	bOutContains = Text.Contains(SearchString, ESearchCase::IgnoreCase);
	return true;
}

bool FFileTextSearch::ContainsInBytes(const uint8* Data, int64 Num) const
{
	const int64 Length = FoldedBytes.Num();
	if (Length == 0)
	{
		return true;
	}
	if (Length == 1)
	{
		const uint8* Fold = AsciiUpperCase();
		for (int64 Position = 0; Position < Num; ++Position)
		{
			if (Fold[Data[Position]] == FoldedBytes[0])
			{
				return true;
			}
		}
		return false;
	}

	// Each step waits for the one before it, so four parts of the block are searched side by side; each
	// part reaches Length - 1 bytes into the next, so that no match across their borders is missed.
	const int64 Part = Num / 4;
	if (Part < 4 * Length)
	{
		int64 End = Length - 1;
		return Advance(Data, End, Num);
	}
	int64 Ends[4];
	int64 Limits[4];
	for (int32 Index = 0; Index < 4; ++Index)
	{
		Ends[Index] = Index * Part + Length - 1;
		Limits[Index] = Index == 3 ? Num : (Index + 1) * Part + Length - 1;
	}
	const uint8* Shifts = ShiftByPairHash.GetData();
	auto Step = [this, Data, Shifts](int64& End)
	{
		const uint8 Shift = Shifts[PairHash(Data[End - 1], Data[End])];
		if (Shift != 0)
		{
			End += Shift;
			return false;
		}
		return MatchEndsAt(Data, End++);
	};
	int64 End0 = Ends[0], End1 = Ends[1], End2 = Ends[2], End3 = Ends[3];
	while (End0 < Limits[0] && End1 < Limits[1] && End2 < Limits[2] && End3 < Limits[3])
	{
		if (Step(End0) | Step(End1) | Step(End2) | Step(End3))
		{
			return true;
		}
	}
	// Each part finishes on its own from where it stands.
	return Advance(Data, End0, Limits[0]) || Advance(Data, End1, Limits[1]) || Advance(Data, End2, Limits[2]) || Advance(Data, End3, Limits[3]);
}

bool FFileTextSearch::MatchEndsAt(const uint8* Data, int64 End) const
{
	const uint8* Fold = AsciiUpperCase();
	const uint8* Pattern = FoldedBytes.GetData();
	const int64 Start = End - FoldedBytes.Num() + 1;
	for (int64 Index = FoldedBytes.Num() - 1; Index >= 0; --Index)
	{
		if (Fold[Data[Start + Index]] != Pattern[Index])
		{
			return false;
		}
	}
	return true;
}

bool FFileTextSearch::Advance(const uint8* Data, int64& End, int64 Limit) const
{
	// A Horspool search on pairs of bytes: the two bytes that end the text under the string decide how far
	// to move on, and where they may end a match the whole string is compared, ignoring case.
	const uint8* Shifts = ShiftByPairHash.GetData();
	while (End < Limit)
	{
		const uint8 Shift = Shifts[PairHash(Data[End - 1], Data[End])];
		if (Shift != 0)
		{
			End += Shift;
		}
		else if (MatchEndsAt(Data, End++))
		{
			return true;
		}
	}
	return false;
}
