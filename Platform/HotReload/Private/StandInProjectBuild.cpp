#include "StandInProjectBuild.h"

#include "HAL/FileManager.h"
#include "Logging/LogMacros.h"
#include "Misc/ConfigCacheIni.h"
#include "Misc/FileHelper.h"
#include "Misc/Paths.h"

#include <chrono>
#include <filesystem>
#include <system_error>

namespace
{
	const TCHAR* const BuildSection = TEXT("StandIn.Build");

	double RealSeconds()
	{
		// Real time, whatever the engine's clock does: the build is a real process.
		return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
	}

	/**
	 * The arguments of "/bin/sh" that run the command with the engine's Core headers named in
	 * STANDIN_CORE_INCLUDE_DIR, quoted for the command-line splitter of CreateProc.
	 */
	FString MakeShellArguments(const FString& Command)
	{
		const FString IncludeDir = FString(UTF8_TO_TCHAR(STANDIN_CORE_INCLUDE_DIR)).Replace(TEXT("'"), TEXT("'\\''"));
		const FString Script = FString::Printf(TEXT("STANDIN_CORE_INCLUDE_DIR='%s'; export STANDIN_CORE_INCLUDE_DIR; %s"), *IncludeDir, *Command);
		return FString(TEXT("-c \"")) + Script.Replace(TEXT("\""), TEXT("\\\"")) + TEXT("\"");
	}

	const TCHAR* ResultWord(FStandInProjectBuild::EResult Result)
	{
		switch (Result)
		{
		case FStandInProjectBuild::EResult::Succeeded:
			return TEXT("Succeeded");
		case FStandInProjectBuild::EResult::UpToDate:
			return TEXT("UpToDate");
		case FStandInProjectBuild::EResult::Canceled:
			return TEXT("Canceled");
		case FStandInProjectBuild::EResult::Failed:
			return TEXT("Failed");
		default:
			return TEXT("None");
		}
	}
}

FStandInProjectBuild::FSettings FStandInProjectBuild::ReadSettings()
{
	FSettings Settings;
	FConfigFile Config;
	Config.Read(FPaths::Combine(FPaths::ProjectConfigDir(), TEXT("DefaultEditor.ini")));
	Config.GetString(BuildSection, TEXT("BuildCommand"), Settings.Command);
	Config.GetString(BuildSection, TEXT("BuildProduct"), Settings.Product);
	Settings.Command.TrimStartAndEndInline();
	Settings.Product.TrimStartAndEndInline();
	double Timeout = 0.0;
	if (Config.GetDouble(BuildSection, TEXT("TimeoutSeconds"), Timeout) && Timeout > 0.0)
	{
		Settings.TimeoutSeconds = Timeout;
	}
	return Settings;
}

bool FStandInProjectBuild::IsConfigured()
{
	return !ReadSettings().Command.IsEmpty();
}

FString FStandInProjectBuild::GetLogFilePath()
{
	return FPaths::Combine(FPaths::EngineDir(), TEXT("Programs"), TEXT("UnrealBuildTool"), TEXT("Log.txt"));
}

void FStandInProjectBuild::LogOutputLine(const FName& Category, const FString& Line)
{
	ELogVerbosity::Type Verbosity = ELogVerbosity::Display;
	if (Line.Contains(TEXT("error")))
	{
		Verbosity = ELogVerbosity::Error;
	}
	else if (Line.Contains(TEXT("warning")))
	{
		Verbosity = ELogVerbosity::Warning;
	}
	FMsg::Logf(__FILE__, __LINE__, Category, Verbosity, TEXT("%s"), *Line);
}

FStandInProjectBuild::FStandInProjectBuild(TFunction<void(const FString&)> InOnLine)
	: OnLine(MoveTemp(InOnLine))
{
}

FStandInProjectBuild::~FStandInProjectBuild()
{
	Cancel();
}

bool FStandInProjectBuild::Start()
{
	if (bRunning)
	{
		return false;
	}
	OutputLines.Reset();
	OutputSplitter.Reset();
	Result = EResult::None;
	Settings = ReadSettings();
	StartSeconds = RealSeconds();
	if (Settings.Command.IsEmpty())
	{
		AddLine(TEXT("The project has no build command: [StandIn.Build] BuildCommand in Config/DefaultEditor.ini."));
		Finish(EResult::Failed);
		return false;
	}

	bHadProduct = GetProductStamp(ProductStampBefore);
	if (!FPlatformProcess::CreatePipe(ReadPipe, WritePipe))
	{
		AddLine(TEXT("Can't start the build: no pipe for its output."));
		Finish(EResult::Failed);
		return false;
	}
	const FString Parms = MakeShellArguments(Settings.Command);
	Process = FPlatformProcess::CreateProc(TEXT("/bin/sh"), *Parms, false, true, true, nullptr, 0, *FPaths::ProjectDir(), WritePipe);
	if (!Process.IsValid())
	{
		AddLine(FString::Printf(TEXT("Can't start the build command: %s"), *Settings.Command));
		Finish(EResult::Failed);
		return false;
	}
	bRunning = true;
	return true;
}

