#include "UObject/ObjectCensus.h"

#include "Delegates/DelegateInstanceInterface.h"
#include "UObject/Class.h"
#include "UObject/Object.h"
#include "UObject/ScriptDelegates.h"
#include "UObject/UObjectArray.h"
#include "UObject/UnrealType.h"

namespace
{
	/** Bindings held by one object's reflected delegates. */
	int32 CountDynamicBindings(UObject& Object)
	{
		int32 Count = 0;
		for (const FProperty* Property : Object.GetClass()->GetAllProperties())
		{
			const void* Value = Property->ContainerPtrToValuePtr(&Object);
			if (Property->GetKind() == EPropertyKind::MulticastDelegate)
			{
				// Every dynamic multicast delegate type derives from FMulticastScriptDelegate alone.
				Count += static_cast<const FMulticastScriptDelegate*>(Value)->Num();
			}
			else if (Property->GetKind() == EPropertyKind::Delegate)
			{
				Count += static_cast<const FScriptDelegate*>(Value)->GetFunctionName().IsNone() ? 0 : 1;
			}
		}
		return Count;
	}
}

FObjectCensus FObjectCensus::Take()
{
	FObjectCensus Census;
	const FUObjectArray& Array = FUObjectArray::Get();
	for (int32 Index = 0; Index < Array.Num(); ++Index)
	{
		if (UObject* Object = Array.GetObject(Index))
		{
			++Census.Objects;
			Census.DynamicBindings += CountDynamicBindings(*Object);
		}
	}
	Census.NativeBindings = IDelegateInstance::GetLiveCount();
	return Census;
}

int32 FObjectCensus::CountObjectsOf(const UClass* Class)
{
	int32 Count = 0;
	const FUObjectArray& Array = FUObjectArray::Get();
	for (int32 Index = 0; Index < Array.Num(); ++Index)
	{
		const UObject* Object = Array.GetObject(Index);
		Count += Object && Object->GetClass() && Object->GetClass()->IsChildOf(Class) ? 1 : 0;
	}
	return Count;
}
