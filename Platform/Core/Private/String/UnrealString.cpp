#include "Containers/UnrealString.h"

#include "String/StringCompare.h"
#include "String/Utf8Codec.h"

#include <cstring>
#include <cwchar>

using UE::Core::Private::CompareRanges;
using UE::Core::Private::RangesEqual;

namespace
{
	// Length of Text, reading no further than MaxLen characters.
	int32 BoundedLength(const TCHAR* Text, int32 MaxLen)
	{
		int32 Length = 0;
		while (Length < MaxLen && Text[Length] != 0)
		{
			++Length;
		}
		return Length;
	}
}

FString::FString(const TCHAR* Text)
{
	if (Text)
	{
		Data.assign(Text);
	}
}

FString::FString(const ANSICHAR* Text)
{
	if (Text)
	{
		UE::Core::Private::AppendUtf8AsWide(Data, Text, std::strlen(Text));
	}
}

FString::FString(int32 Len, const TCHAR* Text)
{
	if (Text && Len > 0)
	{
		Data.assign(Text, static_cast<SIZE_T>(BoundedLength(Text, Len)));
	}
}

FString::FString(int32 Len, const ANSICHAR* Text)
{
	if (Text && Len > 0)
	{
		UE::Core::Private::AppendUtf8AsWide(Data, Text, strnlen(Text, static_cast<SIZE_T>(Len)));
	}
}

FString& FString::operator=(const TCHAR* Text)
{
	// Text may point into this string, so build the new value before replacing the old one.
	std::wstring Copy(Text ? Text : L"");
	Data.swap(Copy);
	return *this;
}

FString FString::FromUTF8(const ANSICHAR* Bytes, int32 Len)
{
	FString Result;
	if (Bytes && Len > 0)
	{
		UE::Core::Private::AppendUtf8AsWide(Result.Data, Bytes, static_cast<SIZE_T>(Len));
	}
	return Result;
}

void FString::Empty(int32 Slack)
{
	std::wstring Fresh;
	Fresh.reserve(static_cast<SIZE_T>(Slack > 0 ? Slack : 0));
	Data.swap(Fresh);
}

void FString::Reset(int32 NewReservedSize)
{
	Data.clear();
	Reserve(NewReservedSize);
}

void FString::Reserve(int32 CharacterCount)
{
	if (CharacterCount > 0)
	{
		Data.reserve(static_cast<SIZE_T>(CharacterCount));
	}
}

FString& FString::Append(const TCHAR* Text, int32 Count)
{
	if (Text && Count > 0)
	{
		Data.append(Text, static_cast<SIZE_T>(BoundedLength(Text, Count)));
	}
	return *this;
}

FString& FString::Append(const TCHAR* Text)
{
	if (Text)
	{
		Data.append(Text);
	}
	return *this;
}

FString& FString::AppendInt(int32 Value)
{
	return Append(FromInt(Value));
}

void FString::InsertAt(int32 Index, TCHAR Char)
{
	check(Index >= 0 && Index <= Len());
	Data.insert(static_cast<SIZE_T>(Index), 1, Char);
}

void FString::InsertAt(int32 Index, const FString& Text)
{
	check(Index >= 0 && Index <= Len());
	Data.insert(static_cast<SIZE_T>(Index), Text.Data);
}

void FString::RemoveAt(int32 Index, int32 Count)
{
	if (Index < 0 || Index >= Len() || Count <= 0)
	{
		return;
	}
	Data.erase(static_cast<SIZE_T>(Index), static_cast<SIZE_T>(Count));
}

bool FString::Equals(const FString& Other, ESearchCase::Type SearchCase) const
{
	return Len() == Other.Len() && RangesEqual(Data.data(), Other.Data.data(), Len(), SearchCase);
}

int32 FString::Compare(const FString& Other, ESearchCase::Type SearchCase) const
{
	return CompareRanges(Data.data(), Len(), Other.Data.data(), Other.Len(), SearchCase);
}

bool FString::StartsWith(const TCHAR* Prefix, ESearchCase::Type SearchCase) const
{
	const int32 PrefixLen = FCString::Strlen(Prefix);
	return PrefixLen > 0 && PrefixLen <= Len() && RangesEqual(Data.data(), Prefix, PrefixLen, SearchCase);
}

bool FString::StartsWith(const FString& Prefix, ESearchCase::Type SearchCase) const
{
	return !Prefix.IsEmpty() && Prefix.Len() <= Len() && RangesEqual(Data.data(), *Prefix, Prefix.Len(), SearchCase);
}

