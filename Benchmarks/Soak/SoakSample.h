#pragma once

// What a soak run looks at between frames, and how it judges a series of looks: every count a
// leak would make grow, read at one moment after a collection, so two samples differ only by
// what is really still held.

#include "CoreMinimal.h"

#include <string>
#include <vector>

class FHeadlessApplication;
class FLessonSession;

/** One look at the running program. */
struct FSoakSample
{
	/** Lesson time of the look, in seconds. */
	double LessonSeconds = 0.0;
	/** Objects alive after a collection; widgets among them. */
	int32 Objects = 0;
	int32 Widgets = 0;
	/** Timers set in the world's timer manager. */
	int32 Timers = 0;
	/** Callbacks on the core ticker (media players, the host). */
	int32 Tickers = 0;
	/** Native delegate bindings alive in the process, and bindings in objects' dynamic delegates. */
	int32 NativeBindings = 0;
	int32 DynamicBindings = 0;
	/** Resident memory of the process. */
	int64 ResidentKiB = 0;
	/** Comments flying at the look: the main reason for widgets and timers to move. */
	int32 CommentsInFlight = 0;
};

/** Collects garbage, then counts (the session gives the comments in flight). */
FSoakSample TakeSoakSample(const FLessonSession& Session, const FHeadlessApplication& App);

/**
 * How much each count moved over Samples beyond what the comments in flight explain. Every
 * flying comment holds a few objects, widgets, a timer and some bindings, so raw counts rise and
 * fall with the comments on screen; a leak is what is left when that share is taken out. Each
 * count is fitted (least squares) as Rest + PerComment x CommentsInFlight, and its spread is
 * (largest Rest - smallest Rest) / the mean count. Resident memory is taken as it is.
 */
struct FSoakSpread
{
	double Objects = 0.0;
	double Widgets = 0.0;
	double Timers = 0.0;
	double Tickers = 0.0;
	double NativeBindings = 0.0;
	double DynamicBindings = 0.0;
	double ResidentKiB = 0.0;
	/** What one comment in flight adds to each count (the fitted slopes). */
	double ObjectsPerComment = 0.0;
	double WidgetsPerComment = 0.0;
	double TimersPerComment = 0.0;
	double NativeBindingsPerComment = 0.0;

	/** The widest spread of all counts. */
	double Widest() const;
};
FSoakSpread MeasureSpread(const std::vector<FSoakSample>& Samples);

/** Prints the samples as a Markdown table on stdout, under Title. */
void PrintSoakTable(const std::string& Title, const std::vector<FSoakSample>& Samples);
