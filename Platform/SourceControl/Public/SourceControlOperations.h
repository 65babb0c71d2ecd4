#pragma once

#include "CoreMinimal.h"
#include "SourceControlOperationBase.h"

/** Opens files for editing. */
class FCheckOut : public FSourceControlOperationBase
{
public:
	virtual FName GetName() const override
	{
		return FName(TEXT("CheckOut"));
	}
};

/** Marks files for deletion. */
class FDelete : public FSourceControlOperationBase
{
public:
	virtual FName GetName() const override
	{
		return FName(TEXT("Delete"));
	}
};

/** Marks new files to be added with the next submit. */
class FMarkForAdd : public FSourceControlOperationBase
{
public:
	virtual FName GetName() const override
	{
		return FName(TEXT("MarkForAdd"));
	}
};

/** Takes back the local changes of files: an added file stops being added. */
class FRevert : public FSourceControlOperationBase
{
public:
	virtual FName GetName() const override
	{
		return FName(TEXT("Revert"));
	}
};

/** Refreshes the provider's cached state of files. */
class FUpdateStatus : public FSourceControlOperationBase
{
public:
	virtual FName GetName() const override
	{
		return FName(TEXT("UpdateStatus"));
	}
};
