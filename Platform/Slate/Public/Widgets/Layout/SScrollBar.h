#pragma once

#include "CoreMinimal.h"
#include "Types/SlateEnums.h"

/** Called with the new offset when the user (not the program) scrolls. */
DECLARE_DELEGATE_OneParam(FOnUserScrolled, float);
