#pragma once

#include <string>
#include <vector>

// How one answer of the backend may be bent for fault tests. Zero or empty means "as usual".
struct FScenarioFault
{
	int Code = 0;
	bool bHasBody = false;
	std::string Body;
	int DelayMs = 0;
	bool bClose = false;
};

// What the next POST /command leads to.
struct FScenarioTurn
{
	int PendingPolls = 0;
	std::string PendingStatus;
	bool bHasResponse = false;
	std::string ResponseJson;
	bool bHasError = false;
	std::string Error;
	std::string FinalStatus;
	FScenarioFault Command;
	FScenarioFault Status;

	// The status document once the turn is finished, unless Status.Body replaces it.
	std::string BuildFinalStatusBody() const;
	std::string GetPendingStatus(int PollIndex) const;
};

struct FScenario
{
	std::vector<FScenarioTurn> Turns;
};

// Accepts a list of turns, or an object with "turns". False with a message naming the bad turn and key.
bool ParseScenario(const std::string& JsonText, FScenario& OutScenario, std::string& OutError);
bool LoadScenarioFile(const std::string& Path, FScenario& OutScenario, std::string& OutError);
