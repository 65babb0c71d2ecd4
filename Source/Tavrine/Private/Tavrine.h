#pragma once

#include "CoreMinimal.h"
#include "Modules/ModuleInterface.h"

/** The editor module: reads the backend's stage, starts the facade and puts the agent in Idle. */
class FTavrineModule : public IModuleInterface
{
public:
	virtual void StartupModule() override;
	virtual void ShutdownModule() override;

private:
	/** Takes the backend host and key of the stage named in the project's "DefaultPlugin.ini", if any. */
	static void ReadBackendStage();
};
