#pragma once

// The handler that turns the reader's events into FJsonValue trees. Private to the parser;
// includes the library.

#include "CoreMinimal.h"
#include "Dom/JsonObject.h"
#include "Dom/JsonValue.h"
#include "Dom/JsonNodeMemory.h"
#include "Serialization/JsonNumberText.h"
#include "Serialization/JsonStringPool.h"
#include "Serialization/JsonTextStream.h"

#include <rapidjson/reader.h>

#include <memory>

namespace UE::Json::Private
{
	/**
	 * Builds the tree from the reader's events. Returning false stops the reader; that is how a
	 * container nested deeper than MaxDepth is refused before the reader recurses into it.
	 */
	class FTreeBuilder : public rapidjson::BaseReaderHandler<FTextEncoding, FTreeBuilder>
	{
	public:
		FTreeBuilder(const FStringScratch& InScratch, int32 InMaxDepth) : Scratch(InScratch), MaxDepth(InMaxDepth) {}

		bool Null() { return Add(NewShared<FJsonValue, FJsonValueNull>()); }
		bool Bool(bool bValue) { return Add(NewShared<FJsonValue, FJsonValueBoolean>(bValue)); }
		// Text points at the number inside the document, or at Infinity in a repaired one.
		bool RawNumber(const TCHAR* Text, rapidjson::SizeType Length, bool bCopy)
		{
			return Add(NewShared<FJsonValue, FJsonValueNumber>(ConvertJsonNumber(Text, static_cast<int32>(Length))));
		}
		bool String(const TCHAR*, rapidjson::SizeType Length, bool bCopy)
		{
			const int32 Count = static_cast<int32>(Length);
			// Texts are pooled once a document has shown it is long enough to repeat itself.
			const bool bPool = ++NumTexts > TextsBeforePooling && Texts.Takes(Count);
			FString Text = bPool ? Texts.Find(Scratch.Chars(), Count).Text : FString(Count, Scratch.Chars());
			return Add(NewShared<FJsonValue, FJsonValueString>(MoveTemp(Text)));
		}
		bool Key(const TCHAR*, rapidjson::SizeType Length, bool bCopy)
		{
			const int32 Count = static_cast<int32>(Length);
			FFrame& Frame = Frames[Depth - 1];
			if (Names.Takes(Count))
			{
				const FStringPool::FPooled& Name = Names.Find(Scratch.Chars(), Count);
				Frame.Key = Name.Text;
				Frame.KeyHash = Name.MapHash;
			}
			else
			{
				Frame.Key = FString(Count, Scratch.Chars());
				Frame.KeyHash = GetTypeHash(Frame.Key);
			}
			return true;
		}
		bool StartObject()
		{
			if (!Open())
			{
				return false;
			}
			Frames[Depth - 1].Object = NewShared<FJsonObject, FJsonObject>();
			return true;
		}
		bool EndObject(rapidjson::SizeType MemberCount)
		{
			TSharedPtr<FJsonObject> Object = MoveTemp(Frames[--Depth].Object);
			return Add(NewShared<FJsonValue, FJsonValueObject>(MoveTemp(Object)));
		}
		bool StartArray() { return Open(); }
		bool EndArray(rapidjson::SizeType ElementCount)
		{
			TArray<TSharedPtr<FJsonValue>> Elements = MoveTemp(Frames[--Depth].Array);
			return Add(NewShared<FJsonValue, FJsonValueArray>(MoveTemp(Elements)));
		}

		TSharedPtr<FJsonValue> TakeRoot() { return MoveTemp(Root); }
		bool WasTooDeep() const { return bTooDeep; }

	private:
		// A new object held as TSharedPtr<Base>, made the way MakeShared makes it (object and count
		// in one node) but cut from the document's node chunks, and handed over without the two
		// count updates that converting a TSharedRef costs: a document has one value per field.
		template<class Base, class Type, class... ArgTypes>
		static TSharedPtr<Base> NewShared(ArgTypes&&... Args)
		{
			return UE::Core::Private::FSharedAccess::Wrap<TSharedPtr<Base>>(
				std::shared_ptr<Base>(std::allocate_shared<Type>(TNodeAllocator<Type>(), Forward<ArgTypes>(Args)...)));
		}

		// One open container: an object (with the key of the value being read) or an array.
		struct FFrame
		{
			TSharedPtr<FJsonObject> Object;
			TArray<TSharedPtr<FJsonValue>> Array;
			FString Key;
			// Key's hash in the object's map, known from the pool.
			uint32 KeyHash = 0;
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
				Frame.Object->Values.AddByHash(Frame.KeyHash, MoveTemp(Frame.Key), MoveTemp(Value));
			}
			else
			{
				Frame.Array.Add(MoveTemp(Value));
			}
			return true;
		}

		// The stream's scratch, holding the string being reported.
		const FStringScratch& Scratch;
		// Field names: a few dozen distinct ones make up nearly every document.
		FStringPool Names{64, 64};
		// Short texts, which repeat more often than not in a comment document.
		FStringPool Texts{1024, 24};
		// Text values read so far, and how many are read before Texts is used.
		int32 NumTexts = 0;
		static constexpr int32 TextsBeforePooling = 64;
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
