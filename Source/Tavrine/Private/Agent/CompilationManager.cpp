#include "Agent/CompilationManager.h"

#include "Agent/CompilationLogOutputDevice.h"
#include "AssetRegistry/AssetRegistryModule.h"
#include "Engine/Engine.h"
#include "FileHelpers.h"
#include "HAL/PlatformMisc.h"
#include "Misc/FileHelper.h"
#include "Misc/HotReloadInterface.h"
#include "Misc/PackageName.h"
#include "Misc/Paths.h"
#include "Modules/ModuleManager.h"
#include "UObject/Package.h"
#include "UObject/SavePackage.h"

FOnCompilationFinished FCompilationManager::OnCompilationFinishedDelegate;
TArray<TSharedPtr<FJsonObject>> FCompilationManager::StoredMessages;
FString FCompilationManager::SharedToolId;
TSharedPtr<FCompilationLogOutputDevice> FCompilationManager::LogOutputDevice;
FDelegateHandle FCompilationManager::CompilationManagerDelegateHandle;

namespace
{
#if WITH_LIVE_CODING
	const FName LiveCodingModuleName(TEXT(LIVE_CODING_MODULE_NAME));
#endif
	const FName HotReloadModuleName(TEXT("HotReload"));
	const FName AssetRegistryModuleName(TEXT("AssetRegistry"));

	/** The error and warning lines of a build log, each followed by a line end, in file order. */
	FString FilterBuildToolLog(const FString& LogPath)
	{
		FString Text;
		if (!FFileHelper::LoadFileToString(Text, *LogPath))
		{
			return FString();
		}
		TArray<FString> Lines;
		Text.ParseIntoArrayLines(Lines, false);
		FString Filtered;
		for (const FString& Line : Lines)
		{
			if (Line.Contains(TEXT("error:"), ESearchCase::IgnoreCase) || Line.Contains(TEXT("warning:"), ESearchCase::IgnoreCase))
			{
				Filtered += Line + TEXT("\n");
			}
		}
		return Filtered;
	}
}

void FCompilationManager::CompileGameProject(FString ToolId, const TArray<TSharedPtr<FJsonObject>>& Messages)
{
	StoredMessages = Messages;
	SharedToolId = ToolId;
	CompileGameWithLiveCoding();
}

void FCompilationManager::CompileGameWithLiveCoding()
{
#if !WITH_LIVE_CODING
	// Editors outside Windows have no Live Coding; they compile through Hot Reload.
	CompileGameWithHotReload();
#else
	SaveDirtyPackages();
	CaptureCompilationLogs();

	ILiveCodingModule* LiveCoding = FModuleManager::GetModulePtr<ILiveCodingModule>(LiveCodingModuleName);
	if (LiveCoding == nullptr)
	{
		FModuleManager::Get().LoadModule(LiveCodingModuleName);
		LiveCoding = FModuleManager::GetModulePtr<ILiveCodingModule>(LiveCodingModuleName);
	}
	if (LiveCoding == nullptr || !LiveCoding->IsEnabledForSession())
	{
		CompileGameWithHotReload();
		return;
	}

	// Blocks until the compile has ended; anything but a clean start and end is a failure.
	ELiveCodingCompileResult Result = ELiveCodingCompileResult::Failure;
	if (!LiveCoding->Compile(ELiveCodingCompileFlags::WaitForCompletion, &Result))
	{
		Result = ELiveCodingCompileResult::Failure;
	}
	OnLiveCodingCompilationFinished(ReadBuildToolLog(), Result);
#endif
}

void FCompilationManager::CompileGameWithHotReload()
{
	CaptureCompilationLogs();
	SaveDirtyPackages();

	// A compile that started earlier and hasn't reported is cut off: its end no longer reaches us.
	RemoveHotReloadBinding();

	FModuleManager& ModuleManager = FModuleManager::Get();
	if (!ModuleManager.IsModuleLoaded(HotReloadModuleName))
	{
		ModuleManager.LoadModule(HotReloadModuleName);
	}
	if (!ModuleManager.IsModuleLoaded(HotReloadModuleName))
	{
		Broadcast(TEXT("Failed to load HotReload module"), false);
		return;
	}

	IHotReloadInterface& HotReload = FModuleManager::GetModuleChecked<IHotReloadInterface>(HotReloadModuleName);
	CompilationManagerDelegateHandle = HotReload.OnModuleCompilerFinished().AddStatic(&FCompilationManager::OnHotReloadCompilationFinished);
	// A compile that is already running reports its end here too.
	if (!HotReload.IsCurrentlyCompiling())
	{
		HotReload.DoHotReloadFromEditor(EHotReloadFlags::WaitForCompletion);
	}
}

void FCompilationManager::Shutdown()
{
	// The global log may go before this class's statics do; the device must not outlive its place in it.
	LogOutputDevice.Reset();
	RemoveHotReloadBinding();
}

void FCompilationManager::CaptureCompilationLogs()
{
	if (!LogOutputDevice.IsValid())
	{
		LogOutputDevice = MakeShared<FCompilationLogOutputDevice>();
	}
	LogOutputDevice->CapturedLogs.Empty();
}

