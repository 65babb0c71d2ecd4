// The source half of the reference search: which files are searched, in which order, what counts as a
// match, and what a file that can't be read does.
#include "FindUtilsTestSupport.h"
#include "CoreTestPrinters.h"
#include <gtest/gtest.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace FindUtilsTest;

namespace
{
	void WriteBytes(const FString& File, const TArray<uint8>& Bytes)
	{
		IFileManager::Get().MakeDirectory(*FPaths::GetPath(File), true);
		ASSERT_TRUE(FFileHelper::SaveArrayToFile(Bytes, *File));
	}

	bool CanOpen(const char* Path)
	{
		const int Descriptor = open(Path, O_RDONLY);
		if (Descriptor < 0)
		{
			return false;
		}
		close(Descriptor);
		return true;
	}

	// A file the search can list but not open, even for root: a link to a write-only kernel file when
	// permissions alone don't stop this user. False when the machine has neither.
	bool MakeUnreadable(const FString& File)
	{
		FObjectTestProject::WriteFile(File, TEXT("int Health;"));
		const FTCHARToUTF8 Converted(*File);
		const char* Native = reinterpret_cast<const char*>(Converted.Get());
		chmod(Native, 0);
		if (!CanOpen(Native))
		{
			return true;
		}
		for (const char* WriteOnly : { "/sys/bus/pci/rescan", "/sys/class/zram-control/hot_remove", "/sys/kernel/uevent_helper" })
		{
			struct stat Info;
			if (stat(WriteOnly, &Info) == 0 && S_ISREG(Info.st_mode) && !CanOpen(WriteOnly))
			{
				unlink(Native);
				return symlink(WriteOnly, Native) == 0;
			}
		}
		return false;
	}
}

TEST(FindInSources, SourcesThenPluginsCppBeforeHeadersMatchedByPathOrTextIgnoringCase)
{
	FObjectTestProject Project(TempRoot(), TEXT("Sources"));
	const FString& Dir = Project.Dir;
	FObjectTestProject::WriteFile(Dir + TEXT("Source/Game/Guard.h"), TEXT("float MaxHealth;"));
	FObjectTestProject::WriteFile(Dir + TEXT("Source/Game/Guard.cpp"), TEXT("// UnHealthy guards rest.\nvoid Rest() {}\n// HEALTH again\n"));
	FObjectTestProject::WriteFile(Dir + TEXT("Source/Game/Door.cpp"), TEXT("void Open() {}\n"));
	// The path matches, the text doesn't.
	FObjectTestProject::WriteFile(Dir + TEXT("Source/Game/Health/Bar.h"), TEXT("#pragma once\n"));
	// Other extensions are not searched, whatever they hold.
	FObjectTestProject::WriteFile(Dir + TEXT("Source/Game/Game.Build.cs"), TEXT("Health"));
	FObjectTestProject::WriteFile(Dir + TEXT("Source/Game/Notes.hpp"), TEXT("Health"));
	FObjectTestProject::WriteFile(Dir + TEXT("Plugins/Medic/Source/Medic.cpp"), TEXT("int healthbar = 0;"));
	FObjectTestProject::WriteFile(Dir + TEXT("Plugins/Medic/Source/Medic.h"), TEXT("int Mana;"));
	FObjectTestProject::WriteFile(Dir + TEXT("Content/Readme.h"), TEXT("Health"));

	// A match across the search's read blocks, far into a large file.
	TArray<uint8> Large;
	Large.Init('x', 3 * 1024 * 1024);
	const int32 Across = 1024 * 1024 - 3;
	for (int32 Index = 0; Index < 6; ++Index)
	{
		Large[Across + Index] = static_cast<uint8>("hEaLtH"[Index]);
	}
	WriteBytes(Dir + TEXT("Source/Game/Large.cpp"), Large);
	// A match across the quarters of a block, which are searched side by side.
	TArray<uint8> Medium;
	Medium.Init('x', 4000);
	for (int32 Index = 0; Index < 6; ++Index)
	{
		Medium[997 + Index] = static_cast<uint8>("Health"[Index]);
	}
	WriteBytes(Dir + TEXT("Source/Game/Medium.cpp"), Medium);
	// UTF-16 text is read as text; a UTF-8 file with letters beyond ASCII around the match too.
	FFileHelper::SaveStringToFile(TEXT("// Gesundheit: Health"), *(Dir + TEXT("Source/Game/Wide.cpp")), FFileHelper::EEncodingOptions::ForceUnicode);
	FObjectTestProject::WriteFile(Dir + TEXT("Source/Game/Accents.h"), TEXT("// Santé Health über"));

	const TSharedPtr<FJsonObject> Result = Find(TEXT("health"));
	ASSERT_TRUE(Result.IsValid());
	EXPECT_EQ(Keys(Result), (TArray<FString>{TEXT("reference_string"), TEXT("cpp_references"), TEXT("blueprint_references")}));
	EXPECT_EQ(Result->GetStringField(TEXT("reference_string")), TEXT("health"));
	const FString Full = FPaths::ConvertRelativePathToFull(Dir);
	EXPECT_EQ(Describe(Result, TEXT("cpp_references"), Full), (TArray<FString>{
		TEXT("Type=cpp or h File|Name=Guard.cpp|Path=Source/Game/Guard.cpp"),
		TEXT("Type=cpp or h File|Name=Large.cpp|Path=Source/Game/Large.cpp"),
		TEXT("Type=cpp or h File|Name=Medium.cpp|Path=Source/Game/Medium.cpp"),
		TEXT("Type=cpp or h File|Name=Wide.cpp|Path=Source/Game/Wide.cpp"),
		TEXT("Type=cpp or h File|Name=Accents.h|Path=Source/Game/Accents.h"),
		TEXT("Type=cpp or h File|Name=Guard.h|Path=Source/Game/Guard.h"),
		TEXT("Type=cpp or h File|Name=Bar.h|Path=Source/Game/Health/Bar.h"),
		TEXT("Type=cpp or h File|Name=Medic.cpp|Path=Plugins/Medic/Source/Medic.cpp"),
	}));
	// Blueprints of other tests may still be known to the registry; only the shape counts here.
	EXPECT_TRUE(Result->HasTypedField(TEXT("blueprint_references"), EJson::Array));

	// Beyond ASCII the search string is compared as text.
	EXPECT_EQ(Describe(Find(TEXT("Santé")), TEXT("cpp_references"), Full), (TArray<FString>{TEXT("Type=cpp or h File|Name=Accents.h|Path=Source/Game/Accents.h")}));
	// Repeats inside the string must not make the search skip past a match.
	FObjectTestProject::WriteFile(Dir + TEXT("Plugins/Medic/Source/Echo.h"), TEXT("// hehehEHEal hEhEhealth"));
	EXPECT_EQ(Describe(Find(TEXT("HeHeHealth")), TEXT("cpp_references"), Full), (TArray<FString>{TEXT("Type=cpp or h File|Name=Echo.h|Path=Plugins/Medic/Source/Echo.h")}));
	EXPECT_EQ(Describe(Find(TEXT("X")), TEXT("cpp_references"), Full), (TArray<FString>{
		TEXT("Type=cpp or h File|Name=Large.cpp|Path=Source/Game/Large.cpp"),
		TEXT("Type=cpp or h File|Name=Medium.cpp|Path=Source/Game/Medium.cpp"),
		TEXT("Type=cpp or h File|Name=Guard.h|Path=Source/Game/Guard.h"),
	}));
	// The string is not trimmed: a space belongs to it.
	EXPECT_EQ(Describe(Find(TEXT(" Health ")), TEXT("cpp_references"), Full), (TArray<FString>{
		TEXT("Type=cpp or h File|Name=Guard.cpp|Path=Source/Game/Guard.cpp"),
		TEXT("Type=cpp or h File|Name=Accents.h|Path=Source/Game/Accents.h"),
	}));
}

