#pragma once

#include "CoreMinimal.h"
#include "Containers/Array.h"
#include "Dom/JsonObject.h"
#include "Dom/JsonValue.h"
#include "Serialization/JsonReader.h"
#include "Serialization/JsonWriter.h"
#include "Templates/SharedPointer.h"

/**
 * Reads JSON text into FJsonObject / FJsonValue trees and writes trees back as text.
 * Deserialize is true only for one whole, well-formed document whose root is of the kind asked for
 * (nothing but whitespace may follow it, nesting is at most 512 deep); on false the output is
 * left as it was, a LogJson warning is written and the reader's GetErrorMessage() says why.
 */
class JSON_API FJsonSerializer
{
public:
	/** How numbers are kept; every number is read as a double here, whatever is asked. */
	enum EFlags
	{
		None = 0,
		StoreNumbersAsStrings = 1,
	};

#if PLAIN_PLATFORM_INTERNALS
	/** The stand-in's limit: containers nested deeper than this are refused, so no input can exhaust the stack. */
	static constexpr int32 MaxDepth = 512;
#endif

	/** The root must be an object. */
	static bool Deserialize(const TSharedRef<TJsonReader<TCHAR>>& Reader, TSharedPtr<FJsonObject>& OutObject, EFlags InOptions = EFlags::None);
	/** The root must be an array; OutArray receives its elements. */
	static bool Deserialize(const TSharedRef<TJsonReader<TCHAR>>& Reader, TArray<TSharedPtr<FJsonValue>>& OutArray, EFlags InOptions = EFlags::None);
	/** The root must be an object or an array: a bare string, number, true, false or null is refused. */
	static bool Deserialize(const TSharedRef<TJsonReader<TCHAR>>& Reader, TSharedPtr<FJsonValue>& OutValue, EFlags InOptions = EFlags::None);

	template<class CharType, class PrintPolicy>
	static bool Serialize(const TSharedRef<FJsonObject>& Object, const TSharedRef<TJsonWriter<CharType, PrintPolicy>>& Writer, bool bCloseWriter = true)
	{
		return SerializeObject(Object.Get(), Writer.Get(), bCloseWriter);
	}

	template<class CharType, class PrintPolicy>
	static bool Serialize(const TArray<TSharedPtr<FJsonValue>>& Array, const TSharedRef<TJsonWriter<CharType, PrintPolicy>>& Writer, bool bCloseWriter = true)
	{
		return SerializeArray(Array, Writer.Get(), bCloseWriter);
	}

	/** Writes Value as a field named Identifier inside an open object, or alone when Identifier is empty. */
	template<class CharType, class PrintPolicy>
	static bool Serialize(const TSharedPtr<FJsonValue>& Value, const FString& Identifier, const TSharedRef<TJsonWriter<CharType, PrintPolicy>>& Writer, bool bCloseWriter = true)
	{
		return SerializeValue(Value, Identifier, Writer.Get(), bCloseWriter);
	}

private:
	static bool SerializeObject(const FJsonObject& Object, FJsonWriterBase& Writer, bool bCloseWriter);
	static bool SerializeArray(const TArray<TSharedPtr<FJsonValue>>& Array, FJsonWriterBase& Writer, bool bCloseWriter);
	static bool SerializeValue(const TSharedPtr<FJsonValue>& Value, const FString& Identifier, FJsonWriterBase& Writer, bool bCloseWriter);
};
