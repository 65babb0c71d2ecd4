#pragma once

#include "CoreTypes.h"
#include "Containers/Array.h"
#include "Containers/UnrealString.h"
#include "Misc/DateTime.h"
#include "Misc/EnumClassFlags.h"
#include "Templates/Function.h"

enum class EPlatformFileRead : uint8
{
	None = 0x0,
	AllowWrite = 0x01
};
ENUM_CLASS_FLAGS(EPlatformFileRead);

enum class EPlatformFileWrite : uint8
{
	None = 0x0,
	AllowRead = 0x01
};
ENUM_CLASS_FLAGS(EPlatformFileWrite);

enum class EDirectoryVisitorFlags : uint8
{
	None = 0x0,
	ThreadSafe = 0x01
};
ENUM_CLASS_FLAGS(EDirectoryVisitorFlags);

/** An open file. Reads and writes move the position; all calls report failure instead of throwing. */
class IFileHandle
{
public:
	virtual ~IFileHandle()
	{
	}

	virtual int64 Tell() = 0;
	virtual bool Seek(int64 NewPosition) = 0;
	virtual bool SeekFromEnd(int64 NewPositionRelativeToEnd = 0) = 0;
	virtual bool Read(uint8* Destination, int64 BytesToRead) = 0;
	virtual bool Write(const uint8* Source, int64 BytesToWrite) = 0;
	virtual bool Flush(const bool bFullFlush = false) = 0;
	virtual bool Truncate(int64 NewSize) = 0;
	virtual int64 Size();
};

/** What the file system knows of one file or directory. */
struct FFileStatData
{
	FFileStatData()
		: CreationTime(FDateTime::MinValue())
		, AccessTime(FDateTime::MinValue())
		, ModificationTime(FDateTime::MinValue())
		, FileSize(-1)
		, bIsDirectory(false)
		, bIsReadOnly(false)
		, bIsValid(false)
	{
	}

	FFileStatData(FDateTime InCreationTime, FDateTime InAccessTime, FDateTime InModificationTime, const int64 InFileSize, const bool InIsDirectory, const bool InIsReadOnly)
		: CreationTime(InCreationTime)
		, AccessTime(InAccessTime)
		, ModificationTime(InModificationTime)
		, FileSize(InFileSize)
		, bIsDirectory(InIsDirectory)
		, bIsReadOnly(InIsReadOnly)
		, bIsValid(true)
	{
	}

	FDateTime CreationTime;
	FDateTime AccessTime;
	FDateTime ModificationTime;
	/** -1 for a directory. */
	int64 FileSize;
	bool bIsDirectory;
	bool bIsReadOnly;
	bool bIsValid;
};

/**
 * The file system as the engine sees it. Paths use forward slashes; directory listings give full paths
 * (the directory joined with the entry's name). Time stamps are UTC.
 */
class IPlatformFile
{
public:
	/** The physical file system, at the bottom of the layer chain. */
	static IPlatformFile& GetPlatformPhysical();
	static const TCHAR* GetPhysicalTypeName();

	virtual ~IPlatformFile()
	{
	}

	virtual const TCHAR* GetName() const = 0;

	virtual bool FileExists(const TCHAR* Filename) = 0;
	/** -1 when the file doesn't exist. */
	virtual int64 FileSize(const TCHAR* Filename) = 0;
	/** False when the file doesn't exist or can't be removed; a read-only file is not removed. */
	virtual bool DeleteFile(const TCHAR* Filename) = 0;
	virtual bool IsReadOnly(const TCHAR* Filename) = 0;
	virtual bool MoveFile(const TCHAR* To, const TCHAR* From) = 0;
	virtual bool SetReadOnly(const TCHAR* Filename, bool bNewReadOnlyValue) = 0;
	/** FDateTime::MinValue() on failure. */
	virtual FDateTime GetTimeStamp(const TCHAR* Filename) = 0;
	virtual void SetTimeStamp(const TCHAR* Filename, FDateTime DateTime) = 0;
	virtual FDateTime GetAccessTimeStamp(const TCHAR* Filename) = 0;
	virtual FString GetFilenameOnDisk(const TCHAR* Filename) = 0;

	/** Null when the file can't be opened. The caller owns the handle. */
	virtual IFileHandle* OpenRead(const TCHAR* Filename, bool bAllowWrite = false) = 0;
	virtual IFileHandle* OpenWrite(const TCHAR* Filename, bool bAppend = false, bool bAllowRead = false) = 0;

	virtual bool DirectoryExists(const TCHAR* Directory) = 0;
	/** True when the directory was made or already existed. */
	virtual bool CreateDirectory(const TCHAR* Directory) = 0;
	/** Removes an empty directory. */
	virtual bool DeleteDirectory(const TCHAR* Directory) = 0;

	virtual FFileStatData GetStatData(const TCHAR* FilenameOrDirectory) = 0;

	/** Called for each entry of a listing; returning false stops the listing. */
	class FDirectoryVisitor
	{
	public:
		FDirectoryVisitor(EDirectoryVisitorFlags InDirectoryVisitorFlags = EDirectoryVisitorFlags::None)
			: DirectoryVisitorFlags(InDirectoryVisitorFlags)
		{
		}

		virtual ~FDirectoryVisitor()
		{
		}

		virtual bool Visit(const TCHAR* FilenameOrDirectory, bool bIsDirectory) = 0;

		bool IsThreadSafe() const
		{
			return EnumHasAnyFlags(DirectoryVisitorFlags, EDirectoryVisitorFlags::ThreadSafe);
		}

		EDirectoryVisitorFlags DirectoryVisitorFlags;
	};

	typedef TFunctionRef<bool(const TCHAR*, bool)> FDirectoryVisitorFunc;

	/** Lists the direct entries of a directory (not "." and ".."); false if it can't be read or the visitor stopped. */
	virtual bool IterateDirectory(const TCHAR* Directory, FDirectoryVisitor& Visitor) = 0;
	virtual bool IterateDirectory(const TCHAR* Directory, FDirectoryVisitorFunc Visitor);

	/** Depth first: each entry is visited before the entries below it. */
	virtual bool IterateDirectoryRecursively(const TCHAR* Directory, FDirectoryVisitor& Visitor);
	virtual bool IterateDirectoryRecursively(const TCHAR* Directory, FDirectoryVisitorFunc Visitor);

	/**
	 * Appends the full paths of the files in Directory whose extension is FileExtension (".ext" or "ext",
	 * any case); a null or empty extension takes every file.
	 */
	virtual void FindFiles(TArray<FString>& FoundFiles, const TCHAR* Directory, const TCHAR* FileExtension);
	virtual void FindFilesRecursively(TArray<FString>& FoundFiles, const TCHAR* Directory, const TCHAR* FileExtension);

	virtual bool DeleteDirectoryRecursively(const TCHAR* Directory);
	/** Makes the directory and all its missing parents; true when it exists afterwards. */
	virtual bool CreateDirectoryTree(const TCHAR* Directory);
	virtual bool CopyFile(const TCHAR* To, const TCHAR* From, EPlatformFileRead ReadFlags = EPlatformFileRead::None, EPlatformFileWrite WriteFlags = EPlatformFileWrite::None);

	virtual FString ConvertToAbsolutePathForExternalAppForRead(const TCHAR* Filename);
	virtual FString ConvertToAbsolutePathForExternalAppForWrite(const TCHAR* Filename);
};
