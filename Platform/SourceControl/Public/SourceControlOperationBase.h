#pragma once

#include "CoreMinimal.h"
#include "ISourceControlOperation.h"

/** An operation that keeps the provider's messages about its run. The adders are spelled as the engine spells them. */
class FSourceControlOperationBase : public ISourceControlOperation
{
public:
	void AddInfoMessge(const FText& InInfo)
	{
		InfoMessages.Add(InInfo);
	}

	void AddErrorMessge(const FText& InError)
	{
		ErrorMessages.Add(InError);
	}

	const TArray<FText>& GetInfoMessages() const
	{
		return InfoMessages;
	}

	const TArray<FText>& GetErrorMessages() const
	{
		return ErrorMessages;
	}

private:
	TArray<FText> InfoMessages;
	TArray<FText> ErrorMessages;
};
