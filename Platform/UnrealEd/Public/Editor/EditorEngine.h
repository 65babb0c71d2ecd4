// UEditorEngine: the engine of the editor; it owns the transaction queue (Trans).
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "Engine/Engine.h"
#include "EditorEngine.generated.h"

class UTransactor;

/**
 * Engine that drives the Editor.
 */
UCLASS(transient)
class UNREALED_API UEditorEngine : public UEngine
{
	GENERATED_BODY()

public:
	UEditorEngine(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	/** The editor's undo queue. */
	UPROPERTY()
	TObjectPtr<UTransactor> Trans;

	virtual void Init() override;
	virtual void PreExit() override;
	// Makes the undo queue; Init calls it.
	virtual UTransactor* CreateTrans();

	// Opens a transaction (or joins the open one); gives the nesting level, or INDEX_NONE without a queue.
	int32 BeginTransaction(const TCHAR* TransactionContext, const FText& Description, UObject* PrimaryObject);
	int32 BeginTransaction(const FText& Description);
	int32 EndTransaction();
	void CancelTransaction(int32 Index);
	// Undoes the newest transaction not yet undone; without bCanRedo, undone transactions leave the queue.
	bool UndoTransaction(bool bCanRedo = true);
	bool RedoTransaction();
	void ResetTransaction(const FText& Reason);
	bool CanTransact()
	{
		return Trans != nullptr;
	}
	bool IsTransactionActive() const;
	// The title of the open transaction, or an empty text.
	FText GetTransactionName() const;
};
