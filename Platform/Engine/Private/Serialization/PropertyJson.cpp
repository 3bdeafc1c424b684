#include "Serialization/PropertyJson.h"

#include "Serialization/MathJson.h"

#include "Dom/JsonObject.h"
#include "Dom/JsonValue.h"
#include "UObject/Class.h"
#include "UObject/Enum.h"
#include "UObject/UObjectArray.h"
#include "UObject/UObjectGlobals.h"
#include "UObject/UnrealType.h"

#include <cmath>

namespace UE::Engine::Private
{
	namespace
	{
		/** The enum's own name from a property type: "EMood", "TEnumAsByte<EMood::Type>" -> "EMood". */
		FString EnumNameFromType(FString Type)
		{
			if (Type.RemoveFromStart(TEXT("TEnumAsByte<")))
			{
				Type.RemoveFromEnd(TEXT(">"));
			}
			Type.RemoveFromEnd(TEXT("::Type"));
			return Type.TrimStartAndEnd();
		}

		const UEnum* FindEnumForProperty(const FProperty& Property)
		{
			ProcessNewlyLoadedUObjects();
			const FString Name = EnumNameFromType(Property.GetCPPType());
			const FUObjectArray& Objects = FUObjectArray::Get();
			for (int32 Index = 0; Index < Objects.Num(); ++Index)
			{
				const UObject* Object = Objects.GetObject(Index);
				if (Object && Object->GetClass() == UEnum::StaticClass() && Object->GetName().Equals(Name))
				{
					return static_cast<const UEnum*>(Object);
				}
			}
			return nullptr;
		}

		const TCHAR* JsonKindName(const FJsonValue& Json)
		{
			switch (Json.Type)
			{
			case EJson::String: return TEXT("a string");
			case EJson::Number: return TEXT("a number");
			case EJson::Boolean: return TEXT("a boolean");
			case EJson::Array: return TEXT("an array");
			case EJson::Object: return TEXT("an object");
			default: return TEXT("null");
			}
		}

		bool IsIntegerKind(EPropertyKind Kind)
		{
			return Kind >= EPropertyKind::Int8 && Kind <= EPropertyKind::UInt64;
		}

		/** The text ImportText expects for a scalar property, from whatever JSON form the value came in. */
		bool ScalarText(const FProperty& Property, const FJsonValue& Json, FString& OutText, FString& OutProblem)
		{
			const EPropertyKind Kind = Property.GetKind();
			double Number = 0.0;
			bool bBool = false;
			if (Json.Type == EJson::Number && Json.TryGetNumber(Number))
			{
				if (Kind == EPropertyKind::Bool || IsIntegerKind(Kind) || Kind == EPropertyKind::Enum)
				{
					if (Number != std::trunc(Number))
					{
						OutProblem = FString::Printf(TEXT("%g is not a whole number"), Number);
						return false;
					}
					OutText = FString::Printf(TEXT("%.0f"), Number);
				}
				else
				{
					OutText = FString::Printf(TEXT("%.17g"), Number);
				}
				return true;
			}
			if (Json.Type == EJson::Boolean && Json.TryGetBool(bBool))
			{
				OutText = bBool ? TEXT("true") : TEXT("false");
				if (Kind != EPropertyKind::Bool && Kind != EPropertyKind::String && Kind != EPropertyKind::Name && Kind != EPropertyKind::Text)
				{
					OutText = bBool ? TEXT("1") : TEXT("0");
				}
				return true;
			}
			if (Json.Type == EJson::String && Json.TryGetString(OutText))
			{
				if (Kind == EPropertyKind::Enum && !OutText.IsEmpty() && !FChar::IsDigit(OutText[0]) && OutText[0] != TEXT('-'))
				{
					const UEnum* Enum = FindEnumForProperty(Property);
					const int64 Value = Enum ? Enum->GetValueByNameString(OutText) : INDEX_NONE;
					if (Value == INDEX_NONE)
					{
						OutProblem = FString::Printf(TEXT("'%s' is not an entry of %s"), *OutText, *EnumNameFromType(Property.GetCPPType()));
						return false;
					}
					OutText = FString::Printf(TEXT("%lld"), static_cast<long long>(Value));
				}
				return true;
			}
			OutProblem = FString::Printf(TEXT("expected a value of type %s, found %s"), *Property.GetCPPType(), JsonKindName(Json));
			return false;
		}

