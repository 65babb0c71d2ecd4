#include "CoreMinimal.h"
#include "CoreTestPrinters.h"

#include <gtest/gtest.h>

TEST(TMapTest, StringKeysIgnoreCaseAndKeepInsertionOrder)
{
	TMap<FString, int32> Map;
	Map.Add(TEXT("Zeta"), 1);
	Map.Add(TEXT("alpha"), 2);
	Map.Add(TEXT("Mid"), 3);
	Map.Add(TEXT("ZETA"), 4);

	ASSERT_EQ(Map.Num(), 3);
	EXPECT_EQ(Map.FindRef(TEXT("zeta")), 4);
	EXPECT_TRUE(Map.Contains(TEXT("ALPHA")));
	EXPECT_EQ(Map.FindRef(TEXT("missing")), 0);
	EXPECT_EQ(Map.Find(TEXT("missing")), nullptr);

	// The replaced pair stays in its place and takes the new key's spelling.
	TArray<FString> Keys;
	Map.GenerateKeyArray(Keys);
	ASSERT_EQ(Keys.Num(), 3);
	EXPECT_TRUE(Keys[0].Equals(TEXT("ZETA")));
	EXPECT_TRUE(Keys[1].Equals(TEXT("alpha")));
	EXPECT_TRUE(Keys[2].Equals(TEXT("Mid")));

	// A removed slot is taken by the next addition, as in the engine's sparse storage.
	EXPECT_EQ(Map.Remove(TEXT("Alpha")), 1);
	EXPECT_EQ(Map.Remove(TEXT("Alpha")), 0);
	Map.Add(TEXT("New"), 5);
	Map.GenerateKeyArray(Keys);
	EXPECT_TRUE(Keys[1].Equals(TEXT("New")));

	int32& Added = Map.FindOrAdd(TEXT("Other"));
	Added = 9;
	EXPECT_EQ(Map[TEXT("other")], 9);
}

TEST(TMapTest, ManyEntriesRemoveWhileIteratingAndSort)
{
	TMap<int32, int32> Map;
	for (int32 Index = 0; Index < 10000; ++Index)
	{
		Map.Add(Index, Index * 2);
	}
	for (auto It = Map.CreateIterator(); It; ++It)
	{
		if (It.Key() % 2)
		{
			It.RemoveCurrent();
		}
	}
	EXPECT_EQ(Map.Num(), 5000);
	for (int32 Index = 0; Index < 10000; ++Index)
	{
		EXPECT_EQ(Map.Contains(Index), Index % 2 == 0);
	}
	int32 Previous = -1;
	for (const TPair<int32, int32>& Pair : Map)
	{
		EXPECT_GT(Pair.Key, Previous);
		Previous = Pair.Key;
	}

	TMap<FString, int32> Names{{TEXT("b"), 1}, {TEXT("C"), 2}, {TEXT("a"), 3}};
	Names.KeySort([](const FString& A, const FString& B) { return A < B; });
	TArray<FString> Keys;
	Names.GenerateKeyArray(Keys);
	EXPECT_EQ(FString::Join(Keys, TEXT(",")), TEXT("a,b,C"));
	EXPECT_EQ(Names.FindRef(TEXT("c")), 2);
}

TEST(TSetTest, MembershipAndSetAlgebra)
{
	TSet<FString> Set;
	bool bAlreadyIn = true;
	Set.Add(TEXT("Cpp"), &bAlreadyIn);
	EXPECT_FALSE(bAlreadyIn);
	Set.Add(TEXT("cpp"), &bAlreadyIn);
	EXPECT_TRUE(bAlreadyIn);
	Set.Add(TEXT("h"));
	EXPECT_EQ(Set.Num(), 2);

	const TSet<FString> Other{TEXT("H"), TEXT("ini")};
	EXPECT_EQ(Set.Intersect(Other).Num(), 1);
	EXPECT_EQ(Set.Union(Other).Num(), 3);
	EXPECT_EQ(Set.Difference(Other).Array()[0], TEXT("cpp"));
}

