// The source-control steps around the agent's file changes. Best effort: callers go on whatever these
// answer, so a project without source control works the same, with log lines only.
#include "Agent/FileUtils.h"

#include "HAL/FileManager.h"
#include "ISourceControlModule.h"
#include "ISourceControlProvider.h"
#include "ISourceControlState.h"
#include "Modules/ModuleManager.h"
#include "SourceControlOperations.h"

namespace
{
	/** The provider in use, or null (with the warning logged) when it can't be used now. */
	ISourceControlProvider* GetUsableProvider()
	{
		ISourceControlProvider& Provider = FModuleManager::LoadModuleChecked<ISourceControlModule>(TEXT("SourceControl")).GetProvider();
		if (!Provider.IsEnabled() || !Provider.IsAvailable())
		{
			UE_LOG(LogTemp, Warning, TEXT("Source control is not available"));
			return nullptr;
		}
		return &Provider;
	}

	template<typename OperationType>
	bool RunOperation(ISourceControlProvider& Provider, const FString& FilePath)
	{
		return Provider.Execute(ISourceControlOperation::Create<OperationType>(), FilePath, EConcurrency::Synchronous) == ECommandResult::Succeeded;
	}

	/** The provider's state after a status update; the update's own result says nothing the state doesn't. */
	FSourceControlStatePtr GetUpdatedState(ISourceControlProvider& Provider, const FString& FilePath)
	{
		RunOperation<FUpdateStatus>(Provider, FilePath);
		return Provider.GetState(FilePath, EStateCacheUsage::Use);
	}
}

bool FFileUtils::AddNewFileToSourceControl(const FString& FilePath)
{
	ISourceControlProvider* Provider = GetUsableProvider();
	if (Provider == nullptr)
	{
		return false;
	}
	if (RunOperation<FMarkForAdd>(*Provider, FilePath))
	{
		UE_LOG(LogTemp, Display, TEXT("Successfully added %s to source control"), *FilePath);
		return true;
	}
	UE_LOG(LogTemp, Error, TEXT("Failed to add %s to source control"), *FilePath);
	return false;
}

bool FFileUtils::CheckoutFileFromSourceControl(const FString& FilePath)
{
	ISourceControlProvider* Provider = GetUsableProvider();
	if (Provider == nullptr)
	{
		return false;
	}
	const FSourceControlStatePtr State = GetUpdatedState(*Provider, FilePath);
	if (State.IsValid() && State->CanCheckout())
	{
		return RunOperation<FCheckOut>(*Provider, FilePath);
	}

	if (!State.IsValid())
	{
		UE_LOG(LogTemp, Warning, TEXT("Could not get file state for %s"), *FilePath);
	}
	else if (!State->IsSourceControlled())
	{
		UE_LOG(LogTemp, Warning, TEXT("File %s is not under source control"), *FilePath);
	}
	else
	{
		UE_LOG(LogTemp, Warning, TEXT("File %s cannot be checked out (it may already be checked out)"), *FilePath);
	}
	return false;
}

bool FFileUtils::RemoveFileFromSourceControl(const FString& FilePath, bool bDeleteFromDisk)
{
	ISourceControlProvider* Provider = GetUsableProvider();
	if (Provider == nullptr)
	{
		return false;
	}
	const FSourceControlStatePtr State = GetUpdatedState(*Provider, FilePath);
	if (!State.IsValid())
	{
		UE_LOG(LogTemp, Error, TEXT("Could not determine source control status for %s"), *FilePath);
		return false;
	}

	bool bRemoved = false;
	if (State->IsAdded())
	{
		// Never submitted: taking back the add is all there is to remove.
		bRemoved = RunOperation<FRevert>(*Provider, FilePath);
		if (bRemoved)
		{
			UE_LOG(LogTemp, Display, TEXT("Successfully reverted addition of %s from source control"), *FilePath);
		}
		else
		{
			UE_LOG(LogTemp, Error, TEXT("Failed to revert addition of %s from source control"), *FilePath);
		}
	}
	else if (!State->IsSourceControlled())
	{
		UE_LOG(LogTemp, Display, TEXT("File %s is not under source control, nothing to remove"), *FilePath);
		bRemoved = true;
	}
	else
	{
		// Servers that lock files want the file opened before they take a delete.
		if (State->CanCheckout())
		{
			RunOperation<FCheckOut>(*Provider, FilePath);
		}
		bRemoved = RunOperation<FDelete>(*Provider, FilePath);
		if (bRemoved)
		{
			UE_LOG(LogTemp, Display, TEXT("Successfully marked %s for deletion in source control"), *FilePath);
		}
		else
		{
			UE_LOG(LogTemp, Error, TEXT("Failed to mark %s for deletion in source control"), *FilePath);
		}
	}

	if (bRemoved && bDeleteFromDisk)
	{
		if (IFileManager::Get().Delete(*FilePath, false, false, false))
		{
			UE_LOG(LogTemp, Display, TEXT("Deleted %s from disk"), *FilePath);
		}
		else
		{
			UE_LOG(LogTemp, Warning, TEXT("Failed to delete %s from disk"), *FilePath);
		}
	}
	return bRemoved;
}
