// The comment document road on any text: the bytes go to the plug-in's overlay (the project's own
// WBP_BulletChat, started on a media player) as a full document (ResetDatas) and as one comment
// (AddDataThenSpawn), so the records are read by FBulletChatDocument as the plug-in reads them,
// and a comment that reads flies: a node is made, measured, placed in a lane and ticked.

#include "FuzzKit.h"

#include "Blueprint/UserWidget.h"
#include "Blueprint/WidgetTree.h"
#include "BulletChat/UI_BulletChat.h"
#include "Components/CanvasPanel.h"
#include "HeadlessApplication.h"
#include "MediaPlayer.h"
#include "UObject/UObjectGlobals.h"


namespace
{
	// Never destroyed: at exit the object system's statics may be gone before it.
	FHeadlessApplication* App = nullptr;
	UUI_BulletChat* Overlay = nullptr;
	UCanvasPanel* Canvas = nullptr;
	UMediaPlayer* Player = nullptr;
}

extern "C" int LLVMFuzzerInitialize(int* Argc, char*** Argv)
{
	PlainFuzz::Start(true);
	App = new FHeadlessApplication();
	UClass* OverlayClass = LoadObject<UClass>(nullptr, TEXT("/Game/UI/WBP_BulletChat.WBP_BulletChat_C"));
	PlainFuzz::Expect(OverlayClass != nullptr, "the project's comment overlay blueprint does not load");
	Overlay = CreateWidget<UUI_BulletChat>(App->GetWorld(), OverlayClass);
	PlainFuzz::Expect(Overlay != nullptr, "the comment overlay cannot be made");
	Overlay->AddToViewport();
	Canvas = Cast<UCanvasPanel>(Overlay->WidgetTree->FindWidget(TEXT("RootCanvas")));
	Player = NewObject<UMediaPlayer>();
	Player->AddToRoot();
	Overlay->Init(Player);
	// The first frame lays the canvas out, the next starts the overlay; a comment shows that it did.
	App->TickFrames(2);
	Overlay->AddDataThenSpawn(TEXT("{ \"id\": 1, \"time\": \"00:00:01\", \"bullet_chat_content\": \"ready\" }"), Player->GetUrl());
	PlainFuzz::Expect(Canvas && Canvas->GetChildrenCount() == 1, "the comment overlay did not start");
	Overlay->Empty();
	App->TickFrame();
	return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* Data, size_t Size)
{
	const FString Text = PlainFuzz::Text(Data, Size);
	Overlay->ResetDatas(Text);
	Overlay->AddDataThenSpawn(Text, Player->GetUrl());
	App->TickFrames(2);
	Overlay->Empty();
	App->TickFrame();
	PlainFuzz::ForgetLog();
	return 0;
}
