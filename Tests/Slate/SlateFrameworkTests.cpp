// Tabs, styles, commands, menus, plugins and settings pages of the Slate stand-in.
#include "Brushes/SlateColorBrush.h"
#include "Brushes/SlateImageBrush.h"
#include "Framework/Application/SlateApplication.h"
#include "Framework/Commands/Commands.h"
#include "Framework/Commands/UICommandList.h"
#include "Framework/Docking/TabManager.h"
#include "ISettingsModule.h"
#include "Interfaces/IPluginManager.h"
#include "HAL/FileManager.h"
#include "Misc/FileHelper.h"
#include "Misc/Paths.h"
#include "Misc/StandInProject.h"
#include "Modules/ModuleManager.h"
#include "Styling/AppStyle.h"
#include "Styling/CoreStyle.h"
#include "Styling/SlateStyle.h"
#include "Styling/SlateStyleMacros.h"
#include "Styling/SlateStyleRegistry.h"
#include "ToolMenus.h"
#include "Widgets/Docking/SDockTab.h"
#include "Widgets/Text/STextBlock.h"

#include <gtest/gtest.h>

#define LOCTEXT_NAMESPACE "SlateFrameworkTests"

namespace
{
	class FTestCommands : public TCommands<FTestCommands>
	{
	public:
		FTestCommands()
			: TCommands<FTestCommands>(TEXT("TestContext"), NSLOCTEXT("Contexts", "TestContext", "Test"), NAME_None, TEXT("TestStyle"))
		{
		}
		virtual void RegisterCommands() override
		{
			UI_COMMAND(OpenWindow, "Open", "Opens the window", EUserInterfaceActionType::Button, FInputChord());
		}
		TSharedPtr<FUICommandInfo> OpenWindow;
	};
}

TEST(SlateFrameworkTest, TabsOpenOnceAndComeBackAfterClosing)
{
	const FName TabName(TEXT("TestTab"));
	int32 Spawned = 0;
	FGlobalTabmanager::Get()
		->RegisterNomadTabSpawner(TabName, FOnSpawnTab::CreateLambda([&Spawned](const FSpawnTabArgs& Args)
		{
			++Spawned;
			return SNew(SDockTab).TabRole(ETabRole::NomadTab)[SNew(STextBlock).Text(FText::FromName(Args.GetTabId().TabType))];
		}))
		.SetDisplayName(FText::FromString(TEXT("Test")))
		.SetMenuType(ETabSpawnerMenuType::Hidden);
	EXPECT_TRUE(FGlobalTabmanager::Get()->HasTabSpawner(TabName));

	TSharedPtr<SDockTab> First = FGlobalTabmanager::Get()->TryInvokeTab(TabName);
	TSharedPtr<SDockTab> Again = FGlobalTabmanager::Get()->TryInvokeTab(FTabId(TabName));
	ASSERT_TRUE(First.IsValid());
	EXPECT_EQ(First, Again);
	EXPECT_EQ(Spawned, 1);
	EXPECT_EQ(First->GetStandInFlashCount(), 1);
	EXPECT_EQ(First->GetTabRole(), ETabRole::NomadTab);
	EXPECT_EQ(First->GetTabLabel().ToString(), TEXT("Test"));
	EXPECT_EQ(FSlateApplication::Get().GetStandInRoots().Num(), 1);

	EXPECT_TRUE(First->RequestCloseTab());
	EXPECT_EQ(FGlobalTabmanager::Get()->GetStandInLiveTabs().Num(), 0);
	TSharedPtr<SDockTab> Reopened = FGlobalTabmanager::Get()->TryInvokeTab(TabName);
	EXPECT_NE(Reopened, First);
	EXPECT_EQ(Spawned, 2);
	Reopened->RequestCloseTab();

	FGlobalTabmanager::Get()->UnregisterNomadTabSpawner(TabName);
	EXPECT_FALSE(FGlobalTabmanager::Get()->HasTabSpawner(TabName));
	EXPECT_FALSE(FGlobalTabmanager::Get()->TryInvokeTab(TabName).IsValid());
	FSlateApplication::Shutdown();
}

