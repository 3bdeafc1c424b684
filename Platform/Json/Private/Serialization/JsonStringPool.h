#pragma once

// The strings a document repeats: field names, which every record spells again, and short texts
// such as times, names and "666". A pooled string shares its characters with the earlier equal
// one instead of taking memory of its own. Private to the parser.

#include "CoreMinimal.h"

#include <vector>

namespace UE::Json::Private
{
	/**
	 * Remembers the last string seen in each of NumSlots places, chosen by a hash of its characters:
	 * cheap enough to ask for every string, and a document's repeats nearly always hit.
	 */
	class FStringPool
	{
	public:
		/** A string of the pool, with the hash a TMap<FString, ...> files it under. */
		struct FPooled
		{
			FString Text;
			uint32 MapHash = 0;
		};

		FStringPool(int32 InNumSlots, int32 InMaxLength) : NumSlots(static_cast<size_t>(InNumSlots)), MaxLength(InMaxLength) {}

		/** Whether Length characters are short enough to be pooled. */
		bool Takes(int32 Length) const { return Length <= MaxLength; }

		/** The pooled string equal to the Length characters at Chars (Takes(Length) must hold). */
		const FPooled& Find(const TCHAR* Chars, int32 Length)
		{
			// FNV-1a over the code units; case matters here, unlike in the map.
			uint32 Hash = 2166136261u;
			for (int32 Index = 0; Index < Length; ++Index)
			{
				Hash = (Hash ^ Chars[Index]) * 16777619u;
			}
			// Made on first use: a one-comment document should not pay for a pool it cannot fill.
			if (Slots.empty())
			{
				Slots.resize(NumSlots);
			}
			FPooled& Slot = Slots[(Hash ^ (Hash >> 15)) & (NumSlots - 1)];
			const bool bSame = Slot.Text.Len() == Length && Length > 0
				&& FCString::Strncmp(*Slot.Text, Chars, static_cast<SIZE_T>(Length)) == 0;
			if (!bSame)
			{
				Slot.Text = FString(Length, Chars);
				Slot.MapHash = GetTypeHash(Slot.Text);
			}
			return Slot;
		}

	private:
		// Each place's latest string; NumSlots of them (a power of two) once the first is asked for.
		std::vector<FPooled> Slots;
		size_t NumSlots;
		// Longer strings are rarely repeated and not worth the comparison.
		int32 MaxLength;
	};
}
