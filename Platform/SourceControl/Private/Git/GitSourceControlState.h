#pragma once

#include "CoreMinimal.h"
#include "ISourceControlState.h"

/** Where a file stands in the git work tree, as "git status" and the index tell it. */
enum class EGitWorkingCopyState : uint8
{
	/** No status update has run for the file. */
	Unknown,
	Unchanged,
	Added,
	Deleted,
	Modified,
	Untracked,
	Ignored,
	/** Outside the work tree altogether. */
	NotInWorkTree
};

/**
 * A file's state under git. Git has no checkout: a tracked file is always writable, so no file can be
 * checked out, as the engine's own git provider reports without file locking.
 */
class FGitSourceControlState final : public ISourceControlState
{
public:
	FGitSourceControlState(const FString& InFilename, EGitWorkingCopyState InState)
		: Filename(InFilename)
		, State(InState)
	{
	}

	EGitWorkingCopyState GetWorkingCopyState() const
	{
		return State;
	}

	virtual const FString& GetFilename() const override
	{
		return Filename;
	}
	virtual bool IsUnknown() const override
	{
		return State == EGitWorkingCopyState::Unknown;
	}
	virtual bool IsSourceControlled() const override
	{
		return State == EGitWorkingCopyState::Unchanged || State == EGitWorkingCopyState::Added || State == EGitWorkingCopyState::Deleted || State == EGitWorkingCopyState::Modified;
	}
	virtual bool IsAdded() const override
	{
		return State == EGitWorkingCopyState::Added;
	}
	virtual bool IsDeleted() const override
	{
		return State == EGitWorkingCopyState::Deleted;
	}
	virtual bool IsCheckedOut() const override
	{
		return IsSourceControlled();
	}
	virtual bool IsModified() const override
	{
		return State == EGitWorkingCopyState::Added || State == EGitWorkingCopyState::Deleted || State == EGitWorkingCopyState::Modified;
	}
	virtual bool IsIgnored() const override
	{
		return State == EGitWorkingCopyState::Ignored;
	}
	virtual bool CanCheckout() const override
	{
		return false;
	}
	virtual bool CanAdd() const override
	{
		return State == EGitWorkingCopyState::Untracked;
	}
	virtual bool IsCurrent() const override
	{
		return true;
	}

private:
	FString Filename;
	EGitWorkingCopyState State;
};
