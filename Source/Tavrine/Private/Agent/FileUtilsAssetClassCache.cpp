#include "Agent/FileUtils.h"

#include "HAL/PlatformFileManager.h"
#include "Misc/FileHelper.h"
#include "Misc/Paths.h"
#include "Misc/ScopeLock.h"
#include "UObject/Class.h"
#include "UObject/Object.h"
#include "UObject/UObjectGlobals.h"

TMap<FString, FName> FFileUtils::AssetClassCache;
FCriticalSection FFileUtils::AssetClassCacheLock;
FString FFileUtils::AssetClassSaveDirectory;

namespace
{
	/** Quiet and cheap: no warnings, no verification, no compile of Blueprints on load. */
	constexpr uint32 AssetClassLoadFlags = LOAD_NoWarn | LOAD_NoVerify | LOAD_Quiet | LOAD_FindIfFail | LOAD_DisableCompileOnLoad;

	/**
	 * The class an asset is filed under: the first class up its chain that is native and not made by a
	 * Blueprint, so that a Blueprint's instances count as their C++ base; its own class when there is none.
	 */
	UClass* FindFirstNativeClass(UObject* Object)
	{
		if (Object == nullptr)
		{
			return nullptr;
		}
		for (UClass* Class = Object->GetClass(); Class != nullptr; Class = Class->GetSuperClass())
		{
			if (!Class->HasAnyClassFlags(CLASS_CompiledFromBlueprint) && Class->HasAnyClassFlags(CLASS_Native))
			{
				return Class;
			}
		}
		return Object->GetClass();
	}
}

FString FFileUtils::GetAssetClassCacheSaveDirectory()
{
	AssetClassSaveDirectory = FPaths::Combine(FPaths::ProjectPluginsDir(), TEXT("tavrine-unreal"), TEXT("Saved"));
	return FPaths::Combine(AssetClassSaveDirectory, TEXT("AssetClassCache.log"));
}

bool FFileUtils::FileMatchesAssetClassPatterns(const FString& Directory, const FString& FileName, const TSet<FName>& Patterns, FName& OutAssetClass)
{
	if (Patterns.IsEmpty())
	{
		return true;
	}
	// Only assets are filtered: maps, sources and configuration always pass, and have no class.
	if (!FPaths::GetExtension(FileName).Equals(TEXT("uasset"), ESearchCase::IgnoreCase))
	{
		return true;
	}

	FString Key = FPaths::Combine(Directory, FileName);
	Key.ReplaceInline(*FPaths::ProjectContentDir(), TEXT("/Game/"), ESearchCase::CaseSensitive);
	Key.ReplaceInline(TEXT(".uasset"), TEXT(""), ESearchCase::IgnoreCase);

	FName AssetClass;
	bool bCached = false;
	{
		FScopeLock Lock(&AssetClassCacheLock);
		if (const FName* CachedClass = AssetClassCache.Find(Key))
		{
			AssetClass = *CachedClass;
			bCached = true;
		}
	}
	if (!bCached)
	{
		// A load may take long; the lock isn't held over it, so two callers may load the same asset.
		// One that fails is remembered as None and isn't tried again until its entry is gone.
		UObject* Asset = StaticLoadObject(UObject::StaticClass(), nullptr, *Key, nullptr, AssetClassLoadFlags, nullptr, true, nullptr);
		const UClass* AssetClassObject = FindFirstNativeClass(Asset);
		AssetClass = AssetClassObject != nullptr ? FName(*AssetClassObject->GetName()) : FName(NAME_None);
		FScopeLock AddLock(&AssetClassCacheLock);
		AssetClassCache.Add(Key, AssetClass);
	}

	if (AssetClass.IsNone() || !Patterns.Contains(AssetClass))
	{
		return false;
	}
	OutAssetClass = AssetClass;
	return true;
}

void FFileUtils::LoadAssetClassCache()
{
	FScopeLock Lock(&AssetClassCacheLock);
	// The file is read once per session, into an empty map.
	if (AssetClassCache.Num() > 0)
	{
		return;
	}
	const FString CacheFile = GetAssetClassCacheSaveDirectory();
	if (!FPlatformFileManager::Get().GetPlatformFile().FileExists(*CacheFile))
	{
		return;
	}
	TArray<FString> Lines;
	if (!FFileHelper::LoadFileToStringArray(Lines, *CacheFile))
	{
		return;
	}
	const FString ContentDir = FPaths::ProjectContentDir();
	for (const FString& Line : Lines)
	{
		const int32 Separator = Line.Find(TEXT("="), ESearchCase::CaseSensitive);
		if (Separator == INDEX_NONE)
		{
			continue;
		}
		const FString Key = Line.Left(Separator);
		const FString ClassName = Line.Mid(Separator + 1);
		if (Key.IsEmpty() || ClassName.IsEmpty())
		{
			continue;
		}
		// Entries of deleted assets drop out here, and so aren't written back.
		FString AssetFile = Key + TEXT(".uasset");
		AssetFile.ReplaceInline(TEXT("/Game/"), *ContentDir, ESearchCase::CaseSensitive);
		if (!FPaths::FileExists(AssetFile))
		{
			continue;
		}
		AssetClassCache.Add(Key, FName(*ClassName));
	}
}

void FFileUtils::SaveAssetClassCache()
{
	FScopeLock Lock(&AssetClassCacheLock);
	// An empty map leaves an existing file as it is.
	if (AssetClassCache.Num() == 0)
	{
		return;
	}
	const FString CacheFile = GetAssetClassCacheSaveDirectory();
	const FString CacheDirectory = FPaths::GetPath(CacheFile);
	IPlatformFile& PlatformFile = FPlatformFileManager::Get().GetPlatformFile();
	if (!PlatformFile.DirectoryExists(*CacheDirectory) && !PlatformFile.CreateDirectoryTree(*CacheDirectory))
	{
		return;
	}
	TArray<FString> Lines;
	Lines.Reserve(AssetClassCache.Num());
	for (const TPair<FString, FName>& Entry : AssetClassCache)
	{
		Lines.Add(FString::Printf(TEXT("%s=%s"), *Entry.Key, *Entry.Value.ToString()));
	}
	FFileHelper::SaveStringArrayToFile(Lines, *CacheFile, FFileHelper::EEncodingOptions::AutoDetect);
}

void FFileUtils::ClearAssetClassCache()
{
	FScopeLock Lock(&AssetClassCacheLock);
	AssetClassCache.Empty();
}
