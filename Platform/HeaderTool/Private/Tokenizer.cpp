#include "Tokenizer.h"

#include "ParseError.h"

#include <array>

namespace HeaderTool
{
	namespace
	{
		// Longest first, so that "<<=" is not read as "<<" and "=".
		constexpr std::array<std::string_view, 27> Punctuators = {
			"<=>", "<<=", ">>=", "->*", "...",
			"::", "->", "<<", ">>", "<=", ">=", "==", "!=", "&&", "||", "++", "--",
			"+=", "-=", "*=", "/=", "%=", "&=", "|=", "^=", ".*", "##",
		};

		bool IsIdentifierStart(char C)
		{
			const unsigned char U = static_cast<unsigned char>(C);
			return (C >= 'a' && C <= 'z') || (C >= 'A' && C <= 'Z') || C == '_' || U >= 0x80;
		}

		bool IsIdentifierChar(char C)
		{
			return IsIdentifierStart(C) || (C >= '0' && C <= '9');
		}

		bool IsDigit(char C)
		{
			return C >= '0' && C <= '9';
		}

		bool IsStringPrefix(std::string_view Word)
		{
			return Word == "L" || Word == "u8" || Word == "u" || Word == "U" || Word == "R" || Word == "LR"
				|| Word == "u8R" || Word == "uR" || Word == "UR";
		}

		bool IsCharPrefix(std::string_view Word)
		{
			return Word == "L" || Word == "u8" || Word == "u" || Word == "U";
		}

		// Walks the source once, producing tokens, comments and includes.
		class Lexer
		{
		public:
			explicit Lexer(std::string_view InSource)
				: Source(InSource)
			{
			}

			TokenizedFile Run()
			{
				while (Pos < Source.size())
				{
					const char C = Source[Pos];
					if (C == '\n')
					{
						++Line;
						++Pos;
						bLineStart = true;
					}
					else if (C == ' ' || C == '\t' || C == '\r' || C == '\f' || C == '\v')
					{
						++Pos;
					}
					else if (C == '\\' && Peek(1) == '\n')
					{
						Pos += 2;
						++Line;
					}
					else if (C == '\\' && Peek(1) == '\r' && Peek(2) == '\n')
					{
						Pos += 3;
						++Line;
					}
					else if (C == '#' && bLineStart)
					{
						ReadDirective();
					}
					else if (C == '/' && Peek(1) == '/')
					{
						ReadLineComment();
					}
					else if (C == '/' && Peek(1) == '*')
					{
						ReadBlockComment();
					}
					else
					{
						bLineStart = false;
						ReadToken();
					}
				}
				Result.Tokens.push_back(Token{TokenKind::End, "", Line});
				return std::move(Result);
			}

		private:
			char Peek(std::size_t Ahead) const
			{
				return Pos + Ahead < Source.size() ? Source[Pos + Ahead] : '\0';
			}

			void AddComment(std::string Text, int FirstLine)
			{
				Comment Entry;
				Entry.Text = std::move(Text);
				Entry.FirstLine = FirstLine;
				Entry.LastLine = Line;
				Entry.NextToken = Result.Tokens.size();
				Entry.bTrailing = !Result.Tokens.empty() && Result.Tokens.back().Line == FirstLine;
				Result.Comments.push_back(std::move(Entry));
			}

			void ReadLineComment()
			{
				const std::size_t Start = Pos;
				while (Pos < Source.size() && Source[Pos] != '\n')
				{
					++Pos;
				}
				std::string Text(Source.substr(Start, Pos - Start));
				if (!Text.empty() && Text.back() == '\r')
				{
					Text.pop_back();
				}
				AddComment(Text + "\n", Line);
			}

			void ReadBlockComment()
			{
				const int FirstLine = Line;
				const std::size_t End = Source.find("*/", Pos + 2);
				if (End == std::string_view::npos)
				{
					throw ParseError(FirstLine, "unterminated comment");
				}
				std::string Text;
				for (std::size_t Index = Pos; Index < End + 2; ++Index)
				{
					if (Source[Index] == '\n')
					{
						++Line;
					}
					if (Source[Index] != '\r')
					{
						Text += Source[Index];
					}
				}
				Pos = End + 2;
				AddComment(std::move(Text), FirstLine);
			}

			// Skips a directive to the end of its last line; comments inside it may span lines.
			void ReadDirective()
			{
				const int DirectiveLine = Line;
				std::string Text;
				++Pos;
				while (Pos < Source.size() && Source[Pos] != '\n')
				{
					if (Source[Pos] == '\\' && (Peek(1) == '\n' || (Peek(1) == '\r' && Peek(2) == '\n')))
					{
						Pos += Peek(1) == '\n' ? 2 : 3;
						++Line;
						Text += ' ';
					}
					else if (Source[Pos] == '/' && Peek(1) == '*')
					{
						const std::size_t End = Source.find("*/", Pos + 2);
						if (End == std::string_view::npos)
						{
							throw ParseError(Line, "unterminated comment");
						}
						for (; Pos < End + 2; ++Pos)
						{
							Line += Source[Pos] == '\n' ? 1 : 0;
						}
						Text += ' ';
					}
					else if (Source[Pos] == '/' && Peek(1) == '/')
					{
						while (Pos < Source.size() && Source[Pos] != '\n')
						{
							++Pos;
						}
					}
					else
					{
						Text += Source[Pos++];
					}
				}
				RecordInclude(Text, DirectiveLine);
			}

