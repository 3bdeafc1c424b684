#pragma once

#include "HAL/Platform.h"
#include "Misc/AssertionMacros.h"
#include "Misc/CString.h"
#include "Misc/PrintfArg.h"

#include <atomic>
#include <iosfwd>
#include <type_traits>
#include <utility>

namespace UE::Core::Private
{
	/**
	 * The heap block behind a non-empty FString: a header, then Capacity + 1 TCHARs. RefCount is
	 * the number of FStrings sharing the block, or UnsharableCount when its one owner has handed out
	 * a writable reference: such a block is copied, never shared.
	 */
	struct FStringBlock
	{
		static constexpr int32 UnsharableCount = -1;

		std::atomic<int32> RefCount;
		// Characters in use, without the terminator.
		int32 Length;
		// Characters that fit, without the terminator.
		int32 Capacity;

		TCHAR* Chars() { return reinterpret_cast<TCHAR*>(this + 1); }
	};
}

/**
 * The engine's string: TCHAR text with a null terminator, so operator* is always a valid C string.
 * The rule that surprises: == and < ignore case (so does GetTypeHash, to agree with them); use
 * Equals(Other) or Compare(Other) for a case-sensitive test. Searches default to IgnoreCase too.
 * Indices and lengths count TCHARs, which are UTF-16 code units: "😂" has a Len() of 2.
 *
 * The stand-in shares the characters between copies until one of them changes (the engine copies
 * at once; nothing a caller can observe differs): a copy is one counter update, which is what lets
 * a JSON document's repeated keys, and text handed from a parsed document to its records, cost no
 * memory of their own. A writable reference into the text (non-const operator[], begin(), end())
 * makes the string stop sharing, so writes through it never reach another copy.
 */
class FString
{
public:
	using ElementType = TCHAR;

	FString() = default;
	CORE_API FString(const TCHAR* Text);
	/** Narrow text is read as UTF-8; undecodable bytes become U+FFFD. */
	CORE_API FString(const ANSICHAR* Text);
	/** The first Len characters of Text (fewer if Text ends sooner). */
	CORE_API explicit FString(int32 Len, const TCHAR* Text);
	CORE_API explicit FString(int32 Len, const ANSICHAR* Text);
	/** A copy of the characters a view (a TStringView, or any range with GetData() and Len()) shows. */
	template<class CharRangeType,
		class = std::enable_if_t<std::is_same_v<decltype(std::declval<const CharRangeType&>().GetData()), const TCHAR*>
			&& std::is_same_v<decltype(std::declval<const CharRangeType&>().Len()), int32>>>
	explicit FString(const CharRangeType& Range)
		: FString(Range.Len(), Range.GetData())
	{
	}
	CORE_API FString& operator=(const TCHAR* Text);

#if PLAIN_PLATFORM_INTERNALS
	/** The stand-in's (the engine spells this with StringCast): Len bytes of UTF-8 as a string. */
	static CORE_API FString FromUTF8(const ANSICHAR* Bytes, int32 Len);
#endif

	FString(const FString& Other) : Block(ShareOrCopy(Other.Block)) {}
	FString(FString&& Other) noexcept : Block(Other.Block) { Other.Block = nullptr; }
	FString& operator=(const FString& Other)
	{
		UE::Core::Private::FStringBlock* Shared = ShareOrCopy(Other.Block);
		Release(Block);
		Block = Shared;
		return *this;
	}
	FString& operator=(FString&& Other) noexcept
	{
		if (this != &Other)
		{
			Release(Block);
			Block = Other.Block;
			Other.Block = nullptr;
		}
		return *this;
	}
	~FString() { Release(Block); }

