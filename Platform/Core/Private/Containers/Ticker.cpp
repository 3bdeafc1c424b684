#include "Containers/Ticker.h"

FTSTicker& FTSTicker::GetCoreTicker()
{
	static FTSTicker CoreTicker;
	return CoreTicker;
}

FTSTicker::FDelegateHandle FTSTicker::AddTicker(const FTickerDelegate& Delegate, float Delay)
{
	TSharedPtr<FElement> Element = MakeShared<FElement>();
	Element->Delegate = Delegate;
	Element->Delay = Delay > 0.f ? Delay : 0.0;
	std::lock_guard<std::mutex> Lock(Mutex);
	Element->FireTime = CurrentTime + Element->Delay;
	Pending.Add(Element);
	return Element;
}

FTSTicker::FDelegateHandle FTSTicker::AddTicker(const TCHAR* Name, float Delay, TFunction<bool(float)> Function)
{
	return AddTicker(FTickerDelegate::CreateLambda(MoveTemp(Function)), Delay);
}

void FTSTicker::RemoveTicker(FDelegateHandle Handle)
{
	if (TSharedPtr<FElement> Element = Handle.Pin())
	{
		Element->bRemoved = true;
	}
}

void FTSTicker::Tick(float DeltaTime)
{
	TArray<TSharedPtr<FElement>> Due;
	{
		std::lock_guard<std::mutex> Lock(Mutex);
		CurrentTime += DeltaTime;
		Elements.Append(Pending);
		Pending.Reset();
		Elements.RemoveAll([](const TSharedPtr<FElement>& Element) { return Element->bRemoved.load(); });
		for (const TSharedPtr<FElement>& Element : Elements)
		{
			if (Element->FireTime <= CurrentTime)
			{
				Due.Add(Element);
			}
		}
	}
	// Run outside the lock: a callback may add or remove tickers, its own included.
	for (const TSharedPtr<FElement>& Element : Due)
	{
		if (Element->bRemoved)
		{
			continue;
		}
		const bool bKeep = Element->Delegate.IsBound() && Element->Delegate.Execute(DeltaTime);
		if (!bKeep)
		{
			Element->bRemoved = true;
			continue;
		}
		Element->FireTime = CurrentTime + Element->Delay;
	}
}

int32 FTSTicker::Num() const
{
	std::lock_guard<std::mutex> Lock(Mutex);
	int32 Count = 0;
	for (const TSharedPtr<FElement>& Element : Elements)
	{
		Count += Element->bRemoved ? 0 : 1;
	}
	for (const TSharedPtr<FElement>& Element : Pending)
	{
		Count += Element->bRemoved ? 0 : 1;
	}
	return Count;
}
