#pragma once

#include "CoreTypes.h"
#include "Containers/UnrealString.h"

/** Facts about the running application. The stand-in runs as the editor of a 5.5 release build. */
class FApp
{
public:
	/** The source branch the engine was built from, e.g. "++UE5+Release-5.5". */
	static FString GetBranchName();
	/** The branch and changelist, e.g. "++UE5+Release-5.5-CL-0". */
	static const TCHAR* GetBuildVersion();
	static FString GetBuildDate();

	/** The name of the project (its .uproject file's base name); empty when there is none. */
	static const TCHAR* GetProjectName();
	static bool HasProjectName();
	static void SetProjectName(const TCHAR* InProjectName);

	static bool IsGame()
	{
		return false;
	}
	static bool IsUnattended()
	{
		return false;
	}
	static bool CanEverRender()
	{
		return true;
	}

	/** Seconds of the last frame, as the engine loop last set it. */
	static double GetDeltaTime();
	static void SetDeltaTime(double Seconds);
	/** Seconds at the start of the current frame. */
	static double GetCurrentTime();
	static void SetCurrentTime(double Seconds);
};
