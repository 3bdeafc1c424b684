#include "UObject/NameTypes.h"

#include "String/StringCompare.h"

#include <cstdint>
#include <deque>
#include <mutex>
#include <shared_mutex>
#include <string>
#include <unordered_map>

namespace
{
	/**
	 * The process-wide name table. Entries are never removed, so an FName's index stays valid for
	 * the life of the process. Readers take the lock shared, the first sight of a name takes it
	 * exclusively.
	 */
	class FNameTable
	{
	public:
		static FNameTable& Get()
		{
			// Never destroyed: names may be printed from static destructors in any module.
			static FNameTable* Table = new FNameTable();
			return *Table;
		}

		// Returns the index for Text, adding it when allowed; INDEX_NONE when absent and not added.
		int64 FindOrAdd(const TCHAR* Text, int32 Length, bool bAdd)
		{
			std::u16string Key(Text, static_cast<SIZE_T>(Length));
			for (TCHAR& Char : Key)
			{
				Char = FChar::ToLower(Char);
			}
			{
				std::shared_lock Lock(Mutex);
				const auto Found = IndexByKey.find(Key);
				if (Found != IndexByKey.end())
				{
					return Found->second;
				}
			}
			if (!bAdd)
			{
				return INDEX_NONE;
			}
			std::unique_lock Lock(Mutex);
			// Another thread may have added it between the two locks.
			const auto [Where, bInserted] = IndexByKey.emplace(std::move(Key), static_cast<uint32>(Entries.size()));
			if (bInserted)
			{
				Entries.emplace_back(Length, Text);
			}
			return Where->second;
		}

		FString GetText(uint32 Index)
		{
			std::shared_lock Lock(Mutex);
			return Index < Entries.size() ? Entries[Index] : FString(TEXT("None"));
		}

	private:
		FNameTable()
		{
			IndexByKey.emplace(u"none", 0u);
			Entries.emplace_back(TEXT("None"));
		}

		// Guards both members below.
		std::shared_mutex Mutex;
		// Lower-cased text to index: the case-insensitive identity of a name.
		std::unordered_map<std::u16string, uint32> IndexByKey;
		// Display text by index, as first seen.
		std::deque<FString> Entries;
	};

	uint32 Intern(const TCHAR* Text, int32 Length, EFindName FindType)
	{
		if (!Text || Length <= 0)
		{
			return 0;
		}
		const int64 Found = FNameTable::Get().FindOrAdd(Text, Length, FindType == FNAME_Add);
		return Found == INDEX_NONE ? 0u : static_cast<uint32>(Found);
	}

	/**
	 * Splits "Text_N" into "Text" and N + 1 when N is a plain decimal (no sign, no leading zero
	 * but for "0" itself) that fits; otherwise the whole text is the name and the number is none.
	 */
	uint32 SplitNumber(const TCHAR* Text, int32& InOutLength)
	{
		int32 Digits = 0;
		while (Digits < InOutLength && Text[InOutLength - 1 - Digits] >= TEXT('0') && Text[InOutLength - 1 - Digits] <= TEXT('9'))
		{
			++Digits;
		}
		const int32 Underscore = InOutLength - 1 - Digits;
		if (Digits == 0 || Digits > 10 || Underscore < 1 || Text[Underscore] != TEXT('_') || (Digits > 1 && Text[Underscore + 1] == TEXT('0')))
		{
			return NAME_NO_NUMBER_INTERNAL;
		}
		int64 Value = 0;
		for (int32 Index = Underscore + 1; Index < InOutLength; ++Index)
		{
			Value = Value * 10 + (Text[Index] - TEXT('0'));
		}
		if (Value >= INT32_MAX)
		{
			return NAME_NO_NUMBER_INTERNAL;
		}
		InOutLength = Underscore;
		return static_cast<uint32>(NAME_EXTERNAL_TO_INTERNAL(Value));
	}
}

FName::FName(const TCHAR* Name, EFindName FindType)
{
	int32 Length = Name ? FCString::Strlen(Name) : 0;
	const uint32 Split = Name ? SplitNumber(Name, Length) : NAME_NO_NUMBER_INTERNAL;
	Index = Intern(Name, Length, FindType);
	// A number on a name that was not found (FNAME_Find) stays none with it.
	Number = Index != 0 ? Split : NAME_NO_NUMBER_INTERNAL;
}

FName::FName(const ANSICHAR* Name, EFindName FindType)
	: FName(FString(Name), FindType)
{
}

FName::FName(const FString& Name, EFindName FindType)
	: FName(*Name, FindType)
{
}

FName::FName(const TCHAR* Name, int32 InNumber)
	: Index(Intern(Name, Name ? FCString::Strlen(Name) : 0, FNAME_Add))
	, Number(static_cast<uint32>(InNumber))
{
}

FString FName::GetPlainNameString() const
{
	return FNameTable::Get().GetText(Index);
}

FString FName::ToString() const
{
	if (Number == NAME_NO_NUMBER_INTERNAL)
	{
		return GetPlainNameString();
	}
	return FString::Printf(TEXT("%s_%d"), *GetPlainNameString(), NAME_INTERNAL_TO_EXTERNAL(static_cast<int32>(Number)));
}

bool FName::operator==(const TCHAR* Other) const
{
	return FCString::Stricmp(*ToString(), Other ? Other : TEXT("None")) == 0 || (IsNone() && FCString::Strlen(Other) == 0);
}

int32 FName::Compare(const FName& Other) const
{
	if (Index == Other.Index)
	{
		return Number == Other.Number ? 0 : (Number < Other.Number ? -1 : 1);
	}
	const FString Mine = GetPlainNameString();
	const FString Theirs = Other.GetPlainNameString();
	return UE::Core::Private::CompareRanges(*Mine, Mine.Len(), *Theirs, Theirs.Len(), ESearchCase::IgnoreCase);
}
