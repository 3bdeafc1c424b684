#pragma once

// TArray: the engine's growable array. Elements are contiguous and indexed by int32; indexing out
// of range stops the program. Any change that adds elements may move all of them, so pointers and
// references into an array stay valid only until the next addition.

#include "CoreTypes.h"
#include "Containers/ContainerFwd.h"
#include "Templates/UnrealTemplate.h"

#include <algorithm>
#include <cstring>
#include <initializer_list>
#include <memory>
#include <new>
#include <type_traits>

/** Walks an array by index; RemoveCurrent() removes the element under it and keeps walking. */
template<class ContainerType, class ElementType>
class TIndexedContainerIterator
{
public:
	explicit TIndexedContainerIterator(ContainerType& InContainer, int32 StartIndex = 0) : Container(&InContainer), Index(StartIndex) {}

	explicit operator bool() const { return Container->IsValidIndex(Index); }
	TIndexedContainerIterator& operator++() { ++Index; return *this; }
	ElementType& operator*() const { return (*Container)[Index]; }
	ElementType* operator->() const { return &(*Container)[Index]; }
	int32 GetIndex() const { return Index; }
	void Reset() { Index = 0; }
	/** Removes the current element, keeping order; the next ++ moves to the element after it. */
	void RemoveCurrent() { Container->RemoveAt(Index); --Index; }

private:
	// The array walked.
	ContainerType* Container;
	// Position of the current element.
	int32 Index;
};

/**
 * A contiguous, growable array of elements indexed from 0. Removing keeps the order of the rest
 * (the *Swap forms do not) and never gives memory back; Empty() and Shrink() do.
 */
template<class InElementType, class InAllocator>
class TArray
{
public:
	using ElementType = InElementType;
	using SizeType = int32;
	using AllocatorType = InAllocator;
	using TIterator = TIndexedContainerIterator<TArray, ElementType>;
	using TConstIterator = TIndexedContainerIterator<const TArray, const ElementType>;

	TArray() = default;
	TArray(std::initializer_list<ElementType> Items) { Append(Items.begin(), SizeType(Items.size())); }
	TArray(const ElementType* Items, SizeType Count) { Append(Items, Count); }
	TArray(const TArray& Other) { Append(Other.GetData(), Other.Num()); }
	template<class OtherAllocator>
	explicit TArray(const TArray<ElementType, OtherAllocator>& Other) { Append(Other.GetData(), Other.Num()); }
	TArray(TArray&& Other) noexcept : Data(Other.Data), ArrayNum(Other.ArrayNum), ArrayMax(Other.ArrayMax)
	{
		Other.Data = nullptr;
		Other.ArrayNum = Other.ArrayMax = 0;
	}
	~TArray() { Empty(); }

	TArray& operator=(const TArray& Other)
	{
		if (this != &Other)
		{
			Reset(Other.Num());
			Append(Other.GetData(), Other.Num());
		}
		return *this;
	}
	TArray& operator=(TArray&& Other) noexcept
	{
		if (this != &Other)
		{
			Empty();
			std::swap(Data, Other.Data);
			std::swap(ArrayNum, Other.ArrayNum);
			std::swap(ArrayMax, Other.ArrayMax);
		}
		return *this;
	}
	TArray& operator=(std::initializer_list<ElementType> Items)
	{
		Reset(SizeType(Items.size()));
		Append(Items.begin(), SizeType(Items.size()));
		return *this;
	}

	SizeType Num() const { return ArrayNum; }
	bool IsEmpty() const { return ArrayNum == 0; }
	/** How many elements fit before the next addition reallocates. */
	SizeType Max() const { return ArrayMax; }
	SizeType GetSlack() const { return ArrayMax - ArrayNum; }
	ElementType* GetData() { return Data; }
	const ElementType* GetData() const { return Data; }
	static constexpr uint32 GetTypeSize() { return sizeof(ElementType); }
	SIZE_T GetAllocatedSize() const { return SIZE_T(ArrayMax) * sizeof(ElementType); }
	bool IsValidIndex(SizeType Index) const { return Index >= 0 && Index < ArrayNum; }
	void RangeCheck(SizeType Index) const { checkf(IsValidIndex(Index), "Array index out of bounds"); }

