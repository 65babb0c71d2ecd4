#include "CoreMinimal.h"
#include "CoreTestPrinters.h"
#include "Misc/Paths.h"

#include <gtest/gtest.h>

#include <string>

namespace
{
	std::string Exact(const FString& Text)
	{
		return std::string(TCHAR_TO_UTF8(*Text));
	}

	std::string Normalized(const TCHAR* Path)
	{
		FString Result(Path);
		FPaths::NormalizeDirectoryName(Result);
		return Exact(Result);
	}

	std::string Collapsed(const TCHAR* Path, bool bExpected)
	{
		FString Result(Path);
		EXPECT_EQ(FPaths::CollapseRelativeDirectories(Result), bExpected) << Exact(Path);
		return Exact(Result);
	}

	std::string RelativeTo(const TCHAR* Path, const TCHAR* Base)
	{
		FString Result(Path);
		EXPECT_TRUE(FPaths::MakePathRelativeTo(Result, Base)) << Exact(Path);
		return Exact(Result);
	}
}

TEST(FPathsEdgeTest, NamePartsWithDotsInFoldersAndBareNames)
{
	// A dot in a folder name is never an extension.
	EXPECT_EQ(Exact(FPaths::GetExtension(TEXT("Plugins/My.Plugin/Readme"))), "");
	EXPECT_EQ(Exact(FPaths::GetExtension(TEXT("Plugins\\My.Plugin\\Readme"))), "");
	EXPECT_EQ(Exact(FPaths::GetBaseFilename(TEXT("Plugins/My.Plugin/Readme"))), "Readme");
	EXPECT_EQ(Exact(FPaths::GetBaseFilename(TEXT("Plugins\\My.Plugin\\Readme"), false)), "Plugins\\My.Plugin\\Readme");
	// A trailing dot is an empty extension.
	EXPECT_EQ(Exact(FPaths::GetExtension(TEXT("dir/file."))), "");
	EXPECT_EQ(Exact(FPaths::GetExtension(TEXT("dir/file."), true)), ".");
	EXPECT_EQ(Exact(FPaths::GetBaseFilename(TEXT("dir/.gitignore"))), "");
	EXPECT_EQ(Exact(FPaths::GetCleanFilename(TEXT("My.Plugin"))), "My.Plugin");
	EXPECT_EQ(Exact(FPaths::GetCleanFilename(TEXT("a/b\\c.txt"))), "c.txt");
	EXPECT_EQ(Exact(FPaths::GetPath(TEXT("/file.txt"))), "");
	EXPECT_EQ(Exact(FPaths::GetPath(TEXT("a\\b/c.txt"))), "a\\b");

	FString PathPart(TEXT("x")), NamePart(TEXT("x")), ExtensionPart(TEXT("x"));
	FPaths::Split(TEXT("Build.cs/Makefile"), PathPart, NamePart, ExtensionPart);
	EXPECT_EQ(Exact(PathPart), "Build.cs");
	EXPECT_EQ(Exact(NamePart), "Makefile");
	EXPECT_EQ(Exact(ExtensionPart), "");
	FPaths::Split(TEXT("Archive.tar.gz"), PathPart, NamePart, ExtensionPart);
	EXPECT_EQ(Exact(PathPart), "");
	EXPECT_EQ(Exact(NamePart), "Archive.tar");
	EXPECT_EQ(Exact(ExtensionPart), "gz");

	EXPECT_EQ(Exact(FPaths::ChangeExtension(TEXT("My.Plugin/Readme"), TEXT("md"))), "My.Plugin/Readme");
	EXPECT_EQ(Exact(FPaths::SetExtension(TEXT("My.Plugin/Readme"), TEXT("md"))), "My.Plugin/Readme.md");
	EXPECT_EQ(Exact(FPaths::ChangeExtension(TEXT("a/b.txt"), TEXT(""))), "a/b");
}

TEST(FPathsEdgeTest, NormalizingAndCollapsingAtTheRoot)
{
	EXPECT_EQ(Normalized(TEXT("a\\b\\")), "a/b");
	EXPECT_EQ(Normalized(TEXT("a/b//")), "a/b//");
	EXPECT_EQ(Normalized(TEXT("D:\\")), "D:/");
	EXPECT_EQ(Normalized(TEXT("")), "");

	EXPECT_EQ(Collapsed(TEXT("a/.."), true), "");
	EXPECT_EQ(Collapsed(TEXT("a/../b"), true), "b");
	EXPECT_EQ(Collapsed(TEXT("/a/b/../../c"), true), "/c");
	// Climbing above the start fails, whatever is left of the path.
	Collapsed(TEXT("a/b/../../.."), false);
	Collapsed(TEXT("/.."), false);
	EXPECT_EQ(Collapsed(TEXT("./a/./b"), true), "a/b");
	EXPECT_EQ(Collapsed(TEXT("C:/Game/../Other"), true), "C:/Other");
	// ".." only counts as a whole element.
	EXPECT_EQ(Collapsed(TEXT("a/b/..c"), true), "a/b/..c");
	EXPECT_EQ(Collapsed(TEXT("a/b../c"), true), "a/b../c");

	EXPECT_TRUE(FPaths::IsRelative(TEXT("./a")));
	EXPECT_TRUE(FPaths::IsRelative(TEXT("..\\a")));
	EXPECT_FALSE(FPaths::IsRelative(TEXT("C:")));
	EXPECT_FALSE(FPaths::IsRelative(TEXT("\\a")));
}

TEST(FPathsEdgeTest, RelativePathsBetweenFolders)
{
	EXPECT_EQ(RelativeTo(TEXT("/p/a/x.txt"), TEXT("/p/a/")), "x.txt");
	EXPECT_EQ(RelativeTo(TEXT("/p/a/b/c.txt"), TEXT("/p/a/")), "b/c.txt");
	EXPECT_EQ(RelativeTo(TEXT("/p/x.txt"), TEXT("/p/a/b/")), "../../x.txt");
	EXPECT_EQ(RelativeTo(TEXT("/q/x.txt"), TEXT("/p/a/")), "../../q/x.txt");
	// Backslashes and "." or ".." in either path are resolved first.
	EXPECT_EQ(RelativeTo(TEXT("\\p\\a\\x.txt"), TEXT("/p/b/../a/")), "x.txt");
	// A shared prefix that is not a whole folder name is not shared.
	EXPECT_EQ(RelativeTo(TEXT("/p/SourceCode/x.h"), TEXT("/p/Source/")), "../SourceCode/x.h");
	// Folder names are compared without case, as FString compares.
	EXPECT_EQ(RelativeTo(TEXT("/P/Source/x.h"), TEXT("/p/source/")), "x.h");

	EXPECT_TRUE(FPaths::IsUnderDirectory(TEXT("/p/Source/a.h"), TEXT("/p/Source/")));
	EXPECT_TRUE(FPaths::IsUnderDirectory(TEXT("/p/Source/./Sub/../a.h"), TEXT("/p/Source")));
	EXPECT_FALSE(FPaths::IsUnderDirectory(TEXT("/p/Sourc"), TEXT("/p/Source")));
	EXPECT_FALSE(FPaths::IsUnderDirectory(TEXT("/p"), TEXT("/p/Source")));
}
