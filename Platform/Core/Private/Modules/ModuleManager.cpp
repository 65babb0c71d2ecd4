#include "Modules/ModuleManager.h"

#include "Logging/LogMacros.h"
#include "Templates/Tuple.h"

DEFINE_LOG_CATEGORY_STATIC(LogModuleManager, Log, All);

namespace
{
	typedef TPair<FString, FInitializeModuleFunctionPtr> FRegisteredModule;

	// Filled during static initialisation, so it must exist before anything else does: a function-local static.
	TArray<FRegisteredModule>& GetRegisteredModules()
	{
		static TArray<FRegisteredModule> RegisteredModules;
		return RegisteredModules;
	}

	void AddRegisteredModule(const FString& Name, FInitializeModuleFunctionPtr Initializer)
	{
		TArray<FRegisteredModule>& RegisteredModules = GetRegisteredModules();
		for (FRegisteredModule& Existing : RegisteredModules)
		{
			if (Existing.Key == Name)
			{
				Existing.Value = Initializer;
				return;
			}
		}
		RegisteredModules.Add(FRegisteredModule(Name, Initializer));
	}
}

FStaticallyLinkedModuleRegistrant::FStaticallyLinkedModuleRegistrant(const TCHAR* InModuleName, FInitializeModuleFunctionPtr InInitializer)
{
	AddRegisteredModule(FString(InModuleName), InInitializer);
}

FModuleManager& FModuleManager::Get()
{
	static FModuleManager Singleton;
	return Singleton;
}

FModuleManager::FModuleInfo* FModuleManager::FindLoaded(const FName InModuleName)
{
	for (FModuleInfo& Info : LoadedModules)
	{
		if (Info.Name == InModuleName)
		{
			return &Info;
		}
	}
	return nullptr;
}

const FModuleManager::FModuleInfo* FModuleManager::FindLoaded(const FName InModuleName) const
{
	return const_cast<FModuleManager*>(this)->FindLoaded(InModuleName);
}

FInitializeModuleFunctionPtr FModuleManager::FindInitializer(const FName InModuleName) const
{
	const FString Name = InModuleName.ToString();
	for (const FRegisteredModule& Registered : GetRegisteredModules())
	{
		if (Registered.Key == Name)
		{
			return Registered.Value;
		}
	}
	return nullptr;
}

IModuleInterface* FModuleManager::GetModule(const FName InModuleName)
{
	FModuleInfo* Info = FindLoaded(InModuleName);
	return Info != nullptr ? Info->Module.Get() : nullptr;
}

bool FModuleManager::IsModuleLoaded(const FName InModuleName) const
{
	return FindLoaded(InModuleName) != nullptr;
}

bool FModuleManager::ModuleExists(const TCHAR* ModuleName) const
{
	if (ModuleName == nullptr)
	{
		return false;
	}
	const FName Name(ModuleName);
	return FindLoaded(Name) != nullptr || FindInitializer(Name) != nullptr;
}

int32 FModuleManager::GetModuleCount() const
{
	return LoadedModules.Num();
}

IModuleInterface* FModuleManager::LoadModule(const FName InModuleName, ELoadModuleFlags InLoadModuleFlags)
{
	EModuleLoadResult FailureReason;
	return LoadModuleWithFailureReason(InModuleName, FailureReason, InLoadModuleFlags);
}