	ElementType& operator[](SizeType Index) { RangeCheck(Index); return Data[Index]; }
	const ElementType& operator[](SizeType Index) const { RangeCheck(Index); return Data[Index]; }
	ElementType& Last(SizeType IndexFromEnd = 0) { return (*this)[ArrayNum - 1 - IndexFromEnd]; }
	const ElementType& Last(SizeType IndexFromEnd = 0) const { return (*this)[ArrayNum - 1 - IndexFromEnd]; }
	ElementType& Top() { return Last(); }
	const ElementType& Top() const { return Last(); }

	/** Constructs a new last element from Args; returns its index. Args may refer into this array. */
	template<class... ArgTypes>
	SizeType Emplace(ArgTypes&&... Args) { EmplaceBack(Forward<ArgTypes>(Args)...); return ArrayNum - 1; }
	template<class... ArgTypes>
	ElementType& Emplace_GetRef(ArgTypes&&... Args) { return EmplaceBack(Forward<ArgTypes>(Args)...); }
	/** Constructs a new element at Index, moving the ones from there on up by one. */
	template<class... ArgTypes>
	void EmplaceAt(SizeType Index, ArgTypes&&... Args)
	{
		ElementType Item(Forward<ArgTypes>(Args)...);
		OpenGap(Index, 1);
		::new (static_cast<void*>(Data + Index)) ElementType(MoveTemp(Item));
	}
	SizeType Add(const ElementType& Item) { return Emplace(Item); }
	SizeType Add(ElementType&& Item) { return Emplace(MoveTemp(Item)); }
	ElementType& Add_GetRef(const ElementType& Item) { return EmplaceBack(Item); }
	ElementType& Add_GetRef(ElementType&& Item) { return EmplaceBack(MoveTemp(Item)); }
	void Push(const ElementType& Item) { Emplace(Item); }
	void Push(ElementType&& Item) { Emplace(MoveTemp(Item)); }
	/** Adds Item unless an equal element is there already; returns the index of the one in the array. */
	SizeType AddUnique(const ElementType& Item) { const SizeType Index = Find(Item); return Index != INDEX_NONE ? Index : Add(Item); }
	SizeType AddUnique(ElementType&& Item) { const SizeType Index = Find(Item); return Index != INDEX_NONE ? Index : Add(MoveTemp(Item)); }
	/** Adds Count value-initialised elements; returns the index of the first. */
	SizeType AddDefaulted(SizeType Count = 1) { return AddValueInitialized(Count); }
	// The index first: Data[AddDefaulted()] would read Data before the add may move it.
	ElementType& AddDefaulted_GetRef() { const SizeType Index = AddDefaulted(); return Data[Index]; }
	/** Adds Count elements whose bytes are zero (value-initialised for types that own resources). */
	SizeType AddZeroed(SizeType Count = 1)
	{
		if constexpr (std::is_trivially_copyable_v<ElementType>)
		{
			const SizeType First = AddUninitializedTrivial(Count);
			std::memset(static_cast<void*>(Data + First), 0, SIZE_T(Count) * sizeof(ElementType));
			return First;
		}
		else
		{
			return AddValueInitialized(Count);
		}
	}
	ElementType& AddZeroed_GetRef() { const SizeType Index = AddZeroed(); return Data[Index]; }
	/** Adds Count elements left unset for plain types (value-initialised for the others). */
	SizeType AddUninitialized(SizeType Count = 1)
	{
		if constexpr (std::is_trivially_copyable_v<ElementType> && std::is_trivially_default_constructible_v<ElementType>)
		{
			return AddUninitializedTrivial(Count);
		}
		else
		{
			return AddValueInitialized(Count);
		}
	}
	/** Replaces the contents with Count copies of Item. */
	void Init(const ElementType& Item, SizeType Count)
	{
		ElementType Copy(Item);
		Reset(Count);
		for (SizeType Index = 0; Index < Count; ++Index)
		{
			Add(Copy);
		}
	}

