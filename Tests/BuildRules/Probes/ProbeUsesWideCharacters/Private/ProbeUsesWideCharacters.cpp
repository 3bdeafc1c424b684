#include "CoreMinimal.h"

#include <cwchar>

size_t ProbeMeasure(const FString& Text) { return std::wcslen(*Text); }