	/** The text as a null-terminated C string; never null, valid until this string changes. */
	const TCHAR* operator*() const { return Block ? Block->Chars() : TEXT(""); }
	int32 Len() const { return Block ? Block->Length : 0; }
	bool IsEmpty() const { return Len() == 0; }
	bool IsValidIndex(int32 Index) const { return Index >= 0 && Index < Len(); }
	TCHAR& operator[](int32 Index) { check(IsValidIndex(Index)); return WritableChars()[Index]; }
	const TCHAR& operator[](int32 Index) const { check(IsValidIndex(Index)); return Block->Chars()[Index]; }
	TCHAR* begin() { return Block ? WritableChars() : nullptr; }
	TCHAR* end() { return Block ? WritableChars() + Block->Length : nullptr; }
	const TCHAR* begin() const { return Block ? Block->Chars() : nullptr; }
	const TCHAR* end() const { return Block ? Block->Chars() + Block->Length : nullptr; }

	CORE_API void Empty(int32 Slack = 0);
	CORE_API void Reset(int32 NewReservedSize = 0);
	CORE_API void Reserve(int32 CharacterCount);
	/** Gives back the room beyond Len(). */
	CORE_API void Shrink();

	CORE_API FString& Append(const TCHAR* Text, int32 Count);
	CORE_API FString& Append(const TCHAR* Text);
	CORE_API FString& Append(const FString& Text);
	CORE_API FString& AppendChar(TCHAR Char);
	CORE_API FString& AppendInt(int32 Value);
	FString& operator+=(const FString& Text) { return Append(Text); }
	FString& operator+=(const TCHAR* Text) { return Append(Text); }
	FString& operator+=(TCHAR Char) { return AppendChar(Char); }
	CORE_API void InsertAt(int32 Index, TCHAR Char);
	CORE_API void InsertAt(int32 Index, const FString& Text);
	/** Removes up to Count characters from Index; out-of-range parts are ignored. */
	CORE_API void RemoveAt(int32 Index, int32 Count = 1);

	/** printf-style formatting; see Printf.cpp for the directives. An FString goes in as *MyString. */
	template <typename... Types>
	static FString Printf(const TCHAR* Format, const Types&... Args)
	{
		FString Result;
		Result.Appendf(Format, Args...);
		return Result;
	}

	template <typename... Types>
	FString& Appendf(const TCHAR* Format, const Types&... Args)
	{
		const UE::Core::Private::FPrintfArg Packed[] = {UE::Core::Private::MakePrintfArg(Args)..., UE::Core::Private::FPrintfArg()};
		UE::Core::Private::AppendPrintf(*this, Format, Packed, static_cast<int32>(sizeof...(Types)));
		return *this;
	}

	/** Note the default: unlike ==, Equals is case-sensitive unless asked otherwise. */
	CORE_API bool Equals(const FString& Other, ESearchCase::Type SearchCase = ESearchCase::CaseSensitive) const;
	/** Negative, zero or positive as this sorts before, with or after Other. */
	CORE_API int32 Compare(const FString& Other, ESearchCase::Type SearchCase = ESearchCase::CaseSensitive) const;

	friend bool operator==(const FString& A, const FString& B) { return A.Equals(B, ESearchCase::IgnoreCase); }
	friend bool operator==(const FString& A, const TCHAR* B) { return FCString::Stricmp(*A, B) == 0; }
	friend bool operator<(const FString& A, const FString& B) { return A.Compare(B, ESearchCase::IgnoreCase) < 0; }
	friend bool operator>(const FString& A, const FString& B) { return B < A; }
	friend bool operator<=(const FString& A, const FString& B) { return !(B < A); }
	friend bool operator>=(const FString& A, const FString& B) { return !(A < B); }

	/** An empty prefix or suffix never matches, as in the engine. */
	CORE_API bool StartsWith(const TCHAR* Prefix, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase) const;
	CORE_API bool StartsWith(const FString& Prefix, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase) const;
	CORE_API bool EndsWith(const TCHAR* Suffix, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase) const;
	CORE_API bool EndsWith(const FString& Suffix, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase) const;

