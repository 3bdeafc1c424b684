#include "Templates/SharedPointer.h"
#include "Templates/UniquePtr.h"

#include <gtest/gtest.h>

namespace
{
	struct FCounted
	{
		explicit FCounted(int32& InAlive) : Alive(InAlive) { ++Alive; }
		virtual ~FCounted() { --Alive; }
		int32& Alive;
	};

	struct FDerived : FCounted
	{
		using FCounted::FCounted;
		int32 Extra = 7;
	};

	struct FNode : TSharedFromThis<FNode>
	{
		TSharedRef<FNode> Self() { return SharedThis(this); }
		int32 Value = 3;
	};
}

TEST(SharedPointer, WeakPointerExpiresWithTheLastOwner)
{
	int32 Alive = 0;
	TSharedPtr<FCounted> First = MakeShared<FCounted>(Alive);
	TSharedPtr<FCounted> Second = First;
	TWeakPtr<FCounted> Weak = First;
	EXPECT_EQ(First.GetSharedReferenceCount(), 2);

	First.Reset();
	EXPECT_TRUE(Weak.IsValid());
	{
		TSharedPtr<FCounted> Pinned = Weak.Pin();
		ASSERT_TRUE(Pinned.IsValid());
		Second.Reset();
		EXPECT_EQ(Alive, 1) << "a pinned pointer keeps the object alive";
	}
	EXPECT_EQ(Alive, 0);
	EXPECT_FALSE(Weak.IsValid());
	EXPECT_FALSE(Weak.Pin().IsValid());
	EXPECT_TRUE(Weak.Pin() == nullptr);
}

TEST(SharedPointer, SharesCastsAndComparesTheSameObject)
{
	int32 Alive = 0;
	TSharedRef<FDerived> Derived = MakeShared<FDerived>(Alive);
	TSharedPtr<FCounted> Base = Derived;
	EXPECT_TRUE(Base == Derived);
	EXPECT_TRUE(Base != nullptr);
	EXPECT_EQ(StaticCastSharedPtr<FDerived>(Base)->Extra, 7);
	TSharedRef<const FDerived> Const = Derived;
	EXPECT_EQ(&ConstCastSharedRef<FDerived>(Const).Get(), &Derived.Get());

	// A moved-from TSharedRef still points at its object.
	TSharedRef<FDerived> Moved = MoveTemp(Derived);
	EXPECT_EQ(&Moved.Get(), &Derived.Get());

	TSharedRef<FNode> Node = MakeShareable(new FNode());
	EXPECT_EQ(&Node->AsShared().Get(), &Node.Get());
	EXPECT_EQ(Node->Self()->Value, 3);
	TWeakPtr<FNode> WeakNode = Node->AsWeak();
	EXPECT_TRUE(WeakNode.HasSameObject(&Node.Get()));

	bool bDeleted = false;
	{
		TSharedPtr<int32> Custom = MakeShareable(new int32(5), [&bDeleted](int32* Value) { bDeleted = true; delete Value; });
		EXPECT_EQ(*Custom, 5);
	}
	EXPECT_TRUE(bDeleted);
	EXPECT_FALSE(TSharedPtr<int32>(MakeShareable<int32>(nullptr)).IsValid());
}

TEST(UniquePtr, MovesOwnershipAndFreesOnce)
{
	int32 Alive = 0;
	TUniquePtr<FCounted> Owner = MakeUnique<FDerived>(Alive);
	EXPECT_EQ(Alive, 1);
	TUniquePtr<FCounted> Next = MoveTemp(Owner);
	EXPECT_FALSE(Owner.IsValid());
	EXPECT_TRUE(Next.IsValid());
	Next.Reset();
	EXPECT_EQ(Alive, 0);

	TUniquePtr<int32[]> Buffer = MakeUnique<int32[]>(4);
	EXPECT_EQ(Buffer[3], 0);
}
