#pragma once

#include "HAL/Platform.h"
#include "Misc/AssertionMacros.h"
