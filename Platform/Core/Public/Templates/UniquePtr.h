#pragma once

// TUniquePtr: sole ownership of an object (or of an array, as TUniquePtr<T[]>), freed when the
// pointer is destroyed or reset. It moves and never copies.

#include "CoreTypes.h"
#include "Templates/TypeHash.h"
#include "Templates/UnrealTemplate.h"

#include <memory>
#include <type_traits>

template<class T>
using TDefaultDelete = std::default_delete<T>;

/** Sole owner of an object; moving hands the object over and leaves the source null. */
template<class T, class Deleter = TDefaultDelete<T>>
class TUniquePtr
{
public:
	using ElementType = std::remove_extent_t<T>;

	TUniquePtr() = default;
	TUniquePtr(std::nullptr_t) {}
	explicit TUniquePtr(ElementType* InObject) : Object(InObject) {}
	template<class OtherType, class OtherDeleter>
		requires std::is_convertible_v<OtherType*, ElementType*> && (!std::is_array_v<T>)
	TUniquePtr(TUniquePtr<OtherType, OtherDeleter>&& Other) : Object(Other.Release())
	{
	}
	TUniquePtr(TUniquePtr&&) = default;
	TUniquePtr& operator=(TUniquePtr&&) = default;
	TUniquePtr& operator=(std::nullptr_t) { Object.reset(); return *this; }

	bool IsValid() const { return Object != nullptr; }
	explicit operator bool() const { return Object != nullptr; }
	ElementType* Get() const { return Object.get(); }
	ElementType* operator->() const requires(!std::is_array_v<T>) { check(IsValid()); return Object.get(); }
	ElementType& operator*() const requires(!std::is_array_v<T>) { check(IsValid()); return *Object; }
	ElementType& operator[](SIZE_T Index) const requires std::is_array_v<T> { return Object[Index]; }

	/** Gives up ownership without freeing; the caller now owns the object. */
	[[nodiscard]] ElementType* Release() { return Object.release(); }
	/** Frees the current object and owns NewObject instead. */
	void Reset(ElementType* NewObject = nullptr) { Object.reset(NewObject); }

	template<class OtherType, class OtherDeleter>
	bool operator==(const TUniquePtr<OtherType, OtherDeleter>& Other) const { return Get() == Other.Get(); }
	bool operator==(std::nullptr_t) const { return Object == nullptr; }

	friend uint32 GetTypeHash(const TUniquePtr& Pointer) { return PointerHash(Pointer.Get()); }

private:
	// The owned object or array, or null.
	std::unique_ptr<T, Deleter> Object;
};

/** A new object owned by a TUniquePtr. */
template<class T, class... ArgTypes>
	requires(!std::is_array_v<T>)
TUniquePtr<T> MakeUnique(ArgTypes&&... Args)
{
	return TUniquePtr<T>(new T(Forward<ArgTypes>(Args)...));
}

/** A new array of Count value-initialised (zeroed, for plain types) elements. */
template<class T>
	requires std::is_unbounded_array_v<T>
TUniquePtr<T> MakeUnique(SIZE_T Count)
{
	return TUniquePtr<T>(new std::remove_extent_t<T>[Count]());
}
