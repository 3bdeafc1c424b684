#include "UObject/NameTypes.h"

#include "String/StringCompare.h"

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
}

FName::FName(const TCHAR* Name, EFindName FindType)
	: Index(Intern(Name, FCString::Strlen(Name), FindType))
{
}

FName::FName(const ANSICHAR* Name, EFindName FindType)
	: FName(FString(Name), FindType)
{
}

FName::FName(const FString& Name, EFindName FindType)
	: Index(Intern(*Name, Name.Len(), FindType))
{
}

FString FName::ToString() const
{
	return FNameTable::Get().GetText(Index);
}

bool FName::operator==(const TCHAR* Other) const
{
	return FCString::Stricmp(*ToString(), Other ? Other : TEXT("None")) == 0 || (IsNone() && FCString::Strlen(Other) == 0);
}

int32 FName::Compare(const FName& Other) const
{
	if (Index == Other.Index)
	{
		return 0;
	}
	const FString Mine = ToString();
	const FString Theirs = Other.ToString();
	return UE::Core::Private::CompareRanges(*Mine, Mine.Len(), *Theirs, Theirs.Len(), ESearchCase::IgnoreCase);
}
