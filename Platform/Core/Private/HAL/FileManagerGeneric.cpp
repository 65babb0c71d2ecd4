// IFileManager on top of the platform file layer, as the engine's generic file manager is.
#include "HAL/FileManager.h"

#include "HAL/PlatformFileManager.h"
#include "Logging/LogMacros.h"
#include "Misc/Paths.h"

DEFINE_LOG_CATEGORY_STATIC(LogFileManager, Log, All);

namespace
{
	bool MatchesEntryKind(bool bIsDirectory, bool bFiles, bool bDirectories)
	{
		return bIsDirectory ? bDirectories : bFiles;
	}

	// "*" and "*.*" both mean every entry, including names without a dot.
	FString WildcardOf(const FString& NormalizedPattern)
	{
		FString Wildcard = FPaths::GetCleanFilename(NormalizedPattern);
		if (Wildcard == TEXT("*.*"))
		{
			Wildcard = TEXT("*");
		}
		return Wildcard;
	}

	FString DirectoryOf(const FString& NormalizedPattern)
	{
		const FString Directory = FPaths::GetPath(NormalizedPattern);
		// GetPath of "/x" is empty, but the pattern is in the root, not the working directory.
		if (Directory.IsEmpty() && NormalizedPattern.StartsWith(TEXT("/"), ESearchCase::CaseSensitive))
		{
			return TEXT("/");
		}
		return Directory;
	}

	class FFileManagerGeneric final : public IFileManager
	{
	public:
		using IFileManager::FindFiles;

		virtual bool Delete(const TCHAR* Filename, bool RequireExists, bool EvenReadOnly, bool Quiet) override
		{
			IPlatformFile& PlatformFile = GetLowLevel();
			if (!PlatformFile.FileExists(Filename))
			{
				if (RequireExists)
				{
					UE_CLOG(!Quiet, LogFileManager, Warning, TEXT("Error deleting file '%s' (file does not exist)"), Filename);
					return false;
				}
				return true;
			}
			if (EvenReadOnly)
			{
				PlatformFile.SetReadOnly(Filename, false);
			}
			if (!PlatformFile.DeleteFile(Filename))
			{
				UE_CLOG(!Quiet, LogFileManager, Warning, TEXT("Error deleting file '%s'%s"), Filename, PlatformFile.IsReadOnly(Filename) ? TEXT(" (file is read-only)") : TEXT(""));
				return false;
			}
			return true;
		}

		virtual bool IsReadOnly(const TCHAR* Filename) override
		{
			return GetLowLevel().IsReadOnly(Filename);
		}

		virtual bool Move(const TCHAR* Dest, const TCHAR* Src, bool Replace, bool EvenIfReadOnly, bool Attributes, bool bDoNotRetryOrError) override
		{
			IPlatformFile& PlatformFile = GetLowLevel();
			if (!PlatformFile.FileExists(Src))
			{
				UE_CLOG(!bDoNotRetryOrError, LogFileManager, Warning, TEXT("Error moving file '%s' (file does not exist)"), Src);
				return false;
			}
			if (!PrepareDestination(Dest, Replace, EvenIfReadOnly))
			{
				UE_CLOG(!bDoNotRetryOrError, LogFileManager, Warning, TEXT("Error moving file '%s' to '%s' (destination can't be replaced)"), Src, Dest);
				return false;
			}
			if (!PlatformFile.MoveFile(Dest, Src))
			{
				UE_CLOG(!bDoNotRetryOrError, LogFileManager, Warning, TEXT("Error moving file '%s' to '%s'"), Src, Dest);
				return false;
			}
			return true;
		}

