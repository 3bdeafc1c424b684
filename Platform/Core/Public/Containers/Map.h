#pragma once

// TMap: a hash map from unique keys to values, stored as TPair<Key, Value> elements of a TSet.
// Keys are hashed with GetTypeHash and compared with ==, so a key type's own == decides what
// counts as the same key (a TMap<FString, ...> ignores case). Iteration yields TPair& in the order
// keys were first added; replacing a value keeps its place; removing a key just drops it from the
// order. Lookups never allocate.

#include "CoreTypes.h"
#include "Containers/Array.h"
#include "Containers/ContainerFwd.h"
#include "Containers/Set.h"
#include "Templates/Tuple.h"
#include "Templates/TypeHash.h"
#include "Templates/UnrealTemplate.h"

#include <initializer_list>
#include <type_traits>

/** How a TMap finds the key of its pairs, hashes it and compares it. */
template<class KeyType, class ValueType, bool bInAllowDuplicateKeys>
struct TDefaultMapHashableKeyFuncs
{
	using KeyInitType = const KeyType&;
	using ElementInitType = const TPair<KeyType, ValueType>&;

	static KeyInitType GetSetKey(ElementInitType Element) { return Element.Key; }
	template<class ComparableKey>
	static bool Matches(KeyInitType A, const ComparableKey& B) { return A == B; }
	template<class ComparableKey>
	static uint32 GetKeyHash(const ComparableKey& Key) { return GetTypeHash(Key); }
};

/**
 * Maps each key to one value, iterated as TPair<Key, Value>& in the order keys were first added.
 * Add() replaces the value of a key that is there; a value pointer from Find() is valid only until
 * the next addition or removal.
 */
template<class InKeyType, class InValueType, class SetAllocator, class KeyFuncs>
class TMap
{
public:
	using PairSetType = TSet<TPair<InKeyType, InValueType>, KeyFuncs, SetAllocator>;
	using KeyType = InKeyType;
	using ValueType = InValueType;
	using ElementType = TPair<KeyType, ValueType>;
	using KeyInitType = const KeyType&;

	/** Walks the pairs in order; RemoveCurrent() removes the one under it and keeps walking. */
	template<bool bConst>
	class TBaseIterator
	{
		using SetIterator = typename PairSetType::template TBaseIterator<bConst>;
		using PairType = std::conditional_t<bConst, const ElementType, ElementType>;

	public:
		explicit TBaseIterator(SetIterator InIt) : It(InIt) {}
		explicit operator bool() const { return static_cast<bool>(It); }
		TBaseIterator& operator++() { ++It; return *this; }
		PairType& operator*() const { return *It; }
		PairType* operator->() const { return &*It; }
		const KeyType& Key() const { return It->Key; }
		std::conditional_t<bConst, const ValueType&, ValueType&> Value() const { return It->Value; }
		FSetElementId GetId() const { return It.GetId(); }
		void RemoveCurrent()
			requires(!bConst)
		{
			It.RemoveCurrent();
		}

	private:
		// Position in the pair set.
		SetIterator It;
	};
	using TIterator = TBaseIterator<false>;
	using TConstIterator = TBaseIterator<true>;

	TMap() = default;
	TMap(std::initializer_list<ElementType> Items) { for (const ElementType& Item : Items) { Add(Item.Key, Item.Value); } }

	int32 Num() const { return Pairs.Num(); }
	bool IsEmpty() const { return Pairs.IsEmpty(); }

