// The editor stand-in: loads a project, starts the Tavrine module, turns the engine loop and drives the
// chat facade from the command line or the terminal.
#include "ConsoleChat.h"
#include "HostAgentStatus.h"
#include "HostCommands.h"
#include "HostOptions.h"
#include "HostProject.h"
#include "HostSourceControl.h"
#include "TerminalInput.h"

#include "Agent/Agent.h"
#include "Agent/TavrineInterface.h"
#include "CoreMinimal.h"
#include "HAL/StandInMemory.h"
#include "HttpManager.h"
#include "HttpModule.h"
#include "HttpStandInSettings.h"
#include "Misc/OutputDeviceRedirector.h"
#include "Misc/StandInEngineLoop.h"
#include "Misc/StandInProject.h"
#include "Modules/ModuleManager.h"

#include <cstdio>
#include <filesystem>
#include <string>

#ifndef TAVRINE_DEFAULT_PROJECT
#define TAVRINE_DEFAULT_PROJECT "Samples/SampleProject"
#endif

namespace
{
	enum EHostExit
	{
		ExitOk = 0,
		ExitTurnFailed = 1,
		ExitBadUsage = 2,
		ExitTimedOut = 3,
		ExitCallsWaiting = 4,
	};

	// Says once, each time a turn ends with tool calls waiting for approval, how to go on.
	class FWaitingCallsNotice
	{
	public:
		void Update()
		{
			const int32 Waiting = HostAgentStatus::IsSettled() ? HostAgentStatus::CountWaitingCalls() : 0;
			if (Waiting > 0 && !bShown)
			{
				std::printf("%s\n", HostAgentStatus::DescribeWaitingCalls(Waiting, true).c_str());
			}
			bShown = Waiting > 0;
		}

	private:
		bool bShown = false;
	};

	int RunHost(const FHostOptions& Options)
	{
		std::string Error;
		const std::string ProjectFile = ResolveProjectFile(Options.ProjectPath, Error);
		if (ProjectFile.empty())
		{
			std::fprintf(stderr, "tavrine: %s\n", Error.c_str());
			return ExitBadUsage;
		}
		const std::string ProjectDir = std::filesystem::path(ProjectFile).parent_path().string();
		const std::string IniError = CheckPluginIni(ProjectDir);
		if (!IniError.empty())
		{
			std::fprintf(stderr, "tavrine: %s\n", IniError.c_str());
			return ExitBadUsage;
		}
		if (!Options.CaFile.empty() && !std::filesystem::is_regular_file(Options.CaFile))
		{
			std::fprintf(stderr, "tavrine: CA file '%s' does not exist\n", Options.CaFile.c_str());
			return ExitBadUsage;
		}

		FConsoleLogDevice LogDevice(Options.bVerbose);
		GLog->AddOutputDevice(&LogDevice);
		FStandInProject::SetProjectFile(UTF8_TO_TCHAR(ProjectFile.c_str()));
		FStandInProject::SetEngineDir(UTF8_TO_TCHAR((ProjectDir + "/Saved/StandInEngine").c_str()));
		if (!Options.CaFile.empty())
		{
			FHttpStandInSettings::SetExtraCaFile(UTF8_TO_TCHAR(std::filesystem::absolute(Options.CaFile).string().c_str()));
		}

		// The editor's engine (GEngine, GEditor and its undo queue) is there before any plugin.
		FModuleManager::Get().LoadModule(TEXT("UnrealEd"));
		// The editor loads the plugins that Tavrine depends on before Tavrine itself.
		FModuleManager::Get().LoadModule(TEXT("PythonScriptPlugin"));
		if (!SelectSourceControl(Options.SourceControl, Error))
		{
			std::fprintf(stderr, "tavrine: %s\n", Error.c_str());
			GLog->RemoveOutputDevice(&LogDevice);
			return ExitBadUsage;
		}
		if (!FModuleManager::Get().LoadModule(TEXT("Tavrine")))
		{
			std::fprintf(stderr, "tavrine: the Tavrine module could not be loaded\n");
			GLog->RemoveOutputDevice(&LogDevice);
			return ExitTurnFailed;
		}
		int ExitCode = ExitOk;
		{
			FConsoleChat Chat(Options.bColor, LogDevice);
			bool bQuit = false;
			if (!Options.Prompt.empty())
			{
				FTavrineInterface::Get().InitialRequest(UTF8_TO_TCHAR(Options.Prompt.c_str()));
				const bool bSettled = FStandInEngineLoop::PumpUntil([]() { return HostAgentStatus::IsSettled(); }, Options.TimeoutSeconds);
				if (!bSettled)
				{
					std::fprintf(stderr, "tavrine: no answer within %.0f seconds\n", Options.TimeoutSeconds);
					FTavrineInterface::Get().CancelRequest(TEXT("Timed out"));
					ExitCode = ExitTimedOut;
				}
				else if (FAgent::Get().GetState() == EAgentState::Idle)
				{
					ExitCode = ExitTurnFailed;
				}
				else if (const int32 Waiting = HostAgentStatus::CountWaitingCalls(); Waiting > 0 && !Options.bInteractive)
				{
					std::printf("%s\n", HostAgentStatus::DescribeWaitingCalls(Waiting, false).c_str());
					ExitCode = ExitCallsWaiting;
				}
				bQuit = !Options.bInteractive;
			}
			if (!bQuit)
			{
				std::printf("Type a message, or /help.\n");
				FHostCommands Commands;
				FWaitingCallsNotice WaitingCalls;
				FTerminalInput Input;
				FStandInEngineLoop::PumpUntil([&Input, &Commands, &WaitingCalls]()
				{
					WaitingCalls.Update();
					while (std::optional<std::string> Line = Input.PopLine())
					{
						if (!Commands.HandleLine(*Line))
						{
							return true;
						}
					}
					return Input.IsFinished() && HostAgentStatus::IsSettled();
				}, 1.0e9);
				ExitCode = ExitOk;
			}
		}
		FModuleManager::Get().UnloadModule(TEXT("Tavrine"));
		GLog->RemoveOutputDevice(&LogDevice);
		return ExitCode;
	}
}

int main(int ArgC, char** ArgV)
{
	FStandInMemory::KeepFreedMemoryForReuse();
	// Each line goes out as it is written, so output piped to a file or a program keeps its order.
	std::setvbuf(stdout, nullptr, _IOLBF, 0);
	std::string Error;
	const std::optional<FHostOptions> Options = ParseHostOptions(ArgC, ArgV, TAVRINE_DEFAULT_PROJECT, Error);
	if (!Options)
	{
		if (!Error.empty())
		{
			std::fprintf(stderr, "tavrine: %s\n", Error.c_str());
		}
		std::fputs(GetHostUsage(), Error.empty() ? stdout : stderr);
		return Error.empty() ? ExitOk : ExitBadUsage;
	}
	return RunHost(*Options);
}
