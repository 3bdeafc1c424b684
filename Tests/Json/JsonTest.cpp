// The Json module: which documents Deserialize accepts, what the tree holds, what the getters
// give for missing fields, and the writer's text.

#include "Dom/JsonObject.h"
#include "Dom/JsonValue.h"
#include "Logging/LogCapture.h"
#include "Policies/CondensedJsonPrintPolicy.h"
#include "Serialization/JsonReader.h"
#include "Serialization/JsonSerializer.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace
{
	TSharedPtr<FJsonObject> ReadObject(const FString& Text)
	{
		TSharedPtr<FJsonObject> Object;
		return FJsonSerializer::Deserialize(TJsonReaderFactory<>::Create(Text), Object) ? Object : nullptr;
	}

	bool ReadsAsValue(const FString& Text)
	{
		TSharedPtr<FJsonValue> Value;
		return FJsonSerializer::Deserialize(TJsonReaderFactory<>::Create(Text), Value);
	}

	// The LogJson warnings logged since the capture was last cleared.
	std::vector<std::string> JsonWarnings()
	{
		std::vector<std::string> Messages;
		for (const UE::Log::FCapturedLine& Line : UE::Log::GetCapturedLines())
		{
			if (Line.Category.Equals(TEXT("LogJson")) && Line.Verbosity == ELogVerbosity::Warning)
			{
				Messages.emplace_back(TCHAR_TO_UTF8(*Line.Message));
			}
		}
		return Messages;
	}

	// Every LogJson line logged since the capture was last cleared, as "Warning: ..." or "Error: ...".
	std::vector<std::string> JsonLines()
	{
		std::vector<std::string> Lines;
		for (const UE::Log::FCapturedLine& Line : UE::Log::GetCapturedLines())
		{
			if (Line.Category.Equals(TEXT("LogJson")))
			{
				const std::string Verbosity = Line.Verbosity == ELogVerbosity::Warning ? "Warning: " : Line.Verbosity == ELogVerbosity::Error ? "Error: " : "Other: ";
				Lines.push_back(Verbosity + TCHAR_TO_UTF8(*Line.Message));
			}
		}
		return Lines;
	}

	FString Repeat(const TCHAR* Piece, int32 Count)
	{
		FString Result;
		for (int32 Index = 0; Index < Count; ++Index)
		{
			Result += Piece;
		}
		return Result;
	}
}

TEST(JsonDeserialize, AcceptsOnlyTheRootKindEachOverloadAsksFor)
{
	const TSharedPtr<FJsonObject> Object = ReadObject(TEXT(" \n{\"a\": 1, \"b\": [true, null]}\t\r\n"));
	ASSERT_TRUE(Object.IsValid());
	EXPECT_EQ(Object->GetNumberField(TEXT("a")), 1.0);
	EXPECT_EQ(Object->GetArrayField(TEXT("b")).Num(), 2);

	TArray<TSharedPtr<FJsonValue>> Elements;
	ASSERT_TRUE(FJsonSerializer::Deserialize(TJsonReaderFactory<>::Create(TEXT("[1, \"x\", {}]")), Elements));
	ASSERT_EQ(Elements.Num(), 3);
	EXPECT_EQ(Elements[2]->Type, EJson::Object);

	EXPECT_TRUE(ReadsAsValue(TEXT("{}")));
	EXPECT_TRUE(ReadsAsValue(TEXT("[]")));
	for (const TCHAR* BareScalar : {TEXT("\"text\""), TEXT("12"), TEXT("true"), TEXT("false"), TEXT("null")})
	{
		EXPECT_FALSE(ReadsAsValue(BareScalar)) << FString(BareScalar);
	}

	// A refused document leaves what the caller had.
	TSharedPtr<FJsonObject> Kept = MakeShared<FJsonObject>();
	EXPECT_FALSE(FJsonSerializer::Deserialize(TJsonReaderFactory<>::Create(TEXT("[1]")), Kept));
	EXPECT_TRUE(Kept.IsValid());
	TArray<TSharedPtr<FJsonValue>> KeptElements = {MakeShared<FJsonValueNull>()};
	EXPECT_FALSE(FJsonSerializer::Deserialize(TJsonReaderFactory<>::Create(TEXT("{}")), KeptElements));
	EXPECT_EQ(KeptElements.Num(), 1);
}

