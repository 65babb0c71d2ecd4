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
		// A new step cuts off what was undone: it can't be redone after something else was done.
		if (UndoCount > 0)
		{
			UndoBuffer.RemoveAt(UndoBuffer.Num() - UndoCount, UndoCount);
			UndoCount = 0;
		}
		UndoBuffer.Add(MakeShared<FTransaction>(SessionContext, Description, true));
		GUndo = &UndoBuffer.Last().Get();
		GUndo->BeginOperation();
	}
	const int32 PriorRecords = Result > 0 ? ActiveRecordCounts[Result - 1] : 0;
	ActiveRecordCounts.Add(UndoBuffer.Last()->GetRecordCount() - PriorRecords);
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
			}
			GUndo = nullptr;
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
		// The whole open transaction goes; what it recorded isn't put back.
		if (UndoBuffer.Num() > 0)
		{
			UndoBuffer.Pop();
		}
		GUndo = nullptr;
		ActiveCount = 0;
		ActiveRecordCounts.Empty();
		return;
	}
	int32 RecordsToKeep = 0;
	for (int32 Level = 0; Level <= StartIndex && Level < ActiveRecordCounts.Num(); ++Level)
	{
		RecordsToKeep += ActiveRecordCounts[Level];
	}
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
