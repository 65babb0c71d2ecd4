#pragma once

#include "CoreMinimal.h"
#include "Delegates/Delegate.h"
#include "HAL/CriticalSection.h"

class FJsonObject;

/**
 * Static operations on the project's files on behalf of the agent's tools. Tool-facing operations
 * report by a returned text that goes back to the model as it stands; a failure begins with "Error:".
 * Paths are relative to the project directory or absolute.
 */
class TAVRINE_API FFileUtils
{
public:
	FFileUtils() = delete;

	// Reading and changing one text file.
	/** Whether a tool-facing text reports a failure: it begins with "Error:", in any case. */
	static bool IsErrorText(const FString& Text)
	{
		return Text.StartsWith(TEXT("Error:"), ESearchCase::IgnoreCase);
	}

	static FString CreateNewFileWithContent(const FString& FilePath, const FString& Content);
	static FString ReadFile(const FString& FilePath);
	static FString ReadFileLineRange(const FString& FilePath, int32 StartLine, int32 EndLine);
	static FString UpdateFile(const FString& FilePath, const FString& OldString, const FString& NewString, FString& OutOriginalContent, FString& OutUpdatedContent);
	static FString ReplaceFile(const FString& FilePath, const FString& NewContent);
	static void ReplaceLineInFile(const FString& FilePath, int32 LineNumber, const FString& NewLine);
	static FString InsertIntoFile(const FString& FilePath, int32 InsertLine, const FString& Text);
	static FString DeleteFile(const FString& FilePath);

	// Best-effort source-control steps around the changes above; they only log, callers may ignore the result.
	static bool AddNewFileToSourceControl(const FString& FilePath);
	static bool CheckoutFileFromSourceControl(const FString& FilePath);
	static bool RemoveFileFromSourceControl(const FString& FilePath, bool bDeleteFromDisk);

	// The project tree that the backend sees.
	static TSharedPtr<FJsonObject> BuildJsonTree(const FString& Directory, const TArray<FString>& SupportedExtensions, const TArray<FString>& ExcludedDirectories, const TSet<FName>& AssetClassPatterns);
	static FString GetSubDirectoryStructureAsJsonObject(const FString& Directory);
	static void GetSubDirectoryStructureAsJsonObjectAsync(const FString& Directory, TDelegate<void(const FString&)> OnComplete);
	static TArray<FString> GetDirectoryStructureAsList(const FString& Directory);
	static FString GetProjectStructureAsJsonList();

	// Which class each asset file holds, learnt by loading it once and kept between sessions in a small
	// file. True when the file is listed; a listed .uasset of one of the classes in Patterns sets OutAssetClass.
	static bool FileMatchesAssetClassPatterns(const FString& Directory, const FString& FileName, const TSet<FName>& Patterns, FName& OutAssetClass);
	static void LoadAssetClassCache();
	static void SaveAssetClassCache();
	static void ClearAssetClassCache();
	// The full name of the cache file (not its directory, despite the name).
	static FString GetAssetClassCacheSaveDirectory();

private:
	static void AsyncDirectoryWorker(const FString& Directory, TDelegate<void(const FString&)> OnComplete);

	// Key: the asset's object path without extension ("/Game/Maps/Main"); value: its class, or none when it couldn't be loaded.
	static TMap<FString, FName> AssetClassCache;
	static FCriticalSection AssetClassCacheLock;
	static FString AssetClassSaveDirectory;
};
