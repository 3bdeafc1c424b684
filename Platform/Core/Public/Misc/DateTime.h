#pragma once

#include "Containers/UnrealString.h"
#include "HAL/Platform.h"
#include "Misc/Timespan.h"


/** Day of the week; 0001-01-01, where FDateTime starts, was a Monday. */
enum class EDayOfWeek
{
	Monday = 0,
	Tuesday,
	Wednesday,
	Thursday,
	Friday,
	Saturday,
	Sunday,
};

enum class EMonthOfYear
{
	January = 1,
	February,
	March,
	April,
	May,
	June,
	July,
	August,
	September,
	October,
	November,
	December,
};

/**
 * A moment in the proleptic Gregorian calendar, 0001-01-01 00:00 to 9999-12-31 23:59:59.9999999,
 * counted in 100 ns ticks. It carries no time zone: Now() is local time, UtcNow() is UTC, and
 * nothing tells them apart afterwards. Gameplay logic should take time from the frame loop.
 */
struct FDateTime
{
public:
	FDateTime() = default;
	FDateTime(int64 InTicks) : Ticks(InTicks) {}
	/** The fields must pass Validate (checked): a date like February 30 is a programming error. */
	CORE_API FDateTime(int32 Year, int32 Month, int32 Day, int32 Hour = 0, int32 Minute = 0, int32 Second = 0, int32 Millisecond = 0);

	static CORE_API FDateTime Now();
	static CORE_API FDateTime UtcNow();
	static CORE_API FDateTime Today();
	static FDateTime MinValue() { return FDateTime(0); }
	static CORE_API FDateTime MaxValue();
	static CORE_API bool Validate(int32 Year, int32 Month, int32 Day, int32 Hour, int32 Minute, int32 Second, int32 Millisecond);
	static CORE_API bool IsLeapYear(int32 Year);
	static CORE_API int32 DaysInMonth(int32 Year, int32 Month);
	static CORE_API int32 DaysInYear(int32 Year);
	static CORE_API FDateTime FromUnixTimestamp(int64 UnixTime);

	int64 GetTicks() const { return Ticks; }
	CORE_API void GetDate(int32& OutYear, int32& OutMonth, int32& OutDay) const;
	CORE_API int32 GetYear() const;
	CORE_API int32 GetMonth() const;
	EMonthOfYear GetMonthOfYear() const { return static_cast<EMonthOfYear>(GetMonth()); }
	CORE_API int32 GetDay() const;
	CORE_API int32 GetDayOfYear() const;
	EDayOfWeek GetDayOfWeek() const { return static_cast<EDayOfWeek>((Ticks / ETimespan::TicksPerDay) % 7); }
	int32 GetHour() const { return static_cast<int32>((Ticks / ETimespan::TicksPerHour) % 24); }
	CORE_API int32 GetHour12() const;
	int32 GetMinute() const { return static_cast<int32>((Ticks / ETimespan::TicksPerMinute) % 60); }
	int32 GetSecond() const { return static_cast<int32>((Ticks / ETimespan::TicksPerSecond) % 60); }
	int32 GetMillisecond() const { return static_cast<int32>((Ticks / ETimespan::TicksPerMillisecond) % 1000); }
	bool IsMorning() const { return GetHour() < 12; }
	bool IsAfternoon() const { return GetHour() >= 12; }
	/** Midnight of the same day. */
	FDateTime GetDate() const { return FDateTime(Ticks - Ticks % ETimespan::TicksPerDay); }
	FTimespan GetTimeOfDay() const { return FTimespan(Ticks % ETimespan::TicksPerDay); }
	CORE_API int64 ToUnixTimestamp() const;

	/** "yyyy.mm.dd-hh.mm.ss". */
	CORE_API FString ToString() const;
	/**
	 * Codes: %a am/pm, %A AM/PM, %d day 01-31, %D day of year 001-366, %m month, %y two-digit
	 * year, %Y four-digit year, %h hour 01-12, %H hour 00-23, %M minute, %S second, %s
	 * millisecond (3 digits), %% percent sign; any other character is copied.
	 */
	CORE_API FString ToString(const TCHAR* Format) const;
	/** "yyyy-mm-ddThh:mm:ss.fffZ". */
	CORE_API FString ToIso8601() const;

	/**
	 * Reads "yyyy.mm.dd-hh.mm.ss" (ToString's form) or "yyyy-mm-dd hh:mm:ss", either with an
	 * optional ".fff". Returns false for anything else, including impossible dates such as
	 * 2023.02.29, and then leaves OutDateTime as it was.
	 */
	static CORE_API bool Parse(const FString& DateTimeString, FDateTime& OutDateTime);
	/**
	 * Reads "yyyy-mm-dd" optionally followed by "Thh:mm[:ss[.fraction]]" and a zone: "Z",
	 * "+hh:mm", "+hhmm" or "+hh" (or '-'). The zone offset is applied, so the result is UTC. On
	 * failure returns false and leaves OutDateTime as it was.
	 */
	static CORE_API bool ParseIso8601(const TCHAR* DateTimeString, FDateTime& OutDateTime);

	// Through FTimespan's arithmetic, which saturates rather than overflowing.
	FDateTime operator+(const FTimespan& Other) const { return FDateTime((FTimespan(Ticks) + Other).GetTicks()); }
	FDateTime operator-(const FTimespan& Other) const { return FDateTime((FTimespan(Ticks) - Other).GetTicks()); }
	FTimespan operator-(const FDateTime& Other) const { return FTimespan(Ticks) - FTimespan(Other.Ticks); }
	FDateTime& operator+=(const FTimespan& Other) { return *this = *this + Other; }
	FDateTime& operator-=(const FTimespan& Other) { return *this = *this - Other; }
	bool operator==(const FDateTime& Other) const { return Ticks == Other.Ticks; }
	bool operator!=(const FDateTime& Other) const { return Ticks != Other.Ticks; }
	bool operator>(const FDateTime& Other) const { return Ticks > Other.Ticks; }
	bool operator>=(const FDateTime& Other) const { return Ticks >= Other.Ticks; }
	bool operator<(const FDateTime& Other) const { return Ticks < Other.Ticks; }
	bool operator<=(const FDateTime& Other) const { return Ticks <= Other.Ticks; }

	friend uint32 GetTypeHash(const FDateTime& DateTime) { return GetTypeHash(FTimespan(DateTime.Ticks)); }

private:
	// 100 ns ticks since 0001-01-01 00:00:00.
	int64 Ticks = 0;
};
