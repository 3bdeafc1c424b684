#pragma once

#include "Containers/UnrealString.h"
#include "HAL/Platform.h"

#include <limits>

/** Tick arithmetic for FTimespan and FDateTime: one tick is 100 nanoseconds. */
namespace ETimespan
{
	inline constexpr int64 MaxTicks = std::numeric_limits<int64>::max();
	inline constexpr int64 MinTicks = std::numeric_limits<int64>::min();
	inline constexpr int64 NanosecondsPerTick = 100;
	inline constexpr int64 TicksPerMicrosecond = 10;
	inline constexpr int64 TicksPerMillisecond = 10000;
	inline constexpr int64 TicksPerSecond = 10000000;
	inline constexpr int64 TicksPerMinute = 60 * TicksPerSecond;
	inline constexpr int64 TicksPerHour = 60 * TicksPerMinute;
	inline constexpr int64 TicksPerDay = 24 * TicksPerHour;
	inline constexpr int64 TicksPerWeek = 7 * TicksPerDay;
	inline constexpr int64 TicksPerYear = 365 * TicksPerDay;
}

/**
 * A signed length of time in 100 ns ticks. Component getters (GetHours, GetMinutes, ...) give the
 * part within the next larger unit and carry the span's sign; GetTotal* give the whole span.
 * Arithmetic saturates at MinValue/MaxValue instead of wrapping, so an absurd input (a media
 * duration of 1e300 s, NaN) gives a defined extreme rather than undefined behaviour.
 */
struct FTimespan
{
public:
	FTimespan() = default;
	FTimespan(int64 InTicks) : Ticks(InTicks) {}
	CORE_API FTimespan(int32 Hours, int32 Minutes, int32 Seconds);
	CORE_API FTimespan(int32 Days, int32 Hours, int32 Minutes, int32 Seconds);
	CORE_API FTimespan(int32 Days, int32 Hours, int32 Minutes, int32 Seconds, int32 FractionNano);

	/** Rounded to the nearest tick; NaN gives zero, values past the range give Min/MaxValue. */
	static CORE_API FTimespan FromSeconds(double Seconds);
	static CORE_API FTimespan FromMilliseconds(double Milliseconds);
	static CORE_API FTimespan FromMicroseconds(double Microseconds);
	static CORE_API FTimespan FromMinutes(double Minutes);
	static CORE_API FTimespan FromHours(double Hours);
	static CORE_API FTimespan FromDays(double Days);
	static FTimespan Zero() { return FTimespan(0); }
	static FTimespan MinValue() { return FTimespan(ETimespan::MinTicks); }
	static FTimespan MaxValue() { return FTimespan(ETimespan::MaxTicks); }
	static double Ratio(FTimespan Dividend, FTimespan Divisor) { return static_cast<double>(Dividend.Ticks) / static_cast<double>(Divisor.Ticks); }

	int64 GetTicks() const { return Ticks; }
	int32 GetDays() const { return static_cast<int32>(Ticks / ETimespan::TicksPerDay); }
	int32 GetHours() const { return static_cast<int32>((Ticks / ETimespan::TicksPerHour) % 24); }
	int32 GetMinutes() const { return static_cast<int32>((Ticks / ETimespan::TicksPerMinute) % 60); }
	int32 GetSeconds() const { return static_cast<int32>((Ticks / ETimespan::TicksPerSecond) % 60); }
	int32 GetFractionMilli() const { return static_cast<int32>((Ticks % ETimespan::TicksPerSecond) / ETimespan::TicksPerMillisecond); }
	int32 GetFractionMicro() const { return static_cast<int32>((Ticks % ETimespan::TicksPerSecond) / ETimespan::TicksPerMicrosecond); }
	int32 GetFractionNano() const { return static_cast<int32>((Ticks % ETimespan::TicksPerSecond) * ETimespan::NanosecondsPerTick); }
	int32 GetFractionTicks() const { return static_cast<int32>(Ticks % ETimespan::TicksPerSecond); }
	double GetTotalDays() const { return static_cast<double>(Ticks) / ETimespan::TicksPerDay; }
	double GetTotalHours() const { return static_cast<double>(Ticks) / ETimespan::TicksPerHour; }
	double GetTotalMinutes() const { return static_cast<double>(Ticks) / ETimespan::TicksPerMinute; }
	double GetTotalSeconds() const { return static_cast<double>(Ticks) / ETimespan::TicksPerSecond; }
	double GetTotalMilliseconds() const { return static_cast<double>(Ticks) / ETimespan::TicksPerMillisecond; }
	double GetTotalMicroseconds() const { return static_cast<double>(Ticks) / ETimespan::TicksPerMicrosecond; }
	/** The absolute length (MinValue gives MaxValue, one tick short). */
	FTimespan GetDuration() const { return Ticks >= 0 ? *this : -*this; }
	bool IsZero() const { return Ticks == 0; }

