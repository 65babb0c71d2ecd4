#include "ScopedTransaction.h"
#include "Editor.h"
#include "Editor/Transactor.h"

FScopedTransaction::FScopedTransaction(const FText& SessionName, const bool bShouldActuallyTransact)
{
	Construct(nullptr, SessionName, nullptr, bShouldActuallyTransact);
}

FScopedTransaction::FScopedTransaction(const TCHAR* TransactionContext, const FText& SessionName, UObject* PrimaryObject, const bool bShouldActuallyTransact)
{
	Construct(TransactionContext, SessionName, PrimaryObject, bShouldActuallyTransact);
}

void FScopedTransaction::Construct(const TCHAR* TransactionContext, const FText& SessionName, UObject* PrimaryObject, const bool bShouldActuallyTransact)
{
	// No transaction opens while an undo or redo puts objects back.
	if (bShouldActuallyTransact && GEditor != nullptr && GEditor->CanTransact() && !GIsTransacting)
	{
		Index = GEditor->BeginTransaction(TransactionContext, SessionName, PrimaryObject);
	}
	else
	{
		Index = INDEX_NONE;
	}
}

FScopedTransaction::~FScopedTransaction()
{
	if (IsOutstanding() && GEditor != nullptr)
	{
		GEditor->EndTransaction();
	}
}

void FScopedTransaction::Cancel()
{
	if (IsOutstanding() && GEditor != nullptr)
	{
		GEditor->CancelTransaction(Index);
		Index = INDEX_NONE;
	}
}
