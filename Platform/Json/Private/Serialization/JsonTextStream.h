#pragma once

// The text as the JSON reader sees it: a stream over the document's own characters, and the
// scratch where a string that needs decoding goes. Private to the parser; includes the library.

#include "CoreMinimal.h"

#include <rapidjson/reader.h>

#include <vector>

namespace UE::Json::Private
{
	// TCHAR is UTF-16, which the reader reads natively: it walks the text's own code units, no
	// conversion, no copy.
	using FTextEncoding = rapidjson::UTF16<TCHAR>;

	inline bool IsSurrogate(TCHAR Char)
	{
		return Char >= 0xD800 && Char <= 0xDFFF;
	}

	/**
	 * The string being read, shared by every copy of the stream. Most strings hold no escape and
	 * no bad unit, so they are only counted and then taken straight from the text; the first
	 * character that differs from its place in the text moves the string to Decoded. Half a
	 * surrogate pair is no character: once the string is whole, a lone one becomes U+FFFD.
	 */
	struct FStringScratch
	{
		/** Replaces every surrogate that is not half of a pair; a string with one moves to Decoded. */
		void ReplaceLoneSurrogates(size_t Length)
		{
			for (size_t Index = 0; Index < Length; ++Index)
			{
				const TCHAR* Units = Chars();
				const bool bPaired = Units[Index] >= 0xD800 && Units[Index] <= 0xDBFF && Index + 1 < Length && Units[Index + 1] >= 0xDC00 && Units[Index + 1] <= 0xDFFF;
				if (bPaired)
				{
					++Index;
				}
				else if (IsSurrogate(Units[Index]))
				{
					if (!bDecoded)
					{
						bDecoded = true;
						Decoded.assign(Start, Start + Verbatim);
					}
					Decoded[Index] = 0xFFFD;
				}
			}
		}

		/** The string's characters: in the text, or in Decoded once anything had to change. */
		const TCHAR* Chars() const { return bDecoded ? Decoded.data() : Start; }

		// Where the string's first character stands in the text.
		const TCHAR* Start = nullptr;
		// How many characters so far equal the text from Start on (the final NUL included).
		size_t Verbatim = 0;
		// The string needed decoding; its characters are in Decoded.
		bool bDecoded = false;
		// The string holds a surrogate code unit, to be checked for its other half at the end.
		bool bHasSurrogate = false;
		// The decoded string, ending with a NUL.
		std::vector<TCHAR> Decoded;
	};

	/**
	 * The text as the reader sees it, never written to, read up to End (a view of a longer string
	 * has no terminator of its own). The reader runs in its in-place mode only because that mode
	 * hands a number over as a pointer to its text (the copying mode garbles numbers for wide
	 * text); what that mode would write over the text goes to the scratch instead, so the text
	 * stays whole for a second, repaired read. Cheap to copy, which the reader does in each
	 * parsing function.
	 */
	class FTextStream
	{
	public:
		using Ch = TCHAR;

		FTextStream(const TCHAR* Text, const TCHAR* InEnd, FStringScratch& InScratch) : Head(Text), Src(Text), End(InEnd), Scratch(&InScratch) {}

		Ch Peek() const { return Src != End ? *Src : 0; }
		Ch Take() { return Src != End ? *Src++ : 0; }
		size_t Tell() const { return static_cast<size_t>(Src - Head); }

		/** Starts a string or marks a number; returns where the reader stands. */
		Ch* PutBegin()
		{
			Scratch->Start = Src;
			Scratch->Verbatim = 0;
			Scratch->bDecoded = false;
			Scratch->bHasSurrogate = false;
			return const_cast<Ch*>(Src);
		}
		// The character just taken is verbatim when it is the next one in the text; the final NUL
		// stands for the closing quote.
		void Put(Ch Char)
		{
			Scratch->bHasSurrogate |= IsSurrogate(Char);
			if (!Scratch->bDecoded)
			{
				if (Src == Scratch->Start + Scratch->Verbatim + 1)
				{
					++Scratch->Verbatim;
					return;
				}
				Scratch->bDecoded = true;
				Scratch->Decoded.assign(Scratch->Start, Scratch->Start + Scratch->Verbatim);
			}
			Scratch->Decoded.push_back(Char);
		}
		void Flush() {}
		size_t PutEnd(Ch*)
		{
			// The count includes the final NUL, which is no surrogate.
			const size_t Length = Scratch->bDecoded ? Scratch->Decoded.size() : Scratch->Verbatim;
			if (Scratch->bHasSurrogate)
			{
				Scratch->ReplaceLoneSurrogates(Length);
			}
			return Length;
		}

	private:
		// The first character of the text.
		const TCHAR* Head;
		// The next character to read.
		const TCHAR* Src;
		// Just past the last character of the text.
		const TCHAR* End;
		// The string being read, shared by every copy of the stream.
		FStringScratch* Scratch;
	};
}

namespace rapidjson
{
	// Copied into each parsing function, which keeps the position in registers and, for a number,
	// leaves the caller's copy at the number's start for PutBegin to report.
	template<>
	struct StreamTraits<UE::Json::Private::FTextStream>
	{
		enum { copyOptimization = 1 };
	};
}
