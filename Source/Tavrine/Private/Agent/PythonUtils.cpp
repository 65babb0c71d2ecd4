#include "Agent/PythonUtils.h"

#include "Agent/FileUtils.h"
#include "GenericPlatform/GenericPlatformFile.h"
#include "HAL/PlatformFileManager.h"
#include "IPythonScriptPlugin.h"
#include "PythonScriptTypes.h"
#include "Misc/DateTime.h"
#include "Misc/FileHelper.h"
#include "Misc/Paths.h"
#include "Modules/ModuleManager.h"

FPythonScriptResult FTavrinePythonUtils::CreateAndExecutePythonScript(const FString& Code)
{
	const FString ScriptPath = FPaths::Combine(TEXT("Plugins"), TEXT("tavrine-unreal"), TEXT("Python"), GenerateScriptName());
	const FString LogFilePath = FPaths::CreateTempFilename(*FPaths::ProjectLogDir(), TEXT("PythonScriptLog_"), TEXT(".log"));

	// All the script prints goes to the log file; the closing lines run only when the code gets to its end.
	FString Script = FString::Printf(TEXT("import sys\nsys.stdout = open('%s', 'w')\nsys.stderr = sys.stdout\n"), *LogFilePath);
	Script += Code;
	Script += TEXT("\n\nsys.stdout.close()\nsys.stdout = sys.__stdout__\nsys.stderr = sys.__stderr__\n");

	FPythonScriptResult Result;
	const FString WriteResult = FFileUtils::CreateNewFileWithContent(ScriptPath, Script);
	if (FFileUtils::IsErrorText(WriteResult))
	{
		Result.Message = WriteResult;
		return Result;
	}

	FPythonCommandEx Command;
	Command.ExecutionMode = EPythonCommandExecutionMode::ExecuteFile;
	Command.FileExecutionScope = EPythonFileExecutionScope::Public;
	Command.Command = FPaths::ConvertRelativePathToFull(FPaths::ProjectDir(), ScriptPath);

	bool bExecuted = false;
	if (IPythonScriptPlugin* PythonPlugin = FModuleManager::GetModulePtr<IPythonScriptPlugin>(TEXT("PythonScriptPlugin")))
	{
		bExecuted = PythonPlugin->ExecPythonCommandEx(Command);
	}
	else
	{
		Command.CommandResult = TEXT("The Python Editor Script Plugin (PythonScriptPlugin) is not loaded.");
	}

	FFileUtils::DeleteFile(ScriptPath);

	FString Output;
	if (FFileHelper::LoadFileToString(Output, *LogFilePath))
	{
		FPlatformFileManager::Get().GetPlatformFile().DeleteFile(*LogFilePath);
	}
	else
	{
		Output = TEXT("Error: Failed to read Python script log file.");
	}

	if (bExecuted)
	{
		Result.bSuccess = true;
		Result.Message = FString::Printf(TEXT("Python script completed: \n%s"), *Output);
		return Result;
	}
	Result.Message = TEXT("Error: Python script execution failed.");
	Result.Details = Output + TEXT(" ") + Command.CommandResult;
	return Result;
}

FString FTavrinePythonUtils::GenerateScriptName()
{
	return FString::Printf(TEXT("generated_script_%s.py"), *FDateTime::Now().ToString(TEXT("%Y%m%d_%H%M%S")));
}
