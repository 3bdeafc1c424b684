#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace HeaderTool
{
	enum class TokenKind
	{
		Identifier,
		Number,
		String,
		Char,
		Punct,
		End,
	};

	/** One token. Literals keep their source text, prefix and quotes included. */
	struct Token
	{
		TokenKind Kind = TokenKind::End;
		std::string Text;
		int Line = 0;

		bool Is(std::string_view Other) const { return Text == Other; }
		bool IsIdentifier() const { return Kind == TokenKind::Identifier; }
	};

	/**
	 * A comment, kept apart from the tokens so that the one right above a reflection macro can
	 * become its documentation. NextToken is the index of the token that follows it.
	 */
	struct Comment
	{
		std::string Text;
		int FirstLine = 0;
		int LastLine = 0;
		std::size_t NextToken = 0;
		// True when it shares its first line with the token before it (a comment at a line's end).
		bool bTrailing = false;
	};

	/** An #include directive: the name between the quotes or angle brackets. */
	struct IncludeDirective
	{
		std::string Path;
		int Line = 0;
	};

	/** A header cut into tokens. Tokens always ends with one End token. */
	struct TokenizedFile
	{
		std::vector<Token> Tokens;
		std::vector<Comment> Comments;
		std::vector<IncludeDirective> Includes;
	};

	/**
	 * Cuts C++ source into tokens. Preprocessor directives are skipped as whole lines (continuations
	 * included), recording only the includes; what sits between #if and #endif is read like any
	 * other code. Throws ParseError on an unterminated comment or literal.
	 */
	TokenizedFile Tokenize(std::string_view Source);
}
