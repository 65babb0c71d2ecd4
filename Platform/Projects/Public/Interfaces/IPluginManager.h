#pragma once

#include "CoreMinimal.h"

enum class EPluginLoadedFrom : uint8
{
	Engine,
	Project
};

/** A plugin found on disk: a folder with a .uplugin descriptor. */
class IPlugin : public TSharedFromThis<IPlugin>
{
public:
	virtual ~IPlugin() = default;
	virtual const FString& GetName() const = 0;
	virtual const FString& GetFriendlyName() const = 0;
	virtual FString GetDescriptorFileName() const = 0;
	virtual FString GetBaseDir() const = 0;
	virtual FString GetContentDir() const = 0;
	virtual FString GetMountedAssetPath() const = 0;
	virtual bool IsEnabled() const = 0;
	virtual bool CanContainContent() const = 0;
	virtual EPluginLoadedFrom GetLoadedFrom() const = 0;
};

/**
 * Finds plugins: those under the project's Plugins folder, and those of the engine (for the stand-in,
 * the checkout it was built from, and the folders added by AddPluginSearchPath). Names compare without
 * regard to case.
 */
class IPluginManager
{
public:
	virtual ~IPluginManager() = default;
	static PROJECTS_API IPluginManager& Get();

	/** The plugin, or null when none of that name is found. */
	virtual TSharedPtr<IPlugin> FindPlugin(const FStringView Name) = 0;
	virtual TSharedPtr<IPlugin> FindPlugin(const ANSICHAR* Name) = 0;
	virtual TSharedPtr<IPlugin> FindPluginFromPath(const FString& PluginPath) = 0;
	virtual TSharedPtr<IPlugin> FindEnabledPlugin(const FStringView Name) = 0;
	virtual TArray<TSharedRef<IPlugin>> GetEnabledPlugins() = 0;
	virtual TArray<TSharedRef<IPlugin>> GetDiscoveredPlugins() = 0;
	/** Looks for plugins in that folder too; gives false when it was already searched. */
	virtual bool AddPluginSearchPath(const FString& ExtraDiscoveryPath, bool bRefresh = true) = 0;
	virtual void RefreshPluginsList() = 0;
};
