#pragma once

// TObjectPtr: the engine's wrapper for a reflected object reference. A TObjectPtr member marked
// UPROPERTY is a strong reference the garbage collector follows; elsewhere it is a plain pointer.

#include "CoreTypes.h"
#include "Templates/TypeHash.h"

#include <type_traits>

template<class T>
class TObjectPtr
{
public:
	TObjectPtr() = default;
	TObjectPtr(std::nullptr_t) {}
	TObjectPtr(T* InObject) : Object(InObject) {}
	template<class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
	TObjectPtr(const TObjectPtr<U>& Other) : Object(Other.Get()) {}

	TObjectPtr& operator=(T* InObject) { Object = InObject; return *this; }
	template<class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
	TObjectPtr& operator=(const TObjectPtr<U>& Other) { Object = Other.Get(); return *this; }

	T* Get() const { return Object; }
	operator T*() const { return Object; }
	T* operator->() const { return Object; }
	T& operator*() const { return *Object; }
	explicit operator bool() const { return Object != nullptr; }

	template<class U>
	bool operator==(const TObjectPtr<U>& Other) const { return Object == Other.Get(); }
	// U* rather than const U*: a raw pointer then matches exactly, and clang does not find the
	// comparison through operator T*() just as good (ambiguous under C++20's rewritten operators).
	template<class U>
	bool operator==(U* Other) const { return Object == Other; }
	bool operator==(std::nullptr_t) const { return Object == nullptr; }

	friend uint32 GetTypeHash(const TObjectPtr& Ptr) { return GetTypeHash(static_cast<const void*>(Ptr.Object)); }

private:
	T* Object = nullptr;
};

template<class T>
TObjectPtr<T> MakeObjectPtrUnsafe(T* Object) { return TObjectPtr<T>(Object); }
