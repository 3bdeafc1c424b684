#include "UObject/UnrealType.h"

#include "Containers/StringConv.h"
#include "UObject/Class.h"
#include "UObject/GarbageCollection.h"
#include "UObject/PropertyTraits.h"

#include <cerrno>
#include <cmath>
#include <cstdlib>

namespace
{
	const FString& EmptyString()
	{
		static const FString Empty;
		return Empty;
	}

	bool IsIdentifierChar(TCHAR Char)
	{
		return (Char >= TEXT('a') && Char <= TEXT('z')) || (Char >= TEXT('A') && Char <= TEXT('Z')) || (Char >= TEXT('0') && Char <= TEXT('9')) || Char == TEXT('_');
	}

	/** "TArray<TObjectPtr<UFoo>>" -> "Foo": the innermost identifier, without its U/A prefix. */
	FString ReferencedClassName(const FString& CppType)
	{
		int32 End = CppType.Len();
		for (int32 Index = 0; Index < CppType.Len(); ++Index)
		{
			if (CppType[Index] == TEXT('>') || CppType[Index] == TEXT('*'))
			{
				End = Index;
				break;
			}
		}
		while (End > 0 && !IsIdentifierChar(CppType[End - 1]))
		{
			--End;
		}
		int32 Start = End;
		while (Start > 0 && IsIdentifierChar(CppType[Start - 1]))
		{
			--Start;
		}
		FString Name = CppType.Mid(Start, End - Start);
		if (Name.Len() > 1 && (Name[0] == TEXT('U') || Name[0] == TEXT('A')))
		{
			Name = Name.RightChop(1);
		}
		return Name;
	}

	/** "TArray<TObjectPtr<UFoo>>" -> "TObjectPtr<UFoo>". */
	FString ArrayElementType(const FString& CppType)
	{
		const int32 Open = CppType.Find(TEXT("<"));
		const int32 Close = CppType.Find(TEXT(">"), ESearchCase::CaseSensitive, ESearchDir::FromEnd);
		return Open != INDEX_NONE && Close > Open ? CppType.Mid(Open + 1, Close - Open - 1).TrimStartAndEnd() : FString();
	}
}

FProperty::FProperty(UStruct* InOwner, FName InName, FString InCppType, SIZE_T InOffset, EPropertyFlags InFlags, FOps&& InOps)
	: Owner(InOwner)
	, Name(InName)
	, CppType(std::move(InCppType))
	, Offset(InOffset)
	, PropertyFlags(InFlags)
	, Kind(InOps.Kind)
	, StructFn(InOps.StructFn)
	, VisitFn(InOps.VisitFn)
	, GetObjectFn(InOps.GetObjectFn)
	, SetObjectFn(InOps.SetObjectFn)
	, ExportFn(InOps.ExportFn)
	, ImportFn(InOps.ImportFn)
	, ArrayNumFn(InOps.ArrayNumFn)
	, ArrayElementFn(InOps.ArrayElementFn)
	, ArrayResizeFn(InOps.ArrayResizeFn)
{
	if (Kind == EPropertyKind::Object || Kind == EPropertyKind::WeakObject || Kind == EPropertyKind::Class)
	{
		PropertyClassName = Kind == EPropertyKind::Class ? FString(TEXT("Class")) : ReferencedClassName(CppType);
		if (Kind == EPropertyKind::Class)
		{
			MetaClassName = ReferencedClassName(CppType);
		}
	}
	if (InOps.InnerOps)
	{
		Inner = std::make_unique<FProperty>(InOwner, InName, ArrayElementType(CppType), 0, InFlags, std::move(*InOps.InnerOps));
	}
}

bool FProperty::HasMetaData(const TCHAR* Key) const
{
	return MetaData.count(FString(Key)) != 0;
}

const FString& FProperty::GetMetaData(const TCHAR* Key) const
{
	auto Found = MetaData.find(FString(Key));
	return Found != MetaData.end() ? Found->second : EmptyString();
}

