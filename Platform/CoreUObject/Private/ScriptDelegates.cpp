#include "UObject/ScriptDelegates.h"

#include "CoreUObjectLog.h"
#include "UObject/Class.h"
#include "UObject/Function.h"
#include "UObject/Object.h"

FName UE::Delegates::GetTrimmedMemberFunctionName(const TCHAR* InMacroFunctionName)
{
	const FString Text(InMacroFunctionName);
	FString Left;
	FString Right;
	return FName(*(Text.Split(TEXT("::"), &Left, &Right, ESearchCase::CaseSensitive, ESearchDir::FromEnd) ? Right : Text).TrimStartAndEnd());
}

UFunction* FScriptDelegate::ResolveChecked(UObject* InObject, const FName& InFunctionName, const std::type_info& ParamsType)
{
	checkf(InObject, "A dynamic delegate was bound to a null object");
	UFunction* Function = InObject->FindFunction(InFunctionName);
	if (!Function)
	{
		UE_LOG(LogUObjectGlobals, Fatal, TEXT("Unable to bind delegate to '%s' on %s: '%s::%s' is not a UFUNCTION (mark it UFUNCTION() so the delegate can call it by name)."),
			*InFunctionName.ToString(), *InObject->GetName(), *InObject->GetClass()->GetName(), *InFunctionName.ToString());
	}
	if (Function->GetParamsType() != ParamsType)
	{
		UE_LOG(LogUObjectGlobals, Fatal, TEXT("Unable to bind delegate to '%s::%s': the reflected function's parameters do not match the delegate's."),
			*InObject->GetClass()->GetName(), *InFunctionName.ToString());
	}
	return Function;
}

void FScriptDelegate::BindUFunction(UObject* InObject, const FName& InFunctionName)
{
	Object = InObject;
	FunctionName = InFunctionName;
}

bool FScriptDelegate::IsBound() const
{
	UObject* Target = Object.Get();
	return Target && Target->FindFunction(FunctionName);
}

bool FScriptDelegate::IsBoundToObjectFunction(const UObject* InObject, const FName& InFunctionName) const
{
	return Object.Get() == InObject && FunctionName == InFunctionName;
}

void FScriptDelegate::Unbind()
{
	Object.Reset();
	FunctionName = NAME_None;
}

void FScriptDelegate::ProcessDelegate(void* Params, void* Result) const
{
	UObject* Target = Object.Get();
	if (!Target)
	{
		return;
	}
	if (UFunction* Function = Target->FindFunction(FunctionName))
	{
		Function->Invoke(Target, Params, Result);
	}
}

bool FMulticastScriptDelegate::IsBound() const
{
	for (const FScriptDelegate& Binding : InvocationList)
	{
		if (Binding.IsBound())
		{
			return true;
		}
	}
	return false;
}

bool FMulticastScriptDelegate::Contains(const UObject* InObject, const FName& InFunctionName) const
{
	for (const FScriptDelegate& Binding : InvocationList)
	{
		if (Binding.IsBoundToObjectFunction(InObject, InFunctionName))
		{
			return true;
		}
	}
	return false;
}

void FMulticastScriptDelegate::Add(const FScriptDelegate& InDelegate)
{
	// Bindings whose object has gone are dropped whenever the list changes.
	InvocationList.RemoveAll([](const FScriptDelegate& Binding) { return Binding.GetUObject() == nullptr; });
	InvocationList.Add(InDelegate);
}

void FMulticastScriptDelegate::AddUnique(const FScriptDelegate& InDelegate)
{
	if (!Contains(InDelegate.GetUObject(), InDelegate.GetFunctionName()))
	{
		Add(InDelegate);
	}
}

void FMulticastScriptDelegate::Remove(const UObject* InObject, const FName& InFunctionName)
{
	InvocationList.RemoveAll([&](const FScriptDelegate& Binding) { return Binding.IsBoundToObjectFunction(InObject, InFunctionName); });
}

void FMulticastScriptDelegate::RemoveAll(const UObject* InObject)
{
	InvocationList.RemoveAll([&](const FScriptDelegate& Binding) { return Binding.GetUObject() == InObject; });
}

void FMulticastScriptDelegate::Clear()
{
	InvocationList.Empty();
}

void FMulticastScriptDelegate::ProcessMulticastDelegate(void* Params) const
{
	// A copy, so handlers may add or remove bindings (and even clear this list) while it runs.
	const TArray<FScriptDelegate> Snapshot = InvocationList;
	for (const FScriptDelegate& Binding : Snapshot)
	{
		Binding.ProcessDelegate(Params);
	}
}
