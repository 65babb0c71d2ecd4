#include "GenericPlatform/GenericPlatformFile.h"

#include "Misc/Paths.h"
#include "Templates/UniquePtr.h"

namespace
{
	class FFunctionVisitor final : public IPlatformFile::FDirectoryVisitor
	{
	public:
		explicit FFunctionVisitor(IPlatformFile::FDirectoryVisitorFunc InFunction)
			: Function(InFunction)
		{
		}

		virtual bool Visit(const TCHAR* FilenameOrDirectory, bool bIsDirectory) override
		{
			return Function(FilenameOrDirectory, bIsDirectory);
		}

	private:
		IPlatformFile::FDirectoryVisitorFunc Function;
	};

	// Visits an entry, then descends into it when it is a directory.
	class FRecursiveVisitor final : public IPlatformFile::FDirectoryVisitor
	{
	public:
		FRecursiveVisitor(IPlatformFile& InPlatformFile, IPlatformFile::FDirectoryVisitor& InVisitor)
			: PlatformFile(InPlatformFile)
			, Visitor(InVisitor)
		{
		}

		virtual bool Visit(const TCHAR* FilenameOrDirectory, bool bIsDirectory) override
		{
			bool bResult = Visitor.Visit(FilenameOrDirectory, bIsDirectory);
			if (bResult && bIsDirectory)
			{
				bResult = PlatformFile.IterateDirectory(FilenameOrDirectory, *this);
			}
			return bResult;
		}

	private:
		IPlatformFile& PlatformFile;
		IPlatformFile::FDirectoryVisitor& Visitor;
	};

	class FFindFilesVisitor final : public IPlatformFile::FDirectoryVisitor
	{
	public:
		FFindFilesVisitor(TArray<FString>& InFoundFiles, const TCHAR* InFileExtension)
			: FoundFiles(InFoundFiles)
			, FileExtension(InFileExtension != nullptr ? InFileExtension : TEXT(""))
		{
			if (!FileExtension.IsEmpty() && FileExtension[0] != TEXT('.'))
			{
				FileExtension.InsertAt(0, TEXT('.'));
			}
		}

		virtual bool Visit(const TCHAR* FilenameOrDirectory, bool bIsDirectory) override
		{
			if (!bIsDirectory)
			{
				FString Filename(FilenameOrDirectory);
				if (FileExtension.IsEmpty() || Filename.EndsWith(FileExtension, ESearchCase::IgnoreCase))
				{
					FoundFiles.Add(MoveTemp(Filename));
				}
			}
			return true;
		}

	private:
		TArray<FString>& FoundFiles;
		FString FileExtension;
	};

	class FDeleteTreeVisitor final : public IPlatformFile::FDirectoryVisitor
	{
	public:
		explicit FDeleteTreeVisitor(IPlatformFile& InPlatformFile)
			: PlatformFile(InPlatformFile)
		{
		}

		virtual bool Visit(const TCHAR* FilenameOrDirectory, bool bIsDirectory) override
		{
			if (bIsDirectory)
			{
				PlatformFile.IterateDirectory(FilenameOrDirectory, *this);
				PlatformFile.DeleteDirectory(FilenameOrDirectory);
			}
			else
			{
				// A tree goes whole, read-only files included.
				PlatformFile.SetReadOnly(FilenameOrDirectory, false);
				PlatformFile.DeleteFile(FilenameOrDirectory);
			}
			return true;
		}

	private:
		IPlatformFile& PlatformFile;
	};
}

int64 IFileHandle::Size()
{
	const int64 Current = Tell();
	if (Current < 0 || !SeekFromEnd(0))
	{
		return -1;
	}
	const int64 Result = Tell();
	Seek(Current);
	return Result;
}

bool IPlatformFile::IterateDirectory(const TCHAR* Directory, FDirectoryVisitorFunc Visitor)
{
	FFunctionVisitor FunctionVisitor(Visitor);
	return IterateDirectory(Directory, FunctionVisitor);
}

