#include "AgentTestFixture.h"

TEST_F(FAgentTest, DispatchAndToolResults)
{
	FAgent& Agent = FAgent::Get();
	FString Out;
	Agent.RunTool(Out, TEXT("finish"), TEXT("id"), nullptr);
	EXPECT_EQ(ToUtf8(Out), "Error: Invalid input");
	// Unknown tools answer with the name as it came.
	Agent.RunTool(Out, TEXT("Open_Portal"), TEXT("id"), MakeShared<FJsonObject>());
	EXPECT_EQ(ToUtf8(Out), "Error: Unknown tool 'Open_Portal'");
	EXPECT_EQ(Agent.GetState(), EAgentState::Idle);

	const TCHAR* Blocks[] =
	{
		TEXT(R"({"name": "FINISH", "id": "t1", "input": {}})"),
		TEXT(R"({"name": "nope", "id": "t2", "input": {"a": 1}})"),
		TEXT(R"({"name": "finish", "id": "t3"})"),
		TEXT(R"({"name": "finish", "id": "t4", "input": "x"})"),
		TEXT(R"({"name": "compile", "id": "t5", "input": {}})"),
	};
	for (const TCHAR* Block : Blocks)
	{
		Agent.RunToolUse(Parse(Block));
	}
	Agent.AbortToolUse(Parse(TEXT(R"({"name": "read_file", "id": "t6"})")));
	Agent.AbortToolUse(Parse(TEXT(R"({"name": "read_file", "id": "t7", "input": {}})")));
	Agent.RunToolUse(nullptr);

	// Blocks without an "input" object give no result; a compile reports later.
	const TArray<TSharedPtr<FJsonValue>>& Results = Agent.GetToolResults();
	ASSERT_EQ(Results.Num(), 3);
	EXPECT_EQ(Agent.GetState(), EAgentState::AwaitingUpdate);
	const TSharedPtr<FJsonObject> Finished = Results[0]->AsObject();
	EXPECT_EQ(KeysOf(Finished), (TArray<FString>{ TEXT("type"), TEXT("tool_use_id"), TEXT("content"), TEXT("is_error") }));
	EXPECT_EQ(ToUtf8(Finished->GetStringField(TEXT("type"))), "tool_result");
	EXPECT_EQ(ToUtf8(Finished->GetStringField(TEXT("content"))), "Finished");
	EXPECT_FALSE(Finished->GetBoolField(TEXT("is_error")));
	EXPECT_EQ(ToUtf8(Results[1]->AsObject()->GetStringField(TEXT("content"))), "Error: Unknown tool 'nope'");
	EXPECT_TRUE(Results[1]->AsObject()->GetBoolField(TEXT("is_error")));
	const TSharedPtr<FJsonObject> Aborted = Results[2]->AsObject();
	EXPECT_EQ(KeysOf(Aborted), (TArray<FString>{ TEXT("type"), TEXT("tool_use_id"), TEXT("content"), TEXT("is_abort") }));
	EXPECT_EQ(ToUtf8(Aborted->GetStringField(TEXT("tool_use_id"))), "t7");
	EXPECT_EQ(ToUtf8(Aborted->GetStringField(TEXT("content"))), "Abort: User added new input");
}
