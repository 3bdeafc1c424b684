// Which parser should feed Platform/Json: simdjson's DOM parser against RapidJSON (its DOM, in
// place and copying, and its SAX reader with a handler that keeps nothing), all on the same
// 100,000-record comment document, and simdjson feeding an FJsonObject tree as our reader does
// with RapidJSON. The libraries read UTF-8; our FString holds UTF-32, so the figures for the
// tree include the conversion. Run from a release build; figures and the decision in docs/json.md.

#include "CommentDocument.h"
#include "Containers/StringConv.h"
#include "Dom/JsonObject.h"
#include "Dom/JsonValue.h"

#include <benchmark/benchmark.h>
#include <rapidjson/document.h>
#include <rapidjson/reader.h>

#include <string>
#include <vector>

#if PLAIN_HAVE_SIMDJSON
#include <simdjson.h>
#endif

namespace
{
	// The document as UTF-8, the form both libraries are built for.
	const std::string& Utf8Document()
	{
		static const std::string Text = [] {
			const FString& Wide = JsonBench::HundredThousandRecords();
			const FTCHARToUTF8 Converted(*Wide, Wide.Len());
			return std::string(Converted.Get(), size_t(Converted.Length()));
		}();
		return Text;
	}

	void CheckRecords(benchmark::State& State, size_t Count)
	{
		if (Count != 100000)
		{
			State.SkipWithError("document not read");
		}
	}

#if PLAIN_HAVE_SIMDJSON
	TSharedPtr<FJsonValue> ToJsonValue(simdjson::dom::element Element);

	TSharedPtr<FJsonObject> ToJsonObject(simdjson::dom::object Object)
	{
		TSharedPtr<FJsonObject> Result = MakeShared<FJsonObject>();
		for (const simdjson::dom::key_value_pair Field : Object)
		{
			Result->Values.Add(FString::FromUTF8(Field.key.data(), int32(Field.key.size())), ToJsonValue(Field.value));
		}
		return Result;
	}

	// The same tree our reader makes: one shared value per element, FString text, FString keys.
	TSharedPtr<FJsonValue> ToJsonValue(simdjson::dom::element Element)
	{
		switch (Element.type())
		{
		case simdjson::dom::element_type::ARRAY:
		{
			TArray<TSharedPtr<FJsonValue>> Elements;
			for (const simdjson::dom::element Item : simdjson::dom::array(Element))
			{
				Elements.Add(ToJsonValue(Item));
			}
			return MakeShared<FJsonValueArray>(MoveTemp(Elements));
		}
		case simdjson::dom::element_type::OBJECT:
			return MakeShared<FJsonValueObject>(ToJsonObject(simdjson::dom::object(Element)));
		case simdjson::dom::element_type::STRING:
		{
			const std::string_view Text(Element);
			return MakeShared<FJsonValueString>(FString::FromUTF8(Text.data(), int32(Text.size())));
		}
		case simdjson::dom::element_type::BOOL:
			return MakeShared<FJsonValueBoolean>(bool(Element));
		case simdjson::dom::element_type::NULL_VALUE:
			return MakeShared<FJsonValueNull>();
		default:
			return MakeShared<FJsonValueNumber>(double(Element.get_double().value_unsafe()));
		}
	}
#endif
}

// RapidJSON's SAX reader over the FString's own UTF-16 buffer: the baseline of our ratios.
static void BM_RapidJsonSaxWide(benchmark::State& State)
{
	using FEncoding = rapidjson::UTF16<TCHAR>;
	const FString& Text = JsonBench::HundredThousandRecords();
	for (auto _ : State)
	{
		rapidjson::GenericReader<FEncoding, FEncoding> Reader;
		rapidjson::GenericStringStream<FEncoding> Stream(*Text);
		rapidjson::BaseReaderHandler<FEncoding> Handler;
		if (Reader.Parse<rapidjson::kParseDefaultFlags>(Stream, Handler).IsError())
		{
			State.SkipWithError("document not read");
		}
	}
	State.SetBytesProcessed(State.iterations() * int64(Text.Len()));
}
BENCHMARK(BM_RapidJsonSaxWide)->Unit(benchmark::kMillisecond)->MinWarmUpTime(0.5);

