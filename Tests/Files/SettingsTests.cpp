// The per-user settings: defaults, the reset boxes, what is stored, and the reflection data a settings page reads.
#include "FilesTestFixture.h"
#include "Misc/ConfigCacheIni.h"
#include "Misc/FileHelper.h"
#include "Misc/Paths.h"
#include "TavrineSettings.h"
#include "UObject/Class.h"
#include "UObject/EnumProperty.h"
#include "UObject/UnrealType.h"

namespace
{
	const TArray<FString> DefaultExtensions = {TEXT("py"), TEXT("cs"), TEXT("json"), TEXT("cpp"), TEXT("h"), TEXT("uasset"), TEXT("umap"), TEXT("ini"), TEXT("uproject"), TEXT("csv")};
	const TArray<FString> DefaultExcluded = {TEXT("__ExternalObjects__"), TEXT("__ExternalActors__"), TEXT("Binaries"), TEXT("Intermediate"), TEXT("Saved"), TEXT("Build"), TEXT("DerivedDataCache"), TEXT("Engine"), TEXT("Shared"), TEXT(".git")};

	FProperty* FindSettingsProperty(const TCHAR* Name)
	{
		return UTavrineSettings::StaticClass()->FindPropertyByName(FName(Name));
	}

	void EditProperty(UTavrineSettings* Settings, const TCHAR* Name)
	{
		FPropertyChangedEvent Event(Name != nullptr ? FindSettingsProperty(Name) : nullptr);
		Settings->PostEditChangeProperty(Event);
	}

	class FSettingsTest : public FFilesTest
	{
	protected:
		void SetUp() override
		{
			FFilesTest::SetUp();
			// The defaults object reads the stored settings when it is made; make it now, while this
			// project has none, so that it holds the defaults whichever test runs first.
			GetDefault<UTavrineSettings>();
			IniFile = UTavrineSettings::StaticClass()->GetConfigName();
		}

		void TearDown() override
		{
			GConfig->UnloadFile(IniFile);
			FFilesTest::TearDown();
		}

		FString IniText() const
		{
			FString Text;
			FFileHelper::LoadFileToString(Text, *IniFile);
			return Text;
		}

		FString IniFile;
	};
}

TEST_F(FSettingsTest, TickingAResetBoxRestoresItsListClearsTheBoxAndSaves)
{
	UTavrineSettings* Settings = NewObject<UTavrineSettings>();
	Settings->SupportedFileExtensions.Add(TEXT("txt"));
	Settings->ExcludedDirectories = {TEXT("Only")};

	// Edits of other properties, an event without a property, and clearing a box by hand change nothing.
	EditProperty(Settings, TEXT("ApiKey"));
	EditProperty(Settings, TEXT("SupportedFileExtensions"));
	EditProperty(Settings, nullptr);
	EditProperty(Settings, TEXT("bResetSupportedFileExtensions"));
	EXPECT_EQ(Settings->SupportedFileExtensions.Num(), 11);
	EXPECT_EQ(Settings->ExcludedDirectories, TArray<FString>({TEXT("Only")}));
	EXPECT_TRUE(IniText().IsEmpty());

	Settings->bResetSupportedFileExtensions = true;
	EditProperty(Settings, TEXT("bResetSupportedFileExtensions"));
	EXPECT_EQ(Settings->SupportedFileExtensions, DefaultExtensions);
	EXPECT_FALSE(Settings->bResetSupportedFileExtensions);
	// Each reset box restores its own list only.
	EXPECT_EQ(Settings->ExcludedDirectories, TArray<FString>({TEXT("Only")}));
	// Only the config members are stored: not the boxes, not the members without reflection.
	const FString Saved = IniText();
	EXPECT_TRUE(Saved.StartsWith(TEXT("[/Script/Tavrine.TavrineSettings]")) && Saved.Contains(TEXT("+SupportedFileExtensions=csv")) && Saved.Contains(TEXT("ExcludedDirectories=Only")));
	EXPECT_FALSE(Saved.Contains(TEXT("bReset")) || Saved.Contains(TEXT("Mode=")) || Saved.Contains(TEXT("BlueprintContentFilter")) || Saved.Contains(TEXT("AutoScroll")));

	Settings->bResetExcludedDirectories = true;
	EditProperty(Settings, TEXT("bResetExcludedDirectories"));
	EXPECT_EQ(Settings->ExcludedDirectories, DefaultExcluded);
	EXPECT_FALSE(Settings->bResetExcludedDirectories);
	EXPECT_TRUE(IniText().Contains(TEXT("+ExcludedDirectories=.git")));
	EXPECT_FALSE(IniText().Contains(TEXT("ExcludedDirectories=Only")));
}

