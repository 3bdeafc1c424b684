// FString, FCString, UTF-8 conversion, FName and FText.

#include "Containers/Array.h"
#include "Containers/Map.h"
#include "Containers/StringConv.h"
#include "Containers/UnrealString.h"
#include "Internationalization/Text.h"
#include "Misc/CString.h"
#include "UObject/NameTypes.h"

#include <gtest/gtest.h>

#include <ostream>
#include <thread>
#include <vector>

// Lets a failed expectation show the string itself.
void PrintTo(const FString& String, std::ostream* Stream)
{
	*Stream << '"' << FTCHARToUTF8(*String).Get() << '"';
}

TEST(StringCompare, EqualityAndOrderIgnoreCaseWhileEqualsAndCompareDoNot)
{
	const FString Hello(TEXT("Hello"));
	EXPECT_TRUE(Hello == TEXT("hELLO"));
	EXPECT_TRUE(TEXT("HELLO") == Hello);
	EXPECT_TRUE(Hello == FString(TEXT("hello")));
	EXPECT_FALSE(Hello != TEXT("hello"));
	EXPECT_TRUE(Hello != TEXT("Hello!"));
	EXPECT_TRUE(FString(TEXT("ÉCOLE")) == TEXT("école"));

	EXPECT_FALSE(Hello.Equals(TEXT("hello")));
	EXPECT_TRUE(Hello.Equals(TEXT("hello"), ESearchCase::IgnoreCase));
	EXPECT_TRUE(FString(TEXT("apple")) < FString(TEXT("Banana")));
	EXPECT_LT(FString(TEXT("B")).Compare(TEXT("a")), 0);
	EXPECT_EQ(FString(TEXT("B")).Compare(TEXT("b"), ESearchCase::IgnoreCase), 0);
	EXPECT_LT(FString(TEXT("ab")).Compare(TEXT("abc")), 0);

	EXPECT_EQ(GetTypeHash(Hello), GetTypeHash(FString(TEXT("HELLO"))));
	EXPECT_EQ(GetTypeHash(FString(TEXT("ÉCOLE"))), GetTypeHash(FString(TEXT("école"))));
	EXPECT_NE(GetTypeHash(Hello), GetTypeHash(FString(TEXT("Hellp"))));
	EXPECT_EQ(FCString::Strlen(*FString()), 0);
}

TEST(StringSearch, FindsFromEitherEndWithOrWithoutCase)
{
	const FString Text(TEXT("Hello hello HELLO"));
	EXPECT_EQ(Text.Find(TEXT("hello")), 0);
	EXPECT_EQ(Text.Find(TEXT("hello"), ESearchCase::CaseSensitive), 6);
	EXPECT_EQ(Text.Find(TEXT("hello"), ESearchCase::IgnoreCase, ESearchDir::FromEnd), 12);
	EXPECT_EQ(Text.Find(TEXT("hello"), ESearchCase::CaseSensitive, ESearchDir::FromEnd), 6);
	EXPECT_EQ(Text.Find(TEXT("hello"), ESearchCase::IgnoreCase, ESearchDir::FromStart, 1), 6);
	EXPECT_EQ(Text.Find(TEXT("hello"), ESearchCase::IgnoreCase, ESearchDir::FromEnd, 11), 6);
	EXPECT_EQ(Text.Find(TEXT("HELLO"), ESearchCase::CaseSensitive, ESearchDir::FromStart, 13), INDEX_NONE);
	EXPECT_EQ(Text.Find(TEXT("")), INDEX_NONE);
	EXPECT_EQ(Text.Find(TEXT("Hello hello HELLO!")), INDEX_NONE);

	EXPECT_TRUE(Text.Contains(TEXT("LO HE")));
	EXPECT_FALSE(Text.Contains(TEXT("LO HE"), ESearchCase::CaseSensitive));
	EXPECT_TRUE(Text.StartsWith(TEXT("hELLO")));
	EXPECT_FALSE(Text.StartsWith(TEXT("hELLO"), ESearchCase::CaseSensitive));
	EXPECT_TRUE(Text.EndsWith(TEXT("llo")));
	EXPECT_FALSE(Text.StartsWith(TEXT("")));
	EXPECT_FALSE(Text.EndsWith(TEXT("")));

	int32 Index = 0;
	EXPECT_TRUE(Text.FindChar('l', Index));
	EXPECT_EQ(Index, 2);
	EXPECT_TRUE(Text.FindLastChar('l', Index));
	EXPECT_EQ(Index, 9);
	EXPECT_FALSE(Text.FindChar('z', Index));
	EXPECT_EQ(Index, INDEX_NONE);

	EXPECT_TRUE(FString(TEXT("clip_01.MP4")).MatchesWildcard(TEXT("*.mp4")));
	EXPECT_FALSE(FString(TEXT("clip_01.MP4")).MatchesWildcard(TEXT("*.mp4"), ESearchCase::CaseSensitive));
	EXPECT_TRUE(FString(TEXT("abcabd")).MatchesWildcard(TEXT("a*b?")));
	EXPECT_FALSE(FString(TEXT("abc")).MatchesWildcard(TEXT("a?")));
}

