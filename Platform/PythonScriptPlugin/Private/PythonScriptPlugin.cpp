#include "IPythonScriptPlugin.h"

#include "HAL/FileManager.h"
#include "HAL/PlatformProcess.h"
#include "Logging/LogMacros.h"
#include "Misc/ConfigCacheIni.h"
#include "Misc/FileHelper.h"
#include "Misc/Paths.h"
#include "Misc/StandInLineSplitter.h"

#include <chrono>

DEFINE_LOG_CATEGORY_STATIC(LogPython, Log, All);

namespace
{
	const TCHAR* const PythonSection = TEXT("StandIn.Python");
	// Generous: an editor script may load and save many assets. It only keeps a script that never ends from
	// holding the editor for good.
	constexpr double DefaultTimeoutSeconds = 120.0;
	// unreal.log and its siblings mark their lines with this, then I, W or E, then the mark again.
	constexpr TCHAR LogMark = TEXT('\x1f');

	struct FPythonSettings
	{
		FString Interpreter = TEXT("python3");
		double TimeoutSeconds = DefaultTimeoutSeconds;
	};

	FPythonSettings ReadSettings()
	{
		FPythonSettings Settings;
		FConfigFile Config;
		Config.Read(FPaths::Combine(FPaths::ProjectConfigDir(), TEXT("DefaultEditor.ini")));
		FString Interpreter;
		if (Config.GetString(PythonSection, TEXT("Interpreter"), Interpreter) && !Interpreter.TrimStartAndEnd().IsEmpty())
		{
			Settings.Interpreter = Interpreter.TrimStartAndEnd();
		}
		double Timeout = 0.0;
		if (Config.GetDouble(PythonSection, TEXT("TimeoutSeconds"), Timeout) && Timeout > 0.0)
		{
			Settings.TimeoutSeconds = Timeout;
		}
		return Settings;
	}

	double RealSeconds()
	{
		// Real time, whatever the engine's clock does: the interpreter is a real process.
		return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
	}

	/** One argument for the command-line splitter of CreateProc. */
	FString Quote(const FString& Argument)
	{
		return FString(TEXT("\"")) + Argument.Replace(TEXT("\""), TEXT("\\\"")) + TEXT("\"");
	}

	/** Splits off the first word of a command line, honouring double quotes as CreateProc does. */
	void SplitFirstWord(const FString& CommandLine, FString& OutFirst, FString& OutRest)
	{
		const FString Trimmed = CommandLine.TrimStart();
		bool bInQuotes = false;
		int32 Index = 0;
		for (; Index < Trimmed.Len(); ++Index)
		{
			const TCHAR Char = Trimmed[Index];
			if (Char == TEXT('"'))
			{
				bInQuotes = !bInQuotes;
			}
			else if (!bInQuotes && FChar::IsWhitespace(Char))
			{
				break;
			}
		}
		OutFirst = Trimmed.Left(Index).Replace(TEXT("\""), TEXT(""));
		OutRest = Trimmed.Mid(Index).TrimStart();
	}
}

/** Runs each command in a python3 process of its own and waits for it, as the editor waits for its own interpreter. */
class FPythonScriptPlugin final : public IPythonScriptPlugin
{
public:
	virtual void StartupModule() override
	{
		// The editor writes its own log into the project's log folder, so scripts may count on the folder.
		IFileManager::Get().MakeDirectory(*FPaths::ProjectLogDir(), true);
		OnPythonInitializedDelegate.Broadcast();
	}

	virtual void ShutdownModule() override
	{
		OnPythonShutdownDelegate.Broadcast();
	}

	virtual bool SupportsDynamicReloading() override
	{
		return false;
	}

	virtual bool IsPythonAvailable() const override
	{
		int32 ReturnCode = -1;
		return FPlatformProcess::ExecProcess(*ReadSettings().Interpreter, TEXT("--version"), &ReturnCode, nullptr, nullptr) && ReturnCode == 0;
	}

	virtual bool IsPythonConfigured() const override
	{
		return true;
	}

	virtual bool IsPythonInitialized() const override
	{
		return true;
	}

	virtual FString GetInterpreterExecutablePath() const override
	{
		return ReadSettings().Interpreter;
	}

