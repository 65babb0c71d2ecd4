// Undo and redo of a whole conversation: its file changes played through the local backend, and its
// editor transactions on a Blueprint.

#include "FileToolsTest.h"

#include "Agent/BlueprintUtils.h"
#include "EdGraphSchema_K2.h"
#include "Editor.h"
#include "Editor/Transactor.h"
#include "Engine/Blueprint.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "ScopedTransaction.h"
#include "UObject/Package.h"
#include "UnrealEdModule.h"

namespace
{
	std::string ToolUse(const std::string& Name, const std::string& Id, const std::string& InputJson)
	{
		return R"({"type": "tool_use", "name": ")" + Name + R"(", "id": ")" + Id + R"(", "input": )" + InputJson + "}";
	}

	std::string Turn(const std::string& Blocks)
	{
		return R"({"response": {"auto_continue": true, "messages": [], "response": [)" + Blocks + "]}}";
	}

	/** The compile that follows an undo or redo leaves its result for the next request. */
	bool HasToolResult(const FString& ToolUseId)
	{
		return FAgent::Get().GetToolResults().ContainsByPredicate([&ToolUseId](const TSharedPtr<FJsonValue>& Result)
		{
			return Result.IsValid() && Result->AsObject().IsValid() && Result->AsObject()->GetStringField(TEXT("tool_use_id")) == ToolUseId;
		});
	}
}

class UndoTest : public FileToolsTest
{
protected:
	void SetUp() override
	{
		FileToolsTest::SetUp();
		ASSERT_NE(FUnrealEdModule::StartEditorEngine(), nullptr);
		GEditor->ResetTransaction(FText::FromString(TEXT("Test")));
		FAgent::Get().SetUndoConversationId(FString());
		FAgent::Get().SetRedoConversationId(FString());
	}

	/** The file's text without the UTF-8 mark that a rewrite puts in front. */
	static std::string TextOf(const std::string& Relative)
	{
		const std::string Bytes = ReadText(Relative);
		return Bytes.rfind("\xEF\xBB\xBF", 0) == 0 ? Bytes.substr(3) : Bytes;
	}
};

