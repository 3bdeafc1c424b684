// The sibling overlay module has nothing to start or stop: loading it registers its widget classes.

#include "Modules/ModuleManager.h"

IMPLEMENT_MODULE(FDefaultModuleImpl, PlainMarquel)