TEST(StringSplit, SplitsAtFirstOrLastAndLeavesOutputsUntouchedOnMiss)
{
	const FString Pair(TEXT("key=value=more"));
	FString Left;
	FString Right;
	ASSERT_TRUE(Pair.Split(TEXT("="), &Left, &Right));
	EXPECT_EQ(Left, TEXT("key"));
	EXPECT_EQ(Right, TEXT("value=more"));
	ASSERT_TRUE(Pair.Split(TEXT("="), &Left, &Right, ESearchCase::IgnoreCase, ESearchDir::FromEnd));
	EXPECT_EQ(Left, TEXT("key=value"));
	EXPECT_EQ(Right, TEXT("more"));
	ASSERT_TRUE(FString(TEXT("AxBXc")).Split(TEXT("X"), &Left, nullptr, ESearchCase::CaseSensitive));
	EXPECT_TRUE(Left.Equals(TEXT("AxB")));

	Left = TEXT("keepLeft");
	Right = TEXT("keepRight");
	EXPECT_FALSE(Pair.Split(TEXT(":"), &Left, &Right));
	EXPECT_TRUE(Left.Equals(TEXT("keepLeft")));
	EXPECT_TRUE(Right.Equals(TEXT("keepRight")));

	// The string may split into itself.
	FString Self(TEXT("a/b"));
	ASSERT_TRUE(Self.Split(TEXT("/"), &Self, &Right));
	EXPECT_TRUE(Self.Equals(TEXT("a")));
	EXPECT_TRUE(Right.Equals(TEXT("b")));

	TArray<FString> Parts;
	EXPECT_EQ(FString(TEXT("a,,b,")).ParseIntoArray(Parts, TEXT(",")), 2);
	EXPECT_EQ(FString(TEXT("a,,b,")).ParseIntoArray(Parts, TEXT(","), false), 4);
	EXPECT_TRUE(Parts[1].IsEmpty());
	EXPECT_EQ(FString::Join(Parts, TEXT("|")), TEXT("a||b|"));
	EXPECT_EQ(FString().ParseIntoArray(Parts, TEXT(","), false), 0);
}

TEST(StringSubstrings, ClampCountsAndRemoveAffixesOnlyWhenPresent)
{
	const FString Text(TEXT("abcdef"));
	EXPECT_EQ(Text.Left(3), TEXT("abc"));
	EXPECT_EQ(Text.Left(100), TEXT("abcdef"));
	EXPECT_EQ(Text.Left(-1), TEXT(""));
	EXPECT_EQ(Text.Right(2), TEXT("ef"));
	EXPECT_EQ(Text.Mid(2), TEXT("cdef"));
	EXPECT_EQ(Text.Mid(2, 2), TEXT("cd"));
	EXPECT_EQ(Text.Mid(-3, 5), TEXT("ab"));
	EXPECT_EQ(Text.Mid(10, 2), TEXT(""));
	EXPECT_EQ(Text.LeftChop(2), TEXT("abcd"));
	EXPECT_EQ(Text.RightChop(2), TEXT("cdef"));
	EXPECT_EQ(Text.RightChop(99), TEXT(""));

	FString Path(TEXT("/Game/Movies/Intro.mp4"));
	EXPECT_TRUE(Path.RemoveFromStart(TEXT("/game/")));
	EXPECT_FALSE(Path.RemoveFromStart(TEXT("movies"), ESearchCase::CaseSensitive));
	EXPECT_TRUE(Path.RemoveFromEnd(FString(TEXT(".MP4"))));
	EXPECT_TRUE(Path.RemoveFromStart(TEXT("Movies/xyz"), 7, ESearchCase::CaseSensitive));
	EXPECT_FALSE(Path.RemoveFromEnd(TEXT("")));
	EXPECT_TRUE(Path.Equals(TEXT("Intro")));
}

