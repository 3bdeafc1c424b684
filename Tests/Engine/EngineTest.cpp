// GEngine and its on-screen messages, worlds, and components.

#include "EngineTestTypes.h"

#include "Components/AudioComponent.h"
#include "Engine/Engine.h"
#include "Engine/World.h"
#include "UObject/GarbageCollection.h"
#include "UObject/UObjectGlobals.h"
#include "UObject/WeakObjectPtrTemplates.h"

#include <gtest/gtest.h>

TEST(OnScreenMessages, KeylessLinesAddKeyedLinesReplaceAndAllExpire)
{
	ASSERT_NE(GEngine, nullptr) << "made when the module loads";
	CollectGarbage();
	ASSERT_TRUE(IsValid(GEngine));
	GEngine->ClearOnScreenDebugMessages();

	GEngine->AddOnScreenDebugMessage(-1, 10.f, FColor::Red, TEXT("first"));
	GEngine->AddOnScreenDebugMessage(-1, 10.f, FColor::Red, TEXT("first"));
	GEngine->AddOnScreenDebugMessage(-1, 2.f, FColor::Red, TEXT("newest"));
	GEngine->AddOnScreenDebugMessage(-1, 2.f, FColor::White, TEXT("bottom"), false);
	const TArray<FOnScreenMessage>& Lines = GEngine->GetOnScreenMessages();
	ASSERT_EQ(Lines.Num(), 4) << "key -1 adds a line every time, even with the same text";
	EXPECT_TRUE(Lines[0].Text.Equals(TEXT("newest")));
	EXPECT_TRUE(Lines[3].Text.Equals(TEXT("bottom")));
	EXPECT_EQ(Lines[0].Color, FColor::Red);
	EXPECT_EQ(Lines[0].TextScale, FVector2D::UnitVector);

	GEngine->AddOnScreenDebugMessage(7, 5.f, FColor::Green, TEXT("keyed"));
	GEngine->AddOnScreenDebugMessage(uint64(7), 3.f, FColor::Blue, TEXT("replaced"));
	ASSERT_EQ(Lines.Num(), 5);
	EXPECT_TRUE(Lines[4].Text.Equals(TEXT("replaced")));
	EXPECT_EQ(Lines[4].Color, FColor::Blue);
	EXPECT_EQ(Lines[4].TimeLeft, 3.f);

	GEngine->TickOnScreenMessages(2.f);
	EXPECT_EQ(Lines.Num(), 3) << "the two-second lines are gone";
	EXPECT_FLOAT_EQ(Lines[0].TimeLeft, 8.f);
	GEngine->TickOnScreenMessages(1.f);
	EXPECT_FALSE(GEngine->OnScreenDebugMessageExists(7));
	GEngine->TickOnScreenMessages(7.f);
	EXPECT_TRUE(Lines.IsEmpty());
}

TEST(Worlds, AreRootedUntilDestroyedAndKeepTheirOwnTime)
{
	UWorld* First = UWorld::CreateWorld(FName(TEXT("Game")));
	UWorld* Second = UWorld::CreateWorld(FName(TEXT("Game")));
	ASSERT_NE(First, Second);
	EXPECT_EQ(First->GetWorld(), First);
	CollectGarbage();
	EXPECT_TRUE(IsValid(First));

	First->Tick(0.25f);
	EXPECT_FLOAT_EQ(First->GetTimeSeconds(), 0.25f);
	EXPECT_EQ(Second->GetTimeSeconds(), 0.f);

	TWeakObjectPtr<UWorld> Weak(Second);
	Second->DestroyWorld();
	CollectGarbage();
	EXPECT_FALSE(Weak.IsValid());
	First->DestroyWorld();
}

TEST(Components, RegisterWithAWorldAndFallBackToTheirOuterChain)
{
	UWorld* World = UWorld::CreateWorld(FName(TEXT("Components")));
	UWorld* Other = UWorld::CreateWorld(FName(TEXT("Components")));
	UCountingComponent* Loose = NewObject<UCountingComponent>();
	EXPECT_EQ(Loose->GetWorld(), nullptr);
	Loose->RegisterComponentWithWorld(nullptr);
	EXPECT_FALSE(Loose->IsRegistered());

	Loose->RegisterComponentWithWorld(World);
	Loose->RegisterComponentWithWorld(World);
	EXPECT_TRUE(Loose->IsRegistered());
	EXPECT_EQ(Loose->GetWorld(), World);
	EXPECT_EQ(Loose->Registers, 1) << "registering twice with one world is one registration";

	Loose->RegisterComponentWithWorld(Other);
	EXPECT_EQ(Loose->GetWorld(), Other);
	EXPECT_EQ(Loose->Unregisters, 1);
	EXPECT_EQ(Loose->WorldAtUnregister, World);

	Loose->ConditionalBeginDestroy();
	EXPECT_EQ(Loose->Unregisters, 2) << "destruction unregisters";
	EXPECT_FALSE(Loose->IsRegistered());

	UCountingComponent* Inner = NewObject<UCountingComponent>(World);
	EXPECT_EQ(Inner->GetWorld(), World) << "unregistered: the outer chain's world";

	UAudioComponent* Audio = NewObject<UAudioComponent>(Inner);
	EXPECT_EQ(Audio->VolumeMultiplier, 1.f);
	Audio->SetVolumeMultiplier(-0.5f);
	EXPECT_EQ(Audio->VolumeMultiplier, 0.f);
	EXPECT_FALSE(Audio->IsPlaying());
	Audio->Play();
	EXPECT_TRUE(Audio->IsPlaying());
	Audio->Stop();
	EXPECT_FALSE(Audio->IsPlaying());
	World->DestroyWorld();
	Other->DestroyWorld();
}
