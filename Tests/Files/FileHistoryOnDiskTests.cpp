// Undo and redo of a conversation's file changes: what the history keeps, and how it plays back on real
// files stored the way the tool handlers store them.
#include "Agent/FileHistory.h"
#include "Agent/FileUtils.h"
#include "FilesTestFixture.h"

namespace
{
	const FString Conversation = TEXT("0123456789ABCDEF0123456789ABCDEF");

	class FFileHistoryOnDiskTest : public FFilesTest
	{
	protected:
		void SetUp() override
		{
			FFilesTest::SetUp();
			History.ClearAllHistory();
		}

		// Each change stores its undo data first, as the handlers do.
		void Create(const FString& Path, const FString& Text)
		{
			History.StoreFileCreation(Conversation, Path, Text);
			FFileUtils::CreateNewFileWithContent(Path, Text);
		}

		void Modify(const FString& Path, const FString& OldString, const FString& NewString)
		{
			History.StoreFileVersion(Conversation, Path, FFileUtils::ReadFile(Path));
			FString Original;
			FString Updated;
			FFileUtils::UpdateFile(Path, OldString, NewString, Original, Updated);
		}

		void Delete(const FString& Path)
		{
			History.StoreFileDeletion(Conversation, Path, FFileUtils::ReadFile(Path));
			FFileUtils::DeleteFile(Path);
		}

		const FFileHistoryEntry& RedoEntry(const TCHAR* Path) const
		{
			return RedoEntryOf(Conversation, Path);
		}

		const FFileHistoryEntry& RedoEntryOf(const FString& TransactionKey, const TCHAR* Path) const
		{
			return History.GetRedoHistories().FindChecked(TransactionKey).FindChecked(ProjectPath(Path));
		}

		FFileHistory& History = FFileHistory::Get();
	};
}

TEST_F(FFileHistoryOnDiskTest, UndoAndRedoOfAConversationPutEveryFileBackAndForth)
{
	WriteBytes(TEXT("Source/Kept.cpp"), "int Value = 1;\n");
	WriteBytes(TEXT("Source/Removed.h"), "#pragma once\n");
	Create(TEXT("Source/New.cpp"), TEXT("// new\n"));
	// Edited after its creation: the creation entry stays, so undo deletes the file.
	Modify(TEXT("Source/New.cpp"), TEXT("new"), TEXT("newer"));
	Modify(TEXT("Source/Kept.cpp"), TEXT("1"), TEXT("2"));
	Modify(TEXT("Source/Kept.cpp"), TEXT("2"), TEXT("3"));
	Delete(TEXT("Source/Removed.h"));

	EXPECT_TRUE(History.UndoAllChanges(Conversation));
	EXPECT_FALSE(Exists(TEXT("Source/New.cpp")));
	// A modification comes back through the whole-content rewrite, a deletion through creation.
	EXPECT_EQ(ReadBytes(TEXT("Source/Kept.cpp")), Utf8Bom + "int Value = 1;\n");
	EXPECT_EQ(ReadBytes(TEXT("Source/Removed.h")), "#pragma once\n");
	EXPECT_EQ(RedoEntry(TEXT("Source/New.cpp")).Content, TEXT("// newer\n"));
	EXPECT_EQ(RedoEntry(TEXT("Source/Kept.cpp")).Content, TEXT("int Value = 3;\n"));
	EXPECT_EQ(RedoEntry(TEXT("Source/Removed.h")).ActionType, EFileActionType::Deletion);

	EXPECT_TRUE(History.RedoAllChanges(Conversation));
	// Redo makes the file as the conversation left it, with the edit after its creation.
	EXPECT_EQ(ReadBytes(TEXT("Source/New.cpp")), "// newer\n");
	EXPECT_EQ(ReadBytes(TEXT("Source/Kept.cpp")), Utf8Bom + "int Value = 3;\n");
	EXPECT_FALSE(Exists(TEXT("Source/Removed.h")));

	// Nothing was consumed: undo works again with the same entries, and takes the newest text for redo.
	WriteBytes(TEXT("Source/Kept.cpp"), "int Value = 4;\n");
	EXPECT_TRUE(History.UndoAllChanges(Conversation));
	EXPECT_EQ(RedoEntry(TEXT("Source/Kept.cpp")).Content, TEXT("int Value = 4;\n"));
	EXPECT_EQ(ReadBytes(TEXT("Source/Kept.cpp")), Utf8Bom + "int Value = 1;\n");
	EXPECT_TRUE(Exists(TEXT("Source/Removed.h")));
	EXPECT_FALSE(Exists(TEXT("Source/New.cpp")));
}

