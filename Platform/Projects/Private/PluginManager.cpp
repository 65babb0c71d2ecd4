#include "Interfaces/IPluginManager.h"

#include "Dom/JsonObject.h"
#include "HAL/FileManager.h"
#include "Misc/FileHelper.h"
#include "Misc/Paths.h"
#include "Serialization/JsonReader.h"
#include "Serialization/JsonSerializer.h"

DEFINE_LOG_CATEGORY_STATIC(LogPluginManager, Log, All);

namespace
{
	class FStandInPlugin : public IPlugin
	{
	public:
		FStandInPlugin(const FString& InDescriptorFile, EPluginLoadedFrom InLoadedFrom)
			: DescriptorFile(InDescriptorFile)
			, Name(FPaths::GetBaseFilename(InDescriptorFile))
			, FriendlyName(Name)
			, LoadedFrom(InLoadedFrom)
		{
			FString Contents;
			TSharedPtr<FJsonObject> Descriptor;
			if (FFileHelper::LoadFileToString(Contents, *DescriptorFile)
				&& FJsonSerializer::Deserialize(TJsonReaderFactory<>::Create(Contents), Descriptor) && Descriptor.IsValid())
			{
				Descriptor->TryGetStringField(TEXT("FriendlyName"), FriendlyName);
				Descriptor->TryGetBoolField(TEXT("CanContainContent"), bCanContainContent);
				bool bEnabledByDefault = true;
				if (Descriptor->TryGetBoolField(TEXT("EnabledByDefault"), bEnabledByDefault))
				{
					bEnabled = bEnabledByDefault || LoadedFrom == EPluginLoadedFrom::Project;
				}
			}
			else
			{
				UE_LOG(LogPluginManager, Warning, TEXT("The plugin descriptor '%s' could not be read"), *DescriptorFile);
			}
		}

		virtual const FString& GetName() const override
		{
			return Name;
		}
		virtual const FString& GetFriendlyName() const override
		{
			return FriendlyName;
		}
		virtual FString GetDescriptorFileName() const override
		{
			return DescriptorFile;
		}
		virtual FString GetBaseDir() const override
		{
			return FPaths::GetPath(DescriptorFile);
		}
		virtual FString GetContentDir() const override
		{
			return GetBaseDir() / TEXT("Content");
		}
		virtual FString GetMountedAssetPath() const override
		{
			return FString(TEXT("/")) + Name + TEXT("/");
		}
		virtual bool IsEnabled() const override
		{
			return bEnabled;
		}
		virtual bool CanContainContent() const override
		{
			return bCanContainContent;
		}
		virtual EPluginLoadedFrom GetLoadedFrom() const override
		{
			return LoadedFrom;
		}

	private:
		FString DescriptorFile;
		FString Name;
		FString FriendlyName;
		EPluginLoadedFrom LoadedFrom;
		bool bCanContainContent = false;
		bool bEnabled = true;
	};

