#include "CoreMinimal.h"
#include "CoreTestPrinters.h"

#include <gtest/gtest.h>

#include <string>

namespace
{
	std::string Joined(const TArray<FString>& Items)
	{
		return std::string(TCHAR_TO_UTF8(*FString::Join(Items, TEXT(","))));
	}

	template <typename MapType>
	std::string KeysOf(const MapType& Map)
	{
		TArray<FString> Keys;
		for (const auto& Pair : Map)
		{
			Keys.Add(Pair.Key);
		}
		return Joined(Keys);
	}
}

TEST(TArrayEdgeTest, RemovalAndInsertionAtTheBounds)
{
	TArray<int32> Values{0, 1, 2, 3, 4, 5};
	// Swap removal of a run fills the hole from the end, keeping the tail's order.
	Values.RemoveAtSwap(1, 2);
	EXPECT_EQ(Values, (TArray<int32>{0, 4, 5, 3}));
	// When the hole reaches the end nothing moves.
	Values.RemoveAtSwap(2, 2);
	EXPECT_EQ(Values, (TArray<int32>{0, 4}));
	Values.RemoveAt(0, 2);
	EXPECT_TRUE(Values.IsEmpty());

	Values.Insert(7, 0);
	Values.Insert(9, Values.Num());
	Values.Insert({1, 2}, 1);
	EXPECT_EQ(Values, (TArray<int32>{7, 1, 2, 9}));
	const TArray<int32> Tail{5, 6};
	Values.Insert(Tail, Values.Num());
	EXPECT_EQ(Values, (TArray<int32>{7, 1, 2, 9, 5, 6}));

	TArray<int32> Repeats{1, 2, 1, 3, 1};
	EXPECT_EQ(Repeats.RemoveSingle(1), 1);
	EXPECT_EQ(Repeats, (TArray<int32>{2, 1, 3, 1}));
	EXPECT_EQ(Repeats.RemoveSingle(8), 0);
	EXPECT_EQ(Repeats.FindLast(1), 3);
	EXPECT_EQ(Repeats.RemoveSwap(1), 2);
	EXPECT_EQ(Repeats.Num(), 2);
	EXPECT_TRUE(Repeats.Contains(2) && Repeats.Contains(3));

	TArray<FString> Grown;
	Grown.SetNum(3);
	EXPECT_TRUE(Grown[2].IsEmpty());
	Grown[0] = TEXT("kept");
	Grown.SetNum(1);
	EXPECT_EQ(Joined(Grown), "kept");
	EXPECT_EQ(Grown.AddDefaulted(2), 1);
	EXPECT_EQ(Grown.Num(), 3);
	EXPECT_EQ(Grown.Last(2), TEXT("kept"));
}

TEST(TArrayEdgeTest, StringElementsCompareWithoutCase)
{
	TArray<FString> Names{TEXT("Actor"), TEXT("pawn")};
	EXPECT_TRUE(Names.Contains(TEXT("ACTOR")));
	EXPECT_EQ(Names.Find(TEXT("PAWN")), 1);
	EXPECT_EQ(Names.AddUnique(TEXT("Pawn")), 1);
	EXPECT_EQ(Names.Num(), 2);
	EXPECT_TRUE(Names == (TArray<FString>{TEXT("ACTOR"), TEXT("Pawn")}));
	EXPECT_FALSE(Names == (TArray<FString>{TEXT("Actor")}));
	EXPECT_EQ(Names.Remove(TEXT("actor")), 1);

	// Sorting strings ignores case; the stable sort keeps equal names in their first order.
	TArray<FString> Mixed{TEXT("b"), TEXT("A"), TEXT("c"), TEXT("B"), TEXT("a")};
	Mixed.StableSort();
	EXPECT_EQ(Joined(Mixed), "A,a,b,B,c");
	TArray<FString> Unstable{TEXT("delta"), TEXT("Alpha"), TEXT("charlie"), TEXT("Bravo")};
	Unstable.Sort();
	EXPECT_EQ(Joined(Unstable), "Alpha,Bravo,charlie,delta");
	Unstable.Sort([](const FString& A, const FString& B) { return A.Len() > B.Len(); });
	EXPECT_EQ(Unstable[0].Len(), 7);
	EXPECT_EQ(Unstable.Last().Len(), 5);
}

