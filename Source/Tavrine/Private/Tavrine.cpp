#include "Tavrine.h"

#include "API/HTTPAPI.h"
#include "Agent/Agent.h"
#include "Agent/CompilationManager.h"
#include "Agent/TavrineInterface.h"
#include "HAL/PlatformFileManager.h"
#include "GenericPlatform/GenericPlatformFile.h"
#include "Misc/ConfigCacheIni.h"
#include "Misc/Paths.h"
#include "Modules/ModuleManager.h"

namespace
{
	struct FBackendStage
	{
		const TCHAR* Name;
		const TCHAR* UrlKey;
		const TCHAR* KeyKey;
	};

	const FBackendStage BackendStages[] =
	{
		{ TEXT("Dev"), TEXT("DevApiUrl"), TEXT("DevApiKey") },
		{ TEXT("Sandbox"), TEXT("SandboxApiUrl"), TEXT("SandboxApiKey") },
		{ TEXT("Sandbox2"), TEXT("Sandbox2ApiUrl"), TEXT("Sandbox2ApiKey") },
	};

	const TCHAR* const StageSection = TEXT("Tavrine");
}

void FTavrineModule::StartupModule()
{
	ReadBackendStage();

	// Until the chat style exists to start it, the module starts the facade itself.
	FTavrineInterface::Get().Initialize();

	FAgent::Get().SetState(EAgentState::Idle);
}

void FTavrineModule::ShutdownModule()
{
	// Cancels a running conversation while everything it uses is still there.
	FTavrineInterface::Get().Shutdown();
	FCompilationManager::Shutdown();
}

void FTavrineModule::ReadBackendStage()
{
	// A restarted module must not keep the stage of a file that has since changed.
	ApiUrlOverride.Empty();
	ApiKeyOverride.Empty();

	const FString Path = FPaths::Combine(FPaths::ProjectConfigDir(), TEXT("DefaultPlugin.ini"));
	if (!FPlatformFileManager::Get().GetPlatformFile().FileExists(*Path))
	{
		return;
	}

	FConfigFile Config;
	Config.Read(Path);

	FString Stage;
	if (!Config.GetString(StageSection, TEXT("Stage"), Stage))
	{
		return;
	}

	for (const FBackendStage& Candidate : BackendStages)
	{
		if (Stage.Equals(Candidate.Name, ESearchCase::IgnoreCase))
		{
			Config.GetString(StageSection, Candidate.UrlKey, ApiUrlOverride);
			Config.GetString(StageSection, Candidate.KeyKey, ApiKeyOverride);
			return;
		}
	}
}

IMPLEMENT_MODULE(FTavrineModule, Tavrine)