	virtual bool ExecPythonCommand(const TCHAR* InPythonCommand) override
	{
		FPythonCommandEx Command;
		Command.Command = InPythonCommand != nullptr ? InPythonCommand : TEXT("");
		const bool bSucceeded = ExecPythonCommandEx(Command);
		if (!bSucceeded && !Command.CommandResult.IsEmpty())
		{
			UE_LOG(LogPython, Error, TEXT("%s"), *Command.CommandResult);
		}
		return bSucceeded;
	}

	virtual bool ExecPythonCommandEx(FPythonCommandEx& InOutPythonCommand) override
	{
		InOutPythonCommand.CommandResult.Reset();
		InOutPythonCommand.LogOutput.Reset();

		const FString TempDir = FPaths::Combine(FPaths::ProjectIntermediateDir(), TEXT("PythonStandIn"));
		IFileManager::Get().MakeDirectory(*TempDir, true);
		const FString ResultPath = FPaths::CreateTempFilename(*TempDir, TEXT("Result_"), TEXT(".txt"));

		FString Mode = TEXT("file");
		FString SourcePath;
		FString Arguments;
		bool bOwnsSource = true;
		if (InOutPythonCommand.ExecutionMode == EPythonCommandExecutionMode::ExecuteFile)
		{
			FString FirstWord;
			FString Rest;
			SplitFirstWord(InOutPythonCommand.Command, FirstWord, Rest);
			// A whole command that names a file is that file, blanks in its path and all.
			const FString WholeCommand = InOutPythonCommand.Command.TrimStartAndEnd();
			if (WholeCommand.EndsWith(TEXT(".py")) && FPaths::FileExists(FPaths::ConvertRelativePathToFull(WholeCommand)))
			{
				FirstWord = WholeCommand;
				Rest.Reset();
			}
			if (FirstWord.EndsWith(TEXT(".py")))
			{
				SourcePath = FPaths::ConvertRelativePathToFull(FirstWord);
				if (!FPaths::FileExists(SourcePath))
				{
					InOutPythonCommand.CommandResult = FString::Printf(TEXT("Could not find Python file '%s'"), *FirstWord);
					return false;
				}
				Arguments = Rest;
				bOwnsSource = false;
			}
		}
		else
		{
			Mode = InOutPythonCommand.ExecutionMode == EPythonCommandExecutionMode::ExecuteStatement ? TEXT("statement") : TEXT("evaluate");
		}
		if (bOwnsSource)
		{
			SourcePath = FPaths::CreateTempFilename(*TempDir, TEXT("Command_"), TEXT(".py"));
			if (!FFileHelper::SaveStringToFile(InOutPythonCommand.Command, *SourcePath, FFileHelper::EEncodingOptions::ForceUTF8WithoutBOM))
			{
				InOutPythonCommand.CommandResult = FString::Printf(TEXT("Could not write the command to '%s'"), *SourcePath);
				return false;
			}
		}

		const FString RunnerPath = FPaths::Combine(FString(UTF8_TO_TCHAR(PYTHONSCRIPTPLUGIN_CONTENT_PYTHON_DIR)), TEXT("standin_exec.py"));
		FString Parms = FString::Printf(TEXT("-u %s %s %s %s"), *Quote(RunnerPath), *Mode, *Quote(ResultPath), *Quote(SourcePath));
		if (!Arguments.IsEmpty())
		{
			Parms += TEXT(" ") + Arguments;
		}
		const bool bSucceeded = RunInterpreter(Parms, InOutPythonCommand);

		FString Result;
		if (FFileHelper::LoadFileToString(Result, *ResultPath) && InOutPythonCommand.CommandResult.IsEmpty())
		{
			InOutPythonCommand.CommandResult = Result;
		}
		IFileManager::Get().Delete(*ResultPath, false, true, true);
		if (bOwnsSource)
		{
			IFileManager::Get().Delete(*SourcePath, false, true, true);
		}
		return bSucceeded;
	}

	virtual FSimpleMulticastDelegate& OnPythonInitialized() override
	{
		return OnPythonInitializedDelegate;
	}

