// Config properties between objects and the per-user ini file of their class.
#include "ReflectionTestTypes.h"
#include "CoreUObject.h"
#include "CoreTestPrinters.h"
#include "HAL/FileManager.h"
#include "Misc/ConfigCacheIni.h"
#include "Misc/FileHelper.h"
#include "Misc/Paths.h"
#include "Misc/StandInProject.h"
#include <gtest/gtest.h>

namespace
{
	// A project of its own under the build folder, so that the saved config starts empty.
	class FConfigTestProject
	{
	public:
		explicit FConfigTestProject(const TCHAR* Name)
			: Dir(FString(TEXT(COREUOBJECT_TESTS_TEMP_DIR)) / Name + TEXT("/"))
		{
			IFileManager::Get().DeleteDirectory(*Dir, false, true);
			IFileManager::Get().MakeDirectory(*Dir, true);
			const FString ProjectFile = Dir + Name + TEXT(".uproject");
			FFileHelper::SaveStringToFile(TEXT("{}"), *ProjectFile);
			FStandInProject::SetProjectFile(ProjectFile);
		}
		~FConfigTestProject()
		{
			FStandInProject::Reset();
		}

		static void WriteIni(const FString& File, const FString& Text)
		{
			IFileManager::Get().MakeDirectory(*FPaths::GetPath(File), true);
			ASSERT_TRUE(FFileHelper::SaveStringToFile(Text, *File));
			// The config cache reads a file once; make it read this one.
			GConfig->UnloadFile(File);
		}

	private:
		FString Dir;
	};
}

TEST(Config, SaveConfigWritesTheConfigPropertiesAndLoadConfigReadsThemBack)
{
	FConfigTestProject Project(TEXT("SaveAndLoad"));
	const FString File = UReflectionTestSettings::StaticClass()->GetConfigName();
	EXPECT_EQ(File, FPaths::ProjectSavedDir() + TEXT("Config/LinuxEditor/TestPerUserSettings.ini"));

	UReflectionTestSettings* Settings = NewObject<UReflectionTestSettings>();
	Settings->ApiKey = TEXT("  secret with spaces ");
	Settings->bShowChanges = false;
	Settings->bResetList = true;
	Settings->Extensions = {TEXT("h"), TEXT("cpp")};
	Settings->AnswerMode = ETestAnswerMode::Quiet;
	Settings->LegacyColor = TLC_Red;
	Settings->RetentionDays = 7;
	Settings->ScrollSeconds = 2.5f;
	Settings->bFirstFlag = true;
	Settings->FavoriteName = FName(TEXT("Silver"));
	Settings->BigNumber = 1LL << 40;
	Settings->TransientCounter = 5;
	Settings->Slots[1] = 5;
	Settings->SaveConfig(CPF_Config, nullptr, GConfig, false);

	FString Text;
	ASSERT_TRUE(FFileHelper::LoadFileToString(Text, *File));
	for (const TCHAR* Line : {TEXT("[/Script/CoreUObjectTests.ReflectionTestSettings]"), TEXT("bShowChanges=False"), TEXT("+Extensions=h"),
			 TEXT("+Extensions=cpp"), TEXT("AnswerMode=Quiet"), TEXT("LegacyColor=TLC_Red"), TEXT("RetentionDays=7"),
			 TEXT("ScrollSeconds=2.500000"), TEXT("bFirstFlag=True"), TEXT("bSecondFlag=True"), TEXT("FavoriteName=Silver"), TEXT("BigNumber=1099511627776"),
			 TEXT("Slots[0]=1"), TEXT("Slots[1]=5"), TEXT("Slots[2]=3"), TEXT("Level=High")})
	{
		EXPECT_TRUE(Text.Contains(Line)) << TCHAR_TO_UTF8(Line) << " missing from:\n" << TCHAR_TO_UTF8(*Text);
	}
	for (const TCHAR* Key : {TEXT("bResetList"), TEXT("TransientCounter"), TEXT("EditorNote"), TEXT("ProtectedValue"), TEXT("HiddenMode"), TEXT("AnswerHistory")})
	{
		EXPECT_FALSE(Text.Contains(Key)) << TCHAR_TO_UTF8(Key);
	}

	// From disk into an object that starts from the constructor's values.
	GConfig->UnloadFile(File);
	UReflectionTestSettings* Loaded = NewObject<UReflectionTestSettings>();
	Loaded->LoadConfig();
	for (TFieldIterator<FProperty> It(UReflectionTestSettings::StaticClass()); It; ++It)
	{
		if (It->HasAnyPropertyFlags(CPF_Config))
		{
			EXPECT_TRUE(It->Identical_InContainer(Loaded, Settings)) << TCHAR_TO_UTF8(*It->GetName());
		}
	}
	EXPECT_FALSE(Loaded->bResetList);
	EXPECT_EQ(Loaded->TransientCounter, 0);
	// Saving without copying to the defaults left them alone.
	EXPECT_EQ(GetDefault<UReflectionTestSettings>()->RetentionDays, 30);
}

