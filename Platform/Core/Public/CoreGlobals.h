#pragma once

#include "CoreTypes.h"
#include "Logging/LogMacros.h"

class FOutputDeviceRedirector;
class FConfigCacheIni;
class FOutputDeviceError;
class FFeedbackContext;

extern CORE_API FOutputDeviceRedirector* GLog;
extern CORE_API FConfigCacheIni* GConfig;
extern CORE_API bool GIsEditor;
// Where errors and warnings for the user go; never null.
extern CORE_API FOutputDeviceError* GError;
extern CORE_API FFeedbackContext* GWarn;
extern CORE_API bool GIsRunning;
extern CORE_API bool GIsRequestingExit;

// True on the thread that runs the engine loop.
CORE_API bool IsInGameThread();

CORE_API DECLARE_LOG_CATEGORY_EXTERN(LogTemp, Log, All);
CORE_API DECLARE_LOG_CATEGORY_EXTERN(LogCore, Log, All);
CORE_API DECLARE_LOG_CATEGORY_EXTERN(LogInit, Log, All);
CORE_API DECLARE_LOG_CATEGORY_EXTERN(LogOutputDevice, Log, All);
