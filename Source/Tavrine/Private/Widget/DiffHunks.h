#pragma once

#include "CoreMinimal.h"

/** One line of a file change as the chat shows it. */
struct FDiffLine
{
	static constexpr int32 Unchanged = 0;
	static constexpr int32 Added = 1;
	static constexpr int32 Removed = 2;

	FString Text;
	/** Unchanged, Added or Removed. */
	int32 Type = Unchanged;
	/** 1-based; 0 on the side the line doesn't belong to. */
	int32 OldLineNumber = 0;
	int32 NewLineNumber = 0;
};

/** A run of diff lines shown together; the chat draws a gap between two of them. */
using FDiffHunk = TArray<FDiffLine>;

/**
 * The lines of two versions of a file, matched by a longest common subsequence (lines compared without
 * regard to case) and walked back from the ends: in file order, removed lines come before added lines at
 * one place.
 */
TArray<FDiffLine> BuildDiffLines(const TArray<FString>& OldLines, const TArray<FString>& NewLines);

/** Cuts the lines into hunks: a run of seven unchanged lines starts a new hunk at its seventh. */
TArray<FDiffHunk> CutDiffHunks(const TArray<FDiffLine>& Lines);

/** The hunks of the change from Old to New, both split into lines with empty lines kept. */
TArray<FDiffHunk> BuildDiffHunks(const FString& Old, const FString& New);
