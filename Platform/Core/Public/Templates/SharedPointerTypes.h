#pragma once

// The three pointer classes behind Templates/SharedPointer.h (include that one: it also has
// MakeShared, MakeShareable, the casts and TSharedFromThis). All three wrap the standard shared
// and weak pointers and keep one rule each: a TSharedRef is never null, a TSharedPtr may be, and a
// TWeakPtr never keeps its object alive.

#include "CoreTypes.h"
#include "Templates/UnrealTemplate.h"

#include <memory>
#include <type_traits>

enum class ESPMode : uint8
{
	NotThreadSafe = 0,
	ThreadSafe = 1
};

template<class ObjectType, ESPMode Mode = ESPMode::ThreadSafe> class TSharedRef;
template<class ObjectType, ESPMode Mode = ESPMode::ThreadSafe> class TSharedPtr;
template<class ObjectType, ESPMode Mode = ESPMode::ThreadSafe> class TWeakPtr;
template<class ObjectType, ESPMode Mode = ESPMode::ThreadSafe> class TSharedFromThis;

namespace UE::Core::Private
{
	// The one door to the standard pointer inside each wrapper, so casts and conversions between
	// the wrappers need no public accessor.
	struct FSharedAccess
	{
		template<class T>
		static const auto& Std(const T& Pointer) { return Pointer.Object; }

		template<class Result, class StdPointer>
		static Result Wrap(StdPointer&& Object) { return Result(Forward<StdPointer>(Object)); }
	};
}

/** What MakeShareable returns: a raw pointer waiting to be owned by a TSharedPtr or TSharedRef. */
template<class ObjectType, class DeleterType = std::default_delete<ObjectType>>
struct TRawPtrProxy
{
	ObjectType* Object;
	DeleterType Deleter;
};

/** Shared ownership of an object that is always there: it cannot be made null, and moving one copies. */
template<class ObjectType, ESPMode Mode>
class TSharedRef
{
public:
	using ElementType = ObjectType;

	/** Takes ownership of an object made with new; the pointer must not be null. */
	template<class OtherType>
		requires std::is_convertible_v<OtherType*, ObjectType*>
	explicit TSharedRef(OtherType* InObject) : Object(InObject) { check(InObject != nullptr); }
	template<class OtherType, class DeleterType>
		requires std::is_convertible_v<OtherType*, ObjectType*>
	TSharedRef(TRawPtrProxy<OtherType, DeleterType>&& Proxy) : Object(Proxy.Object, MoveTemp(Proxy.Deleter)) { check(Proxy.Object != nullptr); }
	template<class OtherType>
		requires std::is_convertible_v<OtherType*, ObjectType*>
	TSharedRef(const TSharedRef<OtherType, Mode>& Other) : Object(UE::Core::Private::FSharedAccess::Std(Other)) {}
	// Only copies, so a moved-from reference still points somewhere.
	TSharedRef(const TSharedRef&) = default;
	TSharedRef& operator=(const TSharedRef&) = default;

	ObjectType& Get() const { return *Object; }
	ObjectType* operator->() const { return Object.get(); }
	ObjectType& operator*() const { return *Object; }
	bool IsValid() const { return true; }
	TSharedPtr<ObjectType, Mode> ToSharedPtr() const { return TSharedPtr<ObjectType, Mode>(*this); }
	TWeakPtr<ObjectType, Mode> ToWeakPtr() const { return TWeakPtr<ObjectType, Mode>(*this); }
	int32 GetSharedReferenceCount() const { return int32(Object.use_count()); }
	bool IsUnique() const { return Object.use_count() == 1; }

private:
	friend struct UE::Core::Private::FSharedAccess;
	explicit TSharedRef(std::shared_ptr<ObjectType> InObject) : Object(MoveTemp(InObject)) { check(Object != nullptr); }

	// The owned object; never null.
	std::shared_ptr<ObjectType> Object;
};

/** Shared ownership of an object, or null. Dereferencing a null one stops the program. */
template<class ObjectType, ESPMode Mode>
class TSharedPtr
{
public:
	using ElementType = ObjectType;

