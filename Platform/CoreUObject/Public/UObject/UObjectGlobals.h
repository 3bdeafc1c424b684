#pragma once

// Making, finding and loading objects: NewObject, FindObject, StaticLoadObject, and the
// FObjectInitializer that a constructor receives.

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"

class UObject;
class UClass;
class UPackage;
class UPackageMap;
class FLinkerInstancingContext;

enum ELoadFlags : uint32
{
	LOAD_None = 0,
	LOAD_NoWarn = 1u << 0,
	LOAD_Quiet = 1u << 1,
};

/** What a constructor is told about the object it builds. Valid only during construction. */
class COREUOBJECT_API FObjectInitializer
{
public:
	FObjectInitializer() = default;
	FObjectInitializer(UObject* InObject, UClass* InClass, UObject* InOuter, FName InName, EObjectFlags InFlags)
		: Object(InObject), Class(InClass), Outer(InOuter), Name(InName), Flags(InFlags)
	{
	}

	UObject* GetObj() const { return Object; }
	UClass* GetClass() const { return Class; }
	UObject* GetOuter() const { return Outer; }
	FName GetName() const { return Name; }
	EObjectFlags GetFlags() const { return Flags; }

	/** The initializer of the object under construction on this thread. */
	static const FObjectInitializer& Get();

private:
	friend class FObjectConstruction;

	UObject* Object = nullptr;
	UClass* Class = nullptr;
	UObject* Outer = nullptr;
	FName Name;
	EObjectFlags Flags = RF_NoFlags;
};

struct FStaticConstructObjectParameters
{
	UClass* Class = nullptr;
	UObject* Outer = nullptr;
	FName Name;
	EObjectFlags SetFlags = RF_NoFlags;

	explicit FStaticConstructObjectParameters(UClass* InClass) : Class(InClass) {}
};

COREUOBJECT_API UObject* StaticConstructObject_Internal(const FStaticConstructObjectParameters& Params);

/** The package that holds objects made without a meaningful outer. */
COREUOBJECT_API UPackage* GetTransientPackage();
/** Finds or makes the package of that name ("/Game/UI/Player", "/Script/Engine"). */
COREUOBJECT_API UPackage* CreatePackage(const TCHAR* PackageName);
COREUOBJECT_API UPackage* FindPackage(UObject* InOuter, const TCHAR* PackageName);

/** A name that no object in Outer has yet: the class name with the next free number, e.g. "Slider_3". */
COREUOBJECT_API FName MakeUniqueObjectName(UObject* Outer, const UClass* Class, FName BaseName = NAME_None);

/** Finds an object by name in Outer, or by a full path ("/Script/Engine.World", "/Game/A/B.B") when Outer is null. */
COREUOBJECT_API UObject* StaticFindObject(UClass* Class, UObject* InOuter, const TCHAR* Name, bool bExactClass = false);
COREUOBJECT_API UObject* StaticFindObjectFast(UClass* Class, UObject* InOuter, FName InName, bool bExactClass = false);

/** Finds the object, or loads it through the asset loader; null (with a log line) on failure. */
COREUOBJECT_API UObject* StaticLoadObject(UClass* Class, UObject* InOuter, const TCHAR* Name, const TCHAR* Filename = nullptr,
	uint32 LoadFlags = LOAD_None, UPackageMap* Sandbox = nullptr, bool bAllowObjectReconciliation = true,
	const FLinkerInstancingContext* InstancingContext = nullptr);
COREUOBJECT_API UClass* StaticLoadClass(UClass* BaseClass, UObject* InOuter, const TCHAR* Name, const TCHAR* Filename = nullptr,
	uint32 LoadFlags = LOAD_None, UPackageMap* Sandbox = nullptr);

#if PLAIN_PLATFORM_INTERNALS
namespace UE::Loading
{
	/** The stand-in's: loads the object at an object path; set by the Engine module's asset loader. */
	using FObjectLoader = UObject* (*)(UClass* Class, UObject* InOuter, const FString& Path, uint32 LoadFlags);
	COREUOBJECT_API void SetObjectLoader(FObjectLoader Loader);
}
#endif

template<class T>
T* NewObject(UObject* Outer, UClass* Class, FName Name = NAME_None, EObjectFlags Flags = RF_NoFlags)
{
	FStaticConstructObjectParameters Params(Class);
	Params.Outer = Outer;
	Params.Name = Name;
	Params.SetFlags = Flags;
	return static_cast<T*>(StaticConstructObject_Internal(Params));
}

template<class T>
T* NewObject(UObject* Outer = reinterpret_cast<UObject*>(GetTransientPackage()))
{
	return NewObject<T>(Outer, T::StaticClass());
}

template<class T>
T* FindObject(UObject* Outer, const TCHAR* Name, bool bExactClass = false)
{
	return static_cast<T*>(StaticFindObject(T::StaticClass(), Outer, Name, bExactClass));
}

template<class T>
T* LoadObject(UObject* Outer, const TCHAR* Name, const TCHAR* Filename = nullptr, uint32 LoadFlags = LOAD_None, UPackageMap* Sandbox = nullptr)
{
	return static_cast<T*>(StaticLoadObject(T::StaticClass(), Outer, Name, Filename, LoadFlags, Sandbox));
}

template<class T>
UClass* LoadClass(UObject* Outer, const TCHAR* Name, const TCHAR* Filename = nullptr, uint32 LoadFlags = LOAD_None, UPackageMap* Sandbox = nullptr)
{
	return StaticLoadClass(T::StaticClass(), Outer, Name, Filename, LoadFlags, Sandbox);
}
