#pragma once

// FMath: the engine's scalar math helpers, plus its tolerance constants. There is deliberately no
// random-number helper here: the plug-in draws its own numbers from the C library's rand(), and
// that sequence is part of its behaviour, so nothing in the stand-in may consume it.

#include "CoreTypes.h"

#include <cmath>
#include <type_traits>

#define UE_PI (3.1415926535897932f)
#define UE_DOUBLE_PI (3.141592653589793238462643383279502884197169399)
#define UE_SMALL_NUMBER (1.e-8f)
#define UE_KINDA_SMALL_NUMBER (1.e-4f)
#define UE_DOUBLE_SMALL_NUMBER (1.e-8)
#define UE_DOUBLE_KINDA_SMALL_NUMBER (1.e-4)
#define UE_BIG_NUMBER (3.4e+38f)
#define PI UE_PI
#define SMALL_NUMBER UE_SMALL_NUMBER
#define KINDA_SMALL_NUMBER UE_KINDA_SMALL_NUMBER
#define BIG_NUMBER UE_BIG_NUMBER

/** Scalar math. The *ToInt functions return int32 for float and int64 for double, as the engine's do. */
struct FMath
{
	template<class T>
	static constexpr T Min(T A, T B) { return B < A ? B : A; }
	template<class T>
	static constexpr T Max(T A, T B) { return A < B ? B : A; }
	template<class T>
	static constexpr T Min3(T A, T B, T C) { return Min(Min(A, B), C); }
	template<class T>
	static constexpr T Max3(T A, T B, T C) { return Max(Max(A, B), C); }
	template<class T>
	static constexpr T Clamp(T X, T Low, T High) { return X < Low ? Low : (X < High ? X : High); }
	template<class T>
	static constexpr T Abs(T A) { return A < T(0) ? -A : A; }
	/** -1, 0 or 1. */
	template<class T>
	static constexpr T Sign(T A) { return A > T(0) ? T(1) : (A < T(0) ? T(-1) : T(0)); }
	template<class T>
	static constexpr T Square(T A) { return A * A; }

	static constexpr int32 TruncToInt32(float F) { return int32(F); }
	static constexpr int32 TruncToInt32(double F) { return int32(F); }
	static constexpr int64 TruncToInt64(double F) { return int64(F); }
	static constexpr int32 TruncToInt(float F) { return TruncToInt32(F); }
	static constexpr int64 TruncToInt(double F) { return TruncToInt64(F); }
	static float TruncToFloat(float F) { return std::trunc(F); }
	static double TruncToFloat(double F) { return std::trunc(F); }
	static int32 FloorToInt32(float F) { return int32(std::floor(F)); }
	static int32 FloorToInt32(double F) { return int32(std::floor(F)); }
	static int64 FloorToInt64(double F) { return int64(std::floor(F)); }
	static int32 FloorToInt(float F) { return FloorToInt32(F); }
	static int64 FloorToInt(double F) { return FloorToInt64(F); }
	static int32 CeilToInt32(float F) { return int32(std::ceil(F)); }
	static int32 CeilToInt32(double F) { return int32(std::ceil(F)); }
	static int64 CeilToInt64(double F) { return int64(std::ceil(F)); }
	static int32 CeilToInt(float F) { return CeilToInt32(F); }
	static int64 CeilToInt(double F) { return CeilToInt64(F); }
	/** Rounds half up (towards positive infinity): 2.5 gives 3, -2.5 gives -2. */
	static int32 RoundToInt32(float F) { return FloorToInt32(F + 0.5f); }
	static int32 RoundToInt32(double F) { return FloorToInt32(F + 0.5); }
	static int64 RoundToInt64(double F) { return FloorToInt64(F + 0.5); }
	static int32 RoundToInt(float F) { return RoundToInt32(F); }
	static int64 RoundToInt(double F) { return RoundToInt64(F); }
	static float FloorToFloat(float F) { return std::floor(F); }
	static double FloorToFloat(double F) { return std::floor(F); }
	static double FloorToDouble(double F) { return std::floor(F); }
	static float CeilToFloat(float F) { return std::ceil(F); }
	static double CeilToFloat(double F) { return std::ceil(F); }
	static double CeilToDouble(double F) { return std::ceil(F); }
	static float RoundToFloat(float F) { return FloorToFloat(F + 0.5f); }
	static double RoundToFloat(double F) { return FloorToFloat(F + 0.5); }
	/** The fractional part, X - Floor(X): always in [0, 1). */
	static float Frac(float X) { return X - FloorToFloat(X); }
	static double Frac(double X) { return X - FloorToFloat(X); }

