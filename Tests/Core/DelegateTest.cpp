#include "Delegates/Delegate.h"
#include "Templates/Function.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace
{
	// Stands for a UObject: the live ones are listed, and "destroying" one takes it off the list.
	std::set<const void*> GLiveObjects;

	struct FFakeObject
	{
		FFakeObject() { GLiveObjects.insert(this); }
		~FFakeObject() { GLiveObjects.erase(this); }
		void Destroy() { GLiveObjects.erase(this); }
		void Add(int32 Amount) { Total += Amount; }
		int32 Total = 0;
	};
}

// The minimum of CoreUObject's weak object pointer that delegate bindings use.
template<class T>
class TWeakObjectPtr
{
public:
	TWeakObjectPtr(T* InObject) : Object(InObject) {}
	T* Get() const { return GLiveObjects.contains(Object) ? Object : nullptr; }
	bool IsValid() const { return Get() != nullptr; }

private:
	T* Object;
};

namespace
{
	DECLARE_DELEGATE_OneParam(FOnAmount, int32);
	DECLARE_DELEGATE_RetVal_TwoParams(int32, FCombine, int32, int32);
	DECLARE_MULTICAST_DELEGATE_OneParam(FOnAmountMulticast, int32);

	int32 GStaticTotal = 0;
	void AddToStatic(int32 Amount, int32 Scale) { GStaticTotal += Amount * Scale; }

	struct FListener : TSharedFromThis<FListener>
	{
		void Add(int32 Amount) { Total += Amount; }
		int32 Doubled(int32 A, int32 B) const { return 2 * (A + B); }
		void BindSelf(FOnAmount& Delegate) { Delegate.BindSP(this, &FListener::Add); }
		int32 Total = 0;
	};
}

TEST(Delegate, EveryKindOfBindingCallsItsTargetWithArgumentsAndPayload)
{
	FOnAmount Delegate;
	GStaticTotal = 0;
	Delegate.BindStatic(&AddToStatic, 10);
	Delegate.Execute(2);
	EXPECT_EQ(GStaticTotal, 20);

	int32 LambdaTotal = 0;
	Delegate.BindLambda([&LambdaTotal](int32 Amount) { LambdaTotal += Amount; });
	EXPECT_TRUE(Delegate.ExecuteIfBound(3));
	EXPECT_EQ(LambdaTotal, 3);

	FListener Raw;
	Delegate.BindRaw(&Raw, &FListener::Add);
	Delegate.Execute(4);
	EXPECT_EQ(Raw.Total, 4);
	EXPECT_TRUE(Delegate.IsBoundToObject(&Raw));

	TSharedRef<FListener> Shared = MakeShared<FListener>();
	Delegate.BindSP(Shared, &FListener::Add);
	Delegate.Execute(5);
	Shared->BindSelf(Delegate);
	Delegate.Execute(5);
	EXPECT_EQ(Shared->Total, 10);

	FFakeObject Object;
	Delegate.BindUObject(&Object, &FFakeObject::Add);
	Delegate.Execute(6);
	Delegate = FOnAmount::CreateWeakLambda(&Object, [&Object](int32 Amount) { Object.Total += 10 * Amount; });
	Delegate.Execute(1);
	EXPECT_EQ(Object.Total, 16);
	EXPECT_TRUE(Delegate.IsBoundToObject(&Object));

	// A copy names the same binding and calls the same target.
	const FOnAmount Copy = Delegate;
	EXPECT_EQ(Copy.GetHandle(), Delegate.GetHandle());
	Copy.Execute(1);
	EXPECT_EQ(Object.Total, 26);

	const FListener ConstListener;
	FCombine Combine = FCombine::CreateRaw(&ConstListener, &FListener::Doubled);
	EXPECT_EQ(Combine.Execute(1, 2), 6);
	Combine = FCombine::CreateSP(Shared, &FListener::Doubled);
	EXPECT_EQ(Combine.Execute(2, 3), 10);
	Combine.BindLambda([](int32 A, int32 B, int32 C) { return A + B + C; }, 100);
	EXPECT_EQ(Combine.Execute(1, 2), 103);
}

TEST(Delegate, UnboundOrOrphanedDelegateDoesNotRun)
{
	FOnAmount Delegate;
	EXPECT_FALSE(Delegate.IsBound());
	EXPECT_FALSE(Delegate.ExecuteIfBound(1));

	TSharedPtr<FListener> Owner = MakeShared<FListener>();
	Delegate.BindSP(Owner, &FListener::Add);
	EXPECT_TRUE(Delegate.IsBound());
	Owner.Reset();
	EXPECT_FALSE(Delegate.IsBound());
	EXPECT_FALSE(Delegate.ExecuteIfBound(1));

	FFakeObject Object;
	Delegate.BindUObject(&Object, &FFakeObject::Add);
	Object.Destroy();
	EXPECT_FALSE(Delegate.IsBound());
	EXPECT_FALSE(Delegate.ExecuteIfBound(1));
	EXPECT_EQ(Object.Total, 0);

	Delegate.BindLambda([](int32) {});
	Delegate.Unbind();
	EXPECT_FALSE(Delegate.IsBound());
	EXPECT_DEATH(Delegate.Execute(1), "");
}

TEST(MulticastDelegate, BroadcastSkipsBindingsWhoseOwnerIsGone)
{
	FOnAmountMulticast Multicast;
	TSharedPtr<FListener> Kept = MakeShared<FListener>();
	TSharedPtr<FListener> Dropped = MakeShared<FListener>();
	Multicast.AddSP(Kept.ToSharedRef(), &FListener::Add);
	Multicast.AddSP(Dropped.ToSharedRef(), &FListener::Add);
	Multicast.Broadcast(1);
	Dropped.Reset();
	Multicast.Broadcast(2);
	EXPECT_EQ(Kept->Total, 3);
	EXPECT_TRUE(Multicast.IsBound());
	Kept.Reset();
	EXPECT_FALSE(Multicast.IsBound());
	Multicast.Broadcast(3);
}

