#pragma once

// FColor: an 8-bit-per-channel colour, usually sRGB-encoded, stored B, G, R, A in memory so that it
// reads as one little-endian ARGB word. FLinearColor: a float colour in linear space. Converting
// between them applies the sRGB curve, so FLinearColor(FColor(128, 128, 128)) is about 0.216, not 0.5.

#include "CoreTypes.h"
#include "Math/UnrealMathUtility.h"
#include "Templates/TypeHash.h"

struct FLinearColor;

struct FColor
{
	uint8 B = 0;
	uint8 G = 0;
	uint8 R = 0;
	uint8 A = 0;

	static const FColor White;
	static const FColor Black;
	static const FColor Transparent;
	static const FColor Red;
	static const FColor Green;
	static const FColor Blue;
	static const FColor Yellow;
	static const FColor Cyan;
	static const FColor Magenta;
	static const FColor Orange;
	static const FColor Purple;
	static const FColor Turquoise;
	static const FColor Silver;
	static const FColor Emerald;

	constexpr FColor() = default;
	constexpr FColor(uint8 InR, uint8 InG, uint8 InB, uint8 InA = 255) : B(InB), G(InG), R(InR), A(InA) {}
	/** From a packed 0xAARRGGBB word. */
	explicit constexpr FColor(uint32 ARGB) : B(uint8(ARGB)), G(uint8(ARGB >> 8)), R(uint8(ARGB >> 16)), A(uint8(ARGB >> 24)) {}

	constexpr bool operator==(const FColor& Other) const { return B == Other.B && G == Other.G && R == Other.R && A == Other.A; }
	constexpr uint32 ToPackedARGB() const { return uint32(A) << 24 | uint32(R) << 16 | uint32(G) << 8 | uint32(B); }
	constexpr uint32 ToPackedRGBA() const { return uint32(R) << 24 | uint32(G) << 16 | uint32(B) << 8 | uint32(A); }
	constexpr uint32 ToPackedABGR() const { return uint32(A) << 24 | uint32(B) << 16 | uint32(G) << 8 | uint32(R); }
	constexpr FColor WithAlpha(uint8 Alpha) const { return FColor(R, G, B, Alpha); }
	/** The bytes as linear floats (each / 255), without decoding sRGB. */
	FLinearColor ReinterpretAsLinear() const;

	friend uint32 GetTypeHash(const FColor& Color) { return Color.ToPackedARGB(); }
};

inline constexpr FColor FColor::White(255, 255, 255);
inline constexpr FColor FColor::Black(0, 0, 0);
inline constexpr FColor FColor::Transparent(0, 0, 0, 0);
inline constexpr FColor FColor::Red(255, 0, 0);
inline constexpr FColor FColor::Green(0, 255, 0);
inline constexpr FColor FColor::Blue(0, 0, 255);
inline constexpr FColor FColor::Yellow(255, 255, 0);
inline constexpr FColor FColor::Cyan(0, 255, 255);
inline constexpr FColor FColor::Magenta(255, 0, 255);
inline constexpr FColor FColor::Orange(243, 156, 18);
inline constexpr FColor FColor::Purple(169, 7, 228);
inline constexpr FColor FColor::Turquoise(26, 188, 156);
inline constexpr FColor FColor::Silver(189, 195, 199);
inline constexpr FColor FColor::Emerald(46, 204, 113);

/** A colour as linear-space floats; components may leave [0, 1] (HDR) until converted to FColor. */
struct FLinearColor
{
	float R = 0.0f;
	float G = 0.0f;
	float B = 0.0f;
	float A = 0.0f;

	static const FLinearColor White;
	static const FLinearColor Black;
	static const FLinearColor Transparent;
	static const FLinearColor Red;
	static const FLinearColor Green;
	static const FLinearColor Blue;
	static const FLinearColor Yellow;
	static const FLinearColor Gray;

