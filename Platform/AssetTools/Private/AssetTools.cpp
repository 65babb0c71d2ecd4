#include "AssetTools.h"
#include "AssetToolsModule.h"
#include "AssetRegistry/AssetRegistryModule.h"
#include "Factories/Factory.h"
#include "Misc/PackageName.h"
#include "UObject/Package.h"
#include "UObject/UObjectGlobals.h"

DEFINE_LOG_CATEGORY_STATIC(LogAssetTools, Log, All);

namespace
{
	// The characters the engine refuses in an object's name: each would break the object's path.
	bool IsValidAssetName(const FString& AssetName)
	{
		static const FString InvalidCharacters = TEXT("\"' ,/.:|&!~\n\r\t@#(){}[]=;^%$`");
		for (const TCHAR Character : AssetName)
		{
			int32 Index = INDEX_NONE;
			if (InvalidCharacters.FindChar(Character, Index))
			{
				return false;
			}
		}
		return true;
	}
}

UObject* FAssetTools::CreateAsset(const FString& AssetName, const FString& PackagePath, UClass* AssetClass, UFactory* Factory, FName CallingContext)
{
	if (Factory == nullptr || AssetName.IsEmpty())
	{
		return nullptr;
	}
	UClass* ClassToMake = AssetClass != nullptr ? AssetClass : Factory->GetSupportedClass();
	if (ClassToMake == nullptr)
	{
		return nullptr;
	}
	FString Folder = PackagePath;
	Folder.RemoveFromEnd(TEXT("/"));
	const FString PackageName = Folder + TEXT("/") + AssetName;
	FText Reason;
	if (!FPackageName::IsValidLongPackageName(PackageName, false, &Reason) || !IsValidAssetName(AssetName))
	{
		UE_LOG(LogAssetTools, Warning, TEXT("Can't create asset %s: %s is not a valid package name. %s"), *AssetName, *PackageName, *Reason.ToString());
		return nullptr;
	}
	// An asset of that name in memory or on disk is not replaced.
	UPackage* Existing = FindPackage(nullptr, *PackageName);
	if ((Existing != nullptr && StaticFindObjectFast(nullptr, Existing, FName(*AssetName)) != nullptr) || FPackageName::DoesPackageExist(PackageName))
	{
		UE_LOG(LogAssetTools, Warning, TEXT("An asset already exists at this location: %s"), *PackageName);
		return nullptr;
	}
	UPackage* Package = CreatePackage(*PackageName);
	UObject* Asset = Factory->FactoryCreateNew(ClassToMake, Package, FName(*AssetName), RF_Public | RF_Standalone | RF_Transactional, nullptr, nullptr, CallingContext);
	if (Asset == nullptr)
	{
		return nullptr;
	}
	FAssetRegistryModule::AssetCreated(Asset);
	Package->MarkPackageDirty();
	return Asset;
}

void FAssetTools::CreateUniqueAssetName(const FString& InBasePackageName, const FString& InSuffix, FString& OutPackageName, FString& OutAssetName)
{
	const FString Base = InBasePackageName + InSuffix;
	for (int32 Index = 0;; ++Index)
	{
		OutPackageName = Index == 0 ? Base : FString::Printf(TEXT("%s%d"), *Base, Index);
		if (FindPackage(nullptr, *OutPackageName) == nullptr && !FPackageName::DoesPackageExist(OutPackageName))
		{
			OutAssetName = FPackageName::GetShortName(OutPackageName);
			return;
		}
	}
}

IAssetTools& IAssetTools::Get()
{
	return FAssetToolsModule::GetModule().Get();
}

void FAssetToolsModule::StartupModule()
{
	AssetTools = MakeUnique<FAssetTools>();
}

void FAssetToolsModule::ShutdownModule()
{
	AssetTools.Reset();
}

IAssetTools& FAssetToolsModule::Get() const
{
	return *AssetTools;
}

IMPLEMENT_MODULE(FAssetToolsModule, AssetTools)