TEST(StringPaths, PathAppendPutsExactlyOneSlashBetweenParts)
{
	EXPECT_TRUE((FString(TEXT("a")) / TEXT("b")).Equals(TEXT("a/b")));
	EXPECT_TRUE((FString(TEXT("a/")) / TEXT("/b")).Equals(TEXT("a/b")));
	EXPECT_TRUE((FString(TEXT("a//")) / FString(TEXT("b/c"))).Equals(TEXT("a/b/c")));
	EXPECT_TRUE((FString() / TEXT("b")).Equals(TEXT("b")));
	EXPECT_TRUE((FString(TEXT("/")) / TEXT("b")).Equals(TEXT("/b")));
	FString Dir(TEXT("Content"));
	Dir /= TEXT("");
	EXPECT_TRUE(Dir.Equals(TEXT("Content/")));
	Dir.PathAppend(TEXT("Movies/ignored"), 6);
	EXPECT_TRUE(Dir.Equals(TEXT("Content/Movies")));
}

TEST(StringTransform, TrimsReplacesPadsAndConvertsNumbers)
{
	EXPECT_TRUE(FString(TEXT(" \t\u00A0title \r\n")).TrimStartAndEnd().Equals(TEXT("title")));
	EXPECT_TRUE(FString(TEXT("  x ")).TrimStart().Equals(TEXT("x ")));
	EXPECT_TRUE(FString(TEXT("  x ")).TrimEnd().Equals(TEXT("  x")));
	EXPECT_TRUE(FString(TEXT("Straße")).ToUpper().Equals(TEXT("STRAßE")));
	EXPECT_TRUE(FString(TEXT("ÀB")).ToLower().Equals(TEXT("àb")));

	FString Sentence(TEXT("Cat cat CAT dog"));
	EXPECT_TRUE(Sentence.Replace(TEXT("cat"), TEXT("cow"), ESearchCase::CaseSensitive).Equals(TEXT("Cat cow CAT dog")));
	EXPECT_EQ(Sentence.ReplaceInline(TEXT("cat"), TEXT("catcat")), 3);
	EXPECT_TRUE(Sentence.Equals(TEXT("catcat catcat catcat dog")));
	EXPECT_EQ(Sentence.ReplaceInline(TEXT(""), TEXT("x")), 0);

	EXPECT_TRUE(FString(TEXT("7")).LeftPad(3).Equals(TEXT("  7")));
	EXPECT_TRUE(FString(TEXT("7")).RightPad(3).Equals(TEXT("7  ")));
	EXPECT_TRUE(FString(TEXT("1234")).LeftPad(3).Equals(TEXT("1234")));

	EXPECT_TRUE(FString(TEXT("-12.5")).IsNumeric());
	EXPECT_TRUE(FString(TEXT("+3")).IsNumeric());
	EXPECT_FALSE(FString(TEXT("1.2.3")).IsNumeric());
	EXPECT_FALSE(FString(TEXT("-")).IsNumeric());
	EXPECT_FALSE(FString(TEXT("")).IsNumeric());
	EXPECT_FALSE(FString(TEXT("1e5")).IsNumeric());

	EXPECT_TRUE(FString::FromInt(-2147483647 - 1).Equals(TEXT("-2147483648")));
	EXPECT_TRUE(FString::SanitizeFloat(1.0).Equals(TEXT("1.0")));
	EXPECT_TRUE(FString::SanitizeFloat(2.25).Equals(TEXT("2.25")));
	EXPECT_TRUE(FString::SanitizeFloat(-0.1).Equals(TEXT("-0.1")));
	EXPECT_TRUE(FString::SanitizeFloat(100.0, 0).Equals(TEXT("100")));
	EXPECT_TRUE(FString::SanitizeFloat(0.5, 3).Equals(TEXT("0.500")));
}

