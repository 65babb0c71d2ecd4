// The physical file system on Linux, behaving as the engine's Windows file layer does where the two differ
// in ways the editor's code can see: a read-only attribute (the owner's write bit) blocks deletion and
// writing whoever the user is, and directory listings come in name order without regard to case.
#include "GenericPlatform/GenericPlatformFile.h"

#include "Misc/UnicodeTranscoding.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

namespace
{
	using UE::Core::Private::FromFileSystemString;
	using UE::Core::Private::ToFileSystemString;

	// Backslashes become slashes, and an empty path means the current directory.
	std::string ToNativePath(const TCHAR* Path)
	{
		std::string Native = ToFileSystemString(Path);
		std::replace(Native.begin(), Native.end(), '\\', '/');
		return Native;
	}

	bool StatPath(const TCHAR* Path, struct stat& OutInfo)
	{
		const std::string Native = ToNativePath(Path);
		return !Native.empty() && stat(Native.c_str(), &OutInfo) == 0;
	}

	FDateTime ToDateTime(const struct timespec& Time)
	{
		const int64 Ticks = (int64)Time.tv_sec * ETimespan::TicksPerSecond + Time.tv_nsec / ETimespan::NanosecondsPerTick;
		return FDateTime(1970, 1, 1) + FTimespan(Ticks);
	}

	struct timespec ToTimespec(const FDateTime& DateTime)
	{
		const int64 Ticks = (DateTime - FDateTime(1970, 1, 1)).GetTicks();
		int64 Seconds = Ticks / ETimespan::TicksPerSecond;
		int64 Remainder = Ticks % ETimespan::TicksPerSecond;
		if (Remainder < 0)
		{
			Remainder += ETimespan::TicksPerSecond;
			--Seconds;
		}
		struct timespec Result = {};
		Result.tv_sec = (time_t)Seconds;
		Result.tv_nsec = (long)(Remainder * ETimespan::NanosecondsPerTick);
		return Result;
	}

	bool IsReadOnlyMode(mode_t Mode)
	{
		return (Mode & S_IWUSR) == 0;
	}

	FString ToFString(const std::u16string& Text)
	{
		return FString::ConstructFromPtrSize(Text.data(), (int32)Text.size());
	}

	// Upper-case folding as NTFS orders names, so '_' sorts after the letters.
	int CompareNamesForListing(const std::string& A, const std::string& B)
	{
		const size_t Common = std::min(A.size(), B.size());
		for (size_t Index = 0; Index < Common; ++Index)
		{
			unsigned char CharA = (unsigned char)A[Index];
			unsigned char CharB = (unsigned char)B[Index];
			if (CharA >= 'a' && CharA <= 'z')
			{
				CharA = (unsigned char)(CharA - 'a' + 'A');
			}
			if (CharB >= 'a' && CharB <= 'z')
			{
				CharB = (unsigned char)(CharB - 'a' + 'A');
			}
			if (CharA != CharB)
			{
				return CharA < CharB ? -1 : 1;
			}
		}
		if (A.size() != B.size())
		{
			return A.size() < B.size() ? -1 : 1;
		}
		return A.compare(B);
	}

	class FUnixFileHandle final : public IFileHandle
	{
	public:
		explicit FUnixFileHandle(int InDescriptor)
			: Descriptor(InDescriptor)
		{
		}

		virtual ~FUnixFileHandle() override
		{
			close(Descriptor);
		}

		virtual int64 Tell() override
		{
			return (int64)lseek(Descriptor, 0, SEEK_CUR);
		}

		virtual bool Seek(int64 NewPosition) override
		{
			return NewPosition >= 0 && lseek(Descriptor, (off_t)NewPosition, SEEK_SET) != (off_t)-1;
		}

		virtual bool SeekFromEnd(int64 NewPositionRelativeToEnd) override
		{
			return NewPositionRelativeToEnd <= 0 && lseek(Descriptor, (off_t)NewPositionRelativeToEnd, SEEK_END) != (off_t)-1;
		}

		virtual bool Read(uint8* Destination, int64 BytesToRead) override
		{
			while (BytesToRead > 0)
			{
				const ssize_t Count = read(Descriptor, Destination, (size_t)BytesToRead);
				if (Count < 0 && errno == EINTR)
				{
					continue;
				}
				if (Count <= 0)
				{
					return false;
				}
				Destination += Count;
				BytesToRead -= Count;
			}
			return true;
		}

		virtual bool Write(const uint8* Source, int64 BytesToWrite) override
		{
			while (BytesToWrite > 0)
			{
				const ssize_t Count = write(Descriptor, Source, (size_t)BytesToWrite);
				if (Count < 0 && errno == EINTR)
				{
					continue;
				}
				if (Count <= 0)
				{
					return false;
				}
				Source += Count;
				BytesToWrite -= Count;
			}
			return true;
		}

