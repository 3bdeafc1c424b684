#pragma once

// FVector2D (double) and FVector2f (float): a 2D vector of X, Y. Arithmetic is component-wise, and
// vector * vector multiplies components; use DotProduct for the dot product.

#include "CoreTypes.h"
#include "Math/IntPoint.h"
#include "Math/UnrealMathUtility.h"
#include "Templates/TypeHash.h"

namespace UE::Math
{
	template<class T>
	struct TVector2
	{
		T X = T(0);
		T Y = T(0);

		static const TVector2 ZeroVector;
		static const TVector2 UnitVector;

		constexpr TVector2() = default;
		constexpr TVector2(T InX, T InY) : X(InX), Y(InY) {}
		explicit constexpr TVector2(T InF) : X(InF), Y(InF) {}
		explicit constexpr TVector2(FIntPoint Point) : X(T(Point.X)), Y(T(Point.Y)) {}
		template<class U>
		explicit constexpr TVector2(const TVector2<U>& Other) : X(T(Other.X)), Y(T(Other.Y)) {}

		constexpr TVector2 operator+(const TVector2& V) const { return TVector2(X + V.X, Y + V.Y); }
		constexpr TVector2 operator-(const TVector2& V) const { return TVector2(X - V.X, Y - V.Y); }
		constexpr TVector2 operator*(const TVector2& V) const { return TVector2(X * V.X, Y * V.Y); }
		constexpr TVector2 operator/(const TVector2& V) const { return TVector2(X / V.X, Y / V.Y); }
		constexpr TVector2 operator+(T A) const { return TVector2(X + A, Y + A); }
		constexpr TVector2 operator-(T A) const { return TVector2(X - A, Y - A); }
		constexpr TVector2 operator*(T Scale) const { return TVector2(X * Scale, Y * Scale); }
		constexpr TVector2 operator/(T Scale) const { return TVector2(X / Scale, Y / Scale); }
		constexpr TVector2 operator-() const { return TVector2(-X, -Y); }
		TVector2& operator+=(const TVector2& V) { X += V.X; Y += V.Y; return *this; }
		TVector2& operator-=(const TVector2& V) { X -= V.X; Y -= V.Y; return *this; }
		TVector2& operator*=(const TVector2& V) { X *= V.X; Y *= V.Y; return *this; }
		TVector2& operator/=(const TVector2& V) { X /= V.X; Y /= V.Y; return *this; }
		TVector2& operator*=(T Scale) { X *= Scale; Y *= Scale; return *this; }
		TVector2& operator/=(T Scale) { X /= Scale; Y /= Scale; return *this; }
		/** Exact comparison; use Equals for a tolerance. */
		constexpr bool operator==(const TVector2& V) const { return X == V.X && Y == V.Y; }
		T& operator[](int32 Index) { return Index == 0 ? X : Y; }
		T operator[](int32 Index) const { return Index == 0 ? X : Y; }

		static constexpr T DotProduct(const TVector2& A, const TVector2& B) { return A.X * B.X + A.Y * B.Y; }
		static constexpr T CrossProduct(const TVector2& A, const TVector2& B) { return A.X * B.Y - A.Y * B.X; }
		static T Distance(const TVector2& A, const TVector2& B) { return (B - A).Size(); }
		static constexpr T DistSquared(const TVector2& A, const TVector2& B) { return (B - A).SizeSquared(); }
		static constexpr TVector2 Max(const TVector2& A, const TVector2& B) { return A.ComponentMax(B); }
		static constexpr TVector2 Min(const TVector2& A, const TVector2& B) { return A.ComponentMin(B); }

		T Size() const { return FMath::Sqrt(X * X + Y * Y); }
		T Length() const { return Size(); }
		constexpr T SizeSquared() const { return X * X + Y * Y; }
		constexpr bool IsZero() const { return X == T(0) && Y == T(0); }
		bool IsNearlyZero(T Tolerance = T(UE_KINDA_SMALL_NUMBER)) const { return FMath::Abs(X) <= Tolerance && FMath::Abs(Y) <= Tolerance; }
		bool Equals(const TVector2& V, T Tolerance = T(UE_KINDA_SMALL_NUMBER)) const
		{
			return FMath::Abs(X - V.X) <= Tolerance && FMath::Abs(Y - V.Y) <= Tolerance;
		}
		constexpr TVector2 ComponentMin(const TVector2& V) const { return TVector2(FMath::Min(X, V.X), FMath::Min(Y, V.Y)); }
		constexpr TVector2 ComponentMax(const TVector2& V) const { return TVector2(FMath::Max(X, V.X), FMath::Max(Y, V.Y)); }
		constexpr T GetMax() const { return FMath::Max(X, Y); }
		constexpr T GetMin() const { return FMath::Min(X, Y); }
		TVector2 GetAbs() const { return TVector2(FMath::Abs(X), FMath::Abs(Y)); }
		/** This vector scaled to length 1, or zero if it is too short to have a direction. */
		TVector2 GetSafeNormal(T Tolerance = T(UE_SMALL_NUMBER)) const
		{
			const T SquareSum = SizeSquared();
			return SquareSum > Tolerance ? *this * (T(1) / FMath::Sqrt(SquareSum)) : TVector2();
		}
		FIntPoint IntPoint() const { return FIntPoint(int32(FMath::RoundToInt(X)), int32(FMath::RoundToInt(Y))); }

		friend constexpr TVector2 operator*(T Scale, const TVector2& V) { return V * Scale; }
		friend uint32 GetTypeHash(const TVector2& V) { return HashCombineFast(GetTypeHash(V.X), GetTypeHash(V.Y)); }
	};

	template<class T>
	inline const TVector2<T> TVector2<T>::ZeroVector(T(0), T(0));
	template<class T>
	inline const TVector2<T> TVector2<T>::UnitVector(T(1), T(1));
}

template<class T>
using TVector2 = UE::Math::TVector2<T>;
using FVector2D = UE::Math::TVector2<double>;
using FVector2f = UE::Math::TVector2<float>;
