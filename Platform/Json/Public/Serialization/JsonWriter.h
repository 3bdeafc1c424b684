#pragma once

#include "CoreMinimal.h"
#include "Containers/Array.h"
#include "Policies/PrettyJsonPrintPolicy.h"
#include "Templates/SharedPointer.h"

#include <type_traits>

/**
 * Writes JSON text into an FString one token at a time; the part of TJsonWriter that does not
 * depend on the print policy. The string must outlive the writer, and the text is whole only once
 * every object and array is ended (Close() says whether it is). Inside an object every value needs
 * an identifier; at the root and inside arrays none is given.
 */
class JSON_API FJsonWriterBase
{
public:
	virtual ~FJsonWriterBase() = default;

	void WriteObjectStart();
	void WriteObjectStart(const FString& Identifier);
	void WriteObjectEnd();
	void WriteArrayStart();
	void WriteArrayStart(const FString& Identifier);
	void WriteArrayEnd();

	// Array elements and the root value. The const TCHAR* overloads stop text from turning into bool.
	void WriteValue(const FString& Value);
	void WriteValue(const TCHAR* Value) { WriteValue(FString(Value)); }
	void WriteValue(double Value);
	void WriteValue(int32 Value) { WriteValue(static_cast<int64>(Value)); }
	void WriteValue(int64 Value);
	void WriteValue(bool bValue);
	void WriteNull();

	// Object fields.
	void WriteValue(const FString& Identifier, const FString& Value);
	void WriteValue(const FString& Identifier, const TCHAR* Value) { WriteValue(Identifier, FString(Value)); }
	void WriteValue(const FString& Identifier, double Value);
	void WriteValue(const FString& Identifier, int32 Value) { WriteValue(Identifier, static_cast<int64>(Value)); }
	void WriteValue(const FString& Identifier, int64 Value);
	void WriteValue(const FString& Identifier, bool bValue);
	void WriteNull(const FString& Identifier);

	/** True when a whole value was written and every object and array was ended. */
	bool Close();

protected:
	FJsonWriterBase(FString* InStream, bool bInPretty, int32 InitialIndentLevel);

private:
	/** Separator, line break, indent and "Identifier": before a value or a container start. */
	void BeginValue(const FString* Identifier);
	void EndContainer(TCHAR Closer);
	void WriteIndent();

	// One open object or array.
	struct FScope
	{
		bool bObject = false;
		bool bEmpty = true;
	};

	// Where the text goes; owned by the caller.
	FString* Stream;
	// One value per line with tab indents, or everything on one line.
	bool bPretty;
	// Tabs in front of the outermost line.
	int32 BaseIndent;
	// The open containers, innermost last.
	TArray<FScope> Scopes;
	// A root value has been started (a second one is a misuse Close() reports).
	bool bRootWritten = false;
	// More than one root value, or an end with nothing open.
	bool bMisused = false;
};

/** The engine's writer type: the print policy picks condensed or pretty text. */
template<class CharType = TCHAR, class PrintPolicy = TPrettyJsonPrintPolicy<CharType>>
class TJsonWriter : public FJsonWriterBase
{
public:
	TJsonWriter(FString* InStream, int32 InitialIndentLevel)
		: FJsonWriterBase(InStream, PrintPolicy::bPretty, InitialIndentLevel)
	{
		static_assert(std::is_same_v<CharType, TCHAR>, "Only TCHAR writers are supported");
	}
};

/** Makes writers that append to a caller's FString. */
template<class CharType = TCHAR, class PrintPolicy = TPrettyJsonPrintPolicy<CharType>>
class TJsonWriterFactory
{
public:
	static TSharedRef<TJsonWriter<CharType, PrintPolicy>> Create(FString* const Stream, int32 InitialIndentLevel = 0)
	{
		return MakeShared<TJsonWriter<CharType, PrintPolicy>>(Stream, InitialIndentLevel);
	}
};
