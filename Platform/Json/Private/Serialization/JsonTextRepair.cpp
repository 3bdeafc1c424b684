#include "Serialization/JsonTextRepair.h"

#include "Serialization/JsonNumberText.h"

#include <cmath>

namespace UE::Json::Private
{
	namespace
	{
		// The value of the four hex digits at Text, or -1 when they are not all there.
		int32 ReadHex4(const TCHAR* Text, const TCHAR* End)
		{
			if (End - Text < 4)
			{
				return -1;
			}
			int32 Value = 0;
			for (int32 Index = 0; Index < 4; ++Index)
			{
				const TCHAR Char = Text[Index];
				int32 Digit = -1;
				if (Char >= TEXT('0') && Char <= TEXT('9'))
				{
					Digit = Char - TEXT('0');
				}
				else if (Char >= TEXT('a') && Char <= TEXT('f'))
				{
					Digit = Char - TEXT('a') + 10;
				}
				else if (Char >= TEXT('A') && Char <= TEXT('F'))
				{
					Digit = Char - TEXT('A') + 10;
				}
				if (Digit < 0)
				{
					return -1;
				}
				Value = Value * 16 + Digit;
			}
			return Value;
		}

		// Copies the escape at Char (a backslash) and returns how many characters it took.
		int32 CopyEscape(const TCHAR* Char, const TCHAR* End, FString& Out)
		{
			if (End - Char < 2 || Char[1] != TEXT('u'))
			{
				const int32 Count = End - Char < 2 ? 1 : 2;
				Out.Append(Char, Count);
				return Count;
			}
			const int32 Unit = ReadHex4(Char + 2, End);
			if (Unit < 0xD800 || Unit > 0xDFFF)
			{
				// Not a surrogate, or not an escape at all: the reader judges it as it stands.
				Out.Append(Char, 2);
				return 2;
			}
			if (Unit <= 0xDBFF && End - Char >= 12 && Char[6] == TEXT('\\') && Char[7] == TEXT('u'))
			{
				const int32 Low = ReadHex4(Char + 8, End);
				if (Low >= 0xDC00 && Low <= 0xDFFF)
				{
					Out.Append(Char, 12);
					return 12;
				}
			}
			Out += TEXT("\\uFFFD");
			return 6;
		}
	}

	bool RepairJsonText(const FString& Text, FString& OutRepaired)
	{
		OutRepaired.Reset(Text.Len() + 16);
		const TCHAR* Char = *Text;
		const TCHAR* const End = Char + Text.Len();
		bool bInString = false;
		while (Char != End)
		{
			if (bInString)
			{
				if (*Char == TEXT('\\'))
				{
					Char += CopyEscape(Char, End, OutRepaired);
					continue;
				}
				bInString = *Char != TEXT('"');
				OutRepaired.AppendChar(*Char++);
				continue;
			}
			if (*Char == TEXT('I') || *Char == TEXT('N'))
			{
				return false;
			}
			const int32 NumberLength = MeasureJsonNumber(Char, End);
			double Value = 0.0;
			if (NumberLength > 0 && ReadJsonNumber(Char, Char + NumberLength, Value))
			{
				if (std::isinf(Value))
				{
					OutRepaired += Value > 0.0 ? TEXT("Infinity") : TEXT("-Infinity");
				}
				else
				{
					AppendJsonNumber(OutRepaired, Value);
				}
				Char += NumberLength;
				continue;
			}
			bInString = *Char == TEXT('"');
			OutRepaired.AppendChar(*Char++);
		}
		return true;
	}
}
