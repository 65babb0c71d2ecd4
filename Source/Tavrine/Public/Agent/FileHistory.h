#pragma once

#include "CoreMinimal.h"
#include "Misc/DateTime.h"

enum class EFileActionType : uint8
{
	None = 0,
	Creation = 1,
	Modification = 2,
	Deletion = 3
};

/** One stored version of one file. */
struct FFileHistoryEntry
{
	EFileActionType ActionType = EFileActionType::None;
	/** When the entry was stored; kept for the record, never used to decide anything. */
	FDateTime Timestamp;
	FString Content;
};

/** Transaction key to the file's full path to the version kept for it. Both keys compare without case. */
using FFileHistoryMap = TMap<FString, TMap<FString, FFileHistoryEntry>>;

/**
 * The in-memory undo and redo memory of the files that the agent changes, one transaction per
 * conversation. Nothing here survives the editor session.
 */
class TAVRINE_API FFileHistory
{
public:
	static FFileHistory& Get();

	FFileHistory(const FFileHistory&) = delete;
	FFileHistory& operator=(const FFileHistory&) = delete;

	void StoreFileCreation(const FString& TransactionKey, const FString& FilePath, const FString& Content);
	void StoreFileVersion(const FString& TransactionKey, const FString& FilePath, const FString& Content);
	void StoreFileDeletion(const FString& TransactionKey, const FString& FilePath, const FString& Content);
	void StoreFileRedoVersion(const FString& TransactionKey, const FString& FilePath, const FString& CurrentContent, const FFileHistoryEntry& Entry);

	bool CanUndo(const FString& TransactionKey, const FString& FilePath) const;
	bool CanRedo(const FString& TransactionKey, const FString& FilePath) const;

	/** Puts one file back as it was before the transaction; false when the history has nothing for it. */
	bool UndoChanges(const FString& TransactionKey, const FString& FilePath);
	/** Applies again what an undo of the file took back; false when there is nothing to redo. */
	bool RedoChanges(const FString& TransactionKey, const FString& FilePath);
	/** Undoes every file of the transaction; false if any file had nothing to undo. */
	bool UndoAllChanges(const FString& TransactionKey);
	bool RedoAllChanges(const FString& TransactionKey);

	void ClearAllHistory();

	const FFileHistoryMap& GetFileHistories() const { return FileHistories; }
	const FFileHistoryMap& GetRedoHistories() const { return RedoHistories; }

private:
	FFileHistory() = default;

	void StoreEntry(const FString& TransactionKey, const FString& FilePath, const FString& Content, EFileActionType ActionType);
	/** Dispatches the file operation for the action; true means dispatched, not that it succeeded. */
	bool ApplyFileSystemChange(const FString& FilePath, const FString& Content, EFileActionType Action);

	FFileHistoryMap FileHistories;
	FFileHistoryMap RedoHistories;
};
