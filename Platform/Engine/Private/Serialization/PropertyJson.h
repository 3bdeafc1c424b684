#pragma once

// Reflected property values to and from JSON, shared by the .uasset reader and the save slots.
// Reading is lenient about the JSON form (a number may come as a string, an enum as its entry
// name); writing uses ExportText's text for scalars so that values round-trip exactly.

#include "CoreMinimal.h"

class FJsonObject;
class FJsonValue;
class FProperty;
class UStruct;

namespace UE::Engine::Private
{
	/** How object references are resolved while reading. */
	enum class EObjectReferences : uint8
	{
		/** Asset paths are loaded (and a failure is an error). */
		Load,
		/** Only objects already in memory are found; others read as null. */
		FindOnly,
	};

	/**
	 * Sets the value at ValuePtr from Json. A value that does not fit leaves a scalar unchanged and
	 * appends "<Path>: <problem>" to OutErrors; arrays and structs go on with their other elements.
	 */
	bool JsonToPropertyValue(const FProperty& Property, void* ValuePtr, const FJsonValue& Json, EObjectReferences References, const FString& Path,
		TArray<FString>& OutErrors);

	/** Sets Struct's properties in Data from Object's fields by name; unknown fields are skipped. */
	bool JsonToStructValue(const UStruct& Struct, void* Data, const FJsonObject& Object, EObjectReferences References, const FString& Path,
		TArray<FString>& OutErrors);

	/** The JSON form of a value: scalars as ExportText's text, arrays as arrays, structs as objects, objects as paths. */
	TSharedPtr<FJsonValue> PropertyValueToJson(const FProperty& Property, const void* ValuePtr);

	/** True for properties a save slot or an asset may hold: not transient, not a delegate. */
	bool IsSerializable(const FProperty& Property);
}
