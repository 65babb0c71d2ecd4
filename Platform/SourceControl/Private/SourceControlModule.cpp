#include "ISourceControlModule.h"

#include "DefaultSourceControlProvider.h"
#include "Git/GitSourceControlProvider.h"
#include "ISourceControlProvider.h"
#include "SourceControlLog.h"

class FSourceControlModule final : public ISourceControlModule
{
public:
	virtual void StartupModule() override
	{
		RegisterProvider(GitProvider);
	}

	virtual void ShutdownModule() override
	{
		CurrentProvider->Close();
		CurrentProvider = &DefaultProvider;
		Providers.Empty();
	}

	virtual bool IsEnabled() const override
	{
		return CurrentProvider->IsEnabled();
	}

	virtual ISourceControlProvider& GetProvider() const override
	{
		return *CurrentProvider;
	}

	virtual void SetProvider(const FName& InName) override
	{
		ISourceControlProvider* Chosen = FindProvider(InName);
		if (Chosen == nullptr)
		{
			UE_LOG(LogSourceControl, Error, TEXT("No source control provider named '%s'; keeping '%s'"), *InName.ToString(), *CurrentProvider->GetName().ToString());
			return;
		}
		if (Chosen != CurrentProvider)
		{
			CurrentProvider->Close();
			CurrentProvider = Chosen;
		}
		CurrentProvider->Init(true);
		UE_LOG(LogSourceControl, Display, TEXT("Source control provider: %s (%s)"), *CurrentProvider->GetName().ToString(), *CurrentProvider->GetStatusText().ToString());
	}

	virtual void GetProviderNames(TArray<FName>& OutProviderNames) const override
	{
		OutProviderNames.Reset();
		OutProviderNames.Add(DefaultProvider.GetName());
		for (const ISourceControlProvider* Provider : Providers)
		{
			OutProviderNames.Add(Provider->GetName());
		}
	}

	virtual void Tick() override
	{
		CurrentProvider->Tick();
	}

	virtual void RegisterProvider(ISourceControlProvider& InProvider) override
	{
		for (ISourceControlProvider*& Provider : Providers)
		{
			if (Provider->GetName() == InProvider.GetName())
			{
				if (CurrentProvider == Provider)
				{
					CurrentProvider->Close();
					CurrentProvider = &DefaultProvider;
				}
				Provider = &InProvider;
				return;
			}
		}
		Providers.Add(&InProvider);
	}

	virtual void UnregisterProvider(ISourceControlProvider& InProvider) override
	{
		if (CurrentProvider == &InProvider)
		{
			CurrentProvider->Close();
			CurrentProvider = &DefaultProvider;
		}
		Providers.Remove(&InProvider);
	}

private:
	ISourceControlProvider* FindProvider(const FName& InName)
	{
		if (InName == DefaultProvider.GetName())
		{
			return &DefaultProvider;
		}
		for (ISourceControlProvider* Provider : Providers)
		{
			if (Provider->GetName() == InName)
			{
				return Provider;
			}
		}
		return nullptr;
	}

	FDefaultSourceControlProvider DefaultProvider;
	FGitSourceControlProvider GitProvider;
	TArray<ISourceControlProvider*> Providers;
	ISourceControlProvider* CurrentProvider = &DefaultProvider;
};

IMPLEMENT_MODULE(FSourceControlModule, SourceControl)