			void RecordInclude(std::string_view Text, int DirectiveLine)
			{
				std::size_t Index = Text.find_first_not_of(" \t");
				if (Index == std::string_view::npos || Text.substr(Index, 7) != "include")
				{
					return;
				}
				Index = Text.find_first_not_of(" \t\r", Index + 7);
				if (Index == std::string_view::npos || (Text[Index] != '"' && Text[Index] != '<'))
				{
					return;
				}
				const char Close = Text[Index] == '"' ? '"' : '>';
				const std::size_t End = Text.find(Close, Index + 1);
				if (End != std::string_view::npos)
				{
					Result.Includes.push_back(IncludeDirective{std::string(Text.substr(Index + 1, End - Index - 1)), DirectiveLine});
				}
			}

			void ReadToken()
			{
				const std::size_t Start = Pos;
				const int TokenLine = Line;
				const char C = Source[Pos];
				TokenKind Kind = TokenKind::Punct;
				if (IsIdentifierStart(C))
				{
					while (Pos < Source.size() && IsIdentifierChar(Source[Pos]))
					{
						++Pos;
					}
					const std::string_view Word = Source.substr(Start, Pos - Start);
					Kind = TokenKind::Identifier;
					if (Peek(0) == '"' && IsStringPrefix(Word))
					{
						Kind = TokenKind::String;
						Word.back() == 'R' ? ReadRawString() : ReadQuoted('"');
					}
					else if (Peek(0) == '\'' && IsCharPrefix(Word))
					{
						Kind = TokenKind::Char;
						ReadQuoted('\'');
					}
				}
				else if (IsDigit(C) || (C == '.' && IsDigit(Peek(1))))
				{
					Kind = TokenKind::Number;
					ReadNumber();
				}
				else if (C == '"' || C == '\'')
				{
					Kind = C == '"' ? TokenKind::String : TokenKind::Char;
					ReadQuoted(C);
				}
				else
				{
					std::size_t Length = 1;
					for (std::string_view Candidate : Punctuators)
					{
						if (Source.substr(Pos, Candidate.size()) == Candidate)
						{
							Length = Candidate.size();
							break;
						}
					}
					Pos += Length;
				}
				Result.Tokens.push_back(Token{Kind, std::string(Source.substr(Start, Pos - Start)), TokenLine});
			}

			void ReadNumber()
			{
				while (Pos < Source.size())
				{
					const char C = Source[Pos];
					const char Prev = Source[Pos - 1];
					if (IsIdentifierChar(C) || C == '.')
					{
						++Pos;
					}
					else if ((C == '+' || C == '-') && (Prev == 'e' || Prev == 'E' || Prev == 'p' || Prev == 'P'))
					{
						++Pos;
					}
					else if (C == '\'' && IsIdentifierChar(Peek(1)))
					{
						++Pos;
					}
					else
					{
						break;
					}
				}
			}

			// Pos is on the opening quote.
			void ReadQuoted(char Quote)
			{
				++Pos;
				while (true)
				{
					if (Pos >= Source.size() || Source[Pos] == '\n')
					{
						throw ParseError(Line, Quote == '"' ? "unterminated string literal" : "unterminated character literal");
					}
					const char C = Source[Pos++];
					if (C == '\\' && Pos < Source.size())
					{
						Line += Source[Pos] == '\n' ? 1 : 0;
						++Pos;
					}
					else if (C == Quote)
					{
						return;
					}
				}
			}

			// Pos is on the quote of R"delimiter( ... )delimiter".
			void ReadRawString()
			{
				const int StartLine = Line;
				const std::size_t Open = Source.find('(', Pos);
				if (Open == std::string_view::npos || Open - Pos - 1 > 16)
				{
					throw ParseError(StartLine, "malformed raw string literal");
				}
				const std::string Terminator = ")" + std::string(Source.substr(Pos + 1, Open - Pos - 1)) + "\"";
				const std::size_t End = Source.find(Terminator, Open + 1);
				if (End == std::string_view::npos)
				{
					throw ParseError(StartLine, "unterminated raw string literal");
				}
				for (; Pos < End + Terminator.size(); ++Pos)
				{
					Line += Source[Pos] == '\n' ? 1 : 0;
				}
			}

			// The whole header.
			std::string_view Source;
			// Read position in Source.
			std::size_t Pos = 0;
			// Line of Source[Pos], 1-based.
			int Line = 1;
			// Only whitespace since the start of the line, so a '#' starts a directive.
			bool bLineStart = true;
			// What has been read so far.
			TokenizedFile Result;
		};
	}

	TokenizedFile Tokenize(std::string_view Source)
	{
		return Lexer(Source).Run();
	}
}
