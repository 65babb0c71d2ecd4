#pragma once

#include "CoreMinimal.h"
#include "Misc/CompilationResult.h"
#include "Misc/EnumClassFlags.h"
#include "Modules/ModuleManager.h"

// The engine keeps this interface in CoreUObject; the stand-in keeps it with the module that implements it.

enum class EHotReloadFlags : uint8
{
	None = 0x00,
	/** Don't return until the build and the reload have ended. */
	WaitForCompletion = 0x01
};
ENUM_CLASS_FLAGS(EHotReloadFlags)

/**
 * The HotReload module's interface: rebuilding the game's modules from the running editor.
 * The stand-in has the part that starts a build and reports its end; reloading code and rebinding packages
 * are not part of it.
 */
class IHotReloadInterface : public IModuleInterface
{
public:
	/** The module when it is loaded, else null. */
	static IHotReloadInterface* GetPtr()
	{
		return FModuleManager::GetModulePtr<IHotReloadInterface>(TEXT("HotReload"));
	}

	/** Keeps the module's state on disk before the editor quits. */
	virtual void SaveConfig() = 0;

	/** True while a build started here runs. */
	virtual bool IsCurrentlyCompiling() const = 0;

	/** Stops the running build; its end is reported as canceled. */
	virtual void RequestStopCompilation() = 0;

	/**
	 * Rebuilds the game's modules. Stand-in: the build always runs alongside the editor's loop, whatever the
	 * flags say, and its end comes by OnModuleCompilerFinished on the game thread; so the result is always Unknown.
	 */
	virtual ECompilationResult::Type DoHotReloadFromEditor(EHotReloadFlags Flags) = 0;

	/** After a reload; the argument says whether it was started by the editor itself. */
	DECLARE_MULTICAST_DELEGATE_OneParam(FHotReloadEvent, bool);
	virtual FHotReloadEvent& OnHotReload() = 0;

	/** When a build starts; the argument says whether it runs alongside the editor. */
	DECLARE_MULTICAST_DELEGATE_OneParam(FModuleCompilerStartedEvent, bool);
	virtual FModuleCompilerStartedEvent& OnModuleCompilerStarted() = 0;

	/** When a build ends: the compiler's output, the result, and whether the log should be shown. */
	DECLARE_MULTICAST_DELEGATE_ThreeParams(FModuleCompilerFinishedEvent, const FString&, ECompilationResult::Type, bool);
	virtual FModuleCompilerFinishedEvent& OnModuleCompilerFinished() = 0;

	/** How the module was last built: "Runtime" here, for a build started by the editor, else "Unknown". */
	virtual FString GetModuleCompileMethod(FName InModuleName) = 0;

	/** True when the project has game code to rebuild. */
	virtual bool IsAnyGameModuleLoaded() = 0;
};