IModuleInterface* FModuleManager::LoadModuleWithFailureReason(const FName InModuleName, EModuleLoadResult& OutFailureReason, ELoadModuleFlags InLoadModuleFlags)
{
	if (FModuleInfo* Loaded = FindLoaded(InModuleName))
	{
		OutFailureReason = EModuleLoadResult::Success;
		return Loaded->Module.Get();
	}
	const FInitializeModuleFunctionPtr Initializer = FindInitializer(InModuleName);
	if (Initializer == nullptr)
	{
		OutFailureReason = EModuleLoadResult::FileNotFound;
		UE_CLOG(EnumHasAnyFlags(InLoadModuleFlags, ELoadModuleFlags::LogFailures), LogModuleManager, Warning, TEXT("ModuleManager: Unable to load module '%s' - the module is not present."), *InModuleName.ToString());
		return nullptr;
	}
	IModuleInterface* Created = Initializer();
	if (Created == nullptr)
	{
		OutFailureReason = EModuleLoadResult::FailedToInitialize;
		UE_CLOG(EnumHasAnyFlags(InLoadModuleFlags, ELoadModuleFlags::LogFailures), LogModuleManager, Warning, TEXT("ModuleManager: Unable to load module '%s' because InitializeModule function failed (returned nullptr.)"), *InModuleName.ToString());
		return nullptr;
	}

	// Registered before it starts, so that code run by StartupModule finds it loaded, as in the engine.
	FModuleInfo Info;
	Info.Name = InModuleName;
	Info.Module = TSharedPtr<IModuleInterface>(Created);
	LoadedModules.Add(Info);
	const TSharedPtr<IModuleInterface> KeepAlive = Info.Module;
	Created->StartupModule();
	// Numbered after StartupModule: modules it loaded come earlier and so shut down after it, while it may still need them.
	FModuleInfo* Started = FindLoaded(InModuleName);
	if (Started == nullptr || Started->Module != KeepAlive)
	{
		OutFailureReason = EModuleLoadResult::FailedToInitialize;
		return nullptr;
	}
	Started->LoadOrder = NextLoadOrder++;
	Created->PostLoadCallback();
	OutFailureReason = EModuleLoadResult::Success;
	return Created;
}

IModuleInterface& FModuleManager::LoadModuleChecked(const FName InModuleName)
{
	IModuleInterface* Module = LoadModule(InModuleName);
	if (Module == nullptr)
	{
		UE_LOG(LogModuleManager, Error, TEXT("ModuleManager: Unable to load module '%s'."), *InModuleName.ToString());
	}
	checkf(Module != nullptr, TEXT("Unable to load module '%s'"), *InModuleName.ToString());
	return *Module;
}

bool FModuleManager::UnloadModule(const FName InModuleName, bool bIsShutdown, bool bAllowUnloadCode)
{
	FModuleInfo* Info = FindLoaded(InModuleName);
	if (Info == nullptr)
	{
		return false;
	}
	// Keep the object alive through ShutdownModule even if that unloads other modules and moves the list.
	const TSharedPtr<IModuleInterface> Module = Info->Module;
	Module->PreUnloadCallback();
	Module->ShutdownModule();
	LoadedModules.RemoveAll([InModuleName](const FModuleInfo& Candidate)
	{
		return Candidate.Name == InModuleName;
	});
	return true;
}

void FModuleManager::UnloadModulesAtShutdown()
{
	while (LoadedModules.Num() > 0)
	{
		int32 Latest = 0;
		for (int32 Index = 1; Index < LoadedModules.Num(); ++Index)
		{
			if (LoadedModules[Index].LoadOrder > LoadedModules[Latest].LoadOrder)
			{
				Latest = Index;
			}
		}
		UnloadModule(LoadedModules[Latest].Name, true);
	}
}

void FModuleManager::RegisterStaticallyLinkedModule(const FName InModuleName, FInitializeModuleFunctionPtr InInitializer)
{
	AddRegisteredModule(InModuleName.ToString(), InInitializer);
}

void FModuleManager::RegisterModuleInstance(const FName InModuleName, TSharedRef<IModuleInterface> InModule)
{
	LoadedModules.RemoveAll([InModuleName](const FModuleInfo& Candidate)
	{
		return Candidate.Name == InModuleName;
	});
	FModuleInfo Info;
	Info.Name = InModuleName;
	Info.Module = InModule;
	Info.LoadOrder = NextLoadOrder++;
	LoadedModules.Add(Info);
}