TEST(Config, LoadConfigKeepsWhatTheFileLacksOrCannotSay)
{
	FConfigTestProject Project(TEXT("BadValues"));
	// The defaults exist before the file does, so that objects start from the constructor's values.
	GetDefault<UReflectionTestSettings>();
	const FString File = UReflectionTestSettings::StaticClass()->GetConfigName();
	FConfigTestProject::WriteIni(File, TEXT("[/Script/CoreUObjectTests.ReflectionTestSettings]\n"
											"ApiKey=from file\n"
											"RetentionDays=thirty\n"
											"AnswerMode=Shouting\n"
											"bShowChanges=perhaps\n"
											"+Extensions=only\n"
											"ScrollSeconds=\n"
											"UnknownKey=1\n"
											"[/Script/CoreUObjectTests.SomethingElse]\n"
											"RetentionDays=1\n"));
	UReflectionTestSettings* Settings = NewObject<UReflectionTestSettings>();
	Settings->LoadConfig();
	EXPECT_EQ(Settings->ApiKey, TEXT("from file"));
	EXPECT_EQ(Settings->Extensions, TArray<FString>({FString(TEXT("only"))}));
	EXPECT_EQ(Settings->RetentionDays, 30);
	EXPECT_EQ(Settings->AnswerMode, ETestAnswerMode::VeryTalkative);
	EXPECT_TRUE(Settings->bShowChanges);
	EXPECT_EQ(Settings->ScrollSeconds, 10.0f);

	// A missing or unreadable file changes nothing.
	UReflectionTestSettings* Untouched = NewObject<UReflectionTestSettings>();
	Untouched->ApiKey = TEXT("kept");
	Untouched->Extensions = {TEXT("kept")};
	Untouched->LoadConfig(nullptr, *(FPaths::ProjectSavedDir() / TEXT("Missing.ini")));
	EXPECT_EQ(Untouched->ApiKey, TEXT("kept"));
	EXPECT_EQ(Untouched->Extensions, TArray<FString>({FString(TEXT("kept"))}));
}

