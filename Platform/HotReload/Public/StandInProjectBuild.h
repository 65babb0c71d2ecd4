#pragma once

#include "CoreMinimal.h"
#include "HAL/PlatformProcess.h"
#include "Misc/StandInLineSplitter.h"
#include "Templates/Function.h"

/**
 * Stand-in only: the project's build, as the engine's build tool would run it for Live Coding and Hot Reload.
 *
 * The command comes from the project's "Config/DefaultEditor.ini":
 *
 *     [StandIn.Build]
 *     BuildCommand=make -s -f Source/StandInBuild.mk
 *     BuildProduct=Binaries/Linux/libUnrealEditor-SampleProject.so
 *     TimeoutSeconds=600
 *
 * The command runs through /bin/sh in the project's folder, with its output and errors in one stream, and
 * finds the engine's Core headers in the environment variable STANDIN_CORE_INCLUDE_DIR. Exit
 * status 0 is success; it counts as "up to date" when the product file was there before and the build didn't
 * touch it. Like the build tool, the build writes its whole output to "Log.txt" under
 * FPaths::EngineDir() / "Programs" / "UnrealBuildTool" when it ends.
 */
class HOTRELOAD_API FStandInProjectBuild
{
public:
	enum class EResult : uint8
	{
		/** Not started, or still running. */
		None,
		Succeeded,
		UpToDate,
		Failed,
		Canceled
	};

	struct FSettings
	{
		FString Command;
		/** Relative to the project's folder; empty when the project names none. */
		FString Product;
		double TimeoutSeconds = 600.0;
	};

	/** What the project's config says, read anew at each call. */
	static FSettings ReadSettings();
	/** False when the project has no build command: then nothing can be built. */
	static bool IsConfigured();
	/** The build tool's log of the last build. */
	static FString GetLogFilePath();
	/** Logs a line of the build's output under Category, at the verbosity its words ask for, as the editor shows a build. */
	static void LogOutputLine(const FName& Category, const FString& Line);

	/** OnLine gets each line of output as it arrives, on the thread that runs Start, Update and Wait. */
	explicit FStandInProjectBuild(TFunction<void(const FString&)> InOnLine = nullptr);
	/** Cancels a build that still runs. */
	~FStandInProjectBuild();
	FStandInProjectBuild(const FStandInProjectBuild&) = delete;
	FStandInProjectBuild& operator=(const FStandInProjectBuild&) = delete;

	/** Starts the build. False when there is no command or it can't start: the build has then failed already. */
	bool Start();
	/** Takes in what the build wrote since the last call and notices its end; true once it has ended. Never waits. */
	bool Update();
	/** Blocks until the build has ended. */
	void Wait();
	/** Ends a running build; its result is Canceled. */
	void Cancel();

	bool IsRunning() const
	{
		return bRunning;
	}
	EResult GetResult() const
	{
		return Result;
	}
	/** Everything the build wrote, a line each, with the stand-in's own notes among them. */
	const TArray<FString>& GetOutputLines() const
	{
		return OutputLines;
	}
	/** The output lines joined by line feeds. */
	FString GetOutput() const;

private:
	void AddLine(const FString& Line);
	/** Splits what arrived into lines; with bFinal the rest without a line end counts as a line too. */
	void TakeOutput(bool bFinal);
	void Finish(EResult InResult);
	void WriteLogFile() const;
	/** The product's modification time; false when there is no product, or no file for it. */
	bool GetProductStamp(int64& OutStamp) const;

	TFunction<void(const FString&)> OnLine;
	FSettings Settings;
	FProcHandle Process;
	void* ReadPipe = nullptr;
	void* WritePipe = nullptr;
	FStandInLineSplitter OutputSplitter;
	TArray<FString> OutputLines;
	double StartSeconds = 0.0;
	/** The product's modification time before the build, when it was there. */
	int64 ProductStampBefore = 0;
	bool bHadProduct = false;
	EResult Result = EResult::None;
	bool bRunning = false;
};
