// FString's substring, trimming, replacing, padding, path and number helpers.

#include "Containers/UnrealString.h"

#include "String/StringCompare.h"

#include <algorithm>
#include <charconv>
#include <cmath>

using UE::Core::Private::RangesEqual;

namespace
{
	bool IsPathSeparator(TCHAR Char)
	{
		return Char == '/' || Char == '\\';
	}

	int32 ClampCount(int32 Count, int32 Max)
	{
		return std::clamp(Count, 0, Max);
	}
}

FString FString::Left(int32 Count) const
{
	return FString(ClampCount(Count, Len()), **this);
}

FString FString::Right(int32 Count) const
{
	const int32 Take = ClampCount(Count, Len());
	return FString(Take, **this + (Len() - Take));
}

FString FString::Mid(int32 Start, int32 Count) const
{
	// Work in int64 so Start + Count cannot overflow when Count is the "to the end" default.
	const int64 First = std::clamp<int64>(Start, 0, Len());
	const int64 Last = std::clamp<int64>(static_cast<int64>(Start) + std::max(Count, 0), First, Len());
	return FString(static_cast<int32>(Last - First), **this + First);
}

FString FString::LeftChop(int32 Count) const
{
	return Left(Len() - ClampCount(Count, Len()));
}

FString FString::RightChop(int32 Count) const
{
	return Right(Len() - ClampCount(Count, Len()));
}

bool FString::RemoveFromStart(const TCHAR* Prefix, int32 PrefixLen, ESearchCase::Type SearchCase)
{
	if (!Prefix || PrefixLen <= 0 || PrefixLen > Len() || !RangesEqual(**this, Prefix, PrefixLen, SearchCase))
	{
		return false;
	}
	RemoveAt(0, PrefixLen);
	return true;
}

bool FString::RemoveFromStart(const TCHAR* Prefix, ESearchCase::Type SearchCase)
{
	return RemoveFromStart(Prefix, FCString::Strlen(Prefix), SearchCase);
}

bool FString::RemoveFromStart(const FString& Prefix, ESearchCase::Type SearchCase)
{
	return RemoveFromStart(*Prefix, Prefix.Len(), SearchCase);
}

bool FString::RemoveFromEnd(const TCHAR* Suffix, int32 SuffixLen, ESearchCase::Type SearchCase)
{
	if (!Suffix || SuffixLen <= 0 || SuffixLen > Len() || !RangesEqual(**this + Len() - SuffixLen, Suffix, SuffixLen, SearchCase))
	{
		return false;
	}
	RemoveAt(Len() - SuffixLen, SuffixLen);
	return true;
}

bool FString::RemoveFromEnd(const TCHAR* Suffix, ESearchCase::Type SearchCase)
{
	return RemoveFromEnd(Suffix, FCString::Strlen(Suffix), SearchCase);
}

bool FString::RemoveFromEnd(const FString& Suffix, ESearchCase::Type SearchCase)
{
	return RemoveFromEnd(*Suffix, Suffix.Len(), SearchCase);
}

FString FString::ToUpper() const
{
	FString Result(*this);
	Result.ToUpperInline();
	return Result;
}

FString FString::ToLower() const
{
	FString Result(*this);
	Result.ToLowerInline();
	return Result;
}

void FString::ToUpperInline()
{
	if (IsEmpty())
	{
		return;
	}
	TCHAR* Chars = Unshare(Len());
	for (int32 Index = 0; Index < Len(); ++Index)
	{
		Chars[Index] = FChar::ToUpper(Chars[Index]);
	}
}

void FString::ToLowerInline()
{
	if (IsEmpty())
	{
		return;
	}
	TCHAR* Chars = Unshare(Len());
	for (int32 Index = 0; Index < Len(); ++Index)
	{
		Chars[Index] = FChar::ToLower(Chars[Index]);
	}
}

FString FString::TrimStartAndEnd() const
{
	return TrimStart().TrimEnd();
}

FString FString::TrimStart() const
{
	int32 First = 0;
	while (First < Len() && FChar::IsWhitespace((**this)[First]))
	{
		++First;
	}
	return RightChop(First);
}

FString FString::TrimEnd() const
{
	int32 End = Len();
	while (End > 0 && FChar::IsWhitespace((**this)[End - 1]))
	{
		--End;
	}
	return Left(End);
}

void FString::TrimStartAndEndInline()
{
	*this = TrimStartAndEnd();
}

void FString::TrimStartInline()
{
	*this = TrimStart();
}

