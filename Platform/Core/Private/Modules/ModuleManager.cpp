// FModuleManager: modules are shared libraries, found by name and started through their exported
// InitializeModule, as the engine's modular build does it.

#include "Modules/ModuleManager.h"

#include "Containers/StringConv.h"
#include "Logging/LogMacros.h"

#include <dlfcn.h>

#include <string>

DEFINE_LOG_CATEGORY_STATIC(LogModuleManager, Log, All);

namespace
{
	// The folder this library was loaded from: every module of the build sits in the same one.
	std::string ThisLibraryFolder()
	{
		Dl_info Info{};
		if (dladdr(reinterpret_cast<void*>(&ThisLibraryFolder), &Info) == 0 || !Info.dli_fname)
		{
			return std::string();
		}
		const std::string Path = Info.dli_fname;
		const std::string::size_type Slash = Path.rfind('/');
		return Slash == std::string::npos ? std::string() : Path.substr(0, Slash + 1);
	}

	// A handle on lib<Name>.so: the copy already mapped (a program linked against the module), else
	// the one beside this library, else whatever the loader's search path gives. Null if none.
	void* OpenModuleLibrary(const std::string& FileName, FString& OutError)
	{
		if (void* Handle = dlopen(FileName.c_str(), RTLD_NOW | RTLD_NOLOAD))
		{
			return Handle;
		}
		const std::string Folder = ThisLibraryFolder();
		if (!Folder.empty())
		{
			if (void* Handle = dlopen((Folder + FileName).c_str(), RTLD_NOW))
			{
				return Handle;
			}
		}
		void* Handle = dlopen(FileName.c_str(), RTLD_NOW);
		if (!Handle)
		{
			const char* Reason = dlerror();
			OutError = Reason ? FString(UTF8_TO_TCHAR(Reason)) : FString(TEXT("cannot be opened"));
		}
		return Handle;
	}

	// The library that holds Address, or null.
	const void* OwningLibrary(void* Address)
	{
		Dl_info Info{};
		return dladdr(Address, &Info) != 0 ? Info.dli_fbase : nullptr;
	}

	// InitializeModule of that very library. dlsym also searches the libraries it depends on, so
	// the function is taken only when it sits beside the IMPLEMENT_MODULE_<Name> marker.
	FInitializeModuleFunctionPtr FindInitializer(void* Handle, const std::string& ModuleName, FString& OutError)
	{
		void* Marker = dlsym(Handle, ("IMPLEMENT_MODULE_" + ModuleName).c_str());
		if (!Marker)
		{
			OutError = TEXT("the library has no IMPLEMENT_MODULE for this name");
			return nullptr;
		}
		void* Initializer = dlsym(Handle, "InitializeModule");
		if (!Initializer || OwningLibrary(Initializer) != OwningLibrary(Marker))
		{
			OutError = TEXT("the library exports no InitializeModule of its own");
			return nullptr;
		}
		return reinterpret_cast<FInitializeModuleFunctionPtr>(Initializer);
	}
}

FModuleManager& FModuleManager::Get()
{
	// Never destroyed: module objects may be asked for while other statics are torn down.
	static FModuleManager* Manager = new FModuleManager();
	return *Manager;
}

IModuleInterface* FModuleManager::LoadModule(const FName InModuleName, ELoadModuleFlags InLoadModuleFlags)
{
	if (IModuleInterface* Loaded = GetModule(InModuleName))
	{
		return Loaded;
	}
	const FString Name = InModuleName.ToString();
	const std::string NameUtf8 = TCHAR_TO_UTF8(*Name);
	FString Error;
	IModuleInterface* Module = nullptr;
	// The handle is never closed: the classes the library registered outlive its module object.
	if (void* Handle = OpenModuleLibrary("lib" + NameUtf8 + ".so", Error))
	{
		if (FInitializeModuleFunctionPtr Initialize = FindInitializer(Handle, NameUtf8, Error))
		{
			Module = Initialize();
			if (!Module)
			{
				Error = TEXT("InitializeModule gave no module object");
			}
		}
	}
	if (!Module)
	{
		if ((static_cast<int32>(InLoadModuleFlags) & static_cast<int32>(ELoadModuleFlags::LogFailures)) != 0)
		{
			UE_LOG(LogModuleManager, Warning, TEXT("Unable to load module '%s': %s"), *Name, *Error);
		}
		return nullptr;
	}
	Modules.Add(FLoadedModule{InModuleName, Module});
	Module->StartupModule();
	return Module;
}

IModuleInterface* FModuleManager::GetModule(const FName InModuleName) const
{
	for (const FLoadedModule& Loaded : Modules)
	{
		if (Loaded.Name == InModuleName)
		{
			return Loaded.Module;
		}
	}
	return nullptr;
}

bool FModuleManager::IsModuleLoaded(const FName InModuleName) const
{
	return GetModule(InModuleName) != nullptr;
}

bool FModuleManager::UnloadModule(const FName InModuleName, bool bIsShutdown)
{
	for (int32 Index = 0; Index < Modules.Num(); ++Index)
	{
		if (Modules[Index].Name == InModuleName)
		{
			IModuleInterface* Module = Modules[Index].Module;
			// Out of the list first, so a ShutdownModule that asks about itself sees it unloaded.
			Modules.RemoveAt(Index);
			Module->ShutdownModule();
			delete Module;
			return true;
		}
	}
	return false;
}
