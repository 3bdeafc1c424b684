#pragma once

// Forward declarations of the containers with their default template arguments, so a header can
// name TArray<int32> or TMap<FString, int32> without including the container. Defaults live here
// only: the containers' own headers include this file.

#include "Containers/ContainerAllocationPolicies.h"

template<class ElementType, class Allocator = FDefaultAllocator> class TArray;

template<class ElementType, bool bInAllowDuplicateKeys = false> struct DefaultKeyFuncs;
template<class ElementType, class KeyFuncs = DefaultKeyFuncs<ElementType>, class Allocator = FDefaultSetAllocator> class TSet;

template<class KeyType, class ValueType, bool bInAllowDuplicateKeys = false> struct TDefaultMapHashableKeyFuncs;
template<class KeyType, class ValueType, class SetAllocator = FDefaultSetAllocator, class KeyFuncs = TDefaultMapHashableKeyFuncs<KeyType, ValueType, false>>
class TMap;
