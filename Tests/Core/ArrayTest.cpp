#include "Containers/Array.h"
#include "Templates/UniquePtr.h"

#include <gtest/gtest.h>

#include <string>

namespace
{
	TArray<std::string> Letters(std::initializer_list<const char*> Items)
	{
		TArray<std::string> Result;
		for (const char* Item : Items)
		{
			Result.Add(Item);
		}
		return Result;
	}

	// Stands for TObjectPtr: a class wrapping a pointer, compared against raw pointers.
	struct FPointerWrapper
	{
		FPointerWrapper(int* InPointer) : Pointer(InPointer) {}
		bool operator==(const FPointerWrapper& Other) const { return Pointer == Other.Pointer; }
		bool operator==(const int* Other) const { return Pointer == Other; }
		int* Pointer;
	};
}

TEST(Array, RemovalsKeepTheOrderOfTheRest)
{
	TArray<std::string> Array = Letters({"a", "b", "c", "b", "d", "b", "e"});
	Array.RemoveAt(0);
	EXPECT_EQ(Array, Letters({"b", "c", "b", "d", "b", "e"}));
	Array.RemoveAt(1, 2);
	EXPECT_EQ(Array, Letters({"b", "d", "b", "e"}));

	EXPECT_EQ(Array.Remove(std::string("b")), 2);
	EXPECT_EQ(Array, Letters({"d", "e"}));
	EXPECT_EQ(Array.Remove(std::string("zz")), 0);

	TArray<int32> Numbers = {1, 2, 3, 2, 5, 6};
	EXPECT_EQ(Numbers.RemoveSingle(2), 1);
	EXPECT_EQ(Numbers, TArray<int32>({1, 3, 2, 5, 6}));
	EXPECT_EQ(Numbers.RemoveAll([](int32 N) { return N % 2 == 1; }), 3);
	EXPECT_EQ(Numbers, TArray<int32>({2, 6}));

	// The swapping removal fills the hole from the end instead.
	TArray<int32> Swapped = {0, 1, 2, 3, 4, 5};
	Swapped.RemoveAtSwap(1, 2);
	EXPECT_EQ(Swapped, TArray<int32>({0, 4, 5, 3}));
	Swapped.RemoveAtSwap(3);
	EXPECT_EQ(Swapped, TArray<int32>({0, 4, 5}));
}

TEST(Array, FindsByValueKeyAndPredicate)
{
	const TArray<int32> Array = {4, 7, 4, 9};
	EXPECT_EQ(Array.Find(4), 0);
	EXPECT_EQ(Array.FindLast(4), 2);
	EXPECT_EQ(Array.Find(5), INDEX_NONE);
	int32 Index = 123;
	EXPECT_FALSE(Array.Find(5, Index));
	EXPECT_EQ(Index, INDEX_NONE);
	EXPECT_TRUE(Array.FindLast(7, Index));
	EXPECT_EQ(Index, 1);
	EXPECT_EQ(Array.IndexOfByPredicate([](int32 N) { return N > 4; }), 1);
	EXPECT_EQ(Array.FindLastByPredicate([](int32 N) { return N > 4; }), 3);
	ASSERT_NE(Array.FindByKey(9), nullptr);
	EXPECT_EQ(Array.FindByKey(9), &Array[3]);
	EXPECT_EQ(Array.FindByPredicate([](int32 N) { return N > 100; }), nullptr);
	EXPECT_TRUE(Array.ContainsByPredicate([](int32 N) { return N == 9; }));
	EXPECT_EQ(Array.FilterByPredicate([](int32 N) { return N == 4; }), TArray<int32>({4, 4}));

	TArray<int32> Unique = {1, 2};
	EXPECT_EQ(Unique.AddUnique(2), 1);
	EXPECT_EQ(Unique.AddUnique(3), 2);
	EXPECT_EQ(Unique.Num(), 3);

	int A = 0;
	int B = 0;
	TArray<FPointerWrapper> Wrappers;
	Wrappers.Add(&A);
	EXPECT_TRUE(Wrappers.Contains(&A));
	EXPECT_FALSE(Wrappers.Contains(&B));
	EXPECT_EQ(Wrappers.Remove(&A), 1);
	EXPECT_TRUE(Wrappers.IsEmpty());
}

TEST(Array, EmptyFreesStorageWhileResetKeepsIt)
{
	TArray<std::string> Array;
	Array.Reserve(100);
	EXPECT_EQ(Array.Max(), 100);
	Array.Add("x");
	Array.Reset();
	EXPECT_EQ(Array.Num(), 0);
	EXPECT_EQ(Array.Max(), 100);

	Array.Add("y");
	Array.Empty();
	EXPECT_EQ(Array.Num(), 0);
	EXPECT_EQ(Array.Max(), 0);
	EXPECT_EQ(Array.GetData(), nullptr);

	Array.Empty(10);
	EXPECT_EQ(Array.Max(), 10);
	Array.Add("z");
	Array.Shrink();
	EXPECT_EQ(Array.Max(), 1);
	Array.RemoveAt(0);
	EXPECT_EQ(Array.Max(), 1);
}

