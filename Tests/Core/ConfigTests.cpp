#include "CoreMinimal.h"
#include "CoreTestPrinters.h"
#include "Misc/ConfigCacheIni.h"
#include "Misc/FileHelper.h"
#include "Misc/Paths.h"
#include "ScratchDirectory.h"

#include <gtest/gtest.h>

#include <random>

TEST(FConfigFileTest, ReadsSectionsKeysCommentsQuotesAndArrayCommands)
{
	FConfigFile Config;
	Config.ProcessInputFileContents(FString(TEXT(
		"Orphan=ignored\r\n"
		"; a comment\r\n"
		"# another\r\n"
		"[Tavrine]\r\n"
		"  Stage = Dev  \r\n"
		"DevApiUrl=api.example.com/v1?a=b\r\n"
		"Quoted=\"  padded \\\"x\\\" \\\\ \\n \"\r\n"
		"Half=\"open\r\n"
		"NoEquals\r\n"
		"=NoKey\r\n"
		"Empty=\r\n"
		"[Arrays]\n"
		"+Paths=A\n"
		"+Paths=B\n"
		"+Paths=A\n"
		".Dupes=X\n"
		".Dupes=X\n"
		"-Paths=A\n"
		"Replaced=1\n"
		"Replaced=2\n"
		"+Cleared=gone\n"
		"!Cleared=ClearArray\n"
		"[tavrine]\n"
		"Later=yes\n")), TEXT("test.ini"));

	FString Value;
	EXPECT_FALSE(Config.GetString(TEXT("Tavrine"), TEXT("Orphan"), Value));
	ASSERT_TRUE(Config.GetString(TEXT("Tavrine"), TEXT("Stage"), Value));
	EXPECT_EQ(Value, FString(TEXT("Dev")));
	// Section and key names ignore case; a section seen again gains keys.
	ASSERT_TRUE(Config.GetString(TEXT("TAVRINE"), TEXT("devapiurl"), Value));
	EXPECT_EQ(Value, FString(TEXT("api.example.com/v1?a=b")));
	ASSERT_TRUE(Config.GetString(TEXT("Tavrine"), TEXT("Later"), Value));
	EXPECT_EQ(Config.Num(), 2);

	ASSERT_TRUE(Config.GetString(TEXT("Tavrine"), TEXT("Quoted"), Value));
	EXPECT_EQ(Value, FString(TEXT("  padded \"x\" \\ \n ")));
	ASSERT_TRUE(Config.GetString(TEXT("Tavrine"), TEXT("Half"), Value));
	EXPECT_EQ(Value, FString(TEXT("\"open")));
	EXPECT_FALSE(Config.GetString(TEXT("Tavrine"), TEXT("NoEquals"), Value));
	ASSERT_TRUE(Config.GetString(TEXT("Tavrine"), TEXT("Empty"), Value));
	EXPECT_TRUE(Value.IsEmpty());
	EXPECT_FALSE(Config.GetString(TEXT("Missing"), TEXT("Stage"), Value));

	TArray<FString> Values;
	EXPECT_EQ(Config.GetArray(TEXT("Arrays"), TEXT("Paths"), Values), 1);
	EXPECT_EQ(Values[0], FString(TEXT("B")));
	EXPECT_EQ(Config.GetArray(TEXT("Arrays"), TEXT("Dupes"), Values), 2);
	EXPECT_EQ(Config.GetArray(TEXT("Arrays"), TEXT("Replaced"), Values), 1);
	EXPECT_EQ(Values[0], FString(TEXT("2")));
	EXPECT_EQ(Config.GetArray(TEXT("Arrays"), TEXT("Cleared"), Values), 0);

	FConfigFile Typed;
	Typed.ProcessInputFileContents(FString(TEXT("[T]\nOn=True\nYes=yes\nOne=1\nOff=False\nZero=0\nWord=maybe\nInt=-42\nBig=9000000000\nReal=2.5\n")), TEXT("typed.ini"));
	bool bValue = false;
	for (const TCHAR* Key : {TEXT("On"), TEXT("Yes"), TEXT("One")})
	{
		ASSERT_TRUE(Typed.GetBool(TEXT("T"), Key, bValue));
		EXPECT_TRUE(bValue) << TCHAR_TO_UTF8(Key);
	}
	for (const TCHAR* Key : {TEXT("Off"), TEXT("Zero"), TEXT("Word")})
	{
		ASSERT_TRUE(Typed.GetBool(TEXT("T"), Key, bValue));
		EXPECT_FALSE(bValue) << TCHAR_TO_UTF8(Key);
	}
	int32 IntValue = 0;
	ASSERT_TRUE(Typed.GetInt(TEXT("T"), TEXT("Int"), IntValue));
	EXPECT_EQ(IntValue, -42);
	int64 BigValue = 0;
	ASSERT_TRUE(Typed.GetInt64(TEXT("T"), TEXT("Big"), BigValue));
	EXPECT_EQ(BigValue, 9000000000LL);
	double RealValue = 0.0;
	ASSERT_TRUE(Typed.GetDouble(TEXT("T"), TEXT("Real"), RealValue));
	EXPECT_DOUBLE_EQ(RealValue, 2.5);
	EXPECT_FALSE(Typed.GetInt(TEXT("T"), TEXT("Absent"), IntValue));
	EXPECT_EQ(IntValue, -42);
}

