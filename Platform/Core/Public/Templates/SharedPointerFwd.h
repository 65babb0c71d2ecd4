#pragma once

#include "CoreTypes.h"

enum class ESPMode : uint8
{
	NotThreadSafe = 0,
	ThreadSafe = 1
};

template<class ObjectType, ESPMode InMode = ESPMode::ThreadSafe>
class TSharedRef;
template<class ObjectType, ESPMode InMode = ESPMode::ThreadSafe>
class TSharedPtr;
template<class ObjectType, ESPMode InMode = ESPMode::ThreadSafe>
class TWeakPtr;
template<class ObjectType, ESPMode InMode = ESPMode::ThreadSafe>
class TSharedFromThis;
