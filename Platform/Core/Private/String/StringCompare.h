#pragma once

// Comparison primitives shared by FString and FName. None of them allocates: case folding is
// done one character at a time, ASCII inline.

#include "HAL/Platform.h"
#include "Misc/CString.h"
#include "Misc/Char.h"

namespace UE::Core::Private
{
	/** True if the Count characters at A and B are equal under SearchCase. */
	inline bool RangesEqual(const TCHAR* A, const TCHAR* B, int32 Count, ESearchCase::Type SearchCase)
	{
		if (SearchCase == ESearchCase::CaseSensitive)
		{
			for (int32 Index = 0; Index < Count; ++Index)
			{
				if (A[Index] != B[Index])
				{
					return false;
				}
			}
			return true;
		}
		for (int32 Index = 0; Index < Count; ++Index)
		{
			if (A[Index] != B[Index] && FChar::ToLower(A[Index]) != FChar::ToLower(B[Index]))
			{
				return false;
			}
		}
		return true;
	}

	/** Three-way comparison of two ranges; a proper prefix sorts first. */
	inline int32 CompareRanges(const TCHAR* A, int32 LenA, const TCHAR* B, int32 LenB, ESearchCase::Type SearchCase)
	{
		const int32 Common = LenA < LenB ? LenA : LenB;
		for (int32 Index = 0; Index < Common; ++Index)
		{
			TCHAR CharA = A[Index];
			TCHAR CharB = B[Index];
			if (CharA != CharB && SearchCase == ESearchCase::IgnoreCase)
			{
				CharA = FChar::ToLower(CharA);
				CharB = FChar::ToLower(CharB);
			}
			if (CharA != CharB)
			{
				return CharA < CharB ? -1 : 1;
			}
		}
		return LenA == LenB ? 0 : (LenA < LenB ? -1 : 1);
	}

	/** A case-insensitive 32-bit hash of Count characters: FNV-1a over the folded code points. */
	inline uint32 HashIgnoringCase(const TCHAR* Chars, int32 Count)
	{
		uint32 Hash = 2166136261u;
		for (int32 Index = 0; Index < Count; ++Index)
		{
			Hash = (Hash ^ static_cast<uint32>(FChar::ToLower(Chars[Index]))) * 16777619u;
		}
		// Whole code points go in at once, so finish with an avalanche to spread their high bits.
		Hash ^= Hash >> 16;
		Hash *= 0x85EBCA6Bu;
		Hash ^= Hash >> 13;
		Hash *= 0xC2B2AE35u;
		Hash ^= Hash >> 16;
		return Hash;
	}
}