TEST(CString, NumberParsersReadTheLongestPrefixAndNeverOverflow)
{
	EXPECT_DOUBLE_EQ(FCString::Atod(TEXT("1.5x")), 1.5);
	EXPECT_DOUBLE_EQ(FCString::Atod(TEXT("2X")), 2.0);
	EXPECT_DOUBLE_EQ(FCString::Atod(TEXT("1.25")), 1.25);
	EXPECT_DOUBLE_EQ(FCString::Atod(TEXT("  -0.75")), -0.75);
	EXPECT_DOUBLE_EQ(FCString::Atod(TEXT("abc")), 0.0);
	EXPECT_DOUBLE_EQ(FCString::Atod(TEXT("")), 0.0);
	EXPECT_DOUBLE_EQ(FCString::Atod(TEXT("1e3s")), 1000.0);
	EXPECT_FLOAT_EQ(FCString::Atof(TEXT("0.5")), 0.5f);

	EXPECT_EQ(FCString::Atoi(TEXT(" 42abc")), 42);
	EXPECT_EQ(FCString::Atoi(TEXT("-17")), -17);
	EXPECT_EQ(FCString::Atoi(TEXT("99999999999")), 2147483647);
	EXPECT_EQ(FCString::Atoi64(TEXT("-9223372036854775808")), INT64_MIN);
	EXPECT_EQ(FCString::Atoi64(TEXT("99999999999999999999")), INT64_MAX);
	EXPECT_EQ(FCString::Atoi(nullptr), 0);

	EXPECT_EQ(FCString::Stricmp(TEXT("ÄBC"), TEXT("äbc")), 0);
	EXPECT_LT(FCString::Strcmp(TEXT("ABC"), TEXT("abc")), 0);
	EXPECT_EQ(FCString::Strnicmp(TEXT("HelloX"), TEXT("helloY"), 5), 0);
	const TCHAR* Haystack = TEXT("Bullet CHAT");
	EXPECT_EQ(FCString::Stristr(Haystack, TEXT("chat")), Haystack + 7);
	EXPECT_EQ(FCString::Strstr(Haystack, TEXT("chat")), nullptr);
}

TEST(StringConv, Utf8RoundTripsAndReplacesMalformedBytes)
{
	const FString Mixed(TEXT("héllo 中文 😀"));
	EXPECT_EQ(Mixed.Len(), 11) << "the emoji is a surrogate pair";
	const FTCHARToUTF8 Utf8(*Mixed);
	EXPECT_EQ(Utf8.Length(), 18);
	EXPECT_TRUE(FString(Utf8.Get()).Equals(Mixed));
	EXPECT_TRUE(FString(UTF8_TO_TCHAR(TCHAR_TO_UTF8(*Mixed))).Equals(Mixed));

	const TCHAR Replacement[] = {0xFFFD, 0};
	EXPECT_TRUE(FString("\xC3(").Equals(FString(Replacement) + TEXT("(")));
	// Overlong form: two invalid bytes, two replacements.
	EXPECT_EQ(FString("\xC0\xAF").Len(), 2);
	// A sequence cut short at the end is one replacement.
	EXPECT_TRUE(FString("ab\xE4\xB8").Equals(FString(TEXT("ab")) + Replacement));
	// An encoded surrogate is refused byte by byte.
	EXPECT_EQ(FString("\xED\xA0\x80").Len(), 3);
	EXPECT_EQ(FString::FromUTF8("a\0b", 3).Len(), 3);

	const TCHAR LoneSurrogate[] = {'x', 0xD800, 0};
	EXPECT_STREQ(FTCHARToUTF8(LoneSurrogate).Get(), "x\xEF\xBF\xBD");
}

TEST(StringUnicode, CaseFoldsBeyondAsciiAndKeepsSurrogatePairsWhole)
{
	const FString Upper(TEXT("ΑΒΓ ПРИВЕТ ÄÖÜ 😂学"));
	const FString Lower(TEXT("αβγ привет äöü 😂学"));
	EXPECT_TRUE(Upper == Lower);
	EXPECT_FALSE(Upper.Equals(Lower));
	EXPECT_EQ(Upper.Compare(Lower, ESearchCase::IgnoreCase), 0);
	EXPECT_EQ(GetTypeHash(Upper), GetTypeHash(Lower));
	EXPECT_TRUE(Upper.ToLower().Equals(Lower)) << "the pair passes through case mapping untouched";
	EXPECT_EQ(Upper.Find(TEXT("привет")), 4);
	EXPECT_EQ(Lower.Find(TEXT("学")), 17);

	TMap<FString, int32> ByName;
	ByName.Add(Upper, 1);
	ASSERT_NE(ByName.Find(Lower), nullptr);

	// A code point beyond U+FFFF printed with %c becomes its pair.
	EXPECT_TRUE(FString::Printf(TEXT("[%c]"), U'😂').Equals(TEXT("[😂]")));
}

