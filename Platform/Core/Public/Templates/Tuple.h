#pragma once

// TTuple, a fixed list of values of any types, and TPair, its two-element form whose members are
// named Key and Value (a TMap hands these out). Both work with structured bindings:
// `for (auto& [Key, Value] : Map)`.

#include "CoreTypes.h"
#include "Templates/TypeHash.h"
#include "Templates/UnrealTemplate.h"

#include <cstddef>
#include <tuple>
#include <type_traits>

/** A fixed list of values; read one with Get<Index>(). */
template<class... Types>
struct TTuple : std::tuple<Types...>
{
	using std::tuple<Types...>::tuple;

	template<std::size_t Index>
	decltype(auto) Get() & { return std::get<Index>(static_cast<std::tuple<Types...>&>(*this)); }
	template<std::size_t Index>
	decltype(auto) Get() const& { return std::get<Index>(static_cast<const std::tuple<Types...>&>(*this)); }

	/** Calls Func with the elements as arguments. */
	template<class FuncType>
	decltype(auto) ApplyAfter(FuncType&& Func) const { return std::apply(Forward<FuncType>(Func), static_cast<const std::tuple<Types...>&>(*this)); }
};

/** The two-element tuple: a key and its value. Compares and hashes by both. */
template<class KeyType, class ValueType>
struct TTuple<KeyType, ValueType>
{
	KeyType Key{};
	ValueType Value{};

	TTuple() = default;
	TTuple(const KeyType& InKey, const ValueType& InValue) : Key(InKey), Value(InValue) {}
	template<class KeyArg, class ValueArg>
		requires std::is_constructible_v<KeyType, KeyArg&&> && std::is_constructible_v<ValueType, ValueArg&&>
	TTuple(KeyArg&& InKey, ValueArg&& InValue) : Key(Forward<KeyArg>(InKey)), Value(Forward<ValueArg>(InValue))
	{
	}
	template<class OtherKey, class OtherValue>
	TTuple(const TTuple<OtherKey, OtherValue>& Other) : Key(Other.Key), Value(Other.Value)
	{
	}

	template<std::size_t Index>
	auto& Get() & { if constexpr (Index == 0) { return Key; } else { return Value; } }
	template<std::size_t Index>
	const auto& Get() const& { if constexpr (Index == 0) { return Key; } else { return Value; } }

	bool operator==(const TTuple& Other) const { return Key == Other.Key && Value == Other.Value; }

	friend uint32 GetTypeHash(const TTuple& Pair) { return HashCombineFast(GetTypeHash(Pair.Key), GetTypeHash(Pair.Value)); }
};

template<class KeyType, class ValueType>
using TPair = TTuple<KeyType, ValueType>;

template<class... Types>
TTuple<std::decay_t<Types>...> MakeTuple(Types&&... Values)
{
	return TTuple<std::decay_t<Types>...>(Forward<Types>(Values)...);
}

// Structured bindings for the pair form (the general form inherits std::tuple's).
template<std::size_t Index, class KeyType, class ValueType>
auto& get(TTuple<KeyType, ValueType>& Pair) { return Pair.template Get<Index>(); }
template<std::size_t Index, class KeyType, class ValueType>
const auto& get(const TTuple<KeyType, ValueType>& Pair) { return Pair.template Get<Index>(); }
template<std::size_t Index, class KeyType, class ValueType>
auto&& get(TTuple<KeyType, ValueType>&& Pair) { return MoveTemp(Pair.template Get<Index>()); }

template<class... Types>
struct std::tuple_size<TTuple<Types...>> : std::integral_constant<std::size_t, sizeof...(Types)>
{
};

template<std::size_t Index, class... Types>
struct std::tuple_element<Index, TTuple<Types...>> : std::tuple_element<Index, std::tuple<Types...>>
{
};
