#include "CoreUObjectLog.h"
#include "UObject/UObjectGlobals.h"

DEFINE_LOG_CATEGORY(LogUObjectGlobals);
DEFINE_LOG_CATEGORY(LogObj);
DEFINE_LOG_CATEGORY(LogClass);
DEFINE_LOG_CATEGORY(LogProperty);
DEFINE_LOG_CATEGORY(LogPackageName);
DEFINE_LOG_CATEGORY(LogLinker);
DEFINE_LOG_CATEGORY(LogSavePackage);
DEFINE_LOG_CATEGORY(LogGarbage);
