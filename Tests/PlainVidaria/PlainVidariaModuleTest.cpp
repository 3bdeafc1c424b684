// The module entry: the platform finds PlainVidaria by name and makes its module object through
// InitializeModule; the module's classes are registered under /Script/PlainVidaria.

#include "PlainVidaria.h"

#include "BulletChat/BulletChatSave.h"
#include "UObject/Class.h"
#include "UObject/UObjectGlobals.h"

#include <gtest/gtest.h>

TEST(PlainVidariaModule, LoadsOnceByNameUnloadsAndRefusesLibrariesThatAreNoModule)
{
	FModuleManager& Modules = FModuleManager::Get();
	IModuleInterface* Module = Modules.LoadModule(TEXT("PlainVidaria"));
	EXPECT_NE(dynamic_cast<FPlainVidariaModule*>(Module), nullptr);
	EXPECT_EQ(Modules.LoadModule(TEXT("PlainVidaria")), Module);
	EXPECT_EQ(FindObject<UClass>(nullptr, TEXT("/Script/PlainVidaria.BulletChatSave")), UBulletChatSave::StaticClass());

	EXPECT_TRUE(Modules.UnloadModule(TEXT("PlainVidaria")));
	EXPECT_FALSE(Modules.IsModuleLoaded(TEXT("PlainVidaria")));
	EXPECT_NE(Modules.LoadModule(TEXT("PlainVidaria")), nullptr) << "a module can be loaded again";

	// Core is a library of the build, but no IMPLEMENT_MODULE names it.
	EXPECT_EQ(Modules.LoadModule(TEXT("Core")), nullptr);
	EXPECT_EQ(Modules.LoadModule(TEXT("NoSuchModule")), nullptr);
}
