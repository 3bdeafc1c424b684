// vidaria-player: the lesson player program. It hosts the plug-in as a game would: the default
// lesson player and a comment overlay over one media player, in a window when there is a display
// and headless otherwise. See `vidaria-player --help` and the README.

#include "HeadlessApplication.h"
#include "LessonPlayerMessages.h"
#include "LessonPlayerOptions.h"
#include "LessonRunner.h"
#include "LessonSession.h"
#include "Window/LessonWindow.h"

#include <cstdio>

int main(int Argc, char** Argv)
{
	TArray<FString> Arguments;
	for (int Index = 1; Index < Argc; ++Index)
	{
		Arguments.Add(FString(UTF8_TO_TCHAR(Argv[Index])));
	}
	FLessonPlayerOptions Options;
	FString Error;
	if (!FLessonPlayerOptions::Parse(Arguments, Options, Error))
	{
		LessonPlayerMessages::Tell(Error);
		return 2;
	}
	if (Options.bHelp)
	{
		fputs(TCHAR_TO_UTF8(*FLessonPlayerOptions::Usage()), stdout);
		return 0;
	}

	bool bHeadless = Options.bHeadless;
	if (!bHeadless && !FLessonWindow::IsDisplayAvailable())
	{
		LessonPlayerMessages::Tell(TEXT("no display; running headless"));
		bHeadless = true;
	}

	FHeadlessApplicationSettings Settings;
	Settings.ViewportSize = FVector2D(Options.Width, Options.Height);
	Settings.FixedDeltaSeconds = static_cast<float>(Options.StepSeconds);
	FHeadlessApplication App(Settings);
	FLessonSession Session(Options, App);
	if (!Session.Start())
	{
		return 1;
	}
	return bHeadless ? LessonRunner::RunHeadless(Session, App, Options) : LessonRunner::RunInWindow(Session, App, Options);
}
