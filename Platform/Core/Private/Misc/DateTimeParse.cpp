// FDateTime's text parsers. Both are strict: a text that is not exactly one of the documented
// forms is refused rather than half-read, and the output is only written on success.

#include "Misc/DateTime.h"

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
}

bool FDateTime::Parse(const FString& DateTimeString, FDateTime& OutDateTime)
{
	// "yyyy.mm.dd-hh.mm.ss" is what ToString writes; "yyyy-mm-dd hh:mm:ss" is how people and
	// databases write the same moment. The first separator decides which form the rest must follow.
	const TCHAR* Cursor = *DateTimeString;
	int32 Year = 0;
	int32 Month = 0;
	int32 Day = 0;
	int32 Hour = 0;
	int32 Minute = 0;
	int32 Second = 0;
	int32 Millisecond = 0;
	if (!ReadFixed(Cursor, 4, Year) || (*Cursor != '.' && *Cursor != '-'))
	{
		return false;
	}
	const bool bEngineForm = (*Cursor == '.');
	const TCHAR DateSeparator = bEngineForm ? '.' : '-';
	const TCHAR Joint = bEngineForm ? '-' : ' ';
	const TCHAR TimeSeparator = bEngineForm ? '.' : ':';
	const bool bRead = Expect(Cursor, DateSeparator) && ReadFixed(Cursor, 2, Month) && Expect(Cursor, DateSeparator) && ReadFixed(Cursor, 2, Day)
		&& Expect(Cursor, Joint) && ReadFixed(Cursor, 2, Hour) && Expect(Cursor, TimeSeparator) && ReadFixed(Cursor, 2, Minute)
		&& Expect(Cursor, TimeSeparator) && ReadFixed(Cursor, 2, Second);
	if (!bRead || (*Cursor == '.' && !(++Cursor, ReadFixed(Cursor, 3, Millisecond))) || *Cursor != 0)
	{
		return false;
	}
	if (!Validate(Year, Month, Day, Hour, Minute, Second, Millisecond))
	{
		return false;
	}
	OutDateTime = FDateTime(Year, Month, Day, Hour, Minute, Second, Millisecond);
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
