#pragma once

// What the generated .gen.cpp files call to register classes, structs, enums, functions and
// properties. Registration is lazy: StaticClass() builds its class on first use, base first, and
// every .gen.cpp announces its types with FRegisterCompiledIn so that ProcessNewlyLoadedUObjects
// (called by the class lookups) registers them before anyone searches by name.

#include "UObject/Class.h"
#include "UObject/Enum.h"
#include "UObject/Function.h"
#include "UObject/PropertyTraits.h"
#include "UObject/ScriptDelegates.h"

#include <initializer_list>
#include <tuple>
#include <typeinfo>
#include <utility>

namespace UE::Reflection
{
	using FMetaDataList = std::initializer_list<std::pair<const TCHAR*, const TCHAR*>>;

	template<class Signature>
	struct TSignature;

	template<class R, class... Args>
	struct TSignature<R(Args...)>
	{
		using FParams = TFunctionParams<Args...>;
	};

	/** Adds properties to a struct or class while it registers. */
	class COREUOBJECT_API FStructBuilder
	{
	public:
		explicit FStructBuilder(UStruct* InStruct) : Struct(InStruct) {}

		template<class T>
		void AddProperty(const TCHAR* Name, const TCHAR* CppType, SIZE_T Offset, EPropertyFlags Flags, FMetaDataList MetaData)
		{
			FProperty::FOps Ops;
			TPropertyTraits<T>::Fill(Ops);
			AddPropertyInternal(Name, CppType, Offset, Flags, std::move(Ops), MetaData);
		}

	protected:
		void AddPropertyInternal(const TCHAR* Name, const TCHAR* CppType, SIZE_T Offset, EPropertyFlags Flags, FProperty::FOps&& Ops, FMetaDataList MetaData);

		UStruct* Struct;
	};

	/** Adds properties and functions to a class while it registers. */
	class COREUOBJECT_API FClassBuilder : public FStructBuilder
	{
	public:
		explicit FClassBuilder(UClass* InClass) : FStructBuilder(InClass) {}

		template<class Signature>
		void AddFunction(const TCHAR* Name, FNativeFuncPtr Func, EFunctionFlags Flags, FMetaDataList MetaData, std::initializer_list<const TCHAR*> ParamNames)
		{
			AddFunctionInternal(Name, Func, Flags, typeid(typename TSignature<Signature>::FParams), MetaData, ParamNames);
		}

	private:
		void AddFunctionInternal(const TCHAR* Name, FNativeFuncPtr Func, EFunctionFlags Flags, const std::type_info& ParamsType, FMetaDataList MetaData, std::initializer_list<const TCHAR*> ParamNames);
	};

	struct FNativeClassParams
	{
		const TCHAR* Name;
		const TCHAR* Package;
		EClassFlags Flags;
		UClass* (*SuperClassFn)();
		SIZE_T Size;
		UClass::FClassConstructor Constructor;
		void (*RegisterNatives)(FClassBuilder&);
	};

	COREUOBJECT_API UClass* ConstructNativeClassInternal(const FNativeClassParams& Params, FMetaDataList MetaData);

	template<class TClass>
	UClass* ConstructNativeClass(const TCHAR* Name, const TCHAR* Package, EClassFlags Flags, UClass* (*SuperClassFn)(), FMetaDataList MetaData)
	{
		return ConstructNativeClassInternal({ Name, Package, Flags, SuperClassFn, sizeof(TClass), &TClass::InternalConstructor, &TClass::StaticRegisterNatives }, MetaData);
	}

	COREUOBJECT_API UScriptStruct* ConstructNativeStructInternal(const TCHAR* Name, const TCHAR* Package, UScriptStruct* (*SuperStructFn)(), SIZE_T Size,
		void (*RegisterNatives)(FStructBuilder&), FMetaDataList MetaData);

	template<class TStruct>
	UScriptStruct* ConstructNativeStruct(const TCHAR* Name, const TCHAR* Package, UScriptStruct* (*SuperStructFn)(), FMetaDataList MetaData)
	{
		return ConstructNativeStructInternal(Name, Package, SuperStructFn, sizeof(TStruct), &TStruct::StaticRegisterNatives, MetaData);
	}

	struct FEnumEntry
	{
		const TCHAR* Name;
		int64 Value;
		FMetaDataList MetaData;
	};

	COREUOBJECT_API UEnum* ConstructEnum(const TCHAR* Name, const TCHAR* Package, std::initializer_list<FEnumEntry> Entries, FMetaDataList MetaData);

	COREUOBJECT_API UDelegateFunction* ConstructDelegateSignature(const TCHAR* Name, const TCHAR* Package, EFunctionFlags Flags,
		std::initializer_list<std::pair<const TCHAR*, const TCHAR*>> Parameters);

	/** Announces a type of a loaded module; registered by ProcessNewlyLoadedUObjects. */
	struct COREUOBJECT_API FRegisterCompiledIn
	{
		explicit FRegisterCompiledIn(UObject* (*Register)());
	};

	/** Writes a reflected function's return value where the caller asked for it. */
	template<class T>
	void StoreResult(void* Result, T&& Value)
	{
		if (Result)
		{
			*static_cast<std::decay_t<T>*>(Result) = std::forward<T>(Value);
		}
	}
}