		virtual bool Flush(const bool bFullFlush) override
		{
			return bFullFlush ? fsync(Descriptor) == 0 : true;
		}

		virtual bool Truncate(int64 NewSize) override
		{
			return NewSize >= 0 && ftruncate(Descriptor, (off_t)NewSize) == 0;
		}

		virtual int64 Size() override
		{
			struct stat Info;
			return fstat(Descriptor, &Info) == 0 ? (int64)Info.st_size : -1;
		}

	private:
		int Descriptor;
	};

	class FUnixPlatformFile final : public IPlatformFile
	{
	public:
		using IPlatformFile::IterateDirectory;
		using IPlatformFile::IterateDirectoryRecursively;

		virtual const TCHAR* GetName() const override
		{
			return IPlatformFile::GetPhysicalTypeName();
		}

		virtual bool FileExists(const TCHAR* Filename) override
		{
			struct stat Info;
			return StatPath(Filename, Info) && S_ISREG(Info.st_mode);
		}

		virtual int64 FileSize(const TCHAR* Filename) override
		{
			struct stat Info;
			return (StatPath(Filename, Info) && S_ISREG(Info.st_mode)) ? (int64)Info.st_size : -1;
		}

		virtual bool DeleteFile(const TCHAR* Filename) override
		{
			struct stat Info;
			if (!StatPath(Filename, Info) || !S_ISREG(Info.st_mode) || IsReadOnlyMode(Info.st_mode))
			{
				return false;
			}
			return unlink(ToNativePath(Filename).c_str()) == 0;
		}

		virtual bool IsReadOnly(const TCHAR* Filename) override
		{
			struct stat Info;
			return StatPath(Filename, Info) && IsReadOnlyMode(Info.st_mode);
		}

		virtual bool MoveFile(const TCHAR* To, const TCHAR* From) override
		{
			const std::string NativeTo = ToNativePath(To);
			const std::string NativeFrom = ToNativePath(From);
			if (NativeTo.empty() || NativeFrom.empty())
			{
				return false;
			}
			if (rename(NativeFrom.c_str(), NativeTo.c_str()) == 0)
			{
				return true;
			}
			// Across file systems a move is a copy and a delete.
			if (errno == EXDEV && CopyFile(To, From))
			{
				return unlink(NativeFrom.c_str()) == 0;
			}
			return false;
		}

		virtual bool SetReadOnly(const TCHAR* Filename, bool bNewReadOnlyValue) override
		{
			struct stat Info;
			if (!StatPath(Filename, Info))
			{
				return false;
			}
			mode_t Mode = Info.st_mode & 07777;
			if (bNewReadOnlyValue)
			{
				Mode &= ~(S_IWUSR | S_IWGRP | S_IWOTH);
			}
			else
			{
				Mode |= S_IWUSR;
			}
			return chmod(ToNativePath(Filename).c_str(), Mode) == 0;
		}

		virtual FDateTime GetTimeStamp(const TCHAR* Filename) override
		{
			struct stat Info;
			return StatPath(Filename, Info) ? ToDateTime(Info.st_mtim) : FDateTime::MinValue();
		}

		virtual void SetTimeStamp(const TCHAR* Filename, FDateTime DateTime) override
		{
			const std::string Native = ToNativePath(Filename);
			struct timespec Times[2];
			Times[0].tv_sec = 0;
			Times[0].tv_nsec = UTIME_OMIT;
			Times[1] = ToTimespec(DateTime);
			utimensat(AT_FDCWD, Native.c_str(), Times, 0);
		}

		virtual FDateTime GetAccessTimeStamp(const TCHAR* Filename) override
		{
			struct stat Info;
			return StatPath(Filename, Info) ? ToDateTime(Info.st_atim) : FDateTime::MinValue();
		}

		virtual FString GetFilenameOnDisk(const TCHAR* Filename) override
		{
			return FString(Filename);
		}

		virtual IFileHandle* OpenRead(const TCHAR* Filename, bool bAllowWrite) override
		{
			const std::string Native = ToNativePath(Filename);
			if (Native.empty())
			{
				return nullptr;
			}
			const int Descriptor = open(Native.c_str(), (bAllowWrite ? O_RDWR : O_RDONLY) | O_CLOEXEC);
			if (Descriptor < 0)
			{
				return nullptr;
			}
			struct stat Info;
			if (fstat(Descriptor, &Info) != 0 || S_ISDIR(Info.st_mode))
			{
				close(Descriptor);
				return nullptr;
			}
			return new FUnixFileHandle(Descriptor);
		}

