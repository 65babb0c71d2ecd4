#include "CoreMinimal.h"
#include "CoreTestPrinters.h"
#include "Misc/App.h"
#include "Misc/Paths.h"
#include "Misc/StandInProject.h"
#include "ScratchDirectory.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <random>

TEST(FPathsTest, ConvertRelativePathToFullResolvesAgainstTheBase)
{
	const FString Base(TEXT("/home/dev/MyGame/"));
	EXPECT_EQ(FPaths::ConvertRelativePathToFull(Base, TEXT("Source/MyGame/Actor.cpp")), FString(TEXT("/home/dev/MyGame/Source/MyGame/Actor.cpp")));
	EXPECT_EQ(FPaths::ConvertRelativePathToFull(TEXT("/home/dev/MyGame"), TEXT("Config")), FString(TEXT("/home/dev/MyGame/Config")));
	EXPECT_EQ(FPaths::ConvertRelativePathToFull(Base, TEXT("Source\\Sub\\..\\Actor.h")), FString(TEXT("/home/dev/MyGame/Source/Actor.h")));
	EXPECT_EQ(FPaths::ConvertRelativePathToFull(Base, TEXT("./Config/./DefaultGame.ini")), FString(TEXT("/home/dev/MyGame/Config/DefaultGame.ini")));
	EXPECT_EQ(FPaths::ConvertRelativePathToFull(Base, TEXT("../Other/x.txt")), FString(TEXT("/home/dev/Other/x.txt")));
	EXPECT_EQ(FPaths::ConvertRelativePathToFull(Base, TEXT("")), Base);
	// Absolute paths keep their own root; the base plays no part.
	EXPECT_EQ(FPaths::ConvertRelativePathToFull(Base, TEXT("/etc/../tmp/a")), FString(TEXT("/tmp/a")));
	EXPECT_EQ(FPaths::ConvertRelativePathToFull(Base, TEXT("C:\\Work\\a.txt")), FString(TEXT("C:/Work/a.txt")));
	// Climbing past the root stops where it can go no further; everything else is still folded.
	EXPECT_EQ(FPaths::ConvertRelativePathToFull(TEXT("/a/"), TEXT("b/../../../x")), FString(TEXT("/../x")));
	EXPECT_EQ(FPaths::ConvertRelativePathToFull(TEXT("/a/"), TEXT("..")), FString(TEXT("/")));

	// The one-argument form starts from the working directory.
	const FString FromWorkingDir = FPaths::ConvertRelativePathToFull(FString(TEXT("x.txt")));
	EXPECT_FALSE(FPaths::IsRelative(FromWorkingDir));
	EXPECT_TRUE(FromWorkingDir.EndsWith(TEXT("/x.txt")));
}

TEST(FPathsTest, CombineJoinsWithOneSlash)
{
	EXPECT_EQ(FPaths::Combine(TEXT("a"), TEXT("b"), TEXT("c.txt")), FString(TEXT("a/b/c.txt")));
	EXPECT_EQ(FPaths::Combine(FString(TEXT("a/")), TEXT("b")), FString(TEXT("a/b")));
	EXPECT_EQ(FPaths::Combine(TEXT("a"), FString(TEXT("/b"))), FString(TEXT("a/b")));
	EXPECT_EQ(FPaths::Combine(TEXT("a\\"), TEXT("b")), FString(TEXT("a\\b")));
	EXPECT_EQ(FPaths::Combine(TEXT("a"), TEXT("\\b")), FString(TEXT("a\\b")));
	// Empty parts add nothing, not even a slash.
	EXPECT_EQ(FPaths::Combine(TEXT(""), TEXT("b")), FString(TEXT("b")));
	EXPECT_EQ(FPaths::Combine(TEXT("a"), TEXT(""), TEXT("c")), FString(TEXT("a/c")));
	EXPECT_EQ(FPaths::Combine(TEXT("a"), TEXT("")), FString(TEXT("a")));
	// One slash between parts even when both sides bring one, as the path operator of FString does.
	EXPECT_EQ(FPaths::Combine(TEXT("a/"), TEXT("/b")), FString(TEXT("a/b")));
	EXPECT_EQ(FPaths::Combine(TEXT("a/"), TEXT("/b")), FString(TEXT("a/")) / TEXT("/b"));
	EXPECT_EQ(FPaths::Combine(FPaths::ProjectPluginsDir(), TEXT("tavrine-unreal"), TEXT("Logs")), FPaths::ProjectPluginsDir() + TEXT("tavrine-unreal/Logs"));
}

