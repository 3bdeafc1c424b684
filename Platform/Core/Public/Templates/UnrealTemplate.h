#pragma once

// Move, forward, copy and swap helpers under the engine's names. MoveTemp refuses const objects
// and rvalues at compile time: moving from either silently copies, which is never what the caller
// meant.

#include "CoreTypes.h"

#include <type_traits>
#include <utility>

/** Casts to an rvalue so the object can be moved from; the argument must be a non-const lvalue. */
template<class T>
constexpr std::remove_reference_t<T>&& MoveTemp(T&& Object) noexcept
{
	static_assert(std::is_lvalue_reference_v<T>, "MoveTemp called on an rvalue: it already is one");
	static_assert(!std::is_const_v<std::remove_reference_t<T>>, "MoveTemp called on a const object: it would copy");
	return static_cast<std::remove_reference_t<T>&&>(Object);
}

/** MoveTemp without the checks, for generic code where the argument may be const. */
template<class T>
constexpr std::remove_reference_t<T>&& MoveTempIfPossible(T&& Object) noexcept
{
	return static_cast<std::remove_reference_t<T>&&>(Object);
}

/** A copy of the argument as a prvalue, so an overload taking T&& gets a fresh object. */
template<class T>
constexpr std::decay_t<T> CopyTemp(T&& Value)
{
	return std::decay_t<T>(static_cast<T&&>(Value));
}

template<class T>
constexpr T&& Forward(std::remove_reference_t<T>& Object) noexcept
{
	return static_cast<T&&>(Object);
}

template<class T>
constexpr T&& Forward(std::remove_reference_t<T>&& Object) noexcept
{
	return static_cast<T&&>(Object);
}

/** Exchanges two values by moving. */
template<class T>
constexpr void Swap(T& A, T& B) noexcept(std::is_nothrow_move_constructible_v<T> && std::is_nothrow_move_assignable_v<T>)
{
	T Temp = static_cast<T&&>(A);
	A = static_cast<T&&>(B);
	B = static_cast<T&&>(Temp);
}

/** Sets Value to NewValue and returns what it held before. */
template<class T, class U = T>
constexpr T Exchange(T& Value, U&& NewValue)
{
	return std::exchange(Value, static_cast<U&&>(NewValue));
}

/** Deletes the copy constructor and copy assignment of the class it is used in. */
#define UE_NONCOPYABLE(TypeName) \
	TypeName(TypeName&&) = delete; \
	TypeName(const TypeName&) = delete; \
	TypeName& operator=(const TypeName&) = delete; \
	TypeName& operator=(TypeName&&) = delete;
