#include "AgentTestFixture.h"

#include "Containers/Ticker.h"
#include "HAL/StandInClock.h"

namespace
{
	void RunTicker(double Seconds)
	{
		for (int32 Step = 0; Step < static_cast<int32>(Seconds / FHTTPAPI::TickerPeriod + 0.5); ++Step)
		{
			FStandInClock::Advance(FHTTPAPI::TickerPeriod);
			FTSTicker::GetCoreTicker().Tick(FHTTPAPI::TickerPeriod);
		}
	}
}

TEST_F(FAgentTest, PollsGrowByHalfUpToTenSecondsOnTheTicker)
{
	FTavrineInterface::Get().InitialRequest(TEXT("Go"));
	Accept(TEXT("abc"));
	RunTicker(45.0);

	// Each gap is the interval rounded up to the next turn of the ticker.
	const double Expected[] = { 2.0, 3.0, 4.5, 6.75, 10.0, 10.0 };
	ASSERT_EQ(Sent.Num(), 7);
	for (int32 Index = 1; Index < 7; ++Index)
	{
		const double Gap = Sent[Index].Time - Sent[Index - 1].Time;
		EXPECT_GE(Gap, Expected[Index - 1] - 1e-6) << "poll " << Index;
		EXPECT_LE(Gap, Expected[Index - 1] + FHTTPAPI::TickerPeriod + 1e-3) << "poll " << Index;
	}
	EXPECT_EQ(Sent.Last().Url, TEXT("https://127.0.0.1:9/test/status?request_id=abc"));
	EXPECT_EQ(Sent.Last().Headers, (TArray<FString>{ TEXT("x-api-key: test-key"), TEXT("conversation-id: ") + FAgent::Get().GetConversationId() }));
	EXPECT_EQ(CountChat(TEXT("Processing request...")), 6);

	// Tool results go out, and the next request is polled from 2 s again.
	Complete(TEXT(R"({"auto_continue": true, "response": [{"type": "tool_use", "name": "nope", "id": "a", "input": {}}]})"));
	Accept(TEXT("def"));
	const double AcceptedAt = FStandInClock::GetSeconds();
	RunTicker(2.5);
	ASSERT_EQ(Sent.Num(), 9);
	EXPECT_NEAR(Sent.Last().Time - AcceptedAt, 2.05, 0.051);

	// Cancel stops the ticker.
	FTavrineInterface::Get().CancelRequest(FString());
	RunTicker(30.0);
	EXPECT_EQ(Sent.Num(), 9);
}