		/** Finds (or loads) the object a path names; null with a problem when it cannot be had. */
		UObject* ResolveObject(UClass* Class, const FString& Path, EObjectReferences References, FString& OutProblem)
		{
			if (References == EObjectReferences::FindOnly)
			{
				return StaticFindObject(Class, nullptr, *Path);
			}
			UObject* Found = StaticLoadObject(Class, nullptr, *Path);
			if (!Found)
			{
				OutProblem = FString::Printf(TEXT("cannot load '%s' as a %s"), *Path, Class ? *Class->GetName() : TEXT("Object"));
			}
			return Found;
		}

		bool SetObjectReference(const FProperty& Property, void* ValuePtr, const FJsonValue& Json, EObjectReferences References, FString& OutProblem)
		{
			FString Path;
			if (Json.IsNull())
			{
				return Property.SetObjectValue(ValuePtr, nullptr);
			}
			if (Json.Type != EJson::String || !Json.TryGetString(Path))
			{
				OutProblem = FString::Printf(TEXT("expected an object path, found %s"), JsonKindName(Json));
				return false;
			}
			if (Path.IsEmpty() || Path == TEXT("None"))
			{
				return Property.SetObjectValue(ValuePtr, nullptr);
			}
			if (Property.GetKind() == EPropertyKind::Class)
			{
				UClass* Class = FindClassByName(Path);
				if (!Class && References == EObjectReferences::Load)
				{
					Class = StaticLoadClass(Property.GetMetaClass(), nullptr, *Path);
				}
				if (!Class || !Property.SetObjectValue(ValuePtr, Class))
				{
					OutProblem = FString::Printf(TEXT("'%s' is not a class derived from %s"), *Path, Property.GetMetaClass() ? *Property.GetMetaClass()->GetName() : TEXT("UObject"));
					return false;
				}
				return true;
			}
			UObject* Object = ResolveObject(Property.GetPropertyClass(), Path, References, OutProblem);
			if (!Object)
			{
				return OutProblem.IsEmpty();
			}
			if (!Property.SetObjectValue(ValuePtr, Object))
			{
				OutProblem = FString::Printf(TEXT("'%s' is a %s, not a %s"), *Path, *Object->GetClass()->GetName(),
					Property.GetPropertyClass() ? *Property.GetPropertyClass()->GetName() : TEXT("Object"));
				return false;
			}
			return true;
		}
	}

	bool IsSerializable(const FProperty& Property)
	{
		const EPropertyKind Kind = Property.GetKind();
		return !Property.HasAnyPropertyFlags(CPF_Transient) && Kind != EPropertyKind::Delegate && Kind != EPropertyKind::MulticastDelegate &&
			(Kind != EPropertyKind::Unknown || IsMathType(Property.GetCPPType()));
	}

	bool JsonToPropertyValue(const FProperty& Property, void* ValuePtr, const FJsonValue& Json, EObjectReferences References, const FString& Path,
		TArray<FString>& OutErrors)
	{
		FString Problem;
		switch (Property.GetKind())
		{
		case EPropertyKind::Unknown:
			if (IsMathType(Property.GetCPPType()))
			{
				JsonToMathValue(Property.GetCPPType(), ValuePtr, Json, Problem);
				break;
			}
			[[fallthrough]];
		case EPropertyKind::Delegate:
		case EPropertyKind::MulticastDelegate:
			Problem = FString::Printf(TEXT("a %s cannot be set from data"), *Property.GetCPPType());
			break;
		case EPropertyKind::Object:
		case EPropertyKind::WeakObject:
		case EPropertyKind::Class:
			SetObjectReference(Property, ValuePtr, Json, References, Problem);
			break;
		case EPropertyKind::Struct:
		{
			const TSharedPtr<FJsonObject>* Object = nullptr;
			if (!Property.GetStruct())
			{
				Problem = FString::Printf(TEXT("%s is not a reflected struct"), *Property.GetCPPType());
			}
			else if (!Json.TryGetObject(Object) || !Object->IsValid())
			{
				Problem = FString::Printf(TEXT("expected an object, found %s"), JsonKindName(Json));
			}
			else
			{
				return JsonToStructValue(*Property.GetStruct(), ValuePtr, **Object, References, Path, OutErrors);
			}
			break;
		}
		case EPropertyKind::Array:
		{
			const TArray<TSharedPtr<FJsonValue>>* Elements = nullptr;
			if (!Property.GetInner())
			{
				Problem = FString::Printf(TEXT("%s has no element type"), *Property.GetCPPType());
			}
			else if (!Json.TryGetArray(Elements))
			{
				Problem = FString::Printf(TEXT("expected an array, found %s"), JsonKindName(Json));
			}
			else
			{
				bool bAllRead = true;
				Property.ArrayResize(ValuePtr, Elements->Num());
				for (int32 Index = 0; Index < Elements->Num(); ++Index)
				{
					const TSharedPtr<FJsonValue>& Element = (*Elements)[Index];
					const FString ElementPath = FString::Printf(TEXT("%s[%d]"), *Path, Index);
					if (!Element.IsValid())
					{
						continue;
					}
					bAllRead &= JsonToPropertyValue(*Property.GetInner(), Property.ArrayElement(ValuePtr, Index), *Element, References, ElementPath, OutErrors);
				}
				return bAllRead;
			}
			break;
		}
		default:
		{
			FString Text;
			if (ScalarText(Property, Json, Text, Problem) && !Property.ImportText(ValuePtr, Text))
			{
				Problem = FString::Printf(TEXT("'%s' is not a valid %s"), *Text, *Property.GetCPPType());
			}
			break;
		}
		}
		if (!Problem.IsEmpty())
		{
			OutErrors.Add(FString::Printf(TEXT("%s: %s"), *Path, *Problem));
			return false;
		}
		return true;
	}

