#include "CoreUObjectLog.h"
#include "UObject/UObjectGlobals.h"

DEFINE_LOG_CATEGORY(LogUObjectGlobals);
DEFINE_LOG_CATEGORY(LogObj);
DEFINE_LOG_CATEGORY(LogClass);
DEFINE_LOG_CATEGORY(LogProperty);
