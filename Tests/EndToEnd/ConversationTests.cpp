// Whole turns of the agent against the local backend: bodies, headers and chat lines.

#include "EndToEndFixture.h"

#include "Misc/App.h"

#include <regex>

namespace
{
	std::string StringField(const rapidjson::Value& Object, const char* Key)
	{
		const auto Found = Object.FindMember(Key);
		if (Found == Object.MemberEnd() || !Found->value.IsString())
		{
			ADD_FAILURE() << "no string \"" << Key << "\"";
			return std::string();
		}
		return std::string(Found->value.GetString(), Found->value.GetStringLength());
	}

	bool BoolField(const rapidjson::Value& Object, const char* Key)
	{
		const auto Found = Object.FindMember(Key);
		if (Found == Object.MemberEnd() || !Found->value.IsBool())
		{
			ADD_FAILURE() << "no Boolean \"" << Key << "\"";
			return false;
		}
		return Found->value.GetBool();
	}

	const rapidjson::Value& ToolResults(const rapidjson::Document& Body)
	{
		static const rapidjson::Value Empty(rapidjson::kArrayType);
		const auto Found = Body.FindMember("tool_results");
		if (Found == Body.MemberEnd() || !Found->value.IsArray())
		{
			ADD_FAILURE() << "no \"tool_results\" array";
			return Empty;
		}
		return Found->value;
	}

	void ExpectToolResult(const rapidjson::Value& Result, const std::string& Id, const std::string& Content, bool bIsError)
	{
		EXPECT_EQ(JsonKeys(Result), (std::vector<std::string> { "type", "tool_use_id", "content", "is_error" }));
		EXPECT_EQ(StringField(Result, "type"), "tool_result");
		EXPECT_EQ(StringField(Result, "tool_use_id"), Id);
		EXPECT_EQ(StringField(Result, "content"), Content);
		EXPECT_EQ(BoolField(Result, "is_error"), bIsError);
	}

	void ExpectAbortResult(const rapidjson::Value& Result, const std::string& Id)
	{
		EXPECT_EQ(JsonKeys(Result), (std::vector<std::string> { "type", "tool_use_id", "content", "is_abort" }));
		EXPECT_EQ(StringField(Result, "tool_use_id"), Id);
		EXPECT_EQ(StringField(Result, "content"), "Abort: User added new input");
		EXPECT_TRUE(BoolField(Result, "is_abort"));
	}

	const std::string UserStart(const std::string& Text) { return " [ User Start ]\n\n" + Text + "\n"; }
	const std::string User(const std::string& Text) { return " [ User ]\n\n" + Text + "\n"; }
	const std::string Tavrine(const std::string& Text) { return " [ Tavrine ] \n\n" + Text + "\n"; }
	const std::string Sending = "Sending request...";
	const std::string Processing = "Processing request...";
	const std::string Pausing = "Pausing request...";
}

