#include "UObject/ReflectionBuilder.h"

#include "ObjectConstruction.h"
#include "UObject/Package.h"

#include <unordered_map>
#include <vector>

namespace
{
	/** Types announced by loaded modules and not registered yet. */
	std::vector<UObject* (*)()>& PendingRegistrations()
	{
		static std::vector<UObject* (*)()> Pending;
		return Pending;
	}

	/** Native classes by short name ("MediaPlayer"), lower-cased, as names ignore case. */
	std::unordered_map<std::u16string, UClass*>& ClassesByName()
	{
		static auto* Classes = new std::unordered_map<std::u16string, UClass*>;
		return *Classes;
	}

	/** Gives a registered type its identity: named Name inside the package Package. */
	template<class T>
	T* MakeTypeObject(UClass* TypeClass, const TCHAR* Name, const TCHAR* Package)
	{
		FObjectConstruction::EnsureIntrinsicClasses();
		UPackage* Outer = CreatePackage(Package);
		Outer->AddToRoot();
		T* Object = NewObject<T>(Outer, TypeClass, FName(Name), RF_Public | RF_MarkAsRootSet);
		return Object;
	}
}

namespace UE::Reflection
{
	void FStructBuilder::AddPropertyInternal(const TCHAR* Name, const TCHAR* CppType, SIZE_T Offset, EPropertyFlags Flags,
		FProperty::FOps&& Ops, FMetaDataList MetaData)
	{
		auto Property = std::make_unique<FProperty>(Struct, FName(Name), FString(CppType), Offset, Flags, std::move(Ops));
		for (const auto& [Key, Value] : MetaData)
		{
			Property->SetMetaData(Key, Value);
		}
		Struct->AddProperty(std::move(Property));
	}

	void FClassBuilder::AddFunctionInternal(const TCHAR* Name, FNativeFuncPtr Func, EFunctionFlags Flags, const std::type_info& ParamsType,
		FMetaDataList MetaData, std::initializer_list<const TCHAR*> ParamNames)
	{
		UClass* Class = static_cast<UClass*>(Struct);
		UFunction* Function = NewObject<UFunction>(Class, UFunction::StaticClass(), FName(Name), RF_Public);
		TArray<FString> Names;
		for (const TCHAR* ParamName : ParamNames)
		{
			Names.Add(FString(ParamName));
		}
		Function->Initialize(Func, Flags, ParamsType, std::move(Names));
		for (const auto& [Key, Value] : MetaData)
		{
			Function->SetMetaData(Key, Value);
		}
		Class->AddFunction(Function);
	}

	UClass* ConstructNativeClassInternal(const FNativeClassParams& Params, FMetaDataList MetaData)
	{
		UClass* Super = Params.SuperClassFn ? Params.SuperClassFn() : nullptr;
		UClass* Class = MakeTypeObject<UClass>(UClass::StaticClass(), Params.Name, Params.Package);
		Class->SetSuperStruct(Super);
		Class->SetClassFlags(Params.Flags | CLASS_Native);
		Class->SetStructureSize(Params.Size);
		Class->SetClassConstructor(Params.Constructor);
		for (const auto& [Key, Value] : MetaData)
		{
			Class->SetMetaData(Key, Value);
		}
		ClassesByName()[std::u16string(*FString(Params.Name).ToLower())] = Class;
		FClassBuilder Builder(Class);
		Params.RegisterNatives(Builder);
		return Class;
	}

	UScriptStruct* ConstructNativeStructInternal(const TCHAR* Name, const TCHAR* Package, UScriptStruct* (*SuperStructFn)(), SIZE_T Size,
		void (*RegisterNatives)(FStructBuilder&), FMetaDataList MetaData)
	{
		UScriptStruct* Super = SuperStructFn ? SuperStructFn() : nullptr;
		UScriptStruct* Struct = MakeTypeObject<UScriptStruct>(UScriptStruct::StaticClass(), Name, Package);
		Struct->SetSuperStruct(Super);
		Struct->SetStructureSize(Size);
		FStructBuilder Builder(Struct);
		RegisterNatives(Builder);
		return Struct;
	}

	UEnum* ConstructEnum(const TCHAR* Name, const TCHAR* Package, std::initializer_list<FEnumEntry> Entries, FMetaDataList MetaData)
	{
		UEnum* Enum = MakeTypeObject<UEnum>(UEnum::StaticClass(), Name, Package);
		int32 Index = 0;
		for (const FEnumEntry& Entry : Entries)
		{
			Enum->AddEntry(Entry.Name, Entry.Value);
			for (const auto& [Key, Value] : Entry.MetaData)
			{
				Enum->SetEntryMetaData(Index, Key, Value);
			}
			++Index;
		}
		return Enum;
	}

	UDelegateFunction* ConstructDelegateSignature(const TCHAR* Name, const TCHAR* Package, EFunctionFlags Flags,
		std::initializer_list<std::pair<const TCHAR*, const TCHAR*>> Parameters)
	{
		UDelegateFunction* Signature = MakeTypeObject<UDelegateFunction>(UDelegateFunction::StaticClass(), Name, Package);
		TArray<FString> Names;
		for (const auto& [ParamName, ParamType] : Parameters)
		{
			Names.Add(FString(ParamName));
			Signature->Parameters.Add(TPair<FString, FString>(FString(ParamName), FString(ParamType)));
		}
		Signature->Initialize(nullptr, Flags, typeid(void), std::move(Names));
		return Signature;
	}

	FRegisterCompiledIn::FRegisterCompiledIn(UObject* (*Register)())
	{
		PendingRegistrations().push_back(Register);
	}
}

void ProcessNewlyLoadedUObjects()
{
	// Registering may announce nothing new, but a StaticClass() may pull in other types; loop
	// until the list is empty, taking it over first so re-entry finds it empty.
	auto& Pending = PendingRegistrations();
	while (!Pending.empty())
	{
		std::vector<UObject* (*)()> Batch;
		Batch.swap(Pending);
		for (UObject* (*Register)() : Batch)
		{
			Register();
		}
	}
}

UClass* FindClassByName(const FString& Name)
{
	ProcessNewlyLoadedUObjects();
	if (Name.Contains(TEXT("/")))
	{
		return static_cast<UClass*>(StaticFindObject(UClass::StaticClass(), nullptr, *Name));
	}
	auto& Classes = ClassesByName();
	auto Found = Classes.find(std::u16string(*Name.ToLower()));
	if (Found != Classes.end())
	{
		return Found->second;
	}
	// The intrinsic classes are not in the table; they live in /Script/CoreUObject.
	return static_cast<UClass*>(StaticFindObject(UClass::StaticClass(), nullptr, *(FString(TEXT("/Script/CoreUObject.")) + Name)));
}