	constexpr FLinearColor() = default;
	constexpr FLinearColor(float InR, float InG, float InB, float InA = 1.0f) : R(InR), G(InG), B(InB), A(InA) {}
	/** Decodes an sRGB FColor into linear space. */
	FLinearColor(const FColor& Color)
		: R(SRGBToLinear(Color.R)), G(SRGBToLinear(Color.G)), B(SRGBToLinear(Color.B)), A(float(Color.A) / 255.0f)
	{
	}

	/** Clamps to [0, 1] and quantises to 8 bits, sRGB-encoding R, G and B when bSRGB is true. */
	FColor ToFColor(bool bSRGB) const
	{
		auto Quantise = [](float Value) { return uint8(FMath::FloorToInt32(Value * 255.999f)); };
		auto Channel = [&](float Value) {
			Value = FMath::Clamp(Value, 0.0f, 1.0f);
			return Quantise(bSRGB ? LinearToSRGB(Value) : Value);
		};
		return FColor(Channel(R), Channel(G), Channel(B), Quantise(FMath::Clamp(A, 0.0f, 1.0f)));
	}
	constexpr FLinearColor CopyWithNewOpacity(float NewOpacity) const { return FLinearColor(R, G, B, NewOpacity); }

	constexpr FLinearColor operator+(const FLinearColor& C) const { return FLinearColor(R + C.R, G + C.G, B + C.B, A + C.A); }
	constexpr FLinearColor operator-(const FLinearColor& C) const { return FLinearColor(R - C.R, G - C.G, B - C.B, A - C.A); }
	constexpr FLinearColor operator*(const FLinearColor& C) const { return FLinearColor(R * C.R, G * C.G, B * C.B, A * C.A); }
	constexpr FLinearColor operator*(float Scale) const { return FLinearColor(R * Scale, G * Scale, B * Scale, A * Scale); }
	FLinearColor& operator+=(const FLinearColor& C) { return *this = *this + C; }
	FLinearColor& operator*=(const FLinearColor& C) { return *this = *this * C; }
	FLinearColor& operator*=(float Scale) { return *this = *this * Scale; }
	constexpr bool operator==(const FLinearColor& C) const { return R == C.R && G == C.G && B == C.B && A == C.A; }
	bool Equals(const FLinearColor& C, float Tolerance = UE_KINDA_SMALL_NUMBER) const
	{
		return FMath::Abs(R - C.R) <= Tolerance && FMath::Abs(G - C.G) <= Tolerance && FMath::Abs(B - C.B) <= Tolerance && FMath::Abs(A - C.A) <= Tolerance;
	}

	friend constexpr FLinearColor operator*(float Scale, const FLinearColor& C) { return C * Scale; }

	static float SRGBToLinear(uint8 Value)
	{
		const float C = float(Value) / 255.0f;
		return C <= 0.04045f ? C / 12.92f : FMath::Pow((C + 0.055f) / 1.055f, 2.4f);
	}
	static float LinearToSRGB(float Value)
	{
		return Value <= 0.0031308f ? Value * 12.92f : 1.055f * FMath::Pow(Value, 1.0f / 2.4f) - 0.055f;
	}
};

inline constexpr FLinearColor FLinearColor::White(1.0f, 1.0f, 1.0f);
inline constexpr FLinearColor FLinearColor::Black(0.0f, 0.0f, 0.0f);
inline constexpr FLinearColor FLinearColor::Transparent(0.0f, 0.0f, 0.0f, 0.0f);
inline constexpr FLinearColor FLinearColor::Red(1.0f, 0.0f, 0.0f);
inline constexpr FLinearColor FLinearColor::Green(0.0f, 1.0f, 0.0f);
inline constexpr FLinearColor FLinearColor::Blue(0.0f, 0.0f, 1.0f);
inline constexpr FLinearColor FLinearColor::Yellow(1.0f, 1.0f, 0.0f);
inline constexpr FLinearColor FLinearColor::Gray(0.5f, 0.5f, 0.5f);

inline FLinearColor FColor::ReinterpretAsLinear() const
{
	return FLinearColor(float(R) / 255.0f, float(G) / 255.0f, float(B) / 255.0f, float(A) / 255.0f);
}
