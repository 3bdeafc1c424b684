#pragma once

// TStringView / FStringView: characters someone else owns, as a pointer and a length, for APIs
// that only read text and should not copy it (TJsonReaderFactory::CreateFromView, say). A view is
// not null-terminated in general, and it dangles once its string changes or goes.

#include "Containers/UnrealString.h"
#include "HAL/Platform.h"
#include "Misc/CString.h"

#include <type_traits>

template<class CharType>
class TStringView
{
public:
	using ElementType = CharType;

	constexpr TStringView() = default;
	/** The Len characters at Data. */
	constexpr TStringView(const CharType* InData, int32 InLen) : Data(InData), Size(InLen) {}
	/** A null-terminated string, without its terminator. */
	TStringView(const CharType* NullTerminated)
		requires std::is_same_v<CharType, TCHAR>
		: Data(NullTerminated), Size(NullTerminated ? FCString::Strlen(NullTerminated) : 0)
	{
	}
	/** The whole of String, which must outlive the view and stay unchanged while it is used. */
	TStringView(const FString& String)
		requires std::is_same_v<CharType, TCHAR>
		: Data(*String), Size(String.Len())
	{
	}

	/** The first character; not null-terminated in general. */
	const CharType* GetData() const { return Data; }
	int32 Len() const { return Size; }
	bool IsEmpty() const { return Size == 0; }
	const CharType& operator[](int32 Index) const { check(Index >= 0 && Index < Size); return Data[Index]; }
	const CharType* begin() const { return Data; }
	const CharType* end() const { return Data + Size; }

private:
	// The first character viewed.
	const CharType* Data = nullptr;
	// How many characters are viewed.
	int32 Size = 0;
};

using FStringView = TStringView<TCHAR>;
