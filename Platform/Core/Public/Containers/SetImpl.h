#pragma once

// TSet's iterator and larger members, defined out of the class so that Containers/Set.h reads as
// its interface. Include Containers/Set.h, not this file.

#include "Containers/Set.h"

#include <algorithm>
#include <bit>
#include <type_traits>

/** Walks the live elements in order; RemoveCurrent() removes the one under it and keeps walking. */
template<class ElementType, class KeyFuncs, class Allocator>
template<bool bConst>
class TSet<ElementType, KeyFuncs, Allocator>::TBaseIterator
{
	using SetType = std::conditional_t<bConst, const TSet, TSet>;
	using ItemType = std::conditional_t<bConst, const ElementType, ElementType>;

public:
	TBaseIterator(SetType& InSet, int32 StartIndex) : Set(&InSet), Index(StartIndex) { SkipFree(); }

	explicit operator bool() const { return Index < Set->NumSlots; }
	TBaseIterator& operator++()
	{
		++Index;
		SkipFree();
		return *this;
	}
	ItemType& operator*() const { return Set->Slots[Index].Get(); }
	ItemType* operator->() const { return &Set->Slots[Index].Get(); }
	FSetElementId GetId() const { return FSetElementId::FromInteger(Index); }
	/** Removes the current element; the iterator stays usable and ++ moves to the next one. */
	void RemoveCurrent()
		requires(!bConst)
	{
		Set->Remove(GetId());
	}
	bool operator==(const TBaseIterator& Other) const { return Index == Other.Index; }

private:
	void SkipFree()
	{
		while (Index < Set->NumSlots && !Set->Slots[Index].IsLive())
		{
			++Index;
		}
	}

	// The set walked.
	SetType* Set;
	// The current slot.
	int32 Index;
};

namespace UE::Core::Private
{
	// Buckets for NumElements: a power of two, at least as many as elements, never fewer than 8.
	inline int32 SetBucketsFor(int32 NumElements)
	{
		return int32(std::bit_ceil(uint32(std::max(NumElements, 8))));
	}
}

template<class ElementType, class KeyFuncs, class Allocator>
template<class ArgType>
FSetElementId TSet<ElementType, KeyFuncs, Allocator>::EmplaceByHash(uint32 KeyHash, ArgType&& Arg, bool* bIsAlreadyInSet)
{
	if constexpr (!std::is_same_v<std::remove_cvref_t<ArgType>, ElementType>)
	{
		return EmplaceByHash(KeyHash, ElementType(Forward<ArgType>(Arg)), bIsAlreadyInSet);
	}
	else
	{
		const FSetElementId Existing = FindIdByHash(KeyHash, KeyFuncs::GetSetKey(Arg));
		if (bIsAlreadyInSet)
		{
			*bIsAlreadyInSet = Existing.IsValidId();
		}
		if (Existing.IsValidId())
		{
			// The new element takes the old one's place, so iteration order does not change.
			Slots[Existing.AsInteger()].Get() = Forward<ArgType>(Arg);
			return Existing;
		}
		return FSetElementId::FromInteger(AppendNew(KeyHash, Forward<ArgType>(Arg)));
	}
}

template<class ElementType, class KeyFuncs, class Allocator>
template<class ComparableKey>
FSetElementId TSet<ElementType, KeyFuncs, Allocator>::FindIdByHash(uint32 KeyHash, const ComparableKey& Key) const
{
	if (NumElements == 0)
	{
		return FSetElementId();
	}
	for (int32 Index = Buckets[BucketOf(KeyHash)]; Index != INDEX_NONE; Index = Slots[Index].Next)
	{
		if (Slots[Index].Hash == KeyHash && KeyFuncs::Matches(KeyFuncs::GetSetKey(Slots[Index].Get()), Key))
		{
			return FSetElementId::FromInteger(Index);
		}
	}
	return FSetElementId();
}

template<class ElementType, class KeyFuncs, class Allocator>
void TSet<ElementType, KeyFuncs, Allocator>::Remove(FSetElementId Id)
{
	checkf(IsValidId(Id), "Invalid set element id");
	const int32 Index = Id.AsInteger();
	int32* Link = &Buckets[BucketOf(Slots[Index].Hash)];
	while (*Link != Index)
	{
		Link = &Slots[*Link].Next;
	}
	*Link = Slots[Index].Next;
	Slots[Index].Get().~ElementType();
	Slots[Index].Next = FSlot::FreeSlot;
	if (--NumElements == 0)
	{
		// Nothing left to keep in order: start filling from the first slot again.
		NumSlots = 0;
	}
}

template<class ElementType, class KeyFuncs, class Allocator>
void TSet<ElementType, KeyFuncs, Allocator>::Empty(int32 ExpectedNumElements)
{
	Reset();
	if (Slots)
	{
		std::allocator<FSlot>().deallocate(Slots, SIZE_T(MaxSlots));
	}
	if (Buckets)
	{
		std::allocator<int32>().deallocate(Buckets, SIZE_T(NumBuckets));
	}
	Slots = nullptr;
	Buckets = nullptr;
	MaxSlots = NumBuckets = 0;
	BucketShift = 32;
	if (ExpectedNumElements > 0)
	{
		Reserve(ExpectedNumElements);
	}
}

template<class ElementType, class KeyFuncs, class Allocator>
void TSet<ElementType, KeyFuncs, Allocator>::Reset()
{
	for (int32 Index = 0; Index < NumSlots; ++Index)
	{
		if (Slots[Index].IsLive())
		{
			Slots[Index].Get().~ElementType();
			Slots[Index].Next = FSlot::FreeSlot;
		}
	}
	NumSlots = NumElements = 0;
	std::fill_n(Buckets, NumBuckets, INDEX_NONE);
}

