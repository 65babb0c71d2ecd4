// The editor's undo system: FTransaction, one undoable step, and UTransactor, the queue of them.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/Object.h"
#include "Misc/ITransaction.h"
#include "Transactor.generated.h"

class UTransactor;

// One undoable step: the objects it recorded, each with its state from before the step. Applying it swaps
// the recorded states with the current ones, so that applying it again redoes the step.
class UNREALED_API FTransaction : public ITransaction
{
public:
	FTransaction(const TCHAR* InContext = nullptr, const FText& InTitle = FText(), bool bInFlip = false);
	virtual ~FTransaction();
	FTransaction(const FTransaction&) = delete;
	FTransaction& operator=(const FTransaction&) = delete;

	// ITransaction
	virtual bool IsObjectTransacting(const UObject* Object) const override;
	virtual void SaveObject(UObject* Object) override;
	virtual void SetPrimaryObject(UObject* Object) override;
	virtual void Apply() override;
	virtual void Finalize() override;
	virtual void BeginOperation() override;
	virtual void EndOperation() override;
	virtual FTransactionContext GetContext() const override;

	FText GetTitle() const
	{
		return Title;
	}
	FString GetContextString() const
	{
		return Context;
	}
	FGuid GetId() const
	{
		return Id;
	}
	int32 GetRecordCount() const
	{
		return Records.Num();
	}
	bool ContainsObject(const UObject* Object) const;
	// Nothing it recorded differs from its recorded state: such a step leaves the queue when it ends.
	bool IsTransient() const;
	// The objects recorded, in the order they were recorded.
	void GetTransactionObjects(TArray<UObject*>& Objects) const;
	// Drops the last records; a cancelled nested transaction takes back what it recorded.
	void RemoveRecords(int32 Count = 1);
	// Reports the recorded objects and what their recorded states refer to.
	void AddReferencedObjects(FReferenceCollector& Collector);

private:
	struct FObjectRecord;

	TArray<TUniquePtr<FObjectRecord>> Records;
	FGuid Id;
	FGuid OperationId;
	FText Title;
	FString Context;
	UObject* PrimaryObject = nullptr;
	bool bFlip = true;
	// Undo walks the records from the last, redo from the first.
	int32 Inc = -1;
};

/**
 * Object interface for a transaction tracking system; the editor's undo and redo go through it (GEditor->Trans).
 */
UCLASS(abstract, transient)
class UNREALED_API UTransactor : public UObject
{
	GENERATED_BODY()

public:
	// Drops every transaction; Reason says why, for those who ask.
	virtual void Reset(const FText& Reason)
	{
	}
	// Opens a transaction, or joins the open one; gives the nesting level it opened at.
	virtual int32 Begin(const TCHAR* SessionContext, const FText& Description)
	{
		return INDEX_NONE;
	}
	// Closes the innermost open level; gives the levels still open.
	virtual int32 End()
	{
		return 0;
	}
	// Takes back the levels from StartIndex on; with 0 the whole open transaction is dropped.
	virtual void Cancel(int32 StartIndex = 0)
	{
	}
	virtual void SetPrimaryUndoObject(UObject* Object)
	{
	}
	virtual bool CanUndo(FText* Text = nullptr)
	{
		return false;
	}
	virtual bool CanRedo(FText* Text = nullptr)
	{
		return false;
	}
	// The number of transactions in the queue, undone ones included.
	virtual int32 GetQueueLength() const
	{
		return 0;
	}
	// The transaction at that place of the queue, oldest first; null outside the queue.
	virtual const FTransaction* GetTransaction(int32 QueueIndex) const
	{
		return nullptr;
	}
	// How many transactions at the end of the queue are undone (and could be redone).
	virtual int32 GetUndoCount() const
	{
		return 0;
	}
	virtual FTransactionContext GetUndoContext(bool bCheckWhetherUndoPossible = true)
	{
		return FTransactionContext();
	}
	virtual FTransactionContext GetRedoContext()
	{
		return FTransactionContext();
	}
	virtual void SetUndoBarrier()
	{
	}
	virtual void RemoveUndoBarrier()
	{
	}
	virtual void ClearUndoBarriers()
	{
	}
	virtual bool Undo(bool bCanRedo = true)
	{
		return false;
	}
	virtual bool Redo()
	{
		return false;
	}
	virtual bool IsObjectInTransactionBuffer(const UObject* Object) const
	{
		return false;
	}
	virtual bool IsObjectTransacting(const UObject* Object) const
	{
		return false;
	}
	virtual bool ContainsPieObjects() const
	{
		return false;
	}
	// A transaction is open.
	virtual bool IsActive()
	{
		return false;
	}
};
