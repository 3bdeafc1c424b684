#pragma once

// The two pieces the reader is given: the text as a stream, and the handler that turns its events
// into FJsonValue trees. Private to the parser; includes the library.

#include "CoreMinimal.h"
#include "Dom/JsonObject.h"
#include "Dom/JsonValue.h"
#include "Serialization/JsonNumberText.h"

#include <rapidjson/reader.h>

#include <vector>

namespace UE::Json::Private
{
	// TCHAR is UTF-32 here, so the reader walks the FString's own buffer: no conversion, no copy.
	using FTextEncoding = rapidjson::UTF32<TCHAR>;

	/**
	 * The text as the reader sees it, never written to. The reader runs in its in-place mode only
	 * because that mode hands a number over as a pointer to its text (the copying mode garbles
	 * numbers for wide text); the strings that mode would decode over the text go to a scratch
	 * buffer instead, so the text stays whole for a second, repaired read. Cheap to copy, which
	 * the reader does in each parsing function.
	 */
	class FTextStream
	{
	public:
		using Ch = TCHAR;

		FTextStream(const TCHAR* Text, std::vector<TCHAR>& InDecoded) : Head(Text), Src(Text), Decoded(&InDecoded) {}

		Ch Peek() const { return *Src; }
		Ch Take() { return *Src++; }
		size_t Tell() const { return static_cast<size_t>(Src - Head); }

		/** Starts a string (the scratch is emptied) or marks a number; returns where the reader stands. */
		Ch* PutBegin()
		{
			Decoded->clear();
			return const_cast<Ch*>(Src);
		}
		void Put(Ch Char) { Decoded->push_back(Char); }
		void Flush() {}
		size_t PutEnd(Ch*) { return Decoded->size(); }

	private:
		// The first character of the text.
		const TCHAR* Head;
		// The next character to read.
		const TCHAR* Src;
		// Where decoded strings go, shared by every copy of the stream; ends with a NUL.
		std::vector<TCHAR>* Decoded;
	};

	/**
	 * Builds the tree from the reader's events. Returning false stops the reader; that is how a
	 * container nested deeper than MaxDepth is refused before the reader recurses into it.
	 */
	class FTreeBuilder : public rapidjson::BaseReaderHandler<FTextEncoding, FTreeBuilder>
	{
	public:
		FTreeBuilder(const std::vector<TCHAR>& InDecoded, int32 InMaxDepth) : Decoded(InDecoded), MaxDepth(InMaxDepth) {}

		bool Null() { return Add(MakeShared<FJsonValueNull>()); }
		bool Bool(bool bValue) { return Add(MakeShared<FJsonValueBoolean>(bValue)); }
		// Text points at the number inside the document, or at Infinity in a repaired one.
		bool RawNumber(const TCHAR* Text, rapidjson::SizeType Length, bool bCopy)
		{
			return Add(MakeShared<FJsonValueNumber>(ConvertJsonNumber(Text, static_cast<int32>(Length))));
		}
		bool String(const TCHAR*, rapidjson::SizeType Length, bool bCopy) { return Add(MakeShared<FJsonValueString>(DecodedText(Length))); }
		bool Key(const TCHAR*, rapidjson::SizeType Length, bool bCopy)
		{
			Frames[Depth - 1].Key = DecodedText(Length);
			return true;
		}
		bool StartObject()
		{
			if (!Open())
			{
				return false;
			}
			Frames[Depth - 1].Object = MakeShared<FJsonObject>();
			return true;
		}
		bool EndObject(rapidjson::SizeType MemberCount)
		{
			TSharedPtr<FJsonObject> Object = MoveTemp(Frames[--Depth].Object);
			return Add(MakeShared<FJsonValueObject>(MoveTemp(Object)));
		}
		bool StartArray() { return Open(); }
		bool EndArray(rapidjson::SizeType ElementCount)
		{
			TArray<TSharedPtr<FJsonValue>> Elements = MoveTemp(Frames[--Depth].Array);
			return Add(MakeShared<FJsonValueArray>(MoveTemp(Elements)));
		}

		TSharedPtr<FJsonValue> TakeRoot() { return MoveTemp(Root); }
		bool WasTooDeep() const { return bTooDeep; }

	private:
		// One open container: an object (with the key of the value being read) or an array.
		struct FFrame
		{
			TSharedPtr<FJsonObject> Object;
			TArray<TSharedPtr<FJsonValue>> Array;
			FString Key;
		};

		bool Open()
		{
			if (Depth == MaxDepth)
			{
				bTooDeep = true;
				return false;
			}
			if (Frames.Num() == Depth)
			{
				Frames.AddDefaulted();
			}
			++Depth;
			return true;
		}

		bool Add(TSharedPtr<FJsonValue> Value)
		{
			if (Depth == 0)
			{
				Root = MoveTemp(Value);
				return true;
			}
			FFrame& Frame = Frames[Depth - 1];
			if (Frame.Object.IsValid())
			{
				Frame.Object->Values.Add(MoveTemp(Frame.Key), MoveTemp(Value));
			}
			else
			{
				Frame.Array.Add(MoveTemp(Value));
			}
			return true;
		}

		// The string just decoded. Surrogate code units and values past U+10FFFF are not
		// characters: a lone surrogate escape or a bad unit already in the FString reads as U+FFFD.
		FString DecodedText(rapidjson::SizeType Length) const
		{
			FString Result(static_cast<int32>(Length), Decoded.data());
			for (TCHAR& Char : Result)
			{
				const uint32 Unit = static_cast<uint32>(Char);
				if ((Unit >= 0xD800 && Unit <= 0xDFFF) || Unit > 0x10FFFF)
				{
					Char = 0xFFFD;
				}
			}
			return Result;
		}

		// The stream's scratch, holding the string being reported.
		const std::vector<TCHAR>& Decoded;
		// Containers nested deeper than this are refused.
		int32 MaxDepth;
		// The open containers, outermost first; kept between uses so their storage is reused.
		TArray<FFrame> Frames;
		// How many of Frames are open.
		int32 Depth = 0;
		// The finished document.
		TSharedPtr<FJsonValue> Root;
		// The reader stopped because nesting passed MaxDepth.
		bool bTooDeep = false;
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
