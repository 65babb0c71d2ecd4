#include "GenericPlatform/GenericPlatformMisc.h"

#include "Containers/StringConv.h"

#include <cstdlib>

FString FGenericPlatformMisc::GetEnvironmentVariable(const TCHAR* VariableName)
{
	if (VariableName == nullptr || *VariableName == 0)
	{
		return FString();
	}
	const char* Value = std::getenv(TCHAR_TO_UTF8(VariableName));
	return Value != nullptr ? FString(UTF8_TO_TCHAR(Value)) : FString();
}

void FGenericPlatformMisc::SetEnvironmentVar(const TCHAR* VariableName, const TCHAR* Value)
{
	if (VariableName == nullptr || *VariableName == 0)
	{
		return;
	}
	const FTCHARToUTF8 Name(VariableName);
	if (Value == nullptr || *Value == 0)
	{
		unsetenv(reinterpret_cast<const char*>(Name.Get()));
	}
	else
	{
		setenv(reinterpret_cast<const char*>(Name.Get()), TCHAR_TO_UTF8(Value), 1);
	}
}
