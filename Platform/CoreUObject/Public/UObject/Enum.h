#pragma once

// UEnum: a reflected enumeration's names and values, found with StaticEnum<EType>().

#include "UObject/Class.h"

class COREUOBJECT_API UEnum : public UField
{
public:
	using Super = UField;
	using ThisClass = UEnum;
	static UClass* StaticClass();
	using UField::UField;

	int32 NumEnums() const { return Names.Num(); }
	/** The full name of entry Index, e.g. "EFoo::Bar" for an enum class. */
	FName GetNameByIndex(int32 Index) const;
	int64 GetValueByIndex(int32 Index) const;
	/** The entry's name without its "EFoo::" prefix, or an empty string when no entry has the value. */
	FString GetNameStringByValue(int64 Value) const;
	/** Accepts the full or the short name, ignoring case; INDEX_NONE when absent. */
	int64 GetValueByNameString(const FString& Name) const;
	FString GetMetaData(const TCHAR* Key, int32 Index) const;

	void AddEntry(const TCHAR* Name, int64 Value);
	void SetEntryMetaData(int32 Index, const TCHAR* Key, const TCHAR* Value);

private:
	TArray<FName> Names;
	TArray<int64> Values;
	TArray<TMap<FString, FString>> EntryMetaData;
};

/** The UEnum of a reflected enumeration; the header tool specialises it for each UENUM. */
template<class TEnum>
UEnum* StaticEnum();
