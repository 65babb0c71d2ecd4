// FScopedTransaction: an undoable transaction that lasts as long as this object.
#pragma once

#include "CoreMinimal.h"

class UObject;

class UNREALED_API FScopedTransaction
{
public:
	// Opens a transaction titled SessionName on the editor's queue, or joins the one that is open. Without
	// an editor, or with bShouldActuallyTransact false, nothing is recorded.
	FScopedTransaction(const FText& SessionName, const bool bShouldActuallyTransact = true);
	FScopedTransaction(const TCHAR* TransactionContext, const FText& SessionName, UObject* PrimaryObject, const bool bShouldActuallyTransact = true);
	~FScopedTransaction();
	FScopedTransaction(const FScopedTransaction&) = delete;
	FScopedTransaction& operator=(const FScopedTransaction&) = delete;

	// Takes back what this level recorded; the transaction then isn't ended by the destructor.
	void Cancel();
	bool IsOutstanding() const
	{
		return Index >= 0;
	}

private:
	void Construct(const TCHAR* TransactionContext, const FText& SessionName, UObject* PrimaryObject, const bool bShouldActuallyTransact);

	int32 Index = INDEX_NONE;
};