		virtual uint32 Copy(const TCHAR* Dest, const TCHAR* Src, bool Replace, bool EvenIfReadOnly, bool Attributes, FCopyProgress* Progress, EFileRead ReadFlags, EFileWrite WriteFlags) override
		{
			IPlatformFile& PlatformFile = GetLowLevel();
			if (!PlatformFile.FileExists(Src) || !PrepareDestination(Dest, Replace, EvenIfReadOnly))
			{
				return COPY_Fail;
			}
			if (Progress != nullptr && !Progress->Poll(0.0f))
			{
				return COPY_Canceled;
			}
			if (!PlatformFile.CopyFile(Dest, Src))
			{
				return COPY_Fail;
			}
			if (Attributes)
			{
				PlatformFile.SetReadOnly(Dest, PlatformFile.IsReadOnly(Src));
			}
			if (Progress != nullptr)
			{
				Progress->Poll(1.0f);
			}
			return COPY_OK;
		}

		virtual bool MakeDirectory(const TCHAR* Path, bool Tree) override
		{
			return Tree ? GetLowLevel().CreateDirectoryTree(Path) : GetLowLevel().CreateDirectory(Path);
		}

		virtual bool DeleteDirectory(const TCHAR* Path, bool RequireExists, bool Tree) override
		{
			IPlatformFile& PlatformFile = GetLowLevel();
			const bool bDeleted = Tree ? PlatformFile.DeleteDirectoryRecursively(Path) : PlatformFile.DeleteDirectory(Path);
			return bDeleted || (!RequireExists && !PlatformFile.DirectoryExists(Path));
		}

		virtual bool FileExists(const TCHAR* Filename) override
		{
			return GetLowLevel().FileExists(Filename);
		}

		virtual bool DirectoryExists(const TCHAR* InDirectory) override
		{
			return GetLowLevel().DirectoryExists(InDirectory);
		}

		virtual void FindFiles(TArray<FString>& FileNames, const TCHAR* Filename, bool Files, bool Directories) override
		{
			FString Pattern(Filename != nullptr ? Filename : TEXT(""));
			FPaths::NormalizeFilename(Pattern);
			const FString Wildcard = WildcardOf(Pattern);
			const bool bEverything = Wildcard == TEXT("*");
			GetLowLevel().IterateDirectory(*DirectoryOf(Pattern), [&](const TCHAR* FilenameOrDirectory, bool bIsDirectory)
			{
				if (MatchesEntryKind(bIsDirectory, Files, Directories))
				{
					FString Name = FPaths::GetCleanFilename(FString(FilenameOrDirectory));
					if (bEverything || Name.MatchesWildcard(Wildcard))
					{
						FileNames.Add(MoveTemp(Name));
					}
				}
				return true;
			});
		}

		virtual void FindFilesRecursive(TArray<FString>& FileNames, const TCHAR* StartDirectory, const TCHAR* Filename, bool Files, bool Directories, bool bClearFileNames) override
		{
			if (bClearFileNames)
			{
				FileNames.Empty();
			}
			FString Pattern(Filename != nullptr ? Filename : TEXT(""));
			FPaths::NormalizeFilename(Pattern);
			if (Pattern == TEXT("*.*"))
			{
				Pattern = TEXT("*");
			}
			FString Start(StartDirectory != nullptr ? StartDirectory : TEXT(""));
			FPaths::NormalizeFilename(Start);
			FindFilesRecursiveInternal(FileNames, Start, Pattern, Files, Directories);
		}

		virtual int64 FileSize(const TCHAR* Filename) override
		{
			return GetLowLevel().FileSize(Filename);
		}

		virtual FDateTime GetTimeStamp(const TCHAR* Path) override
		{
			return GetLowLevel().GetTimeStamp(Path);
		}

		virtual bool SetTimeStamp(const TCHAR* Path, FDateTime TimeStamp) override
		{
			IPlatformFile& PlatformFile = GetLowLevel();
			if (!PlatformFile.FileExists(Path) && !PlatformFile.DirectoryExists(Path))
			{
				return false;
			}
			PlatformFile.SetTimeStamp(Path, TimeStamp);
			return true;
		}

		virtual FDateTime GetAccessTimeStamp(const TCHAR* Filename) override
		{
			return GetLowLevel().GetAccessTimeStamp(Filename);
		}

