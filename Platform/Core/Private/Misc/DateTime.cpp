#include "Misc/DateTime.h"

#include "Misc/AssertionMacros.h"

#include <algorithm>
#include <ctime>

namespace
{
	// Days from 0001-01-01 to 1970-01-01, the Unix epoch.
	constexpr int64 DaysToUnixEpoch = 719162;
	// Days in a full 400-year Gregorian cycle, and in its 100- and 4-year parts.
	constexpr int64 DaysPer400Years = 146097;
	constexpr int64 DaysPer100Years = 36524;
	constexpr int64 DaysPer4Years = 1461;

	constexpr int32 DaysBeforeMonth[13] = {0, 0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};

	struct FCivilDate
	{
		int32 Year = 1;
		int32 Month = 1;
		int32 Day = 1;
		// Zero-based day within the year.
		int32 DayOfYear = 0;
	};

	FCivilDate CivilFromDayNumber(int64 DayNumber)
	{
		// Peel off whole 400-, 100-, 4- and 1-year blocks; the last block of each size is one day
		// longer (the leap day), hence the clamps to 3.
		int64 Rest = std::max<int64>(DayNumber, 0);
		const int64 Cycles400 = Rest / DaysPer400Years;
		Rest %= DaysPer400Years;
		const int64 Centuries = std::min<int64>(Rest / DaysPer100Years, 3);
		Rest -= Centuries * DaysPer100Years;
		const int64 Olympiads = Rest / DaysPer4Years;
		Rest %= DaysPer4Years;
		const int64 Years = std::min<int64>(Rest / 365, 3);
		Rest -= Years * 365;

		FCivilDate Date;
		Date.Year = static_cast<int32>(Cycles400 * 400 + Centuries * 100 + Olympiads * 4 + Years + 1);
		Date.DayOfYear = static_cast<int32>(Rest);
		const int32 LeapShift = FDateTime::IsLeapYear(Date.Year) ? 1 : 0;
		Date.Month = 12;
		while (Date.Month > 1 && Date.DayOfYear < DaysBeforeMonth[Date.Month] + (Date.Month > 2 ? LeapShift : 0))
		{
			--Date.Month;
		}
		Date.Day = Date.DayOfYear - DaysBeforeMonth[Date.Month] - (Date.Month > 2 ? LeapShift : 0) + 1;
		return Date;
	}

	int64 DayNumberFromCivil(int32 Year, int32 Month, int32 Day)
	{
		const int64 PastYears = Year - 1;
		int64 Days = PastYears * 365 + PastYears / 4 - PastYears / 100 + PastYears / 400;
		Days += DaysBeforeMonth[Month] + ((Month > 2 && FDateTime::IsLeapYear(Year)) ? 1 : 0);
		return Days + Day - 1;
	}

	void AppendTwo(FString& Out, int32 Value)
	{
		Out.Appendf(TEXT("%02d"), Value);
	}
}

FDateTime::FDateTime(int32 Year, int32 Month, int32 Day, int32 Hour, int32 Minute, int32 Second, int32 Millisecond)
{
	check(Validate(Year, Month, Day, Hour, Minute, Second, Millisecond));
	Ticks = DayNumberFromCivil(Year, Month, Day) * ETimespan::TicksPerDay + Hour * ETimespan::TicksPerHour + Minute * ETimespan::TicksPerMinute
		+ Second * ETimespan::TicksPerSecond + Millisecond * ETimespan::TicksPerMillisecond;
}

FDateTime FDateTime::MaxValue()
{
	return FDateTime(DayNumberFromCivil(10000 - 1, 12, 31) * ETimespan::TicksPerDay + ETimespan::TicksPerDay - 1);
}

FDateTime FDateTime::Now()
{
	timespec Clock{};
	clock_gettime(CLOCK_REALTIME, &Clock);
	const time_t Seconds = Clock.tv_sec;
	tm Local{};
	localtime_r(&Seconds, &Local);
	// A leap second (tm_sec 60) is folded into the one before it.
	const FDateTime Whole(Local.tm_year + 1900, Local.tm_mon + 1, Local.tm_mday, Local.tm_hour, Local.tm_min, std::min(Local.tm_sec, 59));
	return FDateTime(Whole.Ticks + Clock.tv_nsec / ETimespan::NanosecondsPerTick);
}

FDateTime FDateTime::UtcNow()
{
	timespec Clock{};
	clock_gettime(CLOCK_REALTIME, &Clock);
	return FDateTime((DaysToUnixEpoch * 86400 + static_cast<int64>(Clock.tv_sec)) * ETimespan::TicksPerSecond + Clock.tv_nsec / ETimespan::NanosecondsPerTick);
}

FDateTime FDateTime::Today()
{
	return Now().GetDate();
}

