#pragma once

// Internal to the object system: giving objects their identity (class, outer, name, slot) and
// finding them again by name.

#include "UObject/Object.h"
#include "UObject/UObjectGlobals.h"

class FObjectConstruction
{
public:
	/** The initializer of the object being constructed on this thread, consumed by UObject's constructor. */
	static FObjectInitializer*& PendingInitializer();

	/** Sets the identity of a freshly made object and registers it (slot and name). */
	static void Register(UObject& Object, UClass* Class, UObject* Outer, FName Name, EObjectFlags Flags);
	/** Removes the object from the name table and frees its slot. */
	static void Unregister(UObject& Object);

	static UObject* FindByName(const UObject* Outer, FName Name);
	static void Rename(UObject& Object, FName NewName, UObject* NewOuter);
	static bool IsNameTaken(const UObject* Outer, FName Name);

	/** Makes the intrinsic classes (Object, Class, Package...) in one go; returns the class of classes. */
	static void EnsureIntrinsicClasses();
};
