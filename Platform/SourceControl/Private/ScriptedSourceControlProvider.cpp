#include "ScriptedSourceControlProvider.h"

#include "HAL/FileManager.h"
#include "ISourceControlState.h"

namespace
{
	/** A snapshot of the scripted facts, as a provider's cached state is. */
	class FScriptedSourceControlState final : public ISourceControlState
	{
	public:
		FScriptedSourceControlState(const FString& InFilename, const FScriptedSourceControlFileState& InFacts)
			: Filename(InFilename)
			, Facts(InFacts)
		{
		}

		virtual const FString& GetFilename() const override
		{
			return Filename;
		}
		virtual bool IsUnknown() const override
		{
			return false;
		}
		virtual bool IsSourceControlled() const override
		{
			return Facts.bSourceControlled;
		}
		virtual bool IsAdded() const override
		{
			return Facts.bAdded;
		}
		virtual bool IsDeleted() const override
		{
			return Facts.bDeleted;
		}
		virtual bool IsCheckedOut() const override
		{
			return Facts.bCheckedOut;
		}
		virtual bool IsModified() const override
		{
			return Facts.bAdded || Facts.bDeleted || Facts.bCheckedOut;
		}
		virtual bool IsIgnored() const override
		{
			return false;
		}
		virtual bool CanCheckout() const override
		{
			return Facts.bCanCheckout;
		}
		virtual bool CanAdd() const override
		{
			return !Facts.bSourceControlled;
		}
		virtual bool IsCurrent() const override
		{
			return true;
		}

	private:
		FString Filename;
		FScriptedSourceControlFileState Facts;
	};
}

FScriptedSourceControlProvider::FScriptedSourceControlProvider(const FName& InName)
	: Name(InName)
{
}

void FScriptedSourceControlProvider::SetFileState(const FString& InFile, const FScriptedSourceControlFileState& InState)
{
	FileStates.Add(InFile, InState);
}

void FScriptedSourceControlProvider::ClearFileState(const FString& InFile)
{
	FileStates.Remove(InFile);
}

const FScriptedSourceControlFileState* FScriptedSourceControlProvider::FindFileState(const FString& InFile) const
{
	return FileStates.Find(InFile);
}

void FScriptedSourceControlProvider::SetOutcome(const FName& InOperationName, ECommandResult::Type InResult)
{
	Outcomes.Add(InOperationName, InResult);
}

void FScriptedSourceControlProvider::Init(bool bForceConnection)
{
}

void FScriptedSourceControlProvider::Close()
{
}

const FName& FScriptedSourceControlProvider::GetName() const
{
	return Name;
}

FText FScriptedSourceControlProvider::GetStatusText() const
{
	return FText::FromString(TEXT("Scripted source control for tests"));
}

bool FScriptedSourceControlProvider::IsEnabled() const
{
	return bEnabled;
}

bool FScriptedSourceControlProvider::IsAvailable() const
{
	return bAvailable;
}

ECommandResult::Type FScriptedSourceControlProvider::GetState(const TArray<FString>& InFiles, TArray<FSourceControlStateRef>& OutState, EStateCacheUsage::Type InStateCacheUsage)
{
	for (const FString& File : InFiles)
	{
		const FScriptedSourceControlFileState* Facts = FileStates.Find(File);
		if (Facts == nullptr)
		{
			return ECommandResult::Failed;
		}
		OutState.Add(MakeShared<FScriptedSourceControlState, ESPMode::ThreadSafe>(File, *Facts));
	}
	return ECommandResult::Succeeded;
}

ECommandResult::Type FScriptedSourceControlProvider::Execute(const FSourceControlOperationRef& InOperation, const TArray<FString>& InFiles, EConcurrency::Type InConcurrency, const FSourceControlOperationComplete& InOperationCompleteDelegate)
{
	const FName OperationName = InOperation->GetName();
	const ECommandResult::Type* Scripted = Outcomes.Find(OperationName);
	const ECommandResult::Type Result = Scripted ? *Scripted : ECommandResult::Succeeded;
	for (const FString& File : InFiles)
	{
		ExecutedOperations.Add(OperationName.ToString() + TEXT(" ") + File);
		if (Result == ECommandResult::Succeeded)
		{
			ApplyEffect(OperationName, File);
		}
	}
	InOperationCompleteDelegate.ExecuteIfBound(InOperation, Result);
	return Result;
}

void FScriptedSourceControlProvider::ApplyEffect(const FName& InOperationName, const FString& InFile)
{
	// A status update reports the scripted state; it never invents one.
	if (InOperationName == FName(TEXT("UpdateStatus")))
	{
		return;
	}
	FScriptedSourceControlFileState& Facts = FileStates.FindOrAdd(InFile);
	if (InOperationName == FName(TEXT("MarkForAdd")))
	{
		Facts = FScriptedSourceControlFileState();
		Facts.bSourceControlled = true;
		Facts.bAdded = true;
	}
	else if (InOperationName == FName(TEXT("CheckOut")))
	{
		Facts.bCheckedOut = true;
		Facts.bCanCheckout = false;
	}
	else if (InOperationName == FName(TEXT("Delete")))
	{
		Facts.bDeleted = true;
		Facts.bCanCheckout = false;
		if (bDeleteRemovesFileFromDisk)
		{
			IFileManager::Get().Delete(*InFile, false, true, true);
		}
	}
	else if (InOperationName == FName(TEXT("Revert")) && Facts.bAdded)
	{
		Facts = FScriptedSourceControlFileState();
	}
}
