#pragma once

// Reflected classes for the object system's tests: a node graph the collector walks, a listener
// for dynamic delegates, and a class whose handler is not reflected.

#include "CoreMinimal.h"
#include "UObject/Object.h"
#include "UObject/ObjectPtr.h"
#include "ObjectTestTypes.generated.h"

DECLARE_DYNAMIC_MULTICAST_DELEGATE_OneParam(FOnTestValueChanged, float, Value);
DECLARE_DYNAMIC_MULTICAST_DELEGATE_TwoParams(FOnTestSelection, FString, Item, int32, Index);

UENUM()
enum class ETestMood : uint8
{
	Calm,
	Busy UMETA(DisplayName = "Very busy"),
};

USTRUCT()
struct FTestHolder
{
	GENERATED_BODY()

	UPROPERTY()
	TObjectPtr<UObject> Held;

	UPROPERTY()
	int32 Count = 0;
};

/** A node of an object graph: strong references through a pointer, an array and a struct. */
UCLASS()
class UTestNode : public UObject
{
	GENERATED_BODY()

public:
	UPROPERTY()
	TObjectPtr<UTestNode> Next;

	UPROPERTY()
	TArray<TObjectPtr<UTestNode>> Children;

	UPROPERTY()
	FTestHolder Holder;

	/** Not reflected: the collector must not follow it. */
	UTestNode* Unreflected = nullptr;

	/** Counts BeginDestroy calls across all nodes. */
	static int32 BeginDestroyCount;

	void BeginDestroy() override
	{
		++BeginDestroyCount;
		Super::BeginDestroy();
	}
};

/** Receives dynamic delegate calls by the handler's reflected name. */
UCLASS()
class UTestListener : public UObject
{
	GENERATED_BODY()

public:
	UPROPERTY(EditAnywhere, Category = "UI", meta = (BindWidget))
	float LastValue = 0.0f;

	UPROPERTY(SaveGame)
	ETestMood Mood = ETestMood::Calm;

	FString LastItem;
	int32 LastIndex = -1;
	int32 Calls = 0;

	UFUNCTION()
	void OnValue(float Value)
	{
		LastValue = Value;
		++Calls;
	}

	UFUNCTION(BlueprintPure, Category = "VidariaMedia")
	float GetDoubled() const { return LastValue * 2.0f; }

	/** A plain member: binding it dynamically must fail at the bind. */
	void NotReflected(float Value) {}

protected:
	UFUNCTION()
	void OnSelection(FString Item, int32 Index)
	{
		LastItem = Item;
		LastIndex = Index;
	}

	friend class FTestListenerAccess;
};

/** Holds a dynamic multicast delegate as a reflected property, as widgets and players do. */
UCLASS()
class UTestBroadcaster : public UObject
{
	GENERATED_BODY()

public:
	/** Raised by the tests. */
	UPROPERTY(BlueprintAssignable, Category = "Test")
	FOnTestValueChanged OnChanged;
};
