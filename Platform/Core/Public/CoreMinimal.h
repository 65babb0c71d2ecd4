// The engine's common include: core types, containers, strings, names, text, math, logging, delegates.
#pragma once

#include "CoreTypes.h"
#include "CoreGlobals.h"
#include "Containers/Array.h"
#include "Containers/ContainersFwd.h"
#include "Containers/EnumAsByte.h"
#include "Containers/Map.h"
#include "Containers/Set.h"
#include "Containers/StringView.h"
#include "Containers/UnrealString.h"
#include "HAL/UnrealMemory.h"
#include "Internationalization/Text.h"
#include "Logging/LogMacros.h"
#include "Math/Color.h"
#include "Math/UnrealMathUtility.h"
#include "Misc/AssertionMacros.h"
#include "Misc/CString.h"
#include "Misc/Char.h"
#include "Misc/Optional.h"
#include "Misc/OutputDevice.h"
#include "Templates/Function.h"
#include "Templates/SharedPointer.h"
#include "Templates/Tuple.h"
#include "Templates/TypeHash.h"
#include "Templates/UniquePtr.h"
#include "Templates/UnrealTemplate.h"
#include "UObject/NameTypes.h"
#if __has_include("Delegates/Delegate.h")
#include "Delegates/Delegate.h"
#endif
#if __has_include("Math/Vector.h")
#include "Math/Vector.h"
#endif
#include "Math/Vector2D.h"
#if __has_include("Math/Rotator.h")
#include "Math/Rotator.h"
#include "Math/Quat.h"
#include "Math/Transform.h"
#endif