TEST_F(EndToEndTest, WholeConversationWithToolResultFinishContinueAndEnd)
{
	UseScenario(R"([
		{ "pending_polls": 1, "response": { "auto_continue": true, "messages": [ { "role": "user", "content": "Hello" } ],
			"response": [ { "type": "text", "text": "Let me look." },
				{ "type": "tool_use", "name": "open_portal", "id": "toolu_1", "input": { "where": "here" } } ] } },
		{ "response": { "auto_continue": true, "messages": [],
			"response": [ { "type": "text", "text": "All done." }, { "type": "tool_use", "name": "finish", "id": "toolu_2", "input": { "summary": "done" } } ] } },
		{ "response": { "auto_continue": true, "messages": [], "response": [ { "type": "text", "text": "Anything else?" } ] } },
		{ "response": { "auto_continue": true, "messages": [], "response": [ { "type": "TEXT", "text": "Renamed it." } ] } }
	])");

	Facade().InitialRequest(TEXT("Hello"));
	ASSERT_TRUE(RunUntilChat(Tavrine("Anything else?")));
	EXPECT_EQ(State(), EAgentState::AwaitingUpdate);
	const FString ConversationId = FAgent::Get().GetConversationId();
	EXPECT_TRUE(std::regex_match(FStringToUtf8(ConversationId), std::regex("[0-9A-Fa-f]{32}"))) << FStringToUtf8(ConversationId);

	Facade().Continue(TEXT("Now rename it"));
	ASSERT_TRUE(RunUntilChat(Tavrine("Renamed it.")));
	EXPECT_EQ(State(), EAgentState::AwaitingUpdate);
	Facade().EndRequest(FString());
	EXPECT_EQ(State(), EAgentState::Idle);
	EXPECT_TRUE(FAgent::Get().GetConversationId().IsEmpty());

	const std::vector<std::string> ExpectedChat {
		UserStart("Hello"), Sending, Processing, Processing, Tavrine("Let me look."),
		Sending, Processing, Tavrine("All done."),
		Sending, Processing, Tavrine("Anything else?"),
		User("Now rename it"), Sending, Processing, Tavrine("Renamed it."),
		" [ User End ]",
	};
	EXPECT_EQ(ChatTexts(), ExpectedChat);
	ASSERT_EQ(Chat.size(), ExpectedChat.size());
	EXPECT_EQ(Chat[0].Color, FTavrineInterface::UserColor);
	EXPECT_EQ(Chat[0].FontName, FTavrineInterface::RegularFontName);
	EXPECT_EQ(Chat[0].FontSize, 10.0f);
	EXPECT_EQ(Chat[1].Color, FTavrineInterface::MessageColor);
	EXPECT_EQ(Chat[1].FontName, FTavrineInterface::ItalicFontName);
	EXPECT_EQ(Chat[1].FontSize, 8.0f);
	EXPECT_EQ(Chat[4].Color, FTavrineInterface::TavrineColor);
	EXPECT_EQ(Chat[4].FontName, FTavrineInterface::BoldFontName);
	EXPECT_EQ(Chat[4].FontSize, 10.0f);

	const std::vector<FRecordedRequest> Posts = Commands();
	ASSERT_EQ(Posts.size(), 4u);
	const std::vector<std::pair<std::string, std::string>> ExpectedHeaders {
		{ "Content-Type", "application/json" },
		{ "x-api-key", EndToEndApiKey },
		{ "conversation-id", FStringToUtf8(ConversationId) },
		{ "engine", FStringToUtf8(FApp::GetBranchName()) },
		{ "engine-version", "5.5" },
	};
	for (const FRecordedRequest& Post : Posts)
	{
		EXPECT_EQ(Post.Target, "/dev/command");
		EXPECT_EQ(SentHeaders(Post), ExpectedHeaders);
	}

	const rapidjson::Document First = ParseBody(Posts[0]);
	const std::vector<std::string> FirstKeys = JsonKeys(First);
	ASSERT_FALSE(FirstKeys.empty());
	EXPECT_EQ(FirstKeys.front(), "message");
	EXPECT_EQ(FirstKeys.back(), "is_confirmation_mode");
	EXPECT_EQ(StringField(First, "message"), "Hello");
	EXPECT_FALSE(BoolField(First, "is_confirmation_mode"));

	const rapidjson::Document AfterTool = ParseBody(Posts[1]);
	EXPECT_EQ(JsonKeys(AfterTool), std::vector<std::string> { "tool_results" }) << "implementer mode sends no was_confirmed";
	ASSERT_EQ(ToolResults(AfterTool).Size(), 1u);
	ExpectToolResult(ToolResults(AfterTool)[0], "toolu_1", "Error: Unknown tool 'open_portal'", true);

	const rapidjson::Document AfterFinish = ParseBody(Posts[2]);
	ASSERT_EQ(ToolResults(AfterFinish).Size(), 1u);
	ExpectToolResult(ToolResults(AfterFinish)[0], "toolu_2", "Finished", false);

	const rapidjson::Document Continued = ParseBody(Posts[3]);
	EXPECT_EQ(JsonKeys(Continued), (std::vector<std::string> { "message", "was_confirmed" }));
	EXPECT_EQ(StringField(Continued, "message"), "Now rename it");
	EXPECT_TRUE(BoolField(Continued, "was_confirmed"));

	// Each accepted command is polled by its own identifier until its final status, and no longer.
	std::vector<std::string> PolledTargets;
	for (const FRecordedRequest& Poll : StatusPolls())
	{
		PolledTargets.push_back(Poll.Target);
		EXPECT_EQ(SentHeaders(Poll), (std::vector<std::pair<std::string, std::string>> {
			{ "x-api-key", EndToEndApiKey }, { "conversation-id", FStringToUtf8(ConversationId) } }));
	}
	EXPECT_EQ(PolledTargets, (std::vector<std::string> { "/dev/status?request_id=req-1", "/dev/status?request_id=req-1",
		"/dev/status?request_id=req-2", "/dev/status?request_id=req-3", "/dev/status?request_id=req-4" }));
	EXPECT_EQ(FAgent::Get().GetMessages().Num(), 5) << "one recorded message, then the assistant's content of each answer";
}

