#pragma once

#include "Defs.h"
#include "Tokenizer.h"

#include <cstddef>

namespace HeaderTool
{
	/**
	 * Gives a reflected item the documentation written right above its macro: "Comment" is the
	 * comment exactly as written, "ToolTip" its text without the markers. Only a comment that ends
	 * on the macro's line or the line before counts; consecutive // lines are read as one comment.
	 * A ToolTip already given through meta=(...) is kept.
	 */
	void AttachDocComment(const TokenizedFile& File, std::size_t MacroToken, MetaData& Meta);
}
