// The project tree: its filters and exclusions, the text form, the deferred form and the flat lists.

#include "FileToolsTest.h"

#include "Agent/FileUtils.h"
#include "Misc/StandInEngineLoop.h"

namespace
{
	TArray<FString> Strings(std::initializer_list<const char*> Items)
	{
		TArray<FString> Result;
		for (const char* Item : Items)
		{
			Result.Add(Utf8ToFString(Item));
		}
		return Result;
	}

	// What the settings' default filters keep of the tree case below.
	const std::string DefaultTree = "{Game.uproject:#,Plugins:{Sub:{Dir:{Deep.h:#}}},RebuildTools:{Tool.py:#},SavedGames:{Slot.ini:#},Source:{Game:{Game.cpp:#,Game.h:#}}}";
}

class ProjectTreeTest : public FileToolsTest
{
protected:
	void SetUp() override
	{
		FileToolsTest::SetUp();
		std::filesystem::remove_all(Project() / "TreeCase");
		for (const char* File : { "Game.uproject", "README", "Source/Game/Game.cpp", "Source/Game/Game.h", "Source/Game/Notes.txt", "saved/Config.ini",
			"SavedGames/Slot.ini", "Docs/Only.txt", "Binaries/Tool.cpp", "Plugins/Sub/Dir/Deep.h", "RebuildTools/Tool.py", "Engine/Eng.h" })
		{
			WriteText(std::string("TreeCase/") + File, "x");
		}
		std::filesystem::create_directories(Project() / "TreeCase/Source/Empty");
	}

	static FString TreeCase(const char* Below = "")
	{
		return FPaths::ProjectDir() + TEXT("TreeCase") + Utf8ToFString(Below);
	}
};

TEST_F(ProjectTreeTest, FiltersAndExclusions)
{
	const TArray<FString> Extensions = Strings({ "CPP", "h", "ini", "uproject", "py" });
	// Entries with blanks, backslashes and slashes work as bare names; one with an inner slash matches nothing.
	const TArray<FString> Excluded = Strings({ " \\Saved\\ ", "/Binaries/", "Sub/Dir", "engine" });
	const TSet<FName> NoPatterns;

	const TSharedPtr<FJsonObject> Tree = FFileUtils::BuildJsonTree(TreeCase(), Extensions, Excluded, NoPatterns);
	EXPECT_EQ(Canonical(Tree), DefaultTree);

	// Files stand before directories.
	bool bSeenDirectory = false;
	for (const auto& Pair : Tree->Values)
	{
		const bool bIsDirectory = Pair.Value->Type == EJson::Object;
		EXPECT_FALSE(bSeenDirectory && !bIsDirectory) << FStringToUtf8(Pair.Key) << " comes after a directory";
		bSeenDirectory |= bIsDirectory;
	}

	TArray<FString> WithBareFiles = Extensions;
	WithBareFiles.Add(FString());
	EXPECT_NE(Canonical(FFileUtils::BuildJsonTree(TreeCase(), WithBareFiles, Excluded, NoPatterns)).find("README:#"), std::string::npos);

	EXPECT_EQ(Canonical(FFileUtils::BuildJsonTree(TreeCase(), TArray<FString>(), Excluded, NoPatterns)), "{}");
	EXPECT_EQ(Canonical(FFileUtils::BuildJsonTree(TreeCase("/saved"), Extensions, Excluded, NoPatterns)), "{}");
	EXPECT_EQ(Canonical(FFileUtils::BuildJsonTree(TreeCase("/NotThere"), Extensions, Excluded, NoPatterns)), "{}");
	// Parts above the directory count too.
	EXPECT_EQ(Canonical(FFileUtils::BuildJsonTree(TreeCase("/SavedGames"), Extensions, Strings({ "TreeCase" }), NoPatterns)), "{}");
}

