#pragma once

// Dynamic delegates: a binding holds its object weakly and the handler's reflected name, and a
// call goes through the handler's UFunction. So each handler must be a UFUNCTION of that exact
// name: AddDynamic on anything else stops the program at the bind, naming the class and function.

#include "CoreMinimal.h"
#include "UObject/WeakObjectPtr.h"

#include <tuple>
#include <type_traits>
#include <typeinfo>

class UObject;
class UFunction;

namespace UE::Reflection
{
	/** What a reflected function's invoker receives: its parameters, decayed, in a tuple. */
	template<class... Ts>
	using TFunctionParams = std::tuple<std::decay_t<Ts>...>;
}

namespace UE::Delegates
{
	/** "&UMyClass::OnClicked" -> "OnClicked": the name AddDynamic binds. */
	COREUOBJECT_API FName GetTrimmedMemberFunctionName(const TCHAR* InMacroFunctionName);
}

/** One dynamic binding: a weak object and a function name. */
class COREUOBJECT_API FScriptDelegate
{
public:
	void BindUFunction(UObject* InObject, const FName& InFunctionName);
	bool IsBound() const;
	bool IsBoundToObjectFunction(const UObject* InObject, const FName& InFunctionName) const;
	UObject* GetUObject() const { return Object.Get(); }
	FName GetFunctionName() const { return FunctionName; }
	void Unbind();

	/** Calls the handler if its object is alive; Params is the handler's TFunctionParams tuple. */
	void ProcessDelegate(void* Params, void* Result = nullptr) const;

	bool operator==(const FScriptDelegate& Other) const { return Object == Other.Object && FunctionName == Other.FunctionName; }

	/** Checks that the function exists, is reflected and takes ParamsType; stops the program if not. */
	static UFunction* ResolveChecked(UObject* InObject, const FName& InFunctionName, const std::type_info& ParamsType);

private:
	FWeakObjectPtr Object;
	FName FunctionName;
};

/** The invocation list of a dynamic multicast delegate. */
class COREUOBJECT_API FMulticastScriptDelegate
{
public:
	bool IsBound() const;
	bool Contains(const UObject* InObject, const FName& InFunctionName) const;
	void Add(const FScriptDelegate& InDelegate);
	void AddUnique(const FScriptDelegate& InDelegate);
	void Remove(const UObject* InObject, const FName& InFunctionName);
	void RemoveAll(const UObject* Object);
	/** Empties the invocation list, whoever bound to it. */
	void Clear();
	int32 Num() const { return InvocationList.Num(); }

	/** Calls every live binding, in the order they were added. A binding added or removed by a
	 *  handler takes effect from the next broadcast, as the engine copies its list first. */
	void ProcessMulticastDelegate(void* Params) const;

private:
	TArray<FScriptDelegate> InvocationList;
};

template<class Signature>
class TBaseDynamicDelegate;

/** A dynamic single-cast delegate (DECLARE_DYNAMIC_DELEGATE*). */
template<class R, class... Args>
class TBaseDynamicDelegate<R(Args...)> : public FScriptDelegate
{
public:
	using FParams = UE::Reflection::TFunctionParams<Args...>;

	template<class UserClass, class MethodClass, class FuncR, class... FuncArgs>
	void __Internal_BindDynamic(UserClass* InObject, FuncR (MethodClass::*)(FuncArgs...), FName InFunctionName)
	{
		static_assert(std::is_base_of_v<MethodClass, UserClass>, "The handler must be a member of the object's class");
		static_assert(std::is_same_v<FParams, UE::Reflection::TFunctionParams<FuncArgs...>>, "The handler's parameters do not match the delegate's");
		ResolveChecked(InObject, InFunctionName, typeid(FParams));
		BindUFunction(InObject, InFunctionName);
	}

