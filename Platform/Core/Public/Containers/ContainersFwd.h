#pragma once

#include "CoreTypes.h"
#include "Containers/ContainerAllocationPolicies.h"

template<typename T, typename Allocator = FDefaultAllocator>
class TArray;
template<typename ElementType>
struct DefaultKeyFuncs;
template<typename ElementType, typename KeyFuncs = DefaultKeyFuncs<ElementType>, typename Allocator = FDefaultSetAllocator>
class TSet;
template<typename KeyType, typename ValueType, bool bInAllowDuplicateKeys>
struct TDefaultMapHashableKeyFuncs;
template<typename InKeyType, typename InValueType, typename SetAllocator = FDefaultSetAllocator, typename KeyFuncs = TDefaultMapHashableKeyFuncs<InKeyType, InValueType, false>>
class TMap;
class FString;
class FName;
class FText;
