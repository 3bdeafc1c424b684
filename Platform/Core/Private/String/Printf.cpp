// The formatter behind FString::Printf.
//
// Directives: %d %i %u %o %x %X %c %s %f %F %e %E %g %G %a %A %p %%, flags "- + 0 space #",
// width and precision (digits or '*'), and length modifiers (h hh l ll L q j z t I64), which are
// read and ignored because every argument arrives with its own type. A directive whose argument
// has another type converts it (a number for %s prints as a number, a string for %d prints as
// the string); a directive without an argument, or an unknown one, is copied as written.

#include "Containers/UnrealString.h"

#include "String/Utf8Codec.h"

#include <algorithm>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <locale.h>
#include <string>

using UE::Core::Private::FPrintfArg;

namespace
{
	// Beyond this a width or precision is a mistake, not a request for gigabytes of padding.
	constexpr int32 MaxFieldSize = 65536;

	struct FDirective
	{
		// Flags as written, in the order C expects them.
		std::string Flags;
		// Minimum field width, or -1.
		int32 Width = -1;
		// Precision, or -1 when none was given.
		int32 Precision = -1;
		// Left-justify within the width ('-' flag or a negative '*' width).
		bool bLeft = false;
	};

	int64 AsSigned(const FPrintfArg& Arg)
	{
		switch (Arg.Kind)
		{
		case FPrintfArg::EKind::Signed: return Arg.Signed;
		case FPrintfArg::EKind::Unsigned:
			// Read at the argument's own width, as C reads an unsigned value passed to %d.
			switch (Arg.Size)
			{
			case 1: return static_cast<int8>(Arg.Unsigned);
			case 2: return static_cast<int16>(Arg.Unsigned);
			case 4: return static_cast<int32>(Arg.Unsigned);
			default: return static_cast<int64>(Arg.Unsigned);
			}
		case FPrintfArg::EKind::Char: return static_cast<int64>(Arg.Unsigned);
		case FPrintfArg::EKind::Float:
			if (std::isnan(Arg.Float))
			{
				return 0;
			}
			// Saturate: converting a double outside int64's range is undefined.
			return static_cast<int64>(std::clamp(Arg.Float, -9.2233720368547e18, 9.2233720368547e18));
		default: return static_cast<int64>(reinterpret_cast<UPTRINT>(Arg.Pointer));
		}
	}

	uint64 AsUnsigned(const FPrintfArg& Arg)
	{
		if (Arg.Kind == FPrintfArg::EKind::Signed && Arg.Size < 8)
		{
			return static_cast<uint64>(Arg.Signed) & ((uint64(1) << (Arg.Size * 8)) - 1);
		}
		if (Arg.Kind == FPrintfArg::EKind::Unsigned || Arg.Kind == FPrintfArg::EKind::Char)
		{
			return Arg.Unsigned;
		}
		return static_cast<uint64>(AsSigned(Arg));
	}

	double AsDouble(const FPrintfArg& Arg)
	{
		switch (Arg.Kind)
		{
		case FPrintfArg::EKind::Float: return Arg.Float;
		case FPrintfArg::EKind::Signed: return static_cast<double>(Arg.Signed);
		default: return static_cast<double>(AsUnsigned(Arg));
		}
	}

	bool IsText(const FPrintfArg& Arg)
	{
		return Arg.Kind == FPrintfArg::EKind::WideString || Arg.Kind == FPrintfArg::EKind::NarrowString;
	}

	// Runs snprintf with the given narrow format and one value, in the "C" locale so that the
	// decimal point is always '.', and appends the result widened.
	template <typename ValueType>
	void AppendC(FString& Out, const std::string& Format, ValueType Value)
	{
		static const locale_t CLocale = newlocale(LC_ALL_MASK, "C", static_cast<locale_t>(nullptr));
		const locale_t Previous = CLocale ? uselocale(CLocale) : static_cast<locale_t>(nullptr);
		char Small[128];
		std::string Large;
		const char* Text = Small;
		int Written = std::snprintf(Small, sizeof(Small), Format.c_str(), Value);
		if (Written >= static_cast<int>(sizeof(Small)))
		{
			Large.resize(static_cast<SIZE_T>(Written) + 1);
			Written = std::snprintf(Large.data(), Large.size(), Format.c_str(), Value);
			Text = Large.c_str();
		}
		if (Previous)
		{
			uselocale(Previous);
		}
		for (int Index = 0; Index < Written; ++Index)
		{
			Out.AppendChar(static_cast<TCHAR>(static_cast<unsigned char>(Text[Index])));
		}
	}

