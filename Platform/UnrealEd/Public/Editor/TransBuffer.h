// UTransBuffer: the editor's transaction queue, with its undo position and barriers.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "Editor/Transactor.h"
#include "TransBuffer.generated.h"

/**
 * Transaction tracking system, manages the undo and redo buffer.
 */
UCLASS(transient)
class UNREALED_API UTransBuffer : public UTransactor
{
	GENERATED_BODY()

public:
	// Sets the memory the queue may use before it drops its oldest transactions.
	void Initialize(SIZE_T InMaxMemory);

	virtual void Reset(const FText& Reason) override;
	virtual int32 Begin(const TCHAR* SessionContext, const FText& Description) override;
	virtual int32 End() override;
	virtual void Cancel(int32 StartIndex = 0) override;
	virtual void SetPrimaryUndoObject(UObject* Object) override;
	virtual bool CanUndo(FText* Text = nullptr) override;
	virtual bool CanRedo(FText* Text = nullptr) override;
	virtual int32 GetQueueLength() const override
	{
		return UndoBuffer.Num();
	}
	virtual const FTransaction* GetTransaction(int32 QueueIndex) const override;
	virtual int32 GetUndoCount() const override
	{
		return UndoCount;
	}
	virtual FTransactionContext GetUndoContext(bool bCheckWhetherUndoPossible = true) override;
	virtual FTransactionContext GetRedoContext() override;
	virtual void SetUndoBarrier() override;
	virtual void RemoveUndoBarrier() override;
	virtual void ClearUndoBarriers() override;
	virtual bool Undo(bool bCanRedo = true) override;
	virtual bool Redo() override;
	virtual bool IsObjectInTransactionBuffer(const UObject* Object) const override;
	virtual bool IsObjectTransacting(const UObject* Object) const override;
	virtual bool IsActive() override
	{
		return ActiveCount > 0;
	}

	// Told after each undo and redo, with the transaction's context.
	DECLARE_EVENT_TwoParams(UTransBuffer, FOnTransactorUndoRedo, const FTransactionContext&, bool);
	FOnTransactorUndoRedo& OnUndo()
	{
		return UndoDelegate;
	}
	FOnTransactorUndoRedo& OnRedo()
	{
		return RedoDelegate;
	}

	// Reports what the queued transactions hold, so that undo can still bring it back.
	static void AddReferencedObjects(UObject* InThis, FReferenceCollector& Collector);
	virtual void BeginDestroy() override;

private:
	TArray<TSharedRef<FTransaction>> UndoBuffer;
	int32 UndoCount = 0;
	int32 ActiveCount = 0;
	// The record count of the open transaction when each open level began, so that cancelling an inner
	// level takes back only what was recorded since.
	TArray<int32> ActiveRecordCounts;
	// The undone transactions the open one cut off; they come back if it is cancelled.
	TArray<TSharedRef<FTransaction>> RemovedTransactions;
	TArray<int32> UndoBarrierStack;
	FText ResetReason;
	SIZE_T MaxMemory = 16 * 1024 * 1024;
	FOnTransactorUndoRedo UndoDelegate;
	FOnTransactorUndoRedo RedoDelegate;
};
