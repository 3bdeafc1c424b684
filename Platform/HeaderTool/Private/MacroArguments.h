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
	struct MacroArgument
	{
		std::string Name;
		// The value with string literals decoded; for a list, its items' names joined by spaces.
		std::string Value;
		std::vector<MacroArgument> List;
		bool bHasValue = false;
		bool bIsList = false;
		int Line = 0;
	};

	/** Reads "(Item, Item = Value, Item = (Nested, ...))". The cursor must be on the '('. */
	std::vector<MacroArgument> ParseMacroArguments(TokenCursor& Cursor);

	/**
	 * Turn macro arguments into flags and metadata. Each throws ParseError for a macro argument its macro does
	 * not know ("unknown UPROPERTY macro argument 'Foo'") or a value given to, or missing from, one.
	 */
	void ApplyClassMacroArguments(const std::vector<MacroArgument>& MacroArguments, ClassDef& Class);
	void ApplyPropertyMacroArguments(const std::vector<MacroArgument>& MacroArguments, PropertyDef& Property);
	void ApplyFunctionMacroArguments(const std::vector<MacroArgument>& MacroArguments, FunctionDef& Function);
	void ApplyTypeMacroArguments(const std::vector<MacroArgument>& MacroArguments, const char* MacroName, MetaData& Meta);

	/** UMETA(...) on an enum entry: every item is a metadata key. */
	void ApplyEnumeratorMeta(const std::vector<MacroArgument>& MacroArguments, MetaData& Meta);
}