TEST(FPathsTest, FilenamePartsAndExtensions)
{
	EXPECT_EQ(FPaths::GetCleanFilename(TEXT("/a/b/Actor.cpp")), FString(TEXT("Actor.cpp")));
	EXPECT_EQ(FPaths::GetCleanFilename(TEXT("a\\b\\Actor.cpp")), FString(TEXT("Actor.cpp")));
	EXPECT_EQ(FPaths::GetCleanFilename(TEXT("a/b/")), FString());
	EXPECT_EQ(FPaths::GetCleanFilename(TEXT("plain")), FString(TEXT("plain")));

	EXPECT_EQ(FPaths::GetPath(TEXT("/a/b/Actor.cpp")), FString(TEXT("/a/b")));
	EXPECT_EQ(FPaths::GetPath(TEXT("Actor.cpp")), FString());
	EXPECT_EQ(FPaths::GetPath(TEXT("a/b/")), FString(TEXT("a/b")));
	EXPECT_EQ(FPaths::GetPathLeaf(TEXT("a/b/")), FString(TEXT("b")));
	EXPECT_EQ(FPaths::GetPathLeaf(TEXT("a/b")), FString(TEXT("b")));

	EXPECT_EQ(FPaths::GetExtension(TEXT("a/b.c/Actor.generated.h")), FString(TEXT("h")));
	EXPECT_EQ(FPaths::GetExtension(TEXT("a/b.c/Actor.h"), true), FString(TEXT(".h")));
	EXPECT_EQ(FPaths::GetExtension(TEXT("a/b.c/Makefile")), FString());
	EXPECT_EQ(FPaths::GetExtension(TEXT(".gitignore")), FString(TEXT("gitignore")));

	EXPECT_EQ(FPaths::GetBaseFilename(TEXT("a/b/Actor.generated.h")), FString(TEXT("Actor.generated")));
	EXPECT_EQ(FPaths::GetBaseFilename(TEXT("a/b.c/Actor.h"), false), FString(TEXT("a/b.c/Actor")));
	EXPECT_EQ(FPaths::GetBaseFilename(TEXT("a/b.c/Makefile"), false), FString(TEXT("a/b.c/Makefile")));

	// ChangeExtension leaves a name without one alone; SetExtension adds it.
	EXPECT_EQ(FPaths::ChangeExtension(TEXT("a/b.c/Actor.h"), TEXT("cpp")), FString(TEXT("a/b.c/Actor.cpp")));
	EXPECT_EQ(FPaths::ChangeExtension(TEXT("a/b.c/Makefile"), TEXT(".txt")), FString(TEXT("a/b.c/Makefile")));
	EXPECT_EQ(FPaths::SetExtension(TEXT("a/b.c/Makefile"), TEXT(".txt")), FString(TEXT("a/b.c/Makefile.txt")));
	EXPECT_EQ(FPaths::SetExtension(TEXT("Actor.h"), TEXT("")), FString(TEXT("Actor")));

	FString PathPart, NamePart, ExtensionPart;
	FPaths::Split(TEXT("/x/y/Widget.cpp"), PathPart, NamePart, ExtensionPart);
	EXPECT_EQ(PathPart, FString(TEXT("/x/y")));
	EXPECT_EQ(NamePart, FString(TEXT("Widget")));
	EXPECT_EQ(ExtensionPart, FString(TEXT("cpp")));
}

