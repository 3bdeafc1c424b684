#pragma once

// The reflection of types: UStruct (a type with properties), UClass (a UObject class, native or
// made from a blueprint asset), UScriptStruct (a reflected struct). Classes are registered by name
// under their package ("/Script/<Module>.<Name>"), so assets can name them.

#include "UObject/Object.h"
#include "UObject/UnrealType.h"

#include <memory>
#include <vector>

class UFunction;

/** Base of the reflection objects. */
class COREUOBJECT_API UField : public UObject
{
public:
	using Super = UObject;
	using ThisClass = UField;
	static UClass* StaticClass();
	using UObject::UObject;
};

/** A type with reflected properties, and a base type. */
class COREUOBJECT_API UStruct : public UField
{
public:
	using Super = UField;
	using ThisClass = UStruct;
	static UClass* StaticClass();
	using UField::UField;

	UStruct* GetSuperStruct() const { return SuperStruct; }
	void SetSuperStruct(UStruct* InSuperStruct) { SuperStruct = InSuperStruct; }
	/** True for this type and every type derived from SomeBase. */
	bool IsChildOf(const UStruct* SomeBase) const;
	template<class T>
	bool IsChildOf() const { return IsChildOf(T::StaticClass()); }

	/** Properties declared by this type only, in declaration order. */
	const std::vector<std::unique_ptr<FProperty>>& GetOwnProperties() const { return Properties; }
	/** Properties of this type and its bases, base first, in declaration order. */
	TArray<const FProperty*> GetAllProperties() const;
	const FProperty* FindPropertyByName(FName InName) const;

	SIZE_T GetStructureSize() const { return StructureSize; }

	void AddProperty(std::unique_ptr<FProperty> Property) { Properties.push_back(std::move(Property)); }
	void SetStructureSize(SIZE_T Size) { StructureSize = Size; }

	/** Calls Visitor for each strong object reference held in Data, an instance of this type. */
	void VisitReferences(void* Data, FReferenceCollector& Collector) const;

private:
	UStruct* SuperStruct = nullptr;
	std::vector<std::unique_ptr<FProperty>> Properties;
	SIZE_T StructureSize = 0;
};

/** A reflected struct (USTRUCT). */
class COREUOBJECT_API UScriptStruct : public UStruct
{
public:
	using Super = UStruct;
	using ThisClass = UScriptStruct;
	static UClass* StaticClass();
	using UStruct::UStruct;
};

class COREUOBJECT_API UClass : public UStruct
{
public:
	using Super = UStruct;
	using ThisClass = UClass;
	static UClass* StaticClass();
	using UStruct::UStruct;

	/** Builds an instance of the class's native part; set for native classes, inherited by blueprint ones. */
	using FClassConstructor = UObject* (*)(const FObjectInitializer& ObjectInitializer);

	UClass* GetSuperClass() const { return static_cast<UClass*>(GetSuperStruct()); }
	EClassFlags GetClassFlags() const { return ClassFlags; }
	bool HasAnyClassFlags(EClassFlags Flags) const { return (uint32(ClassFlags) & uint32(Flags)) != 0; }
	void SetClassFlags(EClassFlags Flags) { ClassFlags = Flags; }

	/** The nearest class up the chain that C++ code defined (this class if native). */
	UClass* GetNativeClass() const;
	FClassConstructor GetClassConstructor() const;
	void SetClassConstructor(FClassConstructor InConstructor) { ClassConstructor = InConstructor; }

	/** A function of this class or its bases, by name (ignoring case, as names compare). */
	UFunction* FindFunctionByName(FName InName) const;
	void AddFunction(UFunction* Function);
	const std::vector<UFunction*>& GetOwnFunctions() const { return Functions; }

	bool HasMetaData(const TCHAR* Key) const;
	const FString& GetMetaData(const TCHAR* Key) const;
	void SetMetaData(const TCHAR* Key, const TCHAR* Value);

	/** The class default object, made on first use. */
	UObject* GetDefaultObject() const;
	template<class T>
	T* GetDefaultObject() const { return static_cast<T*>(GetDefaultObject()); }

	/** Called on every new instance once its native constructor has run; blueprint classes apply their defaults here. */
	virtual void PostConstructInstance(UObject* Instance) const {}

	void AddReferencedObjects(FReferenceCollector& Collector) override;

private:
	EClassFlags ClassFlags = CLASS_None;
	FClassConstructor ClassConstructor = nullptr;
	/** Own functions; owned by the object system like every UObject. */
	std::vector<UFunction*> Functions;
	std::map<FString, FString> MetaData;
	mutable UObject* ClassDefaultObject = nullptr;
};

/** Every registered class, for tools and tests that look classes up by name. */
COREUOBJECT_API UClass* FindClassByName(const FString& Name);
/** Registers every class that compiled-in code has announced and not registered yet. */
COREUOBJECT_API void ProcessNewlyLoadedUObjects();
