#include "AgentTestFixture.h"

TEST_F(FAgentTest, ImplementerModeRunsCallsAtOnceAndSendsNoConfirmation)
{
	SetMode(ETavrineMode::ExplainerAndImplementerMode);
	FTavrineInterface& Facade = FTavrineInterface::Get();
	FAgent& Agent = FAgent::Get();

	Facade.InitialRequest(TEXT("Hello"));
	EXPECT_EQ(Agent.GetState(), EAgentState::InitialRequest);
	EXPECT_EQ(Agent.GetConversationId().Len(), 32);
	EXPECT_EQ(Agent.GetUndoConversationId(), Agent.GetConversationId());
	EXPECT_FALSE(LastBody()->GetBoolField(TEXT("is_confirmation_mode")));
	Facade.InitialRequest(TEXT("Only from Idle"));
	EXPECT_EQ(Sent.Num(), 1);

	Accept();
	Complete(TEXT(R"({"auto_continue": false, "messages": [{"role": "user"}, 5], "response": [
		{"type": "text", "text": "Hi there"},
		{"type": "tool_use", "name": "nope", "id": "a", "input": {}},
		{"type": "TOOL_USE", "name": "finish", "id": "b", "input": {}}]})"));
	// finish moved the agent on while both results went out in one body, without "was_confirmed".
	EXPECT_EQ(Agent.GetState(), EAgentState::AwaitingUpdate);
	ASSERT_EQ(Agent.GetMessages().Num(), 2);
	EXPECT_EQ(Agent.GetMessages()[1]->AsObject()->GetArrayField(TEXT("content")).Num(), 3);
	const TSharedPtr<FJsonObject> Results = LastBody();
	EXPECT_EQ(KeysOf(Results), TArray<FString>{ TEXT("tool_results") });
	EXPECT_EQ(Results->GetArrayField(TEXT("tool_results")).Num(), 2);

	// Text alone ends the turn in implementer mode, whatever "auto_continue" says.
	Accept(TEXT("req-2"));
	Complete(TEXT(R"({"auto_continue": false, "response": [{"type": "text", "text": "Done"}]})"));
	EXPECT_EQ(Agent.GetState(), EAgentState::AwaitingUpdate);
	Facade.RegularRequest(TEXT("More"));
	EXPECT_EQ(ToUtf8(Chat.Last(1).Text), " [ User ]\n\nMore\n");
	EXPECT_EQ(ToUtf8(Sent.Last().Body), "{\"message\": \"More\"}");

	// Continue never waits for a guard, and entering the current state again does nothing at all.
	Facade.Continue(TEXT("Again"));
	const int32 SentBefore = Sent.Num();
	const int32 ChangesBefore = StateChanges;
	Facade.Continue(TEXT("Again"));
	EXPECT_EQ(Sent.Num(), SentBefore);
	EXPECT_EQ(StateChanges, ChangesBefore);
	EXPECT_EQ(KeysOf(LastBody()), (TArray<FString>{ TEXT("message"), TEXT("was_confirmed") }));
}

TEST_F(FAgentTest, CancelEndAndTheFacadeGuards)
{
	FTavrineInterface& Facade = FTavrineInterface::Get();
	FAgent& Agent = FAgent::Get();

	// Cancel passes through CancelRequest into Idle, and both changes broadcast.
	Facade.CancelRequest(FString());
	Facade.EndRequest(FString());
	EXPECT_EQ(StateChanges, 4);
	EXPECT_EQ(ToUtf8(Chat[0].Text), " [ Cancelled ]");
	EXPECT_EQ(ToUtf8(Chat[1].Text), " [ User End ]");

	Facade.RegularRequest(TEXT("ignored"));
	Facade.Approve();
	EXPECT_EQ(Agent.GetState(), EAgentState::Idle);
	EXPECT_TRUE(Sent.IsEmpty());

	Facade.InitialRequest(TEXT("Go"));
	const FString Id = Agent.GetConversationId();
	Facade.PauseRequest();
	Facade.EndRequest(TEXT("bye"));
	EXPECT_EQ(ToUtf8(LastChat()), " [ User End ]\n\nbye");
	EXPECT_FALSE(Agent.IsPaused());
	EXPECT_TRUE(Agent.GetConversationId().IsEmpty());
	EXPECT_EQ(Agent.GetUndoConversationId(), Id);

	// Shutdown cancels, once; a second Initialize does nothing.
	Facade.Shutdown();
	int32 Initialized = 0;
	const FDelegateHandle Handle = Facade.OnInitialized.AddLambda([&Initialized]() { ++Initialized; });
	Facade.Initialize();
	Facade.Initialize();
	EXPECT_EQ(Initialized, 1);
	EXPECT_TRUE(Facade.IsPluginEnabled());
	const int32 ChatBefore = Chat.Num();
	Facade.Shutdown();
	Facade.Shutdown();
	EXPECT_FALSE(Facade.IsInitialized());
	EXPECT_FALSE(Facade.IsPluginEnabled());
	EXPECT_EQ(Chat.Num(), ChatBefore + 1);
	Facade.OnInitialized.Remove(Handle);
}
