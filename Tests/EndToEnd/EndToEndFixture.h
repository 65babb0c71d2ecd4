#pragma once

// Drives the plugin's facade through the real HTTP client against the local backend, on the
// manual clock: every step moves time by the poll ticker's period and then lets the network
// finish what is in flight, so the poll schedule costs no real time and runs the same each time.

#include "Agent/Agent.h"
#include "Agent/TavrineInterface.h"
#include "CoreMinimal.h"
#include "LocalBackend.h"
#include "TavrineSettings.h"

#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <functional>
#include <string>
#include <vector>

/** The key the backend is started with and the project's stage file names. */
inline constexpr const char* EndToEndApiKey = "e2e-key";

inline FString Utf8ToFString(const std::string& Utf8)
{
	return FString(UTF8_TO_TCHAR(Utf8.c_str()));
}

inline std::string FStringToUtf8(const FString& Text)
{
	return std::string(TCHAR_TO_UTF8(*Text));
}

/** The body as JSON; fails the test (with the body in the message) if it isn't valid UTF-8 JSON. */
rapidjson::Document ParseBody(const FRecordedRequest& Request);
/** Member names in the order they were written. */
std::vector<std::string> JsonKeys(const rapidjson::Value& Object);
/** The headers the client chose, without those libcurl adds by itself. */
std::vector<std::pair<std::string, std::string>> SentHeaders(const FRecordedRequest& Request);

struct FChatLine
{
	std::string Text;
	FLinearColor Color;
	FName FontName;
	float FontSize = 0.0f;
};

class EndToEndTest : public ::testing::Test
{
protected:
	static constexpr double StepSeconds = 0.1;

	void SetUp() override;
	void TearDown() override;

	static FLocalBackend& Backend();
	static void SetMode(ETavrineMode Mode);
	static EAgentState State() { return FAgent::Get().GetState(); }
	static FTavrineInterface& Facade() { return FTavrineInterface::Get(); }

	/** Replaces the backend's turns; the next POST takes the first. */
	void UseScenario(const std::string& Json);

	/** One turn of the loop after SimulatedSeconds, then every request in flight is finished. */
	void Step(double SimulatedSeconds = StepSeconds);
	/** Turns the loop without finishing requests: what was sent is still on its way afterwards. */
	void StepWithoutNetwork(double SimulatedSeconds = StepSeconds);
	bool RunUntil(const std::function<bool()>& Done, double MaxSimulatedSeconds = 120.0);
	bool RunUntilChat(const std::string& Text, double MaxSimulatedSeconds = 120.0);
	void RunFor(double SimulatedSeconds);

	std::vector<std::string> ChatTexts() const;
	int32 CountChat(const std::string& Text) const;
	bool HasChat(const std::string& Text) const { return CountChat(Text) > 0; }

	std::vector<FRecordedRequest> Commands() const;
	std::vector<FRecordedRequest> StatusPolls() const;

	std::vector<FChatLine> Chat;

private:
	FDelegateHandle ChatHandle;
};