	/**
	 * Index of SubStr, or INDEX_NONE (also for an empty SubStr). From the start, the search begins
	 * at StartPosition; from the end, a match must end at or before StartPosition.
	 */
	CORE_API int32 Find(const TCHAR* SubStr, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase,
		ESearchDir::Type SearchDir = ESearchDir::FromStart, int32 StartPosition = INDEX_NONE) const;
	CORE_API int32 Find(const FString& SubStr, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase,
		ESearchDir::Type SearchDir = ESearchDir::FromStart, int32 StartPosition = INDEX_NONE) const;
	bool Contains(const TCHAR* SubStr, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase, ESearchDir::Type SearchDir = ESearchDir::FromStart) const
	{
		return Find(SubStr, SearchCase, SearchDir) != INDEX_NONE;
	}
	bool Contains(const FString& SubStr, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase, ESearchDir::Type SearchDir = ESearchDir::FromStart) const
	{
		return Find(SubStr, SearchCase, SearchDir) != INDEX_NONE;
	}
	CORE_API bool FindChar(TCHAR Char, int32& OutIndex) const;
	CORE_API bool FindLastChar(TCHAR Char, int32& OutIndex) const;

	/** Splits around the first (or last) InS. Returns false, writing nothing, when InS is absent. */
	CORE_API bool Split(const FString& InS, FString* LeftS, FString* RightS, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase,
		ESearchDir::Type SearchDir = ESearchDir::FromStart) const;

	/** '*' matches any run, '?' any one character. */
	CORE_API bool MatchesWildcard(const FString& Wildcard, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase) const;

	// Substrings: counts are clamped to the string, so none of these can go out of range.
	CORE_API FString Left(int32 Count) const;
	CORE_API FString Right(int32 Count) const;
	CORE_API FString Mid(int32 Start, int32 Count = 0x7fffffff) const;
	CORE_API FString LeftChop(int32 Count) const;
	CORE_API FString RightChop(int32 Count) const;
	void LeftInline(int32 Count) { *this = Left(Count); }
	void RightInline(int32 Count) { *this = Right(Count); }
	void MidInline(int32 Start, int32 Count = 0x7fffffff) { *this = Mid(Start, Count); }
	void LeftChopInline(int32 Count) { *this = LeftChop(Count); }
	void RightChopInline(int32 Count) { *this = RightChop(Count); }

	/** Remove a prefix (suffix) if present; true if something was removed. Empty never matches. */
	CORE_API bool RemoveFromStart(const TCHAR* Prefix, int32 PrefixLen, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase);
	CORE_API bool RemoveFromStart(const TCHAR* Prefix, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase);
	CORE_API bool RemoveFromStart(const FString& Prefix, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase);
	CORE_API bool RemoveFromEnd(const TCHAR* Suffix, int32 SuffixLen, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase);
	CORE_API bool RemoveFromEnd(const TCHAR* Suffix, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase);
	CORE_API bool RemoveFromEnd(const FString& Suffix, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase);

	CORE_API FString ToUpper() const;
	CORE_API FString ToLower() const;
	CORE_API void ToUpperInline();
	CORE_API void ToLowerInline();
	CORE_API FString TrimStartAndEnd() const;
	CORE_API FString TrimStart() const;
	CORE_API FString TrimEnd() const;
	CORE_API void TrimStartAndEndInline();
	CORE_API void TrimStartInline();
	CORE_API void TrimEndInline();
	/** Every From replaced by To, left to right without overlaps; an empty From changes nothing. */
	CORE_API FString Replace(const TCHAR* From, const TCHAR* To, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase) const;
	/** As Replace, in place; returns the number of replacements. */
	CORE_API int32 ReplaceInline(const TCHAR* From, const TCHAR* To, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase);
	CORE_API void ReplaceCharInline(TCHAR From, TCHAR To, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase);
	/** Spaces added in front (behind) up to ChCount characters; a longer string is unchanged. */
	CORE_API FString LeftPad(int32 ChCount) const;
	CORE_API FString RightPad(int32 ChCount) const;

	/** Joins with exactly one '/' between the parts; an empty Str only ensures a trailing '/'. */
	CORE_API void PathAppend(const TCHAR* Str, int32 StrLength);
	FString& operator/=(const TCHAR* Str) { PathAppend(Str, FCString::Strlen(Str)); return *this; }
	FString& operator/=(const FString& Str) { PathAppend(*Str, Str.Len()); return *this; }
	friend FString operator/(FString Lhs, const TCHAR* Rhs) { return Lhs /= Rhs; }
	friend FString operator/(FString Lhs, const FString& Rhs) { return Lhs /= Rhs; }

