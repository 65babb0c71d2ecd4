#include "Agent/FileUtils.h"

#include "Async/TaskGraphInterfaces.h"
#include "CoreGlobals.h"
#include "Dom/JsonObject.h"
#include "Dom/JsonValue.h"
#include "HAL/FileManager.h"
#include "Misc/Paths.h"
#include "Policies/CondensedJsonPrintPolicy.h"
#include "ProfilingDebugging/MiscTrace.h"
#include "Serialization/JsonSerializer.h"
#include "Serialization/JsonWriter.h"
#include "TavrineSettings.h"
#include "UObject/UObjectGlobals.h"

namespace
{
	/** Extensions, with the dot, of the flat list; it keeps its own filters, not the settings'. */
	const TCHAR* const ListedExtensions[] =
	{
		TEXT(".py"), TEXT(".cs"), TEXT(".json"), TEXT(".cpp"), TEXT(".h"), TEXT(".uasset"), TEXT(".umap"), TEXT(".ini"), TEXT(".uproject"), TEXT(".csv")
	};

	/** Words that drop a directory from the flat list wherever they stand in its name. */
	const TCHAR* const ListedExcludedWords[] =
	{
		TEXT("Binaries"), TEXT("Intermediate"), TEXT("Build"), TEXT("DerivedDataCache"), TEXT("Saved"), TEXT("Engine"), TEXT("Shared")
	};

	/** An excluded entry as a bare directory name, however the user wrote it. */
	FString CleanExcludedEntry(const FString& Entry)
	{
		FString Clean = Entry.Replace(TEXT("\\"), TEXT("/"));
		Clean.TrimStartAndEndInline();
		if (Clean.StartsWith(TEXT("/")))
		{
			Clean.RightChopInline(1);
		}
		if (Clean.EndsWith(TEXT("/")))
		{
			Clean.LeftChopInline(1);
		}
		return Clean;
	}

	/**
	 * True when any part of the path equals an excluded entry as a whole name. The path counts as given,
	 * so the parts above the project count too.
	 */
	bool IsDirectoryExcluded(const FString& Directory, const TArray<FString>& ExcludedDirectories)
	{
		if (ExcludedDirectories.IsEmpty())
		{
			return false;
		}

		TArray<FString> CleanEntries;
		CleanEntries.Reserve(ExcludedDirectories.Num());
		for (const FString& Entry : ExcludedDirectories)
		{
			CleanEntries.Add(CleanExcludedEntry(Entry));
		}

		TArray<FString> Parts;
		Directory.Replace(TEXT("\\"), TEXT("/")).ParseIntoArray(Parts, TEXT("/"), true);
		for (const FString& Part : Parts)
		{
			for (const FString& Entry : CleanEntries)
			{
				if (Part.Equals(Entry, ESearchCase::IgnoreCase))
				{
					return true;
				}
			}
		}
		return false;
	}

	/** The names, without paths, of a directory's files and of its subdirectories, each in listing order. */
	void ListDirectory(const FString& Directory, TArray<FString>& OutFileNames, TArray<FString>& OutDirectoryNames)
	{
		IFileManager& FileManager = IFileManager::Get();
		const FString Pattern = FPaths::Combine(Directory, TEXT("*"));
		FileManager.FindFiles(OutFileNames, *Pattern, true, false);
		FileManager.FindFiles(OutDirectoryNames, *Pattern, false, true);
	}

	bool IsSupportedExtension(const FString& Extension, const TArray<FString>& SupportedExtensions)
	{
		for (const FString& Supported : SupportedExtensions)
		{
			if (Extension.Equals(Supported, ESearchCase::IgnoreCase))
			{
				return true;
			}
		}
		return false;
	}

	bool IsListedExtension(const FString& FileName)
	{
		const FString Extension = FPaths::GetExtension(FileName, true);
		for (const TCHAR* Listed : ListedExtensions)
		{
			if (Extension.Equals(Listed, ESearchCase::IgnoreCase))
			{
				return true;
			}
		}
		return false;
	}

	bool HasExcludedWord(const FString& DirectoryName)
	{
		for (const TCHAR* Word : ListedExcludedWords)
		{
			if (DirectoryName.Contains(Word, ESearchCase::IgnoreCase))
			{
				return true;
			}
		}
		return false;
	}
}

TSharedPtr<FJsonObject> FFileUtils::BuildJsonTree(const FString& Directory, const TArray<FString>& SupportedExtensions, const TArray<FString>& ExcludedDirectories, const TSet<FName>& AssetClassPatterns)
{
	TRACE_BOOKMARK(TEXT("Tavrine - Start BuildJsonTree"));

	const TSharedPtr<FJsonObject> Tree = MakeShared<FJsonObject>();
	if (IsDirectoryExcluded(Directory, ExcludedDirectories))
	{
		return Tree;
	}

	TArray<FString> FileNames;
	TArray<FString> DirectoryNames;
	ListDirectory(Directory, FileNames, DirectoryNames);

	for (const FString& FileName : FileNames)
	{
		if (!IsSupportedExtension(FPaths::GetExtension(FileName), SupportedExtensions))
		{
			continue;
		}
		// Without patterns no asset is looked at: loading one is slow and has side effects.
		FName AssetClass = NAME_None;
		if (!AssetClassPatterns.IsEmpty() && !FileMatchesAssetClassPatterns(Directory, FileName, AssetClassPatterns, AssetClass))
		{
			continue;
		}
		Tree->SetStringField(FileName, AssetClass.IsNone() ? FString(TEXT("#")) : AssetClass.ToString());
	}

	for (const FString& DirectoryName : DirectoryNames)
	{
		const TSharedPtr<FJsonObject> SubTree = BuildJsonTree(FPaths::Combine(Directory, DirectoryName), SupportedExtensions, ExcludedDirectories, AssetClassPatterns);
		// Every directory in the tree leads to at least one file.
		if (SubTree->Values.Num() > 0)
		{
			Tree->SetObjectField(DirectoryName, SubTree);
		}
	}

	TRACE_BOOKMARK(TEXT("Tavrine - End BuildJsonTree"));
	return Tree;
}

