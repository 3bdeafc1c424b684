#include "Serialization/JsonWriter.h"

#include "Serialization/JsonNumberText.h"

#include <charconv>

namespace
{
	void AppendJsonString(FString& Out, const FString& Text)
	{
		Out.AppendChar(TEXT('"'));
		for (const TCHAR Char : Text)
		{
			switch (Char)
			{
			case TEXT('"'): Out += TEXT("\\\""); break;
			case TEXT('\\'): Out += TEXT("\\\\"); break;
			case TEXT('\n'): Out += TEXT("\\n"); break;
			case TEXT('\r'): Out += TEXT("\\r"); break;
			case TEXT('\t'): Out += TEXT("\\t"); break;
			case TEXT('\b'): Out += TEXT("\\b"); break;
			case TEXT('\f'): Out += TEXT("\\f"); break;
			default:
				// Other control characters may not appear raw in a JSON string; everything else may.
				if (static_cast<uint32>(Char) < 0x20)
				{
					static constexpr TCHAR Hex[] = TEXT("0123456789abcdef");
					Out += TEXT("\\u00");
					Out.AppendChar(Hex[Char >> 4]);
					Out.AppendChar(Hex[Char & 0xF]);
				}
				else
				{
					Out.AppendChar(Char);
				}
			}
		}
		Out.AppendChar(TEXT('"'));
	}

	void AppendInteger(FString& Out, int64 Value)
	{
		char Buffer[24];
		const std::to_chars_result Result = std::to_chars(Buffer, Buffer + sizeof(Buffer), Value);
		for (const char* Char = Buffer; Char != Result.ptr; ++Char)
		{
			Out.AppendChar(static_cast<TCHAR>(*Char));
		}
	}
}

FJsonWriterBase::FJsonWriterBase(FString* InStream, bool bInPretty, int32 InitialIndentLevel)
	: Stream(InStream)
	, bPretty(bInPretty)
	, BaseIndent(InitialIndentLevel)
{
	check(Stream != nullptr);
}

void FJsonWriterBase::WriteObjectStart()
{
	BeginValue(nullptr);
	Stream->AppendChar(TEXT('{'));
	Scopes.Add(FScope{true, true});
}

void FJsonWriterBase::WriteObjectStart(const FString& Identifier)
{
	BeginValue(&Identifier);
	Stream->AppendChar(TEXT('{'));
	Scopes.Add(FScope{true, true});
}

void FJsonWriterBase::WriteObjectEnd()
{
	EndContainer(TEXT('}'));
}

void FJsonWriterBase::WriteArrayStart()
{
	BeginValue(nullptr);
	Stream->AppendChar(TEXT('['));
	Scopes.Add(FScope{false, true});
}

void FJsonWriterBase::WriteArrayStart(const FString& Identifier)
{
	BeginValue(&Identifier);
	Stream->AppendChar(TEXT('['));
	Scopes.Add(FScope{false, true});
}

void FJsonWriterBase::WriteArrayEnd()
{
	EndContainer(TEXT(']'));
}

void FJsonWriterBase::WriteValue(const FString& Value)
{
	BeginValue(nullptr);
	AppendJsonString(*Stream, Value);
}

void FJsonWriterBase::WriteValue(double Value)
{
	BeginValue(nullptr);
	UE::Json::Private::AppendJsonNumber(*Stream, Value);
}

void FJsonWriterBase::WriteValue(int64 Value)
{
	BeginValue(nullptr);
	AppendInteger(*Stream, Value);
}

void FJsonWriterBase::WriteValue(bool bValue)
{
	BeginValue(nullptr);
	*Stream += bValue ? TEXT("true") : TEXT("false");
}

void FJsonWriterBase::WriteNull()
{
	BeginValue(nullptr);
	*Stream += TEXT("null");
}

void FJsonWriterBase::WriteValue(const FString& Identifier, const FString& Value)
{
	BeginValue(&Identifier);
	AppendJsonString(*Stream, Value);
}

void FJsonWriterBase::WriteValue(const FString& Identifier, double Value)
{
	BeginValue(&Identifier);
	UE::Json::Private::AppendJsonNumber(*Stream, Value);
}

void FJsonWriterBase::WriteValue(const FString& Identifier, int64 Value)
{
	BeginValue(&Identifier);
	AppendInteger(*Stream, Value);
}

void FJsonWriterBase::WriteValue(const FString& Identifier, bool bValue)
{
	BeginValue(&Identifier);
	*Stream += bValue ? TEXT("true") : TEXT("false");
}

void FJsonWriterBase::WriteNull(const FString& Identifier)
{
	BeginValue(&Identifier);
	*Stream += TEXT("null");
}

bool FJsonWriterBase::Close()
{
	return bRootWritten && Scopes.IsEmpty() && !bMisused;
}

void FJsonWriterBase::BeginValue(const FString* Identifier)
{
	if (Scopes.IsEmpty())
	{
		bMisused = bMisused || bRootWritten;
		bRootWritten = true;
		return;
	}
	FScope& Scope = Scopes.Last();
	if (!Scope.bEmpty)
	{
		Stream->AppendChar(TEXT(','));
	}
	Scope.bEmpty = false;
	if (bPretty)
	{
		Stream->AppendChar(TEXT('\n'));
		WriteIndent();
	}
	if (Scope.bObject)
	{
		bMisused = bMisused || Identifier == nullptr;
		AppendJsonString(*Stream, Identifier != nullptr ? *Identifier : FString());
		*Stream += bPretty ? TEXT(": ") : TEXT(":");
	}
}

void FJsonWriterBase::EndContainer(TCHAR Closer)
{
	if (Scopes.IsEmpty())
	{
		bMisused = true;
		return;
	}
	const FScope Scope = Scopes.Pop();
	bMisused = bMisused || Scope.bObject != (Closer == TEXT('}'));
	if (bPretty && !Scope.bEmpty)
	{
		Stream->AppendChar(TEXT('\n'));
		WriteIndent();
	}
	Stream->AppendChar(Closer);
}

void FJsonWriterBase::WriteIndent()
{
	for (int32 Tab = 0; Tab < BaseIndent + Scopes.Num(); ++Tab)
	{
		Stream->AppendChar(TEXT('\t'));
	}
}
