#pragma once

// TPropertyTraits<T>: what the reflection can do with a member of C++ type T. Object references
// are handled without needing the referenced class to be complete: a header may forward-declare
// it, and every UObject class derives from UObject alone, so the pointer is the object's address.

#include "CoreMinimal.h"
#include "Templates/SubclassOf.h"
#include "UObject/GarbageCollection.h"
#include "UObject/ObjectPtr.h"
#include "UObject/ScriptDelegates.h"
#include "UObject/UnrealType.h"
#include "UObject/WeakObjectPtrTemplates.h"

#include <type_traits>

namespace UE::Reflection
{
	COREUOBJECT_API bool ExportNumber(double Value, FString& Out);
	COREUOBJECT_API bool ImportNumber(const FString& Text, double& Out);
	COREUOBJECT_API bool ExportInteger(int64 Value, FString& Out);
	COREUOBJECT_API bool ImportInteger(const FString& Text, int64& Out);

	COREUOBJECT_API void VisitStructReferences(UScriptStruct* Struct, void* Value, FReferenceCollector& Collector);

	template<class T, class Enable = void>
	struct TPropertyTraits
	{
		// A type the reflection only carries: not followed by the collector, not saved.
		static void Fill(FProperty::FOps& Ops) { Ops.Kind = EPropertyKind::Unknown; }
	};

	template<class T, EPropertyKind InKind>
	struct TIntegerTraits
	{
		static void Fill(FProperty::FOps& Ops)
		{
			Ops.Kind = InKind;
			Ops.ExportFn = [](const void* Value, FString& Out) { return ExportInteger(static_cast<int64>(*static_cast<const T*>(Value)), Out); };
			Ops.ImportFn = [](void* Value, const FString& Text)
			{
				int64 Parsed = 0;
				if (!ImportInteger(Text, Parsed))
				{
					return false;
				}
				*static_cast<T*>(Value) = static_cast<T>(Parsed);
				return true;
			};
		}
	};

	template<> struct TPropertyTraits<int8> : TIntegerTraits<int8, EPropertyKind::Int8> {};
	template<> struct TPropertyTraits<int16> : TIntegerTraits<int16, EPropertyKind::Int16> {};
	template<> struct TPropertyTraits<int32> : TIntegerTraits<int32, EPropertyKind::Int32> {};
	template<> struct TPropertyTraits<int64> : TIntegerTraits<int64, EPropertyKind::Int64> {};
	template<> struct TPropertyTraits<uint8> : TIntegerTraits<uint8, EPropertyKind::UInt8> {};
	template<> struct TPropertyTraits<uint16> : TIntegerTraits<uint16, EPropertyKind::UInt16> {};
	template<> struct TPropertyTraits<uint32> : TIntegerTraits<uint32, EPropertyKind::UInt32> {};
	template<> struct TPropertyTraits<uint64> : TIntegerTraits<uint64, EPropertyKind::UInt64> {};

	template<class T>
	struct TPropertyTraits<T, std::enable_if_t<std::is_enum_v<T>>> : TIntegerTraits<T, EPropertyKind::Enum> {};

	template<class T, EPropertyKind InKind>
	struct TRealTraits
	{
		static void Fill(FProperty::FOps& Ops)
		{
			Ops.Kind = InKind;
			Ops.ExportFn = [](const void* Value, FString& Out) { return ExportNumber(static_cast<double>(*static_cast<const T*>(Value)), Out); };
			Ops.ImportFn = [](void* Value, const FString& Text)
			{
				double Parsed = 0.0;
				if (!ImportNumber(Text, Parsed))
				{
					return false;
				}
				*static_cast<T*>(Value) = static_cast<T>(Parsed);
				return true;
			};
		}
	};

	template<> struct TPropertyTraits<float> : TRealTraits<float, EPropertyKind::Float> {};
	template<> struct TPropertyTraits<double> : TRealTraits<double, EPropertyKind::Double> {};

	template<>
	struct TPropertyTraits<bool>
	{
		static void Fill(FProperty::FOps& Ops)
		{
			Ops.Kind = EPropertyKind::Bool;
			Ops.ExportFn = [](const void* Value, FString& Out)
			{
				Out = *static_cast<const bool*>(Value) ? TEXT("true") : TEXT("false");
				return true;
			};
			Ops.ImportFn = [](void* Value, const FString& Text)
			{
				const bool bTrue = Text == TEXT("true") || Text == TEXT("1");
				if (!bTrue && Text != TEXT("false") && Text != TEXT("0"))
				{
					return false;
				}
				*static_cast<bool*>(Value) = bTrue;
				return true;
			};
		}
	};

	template<>
	struct TPropertyTraits<FString>
	{
		static void Fill(FProperty::FOps& Ops)
		{
			Ops.Kind = EPropertyKind::String;
			Ops.ExportFn = [](const void* Value, FString& Out) { Out = *static_cast<const FString*>(Value); return true; };
			Ops.ImportFn = [](void* Value, const FString& Text) { *static_cast<FString*>(Value) = Text; return true; };
		}
	};

	template<>
	struct TPropertyTraits<FName>
	{
		static void Fill(FProperty::FOps& Ops)
		{
			Ops.Kind = EPropertyKind::Name;
			Ops.ExportFn = [](const void* Value, FString& Out) { Out = static_cast<const FName*>(Value)->ToString(); return true; };
			Ops.ImportFn = [](void* Value, const FString& Text) { *static_cast<FName*>(Value) = FName(Text); return true; };
		}
	};

