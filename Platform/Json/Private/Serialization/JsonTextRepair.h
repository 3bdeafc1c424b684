#pragma once

#include "CoreMinimal.h"

namespace UE::Json::Private
{
	/**
	 * Rewrites the two things the strict reader refuses although the document means something: a
	 * \u escape of a lone surrogate becomes \uFFFD, and every number becomes its shortest exact
	 * spelling, or Infinity / -Infinity past double's range (words only the lenient reading mode
	 * takes). Everything else is copied, errors included, for the reader to find. False when the
	 * text already has a letter I or N outside a string: the lenient mode would accept it, and it
	 * is malformed.
	 */
	bool RepairJsonText(const FString& Text, FString& OutRepaired);
}