bool FStandInProjectBuild::Update()
{
	if (!bRunning)
	{
		return true;
	}
	// Whether it still runs is asked before reading, so that its last words are read after its end.
	const bool bStillRunning = FPlatformProcess::IsProcRunning(Process);
	TakeOutput(!bStillRunning);
	if (bStillRunning)
	{
		if (RealSeconds() - StartSeconds > Settings.TimeoutSeconds)
		{
			FPlatformProcess::TerminateProc(Process, true);
			TakeOutput(true);
			AddLine(FString::Printf(TEXT("The build was stopped: it ran longer than %.0f seconds."), Settings.TimeoutSeconds));
			Finish(EResult::Failed);
			return true;
		}
		return false;
	}

	int32 ExitCode = -1;
	FPlatformProcess::GetProcReturnCode(Process, &ExitCode);
	int64 ProductStampAfter = 0;
	const bool bProductUntouched = bHadProduct && GetProductStamp(ProductStampAfter) && ProductStampAfter == ProductStampBefore;
	if (ExitCode != 0)
	{
		AddLine(FString::Printf(TEXT("The build command ended with exit code %d."), ExitCode));
		Finish(EResult::Failed);
	}
	else if (bProductUntouched)
	{
		AddLine(TEXT("Target is up to date"));
		Finish(EResult::UpToDate);
	}
	else
	{
		Finish(EResult::Succeeded);
	}
	return true;
}

void FStandInProjectBuild::Wait()
{
	while (!Update())
	{
		FPlatformProcess::Sleep(0.005f);
	}
}

void FStandInProjectBuild::Cancel()
{
	if (!bRunning)
	{
		return;
	}
	FPlatformProcess::TerminateProc(Process, true);
	TakeOutput(true);
	AddLine(TEXT("The build was canceled."));
	Finish(EResult::Canceled);
}

FString FStandInProjectBuild::GetOutput() const
{
	return FString::Join(OutputLines, TEXT("\n"));
}

void FStandInProjectBuild::AddLine(const FString& Line)
{
	OutputLines.Add(Line);
	if (OnLine)
	{
		OnLine(Line);
	}
}

void FStandInProjectBuild::TakeOutput(bool bFinal)
{
	TArray<uint8> Bytes;
	if (ReadPipe != nullptr && !FPlatformProcess::ReadPipeToArray(ReadPipe, Bytes))
	{
		Bytes.Reset();
	}
	OutputSplitter.Feed(Bytes, bFinal, [this](const FString& Line) { AddLine(Line); });
}

void FStandInProjectBuild::Finish(EResult InResult)
{
	Result = InResult;
	bRunning = false;
	if (Process.IsValid())
	{
		FPlatformProcess::CloseProc(Process);
	}
	if (ReadPipe != nullptr || WritePipe != nullptr)
	{
		FPlatformProcess::ClosePipe(ReadPipe, WritePipe);
		ReadPipe = nullptr;
		WritePipe = nullptr;
	}
	WriteLogFile();
}

void FStandInProjectBuild::WriteLogFile() const
{
	const FString LogPath = GetLogFilePath();
	IFileManager::Get().MakeDirectory(*FPaths::GetPath(LogPath), true);
	TArray<FString> Lines;
	Lines.Add(FString::Printf(TEXT("Log file: %s"), *LogPath));
	Lines.Add(FString::Printf(TEXT("Building %s with: %s"), *FPaths::ProjectDir(), *Settings.Command));
	Lines.Append(OutputLines);
	Lines.Add(FString::Printf(TEXT("Result: %s"), ResultWord(Result)));
	Lines.Add(FString::Printf(TEXT("Total execution time: %.2f seconds"), RealSeconds() - StartSeconds));
	FFileHelper::SaveStringArrayToFile(Lines, *LogPath, FFileHelper::EEncodingOptions::ForceUTF8WithoutBOM);
}

bool FStandInProjectBuild::GetProductStamp(int64& OutStamp) const
{
	if (Settings.Product.IsEmpty())
	{
		return false;
	}
	const FString ProductPath = FPaths::ConvertRelativePathToFull(FPaths::ProjectDir(), Settings.Product);
	std::error_code Error;
	const std::filesystem::file_time_type Time = std::filesystem::last_write_time(std::filesystem::path(TCHAR_TO_UTF8(*ProductPath)), Error);
	if (Error)
	{
		return false;
	}
	OutStamp = static_cast<int64>(std::chrono::duration_cast<std::chrono::nanoseconds>(Time.time_since_epoch()).count());
	return true;
}
