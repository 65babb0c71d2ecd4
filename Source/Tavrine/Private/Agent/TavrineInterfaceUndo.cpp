// Undo and redo of a whole conversation: its files through the file history, its editor changes through
// the editor's transaction queue, then a compile so that the game code follows the files.
#include "Agent/TavrineInterface.h"

#include "Agent/Agent.h"
#include "Agent/BlueprintUtils.h"
#include "Agent/FileHistory.h"
#include "Editor.h"
#include "Editor/Transactor.h"

namespace
{
	UTransactor* GetTransactor()
	{
		return GEditor != nullptr ? GEditor->Trans.Get() : nullptr;
	}

	bool HasTitle(const FTransaction* Transaction, const FString& Name)
	{
		return Transaction != nullptr && Transaction->GetTitle().ToString().Equals(Name, ESearchCase::IgnoreCase);
	}

	/** No conversation runs, and the history holds file changes of the one named. */
	bool HasFileChanges(const FString& ConversationKey, const FFileHistoryMap& Histories)
	{
		return FAgent::Get().GetConversationId().IsEmpty() && !ConversationKey.IsEmpty() && Histories.Contains(ConversationKey);
	}
}

bool FTavrineInterface::CanUndo() const
{
	const FString& UndoId = FAgent::Get().GetUndoConversationId();
	return HasFileChanges(UndoId, FFileHistory::Get().GetFileHistories()) || FindTransactionIndexByName(FAgent::MakeTransactionName(UndoId)) != INDEX_NONE;
}

bool FTavrineInterface::CanRedo() const
{
	const FString& RedoId = FAgent::Get().GetRedoConversationId();
	return HasFileChanges(RedoId, FFileHistory::Get().GetRedoHistories()) || FindTransactionIndexByName(FAgent::MakeTransactionName(RedoId)) != INDEX_NONE;
}

int32 FTavrineInterface::FindTransactionIndexByName(const FString& Name)
{
	const UTransactor* Transactor = GetTransactor();
	if (Transactor == nullptr)
	{
		return INDEX_NONE;
	}
	for (int32 Index = 0; Index < Transactor->GetQueueLength(); ++Index)
	{
		if (HasTitle(Transactor->GetTransaction(Index), Name))
		{
			return Index;
		}
	}
	return INDEX_NONE;
}

bool FTavrineInterface::UndoUntilLastTransactionByName(const FString& Name)
{
	UTransactor* Transactor = GetTransactor();
	if (Transactor == nullptr || Transactor->GetQueueLength() == 0 || FindTransactionIndexByName(Name) == INDEX_NONE)
	{
		return false;
	}

	// A conversation may leave several transactions of its title. Undo walks back from the newest one not
	// yet undone to the oldest of that title, and takes it too: so every change of the conversation goes,
	// and with it whatever came later, which the queue can only undo first.
	const int32 DoneCount = Transactor->GetQueueLength() - Transactor->GetUndoCount();
	int32 Target = INDEX_NONE;
	for (int32 Index = 0; Index < DoneCount; ++Index)
	{
		if (HasTitle(Transactor->GetTransaction(Index), Name))
		{
			Target = Index;
			break;
		}
	}
	if (Target == INDEX_NONE)
	{
		return false;
	}

	// One undo a step, and never more steps than there were transactions: a barrier or a refused undo ends it.
	for (int32 Step = 0; Step < DoneCount - Target; ++Step)
	{
		if (!Transactor->CanUndo(nullptr) || !GEditor->UndoTransaction(true))
		{
			return false;
		}
	}
	return Transactor->GetQueueLength() - Transactor->GetUndoCount() <= Target;
}

void FTavrineInterface::UndoLastOperation()
{
	OnAddStatusMessage(TEXT("Undoing Last Changes..."), MessageColor, ItalicFontName, MessageFontSize);
	FAgent& Agent = FAgent::Get();
	const FString UndoId = Agent.GetUndoConversationId();
	const bool bUndone = UndoUntilLastTransactionByName(FAgent::MakeTransactionName(UndoId));
	if (UndoId.IsEmpty())
	{
		return;
	}
	if (!FFileHistory::Get().UndoAllChanges(UndoId))
	{
		return;
	}
	Agent.Compile(TEXT("Undo"), Agent.GetMessages());
	// Undone editor transactions have no way forward from here, so such a conversation can't be redone.
	Agent.SetRedoConversationId(bUndone ? FString() : UndoId);
	Agent.SetUndoConversationId(FString());
	if (bUndone)
	{
		// The undone transactions left their Blueprints changed in memory; the document it gives is not needed.
		FTavrineBlueprintUtils::SaveAndCompileAllDirtyBlueprints();
	}
}

void FTavrineInterface::RedoLastOperation()
{
	OnAddStatusMessage(TEXT("Redoing Last Changes..."), MessageColor, ItalicFontName, MessageFontSize);
	FAgent& Agent = FAgent::Get();
	const FString RedoId = Agent.GetRedoConversationId();
	if (RedoId.IsEmpty())
	{
		return;
	}
	if (!FFileHistory::Get().RedoAllChanges(RedoId))
	{
		return;
	}
	Agent.Compile(TEXT("Redo"), Agent.GetMessages());
	Agent.SetUndoConversationId(RedoId);
	Agent.SetRedoConversationId(FString());
}
