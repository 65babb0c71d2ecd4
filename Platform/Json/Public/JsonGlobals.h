// Module-wide declarations of Json: the export macro and the log category.
#pragma once

#include "CoreMinimal.h"

#ifndef JSON_API
#define JSON_API
#endif

JSON_API DECLARE_LOG_CATEGORY_EXTERN(LogJson, Log, All);
