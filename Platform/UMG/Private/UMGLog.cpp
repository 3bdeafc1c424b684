#include "UMGLog.h"

DEFINE_LOG_CATEGORY(LogUMG);
