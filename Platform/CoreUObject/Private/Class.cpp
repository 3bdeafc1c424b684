#include "UObject/Class.h"

#include "ObjectConstruction.h"
#include "UObject/Enum.h"
#include "UObject/Function.h"
#include "UObject/GarbageCollection.h"
#include "UObject/Package.h"
#include "UObject/ReflectionBuilder.h"

#include <unordered_map>
#include <vector>

namespace
{
	const FString& EmptyString()
	{
		static const FString Empty;
		return Empty;
	}

	const FString& FindMeta(const std::map<FString, FString>& MetaData, const TCHAR* Key)
	{
		auto Found = MetaData.find(FString(Key));
		return Found != MetaData.end() ? Found->second : EmptyString();
	}
}

bool UStruct::IsChildOf(const UStruct* SomeBase) const
{
	for (const UStruct* Struct = this; Struct; Struct = Struct->GetSuperStruct())
	{
		if (Struct == SomeBase)
		{
			return true;
		}
	}
	return false;
}

TArray<const FProperty*> UStruct::GetAllProperties() const
{
	std::vector<const UStruct*> Chain;
	for (const UStruct* Struct = this; Struct; Struct = Struct->GetSuperStruct())
	{
		Chain.push_back(Struct);
	}
	TArray<const FProperty*> Result;
	for (auto It = Chain.rbegin(); It != Chain.rend(); ++It)
	{
		for (const std::unique_ptr<FProperty>& Property : (*It)->Properties)
		{
			Result.Add(Property.get());
		}
	}
	return Result;
}

const FProperty* UStruct::FindPropertyByName(FName InName) const
{
	for (const UStruct* Struct = this; Struct; Struct = Struct->GetSuperStruct())
	{
		for (const std::unique_ptr<FProperty>& Property : Struct->Properties)
		{
			if (Property->GetFName() == InName)
			{
				return Property.get();
			}
		}
	}
	return nullptr;
}

void UStruct::VisitReferences(void* Data, FReferenceCollector& Collector) const
{
	for (const UStruct* Struct = this; Struct; Struct = Struct->GetSuperStruct())
	{
		for (const std::unique_ptr<FProperty>& Property : Struct->Properties)
		{
			if (Property->ContainsObjectReference())
			{
				Property->VisitReferences(Property->ContainerPtrToValuePtr(Data), Collector);
			}
		}
	}
}

UClass* UClass::GetNativeClass() const
{
	for (const UClass* Class = this; Class; Class = Class->GetSuperClass())
	{
		if (Class->HasAnyClassFlags(CLASS_Native))
		{
			return const_cast<UClass*>(Class);
		}
	}
	return nullptr;
}

UClass::FClassConstructor UClass::GetClassConstructor() const
{
	for (const UClass* Class = this; Class; Class = Class->GetSuperClass())
	{
		if (Class->ClassConstructor)
		{
			return Class->ClassConstructor;
		}
	}
	return nullptr;
}

UFunction* UClass::FindFunctionByName(FName InName) const
{
	for (const UClass* Class = this; Class; Class = Class->GetSuperClass())
	{
		for (UFunction* Function : Class->Functions)
		{
			if (Function->GetFName() == InName)
			{
				return Function;
			}
		}
	}
	return nullptr;
}

void UClass::AddFunction(UFunction* Function)
{
	Functions.push_back(Function);
}

bool UClass::HasMetaData(const TCHAR* Key) const
{
	return MetaData.count(FString(Key)) != 0;
}

const FString& UClass::GetMetaData(const TCHAR* Key) const
{
	return FindMeta(MetaData, Key);
}

void UClass::SetMetaData(const TCHAR* Key, const TCHAR* Value)
{
	MetaData[FString(Key)] = FString(Value);
}

UObject* UClass::GetDefaultObject() const
{
	if (!ClassDefaultObject)
	{
		const FName Name(*(FString(TEXT("Default__")) + GetName()));
		ClassDefaultObject = NewObject<UObject>(GetOuter(), const_cast<UClass*>(this), Name, RF_ClassDefaultObject | RF_Public);
	}
	return ClassDefaultObject;
}

void UClass::AddReferencedObjects(FReferenceCollector& Collector)
{
	Collector.AddReferencedObject(GetSuperStruct());
	Collector.AddReferencedObject(ClassDefaultObject);
	for (UFunction* Function : Functions)
	{
		Collector.AddReferencedObject(Function);
	}
}

void UFunction::Initialize(FNativeFuncPtr InFunc, EFunctionFlags InFlags, const std::type_info& InParamsType, TArray<FString> InParamNames)
{
	Func = InFunc;
	FunctionFlags = InFlags;
	ParamsType = &InParamsType;
	ParamNames = std::move(InParamNames);
}

void UFunction::Invoke(UObject* Object, void* Params, void* Result) const
{
	if (Func)
	{
		Func(Object, Params, Result);
	}
}

bool UFunction::HasMetaData(const TCHAR* Key) const
{
	return MetaData.count(FString(Key)) != 0;
}

const FString& UFunction::GetMetaData(const TCHAR* Key) const
{
	return FindMeta(MetaData, Key);
}

void UFunction::SetMetaData(const TCHAR* Key, const TCHAR* Value)
{
	MetaData[FString(Key)] = FString(Value);
}

FName UEnum::GetNameByIndex(int32 Index) const
{
	return Names.IsValidIndex(Index) ? Names[Index] : NAME_None;
}

int64 UEnum::GetValueByIndex(int32 Index) const
{
	return Values.IsValidIndex(Index) ? Values[Index] : INDEX_NONE;
}

FString UEnum::GetNameStringByValue(int64 Value) const
{
	const int32 Index = Values.Find(Value);
	if (Index == INDEX_NONE)
	{
		return FString();
	}
	FString Name = Names[Index].ToString();
	FString Left;
	FString Right;
	return Name.Split(TEXT("::"), &Left, &Right) ? Right : Name;
}

int64 UEnum::GetValueByNameString(const FString& Name) const
{
	for (int32 Index = 0; Index < Names.Num(); ++Index)
	{
		const FString Full = Names[Index].ToString();
		FString Left;
		FString Short;
		if (Full == Name || (Full.Split(TEXT("::"), &Left, &Short) && Short == Name))
		{
			return Values[Index];
		}
	}
	return INDEX_NONE;
}

FString UEnum::GetMetaData(const TCHAR* Key, int32 Index) const
{
	if (!EntryMetaData.IsValidIndex(Index))
	{
		return FString();
	}
	const FString* Value = EntryMetaData[Index].Find(FString(Key));
	return Value ? *Value : FString();
}

void UEnum::AddEntry(const TCHAR* Name, int64 Value)
{
	Names.Add(FName(Name));
	Values.Add(Value);
	EntryMetaData.AddDefaulted();
}

void UEnum::SetEntryMetaData(int32 Index, const TCHAR* Key, const TCHAR* Value)
{
	if (EntryMetaData.IsValidIndex(Index))
	{
		EntryMetaData[Index].Add(FString(Key), FString(Value));
	}
}