	bool IsNumeric() const { return FCString::IsNumeric(**this); }
	CORE_API static FString FromInt(int32 Value);
	/** Shortest fixed-point text of Value with at least MinFractionalDigits decimals: 1 -> "1.0". */
	CORE_API static FString SanitizeFloat(double Value, int32 MinFractionalDigits = 1);
	static FString Chr(TCHAR Char) { return FString(1, &Char); }
	CORE_API static FString ChrN(int32 Count, TCHAR Char);

	/** The elements of Range, each appended with +=, with Separator between them. */
	template <typename RangeType>
	static FString Join(const RangeType& Range, const TCHAR* Separator)
	{
		FString Result;
		bool bFirst = true;
		for (const auto& Element : Range)
		{
			if (!bFirst)
			{
				Result += Separator;
			}
			Result += Element;
			bFirst = false;
		}
		return Result;
	}

	/**
	 * Splits at every Delim (case-sensitive) into OutArray, a TArray<FString> that is emptied
	 * first; returns the count. An empty string or an empty Delim gives no parts at all.
	 */
	template <typename ArrayType>
	int32 ParseIntoArray(ArrayType& OutArray, const TCHAR* Delim, bool bCullEmpty = true) const
	{
		OutArray.Reset();
		const int32 DelimLen = FCString::Strlen(Delim);
		for (int32 Start = 0; DelimLen > 0 && !IsEmpty() && Start <= Len();)
		{
			int32 Hit = Find(Delim, ESearchCase::CaseSensitive, ESearchDir::FromStart, Start);
			Hit = Hit == INDEX_NONE ? Len() : Hit;
			if (!bCullEmpty || Hit > Start)
			{
				OutArray.Add(Mid(Start, Hit - Start));
			}
			Start = Hit + DelimLen;
		}
		return OutArray.Num();
	}

	friend FString operator+(FString Lhs, const FString& Rhs) { return Lhs.Append(Rhs); }
	friend FString operator+(FString Lhs, const TCHAR* Rhs) { return Lhs.Append(Rhs); }
	friend FString operator+(FString Lhs, TCHAR Rhs) { return Lhs.AppendChar(Rhs); }
	friend FString operator+(const TCHAR* Lhs, const FString& Rhs) { return FString(Lhs).Append(Rhs); }

private:
	// Another string's block to share, or a copy of it when it may not be shared.
	static CORE_API UE::Core::Private::FStringBlock* ShareOrCopy(UE::Core::Private::FStringBlock* Other);
	// Drops one owner of Block, freeing it with the last one.
	static CORE_API void Release(UE::Core::Private::FStringBlock* Block);
	// Makes this string the only owner of a block with room for MinCapacity characters, keeping
	// the text; the characters returned may be written.
	CORE_API TCHAR* Unshare(int32 MinCapacity);
	// The characters for writing through a reference the caller keeps: unshared and unsharable.
	CORE_API TCHAR* WritableChars();
	// Sets the length of an unshared block (Unshare first) and writes its terminator.
	void SetLength(int32 NewLength) { Block->Length = NewLength; Block->Chars()[NewLength] = 0; }

	// The characters and their count, shared with copies; null for a string that never held any.
	UE::Core::Private::FStringBlock* Block = nullptr;
};

/** Case-insensitive, like ==: strings equal ignoring case hash equal. Never allocates. */
CORE_API uint32 GetTypeHash(const FString& String);

#if PLAIN_PLATFORM_INTERNALS
namespace UE::Core::Private
{
	/** The stand-in's: GetTypeHash of the Count characters at Chars, as if they were an FString. */
	CORE_API uint32 HashIgnoringCaseOf(const TCHAR* Chars, int32 Count);
}
#endif

#if PLAIN_PLATFORM_INTERNALS
/** The stand-in's, for its tests and programs: the text written to a narrow stream as UTF-8. */
CORE_API std::ostream& operator<<(std::ostream& Stream, const FString& String);
#endif
