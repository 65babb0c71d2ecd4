#include "HostOptions.h"

#include <cstdlib>
#include <unistd.h>

const char* GetHostUsage()
{
	return "Usage: tavrine [--project DIR|FILE.uproject] [--prompt TEXT] [--interactive] [--ca-file PEM]\n"
		   "               [--timeout SECONDS] [--verbose] [--no-color] [--source-control auto|git|none]\n"
		   "               [--ui] [--ui-port PORT]\n"
		   "Runs the Tavrine plugin in an editor stand-in on a project folder.\n"
		   "  --prompt TEXT     send TEXT as the first message and print the conversation's turn\n"
		   "  --interactive     read messages and commands from the terminal (default without --prompt)\n"
		   "  --ca-file PEM     trust these certificates as well (a local backend's own certificate)\n"
		   "  --timeout SECONDS give up on a turn after this long (default 600)\n"
		   "  --verbose         print every engine log line, not only warnings and errors\n"
		   "  --source-control  git: stage new files, unstage or stage deletions through git; none: no\n"
		   "                    source control; auto (default): git when the project is in a work tree\n"
		   "  --ui              serve the editor's Tavrine tab as a web page on 127.0.0.1 and print its address\n"
		   "  --ui-port PORT    the page's port (default: any free port)\n"
		   "Commands in interactive mode: plain text sends a message; /continue [TEXT], /approve, /pause,\n"
		   "/cancel [REASON], /end [REASON], /undo, /redo, /state, /help, /quit.\n";
}

std::optional<FHostOptions> ParseHostOptions(int ArgC, char** ArgV, const std::string& DefaultProject, std::string& Error)
{
	FHostOptions Options;
	Options.ProjectPath = DefaultProject;
	Options.bColor = isatty(STDOUT_FILENO) != 0;
	bool bInteractiveGiven = false;
	for (int Index = 1; Index < ArgC; ++Index)
	{
		const std::string Arg = ArgV[Index];
		auto TakeValue = [&](std::string& Out) -> bool
		{
			if (Index + 1 >= ArgC)
			{
				Error = Arg + " needs a value";
				return false;
			}
			Out = ArgV[++Index];
			return true;
		};
		std::string Value;
		if (Arg == "--project")
		{
			if (!TakeValue(Options.ProjectPath))
			{
				return std::nullopt;
			}
		}
		else if (Arg == "--prompt")
		{
			if (!TakeValue(Options.Prompt))
			{
				return std::nullopt;
			}
		}
		else if (Arg == "--ca-file")
		{
			if (!TakeValue(Options.CaFile))
			{
				return std::nullopt;
			}
		}
		else if (Arg == "--timeout")
		{
			if (!TakeValue(Value))
			{
				return std::nullopt;
			}
			char* End = nullptr;
			Options.TimeoutSeconds = std::strtod(Value.c_str(), &End);
			if (End == Value.c_str() || *End != '\0' || Options.TimeoutSeconds <= 0.0)
			{
				Error = "--timeout takes a positive number of seconds, not '" + Value + "'";
				return std::nullopt;
			}
		}
		else if (Arg == "--source-control")
		{
			if (!TakeValue(Options.SourceControl))
			{
				return std::nullopt;
			}
			if (Options.SourceControl != "auto" && Options.SourceControl != "git" && Options.SourceControl != "none")
			{
				Error = "--source-control takes auto, git or none, not '" + Options.SourceControl + "'";
				return std::nullopt;
			}
		}
		else if (Arg == "--ui")
		{
			Options.bUi = true;
		}
		else if (Arg == "--ui-port")
		{
			if (!TakeValue(Value))
			{
				return std::nullopt;
			}
			char* End = nullptr;
			const long Port = std::strtol(Value.c_str(), &End, 10);
			if (End == Value.c_str() || *End != '\0' || Port < 0 || Port > 65535)
			{
				Error = "--ui-port takes a port number, not '" + Value + "'";
				return std::nullopt;
			}
			Options.UiPort = static_cast<int>(Port);
			Options.bUi = true;
		}
		else if (Arg == "--interactive")
		{
			Options.bInteractive = true;
			bInteractiveGiven = true;
		}
		else if (Arg == "--verbose")
		{
			Options.bVerbose = true;
		}
		else if (Arg == "--no-color")
		{
			Options.bColor = false;
		}
		else if (Arg == "--help" || Arg == "-h")
		{
			Error.clear();
			return std::nullopt;
		}
		else
		{
			Error = "unknown argument '" + Arg + "'";
			return std::nullopt;
		}
	}
	if (!bInteractiveGiven && Options.Prompt.empty())
	{
		Options.bInteractive = true;
	}
	return Options;
}
