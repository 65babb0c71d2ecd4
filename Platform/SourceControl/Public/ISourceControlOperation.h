#pragma once

#include "CoreMinimal.h"

/** One source-control command, made anew for each run and handed to the provider by its name. */
class ISourceControlOperation : public TSharedFromThis<ISourceControlOperation, ESPMode::ThreadSafe>
{
public:
	virtual ~ISourceControlOperation() = default;

	/** The name providers dispatch on: "CheckOut", "Delete", "MarkForAdd", "Revert", "UpdateStatus"... */
	virtual FName GetName() const = 0;

	virtual FText GetInProgressString() const
	{
		return FText::GetEmpty();
	}

	template<typename OperationType>
	static TSharedRef<OperationType, ESPMode::ThreadSafe> Create()
	{
		return MakeShared<OperationType, ESPMode::ThreadSafe>();
	}
};

typedef TSharedRef<ISourceControlOperation, ESPMode::ThreadSafe> FSourceControlOperationRef;
