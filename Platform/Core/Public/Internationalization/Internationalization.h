#pragma once

// The text macros (NSLOCTEXT, LOCTEXT, INVTEXT) and the one entry point they expand to, as the
// engine's header of the same name gives them. The stand-in has no translation tables: localizable
// text remembers its namespace and key and always shows its source string.

#include "HAL/Platform.h"

class FText;

/** The localization system; here only the factory the text macros call. */
class FInternationalization
{
public:
	/** What NSLOCTEXT and LOCTEXT expand to; code should use the macros rather than call it. */
	static CORE_API FText ForUseOnlyByLocMacroAndGraphNodeTextLiterals_CreateText(const TCHAR* InTextLiteral, const TCHAR* InNamespace,
		const TCHAR* InKey);
};

#define NSLOCTEXT(InNamespace, InKey, InTextLiteral) \
	FInternationalization::ForUseOnlyByLocMacroAndGraphNodeTextLiterals_CreateText(TEXT(InTextLiteral), TEXT(InNamespace), TEXT(InKey))
#define LOCTEXT(InKey, InTextLiteral) NSLOCTEXT(LOCTEXT_NAMESPACE, InKey, InTextLiteral)
#define INVTEXT(InTextLiteral) FText::AsCultureInvariant(FString(TEXT(InTextLiteral)))
