#pragma once

#include "CoreTypes.h"

/** What every module implements; the module manager calls these as it loads and unloads it. */
class IModuleInterface
{
public:
	virtual ~IModuleInterface()
	{
	}

	/** Right after the module is loaded and its object made. */
	virtual void StartupModule()
	{
	}

	virtual void PreUnloadCallback()
	{
	}

	virtual void PostLoadCallback()
	{
	}

	/** Before the module is unloaded; also at shutdown, in reverse order of loading. */
	virtual void ShutdownModule()
	{
	}

	virtual bool SupportsDynamicReloading()
	{
		return true;
	}

	virtual bool SupportsAutomaticShutdown()
	{
		return true;
	}

	virtual bool IsGameModule() const
	{
		return false;
	}
};
