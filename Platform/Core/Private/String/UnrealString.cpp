#include "Containers/UnrealString.h"

#include "String/StringCompare.h"
#include "String/Utf8Codec.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <ostream>
#include <string>

using UE::Core::Private::CompareRanges;
using UE::Core::Private::RangesEqual;

namespace
{
	using UE::Core::Private::FStringBlock;

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

	// A block with room for Capacity characters, one owner and an empty text.
	FStringBlock* AllocateBlock(int32 Capacity)
	{
		check(Capacity >= 0 && Capacity < (1 << 30));
		void* Memory = ::operator new(sizeof(FStringBlock) + (static_cast<SIZE_T>(Capacity) + 1) * sizeof(TCHAR));
		FStringBlock* Block = new (Memory) FStringBlock{{1}, 0, Capacity};
		Block->Chars()[0] = 0;
		return Block;
	}

	// Room for a string about to grow to Needed characters: half as much again as it has, so that
	// appending one character at a time stays linear.
	int32 GrownCapacity(int32 Current, int32 Needed)
	{
		const int64 Grown = static_cast<int64>(Current) + Current / 2 + 8;
		return static_cast<int32>(std::max<int64>(Needed, std::min<int64>(Grown, (1 << 30) - 1)));
	}
}

FStringBlock* FString::ShareOrCopy(FStringBlock* Other)
{
	if (!Other)
	{
		return nullptr;
	}
	if (Other->RefCount.load(std::memory_order_relaxed) != FStringBlock::UnsharableCount)
	{
		Other->RefCount.fetch_add(1, std::memory_order_relaxed);
		return Other;
	}
	FStringBlock* Copy = AllocateBlock(Other->Length);
	std::memcpy(Copy->Chars(), Other->Chars(), (static_cast<SIZE_T>(Other->Length) + 1) * sizeof(TCHAR));
	Copy->Length = Other->Length;
	return Copy;
}

void FString::Release(FStringBlock* Block)
{
	if (!Block)
	{
		return;
	}
	// The last owner frees the block; acquire-release so that every write another owner made
	// before letting go happens before the memory is reused.
	if (Block->RefCount.load(std::memory_order_relaxed) == FStringBlock::UnsharableCount
		|| Block->RefCount.fetch_sub(1, std::memory_order_acq_rel) == 1)
	{
		Block->~FStringBlock();
		::operator delete(Block);
	}
}

TCHAR* FString::Unshare(int32 MinCapacity)
{
	const bool bOwnedAlone = Block
		&& (Block->RefCount.load(std::memory_order_acquire) == 1 || Block->RefCount.load(std::memory_order_relaxed) == FStringBlock::UnsharableCount);
	if (bOwnedAlone && Block->Capacity >= MinCapacity)
	{
		return Block->Chars();
	}
	const int32 Length = Len();
	FStringBlock* Fresh = AllocateBlock(bOwnedAlone ? GrownCapacity(Block->Capacity, MinCapacity) : std::max(MinCapacity, Length));
	if (Block)
	{
		std::memcpy(Fresh->Chars(), Block->Chars(), (static_cast<SIZE_T>(Length) + 1) * sizeof(TCHAR));
		Fresh->Length = Length;
	}
	Release(Block);
	Block = Fresh;
	return Block->Chars();
}

TCHAR* FString::WritableChars()
{
	TCHAR* Chars = Unshare(Len());
	Block->RefCount.store(FStringBlock::UnsharableCount, std::memory_order_relaxed);
	return Chars;
}

FString::FString(const TCHAR* Text)
	: FString(Text ? FCString::Strlen(Text) : 0, Text)
{
}

FString::FString(const ANSICHAR* Text)
	: FString(Text ? static_cast<int32>(std::strlen(Text)) : 0, Text)
{
}

FString::FString(int32 Len, const TCHAR* Text)
{
	Append(Text, Len);
}

