#include "JsonGlobals.h"

DEFINE_LOG_CATEGORY(LogJson);
