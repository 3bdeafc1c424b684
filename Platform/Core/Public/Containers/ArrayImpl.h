#pragma once

// The larger members of TArray, defined out of the class so that Containers/Array.h reads as its
// interface. Include Containers/Array.h, not this file.

#include "Containers/Array.h"

template<class ElementType, class Allocator>
void TArray<ElementType, Allocator>::Append(const ElementType* Items, SizeType Count)
{
	check(Count >= 0);
	if (Count == 0)
	{
		return;
	}
	if (Items >= Data && Items < Data + ArrayMax)
	{
		// Growing would free the elements being copied: copy them out first.
		Append(TArray(Items, Count));
		return;
	}
	Reserve(ArrayNum + Count > ArrayMax ? GrownMax(ArrayNum + Count) : ArrayMax);
	std::uninitialized_copy_n(Items, Count, Data + ArrayNum);
	ArrayNum += Count;
}

template<class ElementType, class Allocator>
void TArray<ElementType, Allocator>::Append(TArray&& Source)
{
	check(this != &Source);
	if (ArrayNum == 0 && ArrayMax < Source.ArrayMax)
	{
		*this = MoveTemp(Source);
		return;
	}
	Reserve(ArrayNum + Source.ArrayNum > ArrayMax ? GrownMax(ArrayNum + Source.ArrayNum) : ArrayMax);
	Relocate(Data + ArrayNum, Source.Data, Source.ArrayNum);
	ArrayNum += Source.ArrayNum;
	Source.ArrayNum = 0;
}

template<class ElementType, class Allocator>
void TArray<ElementType, Allocator>::RemoveAt(SizeType Index, SizeType Count, EAllowShrinking AllowShrinking)
{
	if (Count == 0)
	{
		return;
	}
	checkf(Count > 0 && Index >= 0 && Index + Count <= ArrayNum, "Array range out of bounds");
	std::destroy_n(Data + Index, Count);
	Relocate(Data + Index, Data + Index + Count, ArrayNum - Index - Count);
	ArrayNum -= Count;
}

template<class ElementType, class Allocator>
void TArray<ElementType, Allocator>::RemoveAtSwap(SizeType Index, SizeType Count, EAllowShrinking AllowShrinking)
{
	if (Count == 0)
	{
		return;
	}
	checkf(Count > 0 && Index >= 0 && Index + Count <= ArrayNum, "Array range out of bounds");
	std::destroy_n(Data + Index, Count);
	// Fill the hole from the end, moving no more elements than there are after the hole.
	const SizeType After = ArrayNum - Index - Count;
	const SizeType Moved = std::min(Count, After);
	Relocate(Data + Index, Data + ArrayNum - Moved, Moved);
	ArrayNum -= Count;
}

template<class ElementType, class Allocator>
template<class PredicateType>
int32 TArray<ElementType, Allocator>::RemoveAll(const PredicateType& Predicate)
{
	// One pass: survivors are moved down over the removed ones, so order is kept.
	SizeType Write = 0;
	for (SizeType Read = 0; Read < ArrayNum; ++Read)
	{
		if (!Predicate(Data[Read]))
		{
			if (Write != Read)
			{
				Data[Write] = MoveTemp(Data[Read]);
			}
			++Write;
		}
	}
	const SizeType Removed = ArrayNum - Write;
	std::destroy_n(Data + Write, Removed);
	ArrayNum = Write;
	return Removed;
}

template<class ElementType, class Allocator>
void TArray<ElementType, Allocator>::Empty(SizeType Slack)
{
	check(Slack >= 0);
	std::destroy_n(Data, ArrayNum);
	ArrayNum = 0;
	if (ArrayMax != Slack)
	{
		Reallocate(Slack);
	}
}

template<class ElementType, class Allocator>
void TArray<ElementType, Allocator>::Reset(SizeType NewSize)
{
	if (NewSize > ArrayMax)
	{
		Empty(NewSize);
		return;
	}
	std::destroy_n(Data, ArrayNum);
	ArrayNum = 0;
}

template<class ElementType, class Allocator>
template<class... ArgTypes>
ElementType& TArray<ElementType, Allocator>::EmplaceBack(ArgTypes&&... Args)
{
	if (ArrayNum < ArrayMax)
	{
		::new (static_cast<void*>(Data + ArrayNum)) ElementType(Forward<ArgTypes>(Args)...);
		return Data[ArrayNum++];
	}
	// Construct the new element before the old storage goes, as Args may refer into it.
	const SizeType NewMax = GrownMax(ArrayNum + 1);
	ElementType* NewData = std::allocator<ElementType>().allocate(SIZE_T(NewMax));
	::new (static_cast<void*>(NewData + ArrayNum)) ElementType(Forward<ArgTypes>(Args)...);
	Relocate(NewData, Data, ArrayNum);
	if (Data)
	{
		std::allocator<ElementType>().deallocate(Data, SIZE_T(ArrayMax));
	}
	Data = NewData;
	ArrayMax = NewMax;
	return Data[ArrayNum++];
}