void FProperty::SetMetaData(const TCHAR* Key, const TCHAR* Value)
{
	MetaData[FString(Key)] = FString(Value);
}

UClass* FProperty::GetPropertyClass() const
{
	if (!PropertyClass && !PropertyClassName.IsEmpty())
	{
		PropertyClass = FindClassByName(PropertyClassName);
	}
	return PropertyClass;
}

UClass* FProperty::GetMetaClass() const
{
	if (!MetaClass && !MetaClassName.IsEmpty())
	{
		MetaClass = FindClassByName(MetaClassName);
	}
	return MetaClass;
}

UScriptStruct* FProperty::GetStruct() const
{
	return StructFn ? StructFn() : nullptr;
}

void FProperty::VisitReferences(void* Value, FReferenceCollector& Collector) const
{
	if (VisitFn)
	{
		VisitFn(Value, Collector);
	}
}

UObject* FProperty::GetObjectValue(const void* Value) const
{
	return GetObjectFn ? GetObjectFn(Value) : nullptr;
}

bool FProperty::SetObjectValue(void* Value, UObject* Object) const
{
	if (!SetObjectFn)
	{
		return false;
	}
	if (Object)
	{
		UClass* Required = GetPropertyClass();
		if (Kind == EPropertyKind::Class)
		{
			UClass* MetaClassRequired = GetMetaClass();
			if (!Object->IsA(UClass::StaticClass()) || (MetaClassRequired && !static_cast<UClass*>(Object)->IsChildOf(MetaClassRequired)))
			{
				return false;
			}
		}
		else if (!Required || !Object->IsA(Required))
		{
			return false;
		}
	}
	SetObjectFn(Value, Object);
	return true;
}

bool FProperty::ExportText(const void* Value, FString& Out) const
{
	return ExportFn && ExportFn(Value, Out);
}

bool FProperty::ImportText(void* Value, const FString& Text) const
{
	return ImportFn && ImportFn(Value, Text);
}

int32 FProperty::ArrayNum(const void* Value) const
{
	return ArrayNumFn ? ArrayNumFn(Value) : 0;
}

void* FProperty::ArrayElement(void* Value, int32 Index) const
{
	return ArrayElementFn ? ArrayElementFn(Value, Index) : nullptr;
}

void FProperty::ArrayResize(void* Value, int32 NewNum) const
{
	if (ArrayResizeFn)
	{
		ArrayResizeFn(Value, NewNum);
	}
}

namespace UE::Reflection
{
	bool ExportNumber(double Value, FString& Out)
	{
		// Enough digits that a float or double reads back to the same value.
		Out = FString::Printf(TEXT("%.17g"), Value);
		return true;
	}

	bool ImportNumber(const FString& Text, double& Out)
	{
		// A number is ASCII: any other character fails the whole-text test below anyway.
		const FTCHARToUTF8 Narrow(*Text, Text.Len());
		const char* Begin = Narrow.Get();
		char* End = nullptr;
		errno = 0;
		const double Parsed = std::strtod(Begin, &End);
		if (End == Begin || *End != 0 || errno == ERANGE)
		{
			return false;
		}
		Out = Parsed;
		return true;
	}

	bool ExportInteger(int64 Value, FString& Out)
	{
		Out = FString::Printf(TEXT("%lld"), static_cast<long long>(Value));
		return true;
	}

	bool ImportInteger(const FString& Text, int64& Out)
	{
		const FTCHARToUTF8 Narrow(*Text, Text.Len());
		const char* Begin = Narrow.Get();
		char* End = nullptr;
		errno = 0;
		const long long Parsed = std::strtoll(Begin, &End, 10);
		if (End == Begin || *End != 0 || errno == ERANGE)
		{
			return false;
		}
		Out = Parsed;
		return true;
	}

	void VisitStructReferences(UScriptStruct* Struct, void* Value, FReferenceCollector& Collector)
	{
		if (Struct)
		{
			Struct->VisitReferences(Value, Collector);
		}
	}
}
