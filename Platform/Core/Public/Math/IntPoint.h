#pragma once

// FIntPoint: a 2D point or size in whole units (pixels, cells).

#include "CoreTypes.h"
#include "Templates/TypeHash.h"

namespace UE::Math
{
	/** A pair of integers X, Y. Arithmetic is component-wise; division truncates towards zero. */
	template<class IntType>
	struct TIntPoint
	{
		IntType X = 0;
		IntType Y = 0;

		static const TIntPoint ZeroValue;
		static const TIntPoint NoneValue;

		constexpr TIntPoint() = default;
		constexpr TIntPoint(IntType InX, IntType InY) : X(InX), Y(InY) {}
		explicit constexpr TIntPoint(IntType InXY) : X(InXY), Y(InXY) {}

		constexpr bool operator==(const TIntPoint& Other) const { return X == Other.X && Y == Other.Y; }
		constexpr TIntPoint operator+(const TIntPoint& Other) const { return TIntPoint(X + Other.X, Y + Other.Y); }
		constexpr TIntPoint operator-(const TIntPoint& Other) const { return TIntPoint(X - Other.X, Y - Other.Y); }
		constexpr TIntPoint operator*(IntType Scale) const { return TIntPoint(X * Scale, Y * Scale); }
		constexpr TIntPoint operator/(IntType Divisor) const { return TIntPoint(X / Divisor, Y / Divisor); }
		TIntPoint& operator+=(const TIntPoint& Other) { X += Other.X; Y += Other.Y; return *this; }
		TIntPoint& operator-=(const TIntPoint& Other) { X -= Other.X; Y -= Other.Y; return *this; }
		IntType& operator[](int32 Index) { return Index == 0 ? X : Y; }
		IntType operator[](int32 Index) const { return Index == 0 ? X : Y; }

		constexpr IntType GetMax() const { return X > Y ? X : Y; }
		constexpr IntType GetMin() const { return X < Y ? X : Y; }
		constexpr IntType SizeSquared() const { return X * X + Y * Y; }
		constexpr TIntPoint ComponentMin(const TIntPoint& Other) const { return TIntPoint(X < Other.X ? X : Other.X, Y < Other.Y ? Y : Other.Y); }
		constexpr TIntPoint ComponentMax(const TIntPoint& Other) const { return TIntPoint(X > Other.X ? X : Other.X, Y > Other.Y ? Y : Other.Y); }

		friend uint32 GetTypeHash(const TIntPoint& Point) { return HashCombineFast(GetTypeHash(Point.X), GetTypeHash(Point.Y)); }
	};

	template<class IntType>
	inline const TIntPoint<IntType> TIntPoint<IntType>::ZeroValue(0, 0);
	template<class IntType>
	inline const TIntPoint<IntType> TIntPoint<IntType>::NoneValue(-1, -1);
}

using FIntPoint = UE::Math::TIntPoint<int32>;
using FInt64Point = UE::Math::TIntPoint<int64>;
