#include "CoreGlobals.h"

#include "Misc/OutputDeviceRedirector.h"

FOutputDeviceRedirector* GLog = FOutputDeviceRedirector::Get();
bool GIsEditor = true;
bool GIsRunning = false;
bool GIsRequestingExit = false;

DEFINE_LOG_CATEGORY(LogTemp);
DEFINE_LOG_CATEGORY(LogCore);
DEFINE_LOG_CATEGORY(LogInit);
DEFINE_LOG_CATEGORY(LogOutputDevice);