TEST(JsonDeserialize, RefusesMalformedTextAndTextAfterTheRoot)
{
	const TCHAR* Malformed[] = {TEXT(""), TEXT("  "), TEXT("{"), TEXT("{\"a\":}"), TEXT("{\"a\" 1}"), TEXT("[1,]"),
		TEXT("{\"a\":1,}"), TEXT("[1 2]"), TEXT("{'a':1}"), TEXT("{a:1}"), TEXT("[01]"), TEXT("[1.]"), TEXT("[.5]"),
		TEXT("[NaN]"), TEXT("[Infinity]"), TEXT("[-Infinity]"), TEXT("[tru]"), TEXT("[\"\\x\"]"), TEXT("[\"a\tb\"]"),
		TEXT("[\"open]"), TEXT("// note\n{}"), TEXT("{} x"), TEXT("{}{}"), TEXT("[]]"), TEXT("[1e400, Infinity]"),
		TEXT("[\"\\ud800\", NaN]"), TEXT("[1e400 2]")};
	for (const TCHAR* Text : Malformed)
	{
		EXPECT_FALSE(ReadsAsValue(Text)) << FString(Text);
	}

	UE::Log::ClearCapturedLines();
	const TSharedRef<TJsonReader<TCHAR>> Reader = TJsonReaderFactory<>::Create(TEXT("{\n  \"a\": 1,\n  \"b\": ]\n}"));
	TSharedPtr<FJsonObject> Object;
	EXPECT_FALSE(FJsonSerializer::Deserialize(Reader, Object));
	EXPECT_TRUE(Reader->GetErrorMessage().Contains(TEXT("Line: 3 Ch: 8"))) << Reader->GetErrorMessage();
	ASSERT_EQ(JsonWarnings().size(), 1u);
	EXPECT_NE(JsonWarnings()[0].find(TCHAR_TO_UTF8(*Reader->GetErrorMessage())), std::string::npos);
}

TEST(JsonDeserialize, RefusesNestingPastTheLimitWithoutExhaustingTheStack)
{
	EXPECT_FALSE(ReadsAsValue(Repeat(TEXT("["), 100000)));
	EXPECT_FALSE(ReadsAsValue(Repeat(TEXT("["), 100000) + Repeat(TEXT("]"), 100000)));
	EXPECT_FALSE(ReadsAsValue(Repeat(TEXT("{\"a\":"), 100000) + TEXT("1") + Repeat(TEXT("}"), 100000)));

	const int32 Limit = FJsonSerializer::MaxDepth;
	EXPECT_TRUE(ReadsAsValue(Repeat(TEXT("["), Limit) + Repeat(TEXT("]"), Limit)));
	const TSharedRef<TJsonReader<TCHAR>> Reader = TJsonReaderFactory<>::Create(Repeat(TEXT("["), Limit + 1) + Repeat(TEXT("]"), Limit + 1));
	TSharedPtr<FJsonValue> Value;
	EXPECT_FALSE(FJsonSerializer::Deserialize(Reader, Value));
	EXPECT_TRUE(Reader->GetErrorMessage().StartsWith(TEXT("Nesting is deeper than 512 levels."))) << Reader->GetErrorMessage();
}

