// The editor stand-in: loads a project, starts the Tavrine module, turns the engine loop and drives the
// chat facade from the command line or the terminal.
#include "ConsoleChat.h"
#include "HostAgentStatus.h"
#include "HostCommands.h"
#include "HostOptions.h"
#include "HostProject.h"
#include "HostSourceControl.h"
#include "TerminalInput.h"
#include "Ui/SlatePageServer.h"

#include "Agent/Agent.h"
#include "Agent/TavrineInterface.h"
#include "Containers/Ticker.h"
#include "CoreMinimal.h"
#include "Framework/Application/SlateApplication.h"
#include "Framework/Docking/TabManager.h"
#include "HAL/StandInMemory.h"
#include "HttpManager.h"
#include "HttpModule.h"
#include "HttpStandInSettings.h"
#include "Misc/OutputDeviceRedirector.h"
#include "Misc/StandInEngineLoop.h"
#include "Misc/StandInProject.h"
#include "Modules/ModuleManager.h"
#include "ToolMenus.h"

#include <atomic>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <optional>
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

	// Set by Ctrl+C or a termination request, so that the browser window's host shuts the plugin down cleanly.
	std::atomic<bool> GQuitRequested{false};

	void RequestQuit(int)
	{
		GQuitRequested = true;
	}

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
		// The editor's UI is up before plugins start: Slate, the settings pages, the menus.
		FSlateApplication::Create();
		FModuleManager::Get().LoadModule(TEXT("Settings"));
		UToolMenus::StandInSetMenusReady();
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
		FSlatePageServer Page;
		FTSTicker::FDelegateHandle PageTicker;
		if (Options.bUi)
		{
			if (!Page.Start(Options.UiPort, Error))
			{
				std::fprintf(stderr, "tavrine: %s\n", Error.c_str());
				FModuleManager::Get().UnloadModule(TEXT("Tavrine"));
				GLog->RemoveOutputDevice(&LogDevice);
				return ExitBadUsage;
			}
			std::signal(SIGINT, RequestQuit);
			std::signal(SIGTERM, RequestQuit);
			// As if the user picked Window > Tavrine.
			FGlobalTabmanager::Get()->TryInvokeTab(FTabId(TEXT("Tavrine")));
			PageTicker = FTSTicker::GetCoreTicker().AddTicker(TEXT("SlatePage"), 0.0f, [&Page](float)
			{
				Page.Tick();
				return true;
			});
			std::printf("Tavrine window: http://127.0.0.1:%d/\n", Page.GetPort());
			std::fflush(stdout);
		}
		{
			// With the browser window open the window is the chat (and keeps its log); the terminal only serves commands.
			std::optional<FConsoleChat> Chat;
			if (!Options.bUi)
			{
				Chat.emplace(Options.bColor, LogDevice);
			}
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
				const bool bUi = Options.bUi;
				FStandInEngineLoop::PumpUntil([&Input, &Commands, &WaitingCalls, bUi]()
				{
					WaitingCalls.Update();
					while (std::optional<std::string> Line = Input.PopLine())
					{
						if (!Commands.HandleLine(*Line))
						{
							return true;
						}
					}
					// The browser window stays up without a terminal, until it is asked to stop.
					return GQuitRequested || (!bUi && Input.IsFinished() && HostAgentStatus::IsSettled());
				}, 1.0e9);
				ExitCode = ExitOk;
			}
		}
		if (Options.bUi)
		{
			FTSTicker::RemoveTicker(PageTicker);
			Page.Stop();
		}
		// The editor's windows close before its modules shut down: no widget outlives the code that made it.
		FSlateApplication::Get().StandInCloseAllWindows();
		FModuleManager::Get().UnloadModule(TEXT("Tavrine"));
		FSlateApplication::Shutdown();
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