TEST_F(FSettingsTest, AFreshUserHasTheDefaultsAndStoredValuesCannotReachTheUnreflectedMembers)
{
	const UTavrineSettings* Defaults = GetDefault<UTavrineSettings>();
	EXPECT_TRUE(Defaults->ApiKey.IsEmpty());
	EXPECT_TRUE(Defaults->bDisplayFileChangesInChat);
	EXPECT_EQ(Defaults->SupportedFileExtensions, DefaultExtensions);
	EXPECT_EQ(Defaults->ExcludedDirectories, DefaultExcluded);
	EXPECT_EQ(Defaults->LogRetentionPolicy, ETavrineLogDeletionPolicy::KeepLast30Days);
	EXPECT_EQ(IniFile, ProjectPath(TEXT("Saved/Config/LinuxEditor/EditorPerUserSettings.ini")));

	const FString Ini = TEXT("[/Script/Tavrine.TavrineSettings]\nApiKey=user-key\nbDisplayFileChangesInChat=False\n+SupportedFileExtensions=txt\n")
		TEXT("LogRetentionPolicy=KeepAll\nbResetSupportedFileExtensions=True\nMode=ExplainerAndImplementerMode\n")
		TEXT("BlueprintContentFilter=UseAllContent\nAutoScrollResumeSeconds=1.0\n");
	ASSERT_TRUE(FFileHelper::SaveStringToFile(Ini, *IniFile));
	GConfig->UnloadFile(IniFile);
	UTavrineSettings* Settings = NewObject<UTavrineSettings>();
	Settings->LoadConfig();
	EXPECT_EQ(Settings->ApiKey, TEXT("user-key"));
	EXPECT_FALSE(Settings->bDisplayFileChangesInChat);
	EXPECT_EQ(Settings->SupportedFileExtensions, TArray<FString>({TEXT("txt")}));
	EXPECT_EQ(Settings->ExcludedDirectories, DefaultExcluded);
	EXPECT_EQ(Settings->LogRetentionPolicy, ETavrineLogDeletionPolicy::KeepAll);
	EXPECT_FALSE(Settings->bResetSupportedFileExtensions);
	EXPECT_EQ(Settings->Mode, ETavrineMode::ExplainerMode);
	EXPECT_EQ(Settings->BlueprintContentFilter, ETavrineBlueprintContentFilter::UseOnlyBlueprintVisibleContent);
	EXPECT_EQ(Settings->AutoScrollResumeSeconds, 10.0f);
	EXPECT_TRUE(Settings->GetEnabledAssetClassPatterns().IsEmpty());
}