	/** Sets the value for Key, replacing any value it had; returns the stored value. */
	ValueType& Add(const KeyType& Key, const ValueType& Value) { return Emplace(Key, Value); }
	ValueType& Add(const KeyType& Key, ValueType&& Value) { return Emplace(Key, MoveTemp(Value)); }
	ValueType& Add(KeyType&& Key, const ValueType& Value) { return Emplace(MoveTemp(Key), Value); }
	ValueType& Add(KeyType&& Key, ValueType&& Value) { return Emplace(MoveTemp(Key), MoveTemp(Value)); }
	/** Sets Key's value to a default-constructed one, replacing any value it had. */
	ValueType& Add(const KeyType& Key) { return Emplace(Key); }
	ValueType& Add(KeyType&& Key) { return Emplace(MoveTemp(Key)); }
	ValueType& Add(const ElementType& Pair) { return Emplace(Pair.Key, Pair.Value); }
	/** As Add, constructing the value from ValueArgs. */
	template<class KeyArg, class... ValueArgs>
	ValueType& Emplace(KeyArg&& Key, ValueArgs&&... Values)
	{
		ElementType Pair(Forward<KeyArg>(Key), ValueType(Forward<ValueArgs>(Values)...));
		const uint32 KeyHash = KeyFuncs::GetKeyHash(Pair.Key);
		return Pairs[Pairs.EmplaceByHash(KeyHash, MoveTemp(Pair))].Value;
	}
	/** As Add, with the hash of Key known already: it must be the one GetTypeHash(Key) gives. */
	template<class KeyArg, class ValueArg>
	ValueType& AddByHash(uint32 KeyHash, KeyArg&& Key, ValueArg&& Value)
	{
		return Pairs[Pairs.EmplaceByHash(KeyHash, ElementType(Forward<KeyArg>(Key), Forward<ValueArg>(Value)))].Value;
	}
	/** Key's value, adding a default-constructed one first if Key is absent. */
	ValueType& FindOrAdd(const KeyType& Key) { return FindOrAddImpl(Key); }
	ValueType& FindOrAdd(KeyType&& Key) { return FindOrAddImpl(MoveTemp(Key)); }
	/** Key's value, adding Value first if Key is absent (an existing value is left alone). */
	template<class KeyArg, class ValueArg>
	ValueType& FindOrAdd(KeyArg&& Key, ValueArg&& Value) { return FindOrAddImpl(Forward<KeyArg>(Key), Forward<ValueArg>(Value)); }

	/** Key's value, or null. */
	ValueType* Find(KeyInitType Key)
	{
		const FSetElementId Id = Pairs.FindId(Key);
		return Id.IsValidId() ? &Pairs[Id].Value : nullptr;
	}
	const ValueType* Find(KeyInitType Key) const { return const_cast<TMap*>(this)->Find(Key); }
	/**
	 * The value of the key that equals Key, or null, with Key's hash known: Key may be of any
	 * type the keys compare equal to, so looking up needs no key of the map's own type.
	 */
	template<class ComparableKey>
	ValueType* FindByHash(uint32 KeyHash, const ComparableKey& Key)
	{
		const FSetElementId Id = Pairs.FindIdByHash(KeyHash, Key);
		return Id.IsValidId() ? &Pairs[Id].Value : nullptr;
	}
	template<class ComparableKey>
	const ValueType* FindByHash(uint32 KeyHash, const ComparableKey& Key) const { return const_cast<TMap*>(this)->FindByHash(KeyHash, Key); }
	/** Key's value; Key must be there. */
	ValueType& FindChecked(KeyInitType Key)
	{
		ValueType* Value = Find(Key);
		checkf(Value != nullptr, "Key not found in map");
		return *Value;
	}
	const ValueType& FindChecked(KeyInitType Key) const { return const_cast<TMap*>(this)->FindChecked(Key); }
	/** A copy of Key's value, or a default-constructed value if Key is absent. */
	ValueType FindRef(KeyInitType Key) const
	{
		const ValueType* Value = Find(Key);
		return Value ? *Value : ValueType();
	}
	/** The first key (in iteration order) whose value equals Value, or null. */
	const KeyType* FindKey(const ValueType& Value) const
	{
		for (const ElementType& Pair : Pairs)
		{
			if (Pair.Value == Value)
			{
				return &Pair.Key;
			}
		}
		return nullptr;
	}
	bool Contains(KeyInitType Key) const { return Pairs.Contains(Key); }
	ValueType& operator[](KeyInitType Key) { return FindChecked(Key); }
	const ValueType& operator[](KeyInitType Key) const { return FindChecked(Key); }

	/** Removes Key and its value; returns how many pairs were removed (0 or 1). */
	int32 Remove(KeyInitType Key) { return Pairs.Remove(Key); }
	/** Removes Key, copying its value out first; false if Key is absent. */
	bool RemoveAndCopyValue(KeyInitType Key, ValueType& OutValue)
	{
		const FSetElementId Id = Pairs.FindId(Key);
		if (!Id.IsValidId())
		{
			return false;
		}
		OutValue = MoveTemp(Pairs[Id].Value);
		Pairs.Remove(Id);
		return true;
	}
	/** Removes Key and returns its value; Key must be there. */
	ValueType FindAndRemoveChecked(KeyInitType Key)
	{
		const FSetElementId Id = Pairs.FindId(Key);
		checkf(Id.IsValidId(), "Key not found in map");
		ValueType Value = MoveTemp(Pairs[Id].Value);
		Pairs.Remove(Id);
		return Value;
	}

