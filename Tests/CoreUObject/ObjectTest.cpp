#include "ObjectTestTypes.h"

#include "CoreUObject.h"
#include "Delegates/Delegate.h"
#include "UObject/ObjectCensus.h"

#include <gtest/gtest.h>

int32 UTestNode::BeginDestroyCount = 0;

class FTestListenerAccess
{
public:
	static void BindSelection(FOnTestSelection& Delegate, UTestListener* Listener) { Delegate.AddDynamic(Listener, &UTestListener::OnSelection); }
};

namespace
{
	DECLARE_MULTICAST_DELEGATE_OneParam(FOnNativeValue, float);
	DECLARE_DELEGATE_OneParam(FOnNativeSingle, float);
}

TEST(ObjectIdentity, NamesAreUniquePerOuterAndPathsFindObjectsAgain)
{
	UPackage* Package = CreatePackage(TEXT("/Game/Tests/Identity"));
	UTestNode* First = NewObject<UTestNode>(Package);
	UTestNode* Second = NewObject<UTestNode>(Package);
	EXPECT_NE(First->GetFName(), Second->GetFName());
	EXPECT_TRUE(First->GetName().StartsWith(TEXT("TestNode_")));

	UTestNode* Named = NewObject<UTestNode>(Package, UTestNode::StaticClass(), FName(TEXT("Main")));
	EXPECT_EQ(Named->GetPathName(), FString(TEXT("/Game/Tests/Identity.Main")));
	EXPECT_EQ(StaticFindObject(UTestNode::StaticClass(), nullptr, TEXT("/Game/Tests/Identity.Main")), Named);
	EXPECT_EQ(FindObject<UTestNode>(Package, TEXT("main")), Named) << "names compare ignoring case";
	EXPECT_EQ(FindObject<UTestListener>(Package, TEXT("Main")), nullptr) << "a find of another class misses";

	UTestNode* Clash = NewObject<UTestNode>(Package, UTestNode::StaticClass(), FName(TEXT("Main")));
	EXPECT_NE(Clash->GetFName(), Named->GetFName());

	EXPECT_EQ(UTestNode::StaticClass()->GetName(), FString(TEXT("TestNode")));
	EXPECT_EQ(FindClassByName(TEXT("TestNode")), UTestNode::StaticClass());
	EXPECT_TRUE(UTestNode::StaticClass()->IsChildOf(UObject::StaticClass()));
	EXPECT_EQ(Cast<UTestListener>(static_cast<UObject*>(Named)), nullptr);
	EXPECT_EQ(Cast<UTestNode>(static_cast<UObject*>(Named)), Named);
	EXPECT_TRUE(Cast<UClass>(static_cast<UObject*>(UTestNode::StaticClass())));
}

TEST(GarbageCollection, KeepsWhatIsReachableThroughReflectedReferencesAndFreesTheRest)
{
	CollectGarbage(); // whatever earlier tests left behind, so the counts below are this test's own
	UTestNode* Root = NewObject<UTestNode>();
	Root->AddToRoot();
	UTestNode* InArray = NewObject<UTestNode>();
	UTestNode* InStruct = NewObject<UTestNode>();
	UTestNode* Chained = NewObject<UTestNode>();
	UTestNode* OnlyUnreflected = NewObject<UTestNode>();
	UTestNode* Orphan = NewObject<UTestNode>();
	Root->Children.Add(InArray);
	Root->Holder.Held = InStruct;
	InArray->Next = Chained;
	Root->Unreflected = OnlyUnreflected;

	TWeakObjectPtr<UTestNode> WeakKept[] = { InArray, InStruct, Chained };
	TWeakObjectPtr<UTestNode> WeakFreed[] = { OnlyUnreflected, Orphan };
	UTestNode::BeginDestroyCount = 0;

	CollectGarbage();

	for (const TWeakObjectPtr<UTestNode>& Weak : WeakKept)
	{
		EXPECT_TRUE(Weak.IsValid());
	}
	for (const TWeakObjectPtr<UTestNode>& Weak : WeakFreed)
	{
		EXPECT_FALSE(Weak.IsValid());
		EXPECT_TRUE(Weak.IsStale());
	}
	EXPECT_EQ(UTestNode::BeginDestroyCount, 2);

	// Dropping the array entry lets the whole branch go at the next collection.
	Root->Children.Empty();
	CollectGarbage();
	EXPECT_FALSE(WeakKept[0].IsValid());
	EXPECT_FALSE(WeakKept[2].IsValid());
	EXPECT_TRUE(WeakKept[1].IsValid());

	Root->RemoveFromRoot();
	CollectGarbage();
	EXPECT_FALSE(WeakKept[1].IsValid());
}

