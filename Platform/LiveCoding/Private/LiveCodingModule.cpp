#include "ILiveCodingModule.h"

#include "Containers/Ticker.h"
#include "Logging/LogMacros.h"
#include "Modules/ModuleManager.h"
#include "StandInProjectBuild.h"
#include "Templates/UniquePtr.h"

DEFINE_LOG_CATEGORY_STATIC(LogLiveCoding, Log, All);

namespace
{
	/** The console's lines show in the editor's log as they come. */
	void LogConsoleLine(const FString& Line)
	{
		FStandInProjectBuild::LogOutputLine(LogLiveCoding.GetCategoryName(), Line);
	}
}

class FLiveCodingModule final : public ILiveCodingModule
{
public:
	virtual void StartupModule() override
	{
		TickHandle = FTSTicker::GetCoreTicker().AddTicker(TEXT("LiveCoding"), 0.0f, [this](float)
		{
			Tick();
			return true;
		});
	}

	virtual void ShutdownModule() override
	{
		FTSTicker::RemoveTicker(TickHandle);
		TickHandle.Reset();
		Build.Reset();
	}

	virtual bool SupportsDynamicReloading() override
	{
		return false;
	}

	virtual void EnableByDefault(bool bEnabled) override
	{
		bEnabledByDefault = bEnabled;
	}

	virtual bool IsEnabledByDefault() const override
	{
		return bEnabledByDefault;
	}

	virtual void EnableForSession(bool bEnabled) override
	{
		if (bEnabled && !CanEnableForSession())
		{
			EnableErrorText = FText::FromString(TEXT("Live Coding can't be enabled: the project has no build command."));
			UE_LOG(LogLiveCoding, Warning, TEXT("%s"), *EnableErrorText.ToString());
			bEnabledForSession = false;
			return;
		}
		EnableErrorText = FText::GetEmpty();
		bEnabledForSession = bEnabled;
	}

	virtual bool IsEnabledForSession() const override
	{
		// The project's config is read each time, so that a command added while the editor runs counts.
		return bEnabledForSession && CanEnableForSession();
	}

	virtual const FText& GetEnableErrorText() const override
	{
		return EnableErrorText;
	}

	virtual bool CanEnableForSession() const override
	{
		return FStandInProjectBuild::IsConfigured();
	}

	virtual bool HasStarted() const override
	{
		return IsEnabledForSession();
	}

	virtual void ShowConsole() override
	{
	}

	virtual void Compile() override
	{
		ELiveCodingCompileResult Ignored;
		Compile(ELiveCodingCompileFlags::None, &Ignored);
	}

	virtual bool Compile(ELiveCodingCompileFlags CompileFlags, ELiveCodingCompileResult* Result) override
	{
		ELiveCodingCompileResult Outcome = ELiveCodingCompileResult::NotStarted;
		const bool bStarted = StartCompile(CompileFlags, Outcome);
		if (Result != nullptr)
		{
			*Result = Outcome;
		}
		return bStarted;
	}

	virtual bool IsCompiling() const override
	{
		return Build.IsValid();
	}

	virtual void Tick() override
	{
		if (Build.IsValid() && Build->Update())
		{
			EndCompile();
		}
	}

	virtual FOnPatchCompleteDelegate& GetOnPatchCompleteDelegate() override
	{
		return OnPatchComplete;
	}

private:
	bool StartCompile(ELiveCodingCompileFlags CompileFlags, ELiveCodingCompileResult& OutResult)
	{
		if (!IsEnabledForSession())
		{
			OutResult = ELiveCodingCompileResult::NotStarted;
			return false;
		}
		if (Build.IsValid())
		{
			OutResult = ELiveCodingCompileResult::CompileStillActive;
			return false;
		}
		UE_LOG(LogLiveCoding, Display, TEXT("Starting Live Coding compile."));
		Build = MakeUnique<FStandInProjectBuild>(&LogConsoleLine);
		if (!Build->Start())
		{
			OutResult = EndCompile();
			return false;
		}
		if (!EnumHasAnyFlags(CompileFlags, ELiveCodingCompileFlags::WaitForCompletion))
		{
			OutResult = ELiveCodingCompileResult::InProgress;
			return true;
		}
		Build->Wait();
		OutResult = EndCompile();
		return true;
	}

	ELiveCodingCompileResult EndCompile()
	{
		ELiveCodingCompileResult Result = ELiveCodingCompileResult::Failure;
		switch (Build->GetResult())
		{
		case FStandInProjectBuild::EResult::Succeeded:
			Result = ELiveCodingCompileResult::Success;
			UE_LOG(LogLiveCoding, Display, TEXT("Live coding succeeded"));
			break;
		case FStandInProjectBuild::EResult::UpToDate:
			Result = ELiveCodingCompileResult::NoChanges;
			UE_LOG(LogLiveCoding, Display, TEXT("No code changes detected."));
			break;
		case FStandInProjectBuild::EResult::Canceled:
			Result = ELiveCodingCompileResult::Cancelled;
			UE_LOG(LogLiveCoding, Display, TEXT("Live coding compile cancelled."));
			break;
		default:
			UE_LOG(LogLiveCoding, Error, TEXT("Live coding failed, please see the build log for more information"));
			break;
		}
		Build.Reset();
		if (Result == ELiveCodingCompileResult::Success)
		{
			OnPatchComplete.Broadcast();
		}
		return Result;
	}

	TUniquePtr<FStandInProjectBuild> Build;
	FTSTicker::FDelegateHandle TickHandle;
	FOnPatchCompleteDelegate OnPatchComplete;
	FText EnableErrorText;
	bool bEnabledByDefault = true;
	bool bEnabledForSession = true;
};

IMPLEMENT_MODULE(FLiveCodingModule, LiveCoding)
