#pragma once

#include "CoreMinimal.h"
#include "Misc/OutputDevice.h"

/**
 * Keeps the global log's lines of the compile categories, LogCompile and LogLiveCoding, as "[Category] Text".
 * It is registered with the global log for as long as it lives.
 */
class FCompilationLogOutputDevice : public FOutputDevice
{
public:
	FCompilationLogOutputDevice();
	virtual ~FCompilationLogOutputDevice() override;

	virtual void Serialize(const TCHAR* V, ELogVerbosity::Type Verbosity, const FName& Category) override;

	/** No lock: the global log hands lines to this device one at a time. */
	TArray<FString> CapturedLogs;
};