		virtual bool IterateDirectory(const TCHAR* Directory, IPlatformFile::FDirectoryVisitor& Visitor) override
		{
			return GetLowLevel().IterateDirectory(Directory, Visitor);
		}

		virtual bool IterateDirectory(const TCHAR* Directory, IPlatformFile::FDirectoryVisitorFunc Visitor) override
		{
			return GetLowLevel().IterateDirectory(Directory, Visitor);
		}

		virtual bool IterateDirectoryRecursively(const TCHAR* Directory, IPlatformFile::FDirectoryVisitor& Visitor) override
		{
			return GetLowLevel().IterateDirectoryRecursively(Directory, Visitor);
		}

		virtual bool IterateDirectoryRecursively(const TCHAR* Directory, IPlatformFile::FDirectoryVisitorFunc Visitor) override
		{
			return GetLowLevel().IterateDirectoryRecursively(Directory, Visitor);
		}

		virtual FString ConvertToAbsolutePathForExternalAppForRead(const TCHAR* Filename) override
		{
			return GetLowLevel().ConvertToAbsolutePathForExternalAppForRead(Filename);
		}

		virtual FString ConvertToAbsolutePathForExternalAppForWrite(const TCHAR* Filename) override
		{
			return GetLowLevel().ConvertToAbsolutePathForExternalAppForWrite(Filename);
		}

	private:
		static IPlatformFile& GetLowLevel()
		{
			return FPlatformFileManager::Get().GetPlatformFile();
		}

		// Clears the way for a file at Dest: its directory exists and no file that may not be replaced is there.
		static bool PrepareDestination(const TCHAR* Dest, bool Replace, bool EvenIfReadOnly)
		{
			IPlatformFile& PlatformFile = GetLowLevel();
			if (PlatformFile.FileExists(Dest))
			{
				if (!Replace)
				{
					return false;
				}
				if (PlatformFile.IsReadOnly(Dest))
				{
					if (!EvenIfReadOnly)
					{
						return false;
					}
					PlatformFile.SetReadOnly(Dest, false);
				}
			}
			const FString Directory = FPaths::GetPath(FString(Dest));
			return Directory.IsEmpty() || PlatformFile.CreateDirectoryTree(*Directory);
		}

		// One listing per directory: the matches there first, then each subdirectory in listing order.
		static void FindFilesRecursiveInternal(TArray<FString>& FileNames, const FString& Directory, const FString& Wildcard, bool bFiles, bool bDirectories)
		{
			const bool bEverything = Wildcard == TEXT("*");
			TArray<FString> SubDirectories;
			GetLowLevel().IterateDirectory(*Directory, [&](const TCHAR* FilenameOrDirectory, bool bIsDirectory)
			{
				FString FullPath(FilenameOrDirectory);
				if (MatchesEntryKind(bIsDirectory, bFiles, bDirectories) && (bEverything || FPaths::GetCleanFilename(FullPath).MatchesWildcard(Wildcard)))
				{
					FileNames.Add(FullPath);
				}
				if (bIsDirectory)
				{
					SubDirectories.Add(MoveTemp(FullPath));
				}
				return true;
			});
			for (const FString& SubDirectory : SubDirectories)
			{
				FindFilesRecursiveInternal(FileNames, SubDirectory, Wildcard, bFiles, bDirectories);
			}
		}
	};
}

IFileManager& IFileManager::Get()
{
	static FFileManagerGeneric Singleton;
	return Singleton;
}

void IFileManager::FindFiles(TArray<FString>& FoundFiles, const TCHAR* Directory, const TCHAR* FileExtension)
{
	if (Directory == nullptr)
	{
		return;
	}
	FString Extension(FileExtension != nullptr ? FileExtension : TEXT(""));
	if (Extension.IsEmpty())
	{
		Extension = TEXT("*");
	}
	else if (Extension[0] == TEXT('.'))
	{
		Extension = TEXT("*") + Extension;
	}
	else
	{
		Extension = TEXT("*.") + Extension;
	}
	FindFiles(FoundFiles, *FPaths::Combine(FString(Directory), Extension), true, false);
}
