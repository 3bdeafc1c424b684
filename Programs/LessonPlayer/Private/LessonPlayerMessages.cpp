#include "LessonPlayerMessages.h"

#include <cstdio>

FString LessonPlayerMessages::Printable(const FString& Text)
{
	FString Out;
	Out.Reserve(Text.Len());
	for (const TCHAR Character : Text)
	{
		if (Character < 0x20 || Character == 0x7f)
		{
			Out += FString::Printf(TEXT("\\x%02x"), static_cast<uint32>(Character));
		}
		else
		{
			Out.AppendChar(Character);
		}
	}
	return Out;
}

void LessonPlayerMessages::Tell(const FString& Line)
{
	fprintf(stderr, "vidaria-player: %s\n", TCHAR_TO_UTF8(*Printable(Line)));
}
