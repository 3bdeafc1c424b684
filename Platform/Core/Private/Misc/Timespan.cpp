#include "Misc/Timespan.h"

#include "Misc/Char.h"

#include <cmath>

namespace
{
	int64 Saturate(__int128 Value)
	{
		if (Value > ETimespan::MaxTicks)
		{
			return ETimespan::MaxTicks;
		}
		if (Value < ETimespan::MinTicks)
		{
			return ETimespan::MinTicks;
		}
		return static_cast<int64>(Value);
	}

	FTimespan FromUnits(double Units, double TicksPerUnit)
	{
		if (std::isnan(Units))
		{
			return FTimespan::Zero();
		}
		const double Ticks = std::round(Units * TicksPerUnit);
		// 2^63 is exactly representable; anything at or past it does not fit.
		if (Ticks >= 9223372036854775808.0)
		{
			return FTimespan::MaxValue();
		}
		if (Ticks <= -9223372036854775808.0)
		{
			return FTimespan::MinValue();
		}
		return FTimespan(static_cast<int64>(Ticks));
	}

	void AppendPadded(FString& Out, uint64 Value, int32 Digits)
	{
		Out.Appendf(TEXT("%0*llu"), Digits, Value);
	}

	// Reads a run of decimal digits; returns how many were read.
	int32 ReadDigits(const TCHAR*& Cursor, uint64& OutValue)
	{
		int32 Count = 0;
		OutValue = 0;
		while (FChar::IsDigit(*Cursor) && Count < 19)
		{
			OutValue = OutValue * 10 + static_cast<uint64>(*Cursor++ - '0');
			++Count;
		}
		return FChar::IsDigit(*Cursor) ? 0 : Count;
	}
}

FTimespan::FTimespan(int32 Hours, int32 Minutes, int32 Seconds)
	: FTimespan(0, Hours, Minutes, Seconds, 0)
{
}

FTimespan::FTimespan(int32 Days, int32 Hours, int32 Minutes, int32 Seconds)
	: FTimespan(Days, Hours, Minutes, Seconds, 0)
{
}

FTimespan::FTimespan(int32 Days, int32 Hours, int32 Minutes, int32 Seconds, int32 FractionNano)
{
	const __int128 TotalSeconds = static_cast<__int128>(Days) * 86400 + static_cast<__int128>(Hours) * 3600 + static_cast<__int128>(Minutes) * 60 + Seconds;
	Ticks = Saturate(TotalSeconds * ETimespan::TicksPerSecond + FractionNano / ETimespan::NanosecondsPerTick);
}

FTimespan FTimespan::FromSeconds(double Seconds)
{
	return FromUnits(Seconds, static_cast<double>(ETimespan::TicksPerSecond));
}

FTimespan FTimespan::FromMilliseconds(double Milliseconds)
{
	return FromUnits(Milliseconds, static_cast<double>(ETimespan::TicksPerMillisecond));
}

FTimespan FTimespan::FromMicroseconds(double Microseconds)
{
	return FromUnits(Microseconds, static_cast<double>(ETimespan::TicksPerMicrosecond));
}

FTimespan FTimespan::FromMinutes(double Minutes)
{
	return FromUnits(Minutes, static_cast<double>(ETimespan::TicksPerMinute));
}

FTimespan FTimespan::FromHours(double Hours)
{
	return FromUnits(Hours, static_cast<double>(ETimespan::TicksPerHour));
}

FTimespan FTimespan::FromDays(double Days)
{
	return FromUnits(Days, static_cast<double>(ETimespan::TicksPerDay));
}

FTimespan FTimespan::operator+(const FTimespan& Other) const
{
	return FTimespan(Saturate(static_cast<__int128>(Ticks) + Other.Ticks));
}

FTimespan FTimespan::operator-(const FTimespan& Other) const
{
	return FTimespan(Saturate(static_cast<__int128>(Ticks) - Other.Ticks));
}

FTimespan FTimespan::operator-() const
{
	return FTimespan(Saturate(-static_cast<__int128>(Ticks)));
}

FTimespan FTimespan::operator*(double Scalar) const
{
	return FromUnits(static_cast<double>(Ticks) * Scalar, 1.0);
}

FTimespan FTimespan::operator/(double Scalar) const
{
	return FromUnits(static_cast<double>(Ticks) / Scalar, 1.0);
}

