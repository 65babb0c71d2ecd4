#pragma once

#include "CoreTypes.h"
#include "Containers/Array.h"
#include "Containers/UnrealString.h"
#include "Misc/AssertionMacros.h"
#include "Misc/EnumClassFlags.h"
#include "Modules/ModuleInterface.h"
#include "Templates/SharedPointer.h"
#include "UObject/NameTypes.h"

enum class ELoadModuleFlags
{
	None = 0,
	LogFailures = 1 << 0,
	NoAbortOnError = 1 << 1
};
ENUM_CLASS_FLAGS(ELoadModuleFlags);

enum class EModuleLoadResult
{
	Success,
	FileNotFound,
	FileIncompatible,
	CouldNotBeLoadedByOS,
	FailedToInitialize
};

/** A module with nothing to start or stop. */
class FDefaultModuleImpl : public IModuleInterface
{
};

class FDefaultGameModuleImpl : public FDefaultModuleImpl
{
public:
	virtual bool IsGameModule() const override
	{
		return true;
	}
};

typedef IModuleInterface* (*FInitializeModuleFunctionPtr)(void);

/**
 * Loads modules by name. A module is present when it is registered (IMPLEMENT_MODULE in code linked into the
 * program, or a stand-in registration) and loaded once its object exists and has started. Names compare
 * without regard to case. Used on the game thread.
 */
class FModuleManager
{
public:
	static FModuleManager& Get();

	FModuleManager(const FModuleManager&) = delete;
	FModuleManager& operator=(const FModuleManager&) = delete;

	/** The loaded module, or null; never loads. */
	IModuleInterface* GetModule(const FName InModuleName);
	bool IsModuleLoaded(const FName InModuleName) const;
	/** True when a module of this name is registered, loaded or not. */
	bool ModuleExists(const TCHAR* ModuleName) const;
	int32 GetModuleCount() const;

	/** Loads the module if needed; null when no module of that name is present. */
	IModuleInterface* LoadModule(const FName InModuleName, ELoadModuleFlags InLoadModuleFlags = ELoadModuleFlags::None);
	IModuleInterface* LoadModuleWithFailureReason(const FName InModuleName, EModuleLoadResult& OutFailureReason, ELoadModuleFlags InLoadModuleFlags = ELoadModuleFlags::None);
	/** As LoadModule, but a missing module is a fatal error, as in the engine. */
	IModuleInterface& LoadModuleChecked(const FName InModuleName);

	/** Shuts the module down and drops its object; false when it wasn't loaded. */
	bool UnloadModule(const FName InModuleName, bool bIsShutdown = false, bool bAllowUnloadCode = true);
	/** Unloads every module, last loaded first. */
	void UnloadModulesAtShutdown();

	/** Registers a module that lives in the program; IMPLEMENT_MODULE does this before main runs. */
	void RegisterStaticallyLinkedModule(const FName InModuleName, FInitializeModuleFunctionPtr InInitializer);

	/**
	 * Stand-in only: registers an existing object (for example a test double) under a name, as a loaded
	 * module. StartupModule is not called, since the caller made it ready; UnloadModule still calls
	 * ShutdownModule and forgets it. A module already loaded under that name is replaced without shutdown.
	 */
	void RegisterModuleInstance(const FName InModuleName, TSharedRef<IModuleInterface> InModule);

	template<typename TModuleInterface>
	static TModuleInterface* GetModulePtr(const FName ModuleName)
	{
		return static_cast<TModuleInterface*>(Get().GetModule(ModuleName));
	}

	template<typename TModuleInterface>
	static TModuleInterface& GetModuleChecked(const FName ModuleName)
	{
		IModuleInterface* Module = Get().GetModule(ModuleName);
		checkf(Module != nullptr, TEXT("Tried to get module interface for unloaded module: '%s'"), *ModuleName.ToString());
		return static_cast<TModuleInterface&>(*Module);
	}

	template<typename TModuleInterface>
	static TModuleInterface* LoadModulePtr(const FName InModuleName)
	{
		return static_cast<TModuleInterface*>(Get().LoadModule(InModuleName));
	}

	template<typename TModuleInterface>
	static TModuleInterface& LoadModuleChecked(const FName InModuleName)
	{
		return static_cast<TModuleInterface&>(Get().LoadModuleChecked(InModuleName));
	}

private:
	FModuleManager() = default;

	struct FModuleInfo
	{
		FName Name;
		TSharedPtr<IModuleInterface> Module;
		int32 LoadOrder = 0;
	};

	FModuleInfo* FindLoaded(const FName InModuleName);
	const FModuleInfo* FindLoaded(const FName InModuleName) const;
	FInitializeModuleFunctionPtr FindInitializer(const FName InModuleName) const;

	TArray<FModuleInfo> LoadedModules;
	int32 NextLoadOrder = 1;
};

/** Registers a module's factory by name while the program starts, before FModuleManager exists. */
struct FStaticallyLinkedModuleRegistrant
{
	FStaticallyLinkedModuleRegistrant(const TCHAR* InModuleName, FInitializeModuleFunctionPtr InInitializer);
};

#define IMPLEMENT_MODULE(ModuleImplClass, ModuleName) \
	static IModuleInterface* InitializeModule##ModuleName() \
	{ \
		return new ModuleImplClass(); \
	} \
	static FStaticallyLinkedModuleRegistrant ModuleRegistrant##ModuleName(TEXT(#ModuleName), &InitializeModule##ModuleName);

#define IMPLEMENT_GAME_MODULE(ModuleImplClass, ModuleName) IMPLEMENT_MODULE(ModuleImplClass, ModuleName)
#define IMPLEMENT_PRIMARY_GAME_MODULE(ModuleImplClass, ModuleName, GameName) IMPLEMENT_MODULE(ModuleImplClass, ModuleName)