TEST(TArrayTest, EngineSemanticsOfAddRemoveAndSort)
{
	TArray<int32> Values{5, 3, 5, 1};
	EXPECT_EQ(Values.AddUnique(3), 1);
	EXPECT_EQ(Values.AddUnique(7), 4);
	EXPECT_EQ(Values.Remove(5), 2);
	EXPECT_EQ(Values, (TArray<int32>{3, 1, 7}));
	EXPECT_EQ(Values.Find(7), 2);
	EXPECT_EQ(Values.Find(8), INDEX_NONE);
	Values.Insert(9, 0);
	Values.Sort();
	EXPECT_EQ(Values, (TArray<int32>{1, 3, 7, 9}));
	EXPECT_EQ(Values.RemoveAll([](int32 Value) { return Value > 5; }), 2);
	EXPECT_EQ(Values.Last(), 3);
	EXPECT_EQ(Values.Pop(), 3);
	EXPECT_EQ(Values.Num(), 1);

	// Arrays of pointers sort by the values they point at.
	int32 A = 3, B = 1, C = 2;
	TArray<int32*> Pointers{&A, &B, &C};
	Pointers.Sort();
	EXPECT_EQ(*Pointers[0], 1);
	EXPECT_EQ(*Pointers[2], 3);

	TArray<bool> Flags;
	Flags.Add(true);
	Flags.AddZeroed(2);
	EXPECT_EQ(Flags.Num(), 3);
	EXPECT_TRUE(Flags.GetData()[0]);
	EXPECT_FALSE(Flags[2]);
}

TEST(FNameTest, CaseInsensitiveWithEachSpellingKept)
{
	// As in the editor: names compare without case, and each reads back as it was written.
	const FName First(TEXT("MyActor"));
	const FName Second(TEXT("MYACTOR"));
	EXPECT_EQ(First, Second);
	EXPECT_TRUE(First.ToString().Equals(TEXT("MyActor"), ESearchCase::CaseSensitive));
	EXPECT_TRUE(Second.ToString().Equals(TEXT("MYACTOR"), ESearchCase::CaseSensitive));
	EXPECT_FALSE(First.IsEqual(Second, ENameCase::CaseSensitive));

	EXPECT_TRUE(FName().IsNone());
	EXPECT_EQ(FName(TEXT("")), NAME_None);
	EXPECT_EQ(FName(TEXT("none")), NAME_None);
	EXPECT_EQ(FName(NAME_None).ToString(), TEXT("None"));
	EXPECT_TRUE(FName(TEXT("NeverSeenBefore123"), FNAME_Find).IsNone());

	TMap<FName, int32> ByName;
	ByName.Add(FName(TEXT("Speed")), 1);
	EXPECT_EQ(ByName.FindRef(FName(TEXT("speed"))), 1);
	EXPECT_LT(FName(TEXT("apple")).Compare(FName(TEXT("Banana"))), 0);
}

TEST(SharedPointerTest, OwnershipCastsAndWeakness)
{
	struct FBase : TSharedFromThis<FBase>
	{
		virtual ~FBase() = default;
		int32 Value = 1;
	};
	struct FDerived : FBase
	{
		FDerived()
		{
			Value = 2;
		}
	};

	TWeakPtr<FBase> Weak;
	{
		TSharedRef<FDerived> Derived = MakeShared<FDerived>();
		TSharedPtr<FBase> Base = Derived;
		Weak = Base;
		EXPECT_EQ(Base->AsShared()->Value, 2);
		EXPECT_EQ(StaticCastSharedPtr<FDerived>(Base).Get(), &Derived.Get());
		EXPECT_EQ(Derived.GetSharedReferenceCount(), 2);
		EXPECT_TRUE(Weak.Pin().IsValid());
	}
	EXPECT_FALSE(Weak.IsValid());
	EXPECT_FALSE(Weak.Pin().IsValid());

	TSharedPtr<FBase> FromRaw = MakeShareable(new FDerived());
	EXPECT_TRUE(FromRaw.IsValid());
	EXPECT_EQ(FromRaw->AsShared().Get().Value, 2);
	TSharedPtr<FBase> Null;
	EXPECT_TRUE(Null == nullptr);
	EXPECT_FALSE(Null.IsValid());
}
