#include "Engine/World.h"

#include "EngineLog.h"
#include "TimerManager.h"
#include "UObject/Package.h"
#include "UObject/UObjectGlobals.h"

DEFINE_LOG_CATEGORY(LogEngine);

UWorld::UWorld()
	: TimerManager(MakeUnique<FTimerManager>())
{
}

UWorld::~UWorld() = default;

UWorld* UWorld::CreateWorld(FName WorldName)
{
	const FString BaseName = WorldName.IsNone() ? FString(TEXT("World")) : WorldName.ToString();
	// Each world in a package of its own, as a level is; a taken name gets the next free number.
	FString Name = BaseName;
	for (int32 Suffix = 1; FindPackage(nullptr, *(FString(TEXT("/Temp/")) + Name)); ++Suffix)
	{
		Name = FString::Printf(TEXT("%s_%d"), *BaseName, Suffix);
	}
	UPackage* Package = CreatePackage(*(FString(TEXT("/Temp/")) + Name));
	UWorld* World = NewObject<UWorld>(Package, UWorld::StaticClass(), FName(*Name));
	World->AddToRoot();
	return World;
}

void UWorld::DestroyWorld()
{
	TimerManager->ClearAllTimers();
	RemoveFromRoot();
}

FTimerManager& UWorld::GetTimerManager() const
{
	return *TimerManager;
}

void UWorld::Tick(float DeltaSeconds)
{
	DeltaTimeSeconds = DeltaSeconds;
	TimeSeconds += DeltaSeconds;
	TimerManager->Tick(DeltaSeconds);
}

void UWorld::BeginDestroy()
{
	// Timers call into objects of this world; none may fire once the world is on its way out.
	TimerManager->ClearAllTimers();
	Super::BeginDestroy();
}