	TSharedPtr() = default;
	TSharedPtr(std::nullptr_t) {}
	/** Takes ownership of an object made with new. */
	template<class OtherType>
		requires std::is_convertible_v<OtherType*, ObjectType*>
	explicit TSharedPtr(OtherType* InObject) : Object(InObject) {}
	template<class OtherType, class DeleterType>
		requires std::is_convertible_v<OtherType*, ObjectType*>
	TSharedPtr(TRawPtrProxy<OtherType, DeleterType>&& Proxy)
	{
		if (Proxy.Object)
		{
			Object = std::shared_ptr<ObjectType>(Proxy.Object, MoveTemp(Proxy.Deleter));
		}
	}
	template<class OtherType>
		requires std::is_convertible_v<OtherType*, ObjectType*>
	TSharedPtr(const TSharedPtr<OtherType, Mode>& Other) : Object(UE::Core::Private::FSharedAccess::Std(Other)) {}
	template<class OtherType>
		requires std::is_convertible_v<OtherType*, ObjectType*>
	TSharedPtr(const TSharedRef<OtherType, Mode>& Other) : Object(UE::Core::Private::FSharedAccess::Std(Other)) {}

	bool IsValid() const { return Object != nullptr; }
	explicit operator bool() const { return Object != nullptr; }
	ObjectType* Get() const { return Object.get(); }
	ObjectType* operator->() const { check(IsValid()); return Object.get(); }
	ObjectType& operator*() const { check(IsValid()); return *Object; }
	void Reset() { Object.reset(); }
	/** The same object as a TSharedRef; this pointer must not be null. */
	TSharedRef<ObjectType, Mode> ToSharedRef() const
	{
		check(IsValid());
		return UE::Core::Private::FSharedAccess::Wrap<TSharedRef<ObjectType, Mode>>(Object);
	}
	TWeakPtr<ObjectType, Mode> ToWeakPtr() const { return TWeakPtr<ObjectType, Mode>(*this); }
	int32 GetSharedReferenceCount() const { return int32(Object.use_count()); }
	bool IsUnique() const { return Object.use_count() == 1; }

private:
	friend struct UE::Core::Private::FSharedAccess;
	explicit TSharedPtr(std::shared_ptr<ObjectType> InObject) : Object(MoveTemp(InObject)) {}

	// The owned object, or null.
	std::shared_ptr<ObjectType> Object;
};

/** A reference that does not keep its object alive; Pin() it for a TSharedPtr that is null once the object is gone. */
template<class ObjectType, ESPMode Mode>
class TWeakPtr
{
public:
	using ElementType = ObjectType;

	TWeakPtr() = default;
	TWeakPtr(std::nullptr_t) {}
	template<class OtherType>
		requires std::is_convertible_v<OtherType*, ObjectType*>
	TWeakPtr(const TSharedPtr<OtherType, Mode>& Shared) : Object(UE::Core::Private::FSharedAccess::Std(Shared)) {}
	template<class OtherType>
		requires std::is_convertible_v<OtherType*, ObjectType*>
	TWeakPtr(const TSharedRef<OtherType, Mode>& Shared) : Object(UE::Core::Private::FSharedAccess::Std(Shared)) {}
	template<class OtherType>
		requires std::is_convertible_v<OtherType*, ObjectType*>
	TWeakPtr(const TWeakPtr<OtherType, Mode>& Other) : Object(UE::Core::Private::FSharedAccess::Std(Other)) {}

	/** A strong pointer to the object, or null if it is gone. Hold it only while using the object. */
	TSharedPtr<ObjectType, Mode> Pin() const { return UE::Core::Private::FSharedAccess::Wrap<TSharedPtr<ObjectType, Mode>>(Object.lock()); }
	bool IsValid() const { return !Object.expired(); }
	void Reset() { Object.reset(); }
	/** True while the object is alive and at Other's address. */
	bool HasSameObject(const void* Other) const { return Pin().Get() == Other; }

private:
	friend struct UE::Core::Private::FSharedAccess;
	explicit TWeakPtr(std::weak_ptr<ObjectType> InObject) : Object(MoveTemp(InObject)) {}

	// The observed object; expires with its last strong owner.
	std::weak_ptr<ObjectType> Object;
};