TEST(SlateFrameworkTest, StyleSetsOwnTheirBrushesAndLookupsNeverGiveNull)
{
	{
		FSlateStyleSet Style(TEXT("TestStyle"));
		Style.SetContentRoot(TEXT("/plugin/Resources"));
#define RootToContentDir Style.RootToContentDir
		Style.Set(TEXT("Test.Icon"), new IMAGE_BRUSH_SVG(TEXT("Icon"), FVector2D(16.0, 16.0)));
#undef RootToContentDir
		Style.Set(TEXT("Test.Text"), FTextBlockStyle().SetFont(FCoreStyle::GetDefaultFontStyle(TEXT("Bold"), 12.0f)));
		FSlateStyleRegistry::RegisterSlateStyle(Style);
		EXPECT_EQ(FSlateStyleRegistry::FindSlateStyle(TEXT("TestStyle")), &Style);

		const FSlateBrush* Icon = FSlateIcon(TEXT("TestStyle"), TEXT("Test.Icon")).GetIcon();
		EXPECT_EQ(Icon->GetResourceName(), FName(TEXT("/plugin/Resources/Icon.svg")));
		EXPECT_EQ(Icon->ImageType, ESlateBrushImageType::Vector);
		// The small icon falls back to the large one.
		EXPECT_EQ(FSlateIcon(TEXT("TestStyle"), TEXT("Test.Icon")).GetSmallIcon(), Icon);
		EXPECT_EQ(Style.GetWidgetStyle<FTextBlockStyle>(TEXT("Test.Text")).Font.Size, 12.0f);

		// Missing names and wrong types give defaults, not null.
		EXPECT_NE(Style.GetBrush(TEXT("Missing")), nullptr);
		EXPECT_EQ(Style.GetOptionalBrush(TEXT("Missing")), nullptr);
		EXPECT_EQ(&Style.GetWidgetStyle<FButtonStyle>(TEXT("Test.Text")), &FButtonStyle::GetDefault());
		EXPECT_EQ(FSlateIcon(TEXT("NoSuchStyle"), TEXT("X")).GetOptionalIcon(), nullptr);
		FSlateStyleRegistry::UnRegisterSlateStyle(Style);
	}
	EXPECT_EQ(FSlateStyleRegistry::FindSlateStyle(TEXT("TestStyle")), nullptr);

	// No editor style set is registered in the stand-in: the app style is the core one, with the editor's names.
	EXPECT_EQ(&FAppStyle::Get(), &FCoreStyle::Get());
	EXPECT_NE(FAppStyle::Get().GetOptionalBrush(TEXT("Menu.Background")), nullptr);
	EXPECT_TRUE(FAppStyle::Get().HasWidgetStyle<FTextBlockStyle>(TEXT("NormalText")));
}

