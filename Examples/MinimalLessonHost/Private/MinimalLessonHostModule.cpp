#include "Modules/ModuleManager.h"

// The module only carries UMinimalLessonHost; it has nothing to start.
IMPLEMENT_MODULE(FDefaultModuleImpl, MinimalLessonHost)
