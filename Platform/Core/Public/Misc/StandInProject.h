#pragma once

#include "CoreTypes.h"
#include "Containers/UnrealString.h"

/**
 * Stand-in only: the host program says which project and engine folders the editor runs with; the engine
 * learns them from its command line and install. FPaths and FApp read what is set here.
 *
 * Until a project is set, the project folder is the process's working directory and the project has no
 * name. Until an engine folder is set, it is "Engine/" under the working directory.
 */
class FStandInProject
{
public:
	/** Takes the .uproject file (relative paths from the working directory); its folder becomes the project folder. */
	static void SetProjectFile(const FString& UProjectPath);

	/** Sets the engine's folder (the one holding "Binaries", "Plugins", "Programs"). */
	static void SetEngineDir(const FString& EngineDir);

	/** Back to no project and the default engine folder. */
	static void Reset();

	/** The .uproject's full path, or empty. */
	static FString GetProjectFile();
	/** Absolute, normalised, ending with '/'. */
	static FString GetProjectDir();
	/** Absolute, normalised, ending with '/'. */
	static FString GetEngineDir();
	/** The process's working directory, absolute, ending with '/'. */
	static FString GetWorkingDir();
};
