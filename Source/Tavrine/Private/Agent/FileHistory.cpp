#include "Agent/FileHistory.h"

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

	TMap<FString, FFileHistoryEntry>& Files = FileHistories.FindOrAdd(TransactionKey);
	// The first store of a file in a transaction wins, so undo goes back to the state before its first change.
	if (Files.Contains(FilePath))
	{
		return;
	}

	FFileHistoryEntry Entry;
	Entry.ActionType = ActionType;
	Entry.Timestamp = FDateTime::Now();
	Entry.Content = Content;
	Files.Add(FilePath, Entry);

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
	RedoHistories.FindOrAdd(TransactionKey).Add(FilePath, RedoEntry);
}

bool FFileHistory::CanUndo(const FString& TransactionKey, const FString& FilePath) const
{
	const TMap<FString, FFileHistoryEntry>* Files = FileHistories.Find(TransactionKey);
	return Files && Files->Contains(FilePath);
}

bool FFileHistory::CanRedo(const FString& TransactionKey, const FString& FilePath) const
{
	const TMap<FString, FFileHistoryEntry>* Files = RedoHistories.Find(TransactionKey);
	return Files && Files->Contains(FilePath);
}

void FFileHistory::ClearAllHistory()
{
	FileHistories.Empty();
	RedoHistories.Empty();
}
