#pragma once

#include "GenericPlatform/GenericPlatformMisc.h"

// The stand-in runs on Unix-likes only, where the generic functions are the platform's.
typedef FGenericPlatformMisc FPlatformMisc;
