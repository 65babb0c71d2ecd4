#include "CoreMinimal.h"
#include "CoreTestPrinters.h"
#include "HAL/FileManager.h"
#include "HAL/PlatformFileManager.h"
#include "Misc/Paths.h"
#include "ScratchDirectory.h"
#include "Templates/UniquePtr.h"

#include <gtest/gtest.h>

namespace
{
	TArray<FString> Sorted(TArray<FString> Names)
	{
		Names.Sort([](const FString& A, const FString& B)
		{
			return A.Compare(B) < 0;
		});
		return Names;
	}

	TArray<FString> Strings(std::initializer_list<const TCHAR*> Items)
	{
		TArray<FString> Result;
		for (const TCHAR* Item : Items)
		{
			Result.Add(Item);
		}
		return Result;
	}
}

TEST(FileManagerTest, FindFilesMatchesWildcardsAndGivesNamesOnly)
{
	FScratchDirectory Scratch;
	for (const TCHAR* Name : {TEXT("A.txt"), TEXT("b.TXT"), TEXT("c.cpp"), TEXT("d.cpp.bak"), TEXT("noext"), TEXT("Sub/inner.txt"), TEXT("dir.txt/keep")})
	{
		Scratch.WriteBytes(Name, "x");
	}
	IFileManager& FileManager = IFileManager::Get();
	TArray<FString> Found;

	// '*' and '?' match any case; directories are left out unless asked for.
	FileManager.FindFiles(Found, *Scratch.Path(TEXT("*.txt")), true, false);
	EXPECT_EQ(Found, Strings({TEXT("A.txt"), TEXT("b.TXT")}));

	Found.Empty();
	FileManager.FindFiles(Found, *Scratch.Path(TEXT("?.CPP")), true, false);
	EXPECT_EQ(Found, Strings({TEXT("c.cpp")}));

	// "*.*" takes names without a dot as well.
	Found.Empty();
	FileManager.FindFiles(Found, *Scratch.Path(TEXT("*.*")), true, false);
	EXPECT_EQ(Sorted(Found), Strings({TEXT("A.txt"), TEXT("b.TXT"), TEXT("c.cpp"), TEXT("d.cpp.bak"), TEXT("noext")}));

	Found.Empty();
	FileManager.FindFiles(Found, *Scratch.Path(TEXT("*")), false, true);
	EXPECT_EQ(Found, Strings({TEXT("dir.txt"), TEXT("Sub")}));

	// The list is added to, not replaced; a backslash pattern works too.
	FileManager.FindFiles(Found, *(Scratch.Dir() + TEXT("Sub\\*.txt")), true, false);
	EXPECT_EQ(Found, Strings({TEXT("dir.txt"), TEXT("Sub"), TEXT("inner.txt")}));

	// The extension form takes ".ext" and "ext" alike.
	Found.Empty();
	FileManager.FindFiles(Found, *Scratch.Dir(), TEXT(".cpp"));
	FileManager.FindFiles(Found, *Scratch.Dir(), TEXT("bak"));
	EXPECT_EQ(Found, Strings({TEXT("c.cpp"), TEXT("d.cpp.bak")}));

	Found.Empty();
	FileManager.FindFiles(Found, *Scratch.Path(TEXT("missing/*")), true, true);
	EXPECT_EQ(Found.Num(), 0);
}

TEST(FileManagerTest, ListingsComeInCaseInsensitiveNameOrder)
{
	FScratchDirectory Scratch;
	for (const TCHAR* Name : {TEXT("zeta.h"), TEXT("Beta.h"), TEXT("alpha.h"), TEXT("_under.h"), TEXT("Zulu.h"), TEXT("beta2.h")})
	{
		Scratch.WriteBytes(Name, "");
	}
	TArray<FString> Found;
	IFileManager::Get().FindFiles(Found, *Scratch.Path(TEXT("*")), true, false);
	// Upper-case folding, as NTFS sorts: '_' comes after the letters.
	EXPECT_EQ(Found, Strings({TEXT("alpha.h"), TEXT("Beta.h"), TEXT("beta2.h"), TEXT("zeta.h"), TEXT("Zulu.h"), TEXT("_under.h")}));
}

