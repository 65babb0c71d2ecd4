// The object system in one include.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/UObjectGlobals.h"
#include "UObject/Object.h"
#include "UObject/Class.h"
#include "UObject/Field.h"
#include "UObject/UnrealType.h"
#include "UObject/EnumProperty.h"
#include "UObject/Package.h"
#include "UObject/Interface.h"
#include "UObject/UObjectHash.h"
#include "UObject/UObjectIterator.h"
#include "Templates/Casts.h"
