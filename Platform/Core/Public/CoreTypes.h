#pragma once

#include "HAL/Platform.h"
#include "Misc/AssertionMacros.h"
#include "Misc/CoreMiscDefines.h"
