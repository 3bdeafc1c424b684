#pragma once

// TWeakObjectPtr<T>: the typed weak reference. Delegates hold their UObject targets this way, so a
// listener that has gone is passed over.

#include "UObject/WeakObjectPtr.h"
#include "UObject/WeakObjectPtrTemplatesFwd.h"

#include <type_traits>

template<class T>
class TWeakObjectPtr
{
public:
	TWeakObjectPtr() = default;
	TWeakObjectPtr(std::nullptr_t) {}
	TWeakObjectPtr(const T* Object) : Weak(static_cast<const UObject*>(Object)) { CheckType<T>(); }
	template<class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
	TWeakObjectPtr(const TWeakObjectPtr<U>& Other) : Weak(Other.GetWeak()) {}

	TWeakObjectPtr& operator=(const T* Object) { Weak = static_cast<const UObject*>(Object); return *this; }

	T* Get() const { return static_cast<T*>(Weak.Get()); }
	bool IsValid() const { return Weak.IsValid(); }
	bool IsStale() const { return Weak.IsStale(); }
	void Reset() { Weak.Reset(); }
	explicit operator bool() const { return IsValid(); }
	T* operator->() const { return Get(); }
	T& operator*() const { return *Get(); }

	bool operator==(const TWeakObjectPtr& Other) const { return Weak == Other.Weak; }
	const FWeakObjectPtr& GetWeak() const { return Weak; }

	friend uint32 GetTypeHash(const TWeakObjectPtr& Ptr) { return GetTypeHash(Ptr.Weak); }

private:
	template<class U>
	static void CheckType()
	{
		static_assert(std::is_base_of_v<UObject, std::remove_cv_t<U>>, "TWeakObjectPtr can only point at a UObject");
	}

	FWeakObjectPtr Weak;
};
