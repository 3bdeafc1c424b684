#pragma once

#include "HAL/Platform.h"

/**
 * What every module's main class implements, as in the engine. The module manager makes one
 * object per load of the module (through the InitializeModule that IMPLEMENT_MODULE exports),
 * calls StartupModule at once and ShutdownModule just before it deletes the object. Game thread.
 */
class IModuleInterface
{
public:
	virtual ~IModuleInterface() = default;

	/** Called right after the module object is made: start the module's services here. */
	virtual void StartupModule() {}
	/** Called before a module that supports reloading is unloaded for a reload. */
	virtual void PreUnloadCallback() {}
	/** Called after a module has been reloaded. */
	virtual void PostLoadCallback() {}
	/** Called before the module object is deleted: undo what StartupModule did. */
	virtual void ShutdownModule() {}
	/** Whether the module may be unloaded and loaded again while the program runs. */
	virtual bool SupportsDynamicReloading() { return true; }
	/** Whether the module manager may shut the module down by itself when the program ends. */
	virtual bool SupportsAutomaticShutdown() { return true; }
	/** Whether this is a game's primary module rather than an engine or plug-in module. */
	virtual bool IsGameModule() const { return false; }
};