TEST(JsonObjectFields, MissingOrMistypedFieldsLogAWarningAndAnErrorAndGiveDefaults)
{
	const TSharedPtr<FJsonObject> Object = ReadObject(TEXT("{\"s\": \"abc\", \"n\": 12, \"t\": \"12\", \"o\": {\"x\": 1}, \"z\": null}"));
	ASSERT_TRUE(Object.IsValid());
	const std::string NotFound = "Warning: Field missing was not found.";
	auto Expect = [](const std::vector<std::string>& Lines, const char* What) {
		EXPECT_EQ(JsonLines(), Lines) << What;
		UE::Log::ClearCapturedLines();
	};
	UE::Log::ClearCapturedLines();

	// A missing field: the lookup's warning, then the Null stand-in's error when it is read.
	EXPECT_EQ(Object->GetNumberField(TEXT("missing")), 0.0);
	Expect({NotFound, "Error: Json Value of type 'Null' used as a 'Number'."}, "number");
	EXPECT_EQ(Object->GetIntegerField(TEXT("missing")), 0);
	Expect({NotFound, "Error: Json Value of type 'Null' used as a 'Number'."}, "integer");
	EXPECT_TRUE(Object->GetStringField(TEXT("missing")).IsEmpty());
	Expect({NotFound, "Error: Json Value of type 'Null' used as a 'String'."}, "string");
	EXPECT_FALSE(Object->GetBoolField(TEXT("missing")));
	Expect({NotFound, "Error: Json Value of type 'Null' used as a 'Boolean'."}, "bool");
	EXPECT_EQ(Object->GetArrayField(TEXT("missing")).Num(), 0);
	Expect({NotFound, "Error: Json Value of type 'Null' used as a 'Array'."}, "array");
	const TSharedPtr<FJsonObject>& MissingObject = Object->GetObjectField(TEXT("missing"));
	ASSERT_TRUE(MissingObject.IsValid()) << "an empty object, not a null pointer";
	EXPECT_EQ(MissingObject->Values.Num(), 0);
	Expect({NotFound, "Error: Json Value of type 'Null' used as a 'Object'."}, "object");

	// The number, string and bool getters take a field of any kind and convert it if they can;
	// the array and object getters want their own kind and treat any other as missing.
	EXPECT_EQ(Object->GetNumberField(TEXT("s")), 0.0);
	Expect({"Error: Json Value of type 'String' used as a 'Number'."}, "text as number");
	EXPECT_TRUE(Object->GetStringField(TEXT("o")).IsEmpty());
	Expect({"Error: Json Value of type 'Object' used as a 'String'."}, "object as text");
	EXPECT_FALSE(Object->GetBoolField(TEXT("z")));
	Expect({"Error: Json Value of type 'Null' used as a 'Boolean'."}, "null as bool");
	EXPECT_EQ(Object->GetArrayField(TEXT("s")).Num(), 0);
	Expect({"Warning: Field s is of the wrong type.", "Error: Json Value of type 'Null' used as a 'Array'."}, "text as array");
	EXPECT_EQ(Object->GetObjectField(TEXT("n"))->Values.Num(), 0);
	Expect({"Warning: Field n is of the wrong type.", "Error: Json Value of type 'Null' used as a 'Object'."}, "number as object");

	// Conversions the engine makes without a word, and TryGet* never logs.
	EXPECT_TRUE(Object->GetStringField(TEXT("n")).Equals(TEXT("12")));
	EXPECT_EQ(Object->GetNumberField(TEXT("t")), 12.0);
	EXPECT_FALSE(Object->GetBoolField(TEXT("s")));
	EXPECT_EQ(Object->GetObjectField(TEXT("O"))->GetIntegerField(TEXT("x")), 1) << "field names ignore case";
	double Number = -1.0;
	const TArray<TSharedPtr<FJsonValue>>* Array = nullptr;
	EXPECT_FALSE(Object->TryGetNumberField(TEXT("s"), Number));
	EXPECT_FALSE(Object->TryGetNumberField(TEXT("missing"), Number));
	EXPECT_FALSE(Object->TryGetArrayField(TEXT("n"), Array));
	EXPECT_TRUE(JsonLines().empty());
	EXPECT_TRUE(Object->HasField(TEXT("z")));
	EXPECT_TRUE(Object->HasTypedField<EJson::Null>(TEXT("z")));
	EXPECT_FALSE(Object->HasTypedField<EJson::String>(TEXT("n")));
}

