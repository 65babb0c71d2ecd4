#pragma once

#include "CoreMinimal.h"
#include "ISourceControlProvider.h"

/** The facts a scripted file state reports. */
struct FScriptedSourceControlFileState
{
	bool bSourceControlled = false;
	bool bAdded = false;
	bool bCanCheckout = false;
	bool bCheckedOut = false;
	bool bDeleted = false;
};

/**
 * Stand-in only: a provider for tests that is told what to answer. Each file has a scripted state or
 * none (GetState then gives null); each operation has a scripted outcome (Succeeded unless set). A
 * successful operation changes the file's state as a server would: MarkForAdd adds it, CheckOut checks it
 * out, Delete marks it deleted (and with bDeleteRemovesFileFromDisk takes it off the disk), Revert of an
 * added file leaves it untracked. Every run is recorded as "Operation File".
 */
class SOURCECONTROL_API FScriptedSourceControlProvider final : public ISourceControlProvider
{
public:
	using ISourceControlProvider::Execute;
	using ISourceControlProvider::GetState;

	explicit FScriptedSourceControlProvider(const FName& InName = FName(TEXT("Scripted")));

	bool bEnabled = true;
	bool bAvailable = true;
	bool bDeleteRemovesFileFromDisk = false;

	void SetFileState(const FString& InFile, const FScriptedSourceControlFileState& InState);
	/** The file gets no state at all. */
	void ClearFileState(const FString& InFile);
	const FScriptedSourceControlFileState* FindFileState(const FString& InFile) const;

	void SetOutcome(const FName& InOperationName, ECommandResult::Type InResult);

	/** "UpdateStatus /full/path", in the order the operations ran. */
	const TArray<FString>& GetExecutedOperations() const
	{
		return ExecutedOperations;
	}
	void ResetExecutedOperations()
	{
		ExecutedOperations.Reset();
	}

	virtual void Init(bool bForceConnection = true) override;
	virtual void Close() override;
	virtual const FName& GetName() const override;
	virtual FText GetStatusText() const override;
	virtual bool IsEnabled() const override;
	virtual bool IsAvailable() const override;
	virtual ECommandResult::Type GetState(const TArray<FString>& InFiles, TArray<FSourceControlStateRef>& OutState, EStateCacheUsage::Type InStateCacheUsage) override;
	virtual ECommandResult::Type Execute(const FSourceControlOperationRef& InOperation, const TArray<FString>& InFiles, EConcurrency::Type InConcurrency, const FSourceControlOperationComplete& InOperationCompleteDelegate) override;

private:
	void ApplyEffect(const FName& InOperationName, const FString& InFile);

	FName Name;
	TMap<FString, FScriptedSourceControlFileState> FileStates;
	TMap<FName, ECommandResult::Type> Outcomes;
	TArray<FString> ExecutedOperations;
};
