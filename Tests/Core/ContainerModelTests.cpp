// Containers checked against the standard library on random operation sequences.
#include "CoreMinimal.h"
#include "CoreTestPrinters.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <map>
#include <random>
#include <string>
#include <vector>

namespace
{
	// Insertion order with slot reuse, as the engine's sparse storage behaves: a new key takes the most
	// recently freed slot, else goes to the end.
	class FOrderModel
	{
	public:
		void Add(int32 Key, int32 Value)
		{
			for (std::pair<int32, int32>* Slot : Live())
			{
				if (Slot->first == Key)
				{
					Slot->second = Value;
					return;
				}
			}
			if (!FreeSlots.empty())
			{
				const size_t Index = FreeSlots.back();
				FreeSlots.pop_back();
				Slots[Index] = {Key, Value};
				bUsed[Index] = true;
				return;
			}
			Slots.push_back({Key, Value});
			bUsed.push_back(true);
		}
		bool Remove(int32 Key)
		{
			for (size_t Index = 0; Index < Slots.size(); ++Index)
			{
				if (bUsed[Index] && Slots[Index].first == Key)
				{
					bUsed[Index] = false;
					FreeSlots.push_back(Index);
					return true;
				}
			}
			return false;
		}
		std::vector<std::pair<int32, int32>*> Live()
		{
			std::vector<std::pair<int32, int32>*> Result;
			for (size_t Index = 0; Index < Slots.size(); ++Index)
			{
				if (bUsed[Index])
				{
					Result.push_back(&Slots[Index]);
				}
			}
			return Result;
		}

	private:
		std::vector<std::pair<int32, int32>> Slots;
		std::vector<bool> bUsed;
		std::vector<size_t> FreeSlots;
	};
}

TEST(ContainerModelTest, MapAgreesWithAnOrderModelUnderRandomEdits)
{
	std::mt19937 Random(7);
	TMap<int32, int32> Map;
	FOrderModel Model;
	for (int32 Step = 0; Step < 20000; ++Step)
	{
		const int32 Key = static_cast<int32>(Random() % 300);
		switch (Random() % 4)
		{
		case 0:
		case 1:
			Map.Add(Key, Step);
			Model.Add(Key, Step);
			break;
		case 2:
			EXPECT_EQ(Map.Remove(Key) == 1, Model.Remove(Key));
			break;
		default:
			Map.FindOrAdd(Key) = Step;
			Model.Add(Key, Step);
			break;
		}
		if (Step % 997 == 0)
		{
			const std::vector<std::pair<int32, int32>*> Expected = Model.Live();
			ASSERT_EQ(Map.Num(), static_cast<int32>(Expected.size()));
			size_t Index = 0;
			for (const TPair<int32, int32>& Pair : Map)
			{
				ASSERT_EQ(Pair.Key, Expected[Index]->first) << "at step " << Step;
				ASSERT_EQ(Pair.Value, Expected[Index]->second);
				++Index;
			}
		}
	}
	for (std::pair<int32, int32>* Pair : Model.Live())
	{
		ASSERT_NE(Map.Find(Pair->first), nullptr);
		EXPECT_EQ(*Map.Find(Pair->first), Pair->second);
	}
}

TEST(ContainerModelTest, SetOfStringsFoldsCaseLikeALowercasedStdSet)
{
	std::mt19937 Random(11);
	const TCHAR* const Words[] = {TEXT("Actor"), TEXT("ACTOR"), TEXT("pawn"), TEXT("Pawn"), TEXT("Widget"), TEXT("widget_1"), TEXT("Widget_1"), TEXT("cpp")};
	TSet<FString> Set;
	std::map<std::u16string, int> Model;
	for (int32 Step = 0; Step < 5000; ++Step)
	{
		const FString Word = Words[Random() % UE_ARRAY_COUNT(Words)];
		const std::u16string Folded(*Word.ToLower());
		if (Random() % 3 == 0)
		{
			EXPECT_EQ(Set.Remove(Word), static_cast<int32>(Model.erase(Folded)));
		}
		else
		{
			Set.Add(Word);
			Model[Folded] = 1;
		}
		ASSERT_EQ(Set.Num(), static_cast<int32>(Model.size()));
	}
}

