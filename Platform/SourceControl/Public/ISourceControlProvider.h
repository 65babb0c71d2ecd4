#pragma once

#include "CoreMinimal.h"
#include "Delegates/Delegate.h"
#include "ISourceControlOperation.h"
#include "ISourceControlState.h"

namespace ECommandResult
{
	enum Type
	{
		/** Failed, or not supported by the provider. */
		Failed,
		Succeeded,
		Cancelled,
	};
}

namespace EConcurrency
{
	enum Type
	{
		/** The call returns when the operation has ended. */
		Synchronous,
		/** Stand-in: runs synchronously as well, then calls the completion delegate. */
		Asynchronous
	};
}

namespace EStateCacheUsage
{
	enum Type
	{
		/** Ask the server before answering. */
		ForceUpdate,
		/** Answer from what the last status update left. */
		Use,
	};
}

DECLARE_DELEGATE_TwoParams(FSourceControlOperationComplete, const FSourceControlOperationRef&, ECommandResult::Type);

/**
 * A source-control system behind the editor. Operations run on the game thread and are told apart by
 * their names; a provider answers Failed to one it doesn't support.
 */
class ISourceControlProvider
{
public:
	virtual ~ISourceControlProvider() = default;

	/** Connects, or tests whether it can; SetProvider calls it when the provider is chosen. */
	virtual void Init(bool bForceConnection = true) = 0;
	virtual void Close() = 0;

	virtual const FName& GetName() const = 0;
	virtual FText GetStatusText() const = 0;

	/** True for every real provider, whether or not it can be reached. */
	virtual bool IsEnabled() const = 0;
	/** True when the provider can be used now (its tool or server answers). */
	virtual bool IsAvailable() const = 0;

	/** States of the files: with Use, from the cache (a file never updated gets an unknown state). */
	virtual ECommandResult::Type GetState(const TArray<FString>& InFiles, TArray<FSourceControlStateRef>& OutState, EStateCacheUsage::Type InStateCacheUsage) = 0;

	/** One file's state, or null when the provider gives none. */
	FSourceControlStatePtr GetState(const FString& InFile, EStateCacheUsage::Type InStateCacheUsage);

	virtual ECommandResult::Type Execute(const FSourceControlOperationRef& InOperation, const TArray<FString>& InFiles, EConcurrency::Type InConcurrency = EConcurrency::Synchronous, const FSourceControlOperationComplete& InOperationCompleteDelegate = FSourceControlOperationComplete()) = 0;

	/** The operation on one file. */
	virtual ECommandResult::Type Execute(const FSourceControlOperationRef& InOperation, const FString& InFile, EConcurrency::Type InConcurrency = EConcurrency::Synchronous, const FSourceControlOperationComplete& InOperationCompleteDelegate = FSourceControlOperationComplete());

	virtual bool CanCancelOperation(const FSourceControlOperationRef& InOperation) const
	{
		return false;
	}

	virtual void CancelOperation(const FSourceControlOperationRef& InOperation)
	{
	}

	virtual void Tick()
	{
	}
};
