#include "Agent/FileHistory.h"

#include "Agent/FileUtils.h"
#include "Misc/Paths.h"
#include "Templates/Function.h"

namespace
{
	/**
	 * The key of a file: its full, normalised path. The tools name one file in many ways (relative,
	 * absolute, with "..", with backslashes); under one key it keeps one history, so undo goes back to
	 * the text from before the conversation and redo to the last one.
	 */
	FString ToHistoryPath(const FString& FilePath)
	{
		return FPaths::ConvertRelativePathToFull(FPaths::ProjectDir(), FilePath);
	}

	const FFileHistoryEntry* FindEntry(const FFileHistoryMap& Histories, const FString& TransactionKey, const FString& FilePath)
	{
		const TMap<FString, FFileHistoryEntry>* Files = Histories.Find(TransactionKey);
		return Files != nullptr && !FilePath.IsEmpty() ? Files->Find(ToHistoryPath(FilePath)) : nullptr;
	}

	/**
	 * Calls ApplyToFile for each file of the transaction, in the map's order, going on after a failure.
	 * False if any call gave false; a transaction that isn't there counts as done.
	 */
	bool ApplyToEveryFile(const FFileHistoryMap& Histories, const FString& TransactionKey, TFunctionRef<bool(const FString&)> ApplyToFile)
	{
		const TMap<FString, FFileHistoryEntry>* Files = Histories.Find(TransactionKey);
		if (Files == nullptr)
		{
			return true;
		}
		// The paths first: undoing a file stores on the redo side, never here, but a copy keeps the walk safe.
		TArray<FString> FilePaths;
		Files->GetKeys(FilePaths);
		bool bAllDone = true;
		for (const FString& FilePath : FilePaths)
		{
			bAllDone &= ApplyToFile(FilePath);
		}
		return bAllDone;
	}
}

FFileHistory& FFileHistory::Get()
{
	static FFileHistory Instance;
	return Instance;
}

void FFileHistory::StoreFileCreation(const FString& TransactionKey, const FString& FilePath, const FString& Content)
{
	StoreEntry(TransactionKey, FilePath, Content, EFileActionType::Creation);
}

void FFileHistory::StoreFileVersion(const FString& TransactionKey, const FString& FilePath, const FString& Content)
{
	// An empty text is no version worth restoring.
	if (Content.IsEmpty())
	{
		return;
	}
	StoreEntry(TransactionKey, FilePath, Content, EFileActionType::Modification);
}

void FFileHistory::StoreFileDeletion(const FString& TransactionKey, const FString& FilePath, const FString& Content)
{
	StoreEntry(TransactionKey, FilePath, Content, EFileActionType::Deletion);
}

void FFileHistory::StoreEntry(const FString& TransactionKey, const FString& FilePath, const FString& Content, EFileActionType ActionType)
{
	if (FilePath.IsEmpty())
	{
		return;
	}

	const FString HistoryPath = ToHistoryPath(FilePath);
	TMap<FString, FFileHistoryEntry>& Files = FileHistories.FindOrAdd(TransactionKey);
	// The first store of a file in a transaction wins, so undo goes back to the state before its first change.
	if (Files.Contains(HistoryPath))
	{
		return;
	}

	FFileHistoryEntry Entry;
	Entry.ActionType = ActionType;
	Entry.Timestamp = FDateTime::Now();
	Entry.Content = Content;
	Files.Add(HistoryPath, Entry);

	// A new change makes every redo stale.
	RedoHistories.Empty();
}

void FFileHistory::StoreFileRedoVersion(const FString& TransactionKey, const FString& FilePath, const FString& CurrentContent, const FFileHistoryEntry& Entry)
{
	if (FilePath.IsEmpty())
	{
		return;
	}

	FFileHistoryEntry RedoEntry;
	RedoEntry.Timestamp = FDateTime::Now();
	switch (Entry.ActionType)
	{
	case EFileActionType::Modification:
		if (CurrentContent.IsEmpty())
		{
			return;
		}
		RedoEntry.ActionType = EFileActionType::Modification;
		RedoEntry.Content = CurrentContent;
		break;
	case EFileActionType::Creation:
	case EFileActionType::Deletion:
		RedoEntry.ActionType = Entry.ActionType;
		RedoEntry.Content = Entry.Content;
		break;
	default:
		return;
	}

	// Unlike the undo side, the latest redo version replaces an older one.
	RedoHistories.FindOrAdd(TransactionKey).Add(ToHistoryPath(FilePath), RedoEntry);
}

