#pragma once

// GetTypeHash for the built-in types, and the hash combiners. TSet and TMap call GetTypeHash(Key)
// unqualified, so a type gets hashed by declaring its own GetTypeHash next to it (a friend or a
// function in its namespace); keys that compare equal with == must hash equal.

#include "CoreTypes.h"

#include <bit>
#include <cstring>
#include <type_traits>

/** Mixes two hashes; order matters. Good spread, for hashes that will be combined again. */
constexpr uint32 HashCombine(uint32 A, uint32 B)
{
	uint64 Mixed = (uint64(A) << 32 | B) * 0x9E3779B97F4A7C15ull;
	Mixed ^= Mixed >> 29;
	Mixed *= 0xBF58476D1CE4E5B9ull;
	return uint32(Mixed >> 32);
}

/** A cheaper mix for a hash that is used as is; order matters. */
constexpr uint32 HashCombineFast(uint32 A, uint32 B)
{
	return A ^ (B + 0x9E3779B9u + (A << 6) + (A >> 2));
}

/** Folds a 64-bit value into 32 bits so that both halves count. */
constexpr uint32 GetTypeHash64(uint64 Value)
{
	return uint32(Value) + uint32(Value >> 32) * 23u;
}

template<class T>
	requires std::is_integral_v<T>
constexpr uint32 GetTypeHash(T Value)
{
	if constexpr (sizeof(T) <= sizeof(uint32))
	{
		return uint32(Value);
	}
	else
	{
		return GetTypeHash64(uint64(Value));
	}
}

template<class T>
	requires std::is_enum_v<T>
constexpr uint32 GetTypeHash(T Value)
{
	return GetTypeHash(std::underlying_type_t<T>(Value));
}

inline uint32 GetTypeHash(float Value)
{
	// +0 and -0 compare equal, so they must hash equal.
	return Value == 0.0f ? 0u : std::bit_cast<uint32>(Value);
}

inline uint32 GetTypeHash(double Value)
{
	return Value == 0.0 ? 0u : GetTypeHash64(std::bit_cast<uint64>(Value));
}

/** Hashes the address; the low bits are dropped because allocations are aligned. */
inline uint32 PointerHash(const void* Pointer)
{
	return GetTypeHash64(uint64(UPTRINT(Pointer)) >> 4);
}

template<class T>
uint32 GetTypeHash(T* Pointer)
{
	return PointerHash(Pointer);
}

inline uint32 GetTypeHash(std::nullptr_t)
{
	return 0u;
}
