#include "Tavrine.h"

#include "API/HTTPAPI.h"
#include "Agent/Agent.h"
#include "Agent/CompilationManager.h"
#include "Agent/TavrineInterface.h"
#include "Framework/Commands/UIAction.h"
#include "Framework/Commands/UICommandList.h"
#include "Framework/Docking/TabManager.h"
#include "GenericPlatform/GenericPlatformFile.h"
#include "HAL/PlatformFileManager.h"
#include "ISettingsModule.h"
#include "Misc/ConfigCacheIni.h"
#include "Misc/Paths.h"
#include "Modules/ModuleManager.h"
#include "TavrineSettings.h"
#include "Textures/SlateIcon.h"
#include "ToolMenus.h"
#include "Widget/TavrineCommands.h"
#include "Widget/TavrineSavedMode.h"
#include "Widget/TavrineStyle.h"
#include "Widget/TavrineWidget.h"
#include "Widgets/Docking/SDockTab.h"

#define LOCTEXT_NAMESPACE "FTavrineModule"

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

	const FName TabName(TEXT("Tavrine"));
	const FName SettingsModuleName(TEXT("Settings"));
	const FName SettingsContainer(TEXT("Project"));
	const FName SettingsCategory(TEXT("Plugins"));
	const FName SettingsSection(TEXT("Tavrine"));
}

void FTavrineModule::StartupModule()
{
	if (ISettingsModule* SettingsModule = FModuleManager::GetModulePtr<ISettingsModule>(SettingsModuleName))
	{
		SettingsModule->RegisterSettings(SettingsContainer, SettingsCategory, SettingsSection,
			LOCTEXT("TavrineSettingsName", "Tavrine"), LOCTEXT("TavrineSettingsDescription", "Configure My Plugin settings"),
			GetMutableDefault<UTavrineSettings>());
	}
	FTavrineSavedMode::Load();

	ReadBackendStage();

	// Ends by starting the facade, which needs the plugin's folder for its log.
	FTavrineStyle::Initialize();

	FTavrineCommands::Register();
	PluginCommands = MakeShareable(new FUICommandList);
	PluginCommands->MapAction(FTavrineCommands::Get().OpenPluginWindow, FExecuteAction::CreateRaw(this, &FTavrineModule::PluginButtonClicked), FCanExecuteAction());

	UToolMenus::RegisterStartupCallback(FSimpleMulticastDelegate::FDelegate::CreateRaw(this, &FTavrineModule::RegisterMenus));

	// Hidden from the Window menu's generated list: the module adds its own entry there.
	FGlobalTabmanager::Get()->RegisterNomadTabSpawner(TabName, FOnSpawnTab::CreateRaw(this, &FTavrineModule::OnSpawnPluginTab))
		.SetDisplayName(LOCTEXT("FTavrineTabTitle", "Tavrine"))
		.SetMenuType(ETabSpawnerMenuType::Hidden)
		.SetIcon(FSlateIcon(FTavrineStyle::GetStyleSetName(), TEXT("Tavrine.Icon")));

	FAgent::Get().SetState(EAgentState::Idle);
}

void FTavrineModule::ShutdownModule()
{
	UToolMenus::UnRegisterStartupCallback(this);
	UToolMenus::UnregisterOwner(this);

	// Cancels a running conversation while everything it uses is still there.
	FTavrineStyle::Shutdown();
	FCompilationManager::Shutdown();

	FTavrineCommands::Unregister();
	PluginCommands.Reset();
	FGlobalTabmanager::Get()->UnregisterNomadTabSpawner(TabName);

	if (ISettingsModule* SettingsModule = FModuleManager::GetModulePtr<ISettingsModule>(SettingsModuleName))
	{
		SettingsModule->UnregisterSettings(SettingsContainer, SettingsCategory, SettingsSection);
	}
}

void FTavrineModule::PluginButtonClicked()
{
	FGlobalTabmanager::Get()->TryInvokeTab(TabName);
}

TSharedRef<SDockTab> FTavrineModule::OnSpawnPluginTab(const FSpawnTabArgs& SpawnTabArgs)
{
	return SNew(SDockTab)
		.TabRole(ETabRole::NomadTab)
		[
			SNew(STavrineWidget)
		];
}

void FTavrineModule::RegisterMenus()
{
	// Everything added in this scope belongs to the module, so that shut-down removes it in one call.
	FToolMenuOwnerScoped OwnerScoped(this);
	const FSlateIcon Icon(FTavrineStyle::GetStyleSetName(), TEXT("Tavrine.Icon.Large"), TEXT("Tavrine.Icon"));

	UToolMenu* WindowMenu = UToolMenus::Get()->ExtendMenu(TEXT("LevelEditor.MainMenu.Window"));
	FToolMenuSection& WindowSection = WindowMenu->FindOrAddSection(TEXT("WindowLayout"));
	WindowSection.AddMenuEntryWithCommandList(FTavrineCommands::Get().OpenPluginWindow, PluginCommands, TAttribute<FText>(), TAttribute<FText>(), Icon);

	UToolMenu* ToolBar = UToolMenus::Get()->ExtendMenu(TEXT("LevelEditor.LevelEditorToolBar.PlayToolBar"));
	FToolMenuSection& ToolBarSection = ToolBar->FindOrAddSection(TEXT("Tavrine"));
	const FText ButtonText = LOCTEXT("Tavrine_Override", "Tavrine");
	FToolMenuEntry& Entry = ToolBarSection.AddEntry(FToolMenuEntry::InitToolBarButton(FTavrineCommands::Get().OpenPluginWindow,
		ButtonText, ButtonText, Icon, NAME_None, FName(TEXT("LevelToolbarTavrine"))));
	Entry.SetCommandList(PluginCommands);
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

#undef LOCTEXT_NAMESPACE

IMPLEMENT_MODULE(FTavrineModule, Tavrine)
