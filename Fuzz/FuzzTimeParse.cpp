// FTimespan::Parse and FDateTime::Parse (and ParseIso8601) on any text: a comment's "time" and
// "bullet_chat_date" reach them straight from the document.

#include "FuzzKit.h"

#include "Misc/DateTime.h"
#include "Misc/Timespan.h"

extern "C" int LLVMFuzzerInitialize(int* Argc, char*** Argv)
{
	PlainFuzz::Start(false);
	return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* Data, size_t Size)
{
	const FString Text = PlainFuzz::Text(Data, Size);
	FTimespan Span;
	if (FTimespan::Parse(Text, Span))
	{
		// What parsed prints in a form that parses back to it (ToString keeps milliseconds).
		FTimespan Again;
		PlainFuzz::Expect(FTimespan::Parse(Span.ToString(), Again), "a parsed timespan's ToString does not parse");
		const int64 Drift = Again.GetTicks() - Span.GetTicks();
		PlainFuzz::Expect(Drift > -ETimespan::TicksPerMillisecond && Drift < ETimespan::TicksPerMillisecond, "a parsed timespan reads back as another time");
	}
	FDateTime Date;
	FDateTime::Parse(Text, Date);
	FDateTime::ParseIso8601(*Text, Date);
	PlainFuzz::ForgetLog();
	return 0;
}