TEST(FileManagerTest, FindFilesRecursiveGivesFullPathsDirectoryByDirectory)
{
	FScratchDirectory Scratch;
	for (const TCHAR* Name : {TEXT("Source/Game.h"), TEXT("Source/A/Actor.h"), TEXT("Source/A/Deep/Actor.h"), TEXT("Source/B/Actor.cpp"), TEXT("Source/zz.h")})
	{
		Scratch.WriteBytes(Name, "");
	}
	const FString Source = Scratch.Path(TEXT("Source"));
	TArray<FString> Found;
	Found.Add(TEXT("stale"));
	IFileManager::Get().FindFilesRecursive(Found, *Source, TEXT("*.h"), true, false);
	EXPECT_EQ(Found, Strings({*(Source + TEXT("/Game.h")), *(Source + TEXT("/zz.h")), *(Source + TEXT("/A/Actor.h")), *(Source + TEXT("/A/Deep/Actor.h"))}));

	// By exact file name, without clearing, and with a trailing slash on the start folder.
	IFileManager::Get().FindFilesRecursive(Found, *(Source + TEXT("/")), TEXT("Actor.cpp"), true, false, false);
	ASSERT_EQ(Found.Num(), 5);
	EXPECT_EQ(Found[4], Source + TEXT("/B/Actor.cpp"));

	IFileManager::Get().FindFilesRecursive(Found, *Source, TEXT("*"), false, true);
	EXPECT_EQ(Found, Strings({*(Source + TEXT("/A")), *(Source + TEXT("/B")), *(Source + TEXT("/A/Deep"))}));
}

TEST(FileManagerTest, ReadOnlyFilesAreNotDeletedUnlessAsked)
{
	FScratchDirectory Scratch;
	IPlatformFile& PlatformFile = FPlatformFileManager::Get().GetPlatformFile();
	IFileManager& FileManager = IFileManager::Get();
	const FString File = Scratch.Path(TEXT("locked.cpp"));
	Scratch.WriteBytes(TEXT("locked.cpp"), "x");
	ASSERT_TRUE(PlatformFile.SetReadOnly(*File, true));
	EXPECT_TRUE(PlatformFile.IsReadOnly(*File));

	EXPECT_FALSE(PlatformFile.DeleteFile(*File));
	EXPECT_FALSE(FileManager.Delete(*File, false, false, true));
	EXPECT_TRUE(PlatformFile.FileExists(*File));
	EXPECT_TRUE(FileManager.Delete(*File, true, true, true));
	EXPECT_FALSE(PlatformFile.FileExists(*File));

	// A missing file fails only when it was required.
	EXPECT_FALSE(PlatformFile.DeleteFile(*File));
	EXPECT_TRUE(FileManager.Delete(*File));
	EXPECT_FALSE(FileManager.Delete(*File, true, false, true));
	// DeleteFile is for files only.
	EXPECT_FALSE(PlatformFile.DeleteFile(*Scratch.Dir()));
}