	R Execute(Args... InArgs) const
	{
		FParams Params(InArgs...);
		if constexpr (std::is_void_v<R>)
		{
			ProcessDelegate(&Params);
		}
		else
		{
			R Result{};
			ProcessDelegate(&Params, &Result);
			return Result;
		}
	}

	bool ExecuteIfBound(Args... InArgs) const requires std::is_void_v<R>
	{
		if (!IsBound())
		{
			return false;
		}
		Execute(InArgs...);
		return true;
	}
};

/** A dynamic multicast delegate (DECLARE_DYNAMIC_MULTICAST_DELEGATE*). */
template<class Signature>
class TBaseDynamicMulticastDelegate;

template<class... Args>
class TBaseDynamicMulticastDelegate<void(Args...)> : public FMulticastScriptDelegate
{
public:
	using FParams = UE::Reflection::TFunctionParams<Args...>;

	template<class UserClass, class MethodClass, class... FuncArgs>
	void __Internal_AddDynamic(UserClass* InObject, void (MethodClass::*)(FuncArgs...), FName InFunctionName)
	{
		static_assert(std::is_base_of_v<MethodClass, UserClass>, "The handler must be a member of the object's class");
		static_assert(std::is_same_v<FParams, UE::Reflection::TFunctionParams<FuncArgs...>>, "The handler's parameters do not match the delegate's");
		FScriptDelegate::ResolveChecked(InObject, InFunctionName, typeid(FParams));
		FScriptDelegate Binding;
		Binding.BindUFunction(InObject, InFunctionName);
		Add(Binding);
	}

	template<class UserClass, class MethodClass, class... FuncArgs>
	void __Internal_AddUniqueDynamic(UserClass* InObject, void (MethodClass::*)(FuncArgs...), FName InFunctionName)
	{
		static_assert(std::is_base_of_v<MethodClass, UserClass>, "The handler must be a member of the object's class");
		static_assert(std::is_same_v<FParams, UE::Reflection::TFunctionParams<FuncArgs...>>, "The handler's parameters do not match the delegate's");
		FScriptDelegate::ResolveChecked(InObject, InFunctionName, typeid(FParams));
		FScriptDelegate Binding;
		Binding.BindUFunction(InObject, InFunctionName);
		AddUnique(Binding);
	}

	template<class UserClass, class MethodClass, class... FuncArgs>
	void __Internal_RemoveDynamic(UserClass* InObject, void (MethodClass::*)(FuncArgs...), FName InFunctionName)
	{
		Remove(InObject, InFunctionName);
	}

	template<class UserClass, class MethodClass, class... FuncArgs>
	bool __Internal_IsAlreadyBound(UserClass* InObject, void (MethodClass::*)(FuncArgs...), FName InFunctionName) const
	{
		return Contains(InObject, InFunctionName);
	}

	void Broadcast(Args... InArgs) const
	{
		FParams Params(InArgs...);
		ProcessMulticastDelegate(&Params);
	}
};

#define PLAIN_DYNAMIC_FUNCTION_NAME(FuncName) ::UE::Delegates::GetTrimmedMemberFunctionName(TEXT(#FuncName))
#define AddDynamic(UserObject, FuncName) __Internal_AddDynamic(UserObject, FuncName, PLAIN_DYNAMIC_FUNCTION_NAME(FuncName))
#define AddUniqueDynamic(UserObject, FuncName) __Internal_AddUniqueDynamic(UserObject, FuncName, PLAIN_DYNAMIC_FUNCTION_NAME(FuncName))
#define RemoveDynamic(UserObject, FuncName) __Internal_RemoveDynamic(UserObject, FuncName, PLAIN_DYNAMIC_FUNCTION_NAME(FuncName))
#define IsAlreadyBound(UserObject, FuncName) __Internal_IsAlreadyBound(UserObject, FuncName, PLAIN_DYNAMIC_FUNCTION_NAME(FuncName))
#define BindDynamic(UserObject, FuncName) __Internal_BindDynamic(UserObject, FuncName, PLAIN_DYNAMIC_FUNCTION_NAME(FuncName))