TEST(Config, ClassDefaultsReadTheirConfigWhenMadeAndNewObjectsStartFromThem)
{
	FConfigTestProject Project(TEXT("Startup"));
	const FString File = UReflectionTestStartupSettings::StaticClass()->GetConfigName();
	FConfigTestProject::WriteIni(File, TEXT("[/Script/CoreUObjectTests.ReflectionTestStartupSettings]\nGreeting=Bonjour\n+Words=un\n+Words=deux\n"));

	// Only this test asks for these defaults, so they are made now, from the file.
	ASSERT_EQ(UReflectionTestStartupSettings::StaticClass()->GetDefaultObject(false), nullptr);
	const UReflectionTestStartupSettings* Defaults = GetDefault<UReflectionTestStartupSettings>();
	EXPECT_EQ(Defaults->Greeting, TEXT("Bonjour"));
	EXPECT_EQ(Defaults->Words, TArray<FString>({FString(TEXT("un")), FString(TEXT("deux"))}));

	UReflectionTestStartupSettings* Instance = NewObject<UReflectionTestStartupSettings>();
	EXPECT_EQ(Instance->Greeting, TEXT("Bonjour"));
	EXPECT_EQ(Instance->Words.Num(), 2);

	// Saving an object's config updates the defaults, so later objects see it too.
	Instance->Greeting = TEXT("Hallo");
	Instance->Words.Empty();
	Instance->SaveConfig();
	EXPECT_EQ(Defaults->Greeting, TEXT("Hallo"));
	EXPECT_EQ(NewObject<UReflectionTestStartupSettings>()->Greeting, TEXT("Hallo"));
	FString Text;
	ASSERT_TRUE(FFileHelper::LoadFileToString(Text, *File));
	EXPECT_TRUE(Text.Contains(TEXT("Greeting=Hallo")));
	EXPECT_FALSE(Text.Contains(TEXT("Words")));
}

TEST(Config, PerObjectAndGlobalConfigUseTheirOwnSections)
{
	FConfigTestProject Project(TEXT("Sections"));
	const FString File = UReflectionTestPerObject::StaticClass()->GetConfigName();
	FConfigTestProject::WriteIni(File, TEXT("[Kitchen ReflectionTestPerObject]\nVolume=2\n[Garden ReflectionTestPerObject]\nVolume=9\n"));

	// Each object reads its own section when it is made.
	UReflectionTestPerObject* Kitchen = NewObject<UReflectionTestPerObject>(GetTransientPackage(), FName(TEXT("Kitchen")));
	UReflectionTestPerObject* Garden = NewObject<UReflectionTestPerObject>(GetTransientPackage(), FName(TEXT("Garden")));
	UReflectionTestPerObject* Hall = NewObject<UReflectionTestPerObject>(GetTransientPackage(), FName(TEXT("Hall")));
	EXPECT_EQ(Kitchen->Volume, 2);
	EXPECT_EQ(Garden->Volume, 9);
	EXPECT_EQ(Hall->Volume, 5);
	Hall->Volume = 7;
	Hall->SaveConfig();
	// Saving one object's section doesn't change the defaults of the others.
	EXPECT_EQ(GetDefault<UReflectionTestPerObject>()->Volume, 5);

	// A global config property of a parent lives in the parent's section, also when a child saves it.
	UReflectionTestChild* Child = NewObject<UReflectionTestChild>();
	Child->SharedNote = TEXT("shared");
	Child->ApiKey = TEXT("child key");
	Child->SaveConfig(CPF_Config, nullptr, GConfig, false);
	FString Text;
	ASSERT_TRUE(FFileHelper::LoadFileToString(Text, *File));
	EXPECT_TRUE(Text.Contains(TEXT("[Hall ReflectionTestPerObject]\nVolume=7")));
	const int32 ParentSection = Text.Find(TEXT("[/Script/CoreUObjectTests.ReflectionTestSettings]"));
	const int32 ChildSection = Text.Find(TEXT("[/Script/CoreUObjectTests.ReflectionTestChild]"));
	ASSERT_NE(ParentSection, INDEX_NONE);
	ASSERT_NE(ChildSection, INDEX_NONE);
	const int32 Shared = Text.Find(TEXT("SharedNote=shared"));
	const int32 Key = Text.Find(TEXT("ApiKey=child key"));
	EXPECT_TRUE(Shared > ParentSection && (ChildSection < ParentSection || Shared < ChildSection));
	EXPECT_TRUE(Key > ChildSection && (ParentSection < ChildSection || Key < ParentSection));

	UReflectionTestSettings* Parent = NewObject<UReflectionTestSettings>();
	Parent->LoadConfig();
	EXPECT_EQ(Parent->SharedNote, TEXT("shared"));
	EXPECT_NE(Parent->ApiKey, TEXT("child key"));
}