TEST(MulticastDelegate, RemovesByObjectAndHandleEvenFromInsideAHandler)
{
	FOnAmountMulticast Multicast;
	FListener First;
	FListener Second;
	Multicast.AddRaw(&First, &FListener::Add);
	Multicast.AddRaw(&First, &FListener::Add);
	const FDelegateHandle SecondHandle = Multicast.AddRaw(&Second, &FListener::Add);
	EXPECT_EQ(Multicast.RemoveAll(&First), 2);
	EXPECT_FALSE(Multicast.IsBoundToObject(&First));
	EXPECT_TRUE(Multicast.Remove(SecondHandle));
	EXPECT_FALSE(Multicast.Remove(SecondHandle));
	EXPECT_FALSE(Multicast.IsBound());

	// A handler removes a later binding and then itself: neither runs after its removal.
	int32 Calls = 0;
	FDelegateHandle Later;
	FDelegateHandle Self;
	Self = Multicast.AddLambda([&](int32) {
		++Calls;
		Multicast.Remove(Later);
		Multicast.Remove(Self);
	});
	Later = Multicast.AddRaw(&Second, &FListener::Add);
	Multicast.AddRaw(&First, &FListener::Add);
	Multicast.Broadcast(5);
	Multicast.Broadcast(5);
	EXPECT_EQ(Calls, 1);
	EXPECT_EQ(Second.Total, 0);
	EXPECT_EQ(First.Total, 10);

	Multicast.AddLambda([&](int32) { Multicast.Clear(); });
	Multicast.AddRaw(&Second, &FListener::Add);
	Multicast.Broadcast(1);
	EXPECT_EQ(First.Total, 11) << "bindings before the clearing handler have run";
	EXPECT_EQ(Second.Total, 0);
	EXPECT_FALSE(Multicast.IsBound());
}

TEST(MulticastDelegate, BindingAddedDuringBroadcastWaitsForTheNextOne)
{
	FOnAmountMulticast Multicast;
	FListener Added;
	bool bAdded = false;
	Multicast.AddLambda([&](int32) {
		if (!bAdded)
		{
			bAdded = true;
			Multicast.AddRaw(&Added, &FListener::Add);
		}
	});
	Multicast.Broadcast(1);
	EXPECT_EQ(Added.Total, 0);
	Multicast.Broadcast(2);
	EXPECT_EQ(Added.Total, 2);
}

TEST(MulticastDelegate, NestedBroadcastCallsEveryBindingAtEachLevel)
{
	FOnAmountMulticast Multicast;
	std::string Trace;
	Multicast.AddLambda([&](int32 Depth) {
		Trace += "A" + std::to_string(Depth);
		if (Depth == 0)
		{
			Multicast.Broadcast(1);
		}
	});
	FDelegateHandle Middle;
	Middle = Multicast.AddLambda([&](int32 Depth) { Trace += "B" + std::to_string(Depth); });
	Multicast.AddLambda([&](int32 Depth) {
		Trace += "C" + std::to_string(Depth);
		if (Depth == 1)
		{
			// Removed in the inner broadcast: the outer one, still running, must not call it.
			Multicast.Remove(Middle);
		}
	});
	Multicast.Broadcast(0);
	EXPECT_EQ(Trace, "A0A1B1C1C0");
	Trace.clear();
	Multicast.Broadcast(2);
	EXPECT_EQ(Trace, "A2C2");
}

TEST(MulticastDelegate, CopyKeepsLiveBindingsAndTheirHandles)
{
	FOnAmountMulticast Multicast;
	FListener Listener;
	const FDelegateHandle Handle = Multicast.AddRaw(&Listener, &FListener::Add);
	TSharedPtr<FListener> Gone = MakeShared<FListener>();
	Multicast.AddSP(Gone.ToSharedRef(), &FListener::Add);
	Gone.Reset();

	FOnAmountMulticast Copy = Multicast;
	Copy.Broadcast(1);
	EXPECT_EQ(Listener.Total, 1);
	EXPECT_TRUE(Copy.Remove(Handle));
	Copy.Broadcast(1);
	EXPECT_EQ(Listener.Total, 1);
	Multicast.Broadcast(1);
	EXPECT_EQ(Listener.Total, 2) << "the original keeps its own binding";

	EXPECT_FALSE(Multicast.Add(FOnAmount()).IsValid()) << "an unbound delegate adds nothing";
}

TEST(Function, OwnsCopiesOrRefersToCallables)
{
	TFunction<int32(int32)> Twice = [](int32 Value) { return 2 * Value; };
	const TFunction<int32(int32)> Copy = Twice;
	EXPECT_EQ(Copy(4), 8);
	Twice.Reset();
	EXPECT_FALSE(Twice.IsSet());

	auto Owned = std::make_unique<int32>(5);
	TUniqueFunction<int32()> MoveOnly = [Owned = MoveTemp(Owned)] { return *Owned; };
	TUniqueFunction<int32()> Moved = MoveTemp(MoveOnly);
	EXPECT_EQ(Moved(), 5);

	auto Apply = [](TFunctionRef<int32(int32)> Function) { return Function(3); };
	EXPECT_EQ(Apply(Copy), 6);
	EXPECT_EQ(Apply([](int32 Value) { return Value + 1; }), 4);
	EXPECT_EQ(Apply(+[](int32 Value) { return -Value; }), -3);
}
