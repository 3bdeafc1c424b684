#include "CodeText.h"

#include <cstdio>

namespace HeaderTool
{
	namespace
	{
		// Length of the valid UTF-8 sequence at Text[Index], or 0 when it is not one (overlong forms
		// and surrogates included, which the compiler would refuse in a wide literal).
		std::size_t Utf8SequenceLength(std::string_view Text, std::size_t Index)
		{
			const unsigned char Lead = static_cast<unsigned char>(Text[Index]);
			std::size_t Length = 0;
			unsigned char SecondMin = 0x80;
			unsigned char SecondMax = 0xBF;
			if (Lead >= 0xC2 && Lead <= 0xDF)
			{
				Length = 2;
			}
			else if (Lead >= 0xE0 && Lead <= 0xEF)
			{
				Length = 3;
				SecondMin = Lead == 0xE0 ? 0xA0 : 0x80;
				SecondMax = Lead == 0xED ? 0x9F : 0xBF;
			}
			else if (Lead >= 0xF0 && Lead <= 0xF4)
			{
				Length = 4;
				SecondMin = Lead == 0xF0 ? 0x90 : 0x80;
				SecondMax = Lead == 0xF4 ? 0x8F : 0xBF;
			}
			if (Length == 0 || Index + Length > Text.size())
			{
				return 0;
			}
			const unsigned char Second = static_cast<unsigned char>(Text[Index + 1]);
			if (Second < SecondMin || Second > SecondMax)
			{
				return 0;
			}
			for (std::size_t Offset = 2; Offset < Length; ++Offset)
			{
				if ((static_cast<unsigned char>(Text[Index + Offset]) & 0xC0) != 0x80)
				{
					return 0;
				}
			}
			return Length;
		}
	}

	std::string TextLiteral(std::string_view Utf8)
	{
		std::string Out = "TEXT(\"";
		for (std::size_t Index = 0; Index < Utf8.size();)
		{
			const unsigned char C = static_cast<unsigned char>(Utf8[Index]);
			if (C >= 0x80)
			{
				const std::size_t Length = Utf8SequenceLength(Utf8, Index);
				Out += Length ? std::string(Utf8.substr(Index, Length)) : std::string("\\uFFFD");
				Index += Length ? Length : 1;
				continue;
			}
			switch (C)
			{
			case '"': Out += "\\\""; break;
			case '\\': Out += "\\\\"; break;
			case '\n': Out += "\\n"; break;
			case '\r': Out += "\\r"; break;
			case '\t': Out += "\\t"; break;
			default:
				if (C < 0x20 || C == 0x7F)
				{
					// Three octal digits always end the escape, whatever character follows.
					char Escape[8];
					std::snprintf(Escape, sizeof(Escape), "\\%03o", C);
					Out += Escape;
				}
				else
				{
					Out += static_cast<char>(C);
				}
			}
			++Index;
		}
		return Out + "\")";
	}

	std::string MetaList(const MetaData& Meta)
	{
		if (Meta.Entries.empty())
		{
			return "{ }";
		}
		std::string Out = "{ ";
		for (std::size_t Index = 0; Index < Meta.Entries.size(); ++Index)
		{
			Out += Index > 0 ? ", " : "";
			Out += "{ " + TextLiteral(Meta.Entries[Index].first) + ", " + TextLiteral(Meta.Entries[Index].second) + " }";
		}
		return Out + " }";
	}

	std::string FlagChain(std::initializer_list<const char*> Order, const std::set<std::string>& Flags, const char* None)
	{
		std::string Out;
		for (const char* Flag : Order)
		{
			if (Flags.count(Flag))
			{
				Out += (Out.empty() ? "" : " | ") + std::string(Flag);
			}
		}
		return Out.empty() ? std::string(None) : Out;
	}

	std::string Identifierize(std::string_view Text)
	{
		std::string Out(Text);
		for (char& C : Out)
		{
			const bool bKeep = (C >= 'a' && C <= 'z') || (C >= 'A' && C <= 'Z') || (C >= '0' && C <= '9') || C == '_';
			C = bKeep ? C : '_';
		}
		return Out;
	}

	std::string StripPrefix(std::string_view CppName)
	{
		return std::string(CppName.substr(CppName.empty() ? 0 : 1));
	}
}
