// The file tools called one at a time: missing fields, read ranges, the search by name, undo data and diffs.

#include "FileToolsTest.h"

TEST_F(FileToolsTest, MissingFieldsAnswerBeforeAnyChange)
{
	struct FCase
	{
		const char* Tool;
		const char* Input;
		std::string Result;
		std::vector<std::string> Status;
	};
	const std::string Fields = "Error: Missing required fields";
	const std::string PathField = "Error: Missing required path field";
	const FCase Cases[] =
	{
		{ "create_file", R"({"path": "Made/A.txt"})", Fields, { "Creating File..." } },
		{ "create_cpp_file", R"({"filepath": "Source"})", Fields, {} },
		{ "create_cpp_file", R"({"filepath": "Source", "filename": "New.h"})", Fields, { "Creating File ..." } },
		{ "update_and_replace_cpp_file", R"({"filename": "New.h", "contents": ""})", Fields, { "Updating/Replacing File ..." } },
		{ "update_file", R"({"path": "Made/A.txt", "old_string": "a"})", "Error: Missing required fields. Need path, old_string, and new_string.", { "Updating File Content..." } },
		{ "insert_into_file", R"({"path": "Made/A.txt", "new_string": "a"})", "Error: Missing required fields. Need path, insert_line, and new_string.", { "Inserting content into file..." } },
		{ "insert_into_file", R"({"path": "Made/A.txt", "insert_line": "-2", "new_string": "a"})", "Error: insert_line must be a non-negative integer.", { "Inserting content into file..." } },
		{ "delete_file", R"({"file": "Made/A.txt"})", PathField, { "Deleting File..." } },
		{ "delete_cpp_file", R"({"filepath": "Made"})", Fields, { "Deleting File..." } },
		{ "read_file", R"({"view_range": [1, 2]})", PathField, { "Reading File..." } },
		{ "get_filesystem_tree", R"({"path": "Source"})", "Error: Missing dir_path field", {} },
	};
	for (const FCase& Case : Cases)
	{
		Chat.clear();
		EXPECT_EQ(Run(Case.Tool, Case.Input), Case.Result) << Case.Tool << " " << Case.Input;
		EXPECT_EQ(ChatTexts(), Case.Status) << Case.Tool << " " << Case.Input;
	}
	EXPECT_TRUE(Diffs.empty());
	EXPECT_TRUE(FFileHistory::Get().GetFileHistories().IsEmpty());
	EXPECT_EQ(ReadText("Made/A.txt"), "<missing>");
}

TEST_F(FileToolsTest, ReadRangesAndSearchByName)
{
	WriteText("Notes.txt", "L1\nL2\r\nL3\nL4\nL5\nL6\n");
	WriteText("Source/Widget.h", "first widget\n");
	WriteText("Source/Deep/Widget.h", "second widget\n");
	const std::string Whole = ReadText("Notes.txt");

	// A pair is kept as it stands, out of order included; anything else reads the whole file.
	EXPECT_EQ(Run("read_file", R"({"path": "Notes.txt", "view_range": [5, 2]})"), "Error: Invalid line range for file: Notes.txt (StartLine: 5, EndLine: 2, Total Lines: 6)");
	EXPECT_EQ(Run("read_file", R"({"path": "Notes.txt", "view_range": [3, -1]})"), "L3\nL4\nL5\nL6");
	EXPECT_EQ(Run("read_file", R"({"path": "Notes.txt", "view_range": [1.9, 2.7]})"), "L1\nL2");
	EXPECT_EQ(Run("read_file", R"({"path": "Notes.txt", "view_range": [5, 1e12]})"), "L5\nL6") << "an end past any line reads to the end";
	for (const char* Range : { "[0, 5]", "[1, 0]", "[1, -2]", "[1, 2, 3]", "[2]", "\"1-2\"" })
	{
		EXPECT_EQ(Run("read_file", (std::string(R"({"path": "Notes.txt", "view_range": )") + Range + "}").c_str()), Whole) << Range;
	}

	// Not under the project root: the first file of that name under Source, its own folder's files first.
	EXPECT_EQ(Run("read_file", R"({"path": "Widget.h"})"), "first widget\n");
	EXPECT_EQ(Run("read_file", R"({"path": "Elsewhere/Widget.h", "view_range": [1, 1]})"), "first widget");
	EXPECT_EQ(Run("read_file", R"({"path": "Source/Nowhere.h"})"), "Error: File not found");
	EXPECT_TRUE(Diffs.empty());
}