TEST(JsonNumbers, ReadAsDoublesAndRoundToWholeNumbersOnRequest)
{
	const FString Huge = TEXT("1") + Repeat(TEXT("0"), 400);
	TArray<TSharedPtr<FJsonValue>> Numbers;
	ASSERT_TRUE(FJsonSerializer::Deserialize(TJsonReaderFactory<>::Create(
		TEXT("[7.9, -7.9, 0.1, 0, 12345678901234567890, 2.5, 1e400, -1e400, 1e-400, 1") + Repeat(TEXT("0"), 308) + TEXT(", ") + Huge + TEXT("]")), Numbers));
	ASSERT_EQ(Numbers.Num(), 11);
	EXPECT_EQ(Numbers[0]->AsNumber(), 7.9);
	EXPECT_EQ(Numbers[1]->AsNumber(), -7.9);
	EXPECT_EQ(Numbers[2]->AsNumber(), 0.1);
	EXPECT_EQ(Numbers[3]->AsNumber(), 0.0);
	EXPECT_EQ(Numbers[4]->AsNumber(), 12345678901234567890.0);
	EXPECT_EQ(Numbers[6]->AsNumber(), INFINITY);
	EXPECT_EQ(Numbers[7]->AsNumber(), -INFINITY);
	EXPECT_EQ(Numbers[8]->AsNumber(), 0.0);
	EXPECT_EQ(Numbers[9]->AsNumber(), 1e308);
	EXPECT_EQ(Numbers[10]->AsNumber(), INFINITY);

	int32 Int32 = 0;
	int64 Int64 = 0;
	uint32 Uint32 = 0;
	EXPECT_TRUE(Numbers[0]->TryGetNumber(Int32) && Int32 == 8);
	EXPECT_TRUE(Numbers[1]->TryGetNumber(Int32) && Int32 == -8);
	EXPECT_TRUE(Numbers[5]->TryGetNumber(Int32) && Int32 == 3) << "halves round away from zero";
	EXPECT_FALSE(Numbers[1]->TryGetNumber(Uint32));
	EXPECT_FALSE(Numbers[4]->TryGetNumber(Int64));
	EXPECT_FALSE(Numbers[6]->TryGetNumber(Int32));

	const TSharedPtr<FJsonObject> Object = ReadObject(TEXT("{\"a\": 7.9, \"b\": -7.9, \"c\": \"12\", \"d\": 1e30}"));
	ASSERT_TRUE(Object.IsValid());
	EXPECT_EQ(Object->GetIntegerField(TEXT("a")), 7);
	EXPECT_EQ(Object->GetIntegerField(TEXT("b")), -7);
	EXPECT_EQ(Object->GetIntegerField(TEXT("d")), 2147483647);
	EXPECT_TRUE(Object->TryGetNumberField(TEXT("c"), Int32) && Int32 == 12) << "a numeric string reads as a number";
}

TEST(JsonNumbers, WholeNumbersOfEveryLengthReadExactly)
{
	TArray<TSharedPtr<FJsonValue>> Numbers;
	ASSERT_TRUE(FJsonSerializer::Deserialize(TJsonReaderFactory<>::Create(
		TEXT("[-0, 0, 9, -123, 999999999999999, -999999999999999, 9007199254740993, 12345678901234567, 10.0, 1e2]")), Numbers));
	ASSERT_EQ(Numbers.Num(), 10);
	EXPECT_TRUE(std::signbit(Numbers[0]->AsNumber())) << "-0 keeps its sign";
	EXPECT_FALSE(std::signbit(Numbers[1]->AsNumber()));
	EXPECT_EQ(Numbers[2]->AsNumber(), 9.0);
	EXPECT_EQ(Numbers[3]->AsNumber(), -123.0);
	EXPECT_EQ(Numbers[4]->AsNumber(), 999999999999999.0);
	EXPECT_EQ(Numbers[5]->AsNumber(), -999999999999999.0);
	EXPECT_EQ(Numbers[6]->AsNumber(), 9007199254740992.0) << "past 2^53 the nearest double, ties to even";
	EXPECT_EQ(Numbers[7]->AsNumber(), 12345678901234568.0);
	EXPECT_EQ(Numbers[8]->AsNumber(), 10.0);
	EXPECT_EQ(Numbers[9]->AsNumber(), 100.0);
}