	class FStandInPluginManager : public IPluginManager
	{
	public:
		virtual TSharedPtr<IPlugin> FindPlugin(const FStringView Name) override
		{
			RefreshIfProjectMoved();
			for (const TSharedRef<IPlugin>& Plugin : Plugins)
			{
				if (Plugin->GetName().Equals(FString(Name), ESearchCase::IgnoreCase))
				{
					return Plugin;
				}
			}
			return nullptr;
		}
		virtual TSharedPtr<IPlugin> FindPlugin(const ANSICHAR* Name) override
		{
			return FindPlugin(FStringView(FString(Name)));
		}
		virtual TSharedPtr<IPlugin> FindPluginFromPath(const FString& PluginPath) override
		{
			RefreshIfProjectMoved();
			const FString Wanted = FPaths::ConvertRelativePathToFull(PluginPath);
			for (const TSharedRef<IPlugin>& Plugin : Plugins)
			{
				if (FPaths::IsSamePath(Plugin->GetBaseDir(), Wanted) || FPaths::IsSamePath(Plugin->GetDescriptorFileName(), Wanted))
				{
					return Plugin;
				}
			}
			return nullptr;
		}
		virtual TSharedPtr<IPlugin> FindEnabledPlugin(const FStringView Name) override
		{
			TSharedPtr<IPlugin> Plugin = FindPlugin(Name);
			return Plugin.IsValid() && Plugin->IsEnabled() ? Plugin : nullptr;
		}
		virtual TArray<TSharedRef<IPlugin>> GetEnabledPlugins() override
		{
			RefreshIfProjectMoved();
			TArray<TSharedRef<IPlugin>> Enabled;
			for (const TSharedRef<IPlugin>& Plugin : Plugins)
			{
				if (Plugin->IsEnabled())
				{
					Enabled.Add(Plugin);
				}
			}
			return Enabled;
		}
		virtual TArray<TSharedRef<IPlugin>> GetDiscoveredPlugins() override
		{
			RefreshIfProjectMoved();
			return Plugins;
		}
		virtual bool AddPluginSearchPath(const FString& ExtraDiscoveryPath, bool bRefresh) override
		{
			const FString Full = FPaths::ConvertRelativePathToFull(ExtraDiscoveryPath);
			if (ExtraPaths.Contains(Full))
			{
				return false;
			}
			ExtraPaths.Add(Full);
			if (bRefresh)
			{
				RefreshPluginsList();
			}
			return true;
		}
		virtual void RefreshPluginsList() override
		{
			Plugins.Empty();
			ScannedProjectDir = FPaths::ProjectDir();
			// The project's plugins come first: they win over an engine plugin of the same name.
			if (!ScannedProjectDir.IsEmpty())
			{
				ScanFolder(FPaths::ProjectPluginsDir(), EPluginLoadedFrom::Project);
			}
			ScanFolder(TEXT(STANDIN_ENGINE_PLUGINS_DIR), EPluginLoadedFrom::Engine);
			for (const FString& Path : ExtraPaths)
			{
				ScanFolder(Path, EPluginLoadedFrom::Engine);
			}
			bScanned = true;
		}

	private:
		void RefreshIfProjectMoved()
		{
			if (!bScanned || ScannedProjectDir != FPaths::ProjectDir())
			{
				RefreshPluginsList();
			}
		}

		// A plugin is a descriptor in the folder itself or one or two levels down (Plugins/Group/Name).
		void ScanFolder(const FString& Folder, EPluginLoadedFrom LoadedFrom, int32 Depth = 0)
		{
			TArray<FString> Descriptors;
			IFileManager::Get().FindFiles(Descriptors, *(Folder / TEXT("*.uplugin")), true, false);
			for (const FString& Descriptor : Descriptors)
			{
				AddPlugin(Folder / Descriptor, LoadedFrom);
			}
			if (Descriptors.Num() > 0 || Depth >= 2)
			{
				return;
			}
			TArray<FString> SubFolders;
			IFileManager::Get().FindFiles(SubFolders, *(Folder / TEXT("*")), false, true);
			for (const FString& SubFolder : SubFolders)
			{
				if (!SubFolder.StartsWith(TEXT(".")))
				{
					ScanFolder(Folder / SubFolder, LoadedFrom, Depth + 1);
				}
			}
		}

		void AddPlugin(const FString& DescriptorFile, EPluginLoadedFrom LoadedFrom)
		{
			const FString Name = FPaths::GetBaseFilename(DescriptorFile);
			for (const TSharedRef<IPlugin>& Plugin : Plugins)
			{
				if (Plugin->GetName().Equals(Name, ESearchCase::IgnoreCase))
				{
					return;
				}
			}
			Plugins.Add(MakeShared<FStandInPlugin>(FPaths::ConvertRelativePathToFull(DescriptorFile), LoadedFrom));
		}

		TArray<TSharedRef<IPlugin>> Plugins;
		TArray<FString> ExtraPaths;
		FString ScannedProjectDir;
		bool bScanned = false;
	};
}

IPluginManager& IPluginManager::Get()
{
	static FStandInPluginManager Manager;
	return Manager;
}