void FString::TrimEndInline()
{
	*this = TrimEnd();
}

FString FString::Replace(const TCHAR* From, const TCHAR* To, ESearchCase::Type SearchCase) const
{
	FString Result(*this);
	Result.ReplaceInline(From, To, SearchCase);
	return Result;
}

int32 FString::ReplaceInline(const TCHAR* From, const TCHAR* To, ESearchCase::Type SearchCase)
{
	const int32 FromLen = FCString::Strlen(From);
	if (FromLen == 0 || IsEmpty())
	{
		return 0;
	}
	// From and To may point into this string; copy To before the text changes.
	const FString Replacement(To);
	FString Result;
	int32 Count = 0;
	int32 Start = 0;
	for (int32 Hit = Find(From, SearchCase, ESearchDir::FromStart, 0); Hit != INDEX_NONE; Hit = Find(From, SearchCase, ESearchDir::FromStart, Start))
	{
		Result.Append(**this + Start, Hit - Start);
		Result.Append(Replacement);
		Start = Hit + FromLen;
		++Count;
	}
	if (Count > 0)
	{
		Result.Append(**this + Start, Len() - Start);
		*this = static_cast<FString&&>(Result);
	}
	return Count;
}

void FString::ReplaceCharInline(TCHAR From, TCHAR To, ESearchCase::Type SearchCase)
{
	for (int32 Index = 0; Index < Len(); ++Index)
	{
		// Shared text is copied only once something is replaced.
		if (RangesEqual(**this + Index, &From, 1, SearchCase))
		{
			Unshare(Len())[Index] = To;
		}
	}
}

FString FString::LeftPad(int32 ChCount) const
{
	const int32 Pad = ChCount - Len();
	return Pad > 0 ? ChrN(Pad, ' ') + *this : *this;
}

FString FString::RightPad(int32 ChCount) const
{
	const int32 Pad = ChCount - Len();
	return Pad > 0 ? *this + ChrN(Pad, ' ') : *this;
}

void FString::PathAppend(const TCHAR* Str, int32 StrLength)
{
	// Str may point into this string, so take the part to add first.
	const FString Addition(Str ? StrLength : 0, Str);
	if (IsEmpty())
	{
		*this = Addition;
		return;
	}
	// Drop the separators on both sides of the join and put exactly one back; a lone root "/"
	// is itself the separator.
	int32 Keep = Len();
	while (Keep > 1 && IsPathSeparator((**this)[Keep - 1]))
	{
		--Keep;
	}
	RemoveAt(Keep, Len() - Keep);
	int32 Skip = 0;
	while (Skip < Addition.Len() && IsPathSeparator(Addition[Skip]))
	{
		++Skip;
	}
	if (!IsPathSeparator((**this)[Len() - 1]))
	{
		AppendChar('/');
	}
	Append(*Addition + Skip, Addition.Len() - Skip);
}

FString FString::FromInt(int32 Value)
{
	char Buffer[16];
	const std::to_chars_result Result = std::to_chars(Buffer, Buffer + sizeof(Buffer), Value);
	return FString(static_cast<int32>(Result.ptr - Buffer), Buffer);
}

FString FString::SanitizeFloat(double Value, int32 MinFractionalDigits)
{
	if (!std::isfinite(Value))
	{
		return FString(std::isnan(Value) ? "nan" : (Value > 0 ? "inf" : "-inf"));
	}
	// Six decimals as %f gives them, then trailing zeros trimmed down to the minimum; to_chars
	// is locale-independent, so a comma never appears here.
	char Buffer[400];
	const std::to_chars_result Result = std::to_chars(Buffer, Buffer + sizeof(Buffer), Value, std::chars_format::fixed, 6);
	FString Text(static_cast<int32>(Result.ptr - Buffer), Buffer);
	const int32 Dot = Text.Find(TEXT("."));
	const int32 MinDigits = std::clamp(MinFractionalDigits, 0, 6);
	int32 End = Text.Len();
	while (End > Dot + 1 + MinDigits && Text[End - 1] == '0')
	{
		--End;
	}
	if (End == Dot + 1)
	{
		End = Dot;
	}
	return Text.Left(End);
}

FString FString::ChrN(int32 Count, TCHAR Char)
{
	FString Result;
	if (Count > 0)
	{
		Result.Reserve(Count);
		for (int32 Index = 0; Index < Count; ++Index)
		{
			Result.AppendChar(Char);
		}
	}
	return Result;
}
