// What the backend may do wrong, and what the user may do at the wrong moment.

#include "EndToEndFixture.h"

#include "API/HTTPAPI.h"

namespace
{
	std::string Cancelled(const std::string& Reason)
	{
		return " [ Cancelled ]\n\n" + Reason + "\n";
	}

	const std::string Processing = "Processing request...";

	// The key override bent for one case and restored whatever happens.
	class FScopedApiKey
	{
	public:
		explicit FScopedApiKey(const FString& Key)
			: Saved(ApiKeyOverride)
		{
			ApiKeyOverride = Key;
		}
		~FScopedApiKey()
		{
			ApiKeyOverride = Saved;
		}

	private:
		FString Saved;
	};
}

TEST_F(EndToEndTest, FailedStatusCancelsWithTheBackendsErrorAndStopsPolling)
{
	UseScenario(R"([ { "pending_polls": 1, "error": "Model overloaded" } ])");
	Facade().InitialRequest(TEXT("Hello"));
	ASSERT_TRUE(RunUntilChat(Cancelled("Request failed: Model overloaded")));
	EXPECT_EQ(State(), EAgentState::Idle);
	EXPECT_TRUE(FAgent::Get().GetConversationId().IsEmpty());
	RunFor(30.0);
	EXPECT_EQ(StatusPolls().size(), 2u);
	EXPECT_FALSE(FHTTPAPI::Get().IsPolling());
}

TEST_F(EndToEndTest, RejectedKeyAndForbiddenAnswerCancelWithTheKeyHint)
{
	const std::string KeyHint = Cancelled("Make sure you have a valid API key.");
	{
		FScopedApiKey WrongKey(TEXT("not-the-key"));
		UseScenario("[]");
		Facade().InitialRequest(TEXT("Hello"));
		ASSERT_TRUE(RunUntilChat(KeyHint));
		EXPECT_EQ(State(), EAgentState::Idle);
		const std::vector<FRecordedRequest> Posts = Commands();
		ASSERT_EQ(Posts.size(), 1u);
		EXPECT_EQ(Posts[0].GetHeader("x-api-key"), "not-the-key");
		EXPECT_EQ(Posts[0].ResponseCode, 401);
	}
	Chat.clear();
	UseScenario(R"([ { "command": { "code": 403 } } ])");
	Facade().InitialRequest(TEXT("Hello again"));
	ASSERT_TRUE(RunUntilChat(KeyHint));
	EXPECT_EQ(State(), EAgentState::Idle);
	RunFor(10.0);
	EXPECT_TRUE(StatusPolls().empty());
}

TEST_F(EndToEndTest, BrokenAcceptAnswersCancelWithTheirOwnReason)
{
	const struct
	{
		const char* Scenario;
		const char* Reason;
	} Cases[] = {
		{ R"([ { "command": { "code": 502, "body": "<html>Bad gateway</html>" } } ])", "Failed to parse initial response" },
		{ R"([ { "command": { "body": "{\"id\": \"req-9\", \"request\": \"req-9\"}" } } ])", "Failed to get request ID from response" },
		{ R"([ { "command": { "body": "" } } ])", "Request Failed" },
		{ R"([ { "command": { "close": true } } ])", "Request Failed" },
	};
	for (const auto& Case : Cases)
	{
		SCOPED_TRACE(Case.Scenario);
		Chat.clear();
		UseScenario(Case.Scenario);
		Facade().InitialRequest(TEXT("Hello"));
		ASSERT_TRUE(RunUntilChat(Cancelled(Case.Reason)));
		EXPECT_EQ(State(), EAgentState::Idle);
	}
	EXPECT_TRUE(StatusPolls().empty());

	// The code alone decides nothing: a 500 whose body holds an identifier is accepted.
	Chat.clear();
	UseScenario(R"([ { "command": { "code": 500 }, "response": { "auto_continue": true, "messages": [],
		"response": [ { "type": "text", "text": "Accepted anyway." } ] } } ])");
	Facade().InitialRequest(TEXT("Hello"));
	ASSERT_TRUE(RunUntilChat(" [ Tavrine ] \n\nAccepted anyway.\n"));
	EXPECT_EQ(State(), EAgentState::AwaitingUpdate);
}

