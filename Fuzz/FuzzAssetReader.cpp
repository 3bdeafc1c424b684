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


namespace
{
	// Never destroyed: at exit the object system's statics may be gone before it.
	FHeadlessApplication* App = nullptr;

	// Loads the bytes as the asset /Game/Fuzz/<Name>.<Name><Suffix>. A path is loaded once and
	// then found in memory, so every input ends with a collection that takes the package away.
	template<class T>
	T* LoadAsAsset(const uint8_t* Data, size_t Size, const TCHAR* Name, const TCHAR* ObjectNameSuffix)
	{
		const std::string File = PlainFuzz::ScratchDir() + "Content/Fuzz/" + TCHAR_TO_UTF8(Name) + ".uasset";
		PlainFuzz::WriteFile(File, Data, Size);
		return LoadObject<T>(nullptr, *FString::Printf(TEXT("/Game/Fuzz/%s.%s%s"), Name, Name, ObjectNameSuffix), nullptr, LOAD_NoWarn);
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
	App = new FHeadlessApplication();
	return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* Data, size_t Size)
{
	UObject* Object = LoadAsAsset<UObject>(Data, Size, TEXT("FuzzObject"), TEXT(""));
	UClass* Class = LoadAsAsset<UClass>(Data, Size, TEXT("FuzzClass"), TEXT("_C"));
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
	App->TickFrame();
	// Loaded assets are standalone, kept until their owner lets go, as in the engine: let go.
	for (UObject* Loaded : { Object, static_cast<UObject*>(Class) })
	{
		if (Loaded)
		{
			Loaded->ClearFlags(RF_Standalone);
		}
	}
	CollectGarbage();
	PlainFuzz::Expect(!FindPackage(nullptr, TEXT("/Game/Fuzz/FuzzObject")) && !FindPackage(nullptr, TEXT("/Game/Fuzz/FuzzClass")),
		"a loaded asset outlived the collection that should take it");
	PlainFuzz::ForgetLog();
	return 0;
}