TEST(SlateFrameworkTest, CommandsMenusAndOwnersComeAndGoTogether)
{
	FTestCommands::Register();
	ASSERT_TRUE(FTestCommands::IsRegistered());
	const TSharedPtr<FUICommandInfo> Command = FTestCommands::Get().OpenWindow;
	ASSERT_TRUE(Command.IsValid());
	EXPECT_EQ(Command->GetCommandName(), FName(TEXT("OpenWindow")));
	EXPECT_EQ(Command->GetLabel().ToString(), TEXT("Open"));
	EXPECT_EQ(Command->GetIcon().GetStyleName(), FName(TEXT("TestContext.OpenWindow")));

	int32 Opened = 0;
	bool bCanOpen = false;
	TSharedRef<FUICommandList> List = MakeShared<FUICommandList>();
	List->MapAction(Command, FExecuteAction::CreateLambda([&Opened]() { ++Opened; }), FCanExecuteAction::CreateLambda([&bCanOpen]() { return bCanOpen; }));
	EXPECT_FALSE(List->ExecuteAction(Command.ToSharedRef()));
	bCanOpen = true;
	EXPECT_TRUE(List->ExecuteAction(Command.ToSharedRef()));
	EXPECT_EQ(Opened, 1);

	// Menu callbacks wait for the menus; entries belong to the scope's owner.
	static int32 Owner = 0;
	UToolMenus::StandInSetMenusReady(false);
	int32 Registered = 0;
	UToolMenus::RegisterStartupCallback(FSimpleMulticastDelegate::FDelegate::CreateLambda([&]()
	{
		++Registered;
		FToolMenuOwnerScoped OwnerScoped(&Owner);
		UToolMenu* Menu = UToolMenus::Get()->ExtendMenu(TEXT("LevelEditor.MainMenu.Window"));
		Menu->FindOrAddSection(TEXT("WindowLayout")).AddMenuEntryWithCommandList(Command, List);
		FToolMenuSection& Bar = UToolMenus::Get()->ExtendMenu(TEXT("LevelEditor.LevelEditorToolBar.PlayToolBar"))->FindOrAddSection(TEXT("Test"));
		FToolMenuEntry& Button = Bar.AddEntry(FToolMenuEntry::InitToolBarButton(Command, FText::FromString(TEXT("Bar")), FText(), FSlateIcon(), NAME_None, FName(TEXT("BarButton"))));
		Bar.AddSeparator(TEXT("After"));
		Button.SetCommandList(List);
	}));
	EXPECT_EQ(Registered, 0);
	UToolMenus::StandInSetMenusReady();
	EXPECT_EQ(Registered, 1);
	FToolMenuSection* Bar = UToolMenus::Get()->FindMenu(TEXT("LevelEditor.LevelEditorToolBar.PlayToolBar"))->FindSection(TEXT("Test"));
	ASSERT_NE(Bar, nullptr);
	FToolMenuEntry* Button = Bar->FindEntry(TEXT("BarButton"));
	ASSERT_NE(Button, nullptr);
	EXPECT_EQ(Button->GetDisplayLabel().ToString(), TEXT("Bar"));
	EXPECT_TRUE(Button->Execute());
	EXPECT_EQ(Opened, 2);

	UToolMenus::UnregisterOwner(&Owner);
	EXPECT_EQ(UToolMenus::Get()->GetStandInEntryCount(), 0);
	UToolMenus::UnRegisterStartupCallback(FDelegateHandle());
	FTestCommands::Unregister();
	EXPECT_FALSE(FTestCommands::IsRegistered());
}

TEST(SlateFrameworkTest, PluginsAreFoundByNameAndSettingsPagesAreListed)
{
	TSharedPtr<IPlugin> Plugin = IPluginManager::Get().FindPlugin(TEXT("tavrine"));
	ASSERT_TRUE(Plugin.IsValid());
	EXPECT_EQ(Plugin->GetName(), TEXT("Tavrine"));
	EXPECT_TRUE(FPaths::FileExists(Plugin->GetBaseDir() / TEXT("Tavrine.uplugin")));
	EXPECT_FALSE(IPluginManager::Get().FindPlugin("NoSuchPlugin").IsValid());

	EXPECT_EQ(FModuleManager::GetModulePtr<ISettingsModule>(TEXT("Settings")), nullptr);
	ISettingsModule* Settings = static_cast<ISettingsModule*>(FModuleManager::Get().LoadModule(TEXT("Settings")));
	ASSERT_NE(Settings, nullptr);
	TSharedRef<SWidget> Page = SNew(STextBlock);
	EXPECT_TRUE(Settings->RegisterSettings(TEXT("Project"), TEXT("Plugins"), TEXT("Test"), FText::FromString(TEXT("Test")), FText(), Page).IsValid());
	Settings->RegisterSettings(TEXT("Project"), TEXT("Plugins"), TEXT("Test"), FText::FromString(TEXT("Again")), FText(), Page);
	TArray<ISettingsSectionPtr> Sections;
	EXPECT_EQ(Settings->GetContainer(TEXT("Project"))->GetCategory(TEXT("Plugins"))->GetSections(Sections), 1);
	EXPECT_EQ(Sections[0]->GetDisplayName().ToString(), TEXT("Again"));
	Settings->UnregisterSettings(TEXT("Project"), TEXT("Plugins"), TEXT("Test"));
	EXPECT_EQ(Settings->GetContainer(TEXT("Project"))->GetCategory(TEXT("Plugins"))->GetSections(Sections), 0);
	FModuleManager::Get().UnloadModule(TEXT("Settings"));
}

#undef LOCTEXT_NAMESPACE

