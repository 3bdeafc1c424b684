#pragma once

#include "CoreMinimal.h"
#include "Modules/ModuleManager.h"

/**
 * The PlainVidaria module as the platform loads it. It holds nothing and starts nothing: loading
 * the module only registers its reflected classes under /Script/PlainVidaria, so that widget
 * blueprints can name them. Everything else begins when a host creates a widget or calls one of
 * the module's entry points.
 */
class FPlainVidariaModule : public IModuleInterface
{
public:
	/** Called once the module is loaded; the module has no service to start. */
	virtual void StartupModule() override;
	/** Called before the module is unloaded; there is nothing to stop. */
	virtual void ShutdownModule() override;
};
