#pragma once

#include "Containers/UnrealString.h"
#include "HAL/Platform.h"

#include <memory>

class FName;

/** How strictly FText::EqualTo compares; Primary ignores case, every other level respects it. */
namespace ETextComparisonLevel
{
	enum Type
	{
		Default,
		Primary,
		Secondary,
		Tertiary,
		Quaternary,
		Quinary,
	};
}

/**
 * Text meant for the user to read. One made by NSLOCTEXT/LOCTEXT remembers its namespace and key;
 * the stand-in has no translation tables, so it always shows its source string. Copies share one
 * immutable buffer. Compare with EqualTo: FText deliberately has no ==, as in the engine.
 */
class FText
{
public:
	/** Empty text. */
	CORE_API FText();

	/** Text with no localization key: shown as given in every culture. */
	static CORE_API FText FromString(const FString& String);
	static CORE_API FText FromName(const FName& Name);
	static CORE_API FText AsCultureInvariant(const FString& String);
	static CORE_API const FText& GetEmpty();

	/** The text as displayed. The reference lives as long as this FText (or a copy of it). */
	CORE_API const FString& ToString() const;
	bool IsEmpty() const { return ToString().IsEmpty(); }
	bool IsEmptyOrWhitespace() const { return ToString().TrimStartAndEnd().IsEmpty(); }
	CORE_API bool EqualTo(const FText& Other, ETextComparisonLevel::Type ComparisonLevel = ETextComparisonLevel::Default) const;
	bool EqualToCaseIgnored(const FText& Other) const { return EqualTo(Other, ETextComparisonLevel::Primary); }
	CORE_API FText ToUpper() const;
	CORE_API FText ToLower() const;

private:
	friend class FTextInspector;
	friend class FInternationalization;

	struct FData
	{
		// What is displayed.
		FString Display;
		// Localization namespace and key; both empty for text made from a plain string.
		FString Namespace;
		FString Key;
	};

	explicit FText(std::shared_ptr<const FData> InData);

	// Shared and immutable; null for the empty text.
	std::shared_ptr<const FData> Data;
};

/** Reads back how an FText was made, as the engine's inspector does. */
class FTextInspector
{
public:
#if PLAIN_PLATFORM_INTERNALS
	// The stand-in's: the engine's forms return TOptional<FString>, which this tree does not have.
	/** The NSLOCTEXT/LOCTEXT namespace; empty for text without a key. */
	static CORE_API FString GetNamespace(const FText& Text);
	/** The NSLOCTEXT/LOCTEXT key; empty for text without one. */
	static CORE_API FString GetKey(const FText& Text);
#endif
	static const FString& GetDisplayString(const FText& Text) { return Text.ToString(); }
};

#include "Internationalization/Internationalization.h"
