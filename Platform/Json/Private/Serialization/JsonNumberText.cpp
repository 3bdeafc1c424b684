#include "Serialization/JsonNumberText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <string_view>
#include <system_error>

namespace UE::Json::Private
{
	namespace
	{
		bool IsDigit(TCHAR Char)
		{
			return Char >= TEXT('0') && Char <= TEXT('9');
		}

		// Which way a token that from_chars called out of range went: the decimal exponent of its
		// first significant digit is far above zero for an overflow and far below it for an underflow.
		bool IsPastLargest(std::string_view Token)
		{
			const size_t MantissaStart = Token[0] == '-' ? 1 : 0;
			size_t MantissaEnd = Token.find_first_of("eE");
			MantissaEnd = MantissaEnd == std::string_view::npos ? Token.size() : MantissaEnd;
			const size_t Dot = std::min(Token.find('.', MantissaStart), MantissaEnd);
			const size_t First = Token.find_first_of("123456789", MantissaStart);
			if (First == std::string_view::npos || First >= MantissaEnd)
			{
				return false;
			}
			const int64 LeadExponent = First < Dot ? int64(Dot) - int64(First) - 1 : int64(Dot) - int64(First);

			int64 Exponent = 0;
			bool bNegative = false;
			for (size_t Index = MantissaEnd + 1; Index < Token.size(); ++Index)
			{
				bNegative = bNegative || Token[Index] == '-';
				// Saturates: any exponent this large already decides the answer.
				if (IsDigit(Token[Index]) && Exponent < 1000000000)
				{
					Exponent = Exponent * 10 + (Token[Index] - '0');
				}
			}
			return LeadExponent + (bNegative ? -Exponent : Exponent) > 0;
		}
	}

	void AppendJsonNumber(FString& Out, double Value)
	{
		if (!std::isfinite(Value))
		{
			Out += TEXT("null");
			return;
		}
		char Buffer[32];
		const std::to_chars_result Result = std::to_chars(Buffer, Buffer + sizeof(Buffer), Value);
		for (const char* Char = Buffer; Char != Result.ptr; ++Char)
		{
			Out.AppendChar(static_cast<TCHAR>(*Char));
		}
	}

	int32 MeasureJsonNumber(const TCHAR* Begin, const TCHAR* End)
	{
		const TCHAR* Char = Begin;
		auto SkipDigits = [&Char, End]()
		{
			const TCHAR* Start = Char;
			while (Char != End && IsDigit(*Char))
			{
				++Char;
			}
			return Char != Start;
		};
		if (Char != End && *Char == TEXT('-'))
		{
			++Char;
		}
		if (Char != End && *Char == TEXT('0'))
		{
			++Char;
		}
		else if (!SkipDigits())
		{
			return 0;
		}
		const TCHAR* Whole = Char;
		if (Char != End && *Char == TEXT('.'))
		{
			++Char;
			if (!SkipDigits())
			{
				return static_cast<int32>(Whole - Begin);
			}
		}
		const TCHAR* BeforeExponent = Char;
		if (Char != End && (*Char == TEXT('e') || *Char == TEXT('E')))
		{
			++Char;
			if (Char != End && (*Char == TEXT('+') || *Char == TEXT('-')))
			{
				++Char;
			}
			if (!SkipDigits())
			{
				return static_cast<int32>(BeforeExponent - Begin);
			}
		}
		return static_cast<int32>(Char - Begin);
	}

	double ConvertJsonNumber(const TCHAR* Text, int32 Length)
	{
		// Most numbers in documents are small whole numbers (ids, counts): up to 15 digits they
		// are exact as a double, so they need no general conversion.
		const bool bNegative = Length > 0 && Text[0] == TEXT('-');
		if (Length - int32(bNegative) > 0 && Length - int32(bNegative) <= 15)
		{
			int64 Whole = 0;
			int32 Index = int32(bNegative);
			for (; Index < Length && IsDigit(Text[Index]); ++Index)
			{
				Whole = Whole * 10 + (Text[Index] - TEXT('0'));
			}
			if (Index == Length)
			{
				// -0 keeps its sign, as the general conversion gives it.
				return bNegative ? -static_cast<double>(Whole) : static_cast<double>(Whole);
			}
		}
		// Tokens are ASCII; a short one is narrowed on the stack, as almost every number is short.
		char Small[64];
		std::string Large;
		char* Token = Small;
		if (Length >= static_cast<int32>(sizeof(Small)))
		{
			Large.resize(static_cast<size_t>(Length));
			Token = Large.data();
		}
		for (int32 Index = 0; Index < Length; ++Index)
		{
			Token[Index] = static_cast<char>(Text[Index]);
		}
		double Value = 0.0;
		const std::from_chars_result Result = std::from_chars(Token, Token + Length, Value);
		if (Result.ec == std::errc::result_out_of_range)
		{
			const double Magnitude = IsPastLargest(std::string_view(Token, static_cast<size_t>(Length))) ? std::numeric_limits<double>::infinity() : 0.0;
			return Token[0] == '-' ? -Magnitude : Magnitude;
		}
		return Result.ec == std::errc() ? Value : 0.0;
	}

	bool ReadJsonNumber(const TCHAR* Begin, const TCHAR* End, double& OutValue)
	{
		if (Begin == End || MeasureJsonNumber(Begin, End) != End - Begin)
		{
			return false;
		}
		OutValue = ConvertJsonNumber(Begin, static_cast<int32>(End - Begin));
		return true;
	}
}
