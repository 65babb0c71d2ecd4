// The interface of an undoable transaction, through which objects record themselves (GUndo).
#pragma once

#include "CoreTypes.h"
#include "Containers/UnrealString.h"
#include "Internationalization/Text.h"
#include "Misc/Guid.h"

class UObject;

// What a transaction is about: its title, the tool that opened it, and the object it centres on.
struct FTransactionContext
{
	FTransactionContext() = default;
	FTransactionContext(const FGuid& InTransactionId, const FGuid& InOperationId, const FText& InTitle, const TCHAR* InContext, UObject* InPrimaryObject)
		: TransactionId(InTransactionId)
		, OperationId(InOperationId)
		, Title(InTitle)
		, Context(InContext != nullptr ? InContext : TEXT(""))
		, PrimaryObject(InPrimaryObject)
	{
	}

	bool IsValid() const
	{
		return TransactionId.IsValid();
	}

	FGuid TransactionId;
	FGuid OperationId;
	FText Title;
	FString Context;
	UObject* PrimaryObject = nullptr;
};

class ITransaction
{
public:
	virtual ~ITransaction() = default;

	// True when the object has been recorded in this transaction.
	virtual bool IsObjectTransacting(const UObject* Object) const = 0;
	// Keeps the object's state as it is now, once per transaction, so that undo can bring it back.
	virtual void SaveObject(UObject* Object) = 0;
	virtual void SetPrimaryObject(UObject* Object) = 0;
	// Swaps the recorded states with the objects' current ones: undo, and applied again, redo.
	virtual void Apply() = 0;
	virtual void Finalize() = 0;
	virtual void BeginOperation() = 0;
	virtual void EndOperation() = 0;
	virtual FTransactionContext GetContext() const = 0;
};

// The transaction that is open now, or null.
extern CORE_API ITransaction* GUndo;
// True while an undo or redo puts objects back.
extern CORE_API bool GIsTransacting;
