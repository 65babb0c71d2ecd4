// Placeholder until conversation undo lands: nothing can be undone or redone yet.
#include "Agent/TavrineInterface.h"

bool FTavrineInterface::CanUndo() const
{
	return false;
}

bool FTavrineInterface::CanRedo() const
{
	return false;
}

void FTavrineInterface::UndoLastOperation()
{
}

void FTavrineInterface::RedoLastOperation()
{
}

bool FTavrineInterface::UndoUntilLastTransactionByName(const FString& Name)
{
	return false;
}
