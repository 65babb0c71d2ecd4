// The git provider on throw-away work trees: what the file operations leave in git's index.
#include "Agent/FileUtils.h"
#include "FilesTestFixture.h"
#include "ISourceControlModule.h"
#include "Misc/Paths.h"

#include <cstdio>
#include <cstdlib>

namespace
{
	class FGitProviderTest : public FFilesTest
	{
	protected:
		void SetUp() override
		{
			FFilesTest::SetUp();
			if (Shell("git --version") != 0)
			{
				GTEST_SKIP() << "git is not installed";
			}
			WriteBytes(TEXT("Source/Tracked.cpp"), "int Tracked;\n");
			WriteBytes(TEXT("Source/Untracked.cpp"), "int Untracked;\n");
			ASSERT_EQ(Shell("git init -q . && git add Source/Tracked.cpp && git -c user.name=T -c user.email=t@example.com commit -q -m start"), 0);
		}

		int Shell(const std::string& Command) const
		{
			return std::system(("cd '" + Utf8(ProjectDir) + "' && " + Command + " >/dev/null 2>&1").c_str());
		}

		/** git's two-letter short status of one file ("" when unchanged or unknown to git) is Expected. */
		bool HasStatus(const char* Relative, const char* Expected) const
		{
			return Shell(std::string("test \"$(git --literal-pathspecs status --porcelain -- '") + Relative + "' | cut -c1-2)\" = '" + Expected + "'") == 0;
		}
	};
}

TEST_F(FGitProviderTest, FileOperationsStageAddsAndDeletionsAndFindNothingToCheckOut)
{
	ISourceControlModule::Get().SetProvider(FName(TEXT("Git")));
	ASSERT_TRUE(ISourceControlModule::Get().GetProvider().IsAvailable());
	Log.Lines.Reset();

	// A new file is staged; a name with pattern characters is taken literally.
	const FString NewFile = TEXT("Source/New [1]*.cpp");
	EXPECT_EQ(FFileUtils::CreateNewFileWithContent(NewFile, TEXT("int New;\n")), TEXT("File created successfully: ") + NewFile);
	EXPECT_TRUE(HasStatus("Source/New [1]*.cpp", "A "));
	// Git has no checkout: a tracked file "cannot be checked out" and is written anyway.
	FString Original;
	FString Updated;
	EXPECT_EQ(FFileUtils::UpdateFile(TEXT("Source/Tracked.cpp"), TEXT("int Tracked;"), TEXT("int Changed;"), Original, Updated), TEXT("Successfully updated file: Source/Tracked.cpp with 1 replacements"));
	EXPECT_TRUE(HasStatus("Source/Tracked.cpp", " M"));
	// Untracked: nothing to check out, nothing to remove.
	EXPECT_FALSE(FFileUtils::CheckoutFileFromSourceControl(ProjectPath(TEXT("Source/Untracked.cpp"))));
	EXPECT_EQ(FFileUtils::DeleteFile(TEXT("Source/Untracked.cpp")), TEXT("Successfully deleted file: Source/Untracked.cpp"));
	// The added file, changed since it was staged, has its add taken back before it leaves the disk; the
	// tracked file's deletion is staged.
	EXPECT_EQ(FFileUtils::UpdateFile(NewFile, TEXT("int New;"), TEXT("int Newer;"), Original, Updated), TEXT("Successfully updated file: ") + NewFile + TEXT(" with 1 replacements"));
	EXPECT_TRUE(HasStatus("Source/New [1]*.cpp", "AM"));
	EXPECT_EQ(FFileUtils::DeleteFile(NewFile), TEXT("Successfully deleted file: ") + NewFile);
	EXPECT_TRUE(HasStatus("Source/New [1]*.cpp", ""));
	EXPECT_FALSE(Exists(NewFile));
	EXPECT_EQ(FFileUtils::DeleteFile(TEXT("Source/Tracked.cpp")), TEXT("Successfully deleted file: Source/Tracked.cpp"));
	EXPECT_TRUE(HasStatus("Source/Tracked.cpp", "D "));

	EXPECT_EQ(Log.Lines, TArray<FString>({
							 TEXT("Display: Successfully added ") + ProjectPath(NewFile) + TEXT(" to source control"),
							 TEXT("Warning: File ") + ProjectPath(TEXT("Source/Tracked.cpp")) + TEXT(" cannot be checked out (it may already be checked out)"),
							 TEXT("Warning: File ") + ProjectPath(TEXT("Source/Untracked.cpp")) + TEXT(" is not under source control"),
							 TEXT("Display: File ") + ProjectPath(TEXT("Source/Untracked.cpp")) + TEXT(" is not under source control, nothing to remove"),
							 TEXT("Warning: File ") + ProjectPath(NewFile) + TEXT(" cannot be checked out (it may already be checked out)"),
							 TEXT("Display: Successfully reverted addition of ") + ProjectPath(NewFile) + TEXT(" from source control"),
							 TEXT("Display: Successfully marked ") + ProjectPath(TEXT("Source/Tracked.cpp")) + TEXT(" for deletion in source control"),
						 }));
}

TEST_F(FGitProviderTest, OutsideAWorkTreeGitIsEnabledButNotAvailable)
{
	ASSERT_EQ(Shell("rm -rf .git"), 0);
	// The project sits inside this repository's build tree: stop git's search for a work tree above it.
	setenv("GIT_CEILING_DIRECTORIES", TCHAR_TO_UTF8(*FPaths::GetPath(FPaths::GetPath(ProjectDir))), 1);
	ISourceControlModule::Get().SetProvider(FName(TEXT("Git")));
	unsetenv("GIT_CEILING_DIRECTORIES");
	EXPECT_TRUE(ISourceControlModule::Get().GetProvider().IsEnabled());
	EXPECT_FALSE(ISourceControlModule::Get().GetProvider().IsAvailable());
	Log.Lines.Reset();
	EXPECT_EQ(FFileUtils::CreateNewFileWithContent(TEXT("A.txt"), TEXT("a")), TEXT("File created successfully: A.txt"));
	EXPECT_EQ(Log.Lines, TArray<FString>({TEXT("Warning: Source control is not available")}));
}