TEST(TMapEdgeTest, SlotReuseFindOrAddAndReplacement)
{
	TMap<FString, int32> Map;
	for (const TCHAR* Key : {TEXT("a"), TEXT("b"), TEXT("c"), TEXT("d")})
	{
		Map.Add(Key, 1);
	}
	// The most recently freed slot is taken first.
	Map.Remove(TEXT("a"));
	Map.Remove(TEXT("c"));
	Map.Add(TEXT("x"), 2);
	Map.Add(TEXT("y"), 3);
	EXPECT_EQ(KeysOf(Map), "y,b,x,d");
	// Emptying forgets the old slots.
	Map.Remove(TEXT("x"));
	Map.Empty();
	Map.Add(TEXT("first"), 1);
	Map.Add(TEXT("second"), 2);
	EXPECT_EQ(KeysOf(Map), "first,second");

	// FindOrAdd leaves an existing key's spelling and value; Add and Emplace replace both.
	int32& Existing = Map.FindOrAdd(TEXT("FIRST"));
	EXPECT_EQ(Existing, 1);
	EXPECT_EQ(KeysOf(Map), "first,second");
	Map.Emplace(TEXT("SECOND"), 5);
	EXPECT_EQ(KeysOf(Map), "first,SECOND");
	EXPECT_EQ(Map.FindRef(TEXT("second")), 5);

	int32 Removed = 0;
	EXPECT_TRUE(Map.RemoveAndCopyValue(TEXT("Second"), Removed));
	EXPECT_EQ(Removed, 5);
	EXPECT_FALSE(Map.RemoveAndCopyValue(TEXT("Second"), Removed));
	const FString* Key = Map.FindKey(1);
	ASSERT_NE(Key, nullptr);
	EXPECT_TRUE(Key->Equals(TEXT("first")));
	EXPECT_EQ(Map.FindKey(42), nullptr);

	// Values sort by value, keys keep their pairing.
	TMap<FString, int32> Scores{{TEXT("low"), 1}, {TEXT("high"), 9}, {TEXT("mid"), 5}};
	Scores.ValueSort([](int32 A, int32 B) { return A > B; });
	EXPECT_EQ(KeysOf(Scores), "high,mid,low");
	EXPECT_EQ(Scores.FindRef(TEXT("MID")), 5);
	// Sorting leaves no holes behind: a new key goes to the end.
	Scores.Remove(TEXT("high"));
	Scores.KeySort([](const FString& A, const FString& B) { return A < B; });
	Scores.Add(TEXT("new"), 0);
	EXPECT_EQ(KeysOf(Scores), "low,mid,new");
}

TEST(TSetEdgeTest, OrderAfterRemovalAndAlgebraKeepsTheLeftOrder)
{
	TSet<FString> Set{TEXT("one"), TEXT("two"), TEXT("three")};
	// Plain text looks up as an FString would, so case is ignored here too.
	EXPECT_TRUE(Set.Contains(TEXT("one")));
	EXPECT_TRUE(Set.Contains(TEXT("THREE")));
	EXPECT_FALSE(Set.Contains(TEXT("on")));
	ASSERT_NE(Set.Find(TEXT("Two")), nullptr);
	EXPECT_TRUE(Set.Find(TEXT("Two"))->Equals(TEXT("two")));
	EXPECT_EQ(Set.Remove(TEXT("TWO")), 1);
	EXPECT_EQ(Set.Remove(TEXT("TWO")), 0);
	Set.Add(TEXT("four"));
	EXPECT_EQ(Joined(Set.Array()), "one,four,three");
	// Adding an existing element replaces it in place, taking the new spelling.
	Set.Add(TEXT("ONE"));
	EXPECT_EQ(Joined(Set.Array()), "ONE,four,three");

	const TSet<FString> Other{TEXT("three"), TEXT("Five"), TEXT("one")};
	EXPECT_EQ(Joined(Set.Intersect(Other).Array()), "ONE,three");
	// The right side is added after, so its spelling wins for shared elements.
	EXPECT_EQ(Joined(Set.Union(Other).Array()), "one,four,three,Five");
	EXPECT_EQ(Joined(Set.Difference(Other).Array()), "four");
	EXPECT_TRUE(Set.Includes(TSet<FString>{TEXT("FOUR")}));
	EXPECT_FALSE(Set.Includes(Other));
	EXPECT_TRUE(Set.Includes(TSet<FString>()));
}