bool IPlatformFile::IterateDirectoryRecursively(const TCHAR* Directory, FDirectoryVisitor& Visitor)
{
	FRecursiveVisitor Recursive(*this, Visitor);
	return IterateDirectory(Directory, Recursive);
}

bool IPlatformFile::IterateDirectoryRecursively(const TCHAR* Directory, FDirectoryVisitorFunc Visitor)
{
	FFunctionVisitor FunctionVisitor(Visitor);
	return IterateDirectoryRecursively(Directory, FunctionVisitor);
}

void IPlatformFile::FindFiles(TArray<FString>& FoundFiles, const TCHAR* Directory, const TCHAR* FileExtension)
{
	FFindFilesVisitor Visitor(FoundFiles, FileExtension);
	IterateDirectory(Directory, Visitor);
}

void IPlatformFile::FindFilesRecursively(TArray<FString>& FoundFiles, const TCHAR* Directory, const TCHAR* FileExtension)
{
	FFindFilesVisitor Visitor(FoundFiles, FileExtension);
	IterateDirectoryRecursively(Directory, Visitor);
}

bool IPlatformFile::DeleteDirectoryRecursively(const TCHAR* Directory)
{
	FDeleteTreeVisitor Visitor(*this);
	IterateDirectory(Directory, Visitor);
	DeleteDirectory(Directory);
	return !DirectoryExists(Directory);
}

bool IPlatformFile::CreateDirectoryTree(const TCHAR* Directory)
{
	FString Path(Directory);
	FPaths::NormalizeDirectoryName(Path);
	if (Path.IsEmpty())
	{
		return false;
	}
	if (DirectoryExists(*Path))
	{
		return true;
	}
	// Make each prefix that ends before a slash, from the top down; the drive or root itself is never made.
	for (int32 Index = 1; Index <= Path.Len(); ++Index)
	{
		if (Index < Path.Len() && Path[Index] != TEXT('/'))
		{
			continue;
		}
		const FString Prefix = Path.Left(Index);
		if (Prefix.EndsWith(TEXT("/"), ESearchCase::CaseSensitive) || FPaths::IsDrive(Prefix))
		{
			continue;
		}
		if (!CreateDirectory(*Prefix) && !DirectoryExists(*Prefix))
		{
			break;
		}
	}
	return DirectoryExists(*Path);
}

bool IPlatformFile::CopyFile(const TCHAR* To, const TCHAR* From, EPlatformFileRead ReadFlags, EPlatformFileWrite WriteFlags)
{
	TUniquePtr<IFileHandle> Source(OpenRead(From, EnumHasAnyFlags(ReadFlags, EPlatformFileRead::AllowWrite)));
	if (!Source)
	{
		return false;
	}
	TUniquePtr<IFileHandle> Destination(OpenWrite(To, false, EnumHasAnyFlags(WriteFlags, EPlatformFileWrite::AllowRead)));
	if (!Destination)
	{
		return false;
	}
	const int64 ChunkSize = 1024 * 1024;
	TArray<uint8> Buffer;
	Buffer.SetNumUninitialized((int32)ChunkSize);
	int64 Remaining = Source->Size();
	while (Remaining > 0)
	{
		const int64 Count = Remaining < ChunkSize ? Remaining : ChunkSize;
		if (!Source->Read(Buffer.GetData(), Count) || !Destination->Write(Buffer.GetData(), Count))
		{
			return false;
		}
		Remaining -= Count;
	}
	return Remaining == 0;
}

FString IPlatformFile::ConvertToAbsolutePathForExternalAppForRead(const TCHAR* Filename)
{
	return FPaths::ConvertRelativePathToFull(FString(Filename));
}

FString IPlatformFile::ConvertToAbsolutePathForExternalAppForWrite(const TCHAR* Filename)
{
	return FPaths::ConvertRelativePathToFull(FString(Filename));
}
