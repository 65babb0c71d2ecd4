// IAssetTools: making, naming and managing assets in the editor.
#pragma once

#include "CoreMinimal.h"
#include "UObject/Interface.h"

class UFactory;

class ASSETTOOLS_API IAssetTools
{
public:
	virtual ~IAssetTools() = default;

	// The asset tools of the "AssetTools" module (loaded on demand).
	static IAssetTools& Get();

	// Makes the asset AssetName in the folder PackagePath ("/Game/Blueprints") with the factory, in a new
	// package, and tells the asset registry; null when the name is taken or the factory fails.
	virtual UObject* CreateAsset(const FString& AssetName, const FString& PackagePath, UClass* AssetClass, UFactory* Factory, FName CallingContext = NAME_None) = 0;
	// A package and asset name, from a base, that no asset has yet ("BP_Door", "BP_Door1"...).
	virtual void CreateUniqueAssetName(const FString& InBasePackageName, const FString& InSuffix, FString& OutPackageName, FString& OutAssetName) = 0;
};