	/** "p[d.]hh:mm:ss.fff", p the sign ('+' for zero); the day part only from one day up. */
	CORE_API FString ToString() const;
	/**
	 * Codes: %d days, %D days in 8 digits, %h hours 00-23, %m minutes, %s seconds, %f milli (3),
	 * %u micro (6), %n nano (9) digits, %% a percent sign; anything else is copied. A '+' or '-'
	 * always comes first, so FromSeconds(30).ToString(TEXT("%h:%m:%s")) is "+00:00:30".
	 */
	CORE_API FString ToString(const TCHAR* Format) const;

	/**
	 * Reads "[+|-][d.]h:mm:ss[.fff|.ffffff|.fffffffff]" (hours one or two digits below 24; minutes
	 * and seconds two digits below 60), the ToString() form. On any other text returns false and
	 * leaves OutTimespan as it was.
	 */
	static CORE_API bool Parse(const FString& TimespanString, FTimespan& OutTimespan);

	CORE_API FTimespan operator+(const FTimespan& Other) const;
	CORE_API FTimespan operator-(const FTimespan& Other) const;
	CORE_API FTimespan operator-() const;
	CORE_API FTimespan operator*(double Scalar) const;
	CORE_API FTimespan operator/(double Scalar) const;
	FTimespan operator%(const FTimespan& Other) const { return Other.Ticks == 0 ? FTimespan() : FTimespan(Ticks % Other.Ticks); }
	double operator/(const FTimespan& Other) const { return Ratio(*this, Other); }
	FTimespan& operator+=(const FTimespan& Other) { return *this = *this + Other; }
	FTimespan& operator-=(const FTimespan& Other) { return *this = *this - Other; }
	FTimespan& operator*=(double Scalar) { return *this = *this * Scalar; }
	FTimespan& operator/=(double Scalar) { return *this = *this / Scalar; }
	FTimespan& operator%=(const FTimespan& Other) { return *this = *this % Other; }
	bool operator==(const FTimespan& Other) const { return Ticks == Other.Ticks; }
	bool operator!=(const FTimespan& Other) const { return Ticks != Other.Ticks; }
	bool operator>(const FTimespan& Other) const { return Ticks > Other.Ticks; }
	bool operator>=(const FTimespan& Other) const { return Ticks >= Other.Ticks; }
	bool operator<(const FTimespan& Other) const { return Ticks < Other.Ticks; }
	bool operator<=(const FTimespan& Other) const { return Ticks <= Other.Ticks; }

	friend FTimespan operator*(double Scalar, const FTimespan& Timespan) { return Timespan * Scalar; }
	/** Equal spans hash equal; all 64 bits take part. */
	friend uint32 GetTypeHash(const FTimespan& Timespan)
	{
		uint64 Bits = static_cast<uint64>(Timespan.Ticks);
		Bits = (Bits ^ (Bits >> 33)) * 0xFF51AFD7ED558CCDull;
		Bits ^= Bits >> 33;
		return static_cast<uint32>(Bits) ^ static_cast<uint32>(Bits >> 32);
	}

private:
	// Signed 100 ns ticks.
	int64 Ticks = 0;
};
