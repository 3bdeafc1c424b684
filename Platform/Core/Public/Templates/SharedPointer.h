#pragma once

// Reference-counted smart pointers under the engine's names: TSharedPtr (may be null), TSharedRef
// (never null), TWeakPtr (does not keep the object alive; Pin() it to use it), TSharedFromThis, and
// the functions that make and cast them. They share std::shared_ptr's control block, so counting is always thread-safe; the ESPMode
// parameter is accepted for source compatibility and changes nothing.

#include "CoreTypes.h"
#include "Templates/SharedPointerTypes.h"
#include "Templates/TypeHash.h"
#include "Templates/UnrealTemplate.h"

#include <memory>
#include <type_traits>

/** Makes a new object owned by a TSharedRef, with the object and its count in one allocation. */
template<class ObjectType, ESPMode Mode = ESPMode::ThreadSafe, class... ArgTypes>
TSharedRef<ObjectType, Mode> MakeShared(ArgTypes&&... Args)
{
	return UE::Core::Private::FSharedAccess::Wrap<TSharedRef<ObjectType, Mode>>(std::make_shared<ObjectType>(Forward<ArgTypes>(Args)...));
}

/** Hands an object made with new to the shared pointer it is assigned to; that pointer owns it. */
template<class ObjectType>
TRawPtrProxy<ObjectType> MakeShareable(ObjectType* Object)
{
	return TRawPtrProxy<ObjectType>{Object, {}};
}

/** As MakeShareable(Object), destroying the object with Deleter(Object) instead of delete. */
template<class ObjectType, class DeleterType>
TRawPtrProxy<ObjectType, std::decay_t<DeleterType>> MakeShareable(ObjectType* Object, DeleterType&& Deleter)
{
	return TRawPtrProxy<ObjectType, std::decay_t<DeleterType>>{Object, Forward<DeleterType>(Deleter)};
}

template<class To, class From, ESPMode Mode>
TSharedRef<To, Mode> StaticCastSharedRef(const TSharedRef<From, Mode>& Ref)
{
	using namespace UE::Core::Private;
	return FSharedAccess::Wrap<TSharedRef<To, Mode>>(std::static_pointer_cast<To>(FSharedAccess::Std(Ref)));
}

template<class To, class From, ESPMode Mode>
TSharedPtr<To, Mode> StaticCastSharedPtr(const TSharedPtr<From, Mode>& Ptr)
{
	using namespace UE::Core::Private;
	return FSharedAccess::Wrap<TSharedPtr<To, Mode>>(std::static_pointer_cast<To>(FSharedAccess::Std(Ptr)));
}

template<class To, class From, ESPMode Mode>
TSharedRef<To, Mode> ConstCastSharedRef(const TSharedRef<From, Mode>& Ref)
{
	using namespace UE::Core::Private;
	return FSharedAccess::Wrap<TSharedRef<To, Mode>>(std::const_pointer_cast<To>(FSharedAccess::Std(Ref)));
}

template<class To, class From, ESPMode Mode>
TSharedPtr<To, Mode> ConstCastSharedPtr(const TSharedPtr<From, Mode>& Ptr)
{
	using namespace UE::Core::Private;
	return FSharedAccess::Wrap<TSharedPtr<To, Mode>>(std::const_pointer_cast<To>(FSharedAccess::Std(Ptr)));
}

template<class To, class From, ESPMode Mode>
TWeakPtr<To, Mode> StaticCastWeakPtr(const TWeakPtr<From, Mode>& Weak)
{
	return TWeakPtr<To, Mode>(StaticCastSharedPtr<To>(Weak.Pin()));
}

// Comparisons compare the objects' addresses. C++20 derives != and the reversed forms.
template<class A, class B, ESPMode Mode>
bool operator==(const TSharedPtr<A, Mode>& Left, const TSharedPtr<B, Mode>& Right) { return Left.Get() == Right.Get(); }
template<class A, class B, ESPMode Mode>
bool operator==(const TSharedPtr<A, Mode>& Left, const TSharedRef<B, Mode>& Right) { return Left.Get() == &Right.Get(); }
template<class A, class B, ESPMode Mode>
bool operator==(const TSharedRef<A, Mode>& Left, const TSharedRef<B, Mode>& Right) { return &Left.Get() == &Right.Get(); }
template<class A, ESPMode Mode>
bool operator==(const TSharedPtr<A, Mode>& Left, std::nullptr_t) { return !Left.IsValid(); }
template<class A, class B, ESPMode Mode>
bool operator==(const TWeakPtr<A, Mode>& Left, const TWeakPtr<B, Mode>& Right) { return Left.Pin().Get() == Right.Pin().Get(); }
template<class A, ESPMode Mode>
bool operator==(const TWeakPtr<A, Mode>& Left, std::nullptr_t) { return !Left.IsValid(); }

template<class T, ESPMode Mode>
uint32 GetTypeHash(const TSharedPtr<T, Mode>& Ptr) { return PointerHash(Ptr.Get()); }
template<class T, ESPMode Mode>
uint32 GetTypeHash(const TSharedRef<T, Mode>& Ref) { return PointerHash(&Ref.Get()); }

/**
 * Base for a class whose member functions need a shared pointer to their own object. AsShared()
 * works only once the object is owned by a shared pointer (MakeShared or MakeShareable), never
 * from the constructor.
 */
template<class ObjectType, ESPMode Mode>
class TSharedFromThis : public std::enable_shared_from_this<ObjectType>
{
public:
	TSharedRef<ObjectType, Mode> AsShared()
	{
		std::shared_ptr<ObjectType> Self = this->weak_from_this().lock();
		check(Self != nullptr);
		return UE::Core::Private::FSharedAccess::Wrap<TSharedRef<ObjectType, Mode>>(MoveTemp(Self));
	}
	TSharedRef<const ObjectType, Mode> AsShared() const
	{
		std::shared_ptr<const ObjectType> Self = this->weak_from_this().lock();
		check(Self != nullptr);
		return UE::Core::Private::FSharedAccess::Wrap<TSharedRef<const ObjectType, Mode>>(MoveTemp(Self));
	}
	TWeakPtr<ObjectType, Mode> AsWeak() { return UE::Core::Private::FSharedAccess::Wrap<TWeakPtr<ObjectType, Mode>>(this->weak_from_this()); }
	TWeakPtr<const ObjectType, Mode> AsWeak() const { return UE::Core::Private::FSharedAccess::Wrap<TWeakPtr<const ObjectType, Mode>>(this->weak_from_this()); }
	bool DoesSharedInstanceExist() const { return !this->weak_from_this().expired(); }

protected:
	/** AsShared() cast to the derived class the caller is in: SharedThis(this). */
	template<class OtherType>
	static TSharedRef<OtherType, Mode> SharedThis(OtherType* This) { return StaticCastSharedRef<OtherType>(This->AsShared()); }
	template<class OtherType>
	static TSharedRef<const OtherType, Mode> SharedThis(const OtherType* This) { return StaticCastSharedRef<const OtherType>(This->AsShared()); }
};