TEST(SlateFrameworkTest, CallbacksOfAnOwnerThatLeftNeverRunAndNamedEntriesReplaceTheirOldSelves)
{
	static int32 Owner = 0;
	UToolMenus::StandInSetMenusReady(false);
	int32 Runs = 0;
	struct FOwnerObject
	{
		void Register()
		{
			++*Runs;
		}
		int32* Runs;
	} Object{&Runs};
	UToolMenus::RegisterStartupCallback(FSimpleMulticastDelegate::FDelegate::CreateRaw(&Object, &FOwnerObject::Register));
	const int32 Registered = UToolMenus::GetStandInStartupCallbackCount();
	UToolMenus::UnRegisterStartupCallback(&Object);
	EXPECT_EQ(UToolMenus::GetStandInStartupCallbackCount(), Registered - 1);
	UToolMenus::StandInSetMenusReady();
	EXPECT_EQ(Runs, 0);

	FToolMenuSection& Section = UToolMenus::Get()->ExtendMenu(TEXT("Test.Menu"))->FindOrAddSection(TEXT("Section"));
	{
		FToolMenuOwnerScoped Scope(&Owner);
		Section.AddMenuEntry(TEXT("Entry"), FText::FromString(TEXT("Old")), FText(), FSlateIcon(), FUIAction());
		Section.AddMenuEntry(TEXT("Entry"), FText::FromString(TEXT("New")), FText(), FSlateIcon(), FUIAction());
	}
	ASSERT_EQ(Section.NumEntries(), 1);
	EXPECT_EQ(Section.GetEntry(0).GetDisplayLabel().ToString(), TEXT("New"));
	// Outside the scope, entries belong to nobody and stay when the owner leaves.
	Section.AddMenuEntry(TEXT("Other"), FText::FromString(TEXT("Other")), FText(), FSlateIcon(), FUIAction());
	UToolMenus::UnregisterOwner(&Owner);
	ASSERT_EQ(Section.NumEntries(), 1);
	EXPECT_EQ(Section.GetEntry(0).Name, FName(TEXT("Other")));
	UToolMenus::UnregisterOwner(FToolMenuOwner());
	EXPECT_EQ(Section.NumEntries(), 1);
	UToolMenus::Get()->FindMenu(TEXT("Test.Menu"))->RemoveSection(TEXT("Section"));
}

TEST(SlateFrameworkTest, AProjectsPluginWinsOverTheEnginesOfTheSameName)
{
	const FString Project = FPaths::ConvertRelativePathToFull(FString(UTF8_TO_TCHAR(testing::TempDir().c_str())) / TEXT("PluginProject"));
	const FString PluginDir = Project / TEXT("Plugins") / TEXT("Group") / TEXT("Tavrine");
	ASSERT_TRUE(IFileManager::Get().MakeDirectory(*PluginDir, true));
	ASSERT_TRUE(FFileHelper::SaveStringToFile(TEXT("{ \"FriendlyName\": \"Project copy\" }"), *(PluginDir / TEXT("Tavrine.uplugin"))));
	ASSERT_TRUE(FFileHelper::SaveStringToFile(TEXT("{}"), *(Project / TEXT("PluginProject.uproject"))));
	FStandInProject::SetProjectFile(Project / TEXT("PluginProject.uproject"));

	TSharedPtr<IPlugin> Plugin = IPluginManager::Get().FindPlugin(TEXT("Tavrine"));
	ASSERT_TRUE(Plugin.IsValid());
	EXPECT_EQ(Plugin->GetLoadedFrom(), EPluginLoadedFrom::Project);
	EXPECT_EQ(Plugin->GetFriendlyName(), TEXT("Project copy"));
	EXPECT_TRUE(FPaths::IsSamePath(Plugin->GetBaseDir(), PluginDir));
	EXPECT_EQ(IPluginManager::Get().FindPluginFromPath(PluginDir), Plugin);

	IFileManager::Get().DeleteDirectory(*Project, false, true);
	FStandInProject::SetProjectFile(FString());
	EXPECT_EQ(IPluginManager::Get().FindPlugin(TEXT("Tavrine"))->GetLoadedFrom(), EPluginLoadedFrom::Engine);
}
