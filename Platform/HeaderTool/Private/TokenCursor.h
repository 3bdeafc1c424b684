#pragma once

#include "Tokenizer.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace HeaderTool
{
	/**
	 * A read position in a token list, with the checks the parser needs. It never moves past the
	 * End token, so reading on at the end of the file only ever sees End; every failure throws
	 * ParseError at the offending token's line.
	 */
	class TokenCursor
	{
	public:
		explicit TokenCursor(const std::vector<Token>& InTokens);

		const Token& Peek(std::size_t Ahead = 0) const;
		const Token& Next();
		bool AtEnd() const { return Peek().Kind == TokenKind::End; }
		std::size_t Position() const { return Index; }

		/** Consumes the current token when its text is Text. */
		bool Match(std::string_view Text);

		/** Consumes the current token, which must be Text: "expected 'Text', found ...". */
		const Token& Expect(std::string_view Text);

		/** Consumes the current token, which must be an identifier: "expected <What>, found ...". */
		const Token& ExpectIdentifier(std::string_view What);

		/** On '(', '[' or '{': moves past the matching closer. Returns the tokens in between. */
		std::vector<const Token*> SkipBalanced();

		[[noreturn]] static void Fail(const Token& At, const std::string& Reason);

		/** How a token is named in a message: 'text', or "end of file". */
		static std::string Describe(const Token& Which);

	private:
		// The whole file, ending in End.
		const std::vector<Token>& Tokens;
		// The current token.
		std::size_t Index = 0;
	};

	/** How much a token changes the template argument depth: '<' +1, '>' -1, '>>' -2. */
	int AngleDelta(const Token& Which);

	/**
	 * Type text from its tokens, spaced the same whatever the source did: one space between words,
	 * after a comma, and between '*' or '&' and a word ("const TArray<FString>&", "TMap<FString, int32>").
	 */
	std::string JoinTypeTokens(const std::vector<const Token*>& Tokens);

	/** True for the words that can only be part of a type, never a parameter's name. */
	bool IsTypeKeyword(std::string_view Word);
}
