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

private:
	// The reflection reads and writes the class as stored, unchecked: it may not see T's definition.
	template<class, class>
	friend struct UE::Reflection::TPropertyTraits;

	/** The class as stored, unchecked. */
	UClass* GetRawClass() const { return Class; }
	void SetRawClass(UClass* InClass) { Class = InClass; }

	/** Held as given; Get() applies the check, as the engine's does. */
	UClass* Class = nullptr;
};