TEST(FPathsTest, NormalisingCollapsingAndRelativity)
{
	FString Path(TEXT("C:\\Game\\Source\\"));
	FPaths::NormalizeFilename(Path);
	EXPECT_EQ(Path, FString(TEXT("C:/Game/Source/")));
	FPaths::NormalizeDirectoryName(Path);
	EXPECT_EQ(Path, FString(TEXT("C:/Game/Source")));
	FString Drive(TEXT("C:/"));
	FPaths::NormalizeDirectoryName(Drive);
	EXPECT_EQ(Drive, FString(TEXT("C:/")));
	FString Doubled(TEXT("//"));
	FPaths::NormalizeDirectoryName(Doubled);
	EXPECT_EQ(Doubled, FString(TEXT("//")));

	FString Collapsible(TEXT("/a/b/../c/./d/"));
	EXPECT_TRUE(FPaths::CollapseRelativeDirectories(Collapsible));
	EXPECT_EQ(Collapsible, FString(TEXT("/a/c/d/")));
	FString DoubleSlash(TEXT("a//..//b"));
	EXPECT_TRUE(FPaths::CollapseRelativeDirectories(DoubleSlash));
	EXPECT_EQ(DoubleSlash, FString(TEXT("a//b")));
	FString Leading(TEXT("../x"));
	EXPECT_FALSE(FPaths::CollapseRelativeDirectories(Leading));
	EXPECT_EQ(Leading, FString(TEXT("../x")));
	FString PastDrive(TEXT("C:/.."));
	EXPECT_FALSE(FPaths::CollapseRelativeDirectories(PastDrive));
	FString DotsInNames(TEXT("a/..b/c../.."));
	EXPECT_TRUE(FPaths::CollapseRelativeDirectories(DotsInNames));
	EXPECT_EQ(DotsInNames, FString(TEXT("a/..b")));

	EXPECT_TRUE(FPaths::IsRelative(TEXT("Source/a.h")));
	EXPECT_TRUE(FPaths::IsRelative(TEXT("")));
	EXPECT_FALSE(FPaths::IsRelative(TEXT("/usr")));
	EXPECT_FALSE(FPaths::IsRelative(TEXT("\\\\server\\share")));
	EXPECT_FALSE(FPaths::IsRelative(TEXT("d:/x")));
	EXPECT_TRUE(FPaths::IsDrive(TEXT("C:")));
	EXPECT_TRUE(FPaths::IsDrive(TEXT("c:\\")));
	EXPECT_FALSE(FPaths::IsDrive(TEXT("C:/x")));

	FString Target(TEXT("/p/Source/Game/Actor.cpp"));
	EXPECT_TRUE(FPaths::MakePathRelativeTo(Target, TEXT("/p/Content/")));
	EXPECT_EQ(Target, FString(TEXT("../Source/Game/Actor.cpp")));
	FString Sibling(TEXT("/p/Source/Game/Actor.cpp"));
	EXPECT_TRUE(FPaths::MakePathRelativeTo(Sibling, TEXT("/p/Source/Game/Other.h")));
	EXPECT_EQ(Sibling, FString(TEXT("Actor.cpp")));
	FString OtherDrive(TEXT("D:/x.txt"));
	EXPECT_FALSE(FPaths::MakePathRelativeTo(OtherDrive, TEXT("C:/y/")));

	EXPECT_TRUE(FPaths::IsSamePath(TEXT("/p/Source/"), TEXT("/p/x/../Source")));
	EXPECT_FALSE(FPaths::IsSamePath(TEXT("/p/source"), TEXT("/p/Source")));
	EXPECT_TRUE(FPaths::IsUnderDirectory(TEXT("/p/Source/a.h"), TEXT("/p/Source/")));
	EXPECT_TRUE(FPaths::IsUnderDirectory(TEXT("/p/Source"), TEXT("/p/Source")));
	EXPECT_FALSE(FPaths::IsUnderDirectory(TEXT("/p/SourceCode/a.h"), TEXT("/p/Source")));
	EXPECT_FALSE(FPaths::IsUnderDirectory(TEXT("/p/Source/../Secret.h"), TEXT("/p/Source")));
}

TEST(FPathsTest, ProjectFoldersComeFromTheHostsProject)
{
	FScratchDirectory Scratch;
	Scratch.WriteBytes(TEXT("Games/MyGame/MyGame.uproject"), "{}");
	FStandInProject::SetProjectFile(Scratch.Path(TEXT("Games/Other/../MyGame/MyGame.uproject")));
	FStandInProject::SetEngineDir(Scratch.Path(TEXT("UE_5.5/Engine")));

	const FString ProjectDir = Scratch.Path(TEXT("Games/MyGame/"));
	EXPECT_EQ(FPaths::ProjectDir(), ProjectDir);
	EXPECT_EQ(FPaths::GetProjectFilePath(), ProjectDir + TEXT("MyGame.uproject"));
	EXPECT_EQ(FPaths::ProjectContentDir(), ProjectDir + TEXT("Content/"));
	EXPECT_EQ(FPaths::ProjectConfigDir(), ProjectDir + TEXT("Config/"));
	EXPECT_EQ(FPaths::ProjectSavedDir(), ProjectDir + TEXT("Saved/"));
	EXPECT_EQ(FPaths::ProjectLogDir(), ProjectDir + TEXT("Saved/Logs/"));
	EXPECT_EQ(FPaths::ProjectPluginsDir(), ProjectDir + TEXT("Plugins/"));
	EXPECT_EQ(FPaths::ProjectIntermediateDir(), ProjectDir + TEXT("Intermediate/"));
	EXPECT_EQ(FPaths::EngineDir(), Scratch.Path(TEXT("UE_5.5/Engine/")));
	EXPECT_EQ(FPaths::RootDir(), Scratch.Path(TEXT("UE_5.5/")));
	EXPECT_EQ(FPaths::EnginePluginsDir(), Scratch.Path(TEXT("UE_5.5/Engine/Plugins/")));
	EXPECT_EQ(FString(FApp::GetProjectName()), FString(TEXT("MyGame")));
	EXPECT_TRUE(FApp::HasProjectName());
	EXPECT_TRUE(FPaths::FileExists(FPaths::GetProjectFilePath()));
	EXPECT_TRUE(FPaths::DirectoryExists(FPaths::ProjectDir()));
	EXPECT_FALSE(FPaths::FileExists(FPaths::ProjectDir()));

	const FString Temp = FPaths::CreateTempFilename(*FPaths::ProjectLogDir(), TEXT("PythonScriptLog_"), TEXT(".txt"));
	EXPECT_TRUE(Temp.StartsWith(FPaths::ProjectLogDir() + TEXT("PythonScriptLog_")));
	EXPECT_TRUE(Temp.EndsWith(TEXT(".txt")));
	EXPECT_EQ(Temp.Len(), (FPaths::ProjectLogDir() + TEXT("PythonScriptLog_.txt")).Len() + 32);

	FStandInProject::Reset();
	EXPECT_FALSE(FPaths::IsProjectFilePathSet());
	EXPECT_FALSE(FApp::HasProjectName());
	EXPECT_TRUE(FPaths::ProjectDir().EndsWith(TEXT("/")));
	EXPECT_FALSE(FPaths::IsRelative(FPaths::ProjectDir()));
}

