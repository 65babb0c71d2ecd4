// Log categories of the object system's implementation.
#pragma once

#include "CoreMinimal.h"

DECLARE_LOG_CATEGORY_EXTERN(LogObj, Log, All);
DECLARE_LOG_CATEGORY_EXTERN(LogClass, Log, All);
DECLARE_LOG_CATEGORY_EXTERN(LogProperty, Log, All);
DECLARE_LOG_CATEGORY_EXTERN(LogPackageName, Log, All);
DECLARE_LOG_CATEGORY_EXTERN(LogLinker, Log, All);
DECLARE_LOG_CATEGORY_EXTERN(LogSavePackage, Log, All);
DECLARE_LOG_CATEGORY_EXTERN(LogGarbage, Log, All);
