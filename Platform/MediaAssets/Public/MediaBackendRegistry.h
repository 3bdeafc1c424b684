#pragma once

#if !PLAIN_PLATFORM_INTERNALS
#error "MediaBackendRegistry.h belongs to the stand-in; the engine has no such header"
#endif

// FMediaBackendRegistry: which backend plays which URL. Stand-in only. Plain paths and the file,
// http, https and ftp schemes go to the built-in FFmpeg backend; a test kit registers its own
// scheme (such as "scripted") to drive the player by hand.

#include "CoreMinimal.h"
#include "MediaBackend.h"
#include "Templates/Function.h"
#include "Templates/UniquePtr.h"

/** Makes a fresh backend for one open of Url. */
using FMediaBackendFactory = TFunction<TUniquePtr<IMediaBackend>(const FString& Url)>;

/** Backend factories by URL scheme. Game thread only. */
class MEDIAASSETS_API FMediaBackendRegistry
{
public:
	/** Sends URLs of Scheme (lower case, without "://") to Factory, replacing any earlier one. */
	static void RegisterScheme(const FString& Scheme, FMediaBackendFactory Factory);

	/** Forgets Scheme; its URLs go back to the built-in backend (which refuses unknown schemes). */
	static void UnregisterScheme(const FString& Scheme);

	/** The backend for Url: a registered scheme's, else the built-in one. */
	static TUniquePtr<IMediaBackend> CreateFor(const FString& Url);

	/** True for URLs of a registered scheme and for http://, https:// and ftp:// URLs with a host. */
	static bool CanPlayUrl(const FString& Url);

	/** The scheme of "scheme://..." in lower case, or empty for a plain path. */
	static FString GetScheme(const FString& Url);
};
