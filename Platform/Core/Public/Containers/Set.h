#pragma once

// TSet: a hash set of unique elements. Elements are hashed with GetTypeHash and compared with ==,
// through the KeyFuncs policy (TMap uses one that looks at a pair's Key).
//
// Layout: elements sit in one array of slots in the order they were added; a bucket index maps a
// hash to a chain of slots. Removing an element leaves a free slot, so iteration order is the
// order of addition, minus what was removed. Free slots are squeezed out when the array must grow.
// A lookup only hashes and walks a chain: it never allocates.

#include "CoreTypes.h"
#include "Containers/Array.h"
#include "Containers/ContainerFwd.h"
#include "Templates/TypeHash.h"
#include "Templates/UnrealTemplate.h"

#include <initializer_list>
#include <memory>
#include <new>

/** Names one element of a TSet or TMap; valid until the next addition or removal. */
class FSetElementId
{
public:
	FSetElementId() = default;
	static FSetElementId FromInteger(int32 Integer) { FSetElementId Id; Id.Index = Integer; return Id; }
	bool IsValidId() const { return Index != INDEX_NONE; }
	int32 AsInteger() const { return Index; }
	bool operator==(const FSetElementId& Other) const { return Index == Other.Index; }

private:
	// The element's slot, or INDEX_NONE.
	int32 Index = INDEX_NONE;
};

/** How a TSet of plain elements finds its key: the element is the key. */
template<class InElementType, bool bInAllowDuplicateKeys>
struct DefaultKeyFuncs
{
	using KeyType = InElementType;
	using KeyInitType = const InElementType&;
	using ElementInitType = const InElementType&;

	static KeyInitType GetSetKey(ElementInitType Element) { return Element; }
	template<class ComparableKey>
	static bool Matches(KeyInitType A, const ComparableKey& B) { return A == B; }
	template<class ComparableKey>
	static uint32 GetKeyHash(const ComparableKey& Key) { return GetTypeHash(Key); }
};

/**
 * A set of unique elements, iterated in the order they were added. Adding an element equal to one
 * already there replaces that one in place.
 */
template<class InElementType, class KeyFuncs, class Allocator>
class TSet
{
public:
	using ElementType = InElementType;
	using KeyInitType = typename KeyFuncs::KeyInitType;

	template<bool bConst>
	class TBaseIterator;
	using TIterator = TBaseIterator<false>;
	using TConstIterator = TBaseIterator<true>;

	TSet() = default;
	TSet(std::initializer_list<ElementType> Items) { for (const ElementType& Item : Items) { Add(Item); } }
	explicit TSet(const TArray<ElementType>& Items) { for (const ElementType& Item : Items) { Add(Item); } }
	TSet(const TSet& Other) { CopyFrom(Other); }
	TSet(TSet&& Other) noexcept { StealFrom(Other); }
	~TSet() { Empty(); }
	TSet& operator=(const TSet& Other)
	{
		if (this != &Other)
		{
			Empty(Other.Num());
			CopyFrom(Other);
		}
		return *this;
	}
	TSet& operator=(TSet&& Other) noexcept
	{
		if (this != &Other)
		{
			Empty();
			StealFrom(Other);
		}
		return *this;
	}

	int32 Num() const { return NumElements; }
	bool IsEmpty() const { return NumElements == 0; }

	/** Adds Element, replacing an element with the same key if there is one (it keeps its place). */
	FSetElementId Add(const ElementType& Element, bool* bIsAlreadyInSet = nullptr) { return Emplace(Element, bIsAlreadyInSet); }
	FSetElementId Add(ElementType&& Element, bool* bIsAlreadyInSet = nullptr) { return Emplace(MoveTemp(Element), bIsAlreadyInSet); }
	template<class ArgType>
	FSetElementId Emplace(ArgType&& Arg, bool* bIsAlreadyInSet = nullptr)
	{
		ElementType Element(Forward<ArgType>(Arg));
		return EmplaceByHash(KeyFuncs::GetKeyHash(KeyFuncs::GetSetKey(Element)), MoveTemp(Element), bIsAlreadyInSet);
	}
	/** As Emplace, with the hash of the element's key already known. */
	template<class ArgType>
	FSetElementId EmplaceByHash(uint32 KeyHash, ArgType&& Arg, bool* bIsAlreadyInSet = nullptr);

