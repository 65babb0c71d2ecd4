// A conversation on the local backend that creates, updates, inserts into, reads and deletes files.

#include "FileToolsTest.h"

#include <map>
#include <set>

namespace
{
	std::string LoadScenarioText()
	{
		std::ifstream In(FILE_TOOLS_SCENARIO, std::ios::binary);
		std::ostringstream Text;
		Text << In.rdbuf();
		return Text.str();
	}

	/** Tool use id to (content, is_error) of every result that went back. */
	std::map<std::string, std::pair<std::string, bool>> ResultsOf(const std::vector<FRecordedRequest>& Posts)
	{
		std::map<std::string, std::pair<std::string, bool>> Results;
		for (const FRecordedRequest& Post : Posts)
		{
			const rapidjson::Document Body = ParseBody(Post);
			const auto Found = Body.FindMember("tool_results");
			if (Found == Body.MemberEnd())
			{
				continue;
			}
			for (const rapidjson::Value& Result : Found->value.GetArray())
			{
				Results[Result["tool_use_id"].GetString()] = { Result["content"].GetString(), Result["is_error"].GetBool() };
			}
		}
		return Results;
	}
}

TEST_F(FileToolsTest, ConversationChangesTheProjectAndReportsEachTool)
{
	std::filesystem::remove_all(Project() / "Source");
	std::filesystem::create_directories(Project() / "Source");
	UseScenario(LoadScenarioText());

	Facade().InitialRequest(TEXT("Add a greeting"));
	ASSERT_TRUE(RunUntilChat(" [ Tavrine ] \n\nThe greeting is in place.\n"));
	EXPECT_EQ(State(), EAgentState::AwaitingUpdate);

	const std::string HeaderText = "#pragma once\n\nconst char* Greeting();\n";
	const std::string SourceText = "#include \"Greeting.h\"\n\nconst char* Greeting()\n{\n\treturn \"Hello\";\n}\n";
	const std::string UpdatedSource = "#include \"Greeting.h\"\n\nconst char* Greeting()\n{\n\treturn \"Hello, Tavrine\";\n}\n";
	const std::string HeaderOnDisk = ReadText("Source/Game/Greeting.h");
	EXPECT_NE(HeaderOnDisk.find("#pragma once"), std::string::npos);
	EXPECT_NE(HeaderOnDisk.find("// Says hello."), std::string::npos);
	EXPECT_LT(HeaderOnDisk.find("#pragma once"), HeaderOnDisk.find("// Says hello."));
	EXPECT_EQ(ReadText("Source/Game/Greeting.cpp"), "<missing>");

	const std::vector<FRecordedRequest> Posts = Commands();
	ASSERT_EQ(Posts.size(), 4u);
	// The first request carries the tree as it was then: the empty Source folder is left out.
	const rapidjson::Document First = ParseBody(Posts[0]);
	ASSERT_TRUE(First.HasMember("file_structure") && First["file_structure"].IsObject());
	EXPECT_TRUE(First["file_structure"].HasMember("EndToEnd.uproject"));
	EXPECT_TRUE(First["file_structure"]["Config"].HasMember("DefaultPlugin.ini"));
	EXPECT_FALSE(First["file_structure"].HasMember("Source"));

	const std::map<std::string, std::pair<std::string, bool>> Results = ResultsOf(Posts);
	const std::map<std::string, std::pair<std::string, bool>> Expected =
	{
		{ "toolu_f1", { "File created successfully: " + Full("Source/Game/Greeting.h"), false } },
		{ "toolu_f2", { "File created successfully: Source/Game/Greeting.cpp", false } },
		{ "toolu_f4", { "Successfully updated file: Source/Game/Greeting.cpp with 1 replacements", false } },
		{ "toolu_f5", { "Successfully inserted text at line 1 in file: Source/Game/Greeting.h", false } },
		{ "toolu_f6", { HeaderOnDisk, false } },
		{ "toolu_f7", { "\treturn \"Hello, Tavrine\";\n}", false } },
		{ "toolu_f8", { "Successfully deleted file: Source/Game/Greeting.cpp", false } },
		{ "toolu_f9", { "Error: File not found", true } },
		{ "toolu_f10", { "Finished", false } },
	};
	for (const auto& [Id, Result] : Expected)
	{
		ASSERT_TRUE(Results.count(Id)) << Id;
		EXPECT_EQ(Results.at(Id), Result) << Id;
	}
	EXPECT_EQ(Canonical(Results.at("toolu_f3").first), "{Game:{Greeting.cpp:#,Greeting.h:#}}");

	std::vector<std::string> ToolStatus;
	const std::set<std::string> ToolLines = { "Creating File...", "Creating File ...", "Updating File Content...", "Inserting content into file...", "Reading File...", "Deleting File..." };
	for (const std::string& Line : ChatTexts())
	{
		if (ToolLines.count(Line))
		{
			ToolStatus.push_back(Line);
		}
	}
	EXPECT_EQ(ToolStatus, (std::vector<std::string> { "Creating File...", "Creating File ...", "Updating File Content...", "Inserting content into file...",
		"Reading File...", "Reading File...", "Deleting File...", "Deleting File...", "Reading File..." }));

	const std::vector<FDiffLine> ExpectedDiffs =
	{
		{ "Source/Game/Greeting.h", "", HeaderText },
		{ "Source/Game/Greeting.cpp", "", SourceText },
		{ "Source/Game/Greeting.cpp", SourceText, UpdatedSource },
		{ "Source/Game/Greeting.h", HeaderText, HeaderOnDisk },
		{ "Source/Game/Greeting.cpp", UpdatedSource, "" },
	};
	EXPECT_EQ(Diffs, ExpectedDiffs);

	// Both files can be undone as creations: the first kept state of a file wins.
	EXPECT_EQ(UndoKind(Full("Source/Game/Greeting.h")), EFileActionType::Creation);
	EXPECT_EQ(UndoKind("Source/Game/Greeting.cpp"), EFileActionType::Creation);
	Facade().EndRequest(FString());
}
