#pragma once

#include "CoreMinimal.h"

/** What a provider knows of one file, as of its last status update. */
class ISourceControlState : public TSharedFromThis<ISourceControlState, ESPMode::ThreadSafe>
{
public:
	virtual ~ISourceControlState() = default;

	virtual const FString& GetFilename() const = 0;

	/** No status has been learned for the file yet. */
	virtual bool IsUnknown() const = 0;
	/** The provider tracks the file (an added file counts). */
	virtual bool IsSourceControlled() const = 0;
	/** Marked for add and never submitted. */
	virtual bool IsAdded() const = 0;
	virtual bool IsDeleted() const = 0;
	virtual bool IsCheckedOut() const = 0;
	virtual bool IsModified() const = 0;
	virtual bool IsIgnored() const = 0;
	/** A checkout would succeed now. */
	virtual bool CanCheckout() const = 0;
	virtual bool CanAdd() const = 0;
	virtual bool IsCurrent() const = 0;
};

typedef TSharedRef<ISourceControlState, ESPMode::ThreadSafe> FSourceControlStateRef;
typedef TSharedPtr<ISourceControlState, ESPMode::ThreadSafe> FSourceControlStatePtr;
