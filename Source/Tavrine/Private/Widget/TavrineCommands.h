#pragma once

#include "CoreMinimal.h"
#include "Framework/Commands/Commands.h"

/** The one command of the plugin: open the chat tab, from the Window menu or the tool bar. */
class FTavrineCommands : public TCommands<FTavrineCommands>
{
public:
	FTavrineCommands();

	virtual void RegisterCommands() override;

	TSharedPtr<FUICommandInfo> OpenPluginWindow;
};
