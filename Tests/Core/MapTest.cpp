#include "Containers/Map.h"
#include "Containers/Set.h"
#include "Containers/UnrealString.h"

#include <gtest/gtest.h>

#include <unordered_map>
#include <vector>

TEST(Map, AddReplacesAndFindRemoveReportWhatIsThere)
{
	TMap<int32, int32> Map;
	EXPECT_EQ(Map.Find(1), nullptr);
	EXPECT_EQ(Map.Add(1, 10), 10);
	Map.Add(1, 11);
	EXPECT_EQ(Map.Num(), 1);
	ASSERT_NE(Map.Find(1), nullptr);
	EXPECT_EQ(*Map.Find(1), 11);
	EXPECT_EQ(Map.FindRef(2), 0);
	EXPECT_FALSE(Map.Contains(2));

	Map.FindOrAdd(2) += 5;
	Map.FindOrAdd(2) += 5;
	EXPECT_EQ(Map.FindChecked(2), 10);
	EXPECT_EQ(Map.FindOrAdd(3, 30), 30);
	EXPECT_EQ(Map.FindOrAdd(3, 99), 30);
	ASSERT_NE(Map.FindKey(30), nullptr);
	EXPECT_EQ(*Map.FindKey(30), 3);

	EXPECT_EQ(Map.Remove(1), 1);
	EXPECT_EQ(Map.Remove(1), 0);
	int32 Removed = 0;
	EXPECT_TRUE(Map.RemoveAndCopyValue(2, Removed));
	EXPECT_EQ(Removed, 10);
	EXPECT_EQ(Map.FindAndRemoveChecked(3), 30);
	EXPECT_TRUE(Map.IsEmpty());
}

TEST(Map, StaysCorrectThroughManyRehashesWithRemovalsInterleaved)
{
	TMap<int64, int64> Map;
	std::unordered_map<int64, int64> Expected;
	std::vector<int64> Order;
	for (int64 Key = 0; Key < 20000; ++Key)
	{
		// Spread keys so that low bits alone would collide.
		const int64 Spread = Key * 4096;
		Map.Add(Spread, Key);
		Expected[Spread] = Key;
		Order.push_back(Spread);
		if (Key % 3 == 2)
		{
			const int64 Victim = (Key / 2) * 4096;
			EXPECT_EQ(Map.Remove(Victim), int32(Expected.erase(Victim)));
		}
	}
	ASSERT_EQ(Map.Num(), int32(Expected.size()));
	for (const auto& [Key, Value] : Expected)
	{
		ASSERT_NE(Map.Find(Key), nullptr);
		EXPECT_EQ(*Map.Find(Key), Value);
	}
	EXPECT_EQ(Map.Find(-4096), nullptr);

	std::vector<int64> Walked;
	for (const TPair<int64, int64>& Pair : Map)
	{
		Walked.push_back(Pair.Key);
	}
	std::erase_if(Order, [&](int64 Key) { return !Expected.contains(Key); });
	EXPECT_EQ(Walked, Order);
}

TEST(Map, IteratesInInsertionOrderAndAReplacedValueKeepsItsPlace)
{
	TMap<int32, FString> Map;
	Map.Add(3, TEXT("three"));
	Map.Add(1, TEXT("one"));
	Map.Add(2, TEXT("two"));
	Map.Add(1, TEXT("uno"));
	Map.Remove(3);
	Map.Add(4, TEXT("four"));

	TArray<int32> Keys;
	Map.GenerateKeyArray(Keys);
	EXPECT_EQ(Keys, TArray<int32>({1, 2, 4}));
	TArray<FString> Values;
	Map.GenerateValueArray(Values);
	EXPECT_EQ(Values[0], TEXT("uno"));

	for (TPair<int32, FString>& Pair : Map)
	{
		Pair.Value += TEXT("!");
	}
	EXPECT_EQ(Map[2], TEXT("two!"));

	for (auto It = Map.CreateIterator(); It; ++It)
	{
		if (It.Key() == 2)
		{
			It.RemoveCurrent();
		}
	}
	Map.GetKeys(Keys);
	EXPECT_EQ(Keys, TArray<int32>({1, 4}));

	Map.Add(0, TEXT("zero"));
	Map.KeySort([](int32 A, int32 B) { return A < B; });
	Map.GetKeys(Keys);
	EXPECT_EQ(Keys, TArray<int32>({0, 1, 4}));
	EXPECT_EQ(Map.FindRef(4), TEXT("four!"));

	const TMap<int32, FString> Copy = Map;
	EXPECT_TRUE(Copy.OrderIndependentCompareEqual(Map));
	TMap<int32, FString> Moved = MoveTemp(Map);
	EXPECT_EQ(Moved.Num(), 3);
	EXPECT_EQ(Map.Num(), 0);
}

TEST(Map, StringKeysIgnoreCaseAsTheirEqualityDoes)
{
	TMap<FString, int32> Map;
	Map.Add(TEXT("Volume"), 1);
	Map.Add(TEXT("VOLUME"), 2);
	EXPECT_EQ(Map.Num(), 1);
	EXPECT_EQ(Map.FindRef(TEXT("volume")), 2);
	EXPECT_EQ(Map.Remove(TEXT("vOlUmE")), 1);
}

TEST(Map, AValueTakenFromTheMapItselfSurvivesTheGrowthItCauses)
{
	TMap<FString, FString> Map;
	for (int32 Index = 0; Index < 8; ++Index)
	{
		Map.Add(FString::Printf(TEXT("k%d"), Index), FString::Printf(TEXT("a long value that lives on the heap %d"), Index));
	}
	Map.Compact();
	Map.Add(TEXT("copy"), Map[TEXT("k3")]);
	EXPECT_EQ(Map[TEXT("copy")], TEXT("a long value that lives on the heap 3"));
	Map.Shrink();
	Map.FindOrAdd(TEXT("other"), Map[TEXT("k5")]);
	EXPECT_EQ(Map[TEXT("other")], TEXT("a long value that lives on the heap 5"));

	TMap<FString, FString> Copy;
	Copy = Map;
	Map.Empty();
	EXPECT_EQ(Copy.Num(), 10);
	EXPECT_EQ(Copy[TEXT("K7")], TEXT("a long value that lives on the heap 7"));
}

TEST(Set, HoldsEachElementOnceInOrderOfAddition)
{
	TSet<int32> Set = {5, 3, 5, 9};
	EXPECT_EQ(Set.Num(), 3);
	bool bAlreadyThere = false;
	Set.Add(3, &bAlreadyThere);
	EXPECT_TRUE(bAlreadyThere);
	EXPECT_TRUE(Set.Contains(9));
	EXPECT_EQ(Set.Remove(5), 1);
	EXPECT_FALSE(Set.Contains(5));
	Set.Add(1);
	EXPECT_EQ(Set.Array(), TArray<int32>({3, 9, 1}));
	Set.Empty();
	EXPECT_TRUE(Set.IsEmpty());
	EXPECT_FALSE(Set.Contains(3));
}
