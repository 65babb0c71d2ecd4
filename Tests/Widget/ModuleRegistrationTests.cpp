#include "Agent/Agent.h"
#include "Agent/TavrineInterface.h"
#include "Framework/Docking/TabManager.h"
#include "ISettingsCategory.h"
#include "ISettingsContainer.h"
#include "ISettingsModule.h"
#include "Modules/ModuleManager.h"
#include "Styling/SlateStyleRegistry.h"
#include "Tavrine.h"
#include "ToolMenus.h"
#include "Widget/TavrineCommands.h"
#include "Widgets/Docking/SDockTab.h"

#include <gtest/gtest.h>

namespace
{
	const FName TabName(TEXT("Tavrine"));

	bool HasSettingsPage()
	{
		ISettingsModule* Settings = FModuleManager::GetModulePtr<ISettingsModule>(TEXT("Settings"));
		const TSharedPtr<ISettingsContainer> Project = Settings ? Settings->GetContainer(TEXT("Project")) : nullptr;
		const TSharedPtr<ISettingsCategory> Plugins = Project ? Project->GetCategory(TEXT("Plugins")) : nullptr;
		return Plugins && Plugins->GetSection(TEXT("Tavrine"), true);
	}
}

TEST(ChatModule, StartRegistersEverythingOnceAndShutDownLeavesNothingBehind)
{
	ASSERT_NE(FModuleManager::Get().LoadModule(TEXT("Settings")), nullptr);
	UToolMenus::StandInSetMenusReady(true);
	FModuleManager::Get().UnloadModule(TEXT("Tavrine"));
	const int32 EntriesBefore = UToolMenus::Get()->GetStandInEntryCount();

	// Twice, so that a restarted module finds nothing left of the first run.
	for (int32 Run = 0; Run < 2; ++Run)
	{
		FTavrineModule* Module = static_cast<FTavrineModule*>(FModuleManager::Get().LoadModule(TEXT("Tavrine")));
		ASSERT_NE(Module, nullptr);
		EXPECT_TRUE(HasSettingsPage());
		EXPECT_NE(FSlateStyleRegistry::FindSlateStyle(TEXT("TavrineStyle")), nullptr);
		EXPECT_TRUE(FTavrineInterface::Get().IsInitialized());
		EXPECT_TRUE(FTavrineCommands::IsRegistered());
		EXPECT_TRUE(FGlobalTabmanager::Get()->HasTabSpawner(TabName));
		EXPECT_EQ(UToolMenus::Get()->GetStandInEntryCount(), EntriesBefore + 2);
		EXPECT_EQ(FAgent::Get().GetState(), EAgentState::Idle);

		// Opening the tab again brings the one tab back; it holds the chat.
		{
			Module->PluginButtonClicked();
			const TSharedPtr<SDockTab> Tab = FGlobalTabmanager::Get()->FindExistingLiveTab(FTabId(TabName));
			ASSERT_TRUE(Tab.IsValid());
			EXPECT_EQ(FGlobalTabmanager::Get()->TryInvokeTab(TabName), Tab);
			EXPECT_EQ(Tab->GetTabRole(), ETabRole::NomadTab);
			EXPECT_TRUE(FTavrineInterface::Get().OnAddStatusMessageDelegate.IsBound());
			Tab->RequestCloseTab();
		}

		FModuleManager::Get().UnloadModule(TEXT("Tavrine"));
		EXPECT_FALSE(HasSettingsPage());
		EXPECT_EQ(FSlateStyleRegistry::FindSlateStyle(TEXT("TavrineStyle")), nullptr);
		EXPECT_FALSE(FTavrineInterface::Get().IsInitialized());
		EXPECT_FALSE(FTavrineCommands::IsRegistered());
		EXPECT_FALSE(FGlobalTabmanager::Get()->HasTabSpawner(TabName));
		EXPECT_EQ(UToolMenus::Get()->GetStandInEntryCount(), EntriesBefore);
		// The closed tab's chat took its handlers with it.
		EXPECT_FALSE(FTavrineInterface::Get().OnAddStatusMessageDelegate.IsBound());
		EXPECT_FALSE(FTavrineInterface::Get().OnAddDiffMessageDelegate.IsBound());
	}
}
