#include "DefaultSourceControlProvider.h"

void FDefaultSourceControlProvider::Init(bool bForceConnection)
{
}

void FDefaultSourceControlProvider::Close()
{
}

const FName& FDefaultSourceControlProvider::GetName() const
{
	static const FName ProviderName(TEXT("None"));
	return ProviderName;
}

FText FDefaultSourceControlProvider::GetStatusText() const
{
	return FText::FromString(TEXT("Source control is disabled"));
}

bool FDefaultSourceControlProvider::IsEnabled() const
{
	return false;
}

bool FDefaultSourceControlProvider::IsAvailable() const
{
	return false;
}

ECommandResult::Type FDefaultSourceControlProvider::GetState(const TArray<FString>& InFiles, TArray<FSourceControlStateRef>& OutState, EStateCacheUsage::Type InStateCacheUsage)
{
	return ECommandResult::Failed;
}

ECommandResult::Type FDefaultSourceControlProvider::Execute(const FSourceControlOperationRef& InOperation, const TArray<FString>& InFiles, EConcurrency::Type InConcurrency, const FSourceControlOperationComplete& InOperationCompleteDelegate)
{
	InOperationCompleteDelegate.ExecuteIfBound(InOperation, ECommandResult::Failed);
	return ECommandResult::Failed;
}
