#include "DiffHunks.h"

namespace
{
	constexpr int32 BitsPerWord = 64;
	constexpr uint64 AllBits = ~0ull;

	/**
	 * Beyond this the table isn't built (two files of some 90,000 lines each): the chat then shows the
	 * change as the old lines removed and the new ones added, rather than risk the editor's memory.
	 */
	constexpr int64 MaxTableBytes = 1024ll * 1024 * 1024;

	/** A run longer than this many unchanged lines is split off into the next hunk. */
	constexpr int32 MaxUnchangedRun = 6;

	/**
	 * Numbers the lines so that two lines have one number when they are equal without regard to case
	 * (FString keys hash and compare that way).
	 */
	void NumberLines(const TArray<FString>& OldLines, const TArray<FString>& NewLines, TArray<int32>& OutOldIds, TArray<int32>& OutNewIds, int32& OutDistinct)
	{
		TMap<FString, int32> Ids;
		Ids.Reserve(NewLines.Num());
		auto Number = [&Ids](const TArray<FString>& Lines, TArray<int32>& OutIds)
		{
			OutIds.Reset(Lines.Num());
			for (const FString& Line : Lines)
			{
				const int32* Existing = Ids.Find(Line);
				OutIds.Add(Existing ? *Existing : Ids.Add(Line, Ids.Num()));
			}
		};
		Number(NewLines, OutNewIds);
		Number(OldLines, OutOldIds);
		OutDistinct = Ids.Num();
	}

	/**
	 * The walk's table of common lengths, one bit a cell. Row I holds, for the first I old lines against
	 * the first J new lines, bit J - 1 clear exactly where the common length grows from column J - 1 to J,
	 * so a cell is the number of clear bits before it. Rows are built bit-parallel, 64 columns a step.
	 */
	class FCommonLengthTable
	{
	public:
		FCommonLengthTable(const TArray<int32>& OldIds, const TArray<int32>& NewIds, int32 DistinctCount)
			: WordsPerRow(FMath::DivideAndRoundUp(NewIds.Num(), BitsPerWord))
		{
			BuildMatchMasks(NewIds, DistinctCount);

			Bits.SetNumUninitialized((OldIds.Num() + 1) * WordsPerRow);
			for (int32 Word = 0; Word < WordsPerRow; ++Word)
			{
				Bits[Word] = AllBits;
			}

			TArray<uint64> Scratch;
			Scratch.SetNumZeroed(WordsPerRow);
			for (int32 Row = 1; Row <= OldIds.Num(); ++Row)
			{
				AdvanceRow(Row, OldIds[Row - 1], Scratch);
			}
		}

		/** Length of the longest common subsequence of the first Row old lines and the first Column new lines. */
		int32 Length(int32 Row, int32 Column) const
		{
			const uint64* RowBits = GetRow(Row);
			const int32 FullWords = Column / BitsPerWord;
			int32 SetBits = 0;
			for (int32 Word = 0; Word < FullWords; ++Word)
			{
				SetBits += FMath::CountBits(RowBits[Word]);
			}
			const int32 Rest = Column % BitsPerWord;
			if (Rest > 0)
			{
				SetBits += FMath::CountBits(RowBits[FullWords] & ((1ull << Rest) - 1));
			}
			return Column - SetBits;
		}

	private:
		const uint64* GetRow(int32 Row) const
		{
			return Bits.GetData() + static_cast<int64>(Row) * WordsPerRow;
		}

		/**
		 * For each new line's number, where it occurs. A line that occurs more often than a row has words
		 * keeps a full mask; the others build theirs in a scratch row when needed, which costs no more.
		 */
		void BuildMatchMasks(const TArray<int32>& NewIds, int32 DistinctCount)
		{
			Positions.SetNum(DistinctCount);
			for (int32 Column = 0; Column < NewIds.Num(); ++Column)
			{
				Positions[NewIds[Column]].Add(Column);
			}
			FullMaskIndex.Init(INDEX_NONE, DistinctCount);
			for (int32 Id = 0; Id < DistinctCount; ++Id)
			{
				if (Positions[Id].Num() > WordsPerRow)
				{
					FullMaskIndex[Id] = FullMasks.Num() / WordsPerRow;
					const int32 First = FullMasks.Num();
					FullMasks.AddZeroed(WordsPerRow);
					SetMaskBits(FullMasks.GetData() + First, Id);
				}
			}
		}

		void SetMaskBits(uint64* Mask, int32 Id) const
		{
			for (const int32 Column : Positions[Id])
			{
				Mask[Column / BitsPerWord] |= 1ull << (Column % BitsPerWord);
			}
		}

		/** Empties the scratch mask again; it only ever holds the words SetMaskBits touched. */
		void ClearMaskWords(uint64* Mask, int32 Id) const
		{
			for (const int32 Column : Positions[Id])
			{
				Mask[Column / BitsPerWord] = 0;
			}
		}