	void Append(const ElementType* Items, SizeType Count);
	template<class OtherAllocator>
	void Append(const TArray<ElementType, OtherAllocator>& Source) { Append(Source.GetData(), Source.Num()); }
	void Append(TArray&& Source);
	void Append(std::initializer_list<ElementType> Items) { Append(Items.begin(), SizeType(Items.size())); }
	TArray& operator+=(const TArray& Source) { Append(Source); return *this; }
	TArray& operator+=(TArray&& Source) { Append(MoveTemp(Source)); return *this; }
	TArray& operator+=(std::initializer_list<ElementType> Items) { Append(Items); return *this; }

	/** Inserts Item before the element at Index (Index == Num() appends); returns Index. */
	SizeType Insert(const ElementType& Item, SizeType Index) { EmplaceAt(Index, Item); return Index; }
	SizeType Insert(ElementType&& Item, SizeType Index) { EmplaceAt(Index, MoveTemp(Item)); return Index; }
	SizeType Insert(std::initializer_list<ElementType> Items, SizeType Index) { InsertRange(Items.begin(), SizeType(Items.size()), Index); return Index; }
	SizeType Insert(const TArray& Items, SizeType Index) { InsertRange(Items.GetData(), Items.Num(), Index); return Index; }
	void InsertDefaulted(SizeType Index, SizeType Count = 1)
	{
		OpenGap(Index, Count);
		std::uninitialized_value_construct_n(Data + Index, Count);
	}

	/** Removes Count elements from Index on, keeping the order of the rest. Never gives memory back. */
	void RemoveAt(SizeType Index, SizeType Count = 1, EAllowShrinking AllowShrinking = EAllowShrinking::Yes);
	void RemoveAt(SizeType Index, SizeType Count, bool bAllowShrinking) { RemoveAt(Index, Count, bAllowShrinking ? EAllowShrinking::Yes : EAllowShrinking::No); }
	/** Removes Count elements from Index on by moving the last ones into the hole: fast, reorders. */
	void RemoveAtSwap(SizeType Index, SizeType Count = 1, EAllowShrinking AllowShrinking = EAllowShrinking::Yes);
	void RemoveAtSwap(SizeType Index, SizeType Count, bool bAllowShrinking) { RemoveAtSwap(Index, Count, bAllowShrinking ? EAllowShrinking::Yes : EAllowShrinking::No); }
	/** Removes every element equal to Item, keeping order; returns how many. Item must not be in this array. */
	SizeType Remove(const ElementType& Item)
	{
		CheckNotInArray(&Item);
		return RemoveAll([&Item](const ElementType& Element) { return Element == Item; });
	}
	/** Removes the first element equal to Item, keeping order; returns 1 or 0. */
	SizeType RemoveSingle(const ElementType& Item)
	{
		const SizeType Index = Find(Item);
		if (Index == INDEX_NONE)
		{
			return 0;
		}
		RemoveAt(Index);
		return 1;
	}
	SizeType RemoveSwap(const ElementType& Item)
	{
		CheckNotInArray(&Item);
		return RemoveAllSwap([&Item](const ElementType& Element) { return Element == Item; });
	}
	SizeType RemoveSingleSwap(const ElementType& Item)
	{
		const SizeType Index = Find(Item);
		if (Index == INDEX_NONE)
		{
			return 0;
		}
		RemoveAtSwap(Index);
		return 1;
	}
	/** Removes every element for which Predicate is true, keeping order; returns how many. */
	template<class PredicateType>
	SizeType RemoveAll(const PredicateType& Predicate);
	template<class PredicateType>
	SizeType RemoveAllSwap(const PredicateType& Predicate, EAllowShrinking AllowShrinking = EAllowShrinking::Yes)
	{
		const SizeType OldNum = ArrayNum;
		for (SizeType Index = 0; Index < ArrayNum;)
		{
			if (Predicate(Data[Index]))
			{
				RemoveAtSwap(Index);
			}
			else
			{
				++Index;
			}
		}
		return OldNum - ArrayNum;
	}
	/** Removes the last element and returns it. */
	ElementType Pop(EAllowShrinking AllowShrinking = EAllowShrinking::Yes)
	{
		RangeCheck(0);
		ElementType Result(MoveTemp(Data[ArrayNum - 1]));
		RemoveAt(ArrayNum - 1);
		return Result;
	}
	ElementType Pop(bool bAllowShrinking) { return Pop(bAllowShrinking ? EAllowShrinking::Yes : EAllowShrinking::No); }