TEST(ContainerModelTest, ArrayEditsAgreeWithStdVector)
{
	std::mt19937 Random(3);
	TArray<int32> Array;
	std::vector<int32> Model;
	for (int32 Step = 0; Step < 5000; ++Step)
	{
		const int32 Value = static_cast<int32>(Random() % 50);
		switch (Random() % 6)
		{
		case 0:
			Array.Add(Value);
			Model.push_back(Value);
			break;
		case 1:
		{
			const int32 Index = Model.empty() ? 0 : static_cast<int32>(Random() % (Model.size() + 1));
			Array.Insert(Value, Index);
			Model.insert(Model.begin() + Index, Value);
			break;
		}
		case 2:
			if (!Model.empty())
			{
				const int32 Index = static_cast<int32>(Random() % Model.size());
				const int32 Count = std::min<int32>(static_cast<int32>(Random() % 3), static_cast<int32>(Model.size()) - Index);
				Array.RemoveAt(Index, Count);
				Model.erase(Model.begin() + Index, Model.begin() + Index + Count);
			}
			break;
		case 3:
		{
			const int32 Removed = Array.Remove(Value);
			const auto NewEnd = std::remove(Model.begin(), Model.end(), Value);
			EXPECT_EQ(Removed, static_cast<int32>(Model.end() - NewEnd));
			Model.erase(NewEnd, Model.end());
			break;
		}
		case 4:
			Array.AddUnique(Value);
			if (std::find(Model.begin(), Model.end(), Value) == Model.end())
			{
				Model.push_back(Value);
			}
			break;
		default:
			if (!Model.empty())
			{
				const int32 Index = static_cast<int32>(Random() % Model.size());
				Array.RemoveAtSwap(Index);
				std::swap(Model[Index], Model.back());
				Model.pop_back();
			}
			break;
		}
		ASSERT_EQ(Array.Num(), static_cast<int32>(Model.size()));
		ASSERT_TRUE(std::equal(Model.begin(), Model.end(), Array.GetData()));
	}
}

TEST(StringModelTest, SearchReplaceAndSplitAgreeWithNaiveReferences)
{
	std::mt19937 Random(5);
	const char16_t Alphabet[] = u"abAB\r\n\t ";
	auto RandomText = [&](int32 MaxLength)
	{
		std::u16string Text;
		const int32 Length = static_cast<int32>(Random() % (MaxLength + 1));
		for (int32 Index = 0; Index < Length; ++Index)
		{
			Text += Alphabet[Random() % 8];
		}
		return Text;
	};
	for (int32 Round = 0; Round < 3000; ++Round)
	{
		const std::u16string Text = RandomText(24);
		std::u16string Needle = RandomText(3);
		if (Needle.empty())
		{
			Needle = u"a";
		}
		const std::u16string Replacement = RandomText(3);
		const FString Subject(static_cast<int32>(Text.size()), Text.data());

		const size_t Expected = Text.find(Needle);
		EXPECT_EQ(Subject.Find(Needle.c_str(), ESearchCase::CaseSensitive), Expected == std::u16string::npos ? INDEX_NONE : static_cast<int32>(Expected));
		const size_t ExpectedLast = Text.rfind(Needle);
		EXPECT_EQ(Subject.Find(Needle.c_str(), ESearchCase::CaseSensitive, ESearchDir::FromEnd), ExpectedLast == std::u16string::npos ? INDEX_NONE : static_cast<int32>(ExpectedLast));

		// Left-to-right, non-overlapping replacement.
		std::u16string Replaced;
		int32 ExpectedCount = 0;
		for (size_t Position = 0; Position < Text.size();)
		{
			if (Text.compare(Position, Needle.size(), Needle) == 0)
			{
				Replaced += Replacement;
				Position += Needle.size();
				++ExpectedCount;
			}
			else
			{
				Replaced += Text[Position++];
			}
		}
		FString Copy = Subject;
		EXPECT_EQ(Copy.ReplaceInline(Needle.c_str(), Replacement.c_str(), ESearchCase::CaseSensitive), ExpectedCount);
		EXPECT_TRUE(Copy.Equals(FString(static_cast<int32>(Replaced.size()), Replaced.data())));

		// Splitting without culling gives one more piece than there are delimiters, for non-empty text.
		TArray<FString> Pieces;
		Subject.ParseIntoArray(Pieces, Needle.c_str(), false);
		EXPECT_TRUE(FString::Join(Pieces, Needle.c_str()).Equals(Subject));
		if (!Text.empty())
		{
			EXPECT_EQ(Pieces.Num(), ExpectedCount + 1);
		}
	}
}

TEST(StringModelTest, NumericPrintfMatchesTheCLibrary)
{
	std::mt19937 Random(13);
	const char* const Formats[] = {"%d", "%5d", "%-6d|", "%05d", "%+d", "%x", "%08X", "%u", "%.3f", "%10.2f", "%e", "%g", "%-12.4e|"};
	for (int32 Round = 0; Round < 2000; ++Round)
	{
		const char* Format = Formats[Random() % UE_ARRAY_COUNT(Formats)];
		const std::string FormatText(Format);
		char Expected[128];
		FString Actual;
		const FString WideFormat(Format);
		if (FormatText.find_first_of("feg") != std::string::npos)
		{
			const double Value = (static_cast<double>(Random()) - 2147483648.0) / 997.0;
			std::snprintf(Expected, sizeof(Expected), Format, Value);
			Actual = UE::Core::Private::FormatPrintf(*WideFormat, std::array{UE::Core::Private::MakePrintfArg(Value)}.data(), 1);
		}
		else
		{
			const int32 Value = static_cast<int32>(Random());
			std::snprintf(Expected, sizeof(Expected), Format, Value);
			Actual = UE::Core::Private::FormatPrintf(*WideFormat, std::array{UE::Core::Private::MakePrintfArg(Value)}.data(), 1);
		}
		ASSERT_EQ(Actual, FString(Expected)) << "format " << Format;
	}
}
