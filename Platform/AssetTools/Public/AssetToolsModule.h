// The AssetTools module: reaches IAssetTools.
#pragma once

#include "CoreMinimal.h"
#include "Modules/ModuleInterface.h"
#include "Modules/ModuleManager.h"
#include "IAssetTools.h"

class ASSETTOOLS_API FAssetToolsModule : public IModuleInterface
{
public:
	virtual void StartupModule() override;
	virtual void ShutdownModule() override;

	virtual IAssetTools& Get() const;

	static FAssetToolsModule& GetModule()
	{
		return FModuleManager::LoadModuleChecked<FAssetToolsModule>(TEXT("AssetTools"));
	}
	static bool IsModuleLoaded()
	{
		return FModuleManager::Get().IsModuleLoaded(TEXT("AssetTools"));
	}

private:
	TUniquePtr<IAssetTools> AssetTools;
};
