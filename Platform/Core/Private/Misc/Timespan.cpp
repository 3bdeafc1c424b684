#include "Misc/Timespan.h"

#include "Containers/Array.h"
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
	// The engine's reader is deliberately loose, and texts written for it (comment documents, config
	// values) rely on that: any '.' means a fraction is present and also separates fields; ',', '+',
	// '-' and ':' separate fields; the fields that are given fill days, hours, minutes, seconds and
	// fraction from the right, so "01:30" is a minute and a half.
	const TCHAR* Text = *TimespanString;
	const int32 Length = TimespanString.Len();
	constexpr int32 FieldCount = 5;
	struct FField
	{
		int32 Start = 0;
		int32 Len = 0;
	};
	// One more place than fields: a sixth piece means too many, whatever else the text holds.
	FField Fields[FieldCount + 1];
	int32 NumFields = 0;
	bool bHasFraction = false;
	int32 PieceStart = 0;
	for (int32 Index = 0; Index <= Length; ++Index)
	{
		const TCHAR Char = Index < Length ? Text[Index] : TCHAR(':');
		const bool bSeparator = Char == '.' || Char == ',' || Char == '+' || Char == '-' || Char == ':';
		bHasFraction |= (Char == '.' && Index < Length);
		if (!bSeparator)
		{
			if (!FChar::IsDigit(Char))
			{
				return false;
			}
			continue;
		}
		// Empty pieces (doubled or leading separators) are dropped.
		if (Index > PieceStart)
		{
			if (NumFields > FieldCount)
			{
				return false;
			}
			Fields[NumFields++] = {PieceStart, Index - PieceStart};
		}
		PieceStart = Index + 1;
	}
	if (!bHasFraction && NumFields <= FieldCount)
	{
		Fields[NumFields++] = {};
	}
	if (NumFields > FieldCount)
	{
		return false;
	}
	// Missing leading fields are zero.
	const int32 Missing = FieldCount - NumFields;
	for (int32 Field = FieldCount - 1; Field >= 0; --Field)
	{
		Fields[Field] = Field >= Missing ? Fields[Field - Missing] : FField();
	}

	// Days, hours, minutes and seconds; a value too long to matter saturates and then fails the
	// range checks below.
	uint64 Values[FieldCount - 1] = {};
	for (int32 Field = 0; Field < FieldCount - 1; ++Field)
	{
		for (int32 Offset = 0; Offset < Fields[Field].Len; ++Offset)
		{
			const uint64 Digit = static_cast<uint64>(Text[Fields[Field].Start + Offset] - '0');
			Values[Field] = Values[Field] > 100000000000ull ? Values[Field] : Values[Field] * 10 + Digit;
		}
	}
	// The fraction is read as nanoseconds: cut or padded with zeros to nine digits.
	uint64 FractionNano = 0;
	for (int32 Digit = 0; Digit < 9; ++Digit)
	{
		const FField& Fraction = Fields[FieldCount - 1];
		FractionNano = FractionNano * 10 + (Digit < Fraction.Len ? static_cast<uint64>(Text[Fraction.Start + Digit] - '0') : 0);
	}
	const uint64 Days = Values[0];
	const uint64 Hours = Values[1];
	const uint64 Minutes = Values[2];
	const uint64 Seconds = Values[3];
	if (Days >= static_cast<uint64>(ETimespan::MaxTicks / ETimespan::TicksPerDay) || Hours > 23 || Minutes > 59 || Seconds > 59)
	{
		return false;
	}
	const int64 Magnitude = static_cast<int64>(((Days * 24 + Hours) * 60 + Minutes) * 60 + Seconds) * ETimespan::TicksPerSecond
		+ static_cast<int64>(FractionNano / ETimespan::NanosecondsPerTick);
	OutTimespan = FTimespan(Length > 0 && Text[0] == '-' ? -Magnitude : Magnitude);
	return true;
}