TEST_F(EndToEndTest, TwoToolCallsOfOneAnswerGoOutInOneBodyInTheirOrder)
{
	UseScenario(R"([
		{ "response": { "auto_continue": true, "messages": [], "response": [
			{ "type": "tool_use", "name": "first_tool", "id": "a", "input": { "path": "a.txt" } },
			{ "type": "tool_use", "name": "Second_Tool", "id": "b", "input": { "path": "b.txt" } } ] } },
		{ "response": { "auto_continue": true, "messages": [], "response": [ { "type": "text", "text": "Both seen." } ] } }
	])");

	Facade().InitialRequest(TEXT("Do two things"));
	ASSERT_TRUE(RunUntilChat(Tavrine("Both seen.")));
	EXPECT_EQ(State(), EAgentState::AwaitingUpdate);

	const std::vector<FRecordedRequest> Posts = Commands();
	ASSERT_EQ(Posts.size(), 2u);
	const rapidjson::Document Results = ParseBody(Posts[1]);
	ASSERT_EQ(ToolResults(Results).Size(), 2u);
	ExpectToolResult(ToolResults(Results)[0], "a", "Error: Unknown tool 'first_tool'", true);
	ExpectToolResult(ToolResults(Results)[1], "b", "Error: Unknown tool 'Second_Tool'", true);
}

TEST_F(EndToEndTest, PauseWhilePollingStoresToolCallsAndEmptyContinueRunsThem)
{
	UseScenario(R"([
		{ "pending_polls": 2, "response": { "auto_continue": true, "messages": [], "response": [
			{ "type": "text", "text": "Working on it." },
			{ "type": "tool_use", "name": "slow_tool", "id": "p1", "input": { "n": 1 } } ] } },
		{ "response": { "auto_continue": true, "messages": [], "response": [ { "type": "text", "text": "Resumed fine." } ] } }
	])");

	Facade().InitialRequest(TEXT("Start something long"));
	ASSERT_TRUE(RunUntil([]() { return State() == EAgentState::PollRequest; }));
	Facade().PauseRequest();
	EXPECT_EQ(ChatTexts().back(), Pausing);
	ASSERT_TRUE(RunUntil([]() { return State() == EAgentState::Pause; }));
	EXPECT_EQ(ChatTexts(), (std::vector<std::string> { UserStart("Start something long"), Sending, Pausing, Pausing, Pausing, Pausing,
		Tavrine("Working on it."), User("The process has been paused.") }));
	EXPECT_EQ(FAgent::Get().GetPendingToolUses().Num(), 1);
	RunFor(30.0);
	EXPECT_EQ(Commands().size(), 1u) << "a paused answer's tool calls must wait";

	Chat.clear();
	Facade().Continue(FString());
	ASSERT_TRUE(RunUntilChat(Tavrine("Resumed fine.")));
	EXPECT_EQ(ChatTexts(), (std::vector<std::string> { User("The process has been resumed."), Sending, Processing, Tavrine("Resumed fine.") }));
	EXPECT_EQ(State(), EAgentState::AwaitingUpdate);
	EXPECT_EQ(FAgent::Get().GetPendingToolUses().Num(), 0);

	const std::vector<FRecordedRequest> Posts = Commands();
	ASSERT_EQ(Posts.size(), 2u);
	const rapidjson::Document Resumed = ParseBody(Posts[1]);
	EXPECT_EQ(JsonKeys(Resumed), (std::vector<std::string> { "message", "tool_results", "was_confirmed" }));
	EXPECT_EQ(StringField(Resumed, "message"), "");
	EXPECT_TRUE(BoolField(Resumed, "was_confirmed"));
	ASSERT_EQ(ToolResults(Resumed).Size(), 1u);
	ExpectToolResult(ToolResults(Resumed)[0], "p1", "Error: Unknown tool 'slow_tool'", true);
}

