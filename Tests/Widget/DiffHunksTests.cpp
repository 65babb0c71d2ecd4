#include "Widget/DiffHunks.h"

#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace
{
	/** The walk over a full int32 table that the compact one must reproduce record for record. */
	TArray<FDiffLine> WalkFullTable(const TArray<FString>& Old, const TArray<FString>& New)
	{
		const int32 Columns = New.Num() + 1;
		std::vector<int32> Table((Old.Num() + 1) * Columns, 0);
		auto At = [&](int32 I, int32 J) -> int32& { return Table[I * Columns + J]; };
		for (int32 I = 1; I <= Old.Num(); ++I)
		{
			for (int32 J = 1; J <= New.Num(); ++J)
			{
				At(I, J) = Old[I - 1].Equals(New[J - 1], ESearchCase::IgnoreCase) ? At(I - 1, J - 1) + 1 : FMath::Max(At(I - 1, J), At(I, J - 1));
			}
		}

		TArray<FDiffLine> Reversed;
		int32 I = Old.Num();
		int32 J = New.Num();
		while (I > 0 || J > 0)
		{
			if (I > 0 && J > 0 && Old[I - 1].Equals(New[J - 1], ESearchCase::IgnoreCase))
			{
				Reversed.Add({ New[J - 1], FDiffLine::Unchanged, I, J });
				--I;
				--J;
			}
			else if (J > 0 && (I == 0 || At(I, J - 1) >= At(I - 1, J)))
			{
				Reversed.Add({ New[J - 1], FDiffLine::Added, 0, J });
				--J;
			}
			else
			{
				Reversed.Add({ Old[I - 1], FDiffLine::Removed, I, 0 });
				--I;
			}
		}
		TArray<FDiffLine> Lines;
		for (int32 Index = Reversed.Num() - 1; Index >= 0; --Index)
		{
			Lines.Add(Reversed[Index]);
		}
		return Lines;
	}

	FString Describe(const TArray<FDiffLine>& Lines)
	{
		FString Text;
		for (const FDiffLine& Line : Lines)
		{
			Text += FString::Printf(TEXT("%d %d %d %s\n"), Line.Type, Line.OldLineNumber, Line.NewLineNumber, *Line.Text);
		}
		return Text;
	}
}

// Few distinct lines (with case variants and blanks) make long runs of ties, where the tie-break shows;
// lengths past 64 and 128 cross the table's word boundaries, and frequent lines take the full-mask path.
TEST(DiffHunks, MatchTheFullTableWalkOnRandomPairs)
{
	const TCHAR* Vocabulary[] = { TEXT("a"), TEXT("A"), TEXT("b"), TEXT("c"), TEXT(""), TEXT("}"), TEXT("\treturn;") };
	std::mt19937 Random(15);
	for (int32 Round = 0; Round < 3000; ++Round)
	{
		const int32 MaxLength = Round % 10 == 0 ? 200 : 40;
		const int32 Distinct = 2 + Round % 6;
		std::uniform_int_distribution<int32> Length(0, MaxLength);
		std::uniform_int_distribution<int32> Pick(0, Distinct - 1);
		TArray<FString> Old;
		TArray<FString> New;
		for (int32 Count = Length(Random); Count > 0; --Count)
		{
			Old.Add(Vocabulary[Pick(Random)]);
		}
		for (int32 Count = Length(Random); Count > 0; --Count)
		{
			New.Add(Vocabulary[Pick(Random)]);
		}
		const FString Expected = Describe(WalkFullTable(Old, New));
		const FString Actual = Describe(BuildDiffLines(Old, New));
		ASSERT_EQ(Actual, Expected) << "round " << Round;
	}
}

