#pragma once

#include "CoreMinimal.h"
#include "Misc/EnumClassFlags.h"
#include "Modules/ModuleInterface.h"

#define LIVE_CODING_MODULE_NAME "LiveCoding"

enum class ELiveCodingCompileFlags : uint8
{
	None = 0,
	/** Don't return until the compile has ended. */
	WaitForCompletion = 1 << 0
};
ENUM_CLASS_FLAGS(ELiveCodingCompileFlags)

enum class ELiveCodingCompileResult : uint8
{
	Success,
	/** Nothing had to be rebuilt. */
	NoChanges,
	/** Started without waiting; the end comes later. */
	InProgress,
	/** Another compile is still running. */
	CompileStillActive,
	/** Live Coding isn't enabled, or the compile couldn't start. */
	NotStarted,
	Failure,
	Cancelled
};

/**
 * The LiveCoding module's interface: patching the running editor with the game's rebuilt code.
 * Stand-in: a compile runs the project's build (see StandInProjectBuild.h in HotReload) and logs under
 * LogLiveCoding; the build's output also goes to the build tool's "Log.txt". Patching the running code is
 * not part of it, and there is no console window. Live Coding is enabled for the session when the project
 * has a build command.
 */
class ILiveCodingModule : public IModuleInterface
{
public:
	DECLARE_MULTICAST_DELEGATE(FOnPatchCompleteDelegate);

	virtual void EnableByDefault(bool bEnabled) = 0;
	virtual bool IsEnabledByDefault() const = 0;

	virtual void EnableForSession(bool bEnabled) = 0;
	virtual bool IsEnabledForSession() const = 0;
	/** Why enabling failed, when it did. */
	virtual const FText& GetEnableErrorText() const = 0;
	virtual bool CanEnableForSession() const = 0;
	virtual bool HasStarted() const = 0;

	/** Stand-in: there is no console; this does nothing. */
	virtual void ShowConsole() = 0;

	/** Starts a compile without waiting. */
	virtual void Compile() = 0;
	/** Compiles with the flags; Result gets the outcome, or InProgress when not waiting. False when nothing started. */
	virtual bool Compile(ELiveCodingCompileFlags CompileFlags, ELiveCodingCompileResult* Result) = 0;
	virtual bool IsCompiling() const = 0;
	/** Watches a compile started without waiting; the module's ticker calls it every frame. */
	virtual void Tick() = 0;
	/** After each successful compile. */
	virtual FOnPatchCompleteDelegate& GetOnPatchCompleteDelegate() = 0;
};
