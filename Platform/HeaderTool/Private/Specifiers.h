#pragma once

#include "Defs.h"

#include <string>
#include <vector>

namespace HeaderTool
{
	class TokenCursor;

	/**
	 * One item of a reflection macro's argument list: a name, optionally "= value" where the value
	 * is a literal, a word, or a nested list in parentheses (meta=(...), ClassGroup=(...)).
	 */
	struct Specifier
	{
		std::string Name;
		// The value with string literals decoded; for a list, its items' names joined by spaces.
		std::string Value;
		std::vector<Specifier> List;
		bool bHasValue = false;
		bool bIsList = false;
		int Line = 0;
	};

	/** Reads "(Item, Item = Value, Item = (Nested, ...))". The cursor must be on the '('. */
	std::vector<Specifier> ParseSpecifiers(TokenCursor& Cursor);

	/**
	 * Turn specifiers into flags and metadata. Each throws ParseError for a specifier its macro does
	 * not know ("unknown UPROPERTY specifier 'Foo'") or a value given to, or missing from, one.
	 */
	void ApplyClassSpecifiers(const std::vector<Specifier>& Specifiers, ClassDef& Class);
	void ApplyPropertySpecifiers(const std::vector<Specifier>& Specifiers, PropertyDef& Property);
	void ApplyFunctionSpecifiers(const std::vector<Specifier>& Specifiers, FunctionDef& Function);
	void ApplyTypeSpecifiers(const std::vector<Specifier>& Specifiers, const char* MacroName, MetaData& Meta);

	/** UMETA(...) on an enum entry: every item is a metadata key. */
	void ApplyEnumeratorMeta(const std::vector<Specifier>& Specifiers, MetaData& Meta);
}
