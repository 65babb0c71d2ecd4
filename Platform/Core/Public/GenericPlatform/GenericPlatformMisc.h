#pragma once

#include "CoreTypes.h"
#include "Containers/UnrealString.h"

/** Odds and ends of the operating system. Only what the plugin and the stand-in use is here. */
struct FGenericPlatformMisc
{
	/** The variable's value, or an empty string when it isn't set. */
	static CORE_API FString GetEnvironmentVariable(const TCHAR* VariableName);

	/** Sets the variable for this process and the processes it starts; an empty value removes it. */
	static CORE_API void SetEnvironmentVar(const TCHAR* VariableName, const TCHAR* Value);
};
