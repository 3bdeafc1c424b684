#pragma once

// FScriptedMediaScope: routes "scripted://<name>" URLs to scripted backends for as long as it
// lives, and hands the test each name's script. See ScriptedMediaBackend.h.

#include "Containers/Map.h"
#include "CoreMinimal.h"
#include "MediaBackendRegistry.h"
#include "ScriptedMediaBackend.h"

/** Registers the "scripted" scheme; one per test. Media(name) is the script of "scripted://name". */
class FScriptedMediaScope
{
public:
	FScriptedMediaScope()
	{
		TSharedPtr<TMap<FString, TSharedPtr<FScriptedMedia>>> Known = Scripts;
		FMediaBackendRegistry::RegisterScheme(TEXT("scripted"), [Known](const FString& Url) -> TUniquePtr<IMediaBackend> {
			return MakeUnique<FScriptedMediaBackend>(FindOrAdd(*Known, Url.RightChop(FString(TEXT("scripted://")).Len())));
		});
	}
	~FScriptedMediaScope() { FMediaBackendRegistry::UnregisterScheme(TEXT("scripted")); }
	FScriptedMediaScope(const FScriptedMediaScope&) = delete;
	FScriptedMediaScope& operator=(const FScriptedMediaScope&) = delete;

	/** The script of "scripted://Name", made on first use (before or after the player opens it). */
	FScriptedMedia& Media(const FString& Name) { return *FindOrAdd(*Scripts, Name); }

	/** "scripted://Name". */
	static FString Url(const FString& Name) { return TEXT("scripted://") + Name; }

private:
	static TSharedPtr<FScriptedMedia> FindOrAdd(TMap<FString, TSharedPtr<FScriptedMedia>>& Map, const FString& Name)
	{
		if (TSharedPtr<FScriptedMedia>* Found = Map.Find(Name))
		{
			return *Found;
		}
		return Map.Add(Name, MakeShared<FScriptedMedia>());
	}

	// Every script by name; shared with the backends, which may outlive the scope.
	TSharedPtr<TMap<FString, TSharedPtr<FScriptedMedia>>> Scripts = MakeShared<TMap<FString, TSharedPtr<FScriptedMedia>>>();
};