	template<class ComparableKey>
	FSetElementId FindIdByHash(uint32 KeyHash, const ComparableKey& Key) const;
	FSetElementId FindId(KeyInitType Key) const { return FindIdByHash(KeyFuncs::GetKeyHash(Key), Key); }
	/** The element with this key, or null. */
	ElementType* Find(KeyInitType Key) { const FSetElementId Id = FindId(Key); return Id.IsValidId() ? &Slots[Id.AsInteger()].Get() : nullptr; }
	const ElementType* Find(KeyInitType Key) const { return const_cast<TSet*>(this)->Find(Key); }
	bool Contains(KeyInitType Key) const { return FindId(Key).IsValidId(); }

	/** Removes the element with this key; returns how many were removed (0 or 1). */
	int32 Remove(KeyInitType Key)
	{
		const FSetElementId Id = FindId(Key);
		if (!Id.IsValidId())
		{
			return 0;
		}
		Remove(Id);
		return 1;
	}
	void Remove(FSetElementId Id);

	bool IsValidId(FSetElementId Id) const { return Id.AsInteger() >= 0 && Id.AsInteger() < NumSlots && Slots[Id.AsInteger()].IsLive(); }
	ElementType& operator[](FSetElementId Id) { checkf(IsValidId(Id), "Invalid set element id"); return Slots[Id.AsInteger()].Get(); }
	const ElementType& operator[](FSetElementId Id) const { return (*const_cast<TSet*>(this))[Id]; }

	/** Removes every element and frees the storage, keeping room for ExpectedNumElements if asked. */
	void Empty(int32 ExpectedNumElements = 0);
	/** Removes every element but keeps the storage. */
	void Reset();
	/** Makes room for Number elements in all. */
	void Reserve(int32 Number);
	/** Squeezes out free slots and gives back the memory beyond Num(). */
	void Shrink() { Reallocate(NumElements); }
	/** Squeezes out free slots; order is kept. */
	void Compact() { Reallocate(MaxSlots); }
	/** Reorders the elements with Predicate(A, B) meaning "A goes before B". */
	template<class PredicateType>
	void Sort(const PredicateType& Predicate);

	/** The elements in iteration order. */
	TArray<ElementType> Array() const
	{
		TArray<ElementType> Result;
		Result.Reserve(NumElements);
		for (const ElementType& Element : *this)
		{
			Result.Add(Element);
		}
		return Result;
	}

	TIterator CreateIterator() { return TIterator(*this, 0); }
	TConstIterator CreateConstIterator() const { return TConstIterator(*this, 0); }
	TIterator begin() { return TIterator(*this, 0); }
	TIterator end() { return TIterator(*this, NumSlots); }
	TConstIterator begin() const { return TConstIterator(*this, 0); }
	TConstIterator end() const { return TConstIterator(*this, NumSlots); }

private:
	// TMap adds a pair it already knows to be new without building it twice.
	template<class, class, class, class>
	friend class TMap;

	struct FSlot
	{
		alignas(ElementType) unsigned char Storage[sizeof(ElementType)];
		// The hash of the element's key, kept so growing never hashes again.
		uint32 Hash;
		// Next slot in the same bucket's chain, or INDEX_NONE; FreeSlot when Storage holds no
		// element (kept in Next rather than in a flag of its own, which would cost every slot
		// eight bytes of padding).
		int32 Next;

		static constexpr int32 FreeSlot = -2;
		bool IsLive() const { return Next != FreeSlot; }

		ElementType& Get() { return *std::launder(reinterpret_cast<ElementType*>(Storage)); }
	};

	template<class... ArgTypes>
	int32 AppendNew(uint32 KeyHash, ArgTypes&&... Args);
	void Reallocate(int32 NewMaxSlots);
	void Rehash(int32 NewNumBuckets);
	int32 BucketOf(uint32 KeyHash) const { return int32((KeyHash * 0x9E3779B9u) >> BucketShift); }
	void CopyFrom(const TSet& Other);
	void StealFrom(TSet& Other);

	// The elements in order of addition, with free slots where some were removed.
	FSlot* Slots = nullptr;
	// Slots in use (live or free); new elements go at this index.
	int32 NumSlots = 0;
	// Slots allocated.
	int32 MaxSlots = 0;
	// Live elements.
	int32 NumElements = 0;
	// Head slot of each bucket's chain, or INDEX_NONE; a power-of-two count.
	int32* Buckets = nullptr;
	int32 NumBuckets = 0;
	// 32 minus log2(NumBuckets): the multiplied hash's top bits pick the bucket.
	int32 BucketShift = 32;
};

#include "Containers/SetImpl.h"
