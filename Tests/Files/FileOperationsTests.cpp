// Creating, reading, replacing, inserting into and deleting one file: result texts, paths and encodings.
#include "Agent/FileUtils.h"
#include "FilesTestFixture.h"

#include <filesystem>

using FFileOperationsTest = FFilesTest;

TEST_F(FFileOperationsTest, CreateMakesFoldersOverwritesChoosesTheEncodingAndReportsFailures)
{
	EXPECT_EQ(FFileUtils::CreateNewFileWithContent(TEXT("Source/Deep/Plain.h"), TEXT("#pragma once\n")), TEXT("File created successfully: Source/Deep/Plain.h"));
	// Every character fits one byte: no byte order mark.
	EXPECT_EQ(ReadBytes(TEXT("Source/Deep/Plain.h")), "#pragma once\n");
	// An existing file is overwritten; text beyond ASCII makes it UTF-16 with a mark.
	const FString Accented = TEXT("// Grüße, \u4e16\u754c\n");
	EXPECT_EQ(FFileUtils::CreateNewFileWithContent(ProjectPath(TEXT("Source/Deep/Plain.h")), Accented), TEXT("File created successfully: ") + ProjectPath(TEXT("Source/Deep/Plain.h")));
	EXPECT_EQ(ReadBytes(TEXT("Source/Deep/Plain.h")), Utf16LeBom + Utf16LeBytes(Accented));
	EXPECT_EQ(FFileUtils::ReadFile(TEXT("Source/Deep/Plain.h")), Accented);

	// A file where a folder should be: the full directory is named. A folder where the file should be: the path as given.
	WriteBytes(TEXT("Blocker"), "x");
	EXPECT_EQ(FFileUtils::CreateNewFileWithContent(TEXT("Blocker/Sub/New.txt"), TEXT("text")), TEXT("Error: Failed to create directory: ") + ProjectPath(TEXT("Blocker/Sub")));
	std::filesystem::create_directories(Utf8(ProjectPath(TEXT("Taken.txt"))));
	EXPECT_EQ(FFileUtils::CreateNewFileWithContent(TEXT("Taken.txt"), TEXT("text")), TEXT("Error: Failed to create file: Taken.txt"));
}

TEST_F(FFileOperationsTest, ReadsGiveTheTextUnchangedAndLineRangesClampAndReportTheClampedValues)
{
	WriteBytes(TEXT("Five.txt"), "one\r\ntwo\r\nthree\nfour\nfive\n");
	WriteBytes(TEXT("Empty.txt"), "");
	EXPECT_EQ(FFileUtils::ReadFile(TEXT("Five.txt")), TEXT("one\r\ntwo\r\nthree\nfour\nfive\n"));
	EXPECT_EQ(FFileUtils::ReadFile(TEXT("Missing.txt")), TEXT("Error: File does not exist: ") + ProjectPath(TEXT("Missing.txt")));
	EXPECT_EQ(FFileUtils::ReadFileLineRange(TEXT("Missing.txt"), 1, 2), TEXT("Error: File does not exist: ") + ProjectPath(TEXT("Missing.txt")));

	const FString Invalid = TEXT("Error: Invalid line range for file: ");
	const struct
	{
		const TCHAR* File;
		int32 Start;
		int32 End;
		FString Expected;
	} Cases[] = {
		{TEXT("Five.txt"), 2, 3, TEXT("two\nthree")},
		{TEXT("Five.txt"), 0, 1, TEXT("one")},
		{TEXT("Five.txt"), 4, 99, TEXT("four\nfive")},
		{TEXT("Five.txt"), 3, -1, TEXT("three\nfour\nfive")},
		{TEXT("Five.txt"), 1, 0, Invalid + TEXT("Five.txt (StartLine: 1, EndLine: 0, Total Lines: 5)")},
		{TEXT("Five.txt"), 4, 2, Invalid + TEXT("Five.txt (StartLine: 4, EndLine: 2, Total Lines: 5)")},
		// Past the end, the end shown is the clamped one: the number of lines.
		{TEXT("Five.txt"), 9, 12, Invalid + TEXT("Five.txt (StartLine: 9, EndLine: 5, Total Lines: 5)")},
		// Only -1 means "to the end"; another negative end is kept.
		{TEXT("Five.txt"), 1, -2, Invalid + TEXT("Five.txt (StartLine: 1, EndLine: -2, Total Lines: 5)")},
		// The extremes of the type are reported as given, not wrapped around.
		{TEXT("Five.txt"), 1, MIN_int32, Invalid + TEXT("Five.txt (StartLine: 1, EndLine: -2147483648, Total Lines: 5)")},
		{TEXT("Five.txt"), MAX_int32, MAX_int32, Invalid + TEXT("Five.txt (StartLine: 2147483647, EndLine: 5, Total Lines: 5)")},
		{TEXT("Empty.txt"), 1, -1, Invalid + TEXT("Empty.txt (StartLine: 1, EndLine: 0, Total Lines: 0)")},
	};
	for (const auto& Case : Cases)
	{
		EXPECT_EQ(FFileUtils::ReadFileLineRange(Case.File, Case.Start, Case.End), Case.Expected) << Utf8(Case.File) << " " << Case.Start << ".." << Case.End;
	}
}