TEST_F(FSettingsTest, ReflectionDataDescribesTheSettingsPage)
{
	struct FExpectedProperty
	{
		const TCHAR* Name;
		const TCHAR* Category;
		const TCHAR* DisplayName;
		const TCHAR* ToolTip;
		bool bConfig;
	};
	const FExpectedProperty Expected[] = {
		{TEXT("ApiKey"), TEXT("Tavrine|Authentication"), TEXT("API Key"), TEXT("Authentication key required to access Tavrine AI services"), true},
		{TEXT("bDisplayFileChangesInChat"), TEXT("Tavrine|Interface"), TEXT("Display File Changes In Chat"), TEXT("Enables or disables the display of file modifications, creations, and deletions in the chat interface"), true},
		{TEXT("bResetSupportedFileExtensions"), TEXT("Tavrine|Filtering|File|Extensions"), TEXT(""), TEXT("Reset Supported File Extensions"), false},
		{TEXT("SupportedFileExtensions"), TEXT("Tavrine|Filtering|File|Extensions"), TEXT("Supported File Extensions"), TEXT("Additional file extensions beyond UE4's default types (py, cs, json, cpp, h, uasset, umap, ini, uproject, csv)"), true},
		{TEXT("bResetExcludedDirectories"), TEXT("Tavrine|Filtering|File|Directories"), TEXT(""), TEXT("Reset Excluded Directories"), false},
		{TEXT("ExcludedDirectories"), TEXT("Tavrine|Filtering|File|Directories"), TEXT("Excluded Directories"), TEXT("Directories to exclude from the file tree"), true},
		{TEXT("LogRetentionPolicy"), TEXT("Tavrine|Logs"), TEXT("Log Retention Policy"), TEXT("Defines how long log files should be kept before automatic deletion"), true},
	};

	UClass* Class = UTavrineSettings::StaticClass();
	EXPECT_EQ(Class->ClassConfigName, FName(TEXT("EditorPerUserSettings")));
	EXPECT_TRUE(Class->HasAnyClassFlags(CLASS_Config));

	TArray<FString> Names;
	for (TFieldIterator<FProperty> It(Class, EFieldIteratorFlags::ExcludeSuper); It; ++It)
	{
		Names.Add(It->GetName());
	}
	ASSERT_EQ(Names.Num(), 7);
	for (int32 Index = 0; Index < 7; ++Index)
	{
		const FExpectedProperty& Want = Expected[Index];
		EXPECT_EQ(Names[Index], Want.Name);
		const FProperty* Property = FindSettingsProperty(Want.Name);
		ASSERT_NE(Property, nullptr) << Utf8(Want.Name);
		EXPECT_EQ(Property->GetMetaData(TEXT("Category")), Want.Category) << Utf8(Want.Name);
		EXPECT_EQ(Property->GetMetaData(TEXT("ToolTip")), Want.ToolTip) << Utf8(Want.Name);
		EXPECT_TRUE(Property->HasAnyPropertyFlags(CPF_Edit)) << Utf8(Want.Name);
		EXPECT_EQ((Property->GetPropertyFlags() & 0x4000) != 0, Want.bConfig) << Utf8(Want.Name);
		// The reset boxes have no display name of their own: the page shows the member's name.
		EXPECT_EQ(Property->GetMetaData(TEXT("DisplayName")), Want.DisplayName) << Utf8(Want.Name);
	}
	for (const TCHAR* Hidden : {TEXT("Mode"), TEXT("BlueprintContentFilter"), TEXT("AutoScrollResumeSeconds")})
	{
		EXPECT_EQ(FindSettingsProperty(Hidden), nullptr) << Utf8(Hidden);
	}
	const FEnumProperty* Policy = CastField<FEnumProperty>(FindSettingsProperty(TEXT("LogRetentionPolicy")));
	ASSERT_NE(Policy, nullptr);
	EXPECT_EQ(Policy->GetEnum(), StaticEnum<ETavrineLogDeletionPolicy>());
	EXPECT_EQ(Policy->GetSize(), 1);

	// The enumerations carry display names and descriptions for the page.
	EXPECT_EQ(StaticEnum<ETavrineMode>()->GetDisplayNameTextByValue(1).ToString(), TEXT("Explainer And Implementer Mode"));
	EXPECT_EQ(StaticEnum<ETavrineBlueprintContentFilter>()->GetDisplayNameTextByValue(2).ToString(), TEXT("Use Only Blueprint Class Content"));
	EXPECT_EQ(StaticEnum<ETavrineLogDeletionPolicy>()->GetDisplayNameTextByValue(0).ToString(), TEXT("Always Delete All Logs"));
	UEnum* Groups = StaticEnum<EAssetGroupCategory>();
	// 23 values and the engine's _MAX.
	EXPECT_EQ(Groups->NumEnums(), 24);
	EXPECT_EQ(Groups->GetDisplayNameTextByValue(18).ToString(), TEXT("Development & Tools Assets"));
	EXPECT_EQ(Groups->GetDisplayNameTextByValue(19).ToString(), TEXT("VR/AR Assets"));
	EXPECT_EQ(Groups->GetMetaData(TEXT("ToolTip")), TEXT("Asset group categories for filtering in file tree"));
	EXPECT_EQ(StaticEnum<ETavrineBlueprintContentFilter>()->GetMetaData(TEXT("ToolTip")), TEXT("Enum defining filtering options for Blueprint content usage"));
	// The other two have no description, nor do their values: a code comment must not turn into one.
	EXPECT_FALSE(StaticEnum<ETavrineMode>()->HasMetaData(TEXT("ToolTip")));
	EXPECT_FALSE(StaticEnum<ETavrineMode>()->HasMetaData(TEXT("ToolTip"), 0));
	EXPECT_FALSE(StaticEnum<ETavrineLogDeletionPolicy>()->HasMetaData(TEXT("ToolTip")));
}