TEST_F(ProjectTreeTest, TextFormFollowsTheSettingsAndServesTheTool)
{
	const std::string Text = FStringToUtf8(FFileUtils::GetSubDirectoryStructureAsJsonObject(TreeCase()));
	EXPECT_EQ(Canonical(Text), DefaultTree);
	EXPECT_EQ(Text.find_first_of("\r\n\t "), std::string::npos) << "the condensed form: " << Text;

	EXPECT_EQ(Run("get_filesystem_tree", R"({"dir_path": "TreeCase"})"), Text);
	EXPECT_EQ(Run("get_filesystem_tree", R"({"dir_path": "TreeCase/saved"})"), "{}");

	UTavrineSettings* Settings = GetMutableDefault<UTavrineSettings>();
	const TArray<FString> Saved = Settings->SupportedFileExtensions;
	Settings->SupportedFileExtensions.Add(TEXT("TXT"));
	const std::string WithText = Canonical(FStringToUtf8(FFileUtils::GetSubDirectoryStructureAsJsonObject(TreeCase())));
	Settings->SupportedFileExtensions = Saved;
	EXPECT_NE(WithText.find("Docs:{Only.txt:#}"), std::string::npos) << WithText;
	EXPECT_NE(WithText.find("Notes.txt:#"), std::string::npos) << WithText;
}

TEST_F(ProjectTreeTest, DeferredFormAnswersInALaterTask)
{
	std::vector<std::string> Answers;
	FFileUtils::GetSubDirectoryStructureAsJsonObjectAsync(TreeCase(), TDelegate<void(const FString&)>::CreateLambda([&Answers](const FString& Text)
	{
		Answers.push_back(FStringToUtf8(Text));
	}));
	// A delegate whose owner is gone by then is skipped.
	TSharedPtr<std::vector<std::string>> Gone = MakeShared<std::vector<std::string>>();
	FFileUtils::GetSubDirectoryStructureAsJsonObjectAsync(TreeCase(), TDelegate<void(const FString&)>::CreateSPLambda(Gone.ToSharedRef(), [](const FString&)
	{
		ADD_FAILURE() << "an unbound delegate was called";
	}));
	Gone.Reset();
	EXPECT_TRUE(Answers.empty());

	// The first turn builds the tree, the second delivers it.
	FStandInEngineLoop::Tick(0.0f);
	EXPECT_TRUE(Answers.empty());
	FStandInEngineLoop::Tick(0.0f);
	ASSERT_EQ(Answers.size(), 1u);
	EXPECT_EQ(Canonical(Answers[0]), DefaultTree);

	FAgent::Get().SetState(EAgentState::Indexing);
	EXPECT_EQ(State(), EAgentState::Indexing);
	FStandInEngineLoop::Tick(0.0f);
	FStandInEngineLoop::Tick(0.0f);
	EXPECT_EQ(State(), EAgentState::Idle);
}

TEST_F(ProjectTreeTest, FlatListsKeepTheirOwnFilters)
{
	// Word tests by substring: "saved", "SavedGames", "RebuildTools" and "Engine" are all left out.
	const TArray<FString> List = FFileUtils::GetDirectoryStructureAsList(TreeCase());
	ASSERT_EQ(List.Num(), 4);
	EXPECT_EQ(FStringToUtf8(List[0]), "TreeCase/Game.uproject");
	std::vector<std::string> Sorted;
	for (const FString& Entry : List)
	{
		Sorted.push_back(FStringToUtf8(Entry));
	}
	std::sort(Sorted.begin(), Sorted.end());
	EXPECT_EQ(Sorted, (std::vector<std::string> { "TreeCase/Game.uproject", "TreeCase/Plugins/Sub/Dir/Deep.h", "TreeCase/Source/Game/Game.cpp", "TreeCase/Source/Game/Game.h" }));
	EXPECT_TRUE(FFileUtils::GetDirectoryStructureAsList(FPaths::GetPath(FPaths::GetPath(FPaths::ProjectDir()))).IsEmpty());

	// Sorted without regard to case, in the pretty form.
	WriteText("apple.ini", "x");
	const FString Text = FFileUtils::GetProjectStructureAsJsonList();
	std::filesystem::remove(Project() / "apple.ini");
	EXPECT_TRUE(Text.StartsWith(TEXT("[\r\n\t\"apple.ini\",\r\n\t\"Config/DefaultPlugin.ini\""), ESearchCase::CaseSensitive)) << FStringToUtf8(Text);
	TArray<TSharedPtr<FJsonValue>> Values;
	ASSERT_TRUE(FJsonSerializer::Deserialize(TJsonReaderFactory<>::Create(Text), Values));
	for (int32 Index = 1; Index < Values.Num(); ++Index)
	{
		EXPECT_LT(Values[Index - 1]->AsString().Compare(Values[Index]->AsString(), ESearchCase::IgnoreCase), 0);
	}
	EXPECT_EQ(FStringToUtf8(Values.Last()->AsString()), "TreeCase/Source/Game/Game.h");
}