TEST_F(EndToEndTest, ToolResultsWhoseConnectionDiesAreNeverSentTwice)
{
	// The polls of the first turn leave a kept-alive connection behind for the tool results to reuse.
	UseScenario(R"([
		{ "pending_polls": 2, "response": { "auto_continue": true, "messages": [], "response": [
			{ "type": "tool_use", "name": "no_such_tool", "id": "t1", "input": {} } ] } },
		{ "command": { "close": true } },
		{ "response": { "auto_continue": true, "messages": [], "response": [ { "type": "text", "text": "Answer to a copy." } ] } }
	])");
	Facade().InitialRequest(TEXT("Hello"));
	ASSERT_TRUE(RunUntilChat(Cancelled("Request Failed")));
	RunFor(10.0);
	const std::vector<FRecordedRequest> Posts = Commands();
	ASSERT_EQ(Posts.size(), 2u) << "the tool results went out again";
	EXPECT_EQ(Posts[1].ResponseCode, 0) << "closed without an answer";
	EXPECT_FALSE(HasChat(" [ Tavrine ] \n\nAnswer to a copy.\n"));
	EXPECT_EQ(State(), EAgentState::Idle);
}

TEST_F(EndToEndTest, LowerCaseCompletedEndsPollingLikeUpperCase)
{
	UseScenario(R"([ { "pending_polls": 1, "final_status": "completed",
		"response": { "auto_continue": true, "messages": [], "response": [ { "type": "text", "text": "Quietly done." } ] } } ])");
	Facade().InitialRequest(TEXT("Hello"));
	ASSERT_TRUE(RunUntilChat(" [ Tavrine ] \n\nQuietly done.\n"));
	EXPECT_EQ(State(), EAgentState::AwaitingUpdate);
	RunFor(30.0);
	EXPECT_EQ(StatusPolls().size(), 2u);
}

TEST_F(EndToEndTest, StatusAnswerArrivingAfterStopPollingIsDropped)
{
	UseScenario(R"([ { "response": { "auto_continue": true, "messages": [], "response": [ { "type": "text", "text": "Too late." } ] } } ])");
	Facade().InitialRequest(TEXT("Hello"));
	ASSERT_TRUE(RunUntil([]() { return State() == EAgentState::PollRequest; }));
	// Move on until the status request has gone out, but leave its answer on the way.
	for (int32 Turn = 0; Turn < 100 && !HasChat(Processing); ++Turn)
	{
		StepWithoutNetwork();
	}
	ASSERT_TRUE(HasChat(Processing));
	Facade().CancelRequest(TEXT("Stop"));
	EXPECT_EQ(State(), EAgentState::Idle);
	EXPECT_FALSE(FHTTPAPI::Get().IsPolling());

	RunFor(5.0);
	const std::vector<FRecordedRequest> Polls = StatusPolls();
	ASSERT_EQ(Polls.size(), 1u);
	EXPECT_EQ(Polls[0].ResponseCode, 200) << "the final status did come back";
	EXPECT_FALSE(HasChat(" [ Tavrine ] \n\nToo late.\n"));
	EXPECT_EQ(ChatTexts().back(), Cancelled("Stop"));
	EXPECT_EQ(State(), EAgentState::Idle);
}

TEST_F(EndToEndTest, CancelWhileTheCommandIsUnderWayLetsItStartPolling)
{
	UseScenario(R"([ { "pending_polls": 5, "response": { "auto_continue": true, "messages": [], "response": [] } } ])");
	Facade().InitialRequest(TEXT("Hello"));
	const FString ConversationId = FAgent::Get().GetConversationId();
	Facade().CancelRequest(TEXT("Changed my mind"));
	EXPECT_EQ(ChatTexts().back(), Cancelled("Changed my mind"));
	EXPECT_EQ(State(), EAgentState::Idle);
	EXPECT_TRUE(FAgent::Get().GetConversationId().IsEmpty());

	// The POST was not aborted: its identifier arrives and polling starts as ever.
	Step();
	ASSERT_EQ(Commands().size(), 1u);
	EXPECT_EQ(Commands()[0].GetHeader("conversation-id"), FStringToUtf8(ConversationId));
	EXPECT_EQ(State(), EAgentState::PollRequest);
	EXPECT_TRUE(FHTTPAPI::Get().IsPolling());
	ASSERT_TRUE(RunUntilChat(Processing));
	const std::vector<FRecordedRequest> Polls = StatusPolls();
	ASSERT_EQ(Polls.size(), 1u);
	EXPECT_EQ(Polls[0].Target, "/dev/status?request_id=req-1");
	// The cancel cleared the conversation; the header still goes out, empty.
	EXPECT_EQ(SentHeaders(Polls[0]), (std::vector<std::pair<std::string, std::string>> { { "x-api-key", EndToEndApiKey }, { "conversation-id", "" } }));
}