#define PLAIN_DECLARE_DYNAMIC_MULTICAST(Name, ...) \
	class Name : public TBaseDynamicMulticastDelegate<void(__VA_ARGS__)> \
	{ \
	};
#define PLAIN_DECLARE_DYNAMIC(Name, Ret, ...) \
	class Name : public TBaseDynamicDelegate<Ret(__VA_ARGS__)> \
	{ \
	};

// The parameter names are for the reflection (the header tool reads them); C++ needs the types.
#define DECLARE_DYNAMIC_MULTICAST_DELEGATE(Name) PLAIN_DECLARE_DYNAMIC_MULTICAST(Name)
#define DECLARE_DYNAMIC_MULTICAST_DELEGATE_OneParam(Name, T1, P1) PLAIN_DECLARE_DYNAMIC_MULTICAST(Name, T1)
#define DECLARE_DYNAMIC_MULTICAST_DELEGATE_TwoParams(Name, T1, P1, T2, P2) PLAIN_DECLARE_DYNAMIC_MULTICAST(Name, T1, T2)
#define DECLARE_DYNAMIC_MULTICAST_DELEGATE_ThreeParams(Name, T1, P1, T2, P2, T3, P3) PLAIN_DECLARE_DYNAMIC_MULTICAST(Name, T1, T2, T3)
#define DECLARE_DYNAMIC_MULTICAST_DELEGATE_FourParams(Name, T1, P1, T2, P2, T3, P3, T4, P4) PLAIN_DECLARE_DYNAMIC_MULTICAST(Name, T1, T2, T3, T4)
#define DECLARE_DYNAMIC_MULTICAST_DELEGATE_FiveParams(Name, T1, P1, T2, P2, T3, P3, T4, P4, T5, P5) PLAIN_DECLARE_DYNAMIC_MULTICAST(Name, T1, T2, T3, T4, T5)
#define DECLARE_DYNAMIC_DELEGATE(Name) PLAIN_DECLARE_DYNAMIC(Name, void)
#define DECLARE_DYNAMIC_DELEGATE_OneParam(Name, T1, P1) PLAIN_DECLARE_DYNAMIC(Name, void, T1)
#define DECLARE_DYNAMIC_DELEGATE_TwoParams(Name, T1, P1, T2, P2) PLAIN_DECLARE_DYNAMIC(Name, void, T1, T2)
#define DECLARE_DYNAMIC_DELEGATE_ThreeParams(Name, T1, P1, T2, P2, T3, P3) PLAIN_DECLARE_DYNAMIC(Name, void, T1, T2, T3)
#define DECLARE_DYNAMIC_DELEGATE_FourParams(Name, T1, P1, T2, P2, T3, P3, T4, P4) PLAIN_DECLARE_DYNAMIC(Name, void, T1, T2, T3, T4)
#define DECLARE_DYNAMIC_DELEGATE_FiveParams(Name, T1, P1, T2, P2, T3, P3, T4, P4, T5, P5) PLAIN_DECLARE_DYNAMIC(Name, void, T1, T2, T3, T4, T5)
#define DECLARE_DYNAMIC_DELEGATE_RetVal(Ret, Name) PLAIN_DECLARE_DYNAMIC(Name, Ret)
#define DECLARE_DYNAMIC_DELEGATE_RetVal_OneParam(Ret, Name, T1, P1) PLAIN_DECLARE_DYNAMIC(Name, Ret, T1)
#define DECLARE_DYNAMIC_DELEGATE_RetVal_TwoParams(Ret, Name, T1, P1, T2, P2) PLAIN_DECLARE_DYNAMIC(Name, Ret, T1, T2)
#define DECLARE_DYNAMIC_DELEGATE_RetVal_ThreeParams(Ret, Name, T1, P1, T2, P2, T3, P3) PLAIN_DECLARE_DYNAMIC(Name, Ret, T1, T2, T3)
