// Scenario files: every broken one is refused with a message that leads to the fault.

#include "BackendScenario.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

TEST(BackendScenarioTest, BrokenScenariosAreRefusedNamingTurnAndKey)
{
	const struct
	{
		const char* Json;
		const char* Message;
	} Cases[] = {
		{ "[ { \"response\": { } }", "not valid JSON at offset" },
		{ "", "not valid JSON at offset 0" },
		{ "{ \"turn\": [] }", "no \"turns\" list" },
		{ "{ \"turns\": {} }", "must be a list of turns" },
		{ "\"turns\"", "must be a list of turns" },
		{ "[ {}, 7 ]", "turn 2 must be an object" },
		{ "[ { \"pending_pols\": 1 } ]", "turn 1: unknown key or bad value for \"pending_pols\"" },
		{ "[ { \"pending_polls\": -1 } ]", "\"pending_polls\"" },
		{ "[ { \"pending_polls\": 1.5 } ]", "\"pending_polls\"" },
		{ "[ { \"response\": [] } ]", "\"response\"" },
		{ "[ { \"error\": 5 } ]", "\"error\"" },
		{ "[ { \"response\": {}, \"error\": \"x\" } ]", "\"response\" and \"error\" exclude each other" },
		{ "[ {}, { \"command\": 500 } ]", "turn 2 \"command\" must be an object" },
		{ "[ { \"status\": { \"code\": 99 } } ]", "turn 1 \"status\": unknown key or bad value for \"code\"" },
		{ "[ { \"status\": { \"code\": 600 } } ]", "\"code\"" },
		// An informational code can't end an exchange, so it can't stand for an answer.
		{ "[ { \"command\": { \"code\": 101 } } ]", "\"code\"" },
		{ "[ { \"command\": { \"code\": \"500\" } } ]", "\"code\"" },
		{ "[ { \"command\": { \"delay_ms\": -5 } } ]", "\"delay_ms\"" },
		{ "[ { \"command\": { \"close\": \"yes\" } } ]", "\"close\"" },
		{ "[ { \"command\": { \"body\": {} } } ]", "\"body\"" },
		{ "[ { \"command\": { \"drop\": true } } ]", "\"drop\"" },
	};
	for (const auto& Case : Cases)
	{
		SCOPED_TRACE(Case.Json);
		FScenario Scenario;
		Scenario.Turns.resize(3);
		std::string Error;
		EXPECT_FALSE(ParseScenario(Case.Json, Scenario, Error));
		EXPECT_NE(Error.find(Case.Message), std::string::npos) << Error;
		EXPECT_EQ(Scenario.Turns.size(), 3u) << "a refused scenario leaves the old one alone";
	}

	FScenario Scenario;
	std::string Error;
	EXPECT_FALSE(LoadScenarioFile("/nonexistent/scenario.json", Scenario, Error));
	EXPECT_EQ(Error, "cannot open scenario file '/nonexistent/scenario.json'");
	const std::string Path = testing::TempDir() + "broken-scenario.json";
	FILE* File = std::fopen(Path.c_str(), "w");
	std::fputs("[ { \"final_status\": true } ]", File);
	std::fclose(File);
	EXPECT_FALSE(LoadScenarioFile(Path, Scenario, Error));
	EXPECT_EQ(Error, "'" + Path + "': turn 1: unknown key or bad value for \"final_status\"");
	std::remove(Path.c_str());
}