		virtual IFileHandle* OpenWrite(const TCHAR* Filename, bool bAppend, bool bAllowRead) override
		{
			const std::string Native = ToNativePath(Filename);
			if (Native.empty())
			{
				return nullptr;
			}
			struct stat Info;
			if (stat(Native.c_str(), &Info) == 0 && (S_ISDIR(Info.st_mode) || IsReadOnlyMode(Info.st_mode)))
			{
				return nullptr;
			}
			const int Flags = (bAllowRead ? O_RDWR : O_WRONLY) | O_CREAT | O_CLOEXEC | (bAppend ? O_APPEND : O_TRUNC);
			const int Descriptor = open(Native.c_str(), Flags, 0666);
			if (Descriptor < 0)
			{
				return nullptr;
			}
			return new FUnixFileHandle(Descriptor);
		}

		virtual bool DirectoryExists(const TCHAR* Directory) override
		{
			struct stat Info;
			return StatPath(Directory, Info) && S_ISDIR(Info.st_mode);
		}

		virtual bool CreateDirectory(const TCHAR* Directory) override
		{
			const std::string Native = ToNativePath(Directory);
			if (Native.empty())
			{
				return false;
			}
			return mkdir(Native.c_str(), 0777) == 0 || (errno == EEXIST && DirectoryExists(Directory));
		}

		virtual bool DeleteDirectory(const TCHAR* Directory) override
		{
			const std::string Native = ToNativePath(Directory);
			return !Native.empty() && rmdir(Native.c_str()) == 0;
		}

		virtual FFileStatData GetStatData(const TCHAR* FilenameOrDirectory) override
		{
			struct stat Info;
			if (!StatPath(FilenameOrDirectory, Info))
			{
				return FFileStatData();
			}
			const bool bIsDirectory = S_ISDIR(Info.st_mode);
			// Linux keeps no creation time in struct stat; the status change time is the nearest it has.
			return FFileStatData(ToDateTime(Info.st_ctim), ToDateTime(Info.st_atim), ToDateTime(Info.st_mtim), bIsDirectory ? -1 : (int64)Info.st_size, bIsDirectory, IsReadOnlyMode(Info.st_mode));
		}

		virtual bool IterateDirectory(const TCHAR* Directory, FDirectoryVisitor& Visitor) override
		{
			std::string Native = ToNativePath(Directory);
			while (Native.size() > 1 && Native.back() == '/')
			{
				Native.pop_back();
			}
			DIR* Handle = opendir(Native.empty() ? "." : Native.c_str());
			if (Handle == nullptr)
			{
				return false;
			}

			// Read the whole directory first: the visitor may change it, and the order must not depend on the disk.
			std::vector<std::pair<std::string, bool>> Entries;
			while (const dirent* Entry = readdir(Handle))
			{
				const char* Name = Entry->d_name;
				if (std::strcmp(Name, ".") == 0 || std::strcmp(Name, "..") == 0)
				{
					continue;
				}
				bool bIsDirectory = Entry->d_type == DT_DIR;
				if (Entry->d_type == DT_UNKNOWN || Entry->d_type == DT_LNK)
				{
					// Links count as what they point to; some file systems don't fill d_type at all.
					struct stat Info;
					if (fstatat(dirfd(Handle), Name, &Info, 0) != 0)
					{
						continue;
					}
					bIsDirectory = S_ISDIR(Info.st_mode);
				}
				Entries.emplace_back(Name, bIsDirectory);
			}
			closedir(Handle);

			std::sort(Entries.begin(), Entries.end(), [](const std::pair<std::string, bool>& A, const std::pair<std::string, bool>& B)
			{
				return CompareNamesForListing(A.first, B.first) < 0;
			});

			FString Prefix(Directory);
			Prefix.ReplaceCharInline(TEXT('\\'), TEXT('/'), ESearchCase::CaseSensitive);
			if (!Prefix.IsEmpty() && !Prefix.EndsWith(TEXT("/"), ESearchCase::CaseSensitive))
			{
				Prefix.AppendChar(TEXT('/'));
			}
			for (const std::pair<std::string, bool>& Entry : Entries)
			{
				const FString FullPath = Prefix + ToFString(FromFileSystemString(Entry.first.data(), (int64)Entry.first.size()));
				if (!Visitor.Visit(*FullPath, Entry.second))
				{
					return false;
				}
			}
			return true;
		}
	};
}

IPlatformFile& IPlatformFile::GetPlatformPhysical()
{
	static FUnixPlatformFile PhysicalPlatformFile;
	return PhysicalPlatformFile;
}

const TCHAR* IPlatformFile::GetPhysicalTypeName()
{
	return TEXT("PhysicalFile");
}