TEST_F(UndoTest, UndoRestoresEveryFileOfTheConversationAndRedoPutsTheLastStateBack)
{
	std::filesystem::remove_all(Project() / "Undo");
	WriteText("Undo/Kept.txt", "original\n");
	WriteText("Undo/Old.h", "// old\n");
	// One file under three spellings, one created and edited, one edited and deleted, and the deletion of a
	// file that isn't there.
	UseScenario(R"({"turns": [)" + Turn(
		ToolUse("update_file", "u1", R"({"path": "Undo/Kept.txt", "old_string": "original", "new_string": "second"})") + ", " +
		ToolUse("create_file", "u2", R"({"path": ")" + Full("Undo/Kept.txt") + R"(", "file_text": "third\n"})") + ", " +
		ToolUse("insert_into_file", "u3", R"({"path": "Undo/./../Undo/Kept.txt", "insert_line": "1", "new_string": "fourth"})") + ", " +
		ToolUse("create_cpp_file", "u4", R"({"filepath": "Undo", "filename": "New.h", "contents": "// new\n"})") + ", " +
		ToolUse("update_file", "u4b", R"({"path": ")" + Full("Undo/New.h") + R"(", "old_string": "new", "new_string": "newer"})") + ", " +
		ToolUse("update_file", "u5", R"({"path": "Undo/Old.h", "old_string": "old", "new_string": "older"})") + ", " +
		ToolUse("delete_file", "u5b", R"({"path": ")" + Full("Undo/Old.h") + R"("})") + ", " +
		ToolUse("delete_file", "u6", R"({"path": "Undo/Ghost.h"})") + ", " +
		ToolUse("finish", "u7", "{}")) + ", " + Turn(R"({"type": "text", "text": "Changed."})") + "]}");

	Facade().InitialRequest(TEXT("Change the files"));
	ASSERT_TRUE(RunUntilChat(" [ Tavrine ] \n\nChanged.\n"));
	const std::string LastKept = TextOf("Undo/Kept.txt");
	EXPECT_EQ(LastKept, "third\nfourth\n");
	// Within the conversation its own files can't be undone yet.
	EXPECT_FALSE(Facade().CanUndo());
	const FString Conversation = FAgent::Get().GetConversationId();
	Facade().EndRequest(FString());
	ASSERT_TRUE(Facade().CanUndo());
	EXPECT_FALSE(Facade().CanRedo());

	Facade().UndoLastOperation();
	EXPECT_EQ(TextOf("Undo/Kept.txt"), "original\n");
	EXPECT_EQ(ReadText("Undo/Old.h"), "// old\n");
	EXPECT_EQ(ReadText("Undo/New.h"), "<missing>");
	EXPECT_EQ(ReadText("Undo/Ghost.h"), "<missing>");
	EXPECT_TRUE(FAgent::Get().GetUndoConversationId().IsEmpty());
	EXPECT_EQ(FAgent::Get().GetRedoConversationId(), Conversation);
	EXPECT_FALSE(Facade().CanUndo());
	EXPECT_TRUE(Facade().CanRedo());
	EXPECT_TRUE(RunUntil([]() { return HasToolResult(TEXT("Undo")); }));

	Facade().RedoLastOperation();
	EXPECT_EQ(TextOf("Undo/Kept.txt"), LastKept);
	EXPECT_EQ(TextOf("Undo/New.h"), "// newer\n");
	EXPECT_EQ(ReadText("Undo/Old.h"), "<missing>");
	EXPECT_EQ(ReadText("Undo/Ghost.h"), "<missing>");
	EXPECT_EQ(FAgent::Get().GetUndoConversationId(), Conversation);
	EXPECT_TRUE(Facade().CanUndo());
	EXPECT_FALSE(Facade().CanRedo());
	EXPECT_TRUE(RunUntil([]() { return HasToolResult(TEXT("Redo")); }));
	EXPECT_EQ(CountChat("Undoing Last Changes..."), 1);
	EXPECT_EQ(CountChat("Redoing Last Changes..."), 1);
	std::filesystem::remove_all(Project() / "Undo");
}

TEST_F(UndoTest, UndoOfAConversationThatChangedAFileAndABlueprintRestoresBoth)
{
	std::filesystem::remove_all(Project() / "Undo");
	std::filesystem::remove_all(Project() / "Content/UndoTest");
	WriteText("Undo/Kept.txt", "original\n");
	ASSERT_TRUE(FTavrineBlueprintUtils::CreateBlueprintAsset(TEXT("/Game/UndoTest"), TEXT("BP_Beacon"), TEXT("Actor")).StartsWith(TEXT("Success")));
	const FString Before = FTavrineBlueprintUtils::ReadBlueprint(TEXT("BP_Beacon"), TEXT("All"));
	const std::string Updates = R"({\"Variables\": {\"Brightness\": {\"Type\": {\"Category\": \"real\", \"SubCategory\": \"double\"}, \"Value\": \"2.5\"}}})";
	UseScenario(R"({"turns": [)" + Turn(
		ToolUse("update_file", "b1", R"({"path": "Undo/Kept.txt", "old_string": "original", "new_string": "changed"})") + ", " +
		ToolUse("modify_blueprint_variables", "b2", R"({"blueprint_name": "BP_Beacon", "updates": ")" + Updates + R"("})") + ", " +
		ToolUse("finish", "b3", "{}")) + ", " + Turn(R"({"type": "text", "text": "Changed both."})") + "]}");

	Facade().InitialRequest(TEXT("Change a file and a Blueprint"));
	ASSERT_TRUE(RunUntilChat(" [ Tavrine ] \n\nChanged both.\n"));
	const FString Modified = FTavrineBlueprintUtils::ReadBlueprint(TEXT("BP_Beacon"), TEXT("All"));
	ASSERT_NE(Modified.Find(TEXT("Brightness")), INDEX_NONE) << TCHAR_TO_UTF8(*Modified);
	Facade().EndRequest(FString());
	ASSERT_TRUE(Facade().CanUndo());

	Facade().UndoLastOperation();
	EXPECT_EQ(TextOf("Undo/Kept.txt"), "original\n");
	EXPECT_EQ(FTavrineBlueprintUtils::ReadBlueprint(TEXT("BP_Beacon"), TEXT("All")), Before);
	EXPECT_TRUE(RunUntil([]() { return HasToolResult(TEXT("Undo")); }));
	// The Blueprint's changes were undone in the editor, which has no way forward: no redo.
	EXPECT_FALSE(Facade().CanUndo());
	EXPECT_FALSE(Facade().CanRedo());
	std::filesystem::remove_all(Project() / "Undo");
	std::filesystem::remove_all(Project() / "Content/UndoTest");
}

TEST_F(UndoTest, UndoTakesBackEveryTransactionOfTheConversationAndSavesTheBlueprintsItLeftDirty)
{
	ASSERT_TRUE(FTavrineBlueprintUtils::CreateBlueprintAsset(TEXT("/Game/UndoTest"), TEXT("BP_Lamp"), TEXT("Actor")).StartsWith(TEXT("Success")));
	UBlueprint* Lamp = FTavrineBlueprintUtils::GetBlueprintFromtBlueprintName(TEXT("BP_Lamp"));
	ASSERT_NE(Lamp, nullptr);
	FEdGraphPinType BoolType;
	BoolType.PinCategory = UEdGraphSchema_K2::PC_Boolean;
	const auto AddVariable = [Lamp, &BoolType](const FString& Title, const TCHAR* Name)
	{
		FScopedTransaction Transaction(FText::FromString(Title));
		FBlueprintEditorUtils::AddMemberVariable(Lamp, FName(Name), BoolType);
	};
	const auto VariableNames = [Lamp]()
	{
		TArray<FName> Names;
		for (const FBPVariableDescription& Variable : Lamp->NewVariables)
		{
			Names.Add(Variable.VarName);
		}
		return Names;
	};
	const FString Conversation = TEXT("0123456789abcdef0123456789abcdef");
	AddVariable(TEXT("Add a switch"), TEXT("bMine"));
	FTavrineBlueprintUtils::SaveBlueprint(Lamp);
	AddVariable(FAgent::MakeTransactionName(Conversation), TEXT("bRed"));
	AddVariable(FAgent::MakeTransactionName(Conversation).ToUpper(), TEXT("bBright"));
	FAgent::Get().SetUndoConversationId(Conversation);

	EXPECT_FALSE(Facade().UndoUntilLastTransactionByName(TEXT("Tavrine Transaction other")));
	EXPECT_EQ(VariableNames().Num(), 3);
	// The conversation changed no file, yet its transactions make it undoable.
	ASSERT_TRUE(Facade().CanUndo());
	Facade().UndoLastOperation();

	// Both transactions of the conversation are undone; the user's own change before them stays.
	EXPECT_EQ(VariableNames(), TArray<FName>{ FName(TEXT("bMine")) });
	EXPECT_TRUE(GEditor->Trans->CanUndo(nullptr));
	// Undone editor changes have no way forward, so the conversation can't be redone.
	EXPECT_TRUE(FAgent::Get().GetRedoConversationId().IsEmpty());
	EXPECT_FALSE(Facade().CanUndo());
	EXPECT_FALSE(Facade().CanRedo());
	// The Blueprint the undo changed is saved as it now stands.
	EXPECT_FALSE(Lamp->GetOutermost()->IsDirty());
	EXPECT_TRUE(RunUntil([]() { return HasToolResult(TEXT("Undo")); }));
	// Nothing of that title is left to undo.
	EXPECT_FALSE(Facade().UndoUntilLastTransactionByName(FAgent::MakeTransactionName(Conversation)));
	EXPECT_EQ(VariableNames().Num(), 1);
	std::filesystem::remove_all(Project() / "Content/UndoTest");
}
