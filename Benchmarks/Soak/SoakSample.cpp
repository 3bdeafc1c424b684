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

	template<class ValueType>
	double Spread(const std::vector<FSoakSample>& Samples, ValueType FSoakSample::*Field)
	{
		if (Samples.empty())
		{
			return 0.0;
		}
		const auto [Least, Most] = std::minmax_element(Samples.begin(), Samples.end(),
			[Field](const FSoakSample& A, const FSoakSample& B) { return A.*Field < B.*Field; });
		const double First = static_cast<double>(Samples.front().*Field);
		const double Width = static_cast<double>((*Most).*Field - (*Least).*Field);
		return First > 0.0 ? Width / First : (Width > 0.0 ? 1.0 : 0.0);
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
	Result.Objects = Spread(Samples, &FSoakSample::Objects);
	Result.Widgets = Spread(Samples, &FSoakSample::Widgets);
	Result.Timers = Spread(Samples, &FSoakSample::Timers);
	Result.Tickers = Spread(Samples, &FSoakSample::Tickers);
	Result.NativeBindings = Spread(Samples, &FSoakSample::NativeBindings);
	Result.DynamicBindings = Spread(Samples, &FSoakSample::DynamicBindings);
	Result.ResidentKiB = Spread(Samples, &FSoakSample::ResidentKiB);
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
	std::printf("\nspread (largest - smallest) / first: objects %.1f%%, widgets %.1f%%, timers %.1f%%, tickers %.1f%%, native bindings %.1f%%, "
				"dynamic bindings %.1f%%, resident %.1f%%\n", 100 * S.Objects, 100 * S.Widgets, 100 * S.Timers, 100 * S.Tickers,
		100 * S.NativeBindings, 100 * S.DynamicBindings, 100 * S.ResidentKiB);
	std::fflush(stdout);
}
