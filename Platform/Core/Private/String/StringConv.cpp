#include "Containers/StringConv.h"

#include "Misc/CString.h"
#include "String/Utf8Codec.h"

#include <cstring>

FTCHARToUTF8::FTCHARToUTF8(const TCHAR* Source)
	: FTCHARToUTF8(Source, FCString::Strlen(Source))
{
}

FTCHARToUTF8::FTCHARToUTF8(const TCHAR* Source, int32 SourceLen)
{
	if (Source && SourceLen > 0)
	{
		UE::Core::Private::AppendTcharAsUtf8(Buffer, Source, static_cast<SIZE_T>(SourceLen));
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
		Buffer.resize(static_cast<SIZE_T>(SourceLen));
		Buffer.resize(static_cast<SIZE_T>(UE::Core::Private::DecodeUtf8(Source, static_cast<SIZE_T>(SourceLen), Buffer.data())));
	}
}

namespace UE::Core::Private
{
	std::u32string ToCodePoints(const TCHAR* Chars, int32 Length)
	{
		const SIZE_T Units = static_cast<SIZE_T>(Length > 0 ? Length : 0);
		std::u32string CodePoints;
		CodePoints.reserve(Units);
		for (SIZE_T Index = 0; Index < Units;)
		{
			CodePoints.push_back(static_cast<char32_t>(ReadCodePoint(Chars, Units, Index)));
		}
		return CodePoints;
	}
}
