#pragma once

// UFunction: a reflected function. It carries the invoker the header tool generated, so a dynamic
// delegate can call a handler by its name, and the parameter types, so a binding to a handler of
// the wrong signature is caught when it is made.

#include "UObject/Class.h"

#include <typeinfo>

class COREUOBJECT_API UFunction : public UStruct
{
public:
	using Super = UStruct;
	using ThisClass = UFunction;
	static UClass* StaticClass();
	using UStruct::UStruct;

	EFunctionFlags GetFunctionFlags() const { return FunctionFlags; }
	bool HasAnyFunctionFlags(EFunctionFlags Flags) const { return (uint32(FunctionFlags) & uint32(Flags)) != 0; }
	UClass* GetOwnerClass() const { return static_cast<UClass*>(GetOuter()); }

	/** std::tuple<decayed parameter types...>: what Invoke's Params must point at. */
	const std::type_info& GetParamsType() const { return *ParamsType; }
	const TArray<FString>& GetParamNames() const { return ParamNames; }
	int32 NumParms() const { return ParamNames.Num(); }

	/** Calls the function on Object; Result, if not null, receives the return value. */
	void Invoke(UObject* Object, void* Params, void* Result = nullptr) const;

	bool HasMetaData(const TCHAR* Key) const;
	const FString& GetMetaData(const TCHAR* Key) const;

	void Initialize(FNativeFuncPtr InFunc, EFunctionFlags InFlags, const std::type_info& InParamsType, TArray<FString> InParamNames);
	void SetMetaData(const TCHAR* Key, const TCHAR* Value);

private:
	FNativeFuncPtr Func = nullptr;
	EFunctionFlags FunctionFlags = FUNC_None;
	const std::type_info* ParamsType = &typeid(void);
	TArray<FString> ParamNames;
	std::map<FString, FString> MetaData;
};

/** The signature of a dynamic delegate type (DECLARE_DYNAMIC_*), for tools that list them. */
class COREUOBJECT_API UDelegateFunction : public UFunction
{
public:
	using Super = UFunction;
	using ThisClass = UDelegateFunction;
	static UClass* StaticClass();
	using UFunction::UFunction;

	/** The declared parameters, name and type as written. */
	TArray<TPair<FString, FString>> Parameters;
};