TEST(FPathsTest, RandomRelativePathsResolveAsTheStandardLibraryDoes)
{
	std::mt19937 Random(7);
	const TCHAR* const Elements[] = {TEXT("a"), TEXT("Bc"), TEXT(".."), TEXT("."), TEXT("x.y"), TEXT("..z"), TEXT("w..")};
	const FString Base(TEXT("/r/s/t/"));
	for (int32 Round = 0; Round < 3000; ++Round)
	{
		FString Relative;
		const int32 Count = 1 + (int32)(Random() % 7);
		for (int32 Index = 0; Index < Count; ++Index)
		{
			if (Index > 0)
			{
				Relative += (Random() % 4 == 0) ? TEXT("\\") : TEXT("/");
			}
			Relative += Elements[Random() % UE_ARRAY_COUNT(Elements)];
		}
		const FString Full = FPaths::ConvertRelativePathToFull(Base, Relative);
		ASSERT_FALSE(Full.Contains(TEXT("\\"))) << TCHAR_TO_UTF8(*Relative);
		// Resolving again changes nothing, whatever the base.
		ASSERT_EQ(FPaths::ConvertRelativePathToFull(TEXT("/elsewhere/"), Full), Full) << TCHAR_TO_UTF8(*Relative);

		if (Full.StartsWith(TEXT("/.."), ESearchCase::CaseSensitive))
		{
			continue;
		}
		FString Normalized = Base + Relative;
		FPaths::NormalizeFilename(Normalized);
		std::string Expected = std::filesystem::path(TCHAR_TO_UTF8(*Normalized)).lexically_normal().generic_string();
		// The standard library keeps the slash that a folded "x/.." leaves; the engine drops it.
		while (Expected.size() > 1 && Expected.back() == '/')
		{
			Expected.pop_back();
		}
		FString Actual = Full;
		while (Actual.Len() > 1 && Actual.EndsWith(TEXT("/"), ESearchCase::CaseSensitive))
		{
			Actual.LeftChopInline(1);
		}
		ASSERT_EQ(Actual, FString(UTF8_TO_TCHAR(Expected.c_str()))) << TCHAR_TO_UTF8(*Relative);

		// A relative path made from it leads back to it.
		const FString Anchor = FPaths::ConvertRelativePathToFull(Base, Random() % 2 ? TEXT("q/") : TEXT("q/file.h"));
		FString RelativeBack = Full;
		ASSERT_TRUE(FPaths::MakePathRelativeTo(RelativeBack, *Anchor));
		ASSERT_EQ(FPaths::ConvertRelativePathToFull(FPaths::GetPath(Anchor), RelativeBack), Full) << TCHAR_TO_UTF8(*Relative);
		ASSERT_EQ(FPaths::IsUnderDirectory(Full, Base), !RelativeBack.StartsWith(TEXT("../../"), ESearchCase::CaseSensitive) && Full.StartsWith(TEXT("/r/s/t"), ESearchCase::CaseSensitive)) << TCHAR_TO_UTF8(*Relative);
	}
}