TEST(FConfigFileTest, WriteAndReadBackKeepEveryValue)
{
	FScratchDirectory Scratch;
	FConfigFile Config;
	EXPECT_FALSE(Config.Dirty);
	Config.SetString(TEXT("Tavrine"), TEXT("Stage"), TEXT("Sandbox2"));
	Config.SetString(TEXT("Tavrine"), TEXT("Awkward"), TEXT(" lead and \"quotes\" ending in \\"));
	Config.SetString(TEXT("Tavrine"), TEXT("Lines"), TEXT("one\ntwo"));
	Config.SetString(TEXT("Tavrine"), TEXT("Unicode"), TEXT("Grüße"));
	Config.SetBool(TEXT("Flags"), TEXT("bEnabled"), true);
	Config.SetInt64(TEXT("Flags"), TEXT("Count"), -7);
	Config.SetDouble(TEXT("Flags"), TEXT("Ratio"), 0.25);
	TArray<FString> Array;
	Array.Add(TEXT("A"));
	Array.Add(TEXT("B"));
	Config.SetArray(TEXT("Lists"), TEXT("Unique"), Array);
	Array.Add(TEXT("A"));
	Config.SetArray(TEXT("Lists"), TEXT("Repeated"), Array);
	EXPECT_TRUE(Config.Dirty);

	const FString Filename = Scratch.Path(TEXT("Config/DefaultPlugin.ini"));
	ASSERT_TRUE(Config.Write(Filename));
	EXPECT_FALSE(Config.Dirty);
	// Setting what is already there changes nothing.
	Config.SetString(TEXT("tavrine"), TEXT("STAGE"), TEXT("Sandbox2"));
	EXPECT_FALSE(Config.Dirty);

	FConfigFile Reread;
	Reread.Read(Filename);
	FString Value;
	for (const TCHAR* Key : {TEXT("Stage"), TEXT("Awkward"), TEXT("Lines"), TEXT("Unicode")})
	{
		FString Expected;
		ASSERT_TRUE(Config.GetString(TEXT("Tavrine"), Key, Expected));
		ASSERT_TRUE(Reread.GetString(TEXT("Tavrine"), Key, Value)) << TCHAR_TO_UTF8(Key);
		EXPECT_EQ(Value, Expected);
	}
	bool bEnabled = false;
	ASSERT_TRUE(Reread.GetBool(TEXT("Flags"), TEXT("bEnabled"), bEnabled));
	EXPECT_TRUE(bEnabled);
	int64 Count = 0;
	ASSERT_TRUE(Reread.GetInt64(TEXT("Flags"), TEXT("Count"), Count));
	EXPECT_EQ(Count, -7);
	double Ratio = 0.0;
	ASSERT_TRUE(Reread.GetDouble(TEXT("Flags"), TEXT("Ratio"), Ratio));
	EXPECT_DOUBLE_EQ(Ratio, 0.25);
	TArray<FString> ReadArray;
	EXPECT_EQ(Reread.GetArray(TEXT("Lists"), TEXT("Unique"), ReadArray), 2);
	EXPECT_EQ(Reread.GetArray(TEXT("Lists"), TEXT("Repeated"), ReadArray), 3);
	EXPECT_EQ(ReadArray, Array);

	// Reading a file that isn't there leaves nothing behind.
	Reread.Read(Scratch.Path(TEXT("missing.ini")));
	EXPECT_EQ(Reread.Num(), 0);
}