const TArray<FString>& FCompilationManager::GetCompilationLogs()
{
	static const TArray<FString> NoLogs;
	return LogOutputDevice.IsValid() ? LogOutputDevice->CapturedLogs : NoLogs;
}

TArray<FString> FCompilationManager::FilterCompilationErrors(const FString& Filter)
{
	TArray<FString> Matching;
	for (const FString& Line : GetCompilationLogs())
	{
		if (Line.Contains(Filter, ESearchCase::IgnoreCase))
		{
			Matching.Add(Line);
		}
	}
	return Matching;
}

#if WITH_LIVE_CODING
void FCompilationManager::OnLiveCodingCompilationFinished(const FString& BuildToolLog, ELiveCodingCompileResult Result)
{
	const bool bSuccess = Result == ELiveCodingCompileResult::Success || Result == ELiveCodingCompileResult::NoChanges;

	FString Logs;
	if (!BuildToolLog.IsEmpty())
	{
		Logs += TEXT("--- LiveCoding Console Output ---\n");
		Logs += BuildToolLog;
	}
	const TArray<FString>& CapturedLogs = GetCompilationLogs();
	if (CapturedLogs.Num() > 0)
	{
		Logs += TEXT("\n\n--- General Compilation Logs ---\n");
		for (const FString& Line : CapturedLogs)
		{
			Logs += Line + TEXT("\n");
		}
	}

	// On this path the editor sees the new classes before the agent hears of the outcome.
	if (bSuccess)
	{
		RescanBlueprintClasses();
	}
	Broadcast(Logs, bSuccess);
}
#endif

void FCompilationManager::OnHotReloadCompilationFinished(const FString& CompilerOutput, ECompilationResult::Type Result, bool bShowLog)
{
	const bool bSuccess = Result == ECompilationResult::Succeeded;

	FString Logs = CompilerOutput;
	for (const FString& Line : GetCompilationLogs())
	{
		Logs += FString::Printf(TEXT("\n%s"), *Line);
	}

	// A binding serves one compile.
	RemoveHotReloadBinding();

	Broadcast(Logs, bSuccess);

	if (bSuccess)
	{
		RescanBlueprintClasses();
		if (GEngine)
		{
			GEngine->DeferredCommands.Add(TEXT("HotReload.ModuleCompilationFinished"));
		}
	}
}

void FCompilationManager::SaveDirtyPackages()
{
	TArray<UPackage*> Packages;
	const auto IgnoreNothing = [](UPackage*) { return false; };
	FEditorFileUtils::GetDirtyContentPackages(Packages, IgnoreNothing);
	FEditorFileUtils::GetDirtyWorldPackages(Packages, IgnoreNothing);

	for (UPackage* Package : Packages)
	{
		if (Package == nullptr)
		{
			continue;
		}
		// World packages too get the asset extension.
		const FString Filename = FPackageName::LongPackageNameToFilename(Package->GetName(), FPackageName::GetAssetPackageExtension());
		FSavePackageArgs SaveArgs;
		SaveArgs.TopLevelFlags = RF_Standalone;
		SaveArgs.SaveFlags = SAVE_NoError;
		UPackage::SavePackage(Package, nullptr, *Filename, SaveArgs);
	}
}

FString FCompilationManager::ReadBuildToolLog()
{
	const FString EngineLogPath = FPaths::Combine(FPaths::EngineDir(), TEXT("Programs"), TEXT("UnrealBuildTool"), TEXT("Log.txt"));
	if (FPaths::FileExists(EngineLogPath))
	{
		return FilterBuildToolLog(EngineLogPath);
	}
	const FString LocalAppData = FPlatformMisc::GetEnvironmentVariable(TEXT("LOCALAPPDATA"));
	if (!LocalAppData.IsEmpty())
	{
		const FString UserLogPath = FPaths::Combine(LocalAppData, TEXT("UnrealBuildTool"), TEXT("Log.txt"));
		if (FPaths::FileExists(UserLogPath))
		{
			return FilterBuildToolLog(UserLogPath);
		}
	}
	return FString();
}

void FCompilationManager::RescanBlueprintClasses()
{
	if (GEngine)
	{
		GEngine->DeferredCommands.Add(TEXT("RescanAllBlueprintClasses"));
	}
	TArray<FString> PathsToScan;
	PathsToScan.Add(FPaths::ProjectContentDir());
	FAssetRegistryModule& AssetRegistryModule = FModuleManager::LoadModuleChecked<FAssetRegistryModule>(AssetRegistryModuleName);
	AssetRegistryModule.Get().ScanPathsSynchronous(PathsToScan, false, false);
}

void FCompilationManager::RemoveHotReloadBinding()
{
	if (!CompilationManagerDelegateHandle.IsValid())
	{
		return;
	}
	if (FModuleManager::Get().IsModuleLoaded(HotReloadModuleName))
	{
		FModuleManager::GetModuleChecked<IHotReloadInterface>(HotReloadModuleName).OnModuleCompilerFinished().Remove(CompilationManagerDelegateHandle);
	}
	CompilationManagerDelegateHandle.Reset();
}

void FCompilationManager::Broadcast(const FString& Logs, bool bSuccess)
{
	OnCompilationFinishedDelegate.Broadcast(StoredMessages, SharedToolId, Logs, bSuccess);
	StoredMessages.Empty();
}
