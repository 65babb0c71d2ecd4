#pragma once

#include "CoreMinimal.h"
#include "Modules/ModuleInterface.h"

class FSpawnTabArgs;
class FUICommandList;
class SDockTab;

/**
 * The editor module: registers the settings page, the backend's stage, the style, the command, the menus
 * and the chat tab, and puts the agent in Idle; shut-down undoes all of it.
 */
class FTavrineModule : public IModuleInterface
{
public:
	virtual void StartupModule() override;
	virtual void ShutdownModule() override;

	/** Opens the chat tab, or brings the open one to the front. */
	void PluginButtonClicked();

private:
	/** Takes the backend host and key of the stage named in the project's "DefaultPlugin.ini", if any. */
	static void ReadBackendStage();

	TSharedRef<SDockTab> OnSpawnPluginTab(const FSpawnTabArgs& SpawnTabArgs);
	void RegisterMenus();

	TSharedPtr<FUICommandList> PluginCommands;
};
