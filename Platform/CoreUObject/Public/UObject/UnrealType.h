#pragma once

// FProperty: one reflected member of a class or struct, as the header tool registered it. What a
// property can do with its value (follow object references, set an object, read or write text)
// comes from the C++ type through TPropertyTraits, so the tool never has to understand types.

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"

#include <map>
#include <memory>

class UObject;
class UClass;
class UStruct;
class UScriptStruct;
class UEnum;
class FReferenceCollector;

enum class EPropertyKind : uint8
{
	Unknown,
	Bool,
	Int8,
	Int16,
	Int32,
	Int64,
	UInt8,
	UInt16,
	UInt32,
	UInt64,
	Float,
	Double,
	Enum,
	String,
	Name,
	Text,
	Object,
	WeakObject,
	Class,
	Struct,
	Array,
	Delegate,
	MulticastDelegate,
};

class COREUOBJECT_API FProperty
{
public:
	FName GetFName() const { return Name; }
	FString GetName() const { return Name.ToString(); }
	/** The type as written in the header, e.g. "TObjectPtr<UMediaPlayer>". */
	const FString& GetCPPType() const { return CppType; }
	EPropertyKind GetKind() const { return Kind; }
	SIZE_T GetOffset() const { return Offset; }
	EPropertyFlags GetPropertyFlags() const { return PropertyFlags; }
	bool HasAnyPropertyFlags(EPropertyFlags Flags) const { return (uint64(PropertyFlags) & uint64(Flags)) != 0; }
	/** The struct or class that declares the property. */
	UStruct* GetOwnerStruct() const { return Owner; }

	bool HasMetaData(const TCHAR* Key) const;
	/** The metadata value, or an empty string when absent. */
	const FString& GetMetaData(const TCHAR* Key) const;

	void* ContainerPtrToValuePtr(void* Container) const { return static_cast<uint8*>(Container) + Offset; }
	const void* ContainerPtrToValuePtr(const void* Container) const { return static_cast<const uint8*>(Container) + Offset; }

	/** For Object, WeakObject and Class properties (and arrays of them): the class a value must have. */
	UClass* GetPropertyClass() const;
	/** For Class properties (TSubclassOf<T>): T's class, which a value must derive from. */
	UClass* GetMetaClass() const;
	/** For Struct properties: the struct's reflection. */
	UScriptStruct* GetStruct() const;
	/** For Array properties: the element, described at offset 0. */
	const FProperty* GetInner() const { return Inner.get(); }

	/** True when the value holds strong object references the collector must follow. */
	bool ContainsObjectReference() const { return VisitFn != nullptr; }
	void VisitReferences(void* Value, FReferenceCollector& Collector) const;

	/** Object, WeakObject and Class values read and written as a UObject. */
	UObject* GetObjectValue(const void* Value) const;
	/** Refuses (false) an object of the wrong class. */
	bool SetObjectValue(void* Value, UObject* Object) const;

	/** Scalar values as text: bool "true"/"false", numbers, strings, names, texts, enum numbers. */
	bool ExportText(const void* Value, FString& Out) const;
	bool ImportText(void* Value, const FString& Text) const;

	/** Array values: count, element address, resize. */
	int32 ArrayNum(const void* Value) const;
	void* ArrayElement(void* Value, int32 Index) const;
	void ArrayResize(void* Value, int32 NewNum) const;

	// Filled by TPropertyTraits when the property is registered.
	struct FOps
	{
		EPropertyKind Kind = EPropertyKind::Unknown;
		UScriptStruct* (*StructFn)() = nullptr;
		void (*VisitFn)(void* Value, FReferenceCollector& Collector) = nullptr;
		UObject* (*GetObjectFn)(const void* Value) = nullptr;
		void (*SetObjectFn)(void* Value, UObject* Object) = nullptr;
		bool (*ExportFn)(const void* Value, FString& Out) = nullptr;
		bool (*ImportFn)(void* Value, const FString& Text) = nullptr;
		int32 (*ArrayNumFn)(const void* Value) = nullptr;
		void* (*ArrayElementFn)(void* Value, int32 Index) = nullptr;
		void (*ArrayResizeFn)(void* Value, int32 NewNum) = nullptr;
		/** For arrays: the element's operations. */
		std::unique_ptr<FOps> InnerOps;
	};

	FProperty(UStruct* InOwner, FName InName, FString InCppType, SIZE_T InOffset, EPropertyFlags InFlags, FOps&& InOps);

	void SetMetaData(const TCHAR* Key, const TCHAR* Value);

private:
	UStruct* Owner = nullptr;
	FName Name;
	FString CppType;
	SIZE_T Offset = 0;
	EPropertyFlags PropertyFlags = CPF_None;
	EPropertyKind Kind = EPropertyKind::Unknown;
	/** The class named in the type ("UMediaPlayer" in "TObjectPtr<UMediaPlayer>"), found by name
	 *  on first use: a header may only forward-declare it, and classes register in any order. */
	FString PropertyClassName;
	mutable UClass* PropertyClass = nullptr;
	FString MetaClassName;
	mutable UClass* MetaClass = nullptr;
	UScriptStruct* (*StructFn)() = nullptr;
	void (*VisitFn)(void* Value, FReferenceCollector& Collector) = nullptr;
	UObject* (*GetObjectFn)(const void* Value) = nullptr;
	void (*SetObjectFn)(void* Value, UObject* Object) = nullptr;
	bool (*ExportFn)(const void* Value, FString& Out) = nullptr;
	bool (*ImportFn)(void* Value, const FString& Text) = nullptr;
	int32 (*ArrayNumFn)(const void* Value) = nullptr;
	void* (*ArrayElementFn)(void* Value, int32 Index) = nullptr;
	void (*ArrayResizeFn)(void* Value, int32 NewNum) = nullptr;
	std::unique_ptr<FProperty> Inner;
	/** Keys compare ignoring case, as FString does. */
	std::map<FString, FString> MetaData;
};
