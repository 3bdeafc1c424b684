#include "ObjectConstruction.h"

#include "CoreUObjectLog.h"
#include "UObject/Class.h"
#include "UObject/Enum.h"
#include "UObject/Function.h"
#include "UObject/Package.h"
#include "UObject/UObjectArray.h"

#include <unordered_map>

namespace
{
	struct FNameKey
	{
		const UObject* Outer;
		FName Name;

		bool operator==(const FNameKey& Other) const { return Outer == Other.Outer && Name == Other.Name; }
	};

	struct FNameKeyHash
	{
		size_t operator()(const FNameKey& Key) const
		{
			return std::hash<const void*>()(Key.Outer) ^ (static_cast<size_t>(GetTypeHash(Key.Name)) * 0x9E3779B97F4A7C15ull);
		}
	};

	/** Every named object by (outer, name): names are unique per outer. */
	std::unordered_map<FNameKey, UObject*, FNameKeyHash>& NameTable()
	{
		static auto* Table = new std::unordered_map<FNameKey, UObject*, FNameKeyHash>;
		return *Table;
	}

	/** The next number to try per base name, so "Slider_0", "Slider_1"... come in order. */
	std::unordered_map<std::u16string, int32>& UniqueCounters()
	{
		static auto* Counters = new std::unordered_map<std::u16string, int32>;
		return *Counters;
	}

	/** The initializer of the constructor running on this thread, for FObjectInitializer::Get(). */
	thread_local const FObjectInitializer* CurrentInitializer = nullptr;

	template<class T>
	UObject* ConstructIntrinsic(const FObjectInitializer& ObjectInitializer)
	{
		return new T(ObjectInitializer);
	}

	struct FIntrinsicClasses
	{
		UClass* Object = nullptr;
		UClass* Field = nullptr;
		UClass* Struct = nullptr;
		UClass* ScriptStruct = nullptr;
		UClass* Class = nullptr;
		UClass* Function = nullptr;
		UClass* DelegateFunction = nullptr;
		UClass* Enum = nullptr;
		UClass* Package = nullptr;
	};

	UClass* MakeDetachedClass(UClass* Super, SIZE_T Size, UClass::FClassConstructor Constructor)
	{
		// No initializer is pending here, so the object gets no identity until the class of
		// classes exists; see MakeIntrinsicClasses.
		UClass* Class = new UClass();
		Class->SetSuperStruct(Super);
		Class->SetStructureSize(Size);
		Class->SetClassConstructor(Constructor);
		Class->SetClassFlags(CLASS_Native | CLASS_Intrinsic);
		return Class;
	}

	FIntrinsicClasses MakeIntrinsicClasses()
	{
		FIntrinsicClasses C;
		C.Object = MakeDetachedClass(nullptr, sizeof(UObject), &UObject::InternalConstructor);
		C.Field = MakeDetachedClass(C.Object, sizeof(UField), &ConstructIntrinsic<UField>);
		C.Struct = MakeDetachedClass(C.Field, sizeof(UStruct), &ConstructIntrinsic<UStruct>);
		C.ScriptStruct = MakeDetachedClass(C.Struct, sizeof(UScriptStruct), &ConstructIntrinsic<UScriptStruct>);
		C.Class = MakeDetachedClass(C.Struct, sizeof(UClass), &ConstructIntrinsic<UClass>);
		C.Function = MakeDetachedClass(C.Struct, sizeof(UFunction), &ConstructIntrinsic<UFunction>);
		C.DelegateFunction = MakeDetachedClass(C.Function, sizeof(UDelegateFunction), &ConstructIntrinsic<UDelegateFunction>);
		C.Enum = MakeDetachedClass(C.Field, sizeof(UEnum), &ConstructIntrinsic<UEnum>);
		C.Package = MakeDetachedClass(C.Object, sizeof(UPackage), &ConstructIntrinsic<UPackage>);

		UPackage* CorePackage = new UPackage();
		FObjectConstruction::Register(*CorePackage, C.Package, nullptr, FName(TEXT("/Script/CoreUObject")), RF_Public | RF_MarkAsRootSet);

		const std::pair<UClass*, const TCHAR*> Named[] = {
			{ C.Object, TEXT("Object") }, { C.Field, TEXT("Field") }, { C.Struct, TEXT("Struct") },
			{ C.ScriptStruct, TEXT("ScriptStruct") }, { C.Class, TEXT("Class") }, { C.Function, TEXT("Function") },
			{ C.DelegateFunction, TEXT("DelegateFunction") }, { C.Enum, TEXT("Enum") }, { C.Package, TEXT("Package") },
		};
		for (const auto& [Class, Name] : Named)
		{
			FObjectConstruction::Register(*Class, C.Class, CorePackage, FName(Name), RF_Public | RF_MarkAsRootSet);
		}
		return C;
	}

	const FIntrinsicClasses& Intrinsics()
	{
		static const FIntrinsicClasses Classes = MakeIntrinsicClasses();
		return Classes;
	}
}