TEST(JsonReader, AViewIsReadInPlaceAndOnlyUpToItsEnd)
{
	// The view stops before text that would make the document invalid, and it has no terminator.
	const FString Text = TEXT("{\"a\": \"x\\ny\", \"b\": [1, \"plain\"]} trailing");
	const FStringView Document(*Text, Text.Find(TEXT(" trailing")));
	TSharedPtr<FJsonObject> Object;
	ASSERT_TRUE(FJsonSerializer::Deserialize(TJsonReaderFactory<>::CreateFromView(Document), Object));
	EXPECT_TRUE(Object->GetStringField(TEXT("a")).Equals(TEXT("x\ny")));
	EXPECT_TRUE(Object->GetArrayField(TEXT("b"))[1]->AsString().Equals(TEXT("plain")));
	EXPECT_TRUE(Text.Equals(TEXT("{\"a\": \"x\\ny\", \"b\": [1, \"plain\"]} trailing"))) << "the text is never written to";

	// Cut inside a string, the view must not be read past its end.
	TSharedPtr<FJsonObject> Cut;
	const TSharedRef<TJsonReader<TCHAR>> Reader = TJsonReaderFactory<>::CreateFromView(FStringView(*Text, 9));
	EXPECT_FALSE(FJsonSerializer::Deserialize(Reader, Cut));
	EXPECT_FALSE(Reader->GetErrorMessage().IsEmpty());

	// Half a surrogate pair is no character, met before and after an escape: a high half followed
	// by no low one, and a low half alone, each read as U+FFFD.
	FString Bad = TEXT("[\"a?b\\tc?\"]");
	Bad[3] = static_cast<TCHAR>(0xD800);
	Bad[8] = static_cast<TCHAR>(0xDC00);
	TArray<TSharedPtr<FJsonValue>> Strings;
	ASSERT_TRUE(FJsonSerializer::Deserialize(TJsonReaderFactory<>::CreateFromView(Bad), Strings));
	const FString Replacement = FString::Chr(static_cast<TCHAR>(0xFFFD));
	EXPECT_TRUE(Strings[0]->AsString().Equals(TEXT("a") + Replacement + TEXT("b\tc") + Replacement));
}

TEST(JsonStrings, EscapesAndNonAsciiTextArriveAsCodePoints)
{
	const TSharedPtr<FJsonObject> Object = ReadObject(TEXT("{\"plain\": \"Hello 你好 😂 𠀀\", \"escaped\": \"\\u4f60\\u597D\", ")
		TEXT("\"pair\": \"\\ud83d\\ude00\", \"lone\": \"x\\ud800y\", \"low\": \"\\udc00\", \"kept\": \"\\\\ud800\", ")
		TEXT("\"short\": \"\\\"\\\\\\/\\b\\f\\n\\r\\t\", \"键\": 1}"));
	ASSERT_TRUE(Object.IsValid());
	EXPECT_TRUE(Object->GetStringField(TEXT("plain")).Equals(TEXT("Hello 你好 😂 𠀀")));
	EXPECT_TRUE(Object->GetStringField(TEXT("escaped")).Equals(TEXT("你好")));
	EXPECT_TRUE(Object->GetStringField(TEXT("pair")).Equals(TEXT("😀")));
	EXPECT_TRUE(Object->GetStringField(TEXT("lone")).Equals(TEXT("x\xFFFDy")));
	EXPECT_TRUE(Object->GetStringField(TEXT("low")).Equals(TEXT("\xFFFD")));
	EXPECT_TRUE(Object->GetStringField(TEXT("kept")).Equals(TEXT("\\ud800"))) << "an escaped backslash is not an escape";
	EXPECT_TRUE(Object->GetStringField(TEXT("short")).Equals(TEXT("\"\\/\b\f\n\r\t")));
	EXPECT_EQ(Object->GetNumberField(TEXT("键")), 1.0);
}