TEST(FConfigCacheIniTest, SettingsLiveInTheCacheUntilFlushed)
{
	FScratchDirectory Scratch;
	const FString Filename = Scratch.Path(TEXT("Saved/Config/EditorPerProjectUserSettings.ini"));
	ASSERT_NE(GConfig, nullptr);

	FString Value;
	EXPECT_FALSE(GConfig->GetString(TEXT("/Script/Tavrine.TavrineSettings"), TEXT("UserColor"), Value, Filename));
	GConfig->SetString(TEXT("/Script/Tavrine.TavrineSettings"), TEXT("UserColor"), TEXT("(R=1,G=0,B=0)"), Filename);
	GConfig->SetInt(TEXT("/Script/Tavrine.TavrineSettings"), TEXT("Days"), 30, Filename);
	TArray<FString> Excluded;
	Excluded.Add(TEXT("Binaries"));
	Excluded.Add(TEXT("Intermediate"));
	GConfig->SetArray(TEXT("/Script/Tavrine.TavrineSettings"), TEXT("ExcludedDirectories"), Excluded, Filename);
	EXPECT_FALSE(FPaths::FileExists(Filename));

	GConfig->Flush(true, Filename);
	ASSERT_TRUE(FPaths::FileExists(Filename));
	EXPECT_EQ(GConfig->FindConfigFile(Filename), nullptr);

	// A fresh look reads the file again.
	ASSERT_TRUE(GConfig->GetString(TEXT("/Script/Tavrine.TavrineSettings"), TEXT("UserColor"), Value, Filename));
	EXPECT_EQ(Value, FString(TEXT("(R=1,G=0,B=0)")));
	int32 Days = 0;
	ASSERT_TRUE(GConfig->GetInt(TEXT("/Script/Tavrine.TavrineSettings"), TEXT("Days"), Days, Filename));
	EXPECT_EQ(Days, 30);
	TArray<FString> ReadBack;
	EXPECT_EQ(GConfig->GetArray(TEXT("/Script/Tavrine.TavrineSettings"), TEXT("ExcludedDirectories"), ReadBack, Filename), 2);
	EXPECT_TRUE(GConfig->DoesSectionExist(TEXT("/Script/Tavrine.TavrineSettings"), Filename));

	EXPECT_TRUE(GConfig->RemoveKey(TEXT("/Script/Tavrine.TavrineSettings"), TEXT("Days"), Filename));
	EXPECT_FALSE(GConfig->GetInt(TEXT("/Script/Tavrine.TavrineSettings"), TEXT("Days"), Days, Filename));
	GConfig->EmptySection(TEXT("/Script/Tavrine.TavrineSettings"), Filename);
	EXPECT_FALSE(GConfig->GetString(TEXT("/Script/Tavrine.TavrineSettings"), TEXT("UserColor"), Value, Filename));
	GConfig->Flush(true, Filename);
}