UClass* UObject::StaticClass() { return Intrinsics().Object; }
UClass* UField::StaticClass() { return Intrinsics().Field; }
UClass* UStruct::StaticClass() { return Intrinsics().Struct; }
UClass* UScriptStruct::StaticClass() { return Intrinsics().ScriptStruct; }
UClass* UClass::StaticClass() { return Intrinsics().Class; }
UClass* UFunction::StaticClass() { return Intrinsics().Function; }
UClass* UDelegateFunction::StaticClass() { return Intrinsics().DelegateFunction; }
UClass* UEnum::StaticClass() { return Intrinsics().Enum; }
UClass* UPackage::StaticClass() { return Intrinsics().Package; }

UObject* UObject::InternalConstructor(const FObjectInitializer& ObjectInitializer)
{
	return new UObject(ObjectInitializer);
}

void FObjectConstruction::EnsureIntrinsicClasses()
{
	Intrinsics();
}

FObjectInitializer*& FObjectConstruction::PendingInitializer()
{
	thread_local FObjectInitializer* Pending = nullptr;
	return Pending;
}

void FObjectConstruction::Register(UObject& Object, UClass* Class, UObject* Outer, FName Name, EObjectFlags Flags)
{
	Object.ClassPrivate = Class;
	Object.OuterPrivate = Outer;
	Object.NamePrivate = Name;
	Object.ObjectFlags = Flags;
	FUObjectArray::Get().AllocateIndex(Object);
	NameTable()[FNameKey{ Outer, Name }] = &Object;
}

void FObjectConstruction::Unregister(UObject& Object)
{
	auto& Table = NameTable();
	auto Found = Table.find(FNameKey{ Object.OuterPrivate, Object.NamePrivate });
	if (Found != Table.end() && Found->second == &Object)
	{
		Table.erase(Found);
	}
	FUObjectArray::Get().FreeIndex(Object);
}

UObject* FObjectConstruction::FindByName(const UObject* Outer, FName Name)
{
	auto& Table = NameTable();
	auto Found = Table.find(FNameKey{ Outer, Name });
	return Found != Table.end() ? Found->second : nullptr;
}

bool FObjectConstruction::IsNameTaken(const UObject* Outer, FName Name)
{
	return FindByName(Outer, Name) != nullptr;
}

void FObjectConstruction::Rename(UObject& Object, FName NewName, UObject* NewOuter)
{
	auto& Table = NameTable();
	auto Found = Table.find(FNameKey{ Object.OuterPrivate, Object.NamePrivate });
	if (Found != Table.end() && Found->second == &Object)
	{
		Table.erase(Found);
	}
	Object.NamePrivate = NewName;
	Object.OuterPrivate = NewOuter;
	Table[FNameKey{ NewOuter, NewName }] = &Object;
}

const FObjectInitializer& FObjectInitializer::Get()
{
	static const FObjectInitializer Empty;
	return CurrentInitializer ? *CurrentInitializer : Empty;
}

FName MakeUniqueObjectName(UObject* Outer, const UClass* Class, FName BaseName)
{
	const FString Base = BaseName.IsNone() ? (Class ? Class->GetName() : FString(TEXT("Object"))) : BaseName.ToString();
	int32& Counter = UniqueCounters()[std::u16string(*Base.ToLower())];
	for (;;)
	{
		const FName Candidate(*FString::Printf(TEXT("%s_%d"), *Base, Counter++));
		if (!FObjectConstruction::IsNameTaken(Outer, Candidate))
		{
			return Candidate;
		}
	}
}

UObject* StaticConstructObject_Internal(const FStaticConstructObjectParameters& Params)
{
	UClass* Class = Params.Class;
	if (!Class)
	{
		UE_LOG(LogUObjectGlobals, Error, TEXT("NewObject called without a class"));
		return nullptr;
	}
	if (Class->HasAnyClassFlags(CLASS_Abstract))
	{
		UE_LOG(LogUObjectGlobals, Error, TEXT("Can't create an object of the abstract class %s"), *Class->GetName());
		return nullptr;
	}
	UClass::FClassConstructor Constructor = Class->GetClassConstructor();
	if (!Constructor)
	{
		UE_LOG(LogUObjectGlobals, Error, TEXT("The class %s has no native constructor"), *Class->GetName());
		return nullptr;
	}

	UObject* Outer = Params.Outer;
	if (!Outer && !Class->IsChildOf(UPackage::StaticClass()))
	{
		Outer = GetTransientPackage();
	}
	FName Name = Params.Name;
	if (Name.IsNone())
	{
		Name = MakeUniqueObjectName(Outer, Class);
	}
	else if (FObjectConstruction::IsNameTaken(Outer, Name))
	{
		const FName Unique = MakeUniqueObjectName(Outer, Class, Name);
		UE_LOG(LogUObjectGlobals, Warning, TEXT("An object named %s already exists in %s; the new one is named %s"),
			*Name.ToString(), Outer ? *Outer->GetPathName() : TEXT("None"), *Unique.ToString());
		Name = Unique;
	}

	FObjectInitializer Initializer(nullptr, Class, Outer, Name, Params.SetFlags);
	const FObjectInitializer* Previous = CurrentInitializer;
	CurrentInitializer = &Initializer;
	FObjectConstruction::PendingInitializer() = &Initializer;
	UObject* Object = Constructor(Initializer);
	FObjectConstruction::PendingInitializer() = nullptr;
	CurrentInitializer = Previous;

	Class->PostConstructInstance(Object);
	Object->PostInitProperties();
	return Object;
}