TEST_F(FileToolsTest, ChangesKeepUndoDataFirstAndShowDiffsOfSuccessesOnly)
{
	std::filesystem::remove_all(Project() / "Made");

	// A path without a file name writes nothing and keeps nothing.
	EXPECT_EQ(Run("create_file", R"({"path": "Made/Folder/", "file_text": "x"})"), "Error: The provided path must include a filename");
	EXPECT_FALSE(std::filesystem::exists(Project() / "Made"));

	EXPECT_EQ(Run("create_file", R"({"path": "Made/One.txt", "file_text": "one\n"})"), "File created successfully: " + Full("Made/One.txt"));
	EXPECT_EQ(UndoKind(Full("Made/One.txt")), EFileActionType::Creation);
	EXPECT_EQ(Run("create_file", R"({"path": "Made/One.txt", "file_text": "uno\n"})"), "Successfully replaced file: " + Full("Made/One.txt"));
	EXPECT_EQ(ReadText("Made/One.txt"), "\xEF\xBB\xBFuno\n");

	// An existing C++ file is replaced, so what is kept is a version.
	WriteText("Made/Two.h", "int A = 1;\n");
	Chat.clear();
	EXPECT_EQ(Run("create_cpp_file", R"({"filepath": "Made", "filename": "Two.h", "contents": "int A = 2;\n"})"), "Successfully replaced file: Made/Two.h");
	EXPECT_EQ(ChatTexts(), std::vector<std::string> { "Updating/Replacing File ..." });
	EXPECT_EQ(UndoKind("Made/Two.h"), EFileActionType::Modification);

	EXPECT_EQ(Run("update_file", R"({"path": "Made/Gone.h", "old_string": "a", "new_string": "b"})"), "Error: File does not exist: " + Full("Made/Gone.h"));
	EXPECT_EQ(UndoKind("Made/Gone.h"), EFileActionType::None);
	WriteText("Made/Three.h", "int B = 1;\n");
	EXPECT_EQ(Run("update_file", R"({"path": "Made/Three.h", "old_string": "C = 1", "new_string": "C = 2"})"), "Error: String not found in file: Made/Three.h");
	EXPECT_EQ(UndoKind("Made/Three.h"), EFileActionType::Modification) << "the undo data stays after a failed change";
	EXPECT_EQ(Run("update_file", R"({"path": "Made/Three.h", "old_string": "B = 1", "new_string": "B = 2"})"), "Successfully updated file: Made/Three.h with 1 replacements");
	// The line number may come as a number; it is read as text.
	EXPECT_EQ(Run("insert_into_file", R"({"path": "Made/Three.h", "insert_line": 0, "new_string": "#pragma once"})"), "Successfully inserted text at line 0 in file: Made/Three.h");
	const std::string AfterInsert = ReadText("Made/Three.h");

	Chat.clear();
	EXPECT_EQ(Run("delete_cpp_file", R"({"filepath": "Made", "filename": "Gone.h"})"), "Error: File does not exist at path: Made/Gone.h");
	EXPECT_EQ(ChatTexts(), (std::vector<std::string> { "Deleting File...", "Deleting File..." }));
	EXPECT_EQ(UndoKind("Made/Gone.h"), EFileActionType::None) << "a missing file has no text to keep";
	EXPECT_EQ(Run("delete_file", R"({"path": "Made/One.txt"})"), "Successfully deleted file: Made/One.txt");
	// Made in this conversation under its full path and deleted under a relative one: one file, one history.
	EXPECT_EQ(UndoKind("Made/One.txt"), EFileActionType::Creation);
	EXPECT_FALSE(std::filesystem::exists(Project() / "Made/One.txt"));

	const std::vector<FDiffLine> Expected =
	{
		{ "Made/One.txt", "", "one\n" },
		{ "Made/One.txt", "one\n", "uno\n" },
		{ "Made/Two.h", "int A = 1;\n", "int A = 2;\n" },
		{ "Made/Three.h", "int B = 1;\n", "int B = 2;\n" },
		{ "Made/Three.h", "int B = 2;\n", AfterInsert.substr(AfterInsert.rfind("#pragma once")) },
		{ "Made/One.txt", "uno\n", "" },
	};
	EXPECT_EQ(Diffs, Expected);
}