FString::FString(int32 Len, const ANSICHAR* Text)
{
	if (Text && Len > 0)
	{
		*this = FromUTF8(Text, static_cast<int32>(strnlen(Text, static_cast<SIZE_T>(Len))));
	}
}

FString& FString::operator=(const TCHAR* Text)
{
	// Text may point into this string, so build the new value before replacing the old one.
	FString Copy(Text);
	return *this = static_cast<FString&&>(Copy);
}

FString FString::FromUTF8(const ANSICHAR* Bytes, int32 Len)
{
	FString Result;
	if (Bytes && Len > 0)
	{
		// Counted first, so that a large document of three-byte characters (CJK) takes exactly the
		// room it needs and not one unit per byte.
		const int32 Units = UE::Core::Private::CountUtf8AsTchars(Bytes, static_cast<SIZE_T>(Len));
		TCHAR* Chars = Result.Unshare(Units);
		Result.SetLength(UE::Core::Private::DecodeUtf8(Bytes, static_cast<SIZE_T>(Len), Chars));
	}
	return Result;
}

void FString::Empty(int32 Slack)
{
	Release(Block);
	Block = Slack > 0 ? AllocateBlock(Slack) : nullptr;
}

void FString::Reset(int32 NewReservedSize)
{
	if (Block && Block->RefCount.load(std::memory_order_acquire) == 1 && Block->Capacity >= NewReservedSize)
	{
		SetLength(0);
		return;
	}
	Empty(NewReservedSize);
}

void FString::Reserve(int32 CharacterCount)
{
	if (CharacterCount > 0 && (!Block || Block->Capacity < CharacterCount))
	{
		Unshare(CharacterCount);
	}
}

void FString::Shrink()
{
	if (Block && Block->Length < Block->Capacity)
	{
		FString Exact(Len(), **this);
		*this = static_cast<FString&&>(Exact);
	}
}

FString& FString::Append(const TCHAR* Text, int32 Count)
{
	if (!Text || Count <= 0)
	{
		return *this;
	}
	Count = BoundedLength(Text, Count);
	if (Count == 0)
	{
		return *this;
	}
	// Text may point into this very string, whose block Unshare may replace.
	if (Block && Text >= Block->Chars() && Text <= Block->Chars() + Block->Length)
	{
		const FString Copy(Count, Text);
		return Append(*Copy, Count);
	}
	const int32 Length = Len();
	TCHAR* Chars = Unshare(Length + Count);
	std::memcpy(Chars + Length, Text, static_cast<SIZE_T>(Count) * sizeof(TCHAR));
	SetLength(Length + Count);
	return *this;
}

FString& FString::Append(const TCHAR* Text)
{
	return Text ? Append(Text, FCString::Strlen(Text)) : *this;
}

FString& FString::Append(const FString& Text)
{
	if (IsEmpty() && Block == nullptr)
	{
		// Appending to nothing is a copy, and a copy shares.
		return *this = Text;
	}
	return Append(*Text, Text.Len());
}

FString& FString::AppendChar(TCHAR Char)
{
	if (Char == 0)
	{
		return *this;
	}
	const int32 Length = Len();
	TCHAR* Chars = Unshare(Length + 1);
	Chars[Length] = Char;
	SetLength(Length + 1);
	return *this;
}

FString& FString::AppendInt(int32 Value)
{
	return Append(FromInt(Value));
}

void FString::InsertAt(int32 Index, TCHAR Char)
{
	check(Index >= 0 && Index <= Len());
	InsertAt(Index, Chr(Char));
}

void FString::InsertAt(int32 Index, const FString& Text)
{
	check(Index >= 0 && Index <= Len());
	if (Text.IsEmpty())
	{
		return;
	}
	// Text may be this string: keep a reference on its characters while they move.
	const FString Insertion(Text);
	const int32 Length = Len();
	TCHAR* Chars = Unshare(Length + Insertion.Len());
	std::memmove(Chars + Index + Insertion.Len(), Chars + Index, static_cast<SIZE_T>(Length - Index) * sizeof(TCHAR));
	std::memcpy(Chars + Index, *Insertion, static_cast<SIZE_T>(Insertion.Len()) * sizeof(TCHAR));
	SetLength(Length + Insertion.Len());
}

