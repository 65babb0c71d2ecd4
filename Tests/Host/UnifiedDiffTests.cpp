#include "UnifiedDiff.h"

#include <gtest/gtest.h>

#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace
{
	std::vector<std::string> Lines(const std::string& Text)
	{
		std::vector<std::string> Out;
		std::istringstream Stream(Text);
		for (std::string Line; std::getline(Stream, Line);)
		{
			Out.push_back(Line);
		}
		return Out;
	}

	std::string Join(const std::vector<std::string>& Lines)
	{
		std::string Out;
		for (const std::string& Line : Lines)
		{
			Out += Line + "\n";
		}
		return Out;
	}

	// Applies a unified diff the way patch(1) would, checking every header count and context line
	// against the old text, so a diff that only looks right fails here.
	std::vector<std::string> ApplyDiff(const std::vector<std::string>& Old, const std::string& Diff)
	{
		const std::vector<std::string> DiffLines = Lines(Diff);
		std::vector<std::string> New;
		size_t OldIndex = 0;
		size_t Line = 2;
		while (Line < DiffLines.size())
		{
			int OldStart = 0, OldCount = 0, NewStart = 0, NewCount = 0;
			EXPECT_EQ(std::sscanf(DiffLines[Line].c_str(), "@@ -%d,%d +%d,%d @@", &OldStart, &OldCount, &NewStart, &NewCount), 4) << DiffLines[Line];
			++Line;
			// A hunk without old lines names the line before it.
			const size_t HunkOld = OldCount == 0 ? static_cast<size_t>(OldStart) : static_cast<size_t>(OldStart - 1);
			EXPECT_GE(HunkOld, OldIndex) << "hunks overlap or go backwards";
			while (OldIndex < HunkOld)
			{
				New.push_back(Old[OldIndex++]);
			}
			EXPECT_EQ(static_cast<int>(New.size()), NewCount == 0 ? NewStart : NewStart - 1) << "new start of hunk";
			int SeenOld = 0, SeenNew = 0;
			while (Line < DiffLines.size() && DiffLines[Line].rfind("@@", 0) != 0)
			{
				const std::string& Entry = DiffLines[Line++];
				const char Kind = Entry.empty() ? '?' : Entry[0];
				const std::string Text = Entry.substr(1);
				if (Kind == ' ' || Kind == '-')
				{
					EXPECT_LT(OldIndex, Old.size());
					EXPECT_EQ(Old[OldIndex], Text) << "context or removed line differs from the old text";
					++OldIndex;
					++SeenOld;
				}
				if (Kind == ' ' || Kind == '+')
				{
					New.push_back(Text);
					++SeenNew;
				}
				EXPECT_TRUE(Kind == ' ' || Kind == '-' || Kind == '+') << Entry;
			}
			EXPECT_EQ(SeenOld, OldCount);
			EXPECT_EQ(SeenNew, NewCount);
		}
		while (OldIndex < Old.size())
		{
			New.push_back(Old[OldIndex++]);
		}
		return New;
	}

	int CountHunks(const std::string& Diff)
	{
		int Hunks = 0;
		for (const std::string& Line : Lines(Diff))
		{
			Hunks += Line.rfind("@@ ", 0) == 0 ? 1 : 0;
		}
		return Hunks;
	}
}

TEST(UnifiedDiff, CreationDeletionAndUnchangedTexts)
{
	EXPECT_EQ(MakeUnifiedDiff("A.h", "one\ntwo\n", "one\ntwo\n"), "");
	// Line ends are not a change worth showing: the editor's files keep whatever they had.
	EXPECT_EQ(MakeUnifiedDiff("A.h", "one\r\ntwo\r\n", "one\ntwo"), "");
	EXPECT_EQ(MakeUnifiedDiff("A.h", "", "one\ntwo\n"), "--- a/A.h\n+++ b/A.h\n@@ -0,0 +1,2 @@\n+one\n+two\n");
	EXPECT_EQ(MakeUnifiedDiff("A.h", "one\ntwo\n", ""), "--- a/A.h\n+++ b/A.h\n@@ -1,2 +0,0 @@\n-one\n-two\n");
}

