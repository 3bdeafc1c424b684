#pragma once

// UObject: the base of every reflected class.
//
// Objects are made with NewObject (or CreateWidget, StaticLoadObject) and released only by the
// garbage collector: whatever is not reachable from a root through reflected strong references is
// destroyed at the next CollectGarbage. Nothing frees an object by hand. Objects belong to the game
// thread; none of this may be called from another thread.

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"

class UClass;
class UFunction;
class UPackage;
class UWorld;
class FReferenceCollector;

class COREUOBJECT_API UObject
{
public:
	using ThisClass = UObject;

	/** Takes name, outer, class and flags from the NewObject call that is constructing it. */
	UObject();
	explicit UObject(const FObjectInitializer& ObjectInitializer);
	virtual ~UObject();

	UObject(const UObject&) = delete;
	UObject& operator=(const UObject&) = delete;

	static UClass* StaticClass();
	static UObject* InternalConstructor(const FObjectInitializer& ObjectInitializer);

	/** The class this object is an instance of; a blueprint class for objects made from one. */
	UClass* GetClass() const { return ClassPrivate; }
	UObject* GetOuter() const { return OuterPrivate; }
	/** The package at the top of the outer chain. */
	UPackage* GetOutermost() const;
	UPackage* GetPackage() const { return GetOutermost(); }
	FName GetFName() const { return NamePrivate; }
	FString GetName() const;
	/** "/Package/Path.Object.Inner", as the engine writes object paths. */
	FString GetPathName() const;
	/** "ClassName /Package/Path.Object". */
	FString GetFullName() const;

	/** The world this object lives in, found through the outer chain; null for most objects. */
	virtual UWorld* GetWorld() const;

	bool IsA(const UClass* SomeBase) const;
	template<class T>
	bool IsA() const { return IsA(T::StaticClass()); }

	EObjectFlags GetFlags() const { return ObjectFlags; }
	void SetFlags(EObjectFlags Flags) { ObjectFlags = ObjectFlags | Flags; }
	void ClearFlags(EObjectFlags Flags) { ObjectFlags = ObjectFlags & ~Flags; }
	bool HasAnyFlags(EObjectFlags Flags) const { return (ObjectFlags & Flags) != RF_NoFlags; }

	/** Keeps this object (and what it references) alive across collections until RemoveFromRoot. */
	void AddToRoot();
	void RemoveFromRoot();
	bool IsRooted() const { return HasAnyFlags(RF_MarkAsRootSet); }

	/** Index in the global object array; with the serial number it identifies a weak reference. */
	int32 GetUniqueID() const { return InternalIndex; }

	/** Called after construction, once the object's class and defaults are in place. */
	virtual void PostInitProperties() {}

	/** First step of destruction: release what the object holds. Always call the base. */
	virtual void BeginDestroy();
	/** Last step before the memory is freed. Always call the base. */
	virtual void FinishDestroy();
	/** Runs BeginDestroy now if it has not run yet; the memory stays until the collector frees it. */
	bool ConditionalBeginDestroy();
	bool HasBegunDestroy() const { return HasAnyFlags(RF_BeginDestroyed); }

	/** Finds a reflected function by name on this object's class or its bases. */
	UFunction* FindFunction(FName InName) const;
	UFunction* FindFunctionChecked(FName InName) const;
	/** Calls a reflected function; Parms is the std::tuple of its decayed parameter types. */
	void ProcessEvent(UFunction* Function, void* Parms);

	/** Reports references that are not reflected properties (stand-in engine classes only). */
	virtual void AddReferencedObjects(FReferenceCollector& Collector) {}

	/** Changes name and/or outer; the name must be free in the new outer. */
	bool Rename(const TCHAR* NewName = nullptr, UObject* NewOuter = nullptr);

	bool IsTemplate() const { return HasAnyFlags(RF_ClassDefaultObject | RF_ArchetypeObject); }

private:
	friend class FUObjectArray;
	friend class FObjectConstruction;
	friend class UClass;

	void InitFromConstruction();

	/** The class, possibly a blueprint class whose nearest native base built this object. */
	UClass* ClassPrivate = nullptr;
	/** The object this one lives in; a package at the top of the chain. */
	UObject* OuterPrivate = nullptr;
	/** Unique among the objects of the same outer. */
	FName NamePrivate;
	EObjectFlags ObjectFlags = RF_NoFlags;
	/** Slot in the global object array. */
	int32 InternalIndex = INDEX_NONE;
};

/** True for a live object: not null and not on its way to destruction. */
COREUOBJECT_API bool IsValid(const UObject* Test);
