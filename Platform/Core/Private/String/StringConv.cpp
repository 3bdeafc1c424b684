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
		std::u32string CodePoints;
		CodePoints.reserve(static_cast<SIZE_T>(Length > 0 ? Length : 0));
		for (int32 Index = 0; Index < Length; ++Index)
		{
			const char32_t Unit = Chars[Index];
			const bool bHigh = Unit >= 0xD800 && Unit <= 0xDBFF;
			if (bHigh && Index + 1 < Length && Chars[Index + 1] >= 0xDC00 && Chars[Index + 1] <= 0xDFFF)
			{
				CodePoints.push_back(0x10000 + ((Unit - 0xD800) << 10) + (static_cast<char32_t>(Chars[Index + 1]) - 0xDC00));
				++Index;
			}
			else
			{
				CodePoints.push_back(Unit >= 0xD800 && Unit <= 0xDFFF ? char32_t(ReplacementChar) : Unit);
			}
		}
		return CodePoints;
	}
}
