#include "PlainVidaria.h"

#define LOCTEXT_NAMESPACE "FPlainVidariaModule"

void FPlainVidariaModule::StartupModule()
{
}

void FPlainVidariaModule::ShutdownModule()
{
}

#undef LOCTEXT_NAMESPACE

IMPLEMENT_MODULE(FPlainVidariaModule, PlainVidaria)
