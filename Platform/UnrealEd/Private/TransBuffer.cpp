#include "Editor/TransBuffer.h"
#include "UObject/UObjectGlobals.h"

DEFINE_LOG_CATEGORY_STATIC(LogEditorTransaction, Log, All);

void UTransBuffer::Initialize(SIZE_T InMaxMemory)
{
	MaxMemory = InMaxMemory;
}

void UTransBuffer::Reset(const FText& Reason)
{
	if (ActiveCount != 0)
	{
		UE_LOG(LogEditorTransaction, Warning, TEXT("Reset while %d transaction levels are open: %s"), ActiveCount, *Reason.ToString());
	}
	if (GUndo != nullptr && UndoBuffer.Num() > 0 && GUndo == &UndoBuffer.Last().Get())
	{
		GUndo = nullptr;
	}
	UndoBuffer.Empty();
	RemovedTransactions.Empty();
	UndoCount = 0;
	ActiveCount = 0;
	ActiveRecordCounts.Empty();
	UndoBarrierStack.Empty();
	ResetReason = Reason;
}

int32 UTransBuffer::Begin(const TCHAR* SessionContext, const FText& Description)
{
	const int32 Result = ActiveCount;
	if (ActiveCount++ == 0)
	{
		// A new step cuts off what was undone: it can't be redone after something else was done. They are
		// kept until the step ends, so that cancelling it brings them back.
		if (UndoCount > 0)
		{
			for (int32 Index = UndoBuffer.Num() - UndoCount; Index < UndoBuffer.Num(); ++Index)
			{
				RemovedTransactions.Add(UndoBuffer[Index]);
			}
			UndoBuffer.RemoveAt(UndoBuffer.Num() - UndoCount, UndoCount);
			UndoCount = 0;
		}
		UndoBuffer.Add(MakeShared<FTransaction>(SessionContext, Description, true));
		GUndo = &UndoBuffer.Last().Get();
		GUndo->BeginOperation();
	}
	ActiveRecordCounts.Add(UndoBuffer.Last()->GetRecordCount());
	return Result;
}

int32 UTransBuffer::End()
{
	if (ActiveCount >= 1)
	{
		if (--ActiveCount == 0)
		{
			if (GUndo != nullptr)
			{
				GUndo->Finalize();
				GUndo->EndOperation();
				// A step that changed nothing isn't worth an undo.
				if (UndoBuffer.Num() > 0 && GUndo == &UndoBuffer.Last().Get() && UndoBuffer.Last()->IsTransient())
				{
					UndoBuffer.Pop();
				}
			}
			GUndo = nullptr;
			RemovedTransactions.Empty();
		}
		ActiveRecordCounts.Pop();
	}
	return ActiveCount;
}

void UTransBuffer::Cancel(int32 StartIndex)
{
	if (ActiveCount <= 0)
	{
		return;
	}
	if (StartIndex <= 0)
	{
		// The whole open transaction goes; what it recorded isn't put back, but what it cut off can be redone again.
		if (UndoBuffer.Num() > 0)
		{
			UndoBuffer.Pop();
		}
		UndoBuffer.Append(RemovedTransactions);
		UndoCount = RemovedTransactions.Num();
		RemovedTransactions.Empty();
		GUndo = nullptr;
		ActiveCount = 0;
		ActiveRecordCounts.Empty();
		return;
	}
	if (StartIndex >= ActiveRecordCounts.Num())
	{
		return;
	}
	const int32 RecordsToKeep = ActiveRecordCounts[StartIndex];
	FTransaction& Transaction = UndoBuffer.Last().Get();
	Transaction.RemoveRecords(Transaction.GetRecordCount() - RecordsToKeep);
	ActiveCount = StartIndex;
	ActiveRecordCounts.SetNum(StartIndex);
}

void UTransBuffer::SetPrimaryUndoObject(UObject* Object)
{
	if (ActiveCount > 0 && UndoBuffer.Num() > 0)
	{
		UndoBuffer.Last()->SetPrimaryObject(Object);
	}
}

bool UTransBuffer::CanUndo(FText* Text)
{
	if (ActiveCount > 0)
	{
		if (Text != nullptr)
		{
			*Text = NSLOCTEXT("TransactionSystem", "CantUndoDuringTransaction", "(Can't undo while action is in progress)");
		}
		return false;
	}
	if (UndoBarrierStack.Num() > 0 && UndoBuffer.Num() - UndoCount <= UndoBarrierStack.Last())
	{
		if (Text != nullptr)
		{
			*Text = NSLOCTEXT("TransactionSystem", "HitUndoBarrier", "(Hit Undo barrier; can't undo any further)");
		}
		return false;
	}
	if (UndoBuffer.Num() == UndoCount)
	{
		if (Text != nullptr)
		{
			*Text = NSLOCTEXT("TransactionSystem", "NothingToUndo", "(Nothing to undo)");
		}
		return false;
	}
	return true;
}

