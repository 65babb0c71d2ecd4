#pragma once

#include "CoreMinimal.h"

/** What running a generated script gave. */
struct FPythonScriptResult
{
	/** The script was written and ran without error. */
	bool bSuccess = false;
	/** On success "Python script completed: \n" and the script's output; on failure the error. */
	FString Message;
	/** After a failed run: the output, a blank and the interpreter's error. Empty otherwise. */
	FString Details;
};

/** Runs Python code from the backend in the editor's Python plugin and gives back what it printed. */
class TAVRINE_API FTavrinePythonUtils
{
public:
	/**
	 * Writes the code as a script under the plugin's folder, wrapped so that everything it prints goes to
	 * a log file, runs it, and removes both files again. Blocks until the script has ended.
	 */
	static FPythonScriptResult CreateAndExecutePythonScript(const FString& Code);

private:
	/** "generated_script_<local date and time>.py". */
	static FString GenerateScriptName();
};