		/** Row := (Previous + (Previous & Match)) | (Previous & ~Match), with the carry running across words. */
		void AdvanceRow(int32 Row, int32 OldId, TArray<uint64>& Scratch)
		{
			if (WordsPerRow == 0)
			{
				// An empty new side: every row is empty.
				return;
			}
			const uint64* Previous = GetRow(Row - 1);
			uint64* Current = Bits.GetData() + static_cast<int64>(Row) * WordsPerRow;
			if (Positions[OldId].Num() == 0)
			{
				FMemory::Memcpy(Current, Previous, sizeof(uint64) * WordsPerRow);
				return;
			}

			const bool bFullMask = FullMaskIndex[OldId] != INDEX_NONE;
			uint64* Match = bFullMask ? FullMasks.GetData() + static_cast<int64>(FullMaskIndex[OldId]) * WordsPerRow : Scratch.GetData();
			if (!bFullMask)
			{
				SetMaskBits(Match, OldId);
			}

			uint64 Carry = 0;
			for (int32 Word = 0; Word < WordsPerRow; ++Word)
			{
				const uint64 Value = Previous[Word];
				const uint64 Matched = Value & Match[Word];
				const uint64 Partial = Value + Matched;
				const uint64 Sum = Partial + Carry;
				Carry = (Partial < Value || Sum < Partial) ? 1 : 0;
				Current[Word] = Sum | (Value & ~Match[Word]);
			}

			if (!bFullMask)
			{
				ClearMaskWords(Match, OldId);
			}
		}

		int32 WordsPerRow;
		TArray<uint64> Bits;
		TArray<TArray<int32>> Positions;
		TArray<int32> FullMaskIndex;
		TArray<uint64> FullMasks;
	};
}

TArray<FDiffLine> BuildDiffLines(const TArray<FString>& OldLines, const TArray<FString>& NewLines)
{
	const int64 TableBytes = (static_cast<int64>(OldLines.Num()) + 1) * FMath::DivideAndRoundUp(NewLines.Num(), BitsPerWord) * static_cast<int64>(sizeof(uint64));
	if (TableBytes > MaxTableBytes)
	{
		TArray<FDiffLine> Lines;
		Lines.Reserve(OldLines.Num() + NewLines.Num());
		for (int32 Index = 0; Index < OldLines.Num(); ++Index)
		{
			Lines.Add({ OldLines[Index], FDiffLine::Removed, Index + 1, 0 });
		}
		for (int32 Index = 0; Index < NewLines.Num(); ++Index)
		{
			Lines.Add({ NewLines[Index], FDiffLine::Added, 0, Index + 1 });
		}
		return Lines;
	}

	TArray<int32> OldIds;
	TArray<int32> NewIds;
	int32 DistinctCount = 0;
	NumberLines(OldLines, NewLines, OldIds, NewIds, DistinctCount);
	const FCommonLengthTable Table(OldIds, NewIds, DistinctCount);

	int32 Old = OldLines.Num();
	int32 New = NewLines.Num();
	const int32 CommonLength = Table.Length(Old, New);

	// The walk runs from the ends, so the records are written from the back of the array.
	TArray<FDiffLine> Lines;
	Lines.SetNum(Old + New - CommonLength);
	int32 Next = Lines.Num();
	while (Old > 0 || New > 0)
	{
		FDiffLine& Line = Lines[--Next];
		if (Old > 0 && New > 0 && OldIds[Old - 1] == NewIds[New - 1])
		{
			Line.Text = NewLines[New - 1];
			Line.Type = FDiffLine::Unchanged;
			Line.OldLineNumber = Old--;
			Line.NewLineNumber = New--;
		}
		else if (New > 0 && (Old == 0 || Table.Length(Old, New - 1) >= Table.Length(Old - 1, New)))
		{
			Line.Text = NewLines[New - 1];
			Line.Type = FDiffLine::Added;
			Line.NewLineNumber = New--;
		}
		else
		{
			Line.Text = OldLines[Old - 1];
			Line.Type = FDiffLine::Removed;
			Line.OldLineNumber = Old--;
		}
	}
	return Lines;
}

TArray<FDiffHunk> CutDiffHunks(const TArray<FDiffLine>& Lines)
{
	TArray<FDiffHunk> Hunks;
	FDiffHunk Hunk;
	int32 UnchangedRun = 0;
	for (const FDiffLine& Line : Lines)
	{
		if (Line.Type == FDiffLine::Unchanged)
		{
			++UnchangedRun;
			if (UnchangedRun > MaxUnchangedRun && Hunk.Num() > 0)
			{
				Hunks.Add(MoveTemp(Hunk));
				Hunk.Reset();
				UnchangedRun = 0;
			}
		}
		else
		{
			UnchangedRun = 0;
		}
		Hunk.Add(Line);
	}
	if (Hunk.Num() > 0)
	{
		Hunks.Add(MoveTemp(Hunk));
	}
	return Hunks;
}

TArray<FDiffHunk> BuildDiffHunks(const FString& Old, const FString& New)
{
	TArray<FString> OldLines;
	TArray<FString> NewLines;
	Old.ParseIntoArrayLines(OldLines, false);
	New.ParseIntoArrayLines(NewLines, false);
	return CutDiffHunks(BuildDiffLines(OldLines, NewLines));
}
