#include "Misc/AssertionMacros.h"

#include "Containers/StringConv.h"
#include "CoreGlobals.h"
#include "Misc/OutputDeviceRedirector.h"
#include <cstdio>
#include <cstdlib>

void FDebug::AssertFailed(const ANSICHAR* Expr, const ANSICHAR* File, int32 Line, const TCHAR* Message)
{
	const FString Text = FString::Printf(TEXT("Assertion failed: %hs [File:%hs] [Line: %d]%s%s"), Expr, File, Line, Message ? TEXT("\n") : TEXT(""), Message ? Message : TEXT(""));
	std::fprintf(stderr, "%s\n", TCHAR_TO_UTF8(*Text));
	std::fflush(stderr);
	std::abort();
}

bool FDebug::OptionallyLogFormattedEnsureMessageReturningFalse(bool bLog, const ANSICHAR* Expr, const ANSICHAR* File, int32 Line, const TCHAR* Message)
{
	if (bLog)
	{
		UE_LOG(LogOutputDevice, Error, TEXT("Ensure condition failed: %hs [File:%hs] [Line: %d]%s%s"), Expr, File, Line, Message ? TEXT("\n") : TEXT(""), Message ? Message : TEXT(""));
	}
	return false;
}

void LowLevelFatalErrorPureVirtual(const char* FunctionName)
{
	FDebug::AssertFailed(FunctionName, __FILE__, __LINE__, TEXT("Pure virtual function called"));
}

namespace UE::Core::Private
{
	void OnInvalidArrayIndex(int32 Index, int32 Num)
	{
		FDebug::AssertFailed("IsValidIndex(Index)", __FILE__, __LINE__, *FString::Printf(TEXT("Array index out of bounds: %d from an array of size %d"), Index, Num));
	}
}