	template<>
	struct TPropertyTraits<FText>
	{
		static void Fill(FProperty::FOps& Ops)
		{
			Ops.Kind = EPropertyKind::Text;
			Ops.ExportFn = [](const void* Value, FString& Out) { Out = static_cast<const FText*>(Value)->ToString(); return true; };
			Ops.ImportFn = [](void* Value, const FString& Text) { *static_cast<FText*>(Value) = FText::FromString(Text); return true; };
		}
	};

	/** Shared by every reference stored as one object pointer (TObjectPtr<T>, T*). */
	template<class TStorage>
	struct TObjectReferenceTraits
	{
		static UObject* Read(const void* Value) { return reinterpret_cast<UObject*>(static_cast<const TStorage*>(Value)->Get()); }
		static void Visit(void* Value, FReferenceCollector& Collector) { Collector.AddReferencedObject(Read(Value)); }

		static void Fill(FProperty::FOps& Ops)
		{
			Ops.Kind = EPropertyKind::Object;
			Ops.VisitFn = &Visit;
			Ops.GetObjectFn = &Read;
			Ops.SetObjectFn = [](void* Value, UObject* Object) { static_cast<TStorage*>(Value)->Set(Object); };
		}
	};

	template<class T>
	struct TObjectPtrStorage
	{
		TObjectPtr<T> Ptr;
		T* Get() const { return Ptr.Get(); }
		void Set(UObject* Object) { Ptr = reinterpret_cast<T*>(Object); }
	};

	template<class T>
	struct TRawPointerStorage
	{
		T* Ptr;
		T* Get() const { return Ptr; }
		void Set(UObject* Object) { Ptr = reinterpret_cast<T*>(Object); }
	};

	template<class T>
	struct TPropertyTraits<TObjectPtr<T>> : TObjectReferenceTraits<TObjectPtrStorage<T>>
	{
		static_assert(sizeof(TObjectPtrStorage<T>) == sizeof(TObjectPtr<T>));
	};

	template<class T>
	struct TPropertyTraits<T*, std::enable_if_t<std::is_class_v<T>>> : TObjectReferenceTraits<TRawPointerStorage<T>> {};

	template<class T>
	struct TPropertyTraits<TWeakObjectPtr<T>>
	{
		static void Fill(FProperty::FOps& Ops)
		{
			Ops.Kind = EPropertyKind::WeakObject;
			Ops.GetObjectFn = [](const void* Value) { return static_cast<const FWeakObjectPtr*>(Value)->Get(); };
			Ops.SetObjectFn = [](void* Value, UObject* Object) { *static_cast<FWeakObjectPtr*>(Value) = Object; };
		}
	};

	template<class T>
	struct TPropertyTraits<TSubclassOf<T>>
	{
		static void Visit(void* Value, FReferenceCollector& Collector)
		{
			Collector.AddReferencedObject(reinterpret_cast<const UObject*>(static_cast<const TSubclassOf<T>*>(Value)->GetRawClass()));
		}

		static void Fill(FProperty::FOps& Ops)
		{
			Ops.Kind = EPropertyKind::Class;
			Ops.VisitFn = &Visit;
			Ops.GetObjectFn = [](const void* Value) { return reinterpret_cast<UObject*>(static_cast<const TSubclassOf<T>*>(Value)->GetRawClass()); };
			Ops.SetObjectFn = [](void* Value, UObject* Object) { static_cast<TSubclassOf<T>*>(Value)->SetRawClass(reinterpret_cast<UClass*>(Object)); };
		}
	};

	template<class T>
	struct TPropertyTraits<T, std::enable_if_t<std::is_base_of_v<FMulticastScriptDelegate, T>>>
	{
		static void Fill(FProperty::FOps& Ops) { Ops.Kind = EPropertyKind::MulticastDelegate; }
	};

	template<class T>
	struct TPropertyTraits<T, std::enable_if_t<std::is_base_of_v<FScriptDelegate, T>>>
	{
		static void Fill(FProperty::FOps& Ops) { Ops.Kind = EPropertyKind::Delegate; }
	};

	template<class T>
	struct TPropertyTraits<T, std::enable_if_t<std::is_class_v<decltype(T::StaticStruct())> || std::is_pointer_v<decltype(T::StaticStruct())>>>
	{
		static void Visit(void* Value, FReferenceCollector& Collector) { VisitStructReferences(T::StaticStruct(), Value, Collector); }

		static void Fill(FProperty::FOps& Ops)
		{
			Ops.Kind = EPropertyKind::Struct;
			Ops.StructFn = &T::StaticStruct;
			Ops.VisitFn = &Visit;
		}
	};

	template<class E>
	struct TPropertyTraits<TArray<E>>
	{
		static void Visit(void* Value, FReferenceCollector& Collector)
		{
			for (E& Element : *static_cast<TArray<E>*>(Value))
			{
				TPropertyTraits<E>::Visit(&Element, Collector);
			}
		}

		static void Fill(FProperty::FOps& Ops)
		{
			Ops.Kind = EPropertyKind::Array;
			Ops.InnerOps = std::make_unique<FProperty::FOps>();
			TPropertyTraits<E>::Fill(*Ops.InnerOps);
			if constexpr (requires { &TPropertyTraits<E>::Visit; })
			{
				Ops.VisitFn = &Visit;
			}
			Ops.ArrayNumFn = [](const void* Value) { return static_cast<const TArray<E>*>(Value)->Num(); };
			Ops.ArrayElementFn = [](void* Value, int32 Index) -> void* { return &(*static_cast<TArray<E>*>(Value))[Index]; };
			Ops.ArrayResizeFn = [](void* Value, int32 NewNum) { static_cast<TArray<E>*>(Value)->SetNum(NewNum); };
		}
	};
}