TEST(Array, InsertShiftsElementsUpEvenWhenGivenItsOwnElement)
{
	TArray<std::string> Array = Letters({"b", "d"});
	EXPECT_EQ(Array.Insert("a", 0), 0);
	Array.Insert("c", 2);
	Array.Insert("e", Array.Num());
	EXPECT_EQ(Array, Letters({"a", "b", "c", "d", "e"}));
	Array.Insert(Letters({"x", "y"}), 1);
	EXPECT_EQ(Array, Letters({"a", "x", "y", "b", "c", "d", "e"}));

	// An element of the array itself, passed while the array must grow, is copied intact.
	Array.Shrink();
	Array.Insert(Array[6], 0);
	Array.Shrink();
	Array.Add(Array[0]);
	Array.Shrink();
	Array.Append(Array);
	EXPECT_EQ(Array.Num(), 18);
	EXPECT_EQ(Array[0], "e");
	EXPECT_EQ(Array[8], "e");
	EXPECT_EQ(Array[9], "e");
}

TEST(Array, SortsValuesPointeesAndKeepsEqualsInOrderWhenStable)
{
	TArray<int32> Numbers = {5, 1, 4, 2, 3};
	Numbers.Sort();
	EXPECT_EQ(Numbers, TArray<int32>({1, 2, 3, 4, 5}));
	Numbers.Sort([](int32 A, int32 B) { return A > B; });
	EXPECT_EQ(Numbers, TArray<int32>({5, 4, 3, 2, 1}));

	// An array of pointers is ordered by what they point to, not by address.
	int Values[] = {30, 10, 20};
	TArray<int*> Pointers = {&Values[0], &Values[1], &Values[2]};
	Pointers.Sort();
	EXPECT_EQ(*Pointers[0], 10);
	EXPECT_EQ(*Pointers[2], 30);
	Pointers.Sort([](const int& A, const int& B) { return A > B; });
	EXPECT_EQ(*Pointers[0], 30);

	TArray<std::pair<int32, int32>> Pairs;
	for (int32 Index = 0; Index < 50; ++Index)
	{
		Pairs.Add({Index % 3, Index});
	}
	Pairs.StableSort([](const auto& A, const auto& B) { return A.first < B.first; });
	for (int32 Index = 1; Index < Pairs.Num(); ++Index)
	{
		EXPECT_TRUE(Pairs[Index - 1].first < Pairs[Index].first || Pairs[Index - 1].second < Pairs[Index].second);
	}
}

TEST(Array, GrowsAndShrinksAtTheEnd)
{
	TArray<int32> Array;
	Array.SetNumZeroed(3);
	EXPECT_EQ(Array, TArray<int32>({0, 0, 0}));
	EXPECT_EQ(Array.AddZeroed(2), 3);
	Array.Last() = 9;
	Array.Push(7);
	EXPECT_EQ(Array.Top(), 7);
	EXPECT_EQ(Array.Last(1), 9);
	EXPECT_EQ(Array.Pop(), 7);
	Array.SetNum(2);
	EXPECT_EQ(Array.Num(), 2);

	TArray<std::string> Strings;
	Strings.SetNum(2);
	EXPECT_EQ(Strings[1], "");
	Strings.Emplace_GetRef(3, 'q') += "!";
	EXPECT_EQ(Strings.Last(), "qqq!");

	TArray<int32> Walked = {1, 2, 3, 4};
	for (auto It = Walked.CreateIterator(); It; ++It)
	{
		if (*It % 2 == 0)
		{
			It.RemoveCurrent();
		}
	}
	EXPECT_EQ(Walked, TArray<int32>({1, 3}));
}

TEST(Array, MovesMoveOnlyElementsThroughEveryReshuffle)
{
	auto Values = [](const TArray<TUniquePtr<int32>>& Array) {
		TArray<int32> Result;
		for (const TUniquePtr<int32>& Item : Array)
		{
			Result.Add(Item.IsValid() ? *Item : -1);
		}
		return Result;
	};
	TArray<TUniquePtr<int32>> Array;
	for (int32 Value = 0; Value < 6; ++Value)
	{
		Array.Add(MakeUnique<int32>(Value));
	}
	Array.Insert(MakeUnique<int32>(10), 0);
	Array.EmplaceAt(3, MakeUnique<int32>(11));
	EXPECT_EQ(Values(Array), TArray<int32>({10, 0, 1, 11, 2, 3, 4, 5}));
	Array.RemoveAt(1, 2);
	Array.RemoveAtSwap(0);
	EXPECT_EQ(Values(Array), TArray<int32>({5, 11, 2, 3, 4}));
	Array.Sort([](const TUniquePtr<int32>& A, const TUniquePtr<int32>& B) { return *A < *B; });
	EXPECT_EQ(Values(Array), TArray<int32>({2, 3, 4, 5, 11}));
	TUniquePtr<int32> Last = Array.Pop();
	EXPECT_EQ(*Last, 11);
	Array.RemoveAll([](const TUniquePtr<int32>& Item) { return *Item % 2 == 1; });
	EXPECT_EQ(Values(Array), TArray<int32>({2, 4}));

	TArray<TUniquePtr<int32>> Moved = MoveTemp(Array);
	EXPECT_TRUE(Array.IsEmpty());
	Moved.Append(TArray<TUniquePtr<int32>>());
	EXPECT_EQ(Values(Moved), TArray<int32>({2, 4}));
}

TEST(ArrayDeathTest, IndexingOutOfRangeStops)
{
	TArray<int32> Array = {1};
	EXPECT_DEATH((void)Array[1], "");
	EXPECT_DEATH((void)Array[-1], "");
}
