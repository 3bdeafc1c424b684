#pragma once

// FModuleManager and IMPLEMENT_MODULE: how the platform finds a module by name and makes its
// module object. Every module is a shared library lib<Name>.so; the manager opens it (or finds it
// already mapped, as it is for a program linked against it) and calls the InitializeModule the
// library exports.

#include "Containers/Array.h"
#include "Modules/ModuleInterface.h"
#include "UObject/NameTypes.h"

/** How LoadModule reports a module it cannot load. */
enum class ELoadModuleFlags
{
	None = 0,
	/** Log a warning naming the module and the reason. */
	LogFailures = 1 << 0,
};

/** The signature of the function IMPLEMENT_MODULE exports. */
using FInitializeModuleFunctionPtr = IModuleInterface* (*)();

/**
 * Loads modules by name and keeps their module objects. Game thread only: nothing here is locked.
 * A module's code stays mapped after UnloadModule, because the classes it registered live on.
 */
class FModuleManager
{
public:
	/** The one module manager. */
	static CORE_API FModuleManager& Get();

	/**
	 * The module's object, made (and started) on the first call: null when no library of that
	 * name can be opened or it exports no InitializeModule. Later calls give the same object.
	 */
	CORE_API IModuleInterface* LoadModule(const FName InModuleName, ELoadModuleFlags InLoadModuleFlags = ELoadModuleFlags::None);
	/** The object of a loaded module, or null; never loads. */
	CORE_API IModuleInterface* GetModule(const FName InModuleName) const;
	/** True between a successful LoadModule and the matching UnloadModule. */
	CORE_API bool IsModuleLoaded(const FName InModuleName) const;
	/** Shuts the module down and deletes its object; false when it was not loaded. */
	CORE_API bool UnloadModule(const FName InModuleName, bool bIsShutdown = false);

private:
	FModuleManager() = default;

	struct FLoadedModule
	{
		// The name the module was loaded under.
		FName Name;
		// The object its InitializeModule made; owned here.
		IModuleInterface* Module = nullptr;
	};

	// Loaded modules in load order.
	TArray<FLoadedModule> Modules;
};

/** The module class of a module that needs no start or stop of its own. */
class FDefaultModuleImpl : public IModuleInterface
{
};

/**
 * Put once in a module's .cpp: exports the module's InitializeModule, which makes a new
 * ModuleImplClass each time the platform loads the module.
 */
#define IMPLEMENT_MODULE(ModuleImplClass, ModuleName) \
	extern "C" DLLEXPORT IModuleInterface* InitializeModule() \
	{ \
		return new ModuleImplClass(); \
	} \
	extern "C" DLLEXPORT void IMPLEMENT_MODULE_##ModuleName() \
	{ \
	}