	/** Removes every pair and frees the storage, keeping room for ExpectedNumElements if asked. */
	void Empty(int32 ExpectedNumElements = 0) { Pairs.Empty(ExpectedNumElements); }
	/** Removes every pair but keeps the storage. */
	void Reset() { Pairs.Reset(); }
	void Reserve(int32 Number) { Pairs.Reserve(Number); }
	void Shrink() { Pairs.Shrink(); }
	void Compact() { Pairs.Compact(); }
	/** Adds or replaces every pair of Other. */
	void Append(const TMap& Other)
	{
		for (const ElementType& Pair : Other)
		{
			Add(Pair.Key, Pair.Value);
		}
	}

	/** Fills OutKeys (emptied first) with the keys in order; returns how many. */
	template<class Allocator>
	int32 GetKeys(TArray<KeyType, Allocator>& OutKeys) const
	{
		OutKeys.Reset(Num());
		for (const ElementType& Pair : Pairs)
		{
			OutKeys.Add(Pair.Key);
		}
		return OutKeys.Num();
	}
	void GenerateKeyArray(TArray<KeyType>& OutArray) const { GetKeys(OutArray); }
	/** Fills OutArray (emptied first) with the values in key order. */
	void GenerateValueArray(TArray<ValueType>& OutArray) const
	{
		OutArray.Reset(Num());
		for (const ElementType& Pair : Pairs)
		{
			OutArray.Add(Pair.Value);
		}
	}
	/** Reorders the pairs by key with Predicate(A, B) meaning "A goes before B". */
	template<class PredicateType>
	void KeySort(const PredicateType& Predicate) { Pairs.Sort([&Predicate](const ElementType& A, const ElementType& B) { return Predicate(A.Key, B.Key); }); }
	/** Reorders the pairs by value with Predicate(A, B) meaning "A goes before B". */
	template<class PredicateType>
	void ValueSort(const PredicateType& Predicate) { Pairs.Sort([&Predicate](const ElementType& A, const ElementType& B) { return Predicate(A.Value, B.Value); }); }
	/** True if both maps hold the same keys with equal values, whatever their order. */
	bool OrderIndependentCompareEqual(const TMap& Other) const
	{
		if (Num() != Other.Num())
		{
			return false;
		}
		for (const ElementType& Pair : Pairs)
		{
			const ValueType* OtherValue = Other.Find(Pair.Key);
			if (!OtherValue || !(*OtherValue == Pair.Value))
			{
				return false;
			}
		}
		return true;
	}

	TIterator CreateIterator() { return TIterator(Pairs.CreateIterator()); }
	TConstIterator CreateConstIterator() const { return TConstIterator(Pairs.CreateConstIterator()); }
	auto begin() { return Pairs.begin(); }
	auto end() { return Pairs.end(); }
	auto begin() const { return Pairs.begin(); }
	auto end() const { return Pairs.end(); }

private:
	template<class KeyArg, class... ValueArgs>
	ValueType& FindOrAddImpl(KeyArg&& Key, ValueArgs&&... Values)
	{
		if constexpr (!std::is_same_v<std::remove_cvref_t<KeyArg>, KeyType>)
		{
			// Hash the key as the map stores it: a TEXT("...") literal must hash as an FString.
			return FindOrAddImpl(KeyType(Forward<KeyArg>(Key)), Forward<ValueArgs>(Values)...);
		}
		const uint32 KeyHash = KeyFuncs::GetKeyHash(Key);
		const FSetElementId Id = Pairs.FindIdByHash(KeyHash, Key);
		if (Id.IsValidId())
		{
			return Pairs[Id].Value;
		}
		const int32 Index = Pairs.AppendNew(KeyHash, Forward<KeyArg>(Key), ValueType(Forward<ValueArgs>(Values)...));
		return Pairs[FSetElementId::FromInteger(Index)].Value;
	}

	// The pairs, hashed by key.
	PairSetType Pairs;
};
