// The forgiving string replacement: line ends, tabs, encodings, counts and every failure text.
#include "Agent/FileUtils.h"
#include "FilesTestFixture.h"

using FUpdateFileTest = FFilesTest;

namespace
{
	struct FUpdate
	{
		FString Result;
		FString Original;
		FString Updated;
	};

	FUpdate Update(const FString& Path, const FString& OldString, const FString& NewString)
	{
		FUpdate Outcome;
		Outcome.Result = FFileUtils::UpdateFile(Path, OldString, NewString, Outcome.Original, Outcome.Updated);
		return Outcome;
	}
}

TEST_F(FUpdateFileTest, ForgivesLineEndsAndTabsWhileKeepingTheFileOwnHabits)
{
	// The model sends LF where the file has CR LF: the form with both adaptations matches, and the
	// file keeps CR LF everywhere outside the new text, which goes in as sent.
	WriteBytes(TEXT("CrLf.cpp"), "int A;\r\nint B;\r\nint C;\r\n");
	FUpdate Outcome = Update(TEXT("CrLf.cpp"), TEXT("int A;\nint B;"), TEXT("int X;\nint Y;"));
	EXPECT_EQ(Outcome.Result, TEXT("Successfully updated file: CrLf.cpp with 1 replacements"));
	EXPECT_EQ(ReadBytes(TEXT("CrLf.cpp")), Utf8Bom + "int X;\nint Y;\r\nint C;\r\n");
	EXPECT_EQ(Outcome.Original, TEXT("int A;\r\nint B;\r\nint C;\r\n"));
	EXPECT_EQ(Outcome.Updated, TEXT("int X;\nint Y;\r\nint C;\r\n"));

	// Four spaces sent, tabs in the file: the indentation-adapting form matches.
	WriteBytes(TEXT("Tabs.cpp"), "{\n\tif (A)\n\t{\n\t\tRun();\n\t}\n}\n");
	Outcome = Update(TEXT("Tabs.cpp"), TEXT("    if (A)\n    {\n        Run();"), TEXT("\tif (B)\n\t{\n\t\tWalk();"));
	EXPECT_EQ(Outcome.Result, TEXT("Successfully updated file: Tabs.cpp with 1 replacements"));
	EXPECT_EQ(ReadBytes(TEXT("Tabs.cpp")), Utf8Bom + "{\n\tif (B)\n\t{\n\t\tWalk();\n\t}\n}\n");

	// The adapted forms are tried in a fixed order, first match wins: both adaptations, then line ends
	// alone, then indentation alone. Each file below holds text that a later form would match too.
	WriteBytes(TEXT("OrderBoth.cpp"), "A\r\n    B\r\nA\r\n\tB\r\n");
	EXPECT_EQ(Update(TEXT("OrderBoth.cpp"), TEXT("A\n    B"), TEXT("Z")).Result, TEXT("Successfully updated file: OrderBoth.cpp with 1 replacements"));
	EXPECT_EQ(ReadBytes(TEXT("OrderBoth.cpp")), Utf8Bom + "A\r\n    B\r\nZ\r\n");
	WriteBytes(TEXT("OrderLineEnds.cpp"), "X\n\tY\r\nX\r\n    Y\r\n");
	EXPECT_EQ(Update(TEXT("OrderLineEnds.cpp"), TEXT("X\n    Y"), TEXT("Z")).Result, TEXT("Successfully updated file: OrderLineEnds.cpp with 1 replacements"));
	EXPECT_EQ(ReadBytes(TEXT("OrderLineEnds.cpp")), Utf8Bom + "X\n\tY\r\nZ\r\n");

	// CR LF already in the sent text meets a CR LF file whose indentation differs: the two forms that
	// adapt line ends double the CR and match nothing, so the indentation-only form is the one that works.
	WriteBytes(TEXT("Doubled.cpp"), "\tA();\r\n\tB();\r\n");
	Outcome = Update(TEXT("Doubled.cpp"), TEXT("    A();\r\n    B();"), TEXT("C();"));
	EXPECT_EQ(Outcome.Result, TEXT("Successfully updated file: Doubled.cpp with 1 replacements"));
	EXPECT_EQ(ReadBytes(TEXT("Doubled.cpp")), Utf8Bom + "C();\r\n");
}

