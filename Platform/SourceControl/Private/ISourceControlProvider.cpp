#include "ISourceControlProvider.h"

FSourceControlStatePtr ISourceControlProvider::GetState(const FString& InFile, EStateCacheUsage::Type InStateCacheUsage)
{
	TArray<FSourceControlStateRef> States;
	if (GetState(TArray<FString>{InFile}, States, InStateCacheUsage) == ECommandResult::Succeeded && States.Num() == 1)
	{
		return States[0];
	}
	return nullptr;
}

ECommandResult::Type ISourceControlProvider::Execute(const FSourceControlOperationRef& InOperation, const FString& InFile, EConcurrency::Type InConcurrency, const FSourceControlOperationComplete& InOperationCompleteDelegate)
{
	return Execute(InOperation, TArray<FString>{InFile}, InConcurrency, InOperationCompleteDelegate);
}