	// The C format for one directive. Built by appending only: GCC 12 at -O3 reports a false
	// -Wrestrict on std::string's prepending operator+.
	std::string CFormat(const FDirective& Field, const char* Length, char Conversion)
	{
		std::string Format("%");
		Format.append(Field.Flags);
		if (Field.bLeft && Field.Flags.find('-') == std::string::npos)
		{
			Format.push_back('-');
		}
		if (Field.Width >= 0)
		{
			Format.append(std::to_string(Field.Width));
		}
		if (Field.Precision >= 0)
		{
			Format.push_back('.');
			Format.append(std::to_string(Field.Precision));
		}
		Format.append(Length);
		Format.push_back(Conversion);
		return Format;
	}

	// Text fields: precision cuts, width pads with spaces (C leaves '0' undefined for %s).
	void AppendPadded(FString& Out, const TCHAR* Text, int32 Length, const FDirective& Field, bool bUsePrecision)
	{
		if (bUsePrecision && Field.Precision >= 0)
		{
			Length = std::min(Length, Field.Precision);
		}
		const int32 Pad = std::max(Field.Width - Length, 0);
		if (!Field.bLeft)
		{
			Out.Append(FString::ChrN(Pad, ' '));
		}
		Out.Append(Text, Length);
		if (Field.bLeft)
		{
			Out.Append(FString::ChrN(Pad, ' '));
		}
	}

	void AppendText(FString& Out, const FPrintfArg& Arg, const FDirective& Field)
	{
		FString Text;
		if (Arg.Kind == FPrintfArg::EKind::WideString)
		{
			Text = Arg.Wide ? FString(Arg.Wide) : FString(TEXT("(null)"));
		}
		else if (Arg.Kind == FPrintfArg::EKind::NarrowString)
		{
			Text = Arg.Narrow ? FString(Arg.Narrow) : FString(TEXT("(null)"));
		}
		else if (Arg.Kind == FPrintfArg::EKind::Char)
		{
			// A code point beyond the Basic Multilingual Plane (a char32_t) takes a surrogate pair.
			const uint64 Code = Arg.Unsigned;
			if (Code > 0xFFFF && Code <= 0x10FFFF)
			{
				Text.AppendChar(static_cast<TCHAR>(0xD800 + ((Code - 0x10000) >> 10)));
				Text.AppendChar(static_cast<TCHAR>(0xDC00 + ((Code - 0x10000) & 0x3FF)));
			}
			else
			{
				Text.AppendChar(static_cast<TCHAR>(Code <= 0xFFFF ? Code : 0xFFFD));
			}
		}
		else if (Arg.Kind == FPrintfArg::EKind::Pointer)
		{
			Text = Arg.Pointer ? FString::Printf(TEXT("%p"), Arg.Pointer) : FString(TEXT("(null)"));
		}
		else if (Arg.Kind == FPrintfArg::EKind::Float)
		{
			AppendC(Text, "%g", Arg.Float);
		}
		else
		{
			if (Arg.Kind == FPrintfArg::EKind::Signed)
			{
				AppendC(Text, "%lld", static_cast<long long>(AsSigned(Arg)));
			}
			else
			{
				AppendC(Text, "%llu", static_cast<unsigned long long>(AsUnsigned(Arg)));
			}
		}
		AppendPadded(Out, *Text, Text.Len(), Field, IsText(Arg));
	}

	void AppendCharacter(FString& Out, const FPrintfArg& Arg, const FDirective& Field)
	{
		if (IsText(Arg))
		{
			AppendText(Out, Arg, Field);
			return;
		}
		uint64 Code = AsUnsigned(Arg);
		Code = (Code > 0x10FFFF || (Code >= 0xD800 && Code <= 0xDFFF)) ? UE::Core::Private::ReplacementChar : Code;
		// A character beyond U+FFFF is a surrogate pair; a NUL would end the C string that
		// operator* returns, so it stands for nothing.
		const TCHAR Units[2] = {
			static_cast<TCHAR>(Code > 0xFFFF ? 0xD800 + ((Code - 0x10000) >> 10) : Code),
			static_cast<TCHAR>(Code > 0xFFFF ? 0xDC00 + ((Code - 0x10000) & 0x3FF) : 0)};
		AppendPadded(Out, Units, Code == 0 ? 0 : (Code > 0xFFFF ? 2 : 1), Field, false);
	}

	// Reads an int argument for a '*' width or precision; a missing one counts as absent.
	int32 StarValue(const FPrintfArg* Args, int32 NumArgs, int32& NextArg, bool& bMissing)
	{
		if (NextArg >= NumArgs)
		{
			bMissing = true;
			return -1;
		}
		return static_cast<int32>(std::clamp<int64>(AsSigned(Args[NextArg++]), -MaxFieldSize, MaxFieldSize));
	}

