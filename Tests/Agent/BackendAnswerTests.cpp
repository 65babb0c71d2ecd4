#include "AgentTestFixture.h"

#include "HttpModule.h"

TEST_F(FAgentTest, AnswersToThePostAreJudgedByTheirDocument)
{
	FTavrineInterface::Get().InitialRequest(TEXT("Go"));
	AnswerCommand(FString());
	EXPECT_EQ(ToUtf8(LastChat()), " [ Cancelled ]\n\nRequest Failed\n");
	FTavrineInterface::Get().InitialRequest(TEXT("Go"));
	AnswerCommand(TEXT("[\"request_id\"]"));
	EXPECT_EQ(ToUtf8(LastChat()), " [ Cancelled ]\n\nFailed to parse initial response\n");

	// The code alone decides nothing but 401 and 403: a document with a request id is an acceptance.
	FTavrineInterface::Get().InitialRequest(TEXT("Go"));
	AnswerCommand(TEXT("{\"request_id\": \"r-500\"}"), 500);
	EXPECT_EQ(FAgent::Get().GetState(), EAgentState::PollRequest);
	EXPECT_EQ(FHTTPAPI::Get().GetRequestId(), TEXT("r-500"));
}

TEST_F(FAgentTest, StatusAnswersEndPollingOnlyWhenFinal)
{
	FHTTPAPI& Api = FHTTPAPI::Get();
	FTavrineInterface::Get().InitialRequest(TEXT("Go"));
	Accept();
	for (const TCHAR* Content : { TEXT("not json"), TEXT("[1]"), TEXT("{\"state\": \"COMPLETED\"}"), TEXT("{\"status\": \"IN_PROGRESS\"}") })
	{
		AnswerStatus(Content);
	}
	Api.OnStatusComplete(nullptr, nullptr, false);
	EXPECT_TRUE(Api.IsPolling());

	// Final without what goes with it: polling stops, the agent stays where it is.
	AnswerStatus(TEXT("{\"status\": \"COMPLETED\", \"response\": null}"));
	EXPECT_FALSE(Api.IsPolling());
	Accept(TEXT("req-2"));
	AnswerStatus(TEXT("{\"status\": \"FAILED\"}"));
	EXPECT_FALSE(Api.IsPolling());
	EXPECT_EQ(FAgent::Get().GetState(), EAgentState::PollRequest);
	EXPECT_EQ(ToUtf8(LastChat()), "Sending request...");
}

TEST_F(FAgentTest, AnswerHandlerSkipsWhatItCannotUse)
{
	FAgent& Agent = FAgent::Get();
	FTavrineInterface::Get().InitialRequest(TEXT("Go"));
	FHTTPAPI::Get().OnResponse.Execute(nullptr);
	EXPECT_EQ(ToUtf8(LastChat()), " [ Cancelled ]\n\nFailed to parse API response\n");

	// Without a "response" array the handler stops after recording, in PollResponse.
	FTavrineInterface::Get().InitialRequest(TEXT("Go"));
	Accept();
	Complete(TEXT(R"({"auto_continue": true, "messages": [{"role": "user"}]})"));
	EXPECT_EQ(Agent.GetState(), EAgentState::PollResponse);
	EXPECT_EQ(Agent.GetMessages().Num(), 1);

	const int32 ChatBefore = Chat.Num();
	FHTTPAPI::Get().OnResponse.Execute(Parse(TEXT(R"({"auto_continue": null, "messages": "none", "response": [
		1, "text", null, {}, {"type": 5}, {"type": "text"}, {"type": "image", "text": "no"},
		{"type": "tool_use", "name": "finish", "id": "x"}]})")));
	// Nothing usable reaches the chat; the call waits, as calls do without auto_continue.
	EXPECT_EQ(Chat.Num(), ChatBefore);
	EXPECT_EQ(Agent.GetState(), EAgentState::AwaitingApproval);
	EXPECT_EQ(Agent.GetPendingToolUses().Num(), 1);
}

TEST_F(FAgentTest, AFinalAnswerToAnEarlierRequestsPollIsDropped)
{
	const auto PollOf = [](const FString& RequestId)
	{
		const FHttpRequestRef Poll = FHttpModule::Get().CreateRequest();
		Poll->SetURL(FHTTPAPI::MakeStatusUrl(RequestId));
		return FHttpRequestPtr(Poll);
	};
	const FString Answer = TEXT(R"({"status": "COMPLETED", "response": {"auto_continue": true, "response": [
		{"type": "tool_use", "name": "nope", "id": "a", "input": {}}]}})");

	FTavrineInterface::Get().InitialRequest(TEXT("Go"));
	Accept(TEXT("first"));
	AnswerStatus(Answer, PollOf(TEXT("first")));
	ASSERT_EQ(Sent.Last().Verb, TEXT("POST")) << "the tool's result goes out";
	Accept(TEXT("second"));
	const int32 SentBefore = Sent.Num();

	// A slower poll of the first request brings the same final answer again: its tool calls must not run twice.
	AnswerStatus(Answer, PollOf(TEXT("first")));
	EXPECT_EQ(Sent.Num(), SentBefore);
	EXPECT_TRUE(FHTTPAPI::Get().IsPolling());
	// Identifiers are compared as the backend wrote them.
	AnswerStatus(TEXT(R"({"status": "FAILED", "error": "x"})"), PollOf(TEXT("SECOND")));
	EXPECT_TRUE(FHTTPAPI::Get().IsPolling());
	AnswerStatus(TEXT(R"({"status": "FAILED", "error": "x"})"), PollOf(TEXT("second")));
	EXPECT_FALSE(FHTTPAPI::Get().IsPolling());
}