void FString::RemoveAt(int32 Index, int32 Count)
{
	if (Index < 0 || Index >= Len() || Count <= 0)
	{
		return;
	}
	const int32 Length = Len();
	const int32 Removed = std::min(Count, Length - Index);
	TCHAR* Chars = Unshare(Length);
	std::memmove(Chars + Index, Chars + Index + Removed, static_cast<SIZE_T>(Length - Index - Removed) * sizeof(TCHAR));
	SetLength(Length - Removed);
}

bool FString::Equals(const FString& Other, ESearchCase::Type SearchCase) const
{
	const int32 Length = Len();
	if (Length != Other.Len())
	{
		return false;
	}
	// Copies share their characters, and then there is nothing to compare.
	return Length == 0 || Block == Other.Block || RangesEqual(Block->Chars(), Other.Block->Chars(), Length, SearchCase);
}

int32 FString::Compare(const FString& Other, ESearchCase::Type SearchCase) const
{
	if (Block == Other.Block)
	{
		return 0;
	}
	return CompareRanges(**this, Len(), *Other, Other.Len(), SearchCase);
}

bool FString::StartsWith(const TCHAR* Prefix, ESearchCase::Type SearchCase) const
{
	const int32 PrefixLen = FCString::Strlen(Prefix);
	return PrefixLen > 0 && PrefixLen <= Len() && RangesEqual(**this, Prefix, PrefixLen, SearchCase);
}

bool FString::StartsWith(const FString& Prefix, ESearchCase::Type SearchCase) const
{
	return !Prefix.IsEmpty() && Prefix.Len() <= Len() && RangesEqual(**this, *Prefix, Prefix.Len(), SearchCase);
}

bool FString::EndsWith(const TCHAR* Suffix, ESearchCase::Type SearchCase) const
{
	const int32 SuffixLen = FCString::Strlen(Suffix);
	return SuffixLen > 0 && SuffixLen <= Len() && RangesEqual(**this + Len() - SuffixLen, Suffix, SuffixLen, SearchCase);
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
			if (RangesEqual(**this + Index, SubStr, SubLen, SearchCase))
			{
				return Index;
			}
		}
		return INDEX_NONE;
	}
	const int32 End = StartPosition == INDEX_NONE || StartPosition > Len() ? Len() : StartPosition;
	for (int32 Index = End - SubLen; Index >= 0; --Index)
	{
		if (RangesEqual(**this + Index, SubStr, SubLen, SearchCase))
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
	const TCHAR* Found = std::find(begin(), end(), Char);
	OutIndex = Found == end() ? INDEX_NONE : static_cast<int32>(Found - begin());
	return OutIndex != INDEX_NONE;
}

bool FString::FindLastChar(TCHAR Char, int32& OutIndex) const
{
	OutIndex = INDEX_NONE;
	for (int32 Index = Len() - 1; Index >= 0; --Index)
	{
		if ((**this)[Index] == Char)
		{
			OutIndex = Index;
			break;
		}
	}
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
	const TCHAR* Text = **this;
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
	return String.IsEmpty() ? UE::Core::Private::HashIgnoringCase(nullptr, 0) : UE::Core::Private::HashIgnoringCase(String.begin(), String.Len());
}

uint32 UE::Core::Private::HashIgnoringCaseOf(const TCHAR* Chars, int32 Count)
{
	return HashIgnoringCase(Chars, Count);
}

std::ostream& operator<<(std::ostream& Stream, const FString& String)
{
	std::string Utf8;
	UE::Core::Private::AppendTcharAsUtf8(Utf8, *String, static_cast<SIZE_T>(String.Len()));
	return Stream << Utf8;
}
