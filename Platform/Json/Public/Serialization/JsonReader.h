#pragma once

#include "CoreMinimal.h"
#include "Containers/StringView.h"
#include "Templates/SharedPointer.h"

class FJsonSerializer;

template<class CharType = TCHAR>
class TJsonReader;
template<class CharType = TCHAR>
class TJsonReaderFactory;

/**
 * JSON text waiting to be read by FJsonSerializer::Deserialize, made by TJsonReaderFactory. Only
 * TCHAR text is supported. After a failed Deserialize, GetErrorMessage() says what was wrong and
 * where ("... Line: 3 Ch: 14").
 */
template<>
class TJsonReader<TCHAR>
{
public:
	virtual ~TJsonReader() = default;

	/** Why the last Deserialize failed; empty after a success. */
	const FString& GetErrorMessage() const { return ErrorMessage; }

private:
	friend class FJsonSerializer;
	friend class TJsonReaderFactory<TCHAR>;

	explicit TJsonReader(FString&& InText) : OwnedText(MoveTemp(InText)), Text(OwnedText) {}
	explicit TJsonReader(FStringView InText) : Text(InText) {}

	// The document when the reader holds its own copy; empty for a reader over a view.
	FString OwnedText;
	// The whole document: OwnedText, or the caller's characters.
	FStringView Text;
	// Set by FJsonSerializer when the text is refused.
	FString ErrorMessage;
};

/** Makes readers over text held in memory. The reader keeps its own copy (or the moved string). */
template<>
class TJsonReaderFactory<TCHAR>
{
public:
	static TSharedRef<TJsonReader<TCHAR>> Create(const FString& JsonString)
	{
		return TSharedRef<TJsonReader<TCHAR>>(new TJsonReader<TCHAR>(CopyTemp(JsonString)));
	}

	/** Takes the string over without a copy: the way to read a very large document. */
	static TSharedRef<TJsonReader<TCHAR>> Create(FString&& JsonString)
	{
		return TSharedRef<TJsonReader<TCHAR>>(new TJsonReader<TCHAR>(MoveTemp(JsonString)));
	}

	/**
	 * Reads the caller's characters in place, with no copy: the way to read text one already holds.
	 * The text must stay alive and unchanged until the reader has been used.
	 */
	static TSharedRef<TJsonReader<TCHAR>> CreateFromView(FStringView JsonString)
	{
		return TSharedRef<TJsonReader<TCHAR>>(new TJsonReader<TCHAR>(JsonString));
	}
};