bool FDateTime::Validate(int32 Year, int32 Month, int32 Day, int32 Hour, int32 Minute, int32 Second, int32 Millisecond)
{
	return Year >= 1 && Year <= 9999 && Month >= 1 && Month <= 12 && Day >= 1 && Day <= DaysInMonth(Year, Month) && Hour >= 0 && Hour <= 23
		&& Minute >= 0 && Minute <= 59 && Second >= 0 && Second <= 59 && Millisecond >= 0 && Millisecond <= 999;
}

bool FDateTime::IsLeapYear(int32 Year)
{
	return (Year % 4 == 0) && (Year % 100 != 0 || Year % 400 == 0);
}

int32 FDateTime::DaysInMonth(int32 Year, int32 Month)
{
	if (Month < 1 || Month > 12)
	{
		return 0;
	}
	if (Month == 2)
	{
		return IsLeapYear(Year) ? 29 : 28;
	}
	return (Month == 4 || Month == 6 || Month == 9 || Month == 11) ? 30 : 31;
}

int32 FDateTime::DaysInYear(int32 Year)
{
	return IsLeapYear(Year) ? 366 : 365;
}

FDateTime FDateTime::FromUnixTimestamp(int64 UnixTime)
{
	// Clamped so that the tick count cannot overflow; such a time is far outside the calendar anyway.
	constexpr int64 Limit = ETimespan::MaxTicks / ETimespan::TicksPerSecond - DaysToUnixEpoch * 86400;
	return FDateTime((DaysToUnixEpoch * 86400 + std::clamp(UnixTime, -Limit, Limit)) * ETimespan::TicksPerSecond);
}

int64 FDateTime::ToUnixTimestamp() const
{
	return (Ticks - DaysToUnixEpoch * ETimespan::TicksPerDay) / ETimespan::TicksPerSecond;
}

void FDateTime::GetDate(int32& OutYear, int32& OutMonth, int32& OutDay) const
{
	const FCivilDate Date = CivilFromDayNumber(Ticks / ETimespan::TicksPerDay);
	OutYear = Date.Year;
	OutMonth = Date.Month;
	OutDay = Date.Day;
}

int32 FDateTime::GetYear() const
{
	return CivilFromDayNumber(Ticks / ETimespan::TicksPerDay).Year;
}

int32 FDateTime::GetMonth() const
{
	return CivilFromDayNumber(Ticks / ETimespan::TicksPerDay).Month;
}

int32 FDateTime::GetDay() const
{
	return CivilFromDayNumber(Ticks / ETimespan::TicksPerDay).Day;
}

int32 FDateTime::GetDayOfYear() const
{
	return CivilFromDayNumber(Ticks / ETimespan::TicksPerDay).DayOfYear + 1;
}

int32 FDateTime::GetHour12() const
{
	const int32 Hour = GetHour() % 12;
	return Hour == 0 ? 12 : Hour;
}

FString FDateTime::ToString() const
{
	return ToString(TEXT("%Y.%m.%d-%H.%M.%S"));
}

FString FDateTime::ToIso8601() const
{
	return ToString(TEXT("%Y-%m-%dT%H:%M:%S.%sZ"));
}

FString FDateTime::ToString(const TCHAR* Format) const
{
	const FCivilDate Date = CivilFromDayNumber(Ticks / ETimespan::TicksPerDay);
	FString Result;
	for (const TCHAR* Cursor = Format ? Format : TEXT(""); *Cursor; ++Cursor)
	{
		if (*Cursor != '%' || Cursor[1] == 0)
		{
			Result.AppendChar(*Cursor);
			continue;
		}
		switch (*++Cursor)
		{
		case 'a': Result += IsMorning() ? TEXT("am") : TEXT("pm"); break;
		case 'A': Result += IsMorning() ? TEXT("AM") : TEXT("PM"); break;
		case 'd': AppendTwo(Result, Date.Day); break;
		case 'D': Result.Appendf(TEXT("%03d"), Date.DayOfYear + 1); break;
		case 'm': AppendTwo(Result, Date.Month); break;
		case 'y': AppendTwo(Result, Date.Year % 100); break;
		case 'Y': Result.Appendf(TEXT("%04d"), Date.Year); break;
		case 'h': AppendTwo(Result, GetHour12()); break;
		case 'H': AppendTwo(Result, GetHour()); break;
		case 'M': AppendTwo(Result, GetMinute()); break;
		case 'S': AppendTwo(Result, GetSecond()); break;
		case 's': Result.Appendf(TEXT("%03d"), GetMillisecond()); break;
		case '%': Result.AppendChar('%'); break;
		default:
			Result.AppendChar('%');
			Result.AppendChar(*Cursor);
			break;
		}
	}
	return Result;
}