	virtual FSimpleMulticastDelegate& OnPythonShutdown() override
	{
		return OnPythonShutdownDelegate;
	}

private:
	/** Runs the interpreter to its end or its time limit, logging what it writes. True when it ended with status 0. */
	bool RunInterpreter(const FString& Parms, FPythonCommandEx& Command)
	{
		const FPythonSettings Settings = ReadSettings();
		void* OutRead = nullptr;
		void* OutWrite = nullptr;
		void* ErrRead = nullptr;
		void* ErrWrite = nullptr;
		if (!FPlatformProcess::CreatePipe(OutRead, OutWrite) || !FPlatformProcess::CreatePipe(ErrRead, ErrWrite))
		{
			FPlatformProcess::ClosePipe(OutRead, OutWrite);
			Command.CommandResult = TEXT("Could not make pipes for the Python interpreter.");
			return false;
		}
		FProcHandle Process = FPlatformProcess::CreateProc(*Settings.Interpreter, *Parms, false, true, true, nullptr, 0, *FPaths::ProjectDir(), OutWrite, nullptr, ErrWrite);
		if (!Process.IsValid())
		{
			FPlatformProcess::ClosePipe(OutRead, OutWrite);
			FPlatformProcess::ClosePipe(ErrRead, ErrWrite);
			Command.CommandResult = FString::Printf(TEXT("Could not start the Python interpreter '%s'."), *Settings.Interpreter);
			return false;
		}

		FStandInLineSplitter OutLines;
		FStandInLineSplitter ErrLines;
		const double StartSeconds = RealSeconds();
		bool bTimedOut = false;
		for (;;)
		{
			// Whether it still runs is asked before reading, so that its last words are read after its end.
			const bool bRunning = FPlatformProcess::IsProcRunning(Process);
			TArray<uint8> Bytes;
			FPlatformProcess::ReadPipeToArray(OutRead, Bytes);
			OutLines.Feed(Bytes, !bRunning, [&Command](const FString& Line) { AddOutputLine(Command, Line, false); });
			FPlatformProcess::ReadPipeToArray(ErrRead, Bytes);
			ErrLines.Feed(Bytes, !bRunning, [&Command](const FString& Line) { AddOutputLine(Command, Line, true); });
			if (!bRunning)
			{
				break;
			}
			if (RealSeconds() - StartSeconds > Settings.TimeoutSeconds)
			{
				FPlatformProcess::TerminateProc(Process, true);
				bTimedOut = true;
			}
			else
			{
				FPlatformProcess::Sleep(0.002f);
			}
		}

		int32 ReturnCode = -1;
		FPlatformProcess::GetProcReturnCode(Process, &ReturnCode);
		FPlatformProcess::CloseProc(Process);
		FPlatformProcess::ClosePipe(OutRead, OutWrite);
		FPlatformProcess::ClosePipe(ErrRead, ErrWrite);
		if (bTimedOut)
		{
			Command.CommandResult = FString::Printf(TEXT("The Python command was stopped: it ran longer than %.0f seconds."), Settings.TimeoutSeconds);
			UE_LOG(LogPython, Error, TEXT("%s"), *Command.CommandResult);
			return false;
		}
		return ReturnCode == 0;
	}

	static void AddOutputLine(FPythonCommandEx& Command, const FString& Line, bool bFromErrorStream)
	{
		FPythonLogOutputEntry Entry;
		Entry.Type = bFromErrorStream ? EPythonLogOutputType::Error : EPythonLogOutputType::Info;
		Entry.Output = Line;
		if (!bFromErrorStream && Line.Len() >= 3 && Line[0] == LogMark && Line[2] == LogMark)
		{
			Entry.Type = Line[1] == TEXT('E') ? EPythonLogOutputType::Error : Line[1] == TEXT('W') ? EPythonLogOutputType::Warning : EPythonLogOutputType::Info;
			Entry.Output = Line.Mid(3);
		}
		switch (Entry.Type)
		{
		case EPythonLogOutputType::Error:
			UE_LOG(LogPython, Error, TEXT("%s"), *Entry.Output);
			break;
		case EPythonLogOutputType::Warning:
			UE_LOG(LogPython, Warning, TEXT("%s"), *Entry.Output);
			break;
		default:
			UE_LOG(LogPython, Display, TEXT("%s"), *Entry.Output);
			break;
		}
		Command.LogOutput.Add(MoveTemp(Entry));
	}

	FSimpleMulticastDelegate OnPythonInitializedDelegate;
	FSimpleMulticastDelegate OnPythonShutdownDelegate;
};

IMPLEMENT_MODULE(FPythonScriptPlugin, PythonScriptPlugin)
