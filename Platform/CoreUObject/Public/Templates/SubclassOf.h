#pragma once

// TSubclassOf<T>: a class reference that only accepts T or a class derived from it.

#include "UObject/Class.h"

namespace UE::Reflection
{
	template<class T, class Enable>
	struct TPropertyTraits;
}

template<class T>
class TSubclassOf
{
public:
	TSubclassOf() = default;
	TSubclassOf(std::nullptr_t) {}
	TSubclassOf(UClass* InClass) : Class(InClass) {}
	template<class U, class = std::enable_if_t<std::is_base_of_v<T, U>>>
	TSubclassOf(const TSubclassOf<U>& Other) : Class(Other.Get()) {}

	TSubclassOf& operator=(UClass* InClass) { Class = InClass; return *this; }

	/** The class, or null when it is not T or derived from T. */
	UClass* Get() const { return Class && Class->IsChildOf(T::StaticClass()) ? Class : nullptr; }
	operator UClass*() const { return Get(); }
	UClass* operator*() const { return Get(); }
	UClass* operator->() const { return Get(); }
	explicit operator bool() const { return Get() != nullptr; }

	T* GetDefaultObject() const
	{
		UClass* Valid = Get();
		return Valid ? static_cast<T*>(Valid->GetDefaultObject()) : nullptr;
	}

	bool operator==(const TSubclassOf& Other) const { return Class == Other.Class; }

	// The class as stored, unchecked: the reflection (which may not see T's definition) and the
	// stand-in's widget factory read it. Generated code compiled into the plug-in reaches it as a
	// friend; for the plug-in's own code it is private, as the engine has no such accessor.
#if PLAIN_PLATFORM_INTERNALS
public:
#else
private:
#endif
	/** The class as stored, unchecked. */
	UClass* GetRawClass() const { return Class; }
	void SetRawClass(UClass* InClass) { Class = InClass; }

private:
	template<class, class>
	friend struct UE::Reflection::TPropertyTraits;

	/** Held as given; Get() applies the check, as the engine's does. */
	UClass* Class = nullptr;
};
