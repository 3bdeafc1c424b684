#pragma once

// Widget blueprints for the bullet chat tests, written once per process into a scratch project:
// an overlay whose RootCanvas fills the viewport, and node blueprints of exact sizes (a fixed-size
// box inside NodeCanvas), so that lane counts and flight figures come out as exact numbers.

#include "BulletChat/BulletChatTrackManager.h"
#include "BulletChat/UI_BulletChat.h"
#include "BulletChat/UI_BulletChatNode.h"
#include "Components/CanvasPanel.h"
#include "Components/TextBlock.h"
#include "Misc/FileHelper.h"
#include "Misc/Paths.h"
#include "TestApp.h"

#include <cstdlib>
#include <filesystem>
#include <unistd.h>

namespace BulletChatTest
{
	inline void WriteAsset(const FString& Name, const FString& Json)
	{
		FFileHelper::SaveStringToFile(Json, *(FPaths::ProjectContentDir() + TEXT("Test/") + Name + TEXT(".uasset")));
	}

	/** Points the project at a scratch folder holding the test blueprints; once per process. */
	inline void EnsureAssets()
	{
		static bool bWritten = false;
		if (bWritten)
		{
			return;
		}
		bWritten = true;
		const std::filesystem::path Dir = std::filesystem::temp_directory_path() / ("bulletchat-test-" + std::to_string(getpid()));
		FPaths::SetProjectDir(UTF8_TO_TCHAR(Dir.string().c_str()));
		for (const FString Size : { TEXT("240x32"), TEXT("240x30"), TEXT("10x32") })
		{
			FString Width, Height;
			Size.Split(TEXT("x"), &Width, &Height);
			WriteAsset(TEXT("WBP_Node") + Size, FString::Printf(TEXT("{ \"Class\": \"WidgetBlueprint\", \"ParentClass\": \"UI_BulletChatNode\", ")
				TEXT("\"Tree\": { \"Name\": \"NodeCanvas\", \"Class\": \"CanvasPanel\", \"Children\": [ { \"Name\": \"NodeText\", \"Class\": \"TextBlock\", ")
				TEXT("\"Slot\": { \"Position\": [0, 0], \"Size\": [%s, %s] } } ] } }"), *Width, *Height));
		}
		WriteAsset(TEXT("WBP_Overlay"), TEXT("{ \"Class\": \"WidgetBlueprint\", \"ParentClass\": \"UI_BulletChat\", ")
			TEXT("\"Defaults\": { \"BulletChatNodeClass\": \"/Game/Test/WBP_Node240x32.WBP_Node240x32_C\" }, ")
			TEXT("\"Tree\": { \"Name\": \"RootCanvas\", \"Class\": \"CanvasPanel\" } }"));
	}

	/** The nodes now on the canvas, in the order they joined it. */
	inline TArray<UUI_BulletChatNode*> NodesOn(const UCanvasPanel* Canvas)
	{
		TArray<UUI_BulletChatNode*> Nodes;
		for (UWidget* Child : Canvas->GetAllChildren())
		{
			Nodes.Add(Cast<UUI_BulletChatNode>(Child));
		}
		return Nodes;
	}

	/** An overlay on screen (never started: it has no player) whose canvas a test manager uses. */
	struct FManagerRig
	{
		explicit FManagerRig(FVector2D ViewportSize, const TCHAR* NodeSize = TEXT("240x32"))
			: App((EnsureAssets(), FHeadlessApplicationSettings{ ViewportSize }))
		{
			UUserWidget* Overlay = App.ShowWidgetFromBlueprint(TEXT("/Game/Test/WBP_Overlay"));
			Canvas = Cast<UCanvasPanel>(App.FindWidget(Overlay, TEXT("RootCanvas")));
			Manager = NewObject<UBulletChatTrackManager>(Overlay);
			const FString Node = FString(TEXT("WBP_Node")) + NodeSize;
			Manager->Init(Canvas, LoadObject<UClass>(nullptr, *FString::Printf(TEXT("/Game/Test/%s.%s_C"), *Node, *Node)));
			// Nothing reflected holds a manager made by a test; the overlay holds its own.
			Manager->AddToRoot();
		}
		~FManagerRig() { Manager->RemoveFromRoot(); }

		/** Spawns a comment with this ID and text. */
		void Spawn(int32 ID, const TCHAR* Content = TEXT("hello"))
		{
			FBulletChatData Data;
			Data.ID = ID;
			Data.PostID = Data.AuthorID = Data.Fabulous = 0;
			Data.Content = Content;
			Manager->SpawnBulletChatNode(Data);
		}

		FTestApp App;
		UCanvasPanel* Canvas = nullptr;
		UBulletChatTrackManager* Manager = nullptr;
	};
}
