#pragma once

#include <string>
#include <vector>

/** What a finished git run left: its exit code (-1 when git couldn't be started) and its output. */
struct FGitCommandResult
{
	int ExitCode = -1;
	std::string StdOut;
	std::string StdErr;

	bool Succeeded() const
	{
		return ExitCode == 0;
	}
};

/** Runs "git -C WorkingDirectory Arguments..." without a shell and waits for it. Never prompts for input. */
FGitCommandResult RunGitCommand(const std::string& WorkingDirectory, const std::vector<std::string>& Arguments);
