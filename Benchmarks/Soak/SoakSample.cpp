#include "SoakSample.h"

#include "Components/Widget.h"
#include "Containers/Ticker.h"
#include "Delegates/DelegateInstanceInterface.h"
#include "Engine/World.h"
#include "HeadlessApplication.h"
#include "LaunchEngineLoop.h"
#include "LessonSession.h"
#include "TimerManager.h"
#include "UObject/GarbageCollection.h"
#include "UObject/ObjectCensus.h"

#include <algorithm>
#include <cstdio>
#include <unistd.h>

namespace
{
	int64 ReadResidentKiB()
	{
		// statm's second field is the resident set in pages.
		long long Pages = 0;
		long long Size = 0;
		if (FILE* Statm = std::fopen("/proc/self/statm", "r"))
		{
			if (std::fscanf(Statm, "%lld %lld", &Size, &Pages) != 2)
			{
				Pages = 0;
			}
			std::fclose(Statm);
		}
		return static_cast<int64>(Pages) * sysconf(_SC_PAGESIZE) / 1024;
	}

	/** The spread of one count net of the comments in flight; PerComment gets the fitted slope. */
	template<class ValueType>
	double Spread(const std::vector<FSoakSample>& Samples, ValueType FSoakSample::*Field, bool bNetOfComments, double* PerComment = nullptr)
	{
		if (Samples.empty())
		{
			return 0.0;
		}
		const double Count = static_cast<double>(Samples.size());
		double MeanComments = 0.0;
		double Mean = 0.0;
		for (const FSoakSample& Sample : Samples)
		{
			MeanComments += Sample.CommentsInFlight / Count;
			Mean += static_cast<double>(Sample.*Field) / Count;
		}
		double Covariance = 0.0;
		double Variance = 0.0;
		for (const FSoakSample& Sample : Samples)
		{
			Covariance += (Sample.CommentsInFlight - MeanComments) * (static_cast<double>(Sample.*Field) - Mean);
			Variance += (Sample.CommentsInFlight - MeanComments) * (Sample.CommentsInFlight - MeanComments);
		}
		const double Slope = bNetOfComments && Variance > 0.0 ? Covariance / Variance : 0.0;
		if (PerComment)
		{
			*PerComment = Slope;
		}
		double Least = 0.0;
		double Most = 0.0;
		for (size_t Index = 0; Index < Samples.size(); ++Index)
		{
			const double Rest = static_cast<double>(Samples[Index].*Field) - Slope * Samples[Index].CommentsInFlight;
			Least = Index == 0 ? Rest : std::min(Least, Rest);
			Most = Index == 0 ? Rest : std::max(Most, Rest);
		}
		return Mean > 0.0 ? (Most - Least) / Mean : (Most > Least ? 1.0 : 0.0);
	}
}

FSoakSample TakeSoakSample(const FLessonSession& Session, const FHeadlessApplication& App)
{
	CollectGarbage();
	const FObjectCensus Census = FObjectCensus::Take();
	FSoakSample Sample;
	Sample.LessonSeconds = App.GetLoop().GetLoopSeconds();
	Sample.Objects = Census.Objects;
	Sample.Widgets = FObjectCensus::CountObjectsOf(UWidget::StaticClass());
	Sample.Timers = App.GetWorld()->GetTimerManager().GetNumTimers();
	Sample.Tickers = FTSTicker::GetCoreTicker().Num();
	Sample.NativeBindings = Census.NativeBindings;
	Sample.DynamicBindings = Census.DynamicBindings;
	Sample.ResidentKiB = ReadResidentKiB();
	Sample.CommentsInFlight = Session.CountCommentsInFlight();
	return Sample;
}

double FSoakSpread::Widest() const
{
	return std::max({Objects, Widgets, Timers, Tickers, NativeBindings, DynamicBindings, ResidentKiB});
}

FSoakSpread MeasureSpread(const std::vector<FSoakSample>& Samples)
{
	FSoakSpread Result;
	Result.Objects = Spread(Samples, &FSoakSample::Objects, true, &Result.ObjectsPerComment);
	Result.Widgets = Spread(Samples, &FSoakSample::Widgets, true, &Result.WidgetsPerComment);
	Result.Timers = Spread(Samples, &FSoakSample::Timers, true, &Result.TimersPerComment);
	Result.Tickers = Spread(Samples, &FSoakSample::Tickers, true);
	Result.NativeBindings = Spread(Samples, &FSoakSample::NativeBindings, true, &Result.NativeBindingsPerComment);
	Result.DynamicBindings = Spread(Samples, &FSoakSample::DynamicBindings, true);
	Result.ResidentKiB = Spread(Samples, &FSoakSample::ResidentKiB, false);
	return Result;
}

void PrintSoakTable(const std::string& Title, const std::vector<FSoakSample>& Samples)
{
	std::printf("\n%s\n\n| lesson s | objects | widgets | timers | tickers | native bindings | dynamic bindings | resident MiB | in flight |\n"
				"|---|---|---|---|---|---|---|---|---|\n", Title.c_str());
	for (const FSoakSample& Sample : Samples)
	{
		std::printf("| %.0f | %d | %d | %d | %d | %d | %d | %.1f | %d |\n", Sample.LessonSeconds, Sample.Objects, Sample.Widgets, Sample.Timers,
			Sample.Tickers, Sample.NativeBindings, Sample.DynamicBindings, Sample.ResidentKiB / 1024.0, Sample.CommentsInFlight);
	}
	const FSoakSpread S = MeasureSpread(Samples);
	std::printf("\nper comment in flight: %.1f objects, %.1f widgets, %.1f timers, %.1f native bindings\n"
				"spread net of the comments in flight: objects %.1f%%, widgets %.1f%%, timers %.1f%%, tickers %.1f%%, native bindings %.1f%%, "
				"dynamic bindings %.1f%%, resident memory %.1f%%\n", S.ObjectsPerComment, S.WidgetsPerComment, S.TimersPerComment,
		S.NativeBindingsPerComment, 100 * S.Objects, 100 * S.Widgets, 100 * S.Timers, 100 * S.Tickers, 100 * S.NativeBindings,
		100 * S.DynamicBindings, 100 * S.ResidentKiB);
	std::fflush(stdout);
}