template<class ElementType, class KeyFuncs, class Allocator>
void TSet<ElementType, KeyFuncs, Allocator>::Reserve(int32 Number)
{
	if (Number > MaxSlots)
	{
		Reallocate(Number);
	}
	if (Number > 0 && UE::Core::Private::SetBucketsFor(Number) > NumBuckets)
	{
		Rehash(UE::Core::Private::SetBucketsFor(Number));
	}
}

template<class ElementType, class KeyFuncs, class Allocator>
template<class PredicateType>
void TSet<ElementType, KeyFuncs, Allocator>::Sort(const PredicateType& Predicate)
{
	TArray<ElementType> Elements;
	Elements.Reserve(NumElements);
	for (ElementType& Element : *this)
	{
		Elements.Add(MoveTemp(Element));
	}
	Reset();
	Elements.Sort(Predicate);
	for (ElementType& Element : Elements)
	{
		const uint32 KeyHash = KeyFuncs::GetKeyHash(KeyFuncs::GetSetKey(Element));
		AppendNew(KeyHash, MoveTemp(Element));
	}
}

template<class ElementType, class KeyFuncs, class Allocator>
template<class... ArgTypes>
int32 TSet<ElementType, KeyFuncs, Allocator>::AppendNew(uint32 KeyHash, ArgTypes&&... Args)
{
	if (NumSlots == MaxSlots)
	{
		// Args may refer to an element that is about to move, so build the new one first.
		ElementType Element(Forward<ArgTypes>(Args)...);
		const int32 NumFree = NumSlots - NumElements;
		Reallocate(NumFree > 0 && NumFree * 4 >= NumSlots ? MaxSlots : std::max(8, MaxSlots * 2));
		return AppendNew(KeyHash, MoveTemp(Element));
	}
	const int32 Index = NumSlots++;
	FSlot& Slot = Slots[Index];
	::new (static_cast<void*>(Slot.Storage)) ElementType(Forward<ArgTypes>(Args)...);
	Slot.Hash = KeyHash;
	Slot.Next = INDEX_NONE;
	++NumElements;
	if (NumElements > NumBuckets)
	{
		Rehash(UE::Core::Private::SetBucketsFor(NumElements));
	}
	else
	{
		const int32 Bucket = BucketOf(KeyHash);
		Slot.Next = Buckets[Bucket];
		Buckets[Bucket] = Index;
	}
	return Index;
}

template<class ElementType, class KeyFuncs, class Allocator>
void TSet<ElementType, KeyFuncs, Allocator>::Reallocate(int32 NewMaxSlots)
{
	check(NewMaxSlots >= NumElements);
	FSlot* NewSlots = NewMaxSlots > 0 ? std::allocator<FSlot>().allocate(SIZE_T(NewMaxSlots)) : nullptr;
	int32 NewNumSlots = 0;
	for (int32 Index = 0; Index < NumSlots; ++Index)
	{
		FSlot& Old = Slots[Index];
		if (Old.IsLive())
		{
			FSlot& New = NewSlots[NewNumSlots++];
			::new (static_cast<void*>(New.Storage)) ElementType(MoveTemp(Old.Get()));
			Old.Get().~ElementType();
			New.Hash = Old.Hash;
			New.Next = INDEX_NONE;
		}
	}
	if (Slots)
	{
		std::allocator<FSlot>().deallocate(Slots, SIZE_T(MaxSlots));
	}
	Slots = NewSlots;
	NumSlots = NewNumSlots;
	MaxSlots = NewMaxSlots;
	if (NumBuckets > 0)
	{
		Rehash(NumBuckets);
	}
}

template<class ElementType, class KeyFuncs, class Allocator>
void TSet<ElementType, KeyFuncs, Allocator>::Rehash(int32 NewNumBuckets)
{
	if (NewNumBuckets != NumBuckets)
	{
		if (Buckets)
		{
			std::allocator<int32>().deallocate(Buckets, SIZE_T(NumBuckets));
		}
		Buckets = std::allocator<int32>().allocate(SIZE_T(NewNumBuckets));
		NumBuckets = NewNumBuckets;
		BucketShift = 32 - std::countr_zero(uint32(NewNumBuckets));
	}
	std::fill_n(Buckets, NumBuckets, INDEX_NONE);
	for (int32 Index = 0; Index < NumSlots; ++Index)
	{
		if (Slots[Index].IsLive())
		{
			const int32 Bucket = BucketOf(Slots[Index].Hash);
			Slots[Index].Next = Buckets[Bucket];
			Buckets[Bucket] = Index;
		}
	}
}

template<class ElementType, class KeyFuncs, class Allocator>
void TSet<ElementType, KeyFuncs, Allocator>::CopyFrom(const TSet& Other)
{
	Reserve(Other.NumElements);
	for (int32 Index = 0; Index < Other.NumSlots; ++Index)
	{
		if (Other.Slots[Index].IsLive())
		{
			AppendNew(Other.Slots[Index].Hash, Other.Slots[Index].Get());
		}
	}
}

template<class ElementType, class KeyFuncs, class Allocator>
void TSet<ElementType, KeyFuncs, Allocator>::StealFrom(TSet& Other)
{
	Slots = Exchange(Other.Slots, nullptr);
	NumSlots = Exchange(Other.NumSlots, 0);
	MaxSlots = Exchange(Other.MaxSlots, 0);
	NumElements = Exchange(Other.NumElements, 0);
	Buckets = Exchange(Other.Buckets, nullptr);
	NumBuckets = Exchange(Other.NumBuckets, 0);
	BucketShift = Exchange(Other.BucketShift, 32);
}
