#pragma once

#include "CoreMinimal.h"
#include "Git/GitSourceControlState.h"
#include "ISourceControlProvider.h"

#include <string>

/**
 * "Git": the git work tree that holds the project, driven through the git command. Mark for add stages
 * a file, delete removes it from the index (the caller deletes it from disk), revert of an added file
 * unstages it, update status asks git. Checkout is not supported.
 */
class FGitSourceControlProvider final : public ISourceControlProvider
{
public:
	using ISourceControlProvider::Execute;
	using ISourceControlProvider::GetState;

	/** Finds the work tree around the project directory; the provider is available when there is one. */
	virtual void Init(bool bForceConnection = true) override;
	virtual void Close() override;
	virtual const FName& GetName() const override;
	virtual FText GetStatusText() const override;
	virtual bool IsEnabled() const override;
	virtual bool IsAvailable() const override;
	virtual ECommandResult::Type GetState(const TArray<FString>& InFiles, TArray<FSourceControlStateRef>& OutState, EStateCacheUsage::Type InStateCacheUsage) override;
	virtual ECommandResult::Type Execute(const FSourceControlOperationRef& InOperation, const TArray<FString>& InFiles, EConcurrency::Type InConcurrency, const FSourceControlOperationComplete& InOperationCompleteDelegate) override;

	/** The work tree's top directory, empty while the provider isn't available. */
	const FString& GetRepositoryRoot() const
	{
		return RepositoryRoot;
	}

private:
	bool RunOperation(const FSourceControlOperationRef& InOperation, const TArray<FString>& InFiles);
	/** Asks git for each file's state and keeps it; false when git couldn't answer. */
	bool UpdateStatus(const TArray<FString>& InFiles);
	EGitWorkingCopyState QueryState(const std::string& RelativePath, bool& bOutGitAnswered) const;
	/** Runs git on the files that lie in the work tree; false when git failed or no file did. */
	bool RunOnFiles(std::vector<std::string> Arguments, const TArray<FString>& InFiles, const FSourceControlOperationRef& InOperation);
	/** The file's path relative to the work tree's top, or false when it lies outside. */
	bool ToRelativePath(const FString& InFile, std::string& OutRelativePath) const;
	FString CacheKey(const FString& InFile) const;

	FString RepositoryRoot;
	std::string RepositoryRootUtf8;
	FString StatusText = TEXT("Not initialised");
	TMap<FString, TSharedRef<FGitSourceControlState, ESPMode::ThreadSafe>> StateCache;
};
