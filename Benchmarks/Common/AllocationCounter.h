#pragma once

// Counts heap allocations made through operator new anywhere in the benchmark program, so a
// benchmark can show that the code it times allocates nothing: read the count before and after
// the timed loop and report the difference per iteration.

#include "CoreTypes.h"

/** Allocations made through any form of operator new since the program started. */
uint64 GetAllocationCount();