TEST(StringSharing, CopiesShareTheirTextUntilOneChangesAndNoWriteReachesAnother)
{
	const FString Original(TEXT("Hello"));
	FString Appended = Original;
	Appended += TEXT("!");
	FString Upper = Original;
	Upper.ToUpperInline();
	FString Emptied = Original;
	Emptied.Reset();
	FString Cut = Original;
	Cut.RemoveAt(0, 2);
	EXPECT_TRUE(Original.Equals(TEXT("Hello")));
	EXPECT_TRUE(Appended.Equals(TEXT("Hello!")));
	EXPECT_TRUE(Upper.Equals(TEXT("HELLO")));
	EXPECT_TRUE(Emptied.IsEmpty());
	EXPECT_TRUE(Cut.Equals(TEXT("llo")));

	// A writable reference taken before a copy is made must not write into the copy.
	FString Written(TEXT("Hello"));
	TCHAR& First = Written[0];
	const FString Copy = Written;
	First = 'J';
	EXPECT_TRUE(Written.Equals(TEXT("Jello")));
	EXPECT_TRUE(Copy.Equals(TEXT("Hello")));

	// Text appended or inserted from itself, whose storage the change may move.
	FString Doubled(TEXT("ab"));
	Doubled.Append(Doubled);
	Doubled.InsertAt(1, Doubled);
	EXPECT_TRUE(Doubled.Equals(TEXT("aababbab")));
	FString Tail(TEXT("xyz"));
	Tail.Append(*Tail + 1, 2);
	EXPECT_TRUE(Tail.Equals(TEXT("xyzyz")));

	// Copies released on other threads while this one keeps changing its own.
	FString Shared(TEXT("shared text"));
	std::vector<std::thread> Threads;
	for (int32 Thread = 0; Thread < 4; ++Thread)
	{
		Threads.emplace_back([Shared] {
			for (int32 Round = 0; Round < 10000; ++Round)
			{
				FString Local = Shared;
				Local.AppendChar('!');
			}
		});
	}
	for (int32 Round = 0; Round < 10000; ++Round)
	{
		FString Local = Shared;
	}
	for (std::thread& Thread : Threads)
	{
		Thread.join();
	}
	EXPECT_TRUE(Shared.Equals(TEXT("shared text")));
}

// Objects are named Class_N, and a long lesson makes hundreds of thousands of them: the number is
// kept beside the text, so the name table holds "CommentNode" once, not once per object.
TEST(Name, KeepsATrailingNumberApartFromTheText)
{
	const FName Seventh(TEXT("CommentNode_7"));
	EXPECT_EQ(Seventh.GetNumber(), NAME_EXTERNAL_TO_INTERNAL(7));
	EXPECT_TRUE(Seventh.GetPlainNameString().Equals(TEXT("CommentNode")));
	EXPECT_TRUE(Seventh.ToString().Equals(TEXT("CommentNode_7")));
	EXPECT_EQ(Seventh, FName(TEXT("commentnode"), NAME_EXTERNAL_TO_INTERNAL(7)));
	EXPECT_EQ(Seventh, FName(FName(TEXT("CommentNode")), NAME_EXTERNAL_TO_INTERNAL(7)));
	EXPECT_EQ(FName(TEXT("CommentNode_123456")).GetComparisonIndex(), Seventh.GetComparisonIndex());
	EXPECT_NE(Seventh, FName(TEXT("CommentNode_8")));
	EXPECT_NE(Seventh, FName(TEXT("CommentNode")));
	EXPECT_NE(GetTypeHash(Seventh), GetTypeHash(FName(TEXT("CommentNode_8"))));
	EXPECT_TRUE(Seventh == TEXT("commentnode_7"));
	EXPECT_TRUE(FName(TEXT("CommentNode_2")).LexicalLess(FName(TEXT("CommentNode_10"))));
	EXPECT_EQ(FName(TEXT("Lane_0")).GetNumber(), 1);

	// What is not a plain number stays part of the text, and prints back as it came.
	for (const TCHAR* Kept : {TEXT("Lane_07"), TEXT("_5"), TEXT("Lane5"), TEXT("Lane_"), TEXT("Lane_-5"), TEXT("Lane_99999999999"), TEXT("Lane_2147483647")})
	{
		const FName Name(Kept);
		EXPECT_EQ(Name.GetNumber(), NAME_NO_NUMBER_INTERNAL) << TCHAR_TO_UTF8(Kept);
		EXPECT_TRUE(Name.ToString().Equals(Kept)) << TCHAR_TO_UTF8(Kept);
	}
	EXPECT_TRUE(FName(TEXT("Never_Seen_Either_3"), FNAME_Find).IsNone());
}