TEST(FConfigFileTest, RandomValuesSurviveWriteAndRead)
{
	FScratchDirectory Scratch;
	std::mt19937 Random(42);
	const TCHAR Alphabet[] = TEXT("ab Z09=;#[]+-.!\"\\\t\r\nüé€");
	const int32 AlphabetLength = UE_ARRAY_COUNT(Alphabet) - 1;
	for (int32 Round = 0; Round < 40; ++Round)
	{
		FConfigFile Config;
		TArray<FString> Keys;
		TArray<TArray<FString>> Values;
		for (int32 KeyIndex = 0; KeyIndex < 20; ++KeyIndex)
		{
			Keys.Add(FString::Printf(TEXT("Key%d"), KeyIndex));
			Values.AddDefaulted();
			TArray<FString>& KeyValues = Values.Last();
			const int32 ValueCount = 1 + (int32)(Random() % 3);
			for (int32 ValueIndex = 0; ValueIndex < ValueCount; ++ValueIndex)
			{
				FString Value;
				const int32 Length = (int32)(Random() % 12);
				for (int32 CharIndex = 0; CharIndex < Length; ++CharIndex)
				{
					Value.AppendChar(Alphabet[Random() % AlphabetLength]);
				}
				KeyValues.Add(Value);
			}
			Config.SetArray(TEXT("Section"), *Keys.Last(), KeyValues);
		}
		const FString Filename = Scratch.Path(*FString::Printf(TEXT("round%d.ini"), Round));
		ASSERT_TRUE(Config.Write(Filename));

		FConfigFile Reread;
		Reread.Read(Filename);
		for (int32 KeyIndex = 0; KeyIndex < Keys.Num(); ++KeyIndex)
		{
			TArray<FString> ReadValues;
			Reread.GetArray(TEXT("Section"), *Keys[KeyIndex], ReadValues);
			ASSERT_EQ(ReadValues.Num(), Values[KeyIndex].Num()) << "round " << Round << " key " << KeyIndex;
			for (int32 ValueIndex = 0; ValueIndex < ReadValues.Num(); ++ValueIndex)
			{
				ASSERT_TRUE(ReadValues[ValueIndex].Equals(Values[KeyIndex][ValueIndex])) << "round " << Round << " key " << KeyIndex << ": " << TCHAR_TO_UTF8(*Values[KeyIndex][ValueIndex]);
			}
		}
	}
}

TEST(FConfigFileTest, AnyTextParsesAndItsWrittenFormIsStable)
{
	std::mt19937 Random(5);
	const TCHAR* const Pieces[] = {TEXT("["), TEXT("]"), TEXT("="), TEXT("+"), TEXT("-"), TEXT("."), TEXT("!"), TEXT(";"), TEXT("#"), TEXT("\""), TEXT("\\"),
		TEXT(" "), TEXT("\t"), TEXT("\r"), TEXT("\n"), TEXT("\r\n"), TEXT("Key"), TEXT("key"), TEXT("Sec"), TEXT("value"), TEXT("ü")};
	for (int32 Round = 0; Round < 3000; ++Round)
	{
		FString Text;
		const int32 Count = (int32)(Random() % 40);
		for (int32 Index = 0; Index < Count; ++Index)
		{
			Text += Pieces[Random() % UE_ARRAY_COUNT(Pieces)];
		}
		FConfigFile First;
		First.ProcessInputFileContents(Text, TEXT("fuzz.ini"));
		const FString Written = First.ToIniText();
		FConfigFile Second;
		Second.ProcessInputFileContents(Written, TEXT("fuzz.ini"));
		// Keys that begin like a comment, a section or a command can't be written back, as in the engine; the rest must be.
		bool bWritable = true;
		TArray<FString> SectionNames;
		First.GetKeys(SectionNames);
		for (const FString& SectionName : SectionNames)
		{
			for (const FConfigSection::ElementType& Pair : *First.FindSection(SectionName))
			{
				const TCHAR Lead = Pair.Key.ToString()[0];
				bWritable &= FString(TEXT(";#[+-.!")).Find(FString::Chr(Lead), ESearchCase::CaseSensitive) == INDEX_NONE;
			}
		}
		if (bWritable)
		{
			ASSERT_EQ(Second.ToIniText(), Written) << TCHAR_TO_UTF8(*Text);
		}
	}
}