TEST_F(EndToEndTest, ExplainerModeWaitsForApprovalAndContinueWithTextAbortsTheCalls)
{
	SetMode(ETavrineMode::ExplainerMode);
	UseScenario(R"([
		{ "response": { "auto_continue": false, "messages": [], "response": [
			{ "type": "text", "text": "I would change two files." },
			{ "type": "tool_use", "name": "update_file", "id": "e1", "input": { "path": "A.cpp" } },
			{ "type": "tool_use", "name": "delete_file", "id": "e2", "input": { "path": "B.cpp" } } ] } },
		{ "response": { "auto_continue": false, "messages": [], "response": [ { "type": "text", "text": "Understood." } ] } }
	])");

	Facade().InitialRequest(TEXT("Explain first"));
	ASSERT_TRUE(RunUntil([]() { return State() == EAgentState::AwaitingApproval; }));
	RunFor(30.0);
	EXPECT_EQ(State(), EAgentState::AwaitingApproval);
	ASSERT_EQ(Commands().size(), 1u) << "nothing runs before the user decides";
	EXPECT_TRUE(BoolField(ParseBody(Commands()[0]), "is_confirmation_mode"));
	Facade().Approve();
	EXPECT_EQ(State(), EAgentState::Approved);
	EXPECT_EQ(Commands().size(), 1u);

	Facade().Continue(TEXT("No, do this instead"));
	ASSERT_TRUE(RunUntilChat(Tavrine("Understood.")));
	EXPECT_EQ(State(), EAgentState::AwaitingApproval) << "a text answer with auto_continue false in explainer mode";
	EXPECT_TRUE(HasChat(User("No, do this instead")));

	const std::vector<FRecordedRequest> Posts = Commands();
	ASSERT_EQ(Posts.size(), 2u);
	const rapidjson::Document Aborted = ParseBody(Posts[1]);
	EXPECT_EQ(JsonKeys(Aborted), (std::vector<std::string> { "message", "tool_results", "was_confirmed" }));
	EXPECT_EQ(StringField(Aborted, "message"), "No, do this instead");
	EXPECT_TRUE(BoolField(Aborted, "was_confirmed"));
	ASSERT_EQ(ToolResults(Aborted).Size(), 2u);
	ExpectAbortResult(ToolResults(Aborted)[0], "e1");
	ExpectAbortResult(ToolResults(Aborted)[1], "e2");

	Facade().EndRequest(TEXT("Bye"));
	EXPECT_EQ(ChatTexts().back(), " [ User End ]\n\nBye");
	EXPECT_EQ(State(), EAgentState::Idle);
}

TEST_F(EndToEndTest, AwkwardTextStaysValidJsonInEveryBodyForm)
{
	const std::string Awkward = "Say \"hi\" to C:\\Users\\me\tnow\nnext line\r\nbell \x07 caf\xC3\xA9 \xE6\x97\xA5\xE6\x9C\xAC \xF0\x9F\x98\x80 </script>";
	UseScenario(R"([
		{ "response": { "auto_continue": true, "messages": [], "response": [
			{ "type": "tool_use", "name": "odd\"tool\\name", "id": "id\"1\\", "input": { "k": "v" } } ] } },
		{ "response": { "auto_continue": true, "messages": [], "response": [ { "type": "text", "text": "first" } ] } },
		{ "response": { "auto_continue": true, "messages": [], "response": [ { "type": "text", "text": "second" } ] } },
		{ "response": { "auto_continue": true, "messages": [], "response": [ { "type": "text", "text": "third" } ] } }
	])");

	Facade().InitialRequest(Utf8ToFString(Awkward));
	ASSERT_TRUE(RunUntilChat(Tavrine("first")));
	EXPECT_EQ(Chat.front().Text, UserStart(Awkward));
	Facade().RegularRequest(Utf8ToFString(Awkward));
	ASSERT_TRUE(RunUntilChat(Tavrine("second")));
	Facade().Continue(Utf8ToFString(Awkward));
	ASSERT_TRUE(RunUntilChat(Tavrine("third")));

	const std::vector<FRecordedRequest> Posts = Commands();
	ASSERT_EQ(Posts.size(), 4u);
	const rapidjson::Document First = ParseBody(Posts[0]);
	EXPECT_EQ(StringField(First, "message"), Awkward);
	const rapidjson::Document Results = ParseBody(Posts[1]);
	ASSERT_EQ(ToolResults(Results).Size(), 1u);
	ExpectToolResult(ToolResults(Results)[0], "id\"1\\", "Error: Unknown tool 'odd\"tool\\name'", true);
	const rapidjson::Document Regular = ParseBody(Posts[2]);
	EXPECT_EQ(JsonKeys(Regular), std::vector<std::string> { "message" });
	EXPECT_EQ(StringField(Regular, "message"), Awkward);
	const rapidjson::Document Continued = ParseBody(Posts[3]);
	EXPECT_EQ(StringField(Continued, "message"), Awkward);
}
