#include "Agent/FileHistory.h"
#include "Misc/Paths.h"

#include <gtest/gtest.h>

TEST(FileHistory, FirstStoreWinsAndNewEntriesDropTheRedoSide)
{
	FFileHistory& History = FFileHistory::Get();
	History.ClearAllHistory();
	History.StoreFileVersion(TEXT("T1"), TEXT("Source/A.cpp"), TEXT("first"));
	// Both keys compare without case: this is the same file of the same transaction.
	History.StoreFileDeletion(TEXT("t1"), TEXT("source/a.cpp"), TEXT("second"));
	History.StoreFileVersion(TEXT("T1"), TEXT("Empty.txt"), FString());
	History.StoreFileCreation(TEXT("T1"), TEXT("New.txt"), FString());
	const TMap<FString, FFileHistoryEntry>& Files = History.GetFileHistories().FindChecked(TEXT("T1"));
	EXPECT_EQ(Files.Num(), 2);
	const FFileHistoryEntry& Kept = Files.FindChecked(FPaths::ConvertRelativePathToFull(FPaths::ProjectDir(), TEXT("Source/A.cpp")));
	EXPECT_EQ(Kept.ActionType, EFileActionType::Modification);
	EXPECT_TRUE(Kept.Content.Equals(TEXT("first"), ESearchCase::CaseSensitive));

	FFileHistoryEntry Undone;
	Undone.ActionType = EFileActionType::Modification;
	History.StoreFileRedoVersion(TEXT("T1"), TEXT("Source/A.cpp"), TEXT("current"), Undone);
	// A store that adds nothing keeps the redo side; one that adds, in any transaction, empties it.
	History.StoreFileVersion(TEXT("T1"), TEXT("Source/A.cpp"), TEXT("again"));
	EXPECT_TRUE(History.CanRedo(TEXT("T1"), TEXT("Source/A.cpp")));
	History.StoreFileVersion(TEXT("T2"), TEXT("Other.h"), TEXT("text"));
	EXPECT_FALSE(History.CanRedo(TEXT("T1"), TEXT("Source/A.cpp")));

	History.ClearAllHistory();
	EXPECT_FALSE(History.CanUndo(TEXT("T1"), TEXT("Source/A.cpp")));
}
