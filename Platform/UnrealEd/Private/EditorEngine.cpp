#include "Editor/EditorEngine.h"
#include "Editor/TransBuffer.h"
#include "Editor.h"
#include "UObject/Package.h"
#include "UObject/UObjectGlobals.h"

UEditorEngine* GEditor = nullptr;

UEditorEngine::UEditorEngine(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
{
}

void UEditorEngine::Init()
{
	if (Trans == nullptr)
	{
		Trans = CreateTrans();
	}
	Super::Init();
}

void UEditorEngine::PreExit()
{
	if (Trans != nullptr)
	{
		Trans->Reset(NSLOCTEXT("UnrealEd", "Exit", "Exit"));
	}
	Super::PreExit();
}

UTransactor* UEditorEngine::CreateTrans()
{
	UTransBuffer* TransBuffer = NewObject<UTransBuffer>(GetTransientPackage(), FName(TEXT("TransBuffer")));
	TransBuffer->Initialize(16 * 1024 * 1024);
	return TransBuffer;
}

int32 UEditorEngine::BeginTransaction(const TCHAR* TransactionContext, const FText& Description, UObject* PrimaryObject)
{
	if (Trans == nullptr)
	{
		return INDEX_NONE;
	}
	const int32 Index = Trans->Begin(TransactionContext, Description);
	Trans->SetPrimaryUndoObject(PrimaryObject);
	return Index;
}

int32 UEditorEngine::BeginTransaction(const FText& Description)
{
	return BeginTransaction(nullptr, Description, nullptr);
}

int32 UEditorEngine::EndTransaction()
{
	return Trans != nullptr ? Trans->End() : 0;
}

void UEditorEngine::CancelTransaction(int32 Index)
{
	if (Trans != nullptr)
	{
		Trans->Cancel(Index);
	}
}

bool UEditorEngine::UndoTransaction(bool bCanRedo)
{
	if (Trans == nullptr || IsGarbageCollecting())
	{
		return false;
	}
	return Trans->Undo(bCanRedo);
}

bool UEditorEngine::RedoTransaction()
{
	if (Trans == nullptr || IsGarbageCollecting())
	{
		return false;
	}
	return Trans->Redo();
}

void UEditorEngine::ResetTransaction(const FText& Reason)
{
	if (Trans != nullptr)
	{
		Trans->Reset(Reason);
	}
}

bool UEditorEngine::IsTransactionActive() const
{
	return Trans != nullptr && Trans->IsActive();
}

FText UEditorEngine::GetTransactionName() const
{
	if (Trans == nullptr || !Trans->IsActive())
	{
		return FText::GetEmpty();
	}
	const FTransaction* Transaction = Trans->GetTransaction(Trans->GetQueueLength() - 1);
	return Transaction != nullptr ? Transaction->GetTitle() : FText::GetEmpty();
}