bool UTransBuffer::CanRedo(FText* Text)
{
	if (ActiveCount > 0)
	{
		if (Text != nullptr)
		{
			*Text = NSLOCTEXT("TransactionSystem", "CantRedoDuringTransaction", "(Can't redo while action is in progress)");
		}
		return false;
	}
	if (UndoCount == 0)
	{
		if (Text != nullptr)
		{
			*Text = NSLOCTEXT("TransactionSystem", "NothingToRedo", "(Nothing to redo)");
		}
		return false;
	}
	return true;
}

const FTransaction* UTransBuffer::GetTransaction(int32 QueueIndex) const
{
	return UndoBuffer.IsValidIndex(QueueIndex) ? &UndoBuffer[QueueIndex].Get() : nullptr;
}

FTransactionContext UTransBuffer::GetUndoContext(bool bCheckWhetherUndoPossible)
{
	if (bCheckWhetherUndoPossible && !CanUndo())
	{
		return FTransactionContext();
	}
	const int32 Index = UndoBuffer.Num() - UndoCount - 1;
	return UndoBuffer.IsValidIndex(Index) ? UndoBuffer[Index]->GetContext() : FTransactionContext();
}

FTransactionContext UTransBuffer::GetRedoContext()
{
	if (!CanRedo())
	{
		return FTransactionContext();
	}
	return UndoBuffer[UndoBuffer.Num() - UndoCount]->GetContext();
}

void UTransBuffer::SetUndoBarrier()
{
	UndoBarrierStack.Push(UndoBuffer.Num() - UndoCount);
}

void UTransBuffer::RemoveUndoBarrier()
{
	if (UndoBarrierStack.Num() > 0)
	{
		UndoBarrierStack.Pop();
	}
}

void UTransBuffer::ClearUndoBarriers()
{
	UndoBarrierStack.Empty();
}

bool UTransBuffer::Undo(bool bCanRedo)
{
	if (!CanUndo())
	{
		return false;
	}
	FTransaction& Transaction = UndoBuffer[UndoBuffer.Num() - ++UndoCount].Get();
	const FTransactionContext Context = Transaction.GetContext();
	GIsTransacting = true;
	Transaction.Apply();
	GIsTransacting = false;
	if (!bCanRedo)
	{
		UndoBuffer.RemoveAt(UndoBuffer.Num() - UndoCount, UndoCount);
		UndoCount = 0;
	}
	UndoDelegate.Broadcast(Context, true);
	return true;
}

bool UTransBuffer::Redo()
{
	if (!CanRedo())
	{
		return false;
	}
	FTransaction& Transaction = UndoBuffer[UndoBuffer.Num() - UndoCount--].Get();
	GIsTransacting = true;
	Transaction.Apply();
	GIsTransacting = false;
	RedoDelegate.Broadcast(Transaction.GetContext(), true);
	return true;
}

bool UTransBuffer::IsObjectInTransactionBuffer(const UObject* Object) const
{
	for (const TSharedRef<FTransaction>& Transaction : UndoBuffer)
	{
		if (Transaction->ContainsObject(Object))
		{
			return true;
		}
	}
	return false;
}

bool UTransBuffer::IsObjectTransacting(const UObject* Object) const
{
	return ActiveCount > 0 && UndoBuffer.Num() > 0 && UndoBuffer.Last()->ContainsObject(Object);
}

void UTransBuffer::AddReferencedObjects(UObject* InThis, FReferenceCollector& Collector)
{
	UTransBuffer* This = static_cast<UTransBuffer*>(InThis);
	for (TSharedRef<FTransaction>& Transaction : This->UndoBuffer)
	{
		Transaction->AddReferencedObjects(Collector);
	}
	for (TSharedRef<FTransaction>& Transaction : This->RemovedTransactions)
	{
		Transaction->AddReferencedObjects(Collector);
	}
	Super::AddReferencedObjects(InThis, Collector);
}

void UTransBuffer::BeginDestroy()
{
	if (GUndo != nullptr && UndoBuffer.Num() > 0 && GUndo == &UndoBuffer.Last().Get())
	{
		GUndo = nullptr;
	}
	Super::BeginDestroy();
}