	/** Destroys every element and frees the storage, keeping room for Slack elements if asked. */
	void Empty(SizeType Slack = 0);
	/** Destroys every element but keeps the storage (growing it to NewSize if it is smaller). */
	void Reset(SizeType NewSize = 0);
	/** Grows with value-initialised elements or shrinks from the end to NewNum elements. */
	void SetNum(SizeType NewNum, EAllowShrinking AllowShrinking = EAllowShrinking::Yes)
	{
		check(NewNum >= 0);
		NewNum > ArrayNum ? void(AddDefaulted(NewNum - ArrayNum)) : RemoveAt(NewNum, ArrayNum - NewNum, AllowShrinking);
	}
	void SetNum(SizeType NewNum, bool bAllowShrinking) { SetNum(NewNum, bAllowShrinking ? EAllowShrinking::Yes : EAllowShrinking::No); }
	void SetNumZeroed(SizeType NewNum, EAllowShrinking AllowShrinking = EAllowShrinking::Yes)
	{
		check(NewNum >= 0);
		NewNum > ArrayNum ? void(AddZeroed(NewNum - ArrayNum)) : RemoveAt(NewNum, ArrayNum - NewNum, AllowShrinking);
	}
	void SetNumUninitialized(SizeType NewNum, EAllowShrinking AllowShrinking = EAllowShrinking::Yes)
	{
		check(NewNum >= 0);
		NewNum > ArrayNum ? void(AddUninitialized(NewNum - ArrayNum)) : RemoveAt(NewNum, ArrayNum - NewNum, AllowShrinking);
	}
	/** Makes room for Number elements in all, so that adding up to that many does not reallocate. */
	void Reserve(SizeType Number)
	{
		if (Number > ArrayMax)
		{
			Reallocate(Number);
		}
	}
	/** Gives back the memory beyond Num(). */
	void Shrink()
	{
		if (ArrayMax != ArrayNum)
		{
			Reallocate(ArrayNum);
		}
	}

	/** Index of the first element equal to Item, or INDEX_NONE. */
	SizeType Find(const ElementType& Item) const { return IndexOfByKey(Item); }
	bool Find(const ElementType& Item, SizeType& Index) const { Index = Find(Item); return Index != INDEX_NONE; }
	/** Index of the last element equal to Item, or INDEX_NONE. */
	SizeType FindLast(const ElementType& Item) const
	{
		return FindLastByPredicate([&Item](const ElementType& Element) { return Element == Item; });
	}
	bool FindLast(const ElementType& Item, SizeType& Index) const { Index = FindLast(Item); return Index != INDEX_NONE; }
	/** Index of the first element that compares equal to Key with ==, or INDEX_NONE. */
	template<class KeyType>
	SizeType IndexOfByKey(const KeyType& Key) const
	{
		return IndexOfByPredicate([&Key](const ElementType& Element) { return Element == Key; });
	}
	template<class PredicateType>
	SizeType IndexOfByPredicate(PredicateType Predicate) const
	{
		for (SizeType Index = 0; Index < ArrayNum; ++Index)
		{
			if (Predicate(Data[Index]))
			{
				return Index;
			}
		}
		return INDEX_NONE;
	}
	template<class PredicateType>
	SizeType FindLastByPredicate(PredicateType Predicate) const
	{
		for (SizeType Index = ArrayNum - 1; Index >= 0; --Index)
		{
			if (Predicate(Data[Index]))
			{
				return Index;
			}
		}
		return INDEX_NONE;
	}
	/** The first element equal to Key, or null. */
	template<class KeyType>
	ElementType* FindByKey(const KeyType& Key) { const SizeType Index = IndexOfByKey(Key); return Index != INDEX_NONE ? Data + Index : nullptr; }
	template<class KeyType>
	const ElementType* FindByKey(const KeyType& Key) const { return const_cast<TArray*>(this)->FindByKey(Key); }
	/** The first element for which Predicate is true, or null. */
	template<class PredicateType>
	ElementType* FindByPredicate(PredicateType Predicate) { const SizeType Index = IndexOfByPredicate(Predicate); return Index != INDEX_NONE ? Data + Index : nullptr; }
	template<class PredicateType>
	const ElementType* FindByPredicate(PredicateType Predicate) const { return const_cast<TArray*>(this)->FindByPredicate(Predicate); }
	template<class ComparisonType>
	bool Contains(const ComparisonType& Item) const { return IndexOfByKey(Item) != INDEX_NONE; }
	template<class PredicateType>
	bool ContainsByPredicate(PredicateType Predicate) const { return IndexOfByPredicate(Predicate) != INDEX_NONE; }
	/** A new array of the elements for which Predicate is true, in order. */
	template<class PredicateType>
	TArray FilterByPredicate(PredicateType Predicate) const
	{
		TArray Result;
		for (const ElementType& Element : *this)
		{
			if (Predicate(Element))
			{
				Result.Add(Element);
			}
		}
		return Result;
	}

