#include "Serialization/JsonTextParser.h"

#include "Serialization/JsonSerializer.h"
#include "Serialization/JsonTextRepair.h"
#include "Serialization/JsonTreeBuilder.h"

#include <rapidjson/error/en.h>

namespace UE::Json::Private
{
	namespace
	{
		// Strict JSON (no comments, trailing commas or NaN), numbers handed over as text and
		// converted by us, correctly rounded. Letting the reader convert them is worse in both its
		// modes: the default one may be a few units in the last place off, and both overflow an int
		// on exponents near 2^31, which can read far outside a table.
		constexpr unsigned StrictFlags = rapidjson::kParseInsituFlag | rapidjson::kParseNumbersAsStringsFlag;
		// For repaired text only, where Infinity stands for a number past double's range.
		constexpr unsigned RepairedFlags = StrictFlags | rapidjson::kParseNanAndInfFlag;

		bool RootIsAllowed(FStringView Text, EJsonRoot AllowedRoot)
		{
			for (const TCHAR Char : Text)
			{
				if (Char == TEXT(' ') || Char == TEXT('\t') || Char == TEXT('\n') || Char == TEXT('\r'))
				{
					continue;
				}
				return (Char == TEXT('{') && AllowedRoot != EJsonRoot::Array) || (Char == TEXT('[') && AllowedRoot != EJsonRoot::Object);
			}
			return false;
		}

		FString DescribeRootRule(EJsonRoot AllowedRoot)
		{
			switch (AllowedRoot)
			{
			case EJsonRoot::Object:
				return TEXT("The root is not an object.");
			case EJsonRoot::Array:
				return TEXT("The root is not an array.");
			default:
				return TEXT("The root is neither an object nor an array.");
			}
		}

		FString DescribePosition(FStringView Text, size_t Offset)
		{
			int32 Line = 1;
			int32 Column = 1;
			const int32 End = Offset < static_cast<size_t>(Text.Len()) ? static_cast<int32>(Offset) : Text.Len();
			for (int32 Index = 0; Index < End; ++Index)
			{
				Column = Text[Index] == TEXT('\n') ? 1 : Column + 1;
				Line += Text[Index] == TEXT('\n') ? 1 : 0;
			}
			return FString::Printf(TEXT(" Line: %d Ch: %d"), Line, Column);
		}

		// One pass of the reader over Text; on failure OutError is set and OutCode says why.
		template<unsigned Flags>
		bool ReadOnce(FStringView Text, TSharedPtr<FJsonValue>& OutRoot, FString& OutError, rapidjson::ParseErrorCode& OutCode)
		{
			FStringScratch Scratch;
			FTextStream Stream(Text.GetData(), Text.GetData() + Text.Len(), Scratch);
			FTreeBuilder Builder(Scratch, FJsonSerializer::MaxDepth);
			rapidjson::GenericReader<FTextEncoding, FTextEncoding> Reader;
			const rapidjson::ParseResult Result = Reader.Parse<Flags>(Stream, Builder);
			OutCode = Result.Code();
			if (Result.IsError())
			{
				const FString What = Builder.WasTooDeep()
					? FString::Printf(TEXT("Nesting is deeper than %d levels."), FJsonSerializer::MaxDepth)
					: FString(rapidjson::GetParseError_En(Result.Code()));
				OutError = What + DescribePosition(Text, Result.Offset());
				return false;
			}
			// The reader stops at a NUL; one inside the text would hide whatever follows it.
			if (Stream.Tell() != static_cast<size_t>(Text.Len()))
			{
				OutError = FString(TEXT("The document root must not be followed by other values.")) + DescribePosition(Text, Stream.Tell());
				return false;
			}
			OutRoot = Builder.TakeRoot();
			return true;
		}
	}

	bool ParseJsonText(FStringView Text, EJsonRoot AllowedRoot, TSharedPtr<FJsonValue>& OutRoot, FString& OutError)
	{
		if (!RootIsAllowed(Text, AllowedRoot))
		{
			OutError = DescribeRootRule(AllowedRoot);
			return false;
		}
		rapidjson::ParseErrorCode Code = rapidjson::kParseErrorNone;
		if (ReadOnce<StrictFlags>(Text, OutRoot, OutError, Code))
		{
			return true;
		}
		// Rare: numbers past double's range and lone surrogate escapes get a second, repaired read
		// rather than a cost on every document.
		if (Code != rapidjson::kParseErrorNumberTooBig && Code != rapidjson::kParseErrorStringUnicodeSurrogateInvalid)
		{
			return false;
		}
		FString Repaired;
		if (!RepairJsonText(FString(Text.Len(), Text.GetData()), Repaired))
		{
			return false;
		}
		FString RepairedError;
		if (!ReadOnce<RepairedFlags>(FStringView(Repaired), OutRoot, RepairedError, Code))
		{
			// Whatever else is wrong; positions are near enough, as only numbers were respelled.
			OutError = MoveTemp(RepairedError);
			return false;
		}
		OutError.Reset();
		return true;
	}
}
