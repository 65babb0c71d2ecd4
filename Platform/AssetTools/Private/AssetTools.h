// The editor's asset tools: new assets made by factories in packages of their own.
#pragma once

#include "CoreMinimal.h"
#include "IAssetTools.h"

class FAssetTools final : public IAssetTools
{
public:
	virtual UObject* CreateAsset(const FString& AssetName, const FString& PackagePath, UClass* AssetClass, UFactory* Factory, FName CallingContext = NAME_None) override;
	virtual void CreateUniqueAssetName(const FString& InBasePackageName, const FString& InSuffix, FString& OutPackageName, FString& OutAssetName) override;
};