	/** Sorts with operator<. An array of raw pointers is sorted by the objects they point to. */
	void Sort() { Sort([](const auto& A, const auto& B) { return A < B; }); }
	/** Sorts with Predicate(A, B) meaning "A goes before B"; raw pointers are passed dereferenced. Not stable. */
	template<class PredicateType>
	void Sort(const PredicateType& Predicate) { std::sort(begin(), end(), Dereferencing(Predicate)); }
	void StableSort() { StableSort([](const auto& A, const auto& B) { return A < B; }); }
	/** As Sort(Predicate), keeping equal elements in their order. */
	template<class PredicateType>
	void StableSort(const PredicateType& Predicate) { std::stable_sort(begin(), end(), Dereferencing(Predicate)); }
	void Swap(SizeType FirstIndex, SizeType SecondIndex)
	{
		RangeCheck(FirstIndex);
		RangeCheck(SecondIndex);
		std::swap(Data[FirstIndex], Data[SecondIndex]);
	}

	bool operator==(const TArray& Other) const { return ArrayNum == Other.ArrayNum && std::equal(begin(), end(), Other.begin()); }

	TIterator CreateIterator() { return TIterator(*this); }
	TConstIterator CreateConstIterator() const { return TConstIterator(*this); }
	ElementType* begin() { return Data; }
	ElementType* end() { return Data + ArrayNum; }
	const ElementType* begin() const { return Data; }
	const ElementType* end() const { return Data + ArrayNum; }

private:
	template<class PredicateType>
	static auto Dereferencing(const PredicateType& Predicate)
	{
		return [&Predicate](const ElementType& A, const ElementType& B) -> bool {
			if constexpr (std::is_pointer_v<ElementType>)
			{
				return Predicate(*A, *B);
			}
			else
			{
				return Predicate(A, B);
			}
		};
	}

	void CheckNotInArray(const ElementType* Item) const
	{
		checkf(!(Item >= Data && Item < Data + ArrayMax), "The item must not be an element of the array it is removed from");
	}

	template<class... ArgTypes>
	ElementType& EmplaceBack(ArgTypes&&... Args);
	SizeType AddValueInitialized(SizeType Count);
	SizeType AddUninitializedTrivial(SizeType Count);
	void InsertRange(const ElementType* Items, SizeType Count, SizeType Index);
	void OpenGap(SizeType Index, SizeType Count);
	void Reallocate(SizeType NewMax);
	SizeType GrownMax(SizeType Required) const;
	static void Relocate(ElementType* Dest, ElementType* Source, SizeType Count);

	// The elements, then ArrayMax - ArrayNum unconstructed slots; null when ArrayMax is 0.
	ElementType* Data = nullptr;
	// How many elements are constructed.
	SizeType ArrayNum = 0;
	// How many elements the storage holds.
	SizeType ArrayMax = 0;
};

#include "Containers/ArrayImpl.h"
