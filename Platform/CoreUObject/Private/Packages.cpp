#include "CoreUObjectLog.h"
#include "ObjectConstruction.h"
#include "UObject/Class.h"
#include "UObject/Package.h"
#include "UObject/UObjectGlobals.h"

DEFINE_LOG_CATEGORY(LogUObjectGlobals);

namespace
{
	UE::Loading::FObjectLoader& ObjectLoader()
	{
		static UE::Loading::FObjectLoader Loader = nullptr;
		return Loader;
	}

	/** Splits "Outer.Inner:Sub" at the first '.' or ':'; false when there is none. */
	bool SplitFirst(const FString& Path, FString& Head, FString& Rest)
	{
		for (int32 Index = 0; Index < Path.Len(); ++Index)
		{
			if (Path[Index] == TEXT('.') || Path[Index] == TEXT(':'))
			{
				Head = Path.Left(Index);
				Rest = Path.Mid(Index + 1);
				return true;
			}
		}
		return false;
	}

	bool ClassMatches(const UObject* Object, const UClass* Class, bool bExactClass)
	{
		if (!Object || !Class)
		{
			return Object != nullptr;
		}
		return bExactClass ? Object->GetClass() == Class : Object->IsA(Class);
	}

	/** The path without an optional class prefix: "Material'/Game/M.M'" -> "/Game/M.M". */
	FString StripClassPrefix(const FString& Path)
	{
		const int32 Quote = Path.Find(TEXT("'"));
		if (Quote != INDEX_NONE && Path.EndsWith(TEXT("'")) && Path.Len() > Quote + 1)
		{
			return Path.Mid(Quote + 1, Path.Len() - Quote - 2);
		}
		return Path;
	}
}

UPackage* FindPackage(UObject* InOuter, const TCHAR* PackageName)
{
	UObject* Found = FObjectConstruction::FindByName(InOuter, FName(PackageName));
	return Found && Found->IsA(UPackage::StaticClass()) ? static_cast<UPackage*>(Found) : nullptr;
}

UPackage* CreatePackage(const TCHAR* PackageName)
{
	if (UPackage* Existing = FindPackage(nullptr, PackageName))
	{
		return Existing;
	}
	return NewObject<UPackage>(nullptr, UPackage::StaticClass(), FName(PackageName), RF_Public);
}

UPackage* GetTransientPackage()
{
	static UPackage* Transient = []
	{
		UPackage* Package = CreatePackage(TEXT("/Engine/Transient"));
		Package->AddToRoot();
		return Package;
	}();
	return Transient;
}

UObject* StaticFindObjectFast(UClass* Class, UObject* InOuter, FName InName, bool bExactClass)
{
	UObject* Found = FObjectConstruction::FindByName(InOuter, InName);
	return ClassMatches(Found, Class, bExactClass) ? Found : nullptr;
}

UObject* StaticFindObject(UClass* Class, UObject* InOuter, const TCHAR* Name, bool bExactClass)
{
	FObjectConstruction::EnsureIntrinsicClasses();
	ProcessNewlyLoadedUObjects();
	const FString Path = StripClassPrefix(Name);
	if (InOuter)
	{
		UObject* Outer = InOuter;
		FString Remaining = Path;
		FString Head;
		FString Rest;
		while (SplitFirst(Remaining, Head, Rest))
		{
			Outer = FObjectConstruction::FindByName(Outer, FName(*Head));
			if (!Outer)
			{
				return nullptr;
			}
			Remaining = Rest;
		}
		return StaticFindObjectFast(Class, Outer, FName(*Remaining), bExactClass);
	}

	// A full path: the package first, then each object inside it.
	FString PackageName;
	FString Inner;
	if (!SplitFirst(Path, PackageName, Inner))
	{
		return StaticFindObjectFast(Class, nullptr, FName(*Path), bExactClass);
	}
	UPackage* Package = FindPackage(nullptr, *PackageName);
	return Package ? StaticFindObject(Class, Package, *Inner, bExactClass) : nullptr;
}

void UE::Loading::SetObjectLoader(FObjectLoader Loader)
{
	ObjectLoader() = Loader;
}

UObject* StaticLoadObject(UClass* Class, UObject* InOuter, const TCHAR* Name, const TCHAR* Filename, uint32 LoadFlags,
	UPackageMap* Sandbox, bool bAllowObjectReconciliation, const FLinkerInstancingContext* InstancingContext)
{
	const FString Path = StripClassPrefix(Name ? FString(Name) : FString());
	if (Path.IsEmpty())
	{
		return nullptr;
	}
	if (UObject* Found = StaticFindObject(Class, InOuter, *Path))
	{
		return Found;
	}
	if (UE::Loading::FObjectLoader Loader = ObjectLoader())
	{
		UObject* Loaded = Loader(Class, InOuter, Path, LoadFlags);
		return ClassMatches(Loaded, Class, false) ? Loaded : nullptr;
	}
	if (!(LoadFlags & (LOAD_NoWarn | LOAD_Quiet)))
	{
		UE_LOG(LogUObjectGlobals, Warning, TEXT("Failed to find object '%s': no asset loader is set up"), *Path);
	}
	return nullptr;
}

UClass* StaticLoadClass(UClass* BaseClass, UObject* InOuter, const TCHAR* Name, const TCHAR* Filename, uint32 LoadFlags, UPackageMap* Sandbox)
{
	UClass* Class = static_cast<UClass*>(StaticLoadObject(UClass::StaticClass(), InOuter, Name, Filename, LoadFlags, Sandbox));
	return Class && (!BaseClass || Class->IsChildOf(BaseClass)) ? Class : nullptr;
}