TEST(DiffHunks, CreationAndDeletionAreAllOneSideAndCaseDoesNotCount)
{
	const TArray<FDiffHunk> Created = BuildDiffHunks(TEXT(""), TEXT("x\ny"));
	ASSERT_EQ(Created.Num(), 1);
	ASSERT_EQ(Created[0].Num(), 2);
	EXPECT_EQ(Created[0][0].Type, FDiffLine::Added);
	EXPECT_EQ(Created[0][1].Text, TEXT("y"));
	EXPECT_EQ(Created[0][1].NewLineNumber, 2);
	EXPECT_EQ(Created[0][1].OldLineNumber, 0);

	const TArray<FDiffLine> Deleted = BuildDiffLines(TArray<FString>{ TEXT("x"), TEXT("y") }, {});
	ASSERT_EQ(Deleted.Num(), 2);
	EXPECT_EQ(Deleted[1].Type, FDiffLine::Removed);
	EXPECT_EQ(Deleted[1].OldLineNumber, 2);
	EXPECT_EQ(Deleted[1].NewLineNumber, 0);

	// A changed line: removed before added, and a line that only changed case stays unchanged.
	const TArray<FDiffLine> Changed = BuildDiffLines(TArray<FString>{ TEXT("Keep"), TEXT("old") }, TArray<FString>{ TEXT("KEEP"), TEXT("new") });
	ASSERT_EQ(Changed.Num(), 3);
	EXPECT_EQ(Changed[0].Type, FDiffLine::Unchanged);
	EXPECT_EQ(Changed[1].Type, FDiffLine::Removed);
	EXPECT_EQ(Changed[2].Type, FDiffLine::Added);
	EXPECT_EQ(BuildDiffHunks(TEXT(""), TEXT("")).Num(), 0);

	// Files too large for the table (its size grows with the product of the line counts) show as replaced.
	TArray<FString> Huge;
	Huge.Init(TEXT("same"), 100000);
	const TArray<FDiffLine> Replaced = BuildDiffLines(Huge, Huge);
	ASSERT_EQ(Replaced.Num(), 200000);
	EXPECT_EQ(Replaced[99999].Type, FDiffLine::Removed);
	EXPECT_EQ(Replaced[100000].Type, FDiffLine::Added);
	EXPECT_EQ(Replaced[100000].NewLineNumber, 1);
}

TEST(DiffHunks, SevenUnchangedLinesCutTheHunkSixDoNot)
{
	auto Run = [](int32 Unchanged)
	{
		TArray<FDiffLine> Records;
		Records.Add({ TEXT("+"), FDiffLine::Added, 0, 1 });
		for (int32 Index = 0; Index < Unchanged; ++Index)
		{
			Records.Add({ TEXT("="), FDiffLine::Unchanged, Index + 1, Index + 2 });
		}
		Records.Add({ TEXT("-"), FDiffLine::Removed, Unchanged + 1, 0 });
		return CutDiffHunks(Records);
	};

	const TArray<FDiffHunk> Six = Run(6);
	ASSERT_EQ(Six.Num(), 1);
	EXPECT_EQ(Six[0].Num(), 8);

	// The seventh unchanged line opens the next hunk; nothing is dropped.
	const TArray<FDiffHunk> Seven = Run(7);
	ASSERT_EQ(Seven.Num(), 2);
	EXPECT_EQ(Seven[0].Num(), 7);
	EXPECT_EQ(Seven[1].Num(), 2);
	EXPECT_EQ(Seven[1][0].Type, FDiffLine::Unchanged);

	// Leading unchanged lines never make an empty hunk.
	TArray<FDiffLine> OnlyUnchanged;
	for (int32 Index = 0; Index < 20; ++Index)
	{
		OnlyUnchanged.Add({ TEXT("="), FDiffLine::Unchanged, Index + 1, Index + 1 });
	}
	const TArray<FDiffHunk> Cut = CutDiffHunks(OnlyUnchanged);
	ASSERT_EQ(Cut.Num(), 3);
	EXPECT_EQ(Cut[0].Num(), 6);
	EXPECT_EQ(Cut[1].Num(), 7);
	EXPECT_EQ(Cut[2].Num(), 7);
}
