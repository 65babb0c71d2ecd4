#pragma once

#include "CoreTypes.h"
#include "Containers/UnrealString.h"
#include "Logging/LogVerbosity.h"
#include "UObject/NameTypes.h"

class FOutputDevice
{
public:
	FOutputDevice() = default;
	FOutputDevice(const FOutputDevice&) = default;
	FOutputDevice& operator=(const FOutputDevice&) = default;
	virtual ~FOutputDevice() = default;

	virtual void Serialize(const TCHAR* V, ELogVerbosity::Type Verbosity, const FName& Category) = 0;
	virtual void Serialize(const TCHAR* V, ELogVerbosity::Type Verbosity, const FName& Category, const double Time)
	{
		Serialize(V, Verbosity, Category);
	}
	virtual void Flush()
	{
	}
	virtual void TearDown()
	{
	}
	virtual bool CanBeUsedOnAnyThread() const
	{
		return false;
	}
	virtual bool CanBeUsedOnMultipleThreads() const
	{
		return false;
	}
	virtual bool IsMemoryOnly() const
	{
		return false;
	}

	CORE_API void Log(const TCHAR* S);
	CORE_API void Log(ELogVerbosity::Type Verbosity, const TCHAR* S);
	CORE_API void Log(const FName& Category, ELogVerbosity::Type Verbosity, const TCHAR* Str);
	CORE_API void Log(const FString& S);
	template<typename FmtType, typename... Types>
	void Logf(const FmtType& Format, Types... Args)
	{
		Log(FString::Printf(Format, Args...));
	}
	template<typename FmtType, typename... Types>
	void Logf(ELogVerbosity::Type Verbosity, const FmtType& Format, Types... Args)
	{
		Log(Verbosity, *FString::Printf(Format, Args...));
	}
};