FString FFileUtils::GetSubDirectoryStructureAsJsonObject(const FString& Directory)
{
	// Without settings every list stays empty, and an empty extension list lists no file.
	TArray<FString> SupportedExtensions;
	TArray<FString> ExcludedDirectories;
	TSet<FName> AssetClassPatterns;
	if (const UTavrineSettings* Settings = GetDefault<UTavrineSettings>())
	{
		SupportedExtensions = Settings->SupportedFileExtensions;
		ExcludedDirectories = Settings->ExcludedDirectories;
		AssetClassPatterns = Settings->GetEnabledAssetClassPatterns();
	}

	LoadAssetClassCache();
	TRACE_BOOKMARK(TEXT("Tavrine - Start GetSubDirectoryStructure"));
	TSharedPtr<FJsonObject> Tree = BuildJsonTree(Directory, SupportedExtensions, ExcludedDirectories, AssetClassPatterns);
	TRACE_BOOKMARK(TEXT("Tavrine - End GetSubDirectoryStructure"));
	SaveAssetClassCache();

	FString Text;
	const TSharedRef<TJsonWriter<TCHAR, TCondensedJsonPrintPolicy<TCHAR>>> Writer = TJsonWriterFactory<TCHAR, TCondensedJsonPrintPolicy<TCHAR>>::Create(&Text);
	FJsonSerializer::Serialize(Tree.ToSharedRef(), Writer, true);

	// Matching assets may have loaded many objects; let them go before the next build.
	Tree.Reset();
	CollectGarbage(GIsEditor ? RF_Standalone : RF_NoFlags, true);
	return Text;
}

void FFileUtils::GetSubDirectoryStructureAsJsonObjectAsync(const FString& Directory, TDelegate<void(const FString&)> OnComplete)
{
	// Put off, not parallel: the build may touch engine objects, so it stays on the game thread.
	FFunctionGraphTask::CreateAndDispatchWhenReady([Directory, OnComplete]()
	{
		AsyncDirectoryWorker(Directory, OnComplete);
	}, TStatId(), nullptr, ENamedThreads::GameThread);
}

void FFileUtils::AsyncDirectoryWorker(const FString& Directory, TDelegate<void(const FString&)> OnComplete)
{
	const FString Text = GetSubDirectoryStructureAsJsonObject(Directory);
	// The result arrives in a task of its own, so a caller never sees it inside the call that asked.
	FFunctionGraphTask::CreateAndDispatchWhenReady([Text, OnComplete]()
	{
		OnComplete.ExecuteIfBound(Text);
	}, TStatId(), nullptr, ENamedThreads::GameThread);
}

TArray<FString> FFileUtils::GetDirectoryStructureAsList(const FString& Directory)
{
	TArray<FString> Result;
	const FString ProjectDir = FPaths::ProjectDir();
	if (!Directory.StartsWith(ProjectDir, ESearchCase::IgnoreCase))
	{
		return Result;
	}

	TArray<FString> FileNames;
	TArray<FString> DirectoryNames;
	ListDirectory(Directory, FileNames, DirectoryNames);

	const FString Relative = Directory.RightChop(ProjectDir.Len());
	for (const FString& FileName : FileNames)
	{
		if (!IsListedExtension(FileName))
		{
			continue;
		}
		FString Entry = Relative.IsEmpty() ? FileName : Relative / FileName;
		FPaths::NormalizeFilename(Entry);
		if (Entry.StartsWith(TEXT("/")))
		{
			Entry.RightChopInline(1);
		}
		Result.Add(MoveTemp(Entry));
	}

	for (const FString& DirectoryName : DirectoryNames)
	{
		// A substring test, unlike the tree's: "RebuildTools" holds "Build" and is left out.
		if (HasExcludedWord(DirectoryName))
		{
			continue;
		}
		Result.Append(GetDirectoryStructureAsList(FPaths::Combine(Directory, DirectoryName)));
	}
	return Result;
}

FString FFileUtils::GetProjectStructureAsJsonList()
{
	TArray<FString> Paths = GetDirectoryStructureAsList(FPaths::ProjectDir());
	Paths.Sort([](const FString& A, const FString& B)
	{
		return A.Compare(B, ESearchCase::IgnoreCase) < 0;
	});

	TArray<TSharedPtr<FJsonValue>> Values;
	Values.Reserve(Paths.Num());
	for (const FString& Path : Paths)
	{
		Values.Add(MakeShared<FJsonValueString>(Path));
	}

	FString Text;
	const TSharedRef<TJsonWriter<>> Writer = TJsonWriterFactory<>::Create(&Text);
	FJsonSerializer::Serialize(Values, Writer, true);
	return Text;
}