bool FFileHistory::CanUndo(const FString& TransactionKey, const FString& FilePath) const
{
	return FindEntry(FileHistories, TransactionKey, FilePath) != nullptr;
}

bool FFileHistory::CanRedo(const FString& TransactionKey, const FString& FilePath) const
{
	return FindEntry(RedoHistories, TransactionKey, FilePath) != nullptr;
}

bool FFileHistory::UndoChanges(const FString& TransactionKey, const FString& FilePath)
{
	if (FilePath.IsEmpty())
	{
		return false;
	}
	const FFileHistoryEntry* Found = FindEntry(FileHistories, TransactionKey, FilePath);
	if (Found == nullptr)
	{
		return false;
	}
	// A copy: storing the redo version below may grow the maps that hold the entry.
	const FFileHistoryEntry Entry = *Found;

	const FString FullPath = ToHistoryPath(FilePath);
	// Redo puts back the file as the conversation left it, its text or its absence, stored before the
	// file is touched. The kind of the first change alone would lose what came after it: a created
	// file's later edits, or the deletion of a file that was edited first.
	const bool bFileExists = FPaths::FileExists(FullPath);
	const FString CurrentContent = FFileUtils::ReadFile(FullPath);
	FFileHistoryEntry LastState = Entry;
	if (!bFileExists)
	{
		LastState.ActionType = EFileActionType::Deletion;
	}
	else if (Entry.ActionType != EFileActionType::Modification)
	{
		LastState.ActionType = EFileActionType::Creation;
		LastState.Content = CurrentContent;
	}
	StoreFileRedoVersion(TransactionKey, FullPath, CurrentContent, LastState);

	EFileActionType InvertedAction = Entry.ActionType;
	if (Entry.ActionType == EFileActionType::Creation)
	{
		InvertedAction = EFileActionType::Deletion;
	}
	else if (Entry.ActionType == EFileActionType::Deletion || !bFileExists)
	{
		// A file edited and then deleted can't be rewritten; it is made again with its text from before.
		InvertedAction = EFileActionType::Creation;
	}
	// The entry stays: undo isn't consumed, so a second undo repeats the same writes.
	return ApplyFileSystemChange(FullPath, Entry.Content, InvertedAction);
}

bool FFileHistory::RedoChanges(const FString& TransactionKey, const FString& FilePath)
{
	if (FilePath.IsEmpty())
	{
		return false;
	}
	const FFileHistoryEntry* Found = FindEntry(RedoHistories, TransactionKey, FilePath);
	if (Found == nullptr)
	{
		return false;
	}
	const FFileHistoryEntry Entry = *Found;
	// The action as stored: a creation that was undone is made again, a deletion is done again.
	return ApplyFileSystemChange(ToHistoryPath(FilePath), Entry.Content, Entry.ActionType);
}

bool FFileHistory::UndoAllChanges(const FString& TransactionKey)
{
	return ApplyToEveryFile(FileHistories, TransactionKey, [this, &TransactionKey](const FString& FilePath)
	{
		return UndoChanges(TransactionKey, FilePath);
	});
}

bool FFileHistory::RedoAllChanges(const FString& TransactionKey)
{
	return ApplyToEveryFile(RedoHistories, TransactionKey, [this, &TransactionKey](const FString& FilePath)
	{
		return RedoChanges(TransactionKey, FilePath);
	});
}

bool FFileHistory::ApplyFileSystemChange(const FString& FilePath, const FString& Content, EFileActionType Action)
{
	// The operations' result texts are dropped: true means dispatched, not succeeded.
	switch (Action)
	{
	case EFileActionType::Creation:
		FFileUtils::CreateNewFileWithContent(FilePath, Content);
		return true;
	case EFileActionType::Modification:
		FFileUtils::ReplaceFile(FilePath, Content);
		return true;
	case EFileActionType::Deletion:
		FFileUtils::DeleteFile(FilePath);
		return true;
	default:
		return false;
	}
}

void FFileHistory::ClearAllHistory()
{
	FileHistories.Empty();
	RedoHistories.Empty();
}
