#pragma once

#include "CoreMinimal.h"
#include "ISourceControlProvider.h"

/** "None": the provider in use while no source control is chosen. Neither enabled nor available; every operation fails. */
class FDefaultSourceControlProvider final : public ISourceControlProvider
{
public:
	using ISourceControlProvider::Execute;
	using ISourceControlProvider::GetState;

	virtual void Init(bool bForceConnection = true) override;
	virtual void Close() override;
	virtual const FName& GetName() const override;
	virtual FText GetStatusText() const override;
	virtual bool IsEnabled() const override;
	virtual bool IsAvailable() const override;
	virtual ECommandResult::Type GetState(const TArray<FString>& InFiles, TArray<FSourceControlStateRef>& OutState, EStateCacheUsage::Type InStateCacheUsage) override;
	virtual ECommandResult::Type Execute(const FSourceControlOperationRef& InOperation, const TArray<FString>& InFiles, EConcurrency::Type InConcurrency, const FSourceControlOperationComplete& InOperationCompleteDelegate) override;
};