TEST(FileManagerTest, DirectoriesMovesCopiesSizesAndTimes)
{
	FScratchDirectory Scratch;
	IPlatformFile& PlatformFile = FPlatformFileManager::Get().GetPlatformFile();
	IFileManager& FileManager = IFileManager::Get();

	const FString Tree = Scratch.Path(TEXT("a/b/c"));
	EXPECT_FALSE(FileManager.MakeDirectory(*Tree));
	EXPECT_TRUE(FileManager.MakeDirectory(*Tree, true));
	EXPECT_TRUE(PlatformFile.CreateDirectoryTree(*(Tree + TEXT("/"))));
	EXPECT_TRUE(FileManager.DirectoryExists(*Tree));
	EXPECT_FALSE(FileManager.FileExists(*Tree));

	// A file where a folder should go stops the tree.
	Scratch.WriteBytes(TEXT("blocker"), "");
	EXPECT_FALSE(PlatformFile.CreateDirectoryTree(*Scratch.Path(TEXT("blocker/x"))));

	Scratch.WriteBytes(TEXT("a/b/c/file.txt"), "12345");
	PlatformFile.SetReadOnly(*Scratch.Path(TEXT("a/b/c/file.txt")), true);
	EXPECT_EQ(FileManager.FileSize(*Scratch.Path(TEXT("a/b/c/file.txt"))), 5);
	EXPECT_EQ(FileManager.FileSize(*Scratch.Path(TEXT("nothing.txt"))), -1);
	EXPECT_EQ(FileManager.FileSize(*Tree), -1);

	// Copy and move make the destination's folders; they don't replace what they may not.
	EXPECT_EQ(FileManager.Copy(*Scratch.Path(TEXT("x/y/copy.txt")), *Scratch.Path(TEXT("a/b/c/file.txt"))), (uint32)COPY_OK);
	EXPECT_EQ(Scratch.ReadBytes(TEXT("x/y/copy.txt")), "12345");
	EXPECT_EQ(FileManager.Copy(*Scratch.Path(TEXT("x/y/copy.txt")), *Scratch.Path(TEXT("blocker")), false), (uint32)COPY_Fail);
	EXPECT_EQ(FileManager.Copy(*Scratch.Path(TEXT("x/y/copy.txt")), *Scratch.Path(TEXT("missing"))), (uint32)COPY_Fail);
	EXPECT_FALSE(FileManager.Move(*Scratch.Path(TEXT("a/b/c/file.txt")), *Scratch.Path(TEXT("x/y/copy.txt"))));
	EXPECT_TRUE(FileManager.Move(*Scratch.Path(TEXT("a/b/c/file.txt")), *Scratch.Path(TEXT("x/y/copy.txt")), true, true));
	EXPECT_FALSE(FileManager.FileExists(*Scratch.Path(TEXT("x/y/copy.txt"))));
	EXPECT_TRUE(FileManager.Move(*Scratch.Path(TEXT("moved/here.txt")), *Scratch.Path(TEXT("a/b/c/file.txt"))));
	EXPECT_EQ(Scratch.ReadBytes(TEXT("moved/here.txt")), "12345");

	// Time stamps are UTC and keep sub-second precision; a missing file has the minimum.
	const FDateTime Stamp(2020, 6, 1, 12, 30, 15, 250);
	EXPECT_TRUE(FileManager.SetTimeStamp(*Scratch.Path(TEXT("moved/here.txt")), Stamp));
	EXPECT_EQ(FileManager.GetTimeStamp(*Scratch.Path(TEXT("moved/here.txt"))), Stamp);
	EXPECT_EQ(PlatformFile.GetTimeStamp(*Scratch.Path(TEXT("nothing.txt"))), FDateTime::MinValue());
	EXPECT_FALSE(FileManager.SetTimeStamp(*Scratch.Path(TEXT("nothing.txt")), Stamp));

	// A folder with contents goes only as a tree, read-only files included.
	Scratch.WriteBytes(TEXT("a/b/c/locked.txt"), "");
	PlatformFile.SetReadOnly(*Scratch.Path(TEXT("a/b/c/locked.txt")), true);
	EXPECT_FALSE(FileManager.DeleteDirectory(*Scratch.Path(TEXT("a"))));
	EXPECT_TRUE(FileManager.DeleteDirectory(*Scratch.Path(TEXT("a")), true, true));
	EXPECT_FALSE(FileManager.DirectoryExists(*Scratch.Path(TEXT("a"))));
	EXPECT_TRUE(FileManager.DeleteDirectory(*Scratch.Path(TEXT("a"))));
	EXPECT_FALSE(FileManager.DeleteDirectory(*Scratch.Path(TEXT("a")), true));
}

TEST(FileManagerTest, PlatformListingByExtensionAndVisitors)
{
	FScratchDirectory Scratch;
	IPlatformFile& PlatformFile = FPlatformFileManager::Get().GetPlatformFile();
	for (const TCHAR* Name : {TEXT("Logs/a.log"), TEXT("Logs/B.LOG"), TEXT("Logs/catalog"), TEXT("Logs/old/c.log")})
	{
		Scratch.WriteBytes(Name, "");
	}
	const FString Logs = Scratch.Path(TEXT("Logs"));

	// Full paths; "log" without its dot doesn't take "catalog".
	TArray<FString> Found;
	PlatformFile.FindFiles(Found, *Logs, TEXT(".log"));
	EXPECT_EQ(Found, Strings({*(Logs + TEXT("/a.log")), *(Logs + TEXT("/B.LOG"))}));
	Found.Empty();
	PlatformFile.FindFiles(Found, *Logs, TEXT("log"));
	EXPECT_EQ(Found.Num(), 2);
	Found.Empty();
	PlatformFile.FindFilesRecursively(Found, *Logs, TEXT(".log"));
	EXPECT_EQ(Found.Num(), 3);

	// Each entry before those below it; returning false stops the walk and the call reports it.
	TArray<FString> Visited;
	EXPECT_TRUE(PlatformFile.IterateDirectoryRecursively(*Logs, [&Visited](const TCHAR* Path, bool bIsDirectory)
	{
		Visited.Add(FPaths::GetCleanFilename(FString(Path)) + (bIsDirectory ? TEXT("/") : TEXT("")));
		return true;
	}));
	EXPECT_EQ(Visited, Strings({TEXT("a.log"), TEXT("B.LOG"), TEXT("catalog"), TEXT("old/"), TEXT("c.log")}));

	int32 Count = 0;
	EXPECT_FALSE(PlatformFile.IterateDirectory(*Logs, [&Count](const TCHAR*, bool)
	{
		return ++Count < 2;
	}));
	EXPECT_EQ(Count, 2);
	EXPECT_FALSE(PlatformFile.IterateDirectory(*Scratch.Path(TEXT("missing")), [](const TCHAR*, bool)
	{
		return true;
	}));
}

