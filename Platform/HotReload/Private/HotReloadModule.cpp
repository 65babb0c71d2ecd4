#include "IHotReload.h"

#include "Containers/Ticker.h"
#include "Logging/LogMacros.h"
#include "StandInProjectBuild.h"
#include "Templates/UniquePtr.h"

DEFINE_LOG_CATEGORY_STATIC(LogHotReload, Log, All);
DEFINE_LOG_CATEGORY_STATIC(LogCompile, Log, All);

namespace
{
	/** The compiler's lines show in the editor's log as they come. */
	void LogCompilerLine(const FString& Line)
	{
		FStandInProjectBuild::LogOutputLine(LogCompile.GetCategoryName(), Line);
	}

	ECompilationResult::Type ToCompilationResult(FStandInProjectBuild::EResult Result)
	{
		switch (Result)
		{
		// A reload after a build that had nothing to do still reloads: the editor counts it as success.
		case FStandInProjectBuild::EResult::Succeeded:
		case FStandInProjectBuild::EResult::UpToDate:
			return ECompilationResult::Succeeded;
		case FStandInProjectBuild::EResult::Canceled:
			return ECompilationResult::Canceled;
		default:
			return ECompilationResult::OtherCompilationError;
		}
	}
}

/**
 * Runs the project's build alongside the editor's loop: the core ticker watches it, logs the compiler's lines
 * under LogCompile as they come, and reports the end on the game thread.
 */
class FHotReloadModule final : public IHotReloadModule
{
public:
	virtual void ShutdownModule() override
	{
		StopWatching();
		Build.Reset();
	}

	virtual bool SupportsDynamicReloading() override
	{
		return false;
	}

	virtual void SaveConfig() override
	{
	}

	virtual bool IsCurrentlyCompiling() const override
	{
		return Build.IsValid();
	}

	virtual void RequestStopCompilation() override
	{
		// The ticker reports the canceled build on its next turn.
		if (Build.IsValid())
		{
			Build->Cancel();
		}
	}

	virtual ECompilationResult::Type DoHotReloadFromEditor(EHotReloadFlags Flags) override
	{
		if (Build.IsValid())
		{
			UE_LOG(LogHotReload, Warning, TEXT("A build of the game's modules is already running; its end will be reported."));
			return ECompilationResult::Unknown;
		}
		UE_LOG(LogHotReload, Display, TEXT("Starting a build of the game's modules."));
		Build = MakeUnique<FStandInProjectBuild>(&LogCompilerLine);
		ModuleCompilerStartedEvent.Broadcast(true);
		// A build that can't start has ended already; the ticker reports it like any other.
		Build->Start();
		TickHandle = FTSTicker::GetCoreTicker().AddTicker(FTickerDelegate::CreateRaw(this, &FHotReloadModule::Tick));
		return ECompilationResult::Unknown;
	}

	virtual FHotReloadEvent& OnHotReload() override
	{
		return HotReloadEvent;
	}

	virtual FModuleCompilerStartedEvent& OnModuleCompilerStarted() override
	{
		return ModuleCompilerStartedEvent;
	}

	virtual FModuleCompilerFinishedEvent& OnModuleCompilerFinished() override
	{
		return ModuleCompilerFinishedEvent;
	}

	virtual FString GetModuleCompileMethod(FName InModuleName) override
	{
		return bBuiltByEditor ? TEXT("Runtime") : TEXT("Unknown");
	}

	virtual bool IsAnyGameModuleLoaded() override
	{
		return FStandInProjectBuild::IsConfigured();
	}

private:
	bool Tick(float DeltaTime)
	{
		if (!Build.IsValid() || !Build->Update())
		{
			return Build.IsValid();
		}
		// The handle goes first: a listener may start the next build from the event.
		TickHandle.Reset();
		const ECompilationResult::Type Result = ToCompilationResult(Build->GetResult());
		const FString Output = Build->GetOutput();
		Build.Reset();
		bBuiltByEditor = true;
		UE_LOG(LogHotReload, Display, TEXT("Build of the game's modules ended: %s"), ECompilationResult::ToString(Result));
		ModuleCompilerFinishedEvent.Broadcast(Output, Result, ECompilationResult::Failed(Result));
		if (Result == ECompilationResult::Succeeded)
		{
			HotReloadEvent.Broadcast(false);
		}
		return false;
	}

	void StopWatching()
	{
		if (TickHandle.IsValid())
		{
			FTSTicker::RemoveTicker(TickHandle);
			TickHandle.Reset();
		}
	}

	TUniquePtr<FStandInProjectBuild> Build;
	FTSTicker::FDelegateHandle TickHandle;
	FHotReloadEvent HotReloadEvent;
	FModuleCompilerStartedEvent ModuleCompilerStartedEvent;
	FModuleCompilerFinishedEvent ModuleCompilerFinishedEvent;
	bool bBuiltByEditor = false;
};

IMPLEMENT_MODULE(FHotReloadModule, HotReload)