TEST(JsonDocument, ReadsTheCommentDocument)
{
	const FString Text = TEXT("{ \"datas\": [ { \"id\": 1, \"post_id\": 7, \"bullet_chat_author_id\": 42, \"bullet_chat_author\": \"Ann\",\n")
		TEXT("  \"bullet_chat_date\": \"2024.05.01-12.00.00\", \"time\": \"00:00:05\", \"bullet_chat_content\": \"Hello 你好\",\n")
		TEXT("  \"fabulous\": 3 }, { \"id\": 2, \"post_id\": 7, \"bullet_chat_author_id\": 43, \"bullet_chat_author\": \"Bo\",\n")
		TEXT("  \"bullet_chat_date\": \"2024.05.01-12.00.09\", \"time\": \"00:01:10\", \"bullet_chat_content\": \"\\u7b2c\\u4e8c\",\n")
		TEXT("  \"fabulous\": 0 } ] }");
	const TSharedPtr<FJsonObject> Document = ReadObject(Text);
	ASSERT_TRUE(Document.IsValid());
	const TArray<TSharedPtr<FJsonValue>>& Records = Document->GetArrayField(TEXT("datas"));
	ASSERT_EQ(Records.Num(), 2);
	const TSharedPtr<FJsonObject>& Second = Records[1]->AsObject();
	ASSERT_TRUE(Second.IsValid());
	EXPECT_EQ(Second->GetIntegerField(TEXT("id")), 2);
	EXPECT_EQ(Second->GetIntegerField(TEXT("bullet_chat_author_id")), 43);
	EXPECT_TRUE(Second->GetStringField(TEXT("bullet_chat_author")).Equals(TEXT("Bo")));
	EXPECT_TRUE(Second->GetStringField(TEXT("time")).Equals(TEXT("00:01:10")));
	EXPECT_TRUE(Second->GetStringField(TEXT("bullet_chat_content")).Equals(TEXT("第二")));
	EXPECT_TRUE(Records[0]->AsObject()->GetStringField(TEXT("bullet_chat_content")).Equals(TEXT("Hello 你好")));
	EXPECT_EQ(Records[0]->AsObject()->GetNumberField(TEXT("fabulous")), 3.0);
}

TEST(JsonSerializer, WritesTextThatReadsBackToTheSameTree)
{
	const TSharedPtr<FJsonObject> Object = MakeShared<FJsonObject>();
	Object->SetStringField(TEXT("text"), TEXT("say \"hi\"\n\x01 你好"));
	Object->SetNumberField(TEXT("n"), 7.9);
	Object->SetNumberField(TEXT("id"), 42);
	Object->SetBoolField(TEXT("ok"), true);
	Object->SetArrayField(TEXT("list"), {MakeShared<FJsonValueNumber>(-1), MakeShared<FJsonValueNull>()});
	Object->SetObjectField(TEXT("inner"), MakeShared<FJsonObject>());
	Object->SetField(TEXT("text"), MakeShared<FJsonValueString>(TEXT("say \"hi\"\n\x01 你好")));

	FString Condensed;
	ASSERT_TRUE(FJsonSerializer::Serialize(Object.ToSharedRef(), TJsonWriterFactory<TCHAR, TCondensedJsonPrintPolicy<TCHAR>>::Create(&Condensed)));
	EXPECT_TRUE(Condensed.Equals(TEXT("{\"text\":\"say \\\"hi\\\"\\n\\u0001 你好\",\"n\":7.9,\"id\":42,\"ok\":true,\"list\":[-1,null],\"inner\":{}}")))
		<< Condensed;

	FString Pretty;
	ASSERT_TRUE(FJsonSerializer::Serialize(Object.ToSharedRef(), TJsonWriterFactory<>::Create(&Pretty)));
	EXPECT_TRUE(Pretty.StartsWith(TEXT("{\n\t\"text\": ")));
	const TSharedPtr<FJsonObject> Back = ReadObject(Pretty);
	ASSERT_TRUE(Back.IsValid());
	EXPECT_TRUE(Back->GetStringField(TEXT("text")).Equals(Object->GetStringField(TEXT("text"))));
	EXPECT_EQ(Back->GetNumberField(TEXT("n")), 7.9);
	EXPECT_EQ(Back->GetArrayField(TEXT("list")).Num(), 2);

	// A writer left with an open container does not close.
	FString Partial;
	const TSharedRef<TJsonWriter<>> Writer = TJsonWriterFactory<>::Create(&Partial);
	Writer->WriteObjectStart();
	Writer->WriteValue(TEXT("a"), 1);
	EXPECT_FALSE(Writer->Close());
}
