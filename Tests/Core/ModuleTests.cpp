#include "CoreMinimal.h"
#include "CoreTestPrinters.h"
#include "Modules/ModuleManager.h"

#include <gtest/gtest.h>

namespace
{
	TArray<FString> ModuleEvents;

	class FCountingModule : public IModuleInterface
	{
	public:
		virtual void StartupModule() override
		{
			// The manager counts a module as loaded while it starts, as code run from here expects.
			ModuleEvents.Add(FString::Printf(TEXT("start:%d"), FModuleManager::Get().IsModuleLoaded(TEXT("StandInCountingModule")) ? 1 : 0));
		}

		virtual void ShutdownModule() override
		{
			ModuleEvents.Add(TEXT("stop"));
		}
	};

	class FOtherModule : public IModuleInterface
	{
	public:
		virtual void ShutdownModule() override
		{
			ModuleEvents.Add(TEXT("other stop"));
		}
	};

	// Needs StandInOtherModule from start to shutdown.
	class FDependentModule : public IModuleInterface
	{
	public:
		virtual void StartupModule() override
		{
			FModuleManager::Get().LoadModuleChecked(TEXT("StandInOtherModule"));
			ModuleEvents.Add(TEXT("dependent start"));
		}

		virtual void ShutdownModule() override
		{
			ModuleEvents.Add(FString::Printf(TEXT("dependent stop:%d"), FModuleManager::Get().IsModuleLoaded(TEXT("StandInOtherModule")) ? 1 : 0));
		}
	};

	class FSettingsModuleDouble : public IModuleInterface
	{
	public:
		virtual void StartupModule() override
		{
			ModuleEvents.Add(TEXT("double start"));
		}

		virtual void ShutdownModule() override
		{
			ModuleEvents.Add(TEXT("double stop"));
		}

		int32 Registrations = 0;
	};
}

IMPLEMENT_MODULE(FCountingModule, StandInCountingModule);
IMPLEMENT_MODULE(FOtherModule, StandInOtherModule)
IMPLEMENT_MODULE(FDependentModule, StandInDependentModule);

TEST(FModuleManagerTest, RegisteredModulesLoadOnceByNameAndUnload)
{
	FModuleManager& Manager = FModuleManager::Get();
	ModuleEvents.Empty();

	EXPECT_TRUE(Manager.ModuleExists(TEXT("StandInCountingModule")));
	EXPECT_FALSE(Manager.IsModuleLoaded(TEXT("StandInCountingModule")));
	EXPECT_EQ(FModuleManager::GetModulePtr<FCountingModule>(TEXT("StandInCountingModule")), nullptr);

	// Names ignore case; a second load gives the same object without starting it again.
	IModuleInterface* Loaded = Manager.LoadModule(TEXT("standincountingmodule"));
	ASSERT_NE(Loaded, nullptr);
	EXPECT_EQ(&FModuleManager::LoadModuleChecked<FCountingModule>(TEXT("StandInCountingModule")), Loaded);
	EXPECT_EQ(FModuleManager::GetModulePtr<FCountingModule>(TEXT("StandInCountingModule")), Loaded);
	EXPECT_EQ(ModuleEvents, TArray<FString>({TEXT("start:1")}));

	EXPECT_TRUE(Manager.UnloadModule(TEXT("StandInCountingModule")));
	EXPECT_FALSE(Manager.UnloadModule(TEXT("StandInCountingModule")));
	EXPECT_FALSE(Manager.IsModuleLoaded(TEXT("StandInCountingModule")));
	EXPECT_TRUE(Manager.ModuleExists(TEXT("StandInCountingModule")));
	EXPECT_EQ(ModuleEvents, TArray<FString>({TEXT("start:1"), TEXT("stop")}));

	// An unknown name is absent: nothing loads and nothing breaks.
	EModuleLoadResult Reason = EModuleLoadResult::Success;
	EXPECT_EQ(Manager.LoadModuleWithFailureReason(TEXT("NoSuchModule"), Reason), nullptr);
	EXPECT_EQ(Reason, EModuleLoadResult::FileNotFound);
	EXPECT_EQ(FModuleManager::LoadModulePtr<IModuleInterface>(TEXT("NoSuchModule")), nullptr);
	EXPECT_FALSE(Manager.ModuleExists(TEXT("NoSuchModule")));
}

TEST(FModuleManagerTest, RegisteredInstancesStandInForAbsentModules)
{
	FModuleManager& Manager = FModuleManager::Get();
	ModuleEvents.Empty();
	EXPECT_EQ(Manager.GetModule(TEXT("Settings")), nullptr);

	TSharedRef<FSettingsModuleDouble> Double = MakeShared<FSettingsModuleDouble>();
	Manager.RegisterModuleInstance(TEXT("Settings"), Double);
	EXPECT_TRUE(Manager.IsModuleLoaded(TEXT("Settings")));
	EXPECT_EQ(&FModuleManager::GetModuleChecked<FSettingsModuleDouble>(TEXT("Settings")), &Double.Get());
	EXPECT_EQ(Manager.LoadModule(TEXT("Settings")), &Double.Get());
	FModuleManager::GetModulePtr<FSettingsModuleDouble>(TEXT("settings"))->Registrations++;
	EXPECT_EQ(Double->Registrations, 1);
	EXPECT_TRUE(ModuleEvents.IsEmpty());

	EXPECT_TRUE(Manager.UnloadModule(TEXT("Settings")));
	EXPECT_EQ(ModuleEvents, TArray<FString>({TEXT("double stop")}));
	EXPECT_FALSE(Manager.ModuleExists(TEXT("Settings")));
	EXPECT_EQ(Manager.LoadModule(TEXT("Settings")), nullptr);
}

TEST(FModuleManagerTest, ShutdownUnloadsInReverseLoadOrder)
{
	FModuleManager& Manager = FModuleManager::Get();
	ModuleEvents.Empty();
	ASSERT_NE(Manager.LoadModule(TEXT("StandInOtherModule")), nullptr);
	ASSERT_NE(Manager.LoadModule(TEXT("StandInCountingModule")), nullptr);
	Manager.UnloadModulesAtShutdown();
	EXPECT_EQ(ModuleEvents, TArray<FString>({TEXT("start:1"), TEXT("stop"), TEXT("other stop")}));
	EXPECT_EQ(Manager.GetModuleCount(), 0);
}

TEST(FModuleManagerTest, ModulesLoadedDuringStartupShutDownAfterTheirUser)
{
	FModuleManager& Manager = FModuleManager::Get();
	ModuleEvents.Empty();
	ASSERT_NE(Manager.LoadModule(TEXT("StandInDependentModule")), nullptr);
	EXPECT_TRUE(Manager.IsModuleLoaded(TEXT("StandInOtherModule")));
	ASSERT_NE(Manager.LoadModule(TEXT("StandInCountingModule")), nullptr);
	Manager.UnloadModulesAtShutdown();
	EXPECT_EQ(ModuleEvents, TArray<FString>({TEXT("dependent start"), TEXT("start:1"), TEXT("stop"), TEXT("dependent stop:1"), TEXT("other stop")}));
}

TEST(FModuleManagerDeathTest, CheckedLoadOfAnAbsentModuleIsFatal)
{
	GTEST_FLAG_SET(death_test_style, "threadsafe");
	EXPECT_DEATH(FModuleManager::Get().LoadModuleChecked(TEXT("NoSuchModule")), "NoSuchModule");
}
