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
	for (uint32& Shift : ShiftByFoldedByte)
	{
		Shift = static_cast<uint32>(Length > 0 ? Length : 1);
	}
	for (int32 Index = 0; Index + 1 < Length; ++Index)
	{
		ShiftByFoldedByte[FoldedBytes[Index]] = static_cast<uint32>(Length - 1 - Index);
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

		if (FindInBytes(Buffer.GetData(), Filled) != INDEX_NONE)
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

int64 FFileTextSearch::FindInBytes(const uint8* Data, int64 Num) const
{
	// Horspool's search on case-folded bytes: the byte under the pattern's end decides how far to move.
	const int64 Length = FoldedBytes.Num();
	if (Length == 0)
	{
		return 0;
	}
	const uint8* Fold = AsciiUpperCase();
	const uint8* Pattern = FoldedBytes.GetData();
	const uint8 LastByte = Pattern[Length - 1];
	for (int64 Position = 0; Position + Length <= Num;)
	{
		const uint8 Byte = Fold[Data[Position + Length - 1]];
		if (Byte == LastByte)
		{
			int64 Index = Length - 2;
			while (Index >= 0 && Fold[Data[Position + Index]] == Pattern[Index])
			{
				--Index;
			}
			if (Index < 0)
			{
				return Position;
			}
		}
		Position += ShiftByFoldedByte[Byte];
	}
	return INDEX_NONE;
}
