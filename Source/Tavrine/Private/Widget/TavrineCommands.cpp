#include "Widget/TavrineCommands.h"

#include "Widget/TavrineStyle.h"

#define LOCTEXT_NAMESPACE "FTavrineModule"

FTavrineCommands::FTavrineCommands()
	: TCommands<FTavrineCommands>(TEXT("Tavrine"), NSLOCTEXT("Contexts", "Tavrine", "Tavrine Plugin"), NAME_None, FTavrineStyle::GetStyleSetName())
{
}

void FTavrineCommands::RegisterCommands()
{
	UI_COMMAND(OpenPluginWindow, "Tavrine", "Bring up Tavrine window", EUserInterfaceActionType::Button, FInputChord());
}

#undef LOCTEXT_NAMESPACE