TEST(Name, InternsIgnoringCaseAndKeepsTheFirstCasing)
{
	const FName First(TEXT("PlayButton_Unique"));
	const FName Second(TEXT("PLAYBUTTON_UNIQUE"));
	EXPECT_EQ(First, Second);
	EXPECT_EQ(GetTypeHash(First), GetTypeHash(Second));
	EXPECT_TRUE(Second.ToString().Equals(TEXT("PlayButton_Unique")));
	EXPECT_TRUE(First == TEXT("playbutton_unique"));
	EXPECT_NE(First, FName(TEXT("PauseButton")));

	EXPECT_TRUE(FName().IsNone());
	EXPECT_EQ(FName(TEXT("")), NAME_None);
	EXPECT_EQ(FName(TEXT("none")), NAME_None);
	EXPECT_TRUE(FName(NAME_None).ToString().Equals(TEXT("None")));
	EXPECT_TRUE(FName(TEXT("Never_Seen_Before"), FNAME_Find).IsNone());
	EXPECT_TRUE(FName(TEXT("alpha")).LexicalLess(FName(TEXT("Beta"))));

	// Threads racing to intern the same new names agree on them.
	std::vector<std::vector<FName>> PerThread(4);
	std::vector<std::thread> Threads;
	for (std::vector<FName>& Names : PerThread)
	{
		Threads.emplace_back([&Names]
		{
			for (int32 Index = 0; Index < 200; ++Index)
			{
				Names.push_back(FName(*FString::Printf(TEXT("Raced_%d"), Index)));
			}
		});
	}
	for (std::thread& Thread : Threads)
	{
		Thread.join();
	}
	for (int32 Index = 0; Index < 200; ++Index)
	{
		EXPECT_EQ(PerThread[0][Index], PerThread[3][Index]);
		EXPECT_NE(PerThread[0][Index], PerThread[0][(Index + 1) % 200]);
	}
}

#define LOCTEXT_NAMESPACE "VidariaPlayer"

TEST(Text, LocalizedTextRemembersNamespaceAndKey)
{
	const FText Explicit = NSLOCTEXT("BulletChat", "SendLabel", "Send");
	EXPECT_TRUE(Explicit.ToString().Equals(TEXT("Send")));
	EXPECT_TRUE(FTextInspector::GetNamespace(Explicit).Equals(TEXT("BulletChat")));
	EXPECT_TRUE(FTextInspector::GetKey(Explicit).Equals(TEXT("SendLabel")));

	const FText FromMacro = LOCTEXT("PauseLabel", "Pause");
	EXPECT_TRUE(FTextInspector::GetNamespace(FromMacro).Equals(TEXT("VidariaPlayer")));
	EXPECT_TRUE(FTextInspector::GetKey(FromMacro).Equals(TEXT("PauseLabel")));

	const FText Plain = FText::FromString(TEXT("send"));
	EXPECT_TRUE(FTextInspector::GetNamespace(Plain).IsEmpty());
	EXPECT_TRUE(FTextInspector::GetKey(Plain).IsEmpty());
	EXPECT_FALSE(Plain.EqualTo(Explicit));
	EXPECT_TRUE(Plain.EqualToCaseIgnored(Explicit));
	EXPECT_TRUE(FText::GetEmpty().IsEmpty());
	EXPECT_TRUE(FText().ToString().IsEmpty());
	EXPECT_TRUE(FText::FromString(TEXT(" \t")).IsEmptyOrWhitespace());

	const FText Copy = Explicit;
	EXPECT_EQ(&Copy.ToString(), &Explicit.ToString());
}

#undef LOCTEXT_NAMESPACE
