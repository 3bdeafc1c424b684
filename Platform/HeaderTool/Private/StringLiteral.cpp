#include "StringLiteral.h"

#include <cstdint>

namespace HeaderTool
{
	namespace
	{
		void AppendUtf8(std::string& Out, std::uint32_t CodePoint)
		{
			if (CodePoint < 0x80)
			{
				Out += static_cast<char>(CodePoint);
			}
			else if (CodePoint < 0x800)
			{
				Out += static_cast<char>(0xC0 | (CodePoint >> 6));
				Out += static_cast<char>(0x80 | (CodePoint & 0x3F));
			}
			else if (CodePoint < 0x10000)
			{
				Out += static_cast<char>(0xE0 | (CodePoint >> 12));
				Out += static_cast<char>(0x80 | ((CodePoint >> 6) & 0x3F));
				Out += static_cast<char>(0x80 | (CodePoint & 0x3F));
			}
			else
			{
				Out += static_cast<char>(0xF0 | (CodePoint >> 18));
				Out += static_cast<char>(0x80 | ((CodePoint >> 12) & 0x3F));
				Out += static_cast<char>(0x80 | ((CodePoint >> 6) & 0x3F));
				Out += static_cast<char>(0x80 | (CodePoint & 0x3F));
			}
		}

		int HexValue(char C)
		{
			if (C >= '0' && C <= '9')
			{
				return C - '0';
			}
			if (C >= 'a' && C <= 'f')
			{
				return C - 'a' + 10;
			}
			if (C >= 'A' && C <= 'F')
			{
				return C - 'A' + 10;
			}
			return -1;
		}
	}

	std::string DecodeStringLiteral(std::string_view Literal)
	{
		const std::size_t Quote = Literal.find('"');
		if (Quote == std::string_view::npos || Literal.size() < Quote + 2)
		{
			return std::string(Literal);
		}
		if (Quote > 0 && Literal[Quote - 1] == 'R')
		{
			const std::size_t Open = Literal.find('(', Quote);
			const std::size_t Delimiter = Open - Quote - 1;
			return std::string(Literal.substr(Open + 1, Literal.size() - Open - 1 - Delimiter - 2));
		}
		const std::string_view Body = Literal.substr(Quote + 1, Literal.size() - Quote - 2);
		std::string Out;
		for (std::size_t Index = 0; Index < Body.size(); ++Index)
		{
			if (Body[Index] != '\\' || Index + 1 >= Body.size())
			{
				Out += Body[Index];
				continue;
			}
			const char Escape = Body[++Index];
			switch (Escape)
			{
			case 'n': Out += '\n'; break;
			case 't': Out += '\t'; break;
			case 'r': Out += '\r'; break;
			case 'a': Out += '\a'; break;
			case 'b': Out += '\b'; break;
			case 'f': Out += '\f'; break;
			case 'v': Out += '\v'; break;
			case '\n': break;
			case 'x':
			case 'u':
			case 'U':
			{
				const std::size_t MaxDigits = Escape == 'x' ? 8 : (Escape == 'u' ? 4 : 8);
				std::uint32_t Value = 0;
				std::size_t Digits = 0;
				while (Digits < MaxDigits && Index + 1 < Body.size() && HexValue(Body[Index + 1]) >= 0)
				{
					Value = Value * 16 + static_cast<std::uint32_t>(HexValue(Body[++Index]));
					++Digits;
				}
				AppendUtf8(Out, Value);
				break;
			}
			default:
				if (Escape >= '0' && Escape <= '7')
				{
					std::uint32_t Value = static_cast<std::uint32_t>(Escape - '0');
					for (int Digits = 1; Digits < 3 && Index + 1 < Body.size() && Body[Index + 1] >= '0' && Body[Index + 1] <= '7'; ++Digits)
					{
						Value = Value * 8 + static_cast<std::uint32_t>(Body[++Index] - '0');
					}
					AppendUtf8(Out, Value);
				}
				else
				{
					Out += Escape;
				}
			}
		}
		return Out;
	}
}
