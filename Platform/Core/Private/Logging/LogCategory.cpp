#include "Logging/LogCategory.h"

#include "CoreGlobals.h"
#include "Logging/LogMacros.h"
#include "Misc/AssertionMacros.h"
#include "Misc/OutputDeviceRedirector.h"
#include <cstdio>
#include <cstdlib>

FLogCategoryBase::FLogCategoryBase(const TCHAR* InCategoryName, ELogVerbosity::Type DefaultVerbosity, ELogVerbosity::Type CompileTimeVerbosity)
	: Verbosity(DefaultVerbosity)
	, CategoryName(InCategoryName)
{
}

const TCHAR* ToString(ELogVerbosity::Type Verbosity)
{
	switch (Verbosity & ELogVerbosity::VerbosityMask)
	{
	case ELogVerbosity::NoLogging:
		return TEXT("NoLogging");
	case ELogVerbosity::Fatal:
		return TEXT("Fatal");
	case ELogVerbosity::Error:
		return TEXT("Error");
	case ELogVerbosity::Warning:
		return TEXT("Warning");
	case ELogVerbosity::Display:
		return TEXT("Display");
	case ELogVerbosity::Log:
		return TEXT("Log");
	case ELogVerbosity::Verbose:
		return TEXT("Verbose");
	case ELogVerbosity::VeryVerbose:
		return TEXT("VeryVerbose");
	default:
		return TEXT("Unknown");
	}
}

void FMsg::LogString(const FName& Category, ELogVerbosity::Type Verbosity, const FString& Message, const ANSICHAR* File, int32 Line)
{
	GLog->Serialize(*Message, Verbosity, Category);
	if ((Verbosity & ELogVerbosity::VerbosityMask) == ELogVerbosity::Fatal)
	{
		GLog->Flush();
		FDebug::AssertFailed("Fatal error", File, Line, *Message);
	}
}