	int32 ReadNumber(const TCHAR*& Cursor)
	{
		int64 Value = 0;
		while (*Cursor >= '0' && *Cursor <= '9')
		{
			Value = std::min<int64>(Value * 10 + (*Cursor++ - '0'), MaxFieldSize);
		}
		return static_cast<int32>(Value);
	}
}

void UE::Core::Private::AppendPrintf(FString& Out, const TCHAR* Format, const FPrintfArg* Args, int32 NumArgs)
{
	if (!Format)
	{
		return;
	}
	int32 NextArg = 0;
	const TCHAR* Cursor = Format;
	while (*Cursor)
	{
		if (*Cursor != '%')
		{
			const TCHAR* Run = Cursor;
			while (*Cursor && *Cursor != '%')
			{
				++Cursor;
			}
			Out.Append(Run, static_cast<int32>(Cursor - Run));
			continue;
		}
		const TCHAR* DirectiveStart = Cursor++;
		if (*Cursor == '%')
		{
			Out.AppendChar('%');
			++Cursor;
			continue;
		}
		FDirective Field;
		bool bMissing = false;
		for (; *Cursor == '-' || *Cursor == '+' || *Cursor == ' ' || *Cursor == '0' || *Cursor == '#' || *Cursor == '\''; ++Cursor)
		{
			if (*Cursor != '\'')
			{
				Field.Flags += static_cast<char>(*Cursor);
			}
			Field.bLeft |= (*Cursor == '-');
		}
		if (*Cursor == '*')
		{
			++Cursor;
			Field.Width = StarValue(Args, NumArgs, NextArg, bMissing);
			if (Field.Width < 0 && !bMissing)
			{
				Field.bLeft = true;
				Field.Width = -Field.Width;
			}
		}
		else
		{
			Field.Width = (*Cursor >= '0' && *Cursor <= '9') ? ReadNumber(Cursor) : -1;
		}
		if (*Cursor == '.')
		{
			++Cursor;
			Field.Precision = (*Cursor == '*') ? (++Cursor, StarValue(Args, NumArgs, NextArg, bMissing)) : ReadNumber(Cursor);
		}
		while (*Cursor == 'h' || *Cursor == 'l' || *Cursor == 'L' || *Cursor == 'q' || *Cursor == 'j' || *Cursor == 'z' || *Cursor == 't')
		{
			++Cursor;
		}
		if (Cursor[0] == 'I' && ((Cursor[1] == '6' && Cursor[2] == '4') || (Cursor[1] == '3' && Cursor[2] == '2')))
		{
			Cursor += 3;
		}
		const TCHAR Conversion = *Cursor;
		const bool bKnown = Conversion != 0 && FCString::Strchr(TEXT("diuoxXcCsSfFeEgGaAp"), Conversion) != nullptr;
		if (!bKnown || bMissing || NextArg >= NumArgs)
		{
			// Nothing defined to print: show the directive itself, which makes the mistake visible.
			Cursor += (Conversion != 0) ? 1 : 0;
			Out.Append(DirectiveStart, static_cast<int32>(Cursor - DirectiveStart));
			continue;
		}
		++Cursor;
		const FPrintfArg& Arg = Args[NextArg++];
		switch (Conversion)
		{
		case 's':
		case 'S':
			AppendText(Out, Arg, Field);
			break;
		case 'c':
		case 'C':
			AppendCharacter(Out, Arg, Field);
			break;
		case 'p':
			if (Arg.Kind == FPrintfArg::EKind::Pointer && Arg.Pointer == nullptr)
			{
				AppendPadded(Out, TEXT("(nil)"), 5, Field, false);
			}
			else
			{
				FDirective Hex = Field;
				Hex.Flags.push_back('#');
				AppendC(Out, CFormat(Hex, "ll", 'x'), static_cast<unsigned long long>(AsUnsigned(Arg)));
			}
			break;
		case 'd':
		case 'i':
			IsText(Arg) ? AppendText(Out, Arg, Field) : AppendC(Out, CFormat(Field, "ll", 'd'), static_cast<long long>(AsSigned(Arg)));
			break;
		case 'u':
		case 'o':
		case 'x':
		case 'X':
			IsText(Arg) ? AppendText(Out, Arg, Field) : AppendC(Out, CFormat(Field, "ll", static_cast<char>(Conversion)), static_cast<unsigned long long>(AsUnsigned(Arg)));
			break;
		default:
			IsText(Arg) ? AppendText(Out, Arg, Field) : AppendC(Out, CFormat(Field, "", static_cast<char>(Conversion)), AsDouble(Arg));
			break;
		}
	}
}
