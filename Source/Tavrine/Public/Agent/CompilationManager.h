#pragma once

#include "CoreMinimal.h"
#include "Dom/JsonObject.h"
#if WITH_LIVE_CODING
#include "ILiveCodingModule.h"
#endif
#include "Misc/CompilationResult.h"

class FCompilationLogOutputDevice;

/** The messages handed over with the compile, the tool call's id, the compiler's words, and the outcome. */
DECLARE_MULTICAST_DELEGATE_FourParams(FOnCompilationFinished, const TArray<TSharedPtr<FJsonObject>>& /*Messages*/, FString /*ToolId*/, FString /*Logs*/, bool /*bSuccess*/);

/**
 * Compiles the project's game code for the compile tool: saves what is dirty, tries Live Coding, falls back
 * on Hot Reload, collects the compiler's output, and reports the outcome once through
 * OnCompilationFinishedDelegate. One compile runs at a time.
 */
class TAVRINE_API FCompilationManager
{
public:
	/** Starts a compile for the tool call ToolId; Messages come back with the outcome. */
	static void CompileGameProject(FString ToolId, const TArray<TSharedPtr<FJsonObject>>& Messages);

	/** Compiles and waits, unless Live Coding isn't there (or not built in) or not enabled: then Hot Reload runs instead. */
	static void CompileGameWithLiveCoding();
	/** Starts a Hot Reload build; its end comes later by the module's event. */
	static void CompileGameWithHotReload();

	/** Makes the log capture on first use, and empties what it holds. */
	static void CaptureCompilationLogs();
	/** The compile-related log lines captured since the last compile started, as "[Category] Text". */
	static const TArray<FString>& GetCompilationLogs();
	/** The captured lines that hold Filter, in any case, in order. */
	static TArray<FString> FilterCompilationErrors(const FString& Filter);

#if WITH_LIVE_CODING
	static void OnLiveCodingCompilationFinished(const FString& BuildToolLog, ELiveCodingCompileResult Result);
#endif
	static void OnHotReloadCompilationFinished(const FString& CompilerOutput, ECompilationResult::Type Result, bool bShowLog);

	/** Takes the log capture off the global log and drops an open Hot Reload binding; for the module's unload. */
	static void Shutdown();

	/** The one way out of this class; the agent binds to it once. */
	static FOnCompilationFinished OnCompilationFinishedDelegate;

private:
	/** Saves the dirty content and world packages; a failed save is passed over. */
	static void SaveDirtyPackages();
	/** The error and warning lines of the build tool's last log, each with a line end; empty without a log. */
	static FString ReadBuildToolLog();
	/** Lets the editor pick up Blueprint classes that the new code changed. */
	static void RescanBlueprintClasses();
	/** Leaves Hot Reload's finished event, when bound to it. */
	static void RemoveHotReloadBinding();
	static void Broadcast(const FString& Logs, bool bSuccess);

	static TArray<TSharedPtr<FJsonObject>> StoredMessages;
	static FString SharedToolId;
	static TSharedPtr<FCompilationLogOutputDevice> LogOutputDevice;
	/** The binding to Hot Reload's finished event while a Hot Reload compile is open. */
	static FDelegateHandle CompilationManagerDelegateHandle;
};