TEST(GarbageCollection, BeginDestroyRunsOnceAndWeakReferencesLetGoAtOnce)
{
	CollectGarbage();
	UTestNode* Node = NewObject<UTestNode>();
	Node->AddToRoot();
	TWeakObjectPtr<UTestNode> Weak = Node;
	UTestNode::BeginDestroyCount = 0;

	EXPECT_TRUE(Node->ConditionalBeginDestroy());
	EXPECT_FALSE(Node->ConditionalBeginDestroy());
	EXPECT_FALSE(Weak.IsValid()) << "a weak reference reads null as soon as destruction has begun";
	EXPECT_FALSE(IsValid(Node));

	Node->RemoveFromRoot();
	CollectGarbage();
	EXPECT_EQ(UTestNode::BeginDestroyCount, 1);
}

TEST(Reflection, PropertiesAndFunctionsCarryWhatTheHeaderSays)
{
	UClass* Class = UTestListener::StaticClass();
	const FProperty* Value = Class->FindPropertyByName(FName(TEXT("LastValue")));
	ASSERT_NE(Value, nullptr);
	EXPECT_EQ(Value->GetKind(), EPropertyKind::Float);
	EXPECT_TRUE(Value->HasAnyPropertyFlags(CPF_Edit));
	EXPECT_EQ(Value->GetMetaData(TEXT("Category")), FString(TEXT("UI")));
	EXPECT_TRUE(Value->HasMetaData(TEXT("BindWidget")));
	EXPECT_EQ(Class->FindPropertyByName(FName(TEXT("LastItem"))), nullptr) << "plain members are not reflected";

	UTestListener* Listener = NewObject<UTestListener>();
	ASSERT_TRUE(Value->ImportText(Value->ContainerPtrToValuePtr(Listener), TEXT("1.25")));
	EXPECT_FLOAT_EQ(Listener->LastValue, 1.25f);
	EXPECT_FALSE(Value->ImportText(Value->ContainerPtrToValuePtr(Listener), TEXT("1.25x")));

	const FProperty* Mood = Class->FindPropertyByName(FName(TEXT("Mood")));
	ASSERT_NE(Mood, nullptr);
	EXPECT_EQ(Mood->GetKind(), EPropertyKind::Enum);
	EXPECT_EQ(StaticEnum<ETestMood>()->GetNameStringByValue(1), FString(TEXT("Busy")));
	EXPECT_EQ(StaticEnum<ETestMood>()->GetMetaData(TEXT("DisplayName"), 1), FString(TEXT("Very busy")));

	UFunction* Doubled = Listener->FindFunction(FName(TEXT("GetDoubled")));
	ASSERT_NE(Doubled, nullptr);
	EXPECT_TRUE(Doubled->HasAnyFunctionFlags(FUNC_BlueprintPure));
	float Result = 0.0f;
	Doubled->Invoke(Listener, nullptr, &Result);
	EXPECT_FLOAT_EQ(Result, 2.5f);

	const FProperty* Children = UTestNode::StaticClass()->FindPropertyByName(FName(TEXT("Children")));
	ASSERT_NE(Children, nullptr);
	EXPECT_EQ(Children->GetKind(), EPropertyKind::Array);
	EXPECT_EQ(Children->GetInner()->GetPropertyClass(), UTestNode::StaticClass());
	EXPECT_FALSE(Children->GetInner()->SetObjectValue(Children->ContainerPtrToValuePtr(NewObject<UTestNode>()), Listener))
		<< "an object of the wrong class is refused";
}

TEST(DynamicDelegate, CallsHandlersByNameAndPassesOverCollectedListeners)
{
	FOnTestValueChanged OnValue;
	FOnTestSelection OnSelection;
	UTestListener* Kept = NewObject<UTestListener>();
	Kept->AddToRoot();
	UTestListener* Dropped = NewObject<UTestListener>();
	OnValue.AddDynamic(Kept, &UTestListener::OnValue);
	OnValue.AddDynamic(Dropped, &UTestListener::OnValue);
	FTestListenerAccess::BindSelection(OnSelection, Kept);

	OnValue.Broadcast(0.5f);
	OnSelection.Broadcast(TEXT("1.5x"), 3);
	EXPECT_FLOAT_EQ(Kept->LastValue, 0.5f);
	EXPECT_FLOAT_EQ(Dropped->LastValue, 0.5f);
	EXPECT_EQ(Kept->LastItem, FString(TEXT("1.5x")));
	EXPECT_EQ(Kept->LastIndex, 3);

	CollectGarbage();
	OnValue.Broadcast(0.75f);
	EXPECT_EQ(Kept->Calls, 2);
	EXPECT_TRUE(OnValue.IsBound());

	OnValue.Clear();
	OnValue.Broadcast(1.0f);
	EXPECT_EQ(Kept->Calls, 2);
	Kept->RemoveFromRoot();
}

