// FDateTime's text parsers. Parse reads as loosely as the engine's own (texts written for it rely
// on that); ParseIso8601 is strict. Both write their output only on success.

#include "Misc/DateTime.h"

#include "Containers/Array.h"
#include "Misc/CString.h"
#include "Misc/Char.h"

namespace
{
	// Reads exactly Count digits.
	bool ReadFixed(const TCHAR*& Cursor, int32 Count, int32& OutValue)
	{
		OutValue = 0;
		for (int32 Index = 0; Index < Count; ++Index, ++Cursor)
		{
			if (!FChar::IsDigit(*Cursor))
			{
				return false;
			}
			OutValue = OutValue * 10 + (*Cursor - '0');
		}
		return true;
	}

	bool Expect(const TCHAR*& Cursor, TCHAR Char)
	{
		if (*Cursor != Char)
		{
			return false;
		}
		++Cursor;
		return true;
	}

	// Reads "+hh", "+hhmm" or "+hh:mm" (or with '-') as signed ticks.
	bool ReadZoneOffset(const TCHAR*& Cursor, int64& OutTicks)
	{
		const bool bNegative = (*Cursor == '-');
		++Cursor;
		int32 Hours = 0;
		int32 Minutes = 0;
		if (!ReadFixed(Cursor, 2, Hours) || Hours > 23)
		{
			return false;
		}
		if (*Cursor == ':' || FChar::IsDigit(*Cursor))
		{
			Cursor += (*Cursor == ':') ? 1 : 0;
			if (!ReadFixed(Cursor, 2, Minutes) || Minutes > 59)
			{
				return false;
			}
		}
		const int64 Ticks = Hours * ETimespan::TicksPerHour + Minutes * ETimespan::TicksPerMinute;
		OutTicks = bNegative ? -Ticks : Ticks;
		return true;
	}

	// A field read as FCString::Atoi reads it cut out of the text, so that it cannot run on into
	// the next field; a field of ordinary length is cut into a buffer on the stack.
	int32 ReadField(const FString& Text, int32 Start, int32 Length)
	{
		TCHAR Buffer[32];
		if (Length >= static_cast<int32>(UE_ARRAY_COUNT(Buffer)))
		{
			return FCString::Atoi(*Text.Mid(Start, Length));
		}
		for (int32 Index = 0; Index < Length; ++Index)
		{
			Buffer[Index] = Text[Start + Index];
		}
		Buffer[Length] = 0;
		return FCString::Atoi(Buffer);
	}
}

bool FDateTime::Parse(const FString& DateTimeString, FDateTime& OutDateTime)
{
	// '-', ':', '.' and ' ' all separate fields, empty fields are dropped, and six or seven fields
	// must remain: year, month, day, hour, minute, second and an optional millisecond count. Each
	// field is read as FCString::Atoi reads it (its leading digits), so "2024.3.5-9.7.0" is read,
	// "2024-03-05 09:07:00" too, and a seventh field of "5" is 5 ms, not 500.
	const TCHAR* Text = *DateTimeString;
	const int32 Length = DateTimeString.Len();
	int32 Values[7] = {};
	int32 NumFields = 0;
	int32 FieldStart = 0;
	for (int32 Index = 0; Index <= Length; ++Index)
	{
		const TCHAR Char = Index < Length ? Text[Index] : TCHAR(' ');
		if (Char != '-' && Char != ':' && Char != '.' && Char != ' ')
		{
			continue;
		}
		if (Index > FieldStart)
		{
			if (NumFields == 7)
			{
				return false;
			}
			Values[NumFields++] = ReadField(DateTimeString, FieldStart, Index - FieldStart);
		}
		FieldStart = Index + 1;
	}
	if (NumFields < 6)
	{
		return false;
	}
	if (!Validate(Values[0], Values[1], Values[2], Values[3], Values[4], Values[5], Values[6]))
	{
		return false;
	}
	OutDateTime = FDateTime(Values[0], Values[1], Values[2], Values[3], Values[4], Values[5], Values[6]);
	return true;
}

bool FDateTime::ParseIso8601(const TCHAR* DateTimeString, FDateTime& OutDateTime)
{
	if (!DateTimeString)
	{
		return false;
	}
	const TCHAR* Cursor = DateTimeString;
	int32 Year = 0;
	int32 Month = 0;
	int32 Day = 0;
	int32 Hour = 0;
	int32 Minute = 0;
	int32 Second = 0;
	int64 FractionTicks = 0;
	int64 OffsetTicks = 0;
	if (!ReadFixed(Cursor, 4, Year) || !Expect(Cursor, '-') || !ReadFixed(Cursor, 2, Month) || !Expect(Cursor, '-') || !ReadFixed(Cursor, 2, Day))
	{
		return false;
	}
	if (*Cursor == 'T' || *Cursor == 't')
	{
		++Cursor;
		if (!ReadFixed(Cursor, 2, Hour) || !Expect(Cursor, ':') || !ReadFixed(Cursor, 2, Minute))
		{
			return false;
		}
		if (*Cursor == ':')
		{
			++Cursor;
			if (!ReadFixed(Cursor, 2, Second))
			{
				return false;
			}
			if (*Cursor == '.' || *Cursor == ',')
			{
				++Cursor;
				// Any number of digits; the first seven fill the ticks, the rest are below resolution.
				int64 Scale = ETimespan::TicksPerSecond;
				if (!FChar::IsDigit(*Cursor))
				{
					return false;
				}
				for (; FChar::IsDigit(*Cursor); ++Cursor)
				{
					Scale /= 10;
					FractionTicks += (*Cursor - '0') * Scale;
				}
			}
		}
		if (*Cursor == 'Z' || *Cursor == 'z')
		{
			++Cursor;
		}
		else if ((*Cursor == '+' || *Cursor == '-') && !ReadZoneOffset(Cursor, OffsetTicks))
		{
			return false;
		}
	}
	if (*Cursor != 0 || !Validate(Year, Month, Day, Hour, Minute, Second, 0))
	{
		return false;
	}
	const int64 Ticks = FDateTime(Year, Month, Day, Hour, Minute, Second).GetTicks() + FractionTicks - OffsetTicks;
	if (Ticks < 0 || Ticks > MaxValue().GetTicks())
	{
		return false;
	}
	OutDateTime = FDateTime(Ticks);
	return true;
}
