#pragma once

// Everything a generated .gen.cpp needs.

#include "CoreMinimal.h"
#include "UObject/Class.h"
#include "UObject/Enum.h"
#include "UObject/Function.h"
#include "UObject/Package.h"
#include "UObject/ReflectionBuilder.h"
#include "UObject/UObjectGlobals.h"

#include <cstddef>
#include <tuple>