TEST(DynamicDelegateDeathTest, BindingAFunctionThatIsNotReflectedStopsAtTheBind)
{
	GTEST_FLAG_SET(death_test_style, "threadsafe");
	UTestListener* Listener = NewObject<UTestListener>();
	FOnTestValueChanged OnValue;
	EXPECT_DEATH(OnValue.AddDynamic(Listener, &UTestListener::NotReflected), "TestListener::NotReflected' is not a UFUNCTION");
}

TEST(NativeDelegate, WeakObjectBindingsArePassedOverOnceTheObjectIsGone)
{
	FOnNativeValue OnValue;
	FOnNativeSingle Single;
	UTestListener* Listener = NewObject<UTestListener>();
	int32 LambdaCalls = 0;
	OnValue.AddUObject(Listener, &UTestListener::OnValue);
	OnValue.AddWeakLambda(Listener, [&LambdaCalls](float) { ++LambdaCalls; });
	Single.BindUObject(Listener, &UTestListener::OnValue);

	OnValue.Broadcast(2.0f);
	EXPECT_TRUE(Single.ExecuteIfBound(3.0f));
	EXPECT_EQ(Listener->Calls, 2);
	EXPECT_EQ(LambdaCalls, 1);

	CollectGarbage();
	EXPECT_FALSE(OnValue.IsBound());
	EXPECT_FALSE(Single.IsBound());
	EXPECT_FALSE(Single.ExecuteIfBound(4.0f));
	OnValue.Broadcast(5.0f);
	EXPECT_EQ(LambdaCalls, 1);
}

// The census a soak run reads must see each kind of binding come and go, copies included, or a
// leak would hide behind a count that drifts on its own.
TEST(ObjectCensus, CountsObjectsAndTheBindingsTheyHoldAsTheyComeAndGo)
{
	// The first object of a class also makes what lives as long as the class (its default object).
	NewObject<UTestBroadcaster>();
	NewObject<UTestListener>();
	CollectGarbage();
	const FObjectCensus Before = FObjectCensus::Take();
	const int32 ListenersBefore = FObjectCensus::CountObjectsOf(UTestListener::StaticClass());

	UTestBroadcaster* Broadcaster = NewObject<UTestBroadcaster>();
	UTestListener* Listener = NewObject<UTestListener>();
	Broadcaster->OnChanged.AddDynamic(Listener, &UTestListener::OnValue);
	Broadcaster->OnChanged.AddDynamic(Listener, &UTestListener::OnValue);
	FObjectCensus Now = FObjectCensus::Take();
	EXPECT_EQ(Now.Objects, Before.Objects + 2);
	EXPECT_EQ(Now.DynamicBindings, Before.DynamicBindings + 2);
	EXPECT_EQ(FObjectCensus::CountObjectsOf(UTestListener::StaticClass()), ListenersBefore + 1);
	Broadcaster->OnChanged.RemoveAll(Listener);
	EXPECT_EQ(FObjectCensus::Take().DynamicBindings, Before.DynamicBindings);

	{
		FOnNativeValue OnValue;
		OnValue.AddUObject(Listener, &UTestListener::OnValue);
		FOnNativeSingle Single;
		Single.BindLambda([](float) {});
		const FOnNativeSingle Copy = Single;
		EXPECT_EQ(FObjectCensus::Take().NativeBindings, Before.NativeBindings + 3);
		OnValue.RemoveAll(Listener);
		Single.Unbind();
		EXPECT_EQ(FObjectCensus::Take().NativeBindings, Before.NativeBindings + 1);
	}
	EXPECT_EQ(FObjectCensus::Take().NativeBindings, Before.NativeBindings);

	CollectGarbage();
	EXPECT_EQ(FObjectCensus::Take().Objects, Before.Objects);
}
