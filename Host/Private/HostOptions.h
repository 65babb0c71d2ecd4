#pragma once

#include <optional>
#include <string>

// What the command line asks of the host.
struct FHostOptions
{
	std::string ProjectPath;
	std::string Prompt;
	std::string CaFile;
	// "auto", "git" or "none".
	std::string SourceControl = "auto";
	double TimeoutSeconds = 600.0;
	bool bInteractive = false;
	bool bVerbose = false;
	bool bColor = false;
	// Serve the editor's tabs as a web page on 127.0.0.1 (port 0: any free one).
	bool bUi = false;
	int UiPort = 0;
};

// Parses argv; on a bad command line writes the reason to Error and gives nothing.
std::optional<FHostOptions> ParseHostOptions(int ArgC, char** ArgV, const std::string& DefaultProject, std::string& Error);

const char* GetHostUsage();
