#pragma once

#include "CoreTypes.h"
#include "Containers/Array.h"
#include "Containers/UnrealString.h"
#include "GenericPlatform/GenericPlatformFile.h"
#include "Misc/DateTime.h"

enum EFileWrite
{
	FILEWRITE_None = 0x00,
	FILEWRITE_NoFail = 0x01,
	FILEWRITE_NoReplaceExisting = 0x02,
	FILEWRITE_EvenIfReadOnly = 0x04,
	FILEWRITE_Append = 0x08,
	FILEWRITE_AllowRead = 0x10,
	FILEWRITE_Silent = 0x20
};

enum EFileRead
{
	FILEREAD_None = 0x00,
	FILEREAD_NoFail = 0x01,
	FILEREAD_Silent = 0x02,
	FILEREAD_AllowWrite = 0x04
};

enum ECopyResult
{
	COPY_OK = 0x00,
	COPY_Fail = 0x01,
	COPY_Canceled = 0x02
};

struct FCopyProgress
{
	virtual ~FCopyProgress()
	{
	}
	virtual bool Poll(float Fraction) = 0;
};

/** The high-level file interface of the engine, on top of the platform file layer. */
class IFileManager
{
protected:
	IFileManager()
	{
	}

public:
	virtual ~IFileManager()
	{
	}

	static IFileManager& Get();

	virtual bool Delete(const TCHAR* Filename, bool RequireExists = false, bool EvenReadOnly = false, bool Quiet = false) = 0;
	virtual bool IsReadOnly(const TCHAR* Filename) = 0;
	/** Moves (renames) a file, making the destination's directory if needed. */
	virtual bool Move(const TCHAR* Dest, const TCHAR* Src, bool Replace = true, bool EvenIfReadOnly = false, bool Attributes = false, bool bDoNotRetryOrError = false) = 0;
	/** One of ECopyResult. */
	virtual uint32 Copy(const TCHAR* Dest, const TCHAR* Src, bool Replace = true, bool EvenIfReadOnly = false, bool Attributes = false, FCopyProgress* Progress = nullptr, EFileRead ReadFlags = FILEREAD_None, EFileWrite WriteFlags = FILEWRITE_None) = 0;
	virtual bool MakeDirectory(const TCHAR* Path, bool Tree = false) = 0;
	virtual bool DeleteDirectory(const TCHAR* Path, bool RequireExists = false, bool Tree = false) = 0;

	virtual bool FileExists(const TCHAR* Filename) = 0;
	virtual bool DirectoryExists(const TCHAR* InDirectory) = 0;

	// Appends the names (not paths) of the entries of a directory that match a wildcard, e.g. "Dir/*.h":
	// '*' and '?', any case; "*" and "*.*" take everything.
	virtual void FindFiles(TArray<FString>& FileNames, const TCHAR* Filename, bool Files, bool Directories) = 0;
	/** The names of the files in Directory with an extension (".ext" or "ext"); null or empty takes all. */
	void FindFiles(TArray<FString>& FoundFiles, const TCHAR* Directory, const TCHAR* FileExtension = nullptr);
	/**
	 * The full paths of the entries below StartDirectory whose names match the wildcard Filename: those of a
	 * directory first, then those of each of its subdirectories in turn.
	 */
	virtual void FindFilesRecursive(TArray<FString>& FileNames, const TCHAR* StartDirectory, const TCHAR* Filename, bool Files, bool Directories, bool bClearFileNames = true) = 0;

	/** -1 when the file doesn't exist. */
	virtual int64 FileSize(const TCHAR* Filename) = 0;
	/** UTC; FDateTime::MinValue() on failure. */
	virtual FDateTime GetTimeStamp(const TCHAR* Path) = 0;
	virtual bool SetTimeStamp(const TCHAR* Path, FDateTime TimeStamp) = 0;
	virtual FDateTime GetAccessTimeStamp(const TCHAR* Filename) = 0;

	virtual bool IterateDirectory(const TCHAR* Directory, IPlatformFile::FDirectoryVisitor& Visitor) = 0;
	virtual bool IterateDirectory(const TCHAR* Directory, IPlatformFile::FDirectoryVisitorFunc Visitor) = 0;
	virtual bool IterateDirectoryRecursively(const TCHAR* Directory, IPlatformFile::FDirectoryVisitor& Visitor) = 0;
	virtual bool IterateDirectoryRecursively(const TCHAR* Directory, IPlatformFile::FDirectoryVisitorFunc Visitor) = 0;

	virtual FString ConvertToAbsolutePathForExternalAppForRead(const TCHAR* Filename) = 0;
	virtual FString ConvertToAbsolutePathForExternalAppForWrite(const TCHAR* Filename) = 0;
};
