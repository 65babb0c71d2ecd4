// Where long operations report warnings and errors for the user (GWarn); it counts what it was told.
#pragma once

#include "CoreTypes.h"
#include "Containers/Array.h"
#include "Containers/UnrealString.h"
#include "Misc/OutputDevice.h"

class FFeedbackContext : public FOutputDevice
{
public:
	// Forwards to the log and keeps warnings and errors.
	CORE_API virtual void Serialize(const TCHAR* V, ELogVerbosity::Type Verbosity, const FName& Category) override;

	int32 GetNumWarnings() const
	{
		return Warnings.Num();
	}
	int32 GetNumErrors() const
	{
		return Errors.Num();
	}
	void GetWarnings(TArray<FString>& OutWarnings) const
	{
		OutWarnings = Warnings;
	}
	void GetErrors(TArray<FString>& OutErrors) const
	{
		OutErrors = Errors;
	}
	void ClearWarningsAndErrors()
	{
		Warnings.Empty();
		Errors.Empty();
	}

private:
	TArray<FString> Warnings;
	TArray<FString> Errors;
};