TEST_F(FUpdateFileTest, ReplacesEveryExactOccurrenceAndCountsThem)
{
	WriteBytes(TEXT("Many.txt"), "x = 1; x = 1; x = 1;\nx = 1; x = 1;");
	FUpdate Outcome = Update(TEXT("Many.txt"), TEXT("x = 1;"), TEXT("y = 2;"));
	EXPECT_EQ(Outcome.Result, TEXT("Successfully updated file: Many.txt with 5 replacements"));
	EXPECT_EQ(ReadBytes(TEXT("Many.txt")), Utf8Bom + "y = 2; y = 2; y = 2;\ny = 2; y = 2;");

	// An exact match wins even when an adapted form would match more.
	WriteBytes(TEXT("Exact.txt"), "a\nb\r\na\r\nb");
	EXPECT_EQ(Update(TEXT("Exact.txt"), TEXT("a\nb"), TEXT("c")).Result, TEXT("Successfully updated file: Exact.txt with 1 replacements"));
	EXPECT_EQ(ReadBytes(TEXT("Exact.txt")), Utf8Bom + "c\r\na\r\nb");
}

TEST_F(FUpdateFileTest, FailuresLeaveTheFileAsItWasAndSayWhy)
{
	const std::string Text = "Hello World\r\nsecond\nthird\n";
	WriteBytes(TEXT("Mixed.txt"), Text);

	// Letter case counts.
	FUpdate Outcome = Update(TEXT("Mixed.txt"), TEXT("hello world"), TEXT("x"));
	EXPECT_EQ(Outcome.Result, TEXT("Error: String not found in file: Mixed.txt"));
	EXPECT_EQ(Outcome.Original, TEXT("Hello World\r\nsecond\nthird\n"));
	EXPECT_TRUE(Outcome.Updated.IsEmpty());

	// Mixed line ends: the normalised copies match, but no form matches the real text.
	Outcome = Update(TEXT("Mixed.txt"), TEXT("Hello World\nsecond\r\nthird"), TEXT("x"));
	EXPECT_EQ(Outcome.Result, TEXT("Error: No replacements made in file: Mixed.txt"));
	EXPECT_EQ(Outcome.Original, TEXT("Hello World\r\nsecond\nthird\n"));
	EXPECT_EQ(Outcome.Updated, Outcome.Original);

	// An empty string is found nowhere.
	EXPECT_TRUE(Update(TEXT("Mixed.txt"), FString(), TEXT("x")).Result.StartsWith(TEXT("Error: ")));
	EXPECT_EQ(ReadBytes(TEXT("Mixed.txt")), Text);

	Outcome = Update(TEXT("Gone.txt"), TEXT("a"), TEXT("b"));
	EXPECT_EQ(Outcome.Result, TEXT("Error: File does not exist: Gone.txt"));
	EXPECT_TRUE(Outcome.Original.IsEmpty());
}

TEST_F(FUpdateFileTest, NonAsciiTextSurvivesFromUtf16AndUtf8Files)
{
	const FString Before = TEXT("// Grüße \u4e16\u754c \U0001F600\r\nconst char* Name = \"\u00c5ngstr\u00f6m\";\r\n");
	const FString Expected = TEXT("// Grüße \u4e16\u754c \U0001F600\r\nconst char* Name = \"\u00e9t\u00e9\";\r\n");
	const std::string ExpectedUtf8 = Utf8Bom + Utf8(Expected);

	// UTF-16 little-endian with its mark, as the editor writes non-ASCII files.
	WriteBytes(TEXT("Utf16.h"), Utf16LeBom + Utf16LeBytes(Before));
	EXPECT_EQ(Update(TEXT("Utf16.h"), TEXT("\"\u00c5ngstr\u00f6m\""), TEXT("\"\u00e9t\u00e9\"")).Result, TEXT("Successfully updated file: Utf16.h with 1 replacements"));
	EXPECT_EQ(ReadBytes(TEXT("Utf16.h")), ExpectedUtf8);

	// UTF-8 without a mark comes back as UTF-8 with one, characters intact.
	WriteBytes(TEXT("Utf8.h"), Utf8(Before));
	EXPECT_EQ(Update(TEXT("Utf8.h"), TEXT("\u00c5ngstr\u00f6m"), TEXT("\u00e9t\u00e9")).Result, TEXT("Successfully updated file: Utf8.h with 1 replacements"));
	EXPECT_EQ(ReadBytes(TEXT("Utf8.h")), ExpectedUtf8);
	EXPECT_EQ(FFileUtils::ReadFile(TEXT("Utf8.h")), Expected);
}
