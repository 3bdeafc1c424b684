#include "MediaBackendRegistry.h"

#include "Containers/Map.h"
#include "FFmpeg/FFmpegUrl.h"
#include "FFmpegMediaBackend.h"

namespace
{
	TMap<FString, FMediaBackendFactory>& Factories()
	{
		static TMap<FString, FMediaBackendFactory> Map;
		return Map;
	}

	bool IsSchemeChar(TCHAR Char, bool bFirst)
	{
		const bool bLetter = (Char >= 'a' && Char <= 'z') || (Char >= 'A' && Char <= 'Z');
		return bLetter || (!bFirst && ((Char >= '0' && Char <= '9') || Char == '+' || Char == '-' || Char == '.'));
	}
}

void FMediaBackendRegistry::RegisterScheme(const FString& Scheme, FMediaBackendFactory Factory)
{
	Factories().Add(Scheme.ToLower(), MoveTemp(Factory));
}

void FMediaBackendRegistry::UnregisterScheme(const FString& Scheme)
{
	Factories().Remove(Scheme.ToLower());
}

TUniquePtr<IMediaBackend> FMediaBackendRegistry::CreateFor(const FString& Url)
{
	if (const FMediaBackendFactory* Factory = Factories().Find(GetScheme(Url)))
	{
		return (*Factory)(Url);
	}
	// The built-in backend refuses unknown schemes itself, naming them.
	return MakeUnique<FFmpegMediaBackend>();
}

bool FMediaBackendRegistry::CanPlayUrl(const FString& Url)
{
	const FString Scheme = GetScheme(Url);
	return (!Scheme.IsEmpty() && Factories().Contains(Scheme)) || FFmpegCanPlayUrl(std::string(TCHAR_TO_UTF8(*Url)));
}

FString FMediaBackendRegistry::GetScheme(const FString& Url)
{
	const int32 Separator = Url.Find(TEXT("://"));
	if (Separator <= 0)
	{
		return FString();
	}
	for (int32 Index = 0; Index < Separator; ++Index)
	{
		if (!IsSchemeChar(Url[Index], Index == 0))
		{
			return FString();
		}
	}
	return Url.Left(Separator).ToLower();
}