	static float Sqrt(float X) { return std::sqrt(X); }
	static double Sqrt(double X) { return std::sqrt(X); }
	static float InvSqrt(float X) { return 1.0f / std::sqrt(X); }
	static double InvSqrt(double X) { return 1.0 / std::sqrt(X); }
	static float Pow(float A, float B) { return std::pow(A, B); }
	static double Pow(double A, double B) { return std::pow(A, B); }
	static float Exp(float X) { return std::exp(X); }
	static double Exp(double X) { return std::exp(X); }
	static float Loge(float X) { return std::log(X); }
	static double Loge(double X) { return std::log(X); }
	static float Sin(float X) { return std::sin(X); }
	static double Sin(double X) { return std::sin(X); }
	static float Cos(float X) { return std::cos(X); }
	static double Cos(double X) { return std::cos(X); }
	static float Atan2(float Y, float X) { return std::atan2(Y, X); }
	static double Atan2(double Y, double X) { return std::atan2(Y, X); }
	static bool IsNaN(float X) { return std::isnan(X); }
	static bool IsNaN(double X) { return std::isnan(X); }
	static bool IsFinite(float X) { return std::isfinite(X); }
	static bool IsFinite(double X) { return std::isfinite(X); }

	static bool IsNearlyZero(float Value, float ErrorTolerance = UE_SMALL_NUMBER) { return Abs(Value) <= ErrorTolerance; }
	static bool IsNearlyZero(double Value, double ErrorTolerance = UE_DOUBLE_SMALL_NUMBER) { return Abs(Value) <= ErrorTolerance; }
	static bool IsNearlyEqual(float A, float B, float ErrorTolerance = UE_SMALL_NUMBER) { return Abs(A - B) <= ErrorTolerance; }
	static bool IsNearlyEqual(double A, double B, double ErrorTolerance = UE_DOUBLE_SMALL_NUMBER) { return Abs(A - B) <= ErrorTolerance; }

	/** A + Alpha * (B - A): A at Alpha 0, B at Alpha 1, not clamped. */
	template<class T, class U>
	static constexpr T Lerp(const T& A, const T& B, const U& Alpha) { return T(A + Alpha * (B - A)); }
	/** The remainder of X / Y with X's sign; 0 when Y is (nearly) zero instead of NaN. */
	static float Fmod(float X, float Y) { return Abs(Y) <= 1.e-8f ? 0.0f : std::fmod(X, Y); }
	static double Fmod(double X, double Y) { return Abs(Y) <= 1.e-8 ? 0.0 : std::fmod(X, Y); }
	/** Moves Current towards Target by a step proportional to the distance and DeltaTime; Target at once if Speed <= 0. */
	static float FInterpTo(float Current, float Target, float DeltaTime, float InterpSpeed)
	{
		if (InterpSpeed <= 0.0f)
		{
			return Target;
		}
		const float Dist = Target - Current;
		if (Square(Dist) < UE_SMALL_NUMBER)
		{
			return Target;
		}
		return Current + Dist * Clamp(DeltaTime * InterpSpeed, 0.0f, 1.0f);
	}
	/** Maps Value from InRange (X to Y) onto OutRange, clamped to OutRange's ends. */
	template<class RangeType>
	static double GetMappedRangeValueClamped(const RangeType& InRange, const RangeType& OutRange, double Value)
	{
		const double Span = double(InRange.Y) - double(InRange.X);
		const double Alpha = Span == 0.0 ? 0.0 : Clamp((Value - double(InRange.X)) / Span, 0.0, 1.0);
		return Lerp(double(OutRange.X), double(OutRange.Y), Alpha);
	}
};
