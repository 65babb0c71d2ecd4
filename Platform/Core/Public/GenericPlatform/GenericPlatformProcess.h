#pragma once

#include "CoreTypes.h"
#include "Containers/Array.h"
#include "Containers/UnrealString.h"

/** What the platform keeps about a process it started; only FPlatformProcess looks inside. */
struct FProcState;

/** Names a process started by CreateProc. Copies name the same process; CloseProc frees it once. */
struct FProcHandle
{
	FProcHandle() = default;
	explicit FProcHandle(FProcState* InState)
		: State(InState)
	{
	}

	bool IsValid() const
	{
		return State != nullptr;
	}
	void Reset()
	{
		State = nullptr;
	}
	FProcState* GetProcessInfo() const
	{
		return State;
	}

private:
	FProcState* State = nullptr;
};

/**
 * Starting and watching other programs. The stand-in implements it with POSIX calls, as the engine's Unix
 * platform does, and only the part that the plugin's engine modules use.
 */
struct FGenericPlatformProcess
{
	/**
	 * Starts URL with the command line Parms: words split at blanks, double quotes group words and are
	 * dropped, \" inside quotes stands for a quote. A URL without a slash is looked up on PATH. The child
	 * writes its output and errors to PipeWriteChild, its errors to PipeStdErrChild instead when that is
	 * given, reads PipeReadChild (or nothing), and starts in OptionalWorkingDirectory when that is given.
	 * The child leads a process group of its own, so TerminateProc can end what it starts as well.
	 * The launch flags and the priority are not used here. An invalid handle when the program can't start.
	 */
	static CORE_API FProcHandle CreateProc(const TCHAR* URL, const TCHAR* Parms, bool bLaunchDetached, bool bLaunchHidden, bool bLaunchReallyHidden, uint32* OutProcessID, int32 PriorityModifier, const TCHAR* OptionalWorkingDirectory, void* PipeWriteChild, void* PipeReadChild = nullptr, void* PipeStdErrChild = nullptr);

	/** True until the process has ended; the first call that sees the end also collects its exit code. */
	static CORE_API bool IsProcRunning(FProcHandle& ProcessHandle);
	/** Blocks until the process has ended. */
	static CORE_API void WaitForProc(FProcHandle& ProcessHandle);
	/** The exit code, once the process has ended (false before); a process ended by a signal gives -1. */
	static CORE_API bool GetProcReturnCode(FProcHandle& ProcHandle, int32* ReturnCode);
	/** Kills the process, or with KillTree its whole process group; the exit code is then collected. */
	static CORE_API void TerminateProc(FProcHandle& ProcessHandle, bool KillTree = false);
	/** Forgets the process and resets the handle. A process still running is left to run. */
	static CORE_API void CloseProc(FProcHandle& ProcessHandle);

	/** A pipe for a child's input or output; the ends are closed on exec except where a child gets them. */
	static CORE_API bool CreatePipe(void*& ReadPipe, void*& WritePipe, bool bWritePipeLocal = false);
	static CORE_API void ClosePipe(void* ReadPipe, void* WritePipe);
	/** What the pipe holds now, as UTF-8 text; never waits. */
	static CORE_API FString ReadPipe(void* ReadPipe);
	/** What the pipe holds now, as bytes; false when there was nothing. Never waits. */
	static CORE_API bool ReadPipeToArray(void* ReadPipe, TArray<uint8>& Output);

	/**
	 * Runs a program to its end and gives its exit code, output and errors (each as UTF-8 text).
	 * False when it could not be started.
	 */
	static CORE_API bool ExecProcess(const TCHAR* URL, const TCHAR* Params, int32* OutReturnCode, FString* OutStdOut, FString* OutStdErr, const TCHAR* OptionalWorkingDirectory = nullptr, bool bShouldEndWithParentProcess = false);

	static CORE_API void Sleep(float Seconds);
};