TEST_F(FFileOperationsTest, ReplaceRewritesAsUtf8WithAMarkAndNeverCreates)
{
	WriteBytes(TEXT("Old.cpp"), Utf16LeBom + Utf16LeBytes(TEXT("old \u00e9")));
	EXPECT_EQ(FFileUtils::ReplaceFile(TEXT("Old.cpp"), TEXT("new \u00e8\nplain")), TEXT("Successfully replaced file: Old.cpp"));
	EXPECT_EQ(ReadBytes(TEXT("Old.cpp")), Utf8Bom + "new \xC3\xA8\nplain");
	// Pure ASCII gets the mark too.
	FFileUtils::ReplaceFile(TEXT("Old.cpp"), TEXT("ascii"));
	EXPECT_EQ(ReadBytes(TEXT("Old.cpp")), Utf8Bom + "ascii");

	EXPECT_EQ(FFileUtils::ReplaceFile(TEXT("None.cpp"), TEXT("x")), TEXT("Error: File does not exist: ") + ProjectPath(TEXT("None.cpp")));
	EXPECT_FALSE(Exists(TEXT("None.cpp")));
	// A read-only file can't be deleted, so it isn't rewritten either.
	WriteBytes(TEXT("Locked.txt"), "keep");
	MakeReadOnly(TEXT("Locked.txt"));
	EXPECT_EQ(FFileUtils::ReplaceFile(TEXT("Locked.txt"), TEXT("lost")), TEXT("Error: Failed to delete existing file: ") + ProjectPath(TEXT("Locked.txt")));
	EXPECT_EQ(ReadBytes(TEXT("Locked.txt")), "keep");
}

TEST_F(FFileOperationsTest, LineRewritesClampTheirLineAndUseThePlatformLineEnds)
{
	WriteBytes(TEXT("Three.txt"), "a\r\nb\r\nc");
	EXPECT_EQ(FFileUtils::InsertIntoFile(TEXT("Three.txt"), 1000, TEXT("last")), TEXT("Successfully inserted text at line 3 in file: Three.txt"));
	EXPECT_EQ(FFileUtils::InsertIntoFile(TEXT("Three.txt"), -4, TEXT("first")), TEXT("Successfully inserted text at line 0 in file: Three.txt"));
	// A text with line ends stays one element and is written as it stands.
	EXPECT_EQ(FFileUtils::InsertIntoFile(TEXT("Three.txt"), 2, TEXT("x\r\ny")), TEXT("Successfully inserted text at line 2 in file: Three.txt"));
	EXPECT_EQ(ReadBytes(TEXT("Three.txt")), "first\na\nx\r\ny\nb\nc\nlast\n");
	EXPECT_EQ(FFileUtils::InsertIntoFile(TEXT("Nope.txt"), 0, TEXT("x")), TEXT("Error: File does not exist: Nope.txt"));

	// Out-of-range line numbers change nothing; a valid one rewrites the file, choosing the encoding again.
	FFileUtils::ReplaceLineInFile(TEXT("Three.txt"), 0, TEXT("bad"));
	FFileUtils::ReplaceLineInFile(TEXT("Three.txt"), 9, TEXT("bad"));
	EXPECT_EQ(ReadBytes(TEXT("Three.txt")), "first\na\nx\r\ny\nb\nc\nlast\n");
	FFileUtils::ReplaceLineInFile(TEXT("Three.txt"), 2, TEXT("\u00fc"));
	EXPECT_EQ(ReadBytes(TEXT("Three.txt")), Utf16LeBom + Utf16LeBytes(TEXT("first\n\u00fc\nx\ny\nb\nc\nlast\n")));
}

TEST_F(FFileOperationsTest, DeleteReportsWithThePathAsGiven)
{
	WriteBytes(TEXT("Doomed.txt"), "bye");
	EXPECT_EQ(FFileUtils::DeleteFile(TEXT("Doomed.txt")), TEXT("Successfully deleted file: Doomed.txt"));
	EXPECT_FALSE(Exists(TEXT("Doomed.txt")));
	EXPECT_EQ(FFileUtils::DeleteFile(TEXT("Doomed.txt")), TEXT("Error: File does not exist at path: Doomed.txt"));
	WriteBytes(TEXT("Locked.txt"), "keep");
	MakeReadOnly(TEXT("Locked.txt"));
	EXPECT_EQ(FFileUtils::DeleteFile(TEXT("Locked.txt")), TEXT("Error: Failed to delete file: Locked.txt"));
	EXPECT_TRUE(Exists(TEXT("Locked.txt")));
	// Without source control each step says so, and nothing else is logged.
	EXPECT_EQ(Log.Lines, TArray<FString>({TEXT("Warning: Source control is not available"), TEXT("Warning: Source control is not available"), TEXT("Warning: Source control is not available")}));
}