	bool JsonToStructValue(const UStruct& Struct, void* Data, const FJsonObject& Object, EObjectReferences References, const FString& Path,
		TArray<FString>& OutErrors)
	{
		bool bAllRead = true;
		for (const TPair<FString, TSharedPtr<FJsonValue>>& Field : Object.Values)
		{
			const FProperty* Property = Struct.FindPropertyByName(FName(*Field.Key));
			if (!Property || !Field.Value.IsValid())
			{
				continue; // a field this version of the type does not have: skipped, as the engine skips stale data
			}
			const FString FieldPath = Path.IsEmpty() ? Field.Key : Path + TEXT(".") + Field.Key;
			bAllRead &= JsonToPropertyValue(*Property, Property->ContainerPtrToValuePtr(Data), *Field.Value, References, FieldPath, OutErrors);
		}
		return bAllRead;
	}

	TSharedPtr<FJsonValue> PropertyValueToJson(const FProperty& Property, const void* ValuePtr)
	{
		switch (Property.GetKind())
		{
		case EPropertyKind::Unknown:
			return MathValueToJson(Property.GetCPPType(), ValuePtr);
		case EPropertyKind::Object:
		case EPropertyKind::WeakObject:
		case EPropertyKind::Class:
		{
			const UObject* Object = Property.GetObjectValue(ValuePtr);
			return Object ? MakeShared<FJsonValueString>(Object->GetPathName()) : TSharedPtr<FJsonValue>(MakeShared<FJsonValueNull>());
		}
		case EPropertyKind::Struct:
		{
			TSharedPtr<FJsonObject> Object = MakeShared<FJsonObject>();
			if (const UScriptStruct* Struct = Property.GetStruct())
			{
				for (const FProperty* Member : Struct->GetAllProperties())
				{
					if (IsSerializable(*Member))
					{
						Object->SetField(Member->GetName(), PropertyValueToJson(*Member, Member->ContainerPtrToValuePtr(ValuePtr)));
					}
				}
			}
			return MakeShared<FJsonValueObject>(Object);
		}
		case EPropertyKind::Array:
		{
			TArray<TSharedPtr<FJsonValue>> Elements;
			if (const FProperty* Inner = Property.GetInner())
			{
				void* Mutable = const_cast<void*>(ValuePtr); // ArrayElement only hands out the address
				for (int32 Index = 0; Index < Property.ArrayNum(ValuePtr); ++Index)
				{
					Elements.Add(PropertyValueToJson(*Inner, Property.ArrayElement(Mutable, Index)));
				}
			}
			return MakeShared<FJsonValueArray>(MoveTemp(Elements));
		}
		default:
		{
			FString Text;
			if (!Property.ExportText(ValuePtr, Text))
			{
				return MakeShared<FJsonValueNull>();
			}
			return MakeShared<FJsonValueString>(MoveTemp(Text));
		}
		}
	}
}