TEST_F(FFileHistoryOnDiskTest, MissingEntriesAreRefusedAndDeletedFilesComeBack)
{
	WriteBytes(TEXT("A.txt"), "a");
	Modify(TEXT("A.txt"), TEXT("a"), TEXT("b"));
	EXPECT_FALSE(History.UndoChanges(Conversation, FString()));
	EXPECT_FALSE(History.UndoChanges(TEXT("other"), TEXT("A.txt")));
	EXPECT_FALSE(History.RedoChanges(Conversation, TEXT("A.txt")));
	EXPECT_TRUE(History.UndoAllChanges(TEXT("unknown")));
	EXPECT_EQ(ReadBytes(TEXT("A.txt")), Utf8Bom + "b");

	// Deleted since its modification: undo makes it again with its text from before, and redo deletes it.
	FFileUtils::DeleteFile(TEXT("A.txt"));
	EXPECT_TRUE(History.UndoAllChanges(Conversation));
	EXPECT_EQ(ReadBytes(TEXT("A.txt")), "a");
	EXPECT_EQ(RedoEntry(TEXT("A.txt")).ActionType, EFileActionType::Deletion);
	EXPECT_TRUE(History.RedoAllChanges(Conversation));
	EXPECT_FALSE(Exists(TEXT("A.txt")));

	// An empty creation is undone and redone; an undone deletion comes back through creation, which
	// picks UTF-16 for non-ASCII text where the file was UTF-8.
	Create(TEXT("Empty.txt"), FString());
	WriteBytes(TEXT("Text.txt"), Utf8Bom + "caf\xC3\xA9");
	Delete(TEXT("Text.txt"));
	EXPECT_TRUE(History.UndoChanges(Conversation, TEXT("Empty.txt")));
	EXPECT_TRUE(History.UndoChanges(Conversation, TEXT("Text.txt")));
	EXPECT_FALSE(Exists(TEXT("Empty.txt")));
	EXPECT_EQ(ReadBytes(TEXT("Text.txt")), Utf16LeBom + Utf16LeBytes(TEXT("caf\u00e9")));
	EXPECT_TRUE(History.RedoChanges(Conversation, TEXT("Empty.txt")));
	EXPECT_EQ(ReadBytes(TEXT("Empty.txt")), "");

	History.ClearAllHistory();
	EXPECT_FALSE(History.CanUndo(Conversation, TEXT("A.txt")));
	EXPECT_FALSE(History.CanRedo(Conversation, TEXT("Empty.txt")));
}

TEST_F(FFileHistoryOnDiskTest, UndoSideKeepsTheFirstStoreRedoSideTheLastAndOnlyANewEntryDropsRedo)
{
	const FString Other = TEXT("FEDCBA9876543210FEDCBA9876543210");
	FFileHistoryEntry Modified;
	Modified.ActionType = EFileActionType::Modification;
	Modified.Content = TEXT("before");
	History.StoreFileVersion(Conversation, TEXT("Source/A.cpp"), TEXT("first"));
	History.StoreFileRedoVersion(Other, TEXT("Source/B.cpp"), TEXT("redo one"), Modified);
	History.StoreFileRedoVersion(Other, TEXT("Source/B.cpp"), TEXT("redo two"), Modified);

	// Neither a second store of a stored file (its path in other letter case) nor an empty version adds
	// anything, so neither touches the redo side.
	History.StoreFileVersion(Conversation, TEXT("source/a.CPP"), TEXT("second"));
	History.StoreFileDeletion(Conversation, TEXT("Source/A.cpp"), TEXT("third"));
	History.StoreFileVersion(Conversation, TEXT("Source/Empty.cpp"), FString());
	History.StoreFileCreation(Conversation, FString(), TEXT("no path"));
	const FFileHistoryEntry& Kept = History.GetFileHistories().FindChecked(Conversation).FindChecked(ProjectPath(TEXT("Source/A.cpp")));
	EXPECT_EQ(Kept.ActionType, EFileActionType::Modification);
	EXPECT_EQ(Kept.Content, TEXT("first"));
	EXPECT_EQ(History.GetFileHistories().FindChecked(Conversation).Num(), 1);
	ASSERT_TRUE(History.CanRedo(Other, TEXT("Source/B.cpp")));
	EXPECT_EQ(RedoEntryOf(Other, TEXT("Source/B.cpp")).Content, TEXT("redo two"));

	// A redo version of a modification is the current text, unless that is empty; of a creation or a
	// deletion, the undo entry's own text; of anything else, nothing.
	FFileHistoryEntry Created;
	Created.ActionType = EFileActionType::Creation;
	Created.Content = TEXT("created");
	History.StoreFileRedoVersion(Other, TEXT("Source/B.cpp"), FString(), Modified);
	History.StoreFileRedoVersion(Other, TEXT("Source/C.cpp"), TEXT("ignored"), Created);
	History.StoreFileRedoVersion(Other, TEXT("Source/D.cpp"), TEXT("text"), FFileHistoryEntry());
	EXPECT_EQ(RedoEntryOf(Other, TEXT("Source/B.cpp")).Content, TEXT("redo two"));
	EXPECT_EQ(RedoEntryOf(Other, TEXT("Source/C.cpp")).Content, TEXT("created"));
	EXPECT_FALSE(History.CanRedo(Other, TEXT("Source/D.cpp")));

	// A new file in any transaction drops the redo side of all of them.
	History.StoreFileCreation(Conversation, TEXT("Source/New.cpp"), FString());
	EXPECT_TRUE(History.GetRedoHistories().IsEmpty());
	EXPECT_TRUE(History.CanUndo(Conversation, TEXT("SOURCE/NEW.cpp")));
}
