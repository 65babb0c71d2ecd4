#pragma once

#include "CoreMinimal.h"
#include "Modules/ModuleInterface.h"
#include "Modules/ModuleManager.h"
#include "PythonScriptTypes.h"

/**
 * The Python plugin's interface.
 *
 * Stand-in: commands run in a real python3 (or the [StandIn.Python] Interpreter of the project's
 * Config/DefaultEditor.ini), one process per command, with a small "unreal" module of its own on the path
 * that offers log, log_warning and log_error. A command that runs longer than [StandIn.Python] TimeoutSeconds
 * (120 unless set) is stopped and fails.
 */
class IPythonScriptPlugin : public IModuleInterface
{
public:
	/** The plugin when it is loaded, else null. */
	static IPythonScriptPlugin* Get()
	{
		return FModuleManager::GetModulePtr<IPythonScriptPlugin>(TEXT("PythonScriptPlugin"));
	}

	/** True when an interpreter can run. */
	virtual bool IsPythonAvailable() const = 0;
	virtual bool IsPythonConfigured() const = 0;
	virtual bool IsPythonInitialized() const = 0;
	virtual FString GetInterpreterExecutablePath() const = 0;

	/** Runs literal code or a file with arguments; errors go to the log. True when it ran without error. */
	virtual bool ExecPythonCommand(const TCHAR* InPythonCommand) = 0;
	/** Runs the command as its mode says and fills in its result and output. True when it ran without error. */
	virtual bool ExecPythonCommandEx(FPythonCommandEx& InOutPythonCommand) = 0;

	virtual FSimpleMulticastDelegate& OnPythonInitialized() = 0;
	virtual FSimpleMulticastDelegate& OnPythonShutdown() = 0;
};