template<class ElementType, class Allocator>
int32 TArray<ElementType, Allocator>::AddValueInitialized(SizeType Count)
{
	check(Count >= 0);
	const SizeType First = ArrayNum;
	Reserve(ArrayNum + Count > ArrayMax ? GrownMax(ArrayNum + Count) : ArrayMax);
	std::uninitialized_value_construct_n(Data + First, Count);
	ArrayNum += Count;
	return First;
}

template<class ElementType, class Allocator>
int32 TArray<ElementType, Allocator>::AddUninitializedTrivial(SizeType Count)
{
	check(Count >= 0);
	const SizeType First = ArrayNum;
	Reserve(ArrayNum + Count > ArrayMax ? GrownMax(ArrayNum + Count) : ArrayMax);
	ArrayNum += Count;
	return First;
}

template<class ElementType, class Allocator>
void TArray<ElementType, Allocator>::InsertRange(const ElementType* Items, SizeType Count, SizeType Index)
{
	if (Items >= Data && Items < Data + ArrayMax)
	{
		const TArray Copy(Items, Count);
		InsertRange(Copy.GetData(), Count, Index);
		return;
	}
	OpenGap(Index, Count);
	std::uninitialized_copy_n(Items, Count, Data + Index);
}

template<class ElementType, class Allocator>
void TArray<ElementType, Allocator>::OpenGap(SizeType Index, SizeType Count)
{
	checkf(Index >= 0 && Index <= ArrayNum && Count >= 0, "Array insertion index out of bounds");
	Reserve(ArrayNum + Count > ArrayMax ? GrownMax(ArrayNum + Count) : ArrayMax);
	// Move the tail up from its last element down, so each move lands in a vacated slot.
	if constexpr (std::is_trivially_copyable_v<ElementType>)
	{
		std::memmove(static_cast<void*>(Data + Index + Count), static_cast<const void*>(Data + Index), SIZE_T(ArrayNum - Index) * sizeof(ElementType));
	}
	else
	{
		for (SizeType Source = ArrayNum - 1; Source >= Index; --Source)
		{
			::new (static_cast<void*>(Data + Source + Count)) ElementType(MoveTemp(Data[Source]));
			Data[Source].~ElementType();
		}
	}
	ArrayNum += Count;
}

template<class ElementType, class Allocator>
void TArray<ElementType, Allocator>::Reallocate(SizeType NewMax)
{
	check(NewMax >= ArrayNum);
	ElementType* NewData = nullptr;
	if (NewMax > 0)
	{
		NewData = std::allocator<ElementType>().allocate(SIZE_T(NewMax));
		Relocate(NewData, Data, ArrayNum);
	}
	if (Data)
	{
		std::allocator<ElementType>().deallocate(Data, SIZE_T(ArrayMax));
	}
	Data = NewData;
	ArrayMax = NewMax;
}

template<class ElementType, class Allocator>
int32 TArray<ElementType, Allocator>::GrownMax(SizeType Required) const
{
	// A first allocation is small; later ones grow by about 3/8 plus a constant, so adding one
	// element at a time costs amortised constant time without doubling memory.
	if (ArrayMax == 0)
	{
		return std::max(Required, SizeType(4));
	}
	const int64 Grown = int64(Required) + int64(Required) * 3 / 8 + 16;
	checkf(Grown <= 0x7fffffff, "Array too large");
	return SizeType(Grown);
}

template<class ElementType, class Allocator>
void TArray<ElementType, Allocator>::Relocate(ElementType* Dest, ElementType* Source, SizeType Count)
{
	// Moves Count elements to a lower or non-overlapping place, leaving the source slots raw.
	if (Count <= 0 || Dest == Source)
	{
		return;
	}
	if constexpr (std::is_trivially_copyable_v<ElementType>)
	{
		std::memmove(static_cast<void*>(Dest), static_cast<const void*>(Source), SIZE_T(Count) * sizeof(ElementType));
	}
	else
	{
		for (SizeType Index = 0; Index < Count; ++Index)
		{
			::new (static_cast<void*>(Dest + Index)) ElementType(MoveTemp(Source[Index]));
			Source[Index].~ElementType();
		}
	}
}
