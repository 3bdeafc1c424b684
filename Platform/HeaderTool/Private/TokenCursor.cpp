#include "TokenCursor.h"

#include "ParseError.h"

#include <array>

namespace HeaderTool
{
	TokenCursor::TokenCursor(const std::vector<Token>& InTokens)
		: Tokens(InTokens)
	{
	}

	const Token& TokenCursor::Peek(std::size_t Ahead) const
	{
		const std::size_t At = Index + Ahead;
		return At < Tokens.size() ? Tokens[At] : Tokens.back();
	}

	const Token& TokenCursor::Next()
	{
		const Token& Current = Peek();
		if (Index + 1 < Tokens.size())
		{
			++Index;
		}
		return Current;
	}

	bool TokenCursor::Match(std::string_view Text)
	{
		if (Peek().Kind != TokenKind::End && Peek().Is(Text))
		{
			Next();
			return true;
		}
		return false;
	}

	const Token& TokenCursor::Expect(std::string_view Text)
	{
		if (Peek().Kind == TokenKind::End || !Peek().Is(Text))
		{
			Fail(Peek(), "expected '" + std::string(Text) + "', found " + Describe(Peek()));
		}
		return Next();
	}

	const Token& TokenCursor::ExpectIdentifier(std::string_view What)
	{
		if (!Peek().IsIdentifier())
		{
			Fail(Peek(), "expected " + std::string(What) + ", found " + Describe(Peek()));
		}
		return Next();
	}

	std::vector<const Token*> TokenCursor::SkipBalanced()
	{
		// The brackets still open, innermost last.
		std::vector<const Token*> Open;
		std::vector<const Token*> Inside;
		do
		{
			const Token& Current = Next();
			const bool bPunct = Current.Kind == TokenKind::Punct;
			if (bPunct && (Current.Is("(") || Current.Is("[") || Current.Is("{")))
			{
				Open.push_back(&Current);
			}
			else if (Open.empty())
			{
				Fail(Current, "expected '(', found " + Describe(Current));
			}
			else if (Current.Kind == TokenKind::End)
			{
				Fail(*Open.back(), "'" + Open.back()->Text + "' is never closed");
			}
			else if (bPunct && (Current.Is(")") || Current.Is("]") || Current.Is("}")))
			{
				const char Closer = Open.back()->Is("(") ? ')' : (Open.back()->Is("[") ? ']' : '}');
				if (Current.Text[0] != Closer)
				{
					Fail(Current, "expected '" + std::string(1, Closer) + "', found " + Describe(Current));
				}
				Open.pop_back();
			}
			Inside.push_back(&Current);
		} while (!Open.empty());
		// Drop the opener and the closer themselves.
		Inside.erase(Inside.begin());
		Inside.pop_back();
		return Inside;
	}

	void TokenCursor::Fail(const Token& At, const std::string& Reason)
	{
		throw ParseError(At.Line, Reason);
	}

	std::string TokenCursor::Describe(const Token& Which)
	{
		return Which.Kind == TokenKind::End ? std::string("end of file") : "'" + Which.Text + "'";
	}

	int AngleDelta(const Token& Which)
	{
		if (Which.Kind != TokenKind::Punct)
		{
			return 0;
		}
		return Which.Is("<") ? 1 : (Which.Is(">") ? -1 : (Which.Is(">>") ? -2 : 0));
	}

	std::string JoinTypeTokens(const std::vector<const Token*>& Tokens)
	{
		std::string Out;
		const Token* Previous = nullptr;
		for (const Token* Current : Tokens)
		{
			if (Previous)
			{
				const bool bWord = Current->Kind == TokenKind::Identifier || Current->Kind == TokenKind::Number;
				const bool bPreviousWord = Previous->Kind == TokenKind::Identifier || Previous->Kind == TokenKind::Number;
				const bool bAfterPointer = Previous->Is("*") || Previous->Is("&") || Previous->Is("&&");
				if (Previous->Is(",") || (bWord && (bPreviousWord || bAfterPointer)))
				{
					Out += ' ';
				}
			}
			Out += Current->Text;
			Previous = Current;
		}
		return Out;
	}

	bool IsTypeKeyword(std::string_view Word)
	{
		static constexpr std::array<std::string_view, 18> Keywords = {
			"void", "bool", "char", "char8_t", "char16_t", "char32_t", "wchar_t", "short", "int", "long",
			"float", "double", "signed", "unsigned", "const", "volatile", "auto", "struct",
		};
		for (std::string_view Keyword : Keywords)
		{
			if (Word == Keyword)
			{
				return true;
			}
		}
		return false;
	}
}