static void BM_RapidJsonSaxUtf8(benchmark::State& State)
{
	const std::string& Text = Utf8Document();
	for (auto _ : State)
	{
		rapidjson::Reader Reader;
		rapidjson::StringStream Stream(Text.c_str());
		rapidjson::BaseReaderHandler<> Handler;
		if (Reader.Parse<rapidjson::kParseDefaultFlags>(Stream, Handler).IsError())
		{
			State.SkipWithError("document not read");
		}
	}
	State.SetBytesProcessed(State.iterations() * int64(Text.size()));
}
BENCHMARK(BM_RapidJsonSaxUtf8)->Unit(benchmark::kMillisecond)->MinWarmUpTime(0.5);

// The library's own DOM, strings copied into its pool allocator.
static void BM_RapidJsonDomUtf8(benchmark::State& State)
{
	const std::string& Text = Utf8Document();
	for (auto _ : State)
	{
		rapidjson::Document Document;
		Document.Parse(Text.c_str(), Text.size());
		CheckRecords(State, Document.HasParseError() ? 0 : Document["datas"].Size());
	}
	State.SetBytesProcessed(State.iterations() * int64(Text.size()));
}
BENCHMARK(BM_RapidJsonDomUtf8)->Unit(benchmark::kMillisecond)->MinWarmUpTime(0.5);

// The library's DOM in place: strings point into a mutable copy of the text, made untimed.
static void BM_RapidJsonDomUtf8InSitu(benchmark::State& State)
{
	const std::string& Text = Utf8Document();
	std::vector<char> Copy;
	for (auto _ : State)
	{
		State.PauseTiming();
		Copy.assign(Text.c_str(), Text.c_str() + Text.size() + 1);
		State.ResumeTiming();
		rapidjson::Document Document;
		Document.ParseInsitu(Copy.data());
		CheckRecords(State, Document.HasParseError() ? 0 : Document["datas"].Size());
	}
	State.SetBytesProcessed(State.iterations() * int64(Text.size()));
}
BENCHMARK(BM_RapidJsonDomUtf8InSitu)->Unit(benchmark::kMillisecond)->MinWarmUpTime(0.5);

#if PLAIN_HAVE_SIMDJSON
// simdjson's DOM with a reused parser, on text already padded as it requires.
static void BM_SimdjsonDomUtf8(benchmark::State& State)
{
	const simdjson::padded_string Text(Utf8Document());
	simdjson::dom::parser Parser;
	for (auto _ : State)
	{
		simdjson::dom::element Root;
		simdjson::dom::array Records;
		if (Parser.parse(Text).get(Root) != simdjson::SUCCESS || Root["datas"].get(Records) != simdjson::SUCCESS)
		{
			State.SkipWithError("document not read");
			continue;
		}
		CheckRecords(State, Records.size());
	}
	State.SetBytesProcessed(State.iterations() * int64(Text.size()));
}
BENCHMARK(BM_SimdjsonDomUtf8)->Unit(benchmark::kMillisecond)->MinWarmUpTime(0.5);

// What Platform/Json would do with simdjson: the FString to UTF-8, parse, then the FJsonObject
// tree. Freeing the tree is untimed, as in BM_DeserializeCommentDocument.
static void BM_SimdjsonToJsonObjectTree(benchmark::State& State)
{
	const FString& Text = JsonBench::HundredThousandRecords();
	simdjson::dom::parser Parser;
	for (auto _ : State)
	{
		const FTCHARToUTF8 Utf8(*Text, Text.Len());
		const simdjson::padded_string Padded(Utf8.Get(), size_t(Utf8.Length()));
		simdjson::dom::element Root;
		if (Parser.parse(Padded).get(Root) != simdjson::SUCCESS)
		{
			State.SkipWithError("document not read");
			continue;
		}
		TSharedPtr<FJsonValue> Tree = ToJsonValue(Root);
		State.PauseTiming();
		CheckRecords(State, size_t(Tree->AsObject()->GetArrayField(TEXT("datas")).Num()));
		Tree.Reset();
		State.ResumeTiming();
	}
	State.SetBytesProcessed(State.iterations() * int64(Text.Len()));
}
BENCHMARK(BM_SimdjsonToJsonObjectTree)->Unit(benchmark::kMillisecond)->MinWarmUpTime(2.0)->MinTime(2.0);
#endif
