#pragma once

#include "Misc/HotReloadInterface.h"

/** The public interface of the HotReload module. */
class IHotReloadModule : public IHotReloadInterface
{
public:
	/** The module, loaded on demand. */
	static IHotReloadModule& Get()
	{
		return FModuleManager::LoadModuleChecked<IHotReloadModule>(TEXT("HotReload"));
	}

	static bool IsAvailable()
	{
		return FModuleManager::Get().IsModuleLoaded(TEXT("HotReload"));
	}
};
