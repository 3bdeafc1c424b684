// The asset reader on any file: the bytes become a .uasset of a scratch project, loaded as an
// object (the generic reader, or whichever reader its "Class" names) and as a blueprint's class.
// A widget blueprint that loads is made into a widget (its tree built, its BindWidget members
// bound); one whose native class is UUserWidget itself is also put on screen for a frame. A
// blueprint of one of the plug-in's classes is not: those go where their class expects (a comment
// node only onto the overlay's canvas), which a made-up asset cannot arrange.

#include "FuzzKit.h"

#include "Blueprint/UserWidget.h"
#include "HeadlessApplication.h"
#include "UObject/GarbageCollection.h"
#include "UObject/UObjectGlobals.h"

#include <filesystem>
#include <memory>

namespace
{
	std::unique_ptr<FHeadlessApplication> App;
	int32 Runs = 0;

	// Loads the bytes as the asset ObjectName of a new package: a path is loaded once and then
	// found in memory, so every input gets its own.
	template<class T>
	T* LoadAsNewAsset(const uint8_t* Data, size_t Size, const TCHAR* ObjectNameSuffix)
	{
		const FString Name = FString::Printf(TEXT("A%d"), ++Runs);
		const std::string File = PlainFuzz::ScratchDir() + "Content/Fuzz/" + TCHAR_TO_UTF8(*Name) + ".uasset";
		PlainFuzz::WriteFile(File, Data, Size);
		T* Loaded = LoadObject<T>(nullptr, *FString::Printf(TEXT("/Game/Fuzz/%s.%s%s"), *Name, *Name, ObjectNameSuffix), nullptr, LOAD_NoWarn);
		std::filesystem::remove(File);
		return Loaded;
	}

	UClass* NativeClassOf(UClass* Class)
	{
		while (Class && !Class->HasAnyClassFlags(CLASS_Native))
		{
			Class = Class->GetSuperClass();
		}
		return Class;
	}
}

extern "C" int LLVMFuzzerInitialize(int* Argc, char*** Argv)
{
	PlainFuzz::Start(false);
	App = std::make_unique<FHeadlessApplication>();
	return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* Data, size_t Size)
{
	LoadAsNewAsset<UObject>(Data, Size, TEXT(""));
	UClass* Class = LoadAsNewAsset<UClass>(Data, Size, TEXT("_C"));
	if (Class && Class->IsChildOf(UUserWidget::StaticClass()) && !Class->HasAnyClassFlags(CLASS_Abstract))
	{
		UUserWidget* Widget = CreateWidget<UUserWidget>(App->GetWorld(), Class);
		if (Widget && NativeClassOf(Class) == UUserWidget::StaticClass())
		{
			Widget->AddToViewport();
			App->TickFrame();
			Widget->RemoveFromParent();
		}
	}
	// The frame collects what nothing holds any more, loaded assets included.
	App->TickFrame();
	return 0;
}
