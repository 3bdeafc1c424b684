#pragma once

// The allocator names that container declarations mention. The stand-in's containers always
// allocate from the heap, so these are tags: TArray<T, TInlineAllocator<8>> compiles and behaves
// like TArray<T>, only without the inline storage.

#include "CoreTypes.h"

/** Whether a removal may give unused memory back. */
enum class EAllowShrinking : uint8
{
	No,
	Yes
};

class FDefaultAllocator
{
};

template<uint32 NumInlineElements, class SecondaryAllocator = FDefaultAllocator>
class TInlineAllocator
{
};

template<uint32 NumInlineElements>
class TFixedAllocator
{
};

class FDefaultSetAllocator
{
};

template<uint32 NumInlineElements>
class TInlineSetAllocator
{
};
