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

/** FName keeps a number apart from its text; 0 in the number means "none", so Foo_0 stores 1. */
#define NAME_NO_NUMBER_INTERNAL 0
#define NAME_EXTERNAL_TO_INTERNAL(x) ((x) + 1)
#define NAME_INTERNAL_TO_EXTERNAL(x) ((x) - 1)

/**
 * An interned, case-insensitive name: FName(TEXT("Play")) == FName(TEXT("PLAY")), and both print
 * with the casing the table saw first. A trailing "_<number>" (no leading zero) is kept apart as
 * the name's number, as the engine does, so the table holds "Node" once however many Node_N
 * objects a long run makes. Copying and comparing cost two integers; making a name from text
 * takes a lock, so build names once rather than per frame. Safe to use from any thread.
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
	/** Name's text with InNumber as its number (internal: 0 for none, N + 1 for "_N"). */
	CORE_API FName(const TCHAR* Name, int32 InNumber);
	/** Other's text with InNumber as its number (internal: 0 for none, N + 1 for "_N"). */
	FName(FName Other, int32 InNumber)
		: Index(Other.Index)
		, Number(static_cast<uint32>(InNumber))
	{
	}

	/** The text with the casing first seen, and "_N" for a number; "None" for NAME_None. */
	CORE_API FString ToString() const;
	void ToString(FString& Out) const { Out = ToString(); }
	void AppendString(FString& Out) const { Out += ToString(); }
	/** The text without the number. */
	CORE_API FString GetPlainNameString() const;

	bool IsNone() const { return Index == 0 && Number == NAME_NO_NUMBER_INTERNAL; }
	bool IsValid() const { return true; }
	uint32 GetComparisonIndex() const { return Index; }
	/** The number in its internal form: 0 for none, N + 1 for "_N". */
	int32 GetNumber() const { return static_cast<int32>(Number); }
	void SetNumber(int32 InNumber) { Number = static_cast<uint32>(InNumber); }

	bool operator==(const FName& Other) const { return Index == Other.Index && Number == Other.Number; }
	bool operator==(EName Other) const { return Other == NAME_None && IsNone(); }
	/** Compares against the text without adding it to the table; ignores case. */
	CORE_API bool operator==(const TCHAR* Other) const;

	/** Alphabetical order of the text ignoring case, then by number; stable across runs, unlike FastLess. */
	CORE_API int32 Compare(const FName& Other) const;
	bool LexicalLess(const FName& Other) const { return Compare(Other) < 0; }
	/** Order by table index: cheap, consistent within one run only. */
	bool FastLess(const FName& Other) const { return Index != Other.Index ? Index < Other.Index : Number < Other.Number; }

	friend uint32 GetTypeHash(const FName& Name) { return (Name.Index * 0x9E3779B1u) ^ (Name.Number * 0x85EBCA6Bu); }

private:
	// Slot of the text in the process-wide name table; 0 is None.
	uint32 Index = 0;
	// NAME_NO_NUMBER_INTERNAL, or the number + 1.
	uint32 Number = NAME_NO_NUMBER_INTERNAL;
};