TEST(UnifiedDiff, ChangesShareAHunkOnlyWhenTheirContextsTouch)
{
	std::vector<std::string> Old;
	for (int Index = 1; Index <= 40; ++Index)
	{
		Old.push_back("line " + std::to_string(Index));
	}
	std::vector<std::string> Near = Old;
	Near[9] = "changed 10";
	Near[16] = "changed 17"; // six unchanged lines between: the two contexts of three meet
	const std::string NearDiff = MakeUnifiedDiff("F.cpp", Join(Old), Join(Near));
	EXPECT_EQ(CountHunks(NearDiff), 1) << NearDiff;
	EXPECT_NE(NearDiff.find("@@ -7,14 +7,14 @@\n"), std::string::npos) << NearDiff;

	std::vector<std::string> Far = Near;
	Far[16] = Old[16];
	Far[17] = "changed 18"; // seven between: two hunks
	const std::string FarDiff = MakeUnifiedDiff("F.cpp", Join(Old), Join(Far));
	EXPECT_EQ(CountHunks(FarDiff), 2) << FarDiff;
	EXPECT_EQ(ApplyDiff(Old, FarDiff), Far);

	// A change at the very start or end has only the context there is.
	std::vector<std::string> Ends = Old;
	Ends.front() = "first";
	Ends.push_back("appended");
	const std::string EndsDiff = MakeUnifiedDiff("F.cpp", Join(Old), Join(Ends));
	EXPECT_NE(EndsDiff.find("@@ -1,4 +1,4 @@\n"), std::string::npos) << EndsDiff;
	EXPECT_NE(EndsDiff.find("@@ -38,3 +38,4 @@\n"), std::string::npos) << EndsDiff;
	EXPECT_EQ(ApplyDiff(Old, EndsDiff), Ends);
}

TEST(UnifiedDiff, RandomEditsApplyBackToTheNewText)
{
	// Small alphabets make many equal lines, which is where a shortest-edit search goes wrong.
	std::mt19937 Random(20261123);
	for (int Round = 0; Round < 300; ++Round)
	{
		std::uniform_int_distribution<int> Size(0, 60);
		std::uniform_int_distribution<int> Letter(0, Round % 2 == 0 ? 3 : 25);
		std::vector<std::string> Old;
		for (int Count = Size(Random); Count > 0; --Count)
		{
			Old.push_back(std::string(1, static_cast<char>('a' + Letter(Random))));
		}
		std::vector<std::string> New = Old;
		std::uniform_int_distribution<int> Edits(0, 8);
		for (int Edit = Edits(Random); Edit > 0; --Edit)
		{
			const size_t At = New.empty() ? 0 : Random() % (New.size() + 1);
			switch (Random() % 3)
			{
			case 0:
				New.insert(New.begin() + At, std::string(1, static_cast<char>('a' + Letter(Random))));
				break;
			case 1:
				if (At < New.size())
				{
					New.erase(New.begin() + At);
				}
				break;
			default:
				if (At < New.size())
				{
					New[At] = "x" + New[At];
				}
				break;
			}
		}
		const std::string Diff = MakeUnifiedDiff("R.txt", Join(Old), Join(New), 1 + Round % 3);
		if (Old == New)
		{
			EXPECT_EQ(Diff, "");
			continue;
		}
		ASSERT_EQ(Diff.rfind("--- a/R.txt\n+++ b/R.txt\n", 0), 0u);
		ASSERT_EQ(ApplyDiff(Old, Diff), New) << "round " << Round << "\n" << Diff;
	}
}

TEST(UnifiedDiff, LargeRewritesStayCorrect)
{
	// Every line differs: past the search's memory budget the diff falls back to out-all, in-all,
	// which must still apply.
	std::vector<std::string> Old, New;
	for (int Index = 0; Index < 6000; ++Index)
	{
		Old.push_back("old " + std::to_string(Index));
		New.push_back("new " + std::to_string(Index));
	}
	const std::string Diff = MakeUnifiedDiff("Big.cpp", Join(Old), Join(New));
	EXPECT_EQ(CountHunks(Diff), 1);
	EXPECT_EQ(ApplyDiff(Old, Diff), New);

	// One changed line in a large file is one small hunk.
	std::vector<std::string> OneChange = Old;
	OneChange[3000] = "changed";
	const std::string Small = MakeUnifiedDiff("Big.cpp", Join(Old), Join(OneChange));
	EXPECT_EQ(Small, "--- a/Big.cpp\n+++ b/Big.cpp\n@@ -2998,7 +2998,7 @@\n old 2997\n old 2998\n old 2999\n-old 3000\n+changed\n old 3001\n old 3002\n old 3003\n");
}
