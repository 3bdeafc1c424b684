#include "Containers/StringConv.h"

#include "String/Utf8Codec.h"

#include <cstring>
#include <cwchar>

FTCHARToUTF8::FTCHARToUTF8(const TCHAR* Source)
	: FTCHARToUTF8(Source, Source ? static_cast<int32>(std::wcslen(Source)) : 0)
{
}

FTCHARToUTF8::FTCHARToUTF8(const TCHAR* Source, int32 SourceLen)
{
	if (Source && SourceLen > 0)
	{
		UE::Core::Private::AppendWideAsUtf8(Buffer, Source, static_cast<SIZE_T>(SourceLen));
	}
}

FUTF8ToTCHAR::FUTF8ToTCHAR(const ANSICHAR* Source)
	: FUTF8ToTCHAR(Source, Source ? static_cast<int32>(std::strlen(Source)) : 0)
{
}

FUTF8ToTCHAR::FUTF8ToTCHAR(const ANSICHAR* Source, int32 SourceLen)
{
	if (Source && SourceLen > 0)
	{
		UE::Core::Private::AppendUtf8AsWide(Buffer, Source, static_cast<SIZE_T>(SourceLen));
	}
}
