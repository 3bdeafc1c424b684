#include "UObject/Object.h"

#include "ObjectConstruction.h"
#include "UObject/Class.h"
#include "UObject/Function.h"
#include "UObject/Package.h"

UObject::UObject()
{
	InitFromConstruction();
}

UObject::UObject(const FObjectInitializer& ObjectInitializer)
{
	InitFromConstruction();
}

void UObject::InitFromConstruction()
{
	// NewObject leaves its initializer for the constructor it calls; an object made any other way
	// (the intrinsic classes at start-up) gets its identity from its maker afterwards.
	FObjectInitializer*& Pending = FObjectConstruction::PendingInitializer();
	if (FObjectInitializer* Initializer = Pending)
	{
		Pending = nullptr;
		FObjectConstruction::Register(*this, Initializer->GetClass(), Initializer->GetOuter(), Initializer->GetName(), Initializer->GetFlags());
	}
}

UObject::~UObject()
{
	FObjectConstruction::Unregister(*this);
}

UPackage* UObject::GetOutermost() const
{
	const UObject* Top = this;
	while (Top->GetOuter())
	{
		Top = Top->GetOuter();
	}
	return const_cast<UPackage*>(static_cast<const UPackage*>(Top));
}

FString UObject::GetName() const
{
	return NamePrivate.ToString();
}

FString UObject::GetPathName() const
{
	if (!OuterPrivate)
	{
		return GetName();
	}
	// Objects directly in a package follow a '.', their subobjects a ':', deeper ones '.' again.
	const bool bOuterIsPackage = OuterPrivate->GetOuter() == nullptr;
	const bool bOuterIsAsset = !bOuterIsPackage && OuterPrivate->GetOuter()->GetOuter() == nullptr;
	return OuterPrivate->GetPathName() + (bOuterIsAsset ? TEXT(":") : TEXT(".")) + GetName();
}

FString UObject::GetFullName() const
{
	return (ClassPrivate ? ClassPrivate->GetName() : FString(TEXT("None"))) + TEXT(" ") + GetPathName();
}

UWorld* UObject::GetWorld() const
{
	return OuterPrivate && !HasAnyFlags(RF_ClassDefaultObject) ? OuterPrivate->GetWorld() : nullptr;
}

bool UObject::IsA(const UClass* SomeBase) const
{
	return SomeBase && ClassPrivate && ClassPrivate->IsChildOf(SomeBase);
}

void UObject::AddToRoot()
{
	SetFlags(RF_MarkAsRootSet);
}

void UObject::RemoveFromRoot()
{
	ClearFlags(RF_MarkAsRootSet);
}

void UObject::BeginDestroy()
{
}

void UObject::FinishDestroy()
{
	SetFlags(RF_FinishDestroyed);
}

bool UObject::ConditionalBeginDestroy()
{
	if (HasBegunDestroy())
	{
		return false;
	}
	SetFlags(RF_BeginDestroyed);
	BeginDestroy();
	return true;
}

UFunction* UObject::FindFunction(FName InName) const
{
	return ClassPrivate ? ClassPrivate->FindFunctionByName(InName) : nullptr;
}

UFunction* UObject::FindFunctionChecked(FName InName) const
{
	UFunction* Function = FindFunction(InName);
	checkf(Function, "FindFunctionChecked: function not found");
	return Function;
}

void UObject::ProcessEvent(UFunction* Function, void* Parms)
{
	if (Function)
	{
		Function->Invoke(this, Parms);
	}
}

bool UObject::Rename(const TCHAR* NewName, UObject* NewOuter)
{
	UObject* TargetOuter = NewOuter ? NewOuter : OuterPrivate;
	const FName TargetName = NewName ? FName(NewName) : MakeUniqueObjectName(TargetOuter, ClassPrivate);
	if (FObjectConstruction::IsNameTaken(TargetOuter, TargetName) && FObjectConstruction::FindByName(TargetOuter, TargetName) != this)
	{
		return false;
	}
	FObjectConstruction::Rename(*this, TargetName, TargetOuter);
	return true;
}

bool IsValid(const UObject* Test)
{
	return Test && !Test->HasBegunDestroy();
}