FString FTimespan::ToString() const
{
	return ToString(GetDays() == 0 ? TEXT("%h:%m:%s.%f") : TEXT("%d.%h:%m:%s.%f"));
}

FString FTimespan::ToString(const TCHAR* Format) const
{
	// Components come from the magnitude; the sign is written once, in front.
	const uint64 Magnitude = Ticks < 0 ? 0 - static_cast<uint64>(Ticks) : static_cast<uint64>(Ticks);
	const uint64 Fraction = Magnitude % ETimespan::TicksPerSecond;
	FString Result;
	Result.AppendChar(Ticks < 0 ? '-' : '+');
	for (const TCHAR* Cursor = Format ? Format : TEXT(""); *Cursor; ++Cursor)
	{
		if (*Cursor != '%' || Cursor[1] == 0)
		{
			Result.AppendChar(*Cursor);
			continue;
		}
		switch (*++Cursor)
		{
		case 'd': Result.Appendf(TEXT("%llu"), Magnitude / ETimespan::TicksPerDay); break;
		case 'D': AppendPadded(Result, Magnitude / ETimespan::TicksPerDay, 8); break;
		case 'h': AppendPadded(Result, (Magnitude / ETimespan::TicksPerHour) % 24, 2); break;
		case 'm': AppendPadded(Result, (Magnitude / ETimespan::TicksPerMinute) % 60, 2); break;
		case 's': AppendPadded(Result, (Magnitude / ETimespan::TicksPerSecond) % 60, 2); break;
		case 'f': AppendPadded(Result, Fraction / ETimespan::TicksPerMillisecond, 3); break;
		case 'u': AppendPadded(Result, Fraction / ETimespan::TicksPerMicrosecond, 6); break;
		case 'n': AppendPadded(Result, Fraction * ETimespan::NanosecondsPerTick, 9); break;
		case '%': Result.AppendChar('%'); break;
		default:
			Result.AppendChar('%');
			Result.AppendChar(*Cursor);
			break;
		}
	}
	return Result;
}

bool FTimespan::Parse(const FString& TimespanString, FTimespan& OutTimespan)
{
	const TCHAR* Cursor = *TimespanString;
	const bool bNegative = (*Cursor == '-');
	if (*Cursor == '+' || *Cursor == '-')
	{
		++Cursor;
	}
	uint64 Days = 0;
	uint64 Hours = 0;
	int32 HourDigits = ReadDigits(Cursor, Hours);
	if (*Cursor == '.')
	{
		// What was read is the day count; the hours follow the dot.
		if (HourDigits == 0 || HourDigits > 8)
		{
			return false;
		}
		Days = Hours;
		++Cursor;
		HourDigits = ReadDigits(Cursor, Hours);
	}
	uint64 Minutes = 0;
	uint64 Seconds = 0;
	if (HourDigits < 1 || HourDigits > 2 || Hours > 23 || *Cursor++ != ':' || ReadDigits(Cursor, Minutes) != 2 || Minutes > 59
		|| *Cursor++ != ':' || ReadDigits(Cursor, Seconds) != 2 || Seconds > 59)
	{
		return false;
	}
	uint64 FractionTicks = 0;
	if (*Cursor == '.')
	{
		++Cursor;
		uint64 Fraction = 0;
		const int32 FractionDigits = ReadDigits(Cursor, Fraction);
		if (FractionDigits == 3)
		{
			FractionTicks = Fraction * ETimespan::TicksPerMillisecond;
		}
		else if (FractionDigits == 6)
		{
			FractionTicks = Fraction * ETimespan::TicksPerMicrosecond;
		}
		else if (FractionDigits == 9)
		{
			FractionTicks = Fraction / ETimespan::NanosecondsPerTick;
		}
		else
		{
			return false;
		}
	}
	if (*Cursor != 0)
	{
		return false;
	}
	const __int128 Magnitude = static_cast<__int128>(((Days * 24 + Hours) * 60 + Minutes) * 60 + Seconds) * ETimespan::TicksPerSecond + FractionTicks;
	const __int128 Signed = bNegative ? -Magnitude : Magnitude;
	if (Signed > ETimespan::MaxTicks || Signed < ETimespan::MinTicks)
	{
		return false;
	}
	OutTimespan = FTimespan(static_cast<int64>(Signed));
	return true;
}