bool FString::EndsWith(const TCHAR* Suffix, ESearchCase::Type SearchCase) const
{
	const int32 SuffixLen = FCString::Strlen(Suffix);
	return SuffixLen > 0 && SuffixLen <= Len() && RangesEqual(Data.data() + Len() - SuffixLen, Suffix, SuffixLen, SearchCase);
}

bool FString::EndsWith(const FString& Suffix, ESearchCase::Type SearchCase) const
{
	return EndsWith(*Suffix, SearchCase);
}

int32 FString::Find(const TCHAR* SubStr, ESearchCase::Type SearchCase, ESearchDir::Type SearchDir, int32 StartPosition) const
{
	const int32 SubLen = FCString::Strlen(SubStr);
	if (SubLen == 0 || SubLen > Len())
	{
		return INDEX_NONE;
	}
	const int32 LastStart = Len() - SubLen;
	if (SearchDir == ESearchDir::FromStart)
	{
		const int32 First = StartPosition == INDEX_NONE || StartPosition < 0 ? 0 : StartPosition;
		for (int32 Index = First; Index <= LastStart; ++Index)
		{
			if (RangesEqual(Data.data() + Index, SubStr, SubLen, SearchCase))
			{
				return Index;
			}
		}
		return INDEX_NONE;
	}
	const int32 End = StartPosition == INDEX_NONE || StartPosition > Len() ? Len() : StartPosition;
	for (int32 Index = End - SubLen; Index >= 0; --Index)
	{
		if (RangesEqual(Data.data() + Index, SubStr, SubLen, SearchCase))
		{
			return Index;
		}
	}
	return INDEX_NONE;
}

int32 FString::Find(const FString& SubStr, ESearchCase::Type SearchCase, ESearchDir::Type SearchDir, int32 StartPosition) const
{
	return Find(*SubStr, SearchCase, SearchDir, StartPosition);
}

bool FString::FindChar(TCHAR Char, int32& OutIndex) const
{
	const SIZE_T Pos = Data.find(Char);
	OutIndex = Pos == std::wstring::npos ? INDEX_NONE : static_cast<int32>(Pos);
	return OutIndex != INDEX_NONE;
}

bool FString::FindLastChar(TCHAR Char, int32& OutIndex) const
{
	const SIZE_T Pos = Data.rfind(Char);
	OutIndex = Pos == std::wstring::npos ? INDEX_NONE : static_cast<int32>(Pos);
	return OutIndex != INDEX_NONE;
}

bool FString::Split(const FString& InS, FString* LeftS, FString* RightS, ESearchCase::Type SearchCase, ESearchDir::Type SearchDir) const
{
	const int32 Pos = Find(InS, SearchCase, SearchDir);
	if (Pos == INDEX_NONE)
	{
		return false;
	}
	// Either output may be this very string: take both parts before writing one.
	FString LeftPart = Left(Pos);
	FString RightPart = Mid(Pos + InS.Len());
	if (LeftS)
	{
		*LeftS = static_cast<FString&&>(LeftPart);
	}
	if (RightS)
	{
		*RightS = static_cast<FString&&>(RightPart);
	}
	return true;
}

bool FString::MatchesWildcard(const FString& Wildcard, ESearchCase::Type SearchCase) const
{
	// Greedy match that remembers the last '*' and retries from one character further on a
	// mismatch: linear in practice, and never recursive however many stars there are.
	const TCHAR* Text = Data.data();
	const TCHAR* Pattern = *Wildcard;
	const int32 TextLen = Len();
	const int32 PatternLen = Wildcard.Len();
	int32 T = 0;
	int32 P = 0;
	int32 StarP = INDEX_NONE;
	int32 StarT = 0;
	while (T < TextLen)
	{
		if (P < PatternLen && Pattern[P] == '*')
		{
			StarP = P++;
			StarT = T;
		}
		else if (P < PatternLen && (Pattern[P] == '?' || RangesEqual(Text + T, Pattern + P, 1, SearchCase)))
		{
			++T;
			++P;
		}
		else if (StarP != INDEX_NONE)
		{
			P = StarP + 1;
			T = ++StarT;
		}
		else
		{
			return false;
		}
	}
	while (P < PatternLen && Pattern[P] == '*')
	{
		++P;
	}
	return P == PatternLen;
}

uint32 GetTypeHash(const FString& String)
{
	return UE::Core::Private::HashIgnoringCase(*String, String.Len());
}
