#include "SourceControlLog.h"

DEFINE_LOG_CATEGORY(LogSourceControl);
