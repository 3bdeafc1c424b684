#pragma once

#include "Containers/UnrealString.h"
#include "HAL/Platform.h"

/** Hard-coded names; the stand-in needs only None, which is also what an empty string makes. */
enum EName : uint32
{
	NAME_None = 0,
};

/** Whether constructing an FName from text may add that text to the name table. */
enum EFindName
{
	FNAME_Find,
	FNAME_Add,
};

/**
 * An interned, case-insensitive name: FName(TEXT("Play")) == FName(TEXT("PLAY")), and both print
 * with the casing the table saw first. Copying and comparing cost one integer; making a name from
 * text takes a lock, so build names once rather than per frame. Safe to use from any thread.
 */
class FName
{
public:
	/** NAME_None. */
	FName() = default;
	FName(EName) {}
	/** A null or empty string, or "None" in any casing, gives NAME_None. */
	CORE_API FName(const TCHAR* Name, EFindName FindType = FNAME_Add);
	CORE_API FName(const ANSICHAR* Name, EFindName FindType = FNAME_Add);
	CORE_API FName(const FString& Name, EFindName FindType = FNAME_Add);

	/** The text with the casing first seen; "None" for NAME_None. */
	CORE_API FString ToString() const;
	void ToString(FString& Out) const { Out = ToString(); }
	void AppendString(FString& Out) const { Out += ToString(); }
	FString GetPlainNameString() const { return ToString(); }

	bool IsNone() const { return Index == 0; }
	bool IsValid() const { return true; }
	uint32 GetComparisonIndex() const { return Index; }

	bool operator==(const FName& Other) const { return Index == Other.Index; }
	bool operator==(EName Other) const { return Other == NAME_None && Index == 0; }
	/** Compares against the text without adding it to the table; ignores case. */
	CORE_API bool operator==(const TCHAR* Other) const;

	/** Alphabetical order ignoring case; stable across runs, unlike FastLess. */
	CORE_API int32 Compare(const FName& Other) const;
	bool LexicalLess(const FName& Other) const { return Compare(Other) < 0; }
	/** Order by table index: cheap, consistent within one run only. */
	bool FastLess(const FName& Other) const { return Index < Other.Index; }

	friend uint32 GetTypeHash(const FName& Name) { return Name.Index * 0x9E3779B1u; }

private:
	// Slot in the process-wide name table; 0 is None.
	uint32 Index = 0;
};
