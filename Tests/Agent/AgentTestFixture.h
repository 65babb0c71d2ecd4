#pragma once

#include "API/HTTPAPI.h"
#include "Agent/Agent.h"
#include "Agent/TavrineInterface.h"
#include "TavrineSettings.h"

#include "CoreTestPrinters.h"
#include <gtest/gtest.h>
#include <string>

struct FChatLine
{
	FString Text;
	FLinearColor Color;
	FName FontName;
	float FontSize = 0.0f;
};

struct FSentRequest
{
	FString Verb;
	FString Url;
	TArray<FString> Headers;
	FString Body;
	double Time = 0.0;
};

/**
 * Starts each test with an idle agent on the manual clock, records the chat and every request the
 * client hands to the HTTP module, and lets the test play the backend. The requests never run.
 */
class FAgentTest : public ::testing::Test
{
public:
	static std::string ToUtf8(const FString& Text);

protected:
	void SetUp() override;
	void TearDown() override;

	static void SetMode(ETavrineMode Mode);
	static TSharedPtr<FJsonObject> Parse(const FString& Json);
	static TArray<FString> KeysOf(const TSharedPtr<FJsonObject>& Object);

	void AnswerCommand(const FString& Content, int32 Code = 200);
	void Accept(const FString& RequestId = TEXT("req-1"));
	/** Answers a status poll; without the poll's request, the answer counts as one for the request being polled. */
	void AnswerStatus(const FString& Content, FHttpRequestPtr Poll = nullptr);
	/** Completes the polled request with this "response" object. */
	void Complete(const FString& ResponseJson);

	TSharedPtr<FJsonObject> LastBody() const;
	int32 CountChat(const FString& Text) const;
	const FString& LastChat() const;

	TArray<FChatLine> Chat;
	TArray<FSentRequest> Sent;
	int32 StateChanges = 0;

private:
	FDelegateHandle ChatHandle;
	FDelegateHandle StateHandle;
};
