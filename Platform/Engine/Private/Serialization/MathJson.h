#pragma once

// The core math types (colours, 2D vectors and points) are not reflected structs, yet assets and
// save slots hold them; they are read and written here by their type name.

#include "CoreMinimal.h"

class FJsonValue;

namespace UE::Engine::Private
{
	/** True for "FLinearColor", "FColor", "FVector2D" and "FIntPoint". */
	bool IsMathType(const FString& CppType);

	/** Reads {"R": .., "G": ..} style objects (missing fields keep their value) or positional arrays; false with a problem otherwise. */
	bool JsonToMathValue(const FString& CppType, void* ValuePtr, const FJsonValue& Json, FString& OutProblem);

	/** The value as an object of named numbers. */
	TSharedPtr<FJsonValue> MathValueToJson(const FString& CppType, const void* ValuePtr);
}
