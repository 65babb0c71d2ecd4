#pragma once

#include "GenericPlatform/GenericPlatformProcess.h"

// The stand-in runs on Unix-likes only, where the generic functions are the platform's.
typedef FGenericPlatformProcess FPlatformProcess;
