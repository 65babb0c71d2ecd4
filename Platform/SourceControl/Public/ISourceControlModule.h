#pragma once

#include "CoreMinimal.h"
#include "Modules/ModuleInterface.h"
#include "Modules/ModuleManager.h"
#include "ISourceControlProvider.h"

/**
 * The "SourceControl" module: holds the providers and the one in use. Until a provider is chosen the
 * module answers with the "None" provider, which is neither enabled nor available.
 *
 * Stand-in: the providers are "None", "Git" (the git work tree around the project, through the git
 * command) and any that a program registers with RegisterProvider, for instance a test double.
 */
class ISourceControlModule : public IModuleInterface
{
public:
	/** True when a provider other than "None" is in use, whether or not it is available. */
	virtual bool IsEnabled() const = 0;

	virtual ISourceControlProvider& GetProvider() const = 0;

	/** Chooses the provider by name (ignoring case) and initialises it; an unknown name is logged and changes nothing. */
	virtual void SetProvider(const FName& InName) = 0;

	/** The names of all providers, "None" first. */
	virtual void GetProviderNames(TArray<FName>& OutProviderNames) const = 0;

	virtual void Tick() = 0;

	/**
	 * Stand-in only: adds a provider, as a plugin registers its source-control feature. The module doesn't
	 * own it; unregister it before it goes. A provider of the same name is replaced.
	 */
	virtual void RegisterProvider(ISourceControlProvider& InProvider) = 0;
	/** Stand-in only: removes the provider; if it was in use, "None" takes its place. */
	virtual void UnregisterProvider(ISourceControlProvider& InProvider) = 0;

	static ISourceControlModule& Get()
	{
		return FModuleManager::LoadModuleChecked<ISourceControlModule>(TEXT("SourceControl"));
	}
};
