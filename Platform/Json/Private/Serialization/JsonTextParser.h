#pragma once

#include "CoreMinimal.h"
#include "Containers/StringView.h"
#include "Templates/SharedPointer.h"

class FJsonValue;

namespace UE::Json::Private
{
	/** The root kinds a Deserialize overload accepts. */
	enum class EJsonRoot : uint8
	{
		Object,
		Array,
		ObjectOrArray
	};

	/**
	 * Reads one whole document into a tree. True, with OutRoot set, when Text is a single
	 * well-formed value of an allowed root kind followed by nothing but whitespace; otherwise false
	 * with OutError saying what is wrong and where ("... Line: 2 Ch: 7"). Containers nested deeper
	 * than FJsonSerializer::MaxDepth are refused before the reader descends into them.
	 */
	bool ParseJsonText(FStringView Text, EJsonRoot AllowedRoot, TSharedPtr<FJsonValue>& OutRoot, FString& OutError);
}