TEST(FindInSources, UnreadableFilesAndMissingPluginsLeaveAWellFormedDocument)
{
	FObjectTestProject Project(TempRoot(), TEXT("Unreadable"));
	const FString& Dir = Project.Dir;
	FObjectTestProject::WriteFile(Dir + TEXT("Source/Game/Empty.h"), TEXT(""));
	FObjectTestProject::WriteFile(Dir + TEXT("Source/Game/Stats.cpp"), TEXT("int Stamina;"));
	const FString Locked = Dir + TEXT("Source/Game/HealthLocked.cpp");
	const bool bHasUnreadable = MakeUnreadable(Locked);
	if (!bHasUnreadable)
	{
		IFileManager::Get().Delete(*Locked);
	}

	// No Plugins folder: the same shape. An empty string is in every readable file.
	const TSharedPtr<FJsonObject> Everything = Find(TEXT(""));
	ASSERT_TRUE(Everything.IsValid());
	const FString Full = FPaths::ConvertRelativePathToFull(Dir);
	EXPECT_EQ(Describe(Everything, TEXT("cpp_references"), Full), (TArray<FString>{
		TEXT("Type=cpp or h File|Name=Stats.cpp|Path=Source/Game/Stats.cpp"),
		TEXT("Type=cpp or h File|Name=Empty.h|Path=Source/Game/Empty.h"),
	}));

	// Its path matches, but a file that can't be read is not reported.
	if (bHasUnreadable)
	{
		EXPECT_EQ(Find(TEXT("Health"))->GetArrayField(TEXT("cpp_references")).Num(), 0);
	}

	// No Source folder either: still the whole document, with empty arrays.
	IFileManager::Get().DeleteDirectory(*(Dir + TEXT("Source")), false, true);
	const TSharedPtr<FJsonObject> Nothing = Find(TEXT("Stamina"));
	ASSERT_TRUE(Nothing.IsValid());
	EXPECT_EQ(Keys(Nothing), (TArray<FString>{TEXT("reference_string"), TEXT("cpp_references"), TEXT("blueprint_references")}));
	EXPECT_EQ(Nothing->GetArrayField(TEXT("cpp_references")).Num(), 0);
	if (!bHasUnreadable)
	{
		GTEST_SKIP() << "no way to make a file unreadable for this user";
	}
}