TEST(FileManagerTest, FileHandlesReadWriteSeekAndAppend)
{
	FScratchDirectory Scratch;
	IPlatformFile& PlatformFile = FPlatformFileManager::Get().GetPlatformFile();
	const FString File = Scratch.Path(TEXT("data.bin"));
	{
		TUniquePtr<IFileHandle> Writer(PlatformFile.OpenWrite(*File));
		ASSERT_TRUE(Writer.IsValid());
		const uint8 Bytes[] = {1, 2, 3, 4, 5, 6};
		EXPECT_TRUE(Writer->Write(Bytes, 6));
		EXPECT_EQ(Writer->Tell(), 6);
		EXPECT_TRUE(Writer->Seek(2));
		const uint8 Nine = 9;
		EXPECT_TRUE(Writer->Write(&Nine, 1));
		EXPECT_EQ(Writer->Size(), 6);
		EXPECT_TRUE(Writer->Truncate(5));
		EXPECT_FALSE(Writer->Seek(-1));
	}
	{
		TUniquePtr<IFileHandle> Appender(PlatformFile.OpenWrite(*File, true));
		ASSERT_TRUE(Appender.IsValid());
		const uint8 Seven = 7;
		EXPECT_TRUE(Appender->Write(&Seven, 1));
	}
	TUniquePtr<IFileHandle> Reader(PlatformFile.OpenRead(*File));
	ASSERT_TRUE(Reader.IsValid());
	EXPECT_EQ(Reader->Size(), 6);
	uint8 Read[6] = {};
	EXPECT_TRUE(Reader->Read(Read, 6));
	const uint8 Expected[] = {1, 2, 9, 4, 5, 7};
	EXPECT_EQ(std::string(Read, Read + 6), std::string(Expected, Expected + 6));
	// Reading past the end fails instead of blocking or returning short.
	EXPECT_FALSE(Reader->Read(Read, 1));
	EXPECT_TRUE(Reader->SeekFromEnd(-2));
	EXPECT_TRUE(Reader->Read(Read, 2));
	EXPECT_EQ(Read[1], 7);

	EXPECT_EQ(PlatformFile.OpenRead(*Scratch.Dir()), nullptr);
	EXPECT_EQ(PlatformFile.OpenRead(*Scratch.Path(TEXT("missing"))), nullptr);
	EXPECT_EQ(PlatformFile.OpenWrite(*Scratch.Path(TEXT("missing/dir/x"))), nullptr);
}

TEST(FileManagerTest, LargeTreesListCompletelyAndInOrder)
{
	FScratchDirectory Scratch;
	// 40 folders of 100 files, made directly so that only the listing is measured.
	for (int32 Folder = 0; Folder < 40; ++Folder)
	{
		const std::filesystem::path Directory = Scratch.Native(*FString::Printf(TEXT("Source/Module%02d/Private"), Folder));
		std::filesystem::create_directories(Directory);
		for (int32 File = 0; File < 100; ++File)
		{
			std::ofstream(Directory / ("File" + std::to_string(File) + (File % 2 ? ".cpp" : ".h")));
		}
	}
	TArray<FString> Found;
	IFileManager::Get().FindFilesRecursive(Found, *Scratch.Path(TEXT("Source")), TEXT("*.h"), true, false);
	ASSERT_EQ(Found.Num(), 2000);
	// Within a folder, names in order; folders in order.
	for (int32 Index = 1; Index < Found.Num(); ++Index)
	{
		const FString Previous = FPaths::GetPath(Found[Index - 1]);
		const FString Current = FPaths::GetPath(Found[Index]);
		if (Previous == Current)
		{
			ASSERT_LT(FPaths::GetCleanFilename(Found[Index - 1]).Compare(FPaths::GetCleanFilename(Found[Index]), ESearchCase::IgnoreCase), 0);
		}
		else
		{
			ASSERT_LT(Previous.Compare(Current, ESearchCase::IgnoreCase), 0);
		}
	}
}
