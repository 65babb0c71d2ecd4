#include "Agent/CompilationLogOutputDevice.h"

#include "Misc/OutputDeviceRedirector.h"

FCompilationLogOutputDevice::FCompilationLogOutputDevice()
{
	GetGlobalLogSingleton()->AddOutputDevice(this);
}

FCompilationLogOutputDevice::~FCompilationLogOutputDevice()
{
	GetGlobalLogSingleton()->RemoveOutputDevice(this);
}

void FCompilationLogOutputDevice::Serialize(const TCHAR* V, ELogVerbosity::Type Verbosity, const FName& Category)
{
	static const FName LogCompileName(TEXT("LogCompile"));
	static const FName LogLiveCodingName(TEXT("LogLiveCoding"));
	if (Category != LogCompileName && Category != LogLiveCodingName)
	{
		return;
	}
	CapturedLogs.Add(FString::Printf(TEXT("[%s] %s"), *Category.ToString(), V != nullptr ? V : TEXT("")));
}
